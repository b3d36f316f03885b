// INDIVIDUAL: the card of a person.
#include "study/exchange/idsPeople_p.h"

#include "study/parish/codes.h"
#include "study/parish/locality.h"

#include <algorithm>

namespace study::exchange {

namespace {

// Of a date that isn't exact the row has the year alone: here is what the card has.
QString asWritten(const parish::Date& date)
{
    return date.precision == parish::Precision::About ? date.date().toString(Qt::ISODate) : QString();
}

QString firstPage(OwnedRows& acts, qint64 owner)
{
    return acts.next(owner) ? pageAt(acts.row()) : QString();
}

// The letters of GEDCOM's slashes, as the name has them.
QString withSlashes(QString part, const QString& name)
{
    static constexpr QChar standIn(0x2215);
    return name.contains(standIn) ? part : part.replace(standIn, u'/');
}

// The columns of the card that are told here, without those of anybody else.
constexpr auto ownColumns =
    "select nind, nome, titulo, alcunha, sexo, datanasc, DnascFixa, localnasc, tipolocalnasc, dataobito, dobitofixa, "
    "localobito, tipolocalobito, filiacao, idadeobito, estadoobito, sacramentos, classparoquial, altura, causa, "
    "estatura, cFisicas from individuo order by nind";

PersonCard ownCardAt(const jet::Rows& row)
{
    PersonCard card{.number = row.number(0), .name = row.text(1), .title = row.text(2), .nickname = row.text(3)};
    card.sex = row.text(4);
    card.birth = dateAt(row, 5);
    card.birthPlace = placeAt(row, 7);
    card.death = dateAt(row, 9);
    card.deathPlace = placeAt(row, 11);
    int column = 13;
    for (parish::Code* const field :
         {&card.filiation, &card.ageAtDeath, &card.stateAtDeath, &card.sacraments, &card.parishClass, &card.height})
        *field = codeAt(row, column++);
    for (QString* const field : {&card.cause, &card.stature, &card.looks})
        *field = row.text(column++);
    return card;
}

} // namespace

IdsWriter::OfPeople::OfPeople(const jet::Connection& bdp)
    : unions(bdp, "select m.nind, m.nfamilia, f.sfamilia, f.datacasam, f.dcasamfixa, f.localcasam, f.tipolocalcasam, "
                  "m.idade, m.estadocivil, m.numcasam from familias m join familia f on f.nfamilia = m.nfamilia "
                  "order by m.nind, f.datacasam is not null, f.datacasam, m.nfamilia"),
      professions(bdp, "select nind, dataref, datafixa, codprof, fonte from profissoes "
                       "order by nind, dataref, idprofissao"),
      signatures(bdp, "select nind, dataref, datafixa, nivelassinatura, assina, fonte from assinatura "
                      "order by nind, dataref, idassinatura"),
      passports(bdp, "select nind, dataref, localdestino, tipolocaldest, nPass from passaporte "
                     "order by nind, dataref, nPass"),
      assisted(bdp, "select s.nind, c.nind, f.nfamilia, s.dataref, c.datanasc, c.DnascFixa, f.datacasam, f.dcasamfixa, "
                    "s.estadocivil, s.falecidopai, s.falecidomae, s.parentbapt, s.parentnoivo, s.parentnoiva "
                    "from assistente s left join individuo c on s.tipoacto = 'b' and c.nind = s.entidade "
                    "left join familia f on s.tipoacto = 'c' and f.nfamilia = s.entidade "
                    "where s.nind is not null and (s.estadocivil is not null or s.falecidopai <> 0 or "
                    "s.falecidomae <> 0 or s.parentbapt is not null or s.parentnoivo is not null or "
                    "s.parentnoiva is not null) order by s.nind, s.dataref, s.entidade, s.rowid"),
      inherited(bdp, "select l.nindherd, t.nind, t.dataobito, t.dobitofixa, l.parentesco from legadosprofanos l "
                     "join individuo t on t.nind = l.nind where l.nindherd is not null and l.parentesco is not null "
                     "order by l.nindherd, l.nind, l.idlegprof"),
      suffrages(bdp, "select nind, tipolegpio, tipo, quantidade, valorunit, valortotal, tipoMoeda from rituaismorte "
                     "order by nind, idlegpio"),
      baptisms(bdp, actsOfPeople(bdp, Register::Baptisms)), burials(bdp, actsOfPeople(bdp, Register::Burials))
{
}

void IdsWriter::writePeople()
{
    begin(IdsTable::Individual);
    known_.reserve(observed_.size());
    OfPeople rows(bdp_);
    const jet::WideView view(bdp_);
    jet::Rows people(bdp_, jet::NativeSql(ownColumns));
    for (std::size_t i = 0; people.next(); ++i) {
        next();
        keep(people);
        if (!isShown(people.number(0))) continue;
        const PersonCard card = ownCardAt(people);
        person_ = card.number;
        writePerson(card, observed_[i], rows);
        ++counts_.people;
    }
    finish();
}

void IdsWriter::keep(const jet::Rows& person)
{
    const QByteArrayView sex = person.bytes(4);
    const auto is = [&](QByteArrayView letter) { return sex.compare(letter, Qt::CaseInsensitive) == 0; };
    known_.push_back({person.real(0), dateAt(person, 5), is("m") ? 'm' : is("f") ? 'f' : '\0'});
}

const IdsWriter::Known* IdsWriter::personAt(const jet::Rows& row, int column) const
{
    if (row.isNull(column)) return nullptr;
    const double number = row.real(column);
    const auto found = std::ranges::lower_bound(known_, number, {}, &Known::number);
    return found != known_.end() && found->number == number ? &*found : nullptr;
}

Link IdsWriter::linkTo(const jet::Rows& row, int column) const
{
    return {row.number(column), personAt(row, column) != nullptr};
}

void IdsWriter::writePerson(const PersonCard& card, const Observed& observed, OfPeople& rows)
{
    writeName(card);
    writeBirth(card, observed, rows);
    writeUnions(card, rows);
    writeDated(card, rows);
    writeDeath(card, rows);
    writeLooks(card);
    writeObservation(observed);
}

// The same names stand one behind the other in thousands.
GedcomName IdsWriter::nameOf(const QString& name)
{
    if (const GedcomName* const known = namesOfLate_.object(name)) return *known;
    GedcomName made = gedcomName(name, names_);
    for (QString* const part : {&made.given, &made.particle, &made.surname})
        *part = withSlashes(*part, name);
    namesOfLate_.insert(name, new GedcomName(made));
    return made;
}

void IdsWriter::writeName(const PersonCard& card)
{
    if (!card.name.trimmed().isEmpty()) {
        const GedcomName parts = nameOf(card.name);
        tell(Told::NameOriginal, card.name);
        tellText(Told::FirstName, parts.given);
        tellText(Told::LastNamePrefix, parts.particle);
        tellText(Told::LastName, parts.surname);
    }
    tellText(Told::Title, card.title);
    tellText(Told::Nickname, card.nickname);
    static const QHash<QString, QString> letters{{"Male", "m"}, {"Female", "f"}, {"Unknown", "d"}};
    const QString sex = wordOfSex(card.sex);
    tellCoded(Told::Sex, {sex, letters.value(sex)});
}

void IdsWriter::writeBirth(const PersonCard& card, const Observed& observed, OfPeople& rows)
{
    const QString source =
        sourceOf(Register::Baptisms, card.birth, card.birthPlace, firstPage(rows.baptisms, card.number));
    if (card.birth.isKnown()) {
        tell(Told::BirthDate, asWritten(card.birth), card.birth, {.source = source});
        if (parish::isLocal(card.birthPlace, home_)) tell(Told::Birth, {}, card.birth, {.source = source});
    }
    tellPlace(Told::BirthLocation, card.birthPlace, card.birth, source);
    const QString by = card.filiation ? QString("Filia %1").arg(*card.filiation) : "By the situation of the family";
    if (const char* const word = wordOf(observed.legitimacy))
        tellCoded(Told::Legitimacy, {word, by});
    else if (card.filiation && *card.filiation != parish::filiation::unknown)
        ++counts_.unmapped;
    tellCode(Told::LegitimacyOriginal, "Filia", card.filiation);
}

void IdsWriter::writeUnions(const PersonCard& card, OfPeople& rows)
{
    while (rows.unions.next(card.number))
        if (!closed_.contains(rows.unions.row().number(1))) writeUnion(rows.unions.row());
}

void IdsWriter::writeUnion(const jet::Rows& row)
{
    const MarriageTold told = marriageOf(row.text(2));
    const bool isMarriage = told != MarriageTold::Never;
    const parish::Date date = dateAt(row, 3);
    const parish::Place place = placeAt(row, 5);
    const QString source = sourceOf(Register::Marriages, date, place, {});
    if (date.isKnown() || told == MarriageTold::Yes)
        tell(isMarriage ? Told::Marriage : Told::Union, asWritten(date), date,
             {contextOfFamily(row.number(1)), source});
    tellPlace(isMarriage ? Told::MarriageLocation : Told::UnionLocation, place, date, source);
    tellNumber(Told::AgeAtMarriage, codeAt(row, 7), date);
    tellCivilState(codeAt(row, 8), date);
    tellNumber(Told::MarriageOrder, codeAt(row, 9), date);
}

void IdsWriter::writeDeath(const PersonCard& card, OfPeople& rows)
{
    const QString source =
        sourceOf(Register::Burials, card.death, card.deathPlace, firstPage(rows.burials, card.number));
    if (card.death.isKnown()) {
        tell(Told::DeathDate, asWritten(card.death), card.death, {.source = source});
        if (parish::isLocal(card.deathPlace, home_)) tell(Told::Death, {}, card.death, {.source = source});
    }
    tellPlace(Told::DeathLocation, card.deathPlace, card.death, source);
    tellText(Told::Cause, card.cause, card.death, {.source = source});
    tellNumber(Told::AgeAtDeath, card.ageAtDeath, card.death);
    tellCivilState(card.stateAtDeath, card.death);
    tellCode(Told::Sacraments, "Sacra", card.sacraments, card.death);
    while (rows.suffrages.next(card.number))
        writeSuffrage(card, rows.suffrages.row());
}

void IdsWriter::writeLooks(const PersonCard& card)
{
    tellCode(Told::ParishClass, "ClaPa", card.parishClass);
    tellNumber(Told::Height, card.height, {});
    tellText(Told::Stature, card.stature);
    tellText(Told::Looks, card.looks);
}

void IdsWriter::writeObservation(const Observed& observed)
{
    if (!observed.from.isKnown() || !observed.until.isKnown()) return;
    const char* const start = wordsOf(observed.fromBy).start;
    const char* const end = observed.untilBy == observation::Proof::None ? endByLimit : wordsOf(observed.untilBy).end;
    tellCoded(Told::ObservationStart, {start, explanationOfStart(start)}, observed.from);
    tellCoded(Told::ObservationEnd, {end, explanationOfEnd(end)}, observed.until);
}

void IdsWriter::tell(Told what, const QString& value, const parish::Date& date, const IdsBeside& beside)
{
    const ToldWords& words = wordsOf(what);
    file_->begin();
    file_->add(person_);
    file_->add(beside.source);
    file_->add(typeOf(words));
    file_->add(value);
    beside.context == 0 ? file_->addNothing() : file_->add(beside.context);
    file_->end(words.dateType, date);
}

void IdsWriter::tellText(Told what, const QString& value, const parish::Date& date, const IdsBeside& beside)
{
    if (const QString told = value.trimmed(); !told.isEmpty()) tell(what, told, date, beside);
}

void IdsWriter::tellNumber(Told what, parish::Code number, const parish::Date& date)
{
    if (number && *number >= 0) tell(what, QString::number(*number), date);
}

void IdsWriter::tellCoded(Told what, const IdsCoded& coded, const parish::Date& date, const IdsBeside& beside)
{
    if (coded.value.isEmpty()) return;
    note(wordsOf(what), coded);
    tell(what, coded.value, date, beside);
}

void IdsWriter::tellCode(Told what, const QString& category, parish::Code code, const parish::Date& date)
{
    tellCoded(what, codedBy(category, code), date);
}

void IdsWriter::tellCivilState(parish::Code code, const parish::Date& date)
{
    if (!code) return;
    IdsCoded coded = codedBy("EstCi", code);
    if (const char* const word = wordOfCivilState(*code)) {
        coded.explanation += ": " + coded.value;
        coded.value = word;
    }
    tellCoded(Told::CivilStatus, coded, date);
}

void IdsWriter::tellPlace(Told what, const parish::Place& place, const parish::Date& date, const QString& source)
{
    if (const qint64 context = places_.use(place); context != 0)
        tell(what, places_.at(context).name, date, {context, source});
}

void IdsWriter::note(const ToldWords& words, const IdsCoded& coded)
{
    QStringList& meanings = (*meanings_[static_cast<std::size_t>(words.told)])[coded.value];
    if (!coded.explanation.isEmpty() && !meanings.contains(coded.explanation)) meanings << coded.explanation;
}

} // namespace study::exchange
