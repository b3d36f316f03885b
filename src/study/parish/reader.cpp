#include "study/parish/reader.h"

#include <QRegularExpression>

#include <algorithm>

namespace study::parish {

namespace {

Code code(const jet::Rows& row, int column)
{
    return row.isNull(column) ? Code() : static_cast<int>(row.number(column));
}

Flag flag(const jet::Rows& row, int column)
{
    return row.isNull(column) ? Flag() : row.number(column) != 0;
}

std::optional<double> amount(const jet::Rows& row, int column)
{
    return row.isNull(column) ? std::optional<double>() : row.real(column);
}

// The date, and behind it the column that tells whether it is exact.
Date dated(const jet::Rows& row, int column)
{
    return dateOf(row.date(column), row.number(column + 1) != 0);
}

PersonNumber personNumber(const jet::Rows& row, int column)
{
    return PersonNumber(row.number(column));
}

FamilyNumber familyNumber(const jet::Rows& row, int column)
{
    return FamilyNumber(row.number(column));
}

Gender gender(const QString& letter)
{
    if (letter.compare("m", Qt::CaseInsensitive) == 0) return Gender::Male;
    if (letter.compare("f", Qt::CaseInsensitive) == 0) return Gender::Female;
    return Gender::Undetermined;
}

SuffrageKind suffrageKind(const QString& word)
{
    const QString kind = word.trimmed().toLower();
    if (kind == "missa") return SuffrageKind::Mass;
    if (kind == "oficio") return SuffrageKind::Office;
    if (kind == "esmola") return SuffrageKind::Alms;
    return SuffrageKind::Other;
}

// "HISCO 14120"; codes below ten thousand are found without their first zero.
QString hiscoIn(const QString& notes)
{
    static const QRegularExpression told("\\bHISCO\\s*:?\\s*(\\d{4,5})\\b", QRegularExpression::CaseInsensitiveOption);
    static constexpr int digits = 5;
    const QRegularExpressionMatch found = told.match(notes);
    return found.hasMatch() ? found.captured(1).rightJustified(digits, '0') : QString();
}

// "Dispensados no quarto grau de consanguinidade", and not of the banns, which are dispensed as well. Both are told in
// one sentence, which no dot ends that belongs to a number ("3.º", "3. grau") or to a title ("D. João", "Sr. Bispo").
bool tellsOfKinDispensation(const QString& notes)
{
    if (notes.isEmpty()) return false;
    static const QString between = "(?:[^.;]|(?>\\.(?=[ºª°]|[oa]s?\\b|\\s*(?-i:\\p{Ll}))|"
                                   "(?<=\\b(?-i:\\p{Lu}))\\.|(?<=\\b(?-i:\\p{Lu})\\p{L})\\.))*";
    static const QString kinship = "(?:\\bgraus?\\b|sangu|\\bafinidade|\\bparente)";
    static const QRegularExpression told(
        "\\bd[ie]spens\\w*\\b" + between + kinship + '|' + kinship + between + "\\bd[ie]spens",
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    return told.match(notes).hasMatch();
}

} // namespace

Snapshot Snapshot::read(const jet::Connection& bdp, const GoesOn& goesOn)
{
    return Reader(bdp, goesOn).read();
}

Reader::Reader(const jet::Connection& bdp, const Snapshot::GoesOn& goesOn)
    : bdp_(bdp), goesOn_(goesOn), rows_(std::make_unique<Snapshot::Rows>())
{
}

Snapshot Reader::read()
{
    {
        const jet::OneLook look(bdp_);
        jet::Rows count(bdp_, jet::NativeSql("select (select count(*) from individuo) + (select count(*) from familia) "
                                             "+ (select count(*) from assistente)"));
        if (count.next()) all_ = qMax<qint64>(1, count.number(0));
        readHome();
        readCodes();
        readPlaces();
        readPeople();
        readFamilies();
        readMemberships();
        readAssistances();
        readResidences();
        readProfessions();
        readSignatures();
        readBequests();
        readSuffrages();
        readPassports();
        readActs();
    }
    return linked(std::move(rows_));
}

void Reader::next()
{
    static constexpr qint64 rowsBetweenQuestions = 4096;
    if (++read_ % rowsBetweenQuestions != 0 || !goesOn_) return;
    if (!goesOn_(qMin(1.0, static_cast<double>(read_) / static_cast<double>(all_)))) throw Snapshot::Interrupted{};
}

QString Reader::shared(const QString& text)
{
    return text.isEmpty() ? QString() : *texts_.insert(text);
}

Place Reader::place(const jet::Rows& row, int column)
{
    const QString level = row.text(column + 1);
    return {shared(row.text(column)), level.isEmpty() ? QChar() : level.at(0)};
}

PersonLink Reader::link(const jet::Rows& row, int column) const
{
    return {personNumber(row, column)};
}

Priest Reader::priest(const jet::Rows& row, int column, int function) const
{
    return {link(row, column), code(row, function)};
}

void Reader::readHome()
{
    jet::Rows row(bdp_, jet::NativeSql("select cod, nome from infopar"));
    if (row.next()) rows_->home = {row.text(0), row.text(1)};
}

void Reader::readCodes()
{
    jet::Rows row(bdp_, jet::NativeSql("select categoria, codigo, descricao from infocomplementar"));
    while (row.next())
        rows_->catalogue.codes[row.text(0)].insert(row.text(1), row.text(2));
    jet::Rows profession(bdp_, jet::NativeSql("select codprof, profissao, obs from profissao"));
    while (profession.next()) {
        const int code = static_cast<int>(profession.number(0));
        rows_->catalogue.professions.insert(code, profession.text(1));
        const QString hisco = hiscoIn(profession.text(2));
        if (!hisco.isEmpty()) rows_->catalogue.hisco.insert(code, hisco);
    }
}

void Reader::readPlaces()
{
    jet::Rows row(bdp_, jet::NativeSql("select 'P' || codpais, nomepais from pais "
                                       "union all select 'Z' || codzona, nomezona from zonapais "
                                       "union all select 'D' || coddistrito, nomedistrito from distrito "
                                       "union all select 'C' || codconcelho, nomeconcelho from concelho "
                                       "union all select 'F' || codparoquia, nomeparoquia from paroquia "
                                       "union all select 'L' || codlugar, nomelugar from lugar "
                                       "union all select 'S' || codsitio, nomesitio from sitio"));
    while (row.next())
        rows_->catalogue.places.insert(row.text(0), row.text(1));
}

void Reader::readPeople()
{
    jet::Rows row(
        bdp_,
        jet::NativeSql("select nind, nome, titulo, alcunha, tipo, sexo, datanasc, DnascFixa, localnasc, tipolocalnasc, "
                       "dataobito, dobitofixa, localobito, tipolocalobito, inicioobs, fimobs, famorig, filiacao, "
                       "idadepai, idademae, estadocivilpai, estadocivilmae, idadeobito, estadoobito, sacramentos, "
                       "classparoquial, menor, testam, escrit, testamenteiro, altura, primpadrebapt, funcprimpbapt, "
                       "segpadrebapt, funcsegpbapt, primpadreobito, funcprimpobito, rpBapt, rpObi, causa, obs "
                       "from individuo order by nind"));
    while (row.next()) {
        next();
        Person& person = rows_->people.emplace_back();
        int column = 0;
        person.number = personNumber(row, column++);
        person.name = row.text(column++);
        person.title = shared(row.text(column++));
        person.nickname = shared(row.text(column++));
        person.type = shared(row.text(column++));
        person.gender = gender(row.text(column++));
        person.birth = dated(row, column);
        person.birthPlace = place(row, column += 2);
        person.death = dated(row, column += 2);
        person.deathPlace = place(row, column += 2);
        person.observedFrom = row.date(column += 2);
        person.observedUntil = row.date(++column);
        person.originNumber = familyNumber(row, ++column);
        for (Code* const field :
             {&person.filiation, &person.fatherAge, &person.motherAge, &person.fatherState, &person.motherState,
              &person.ageAtDeath, &person.stateAtDeath, &person.sacraments, &person.parishClass})
            *field = code(row, ++column);
        for (Flag* const field : {&person.minor, &person.will, &person.writtenWill})
            *field = flag(row, ++column);
        person.executor = link(row, ++column);
        person.height = code(row, ++column);
        for (Priest* const field : {&person.baptismPriests[0], &person.baptismPriests[1], &person.burialPriest}) {
            *field = priest(row, column + 1, column + 2);
            column += 2;
        }
        person.baptismFile = row.text(++column);
        person.burialFile = row.text(++column);
        person.cause = shared(row.text(++column));
        const QString notes = row.text(++column);
        if (!notes.isEmpty()) rows_->notes.insert(value(person.number), notes);
    }
}

void Reader::readFamilies()
{
    jet::Rows row(bdp_, jet::NativeSql("select nfamilia, sfamilia, tipocasal, datacasam, dcasamfixa, localcasam, "
                                       "tipolocalcasam, inicioobs, fimobs, primpadrecasam, funcprimpcasam, "
                                       "segpadrecasam, funcsegpcasam, rpCas, obs from familia "
                                       "order by nfamilia"));
    while (row.next()) {
        next();
        Family& family = rows_->families.emplace_back();
        family.number = familyNumber(row, 0);
        family.situation = shared(row.text(1));
        family.type = code(row, 2);
        family.marriage = dated(row, 3);
        family.place = place(row, 5);
        family.observedFrom = row.date(7);
        family.observedUntil = row.date(8);
        family.priests[0] = priest(row, 9, 10);
        family.priests[1] = priest(row, 11, 12);
        family.file = row.text(13);
        const QString notes = row.text(14);
        family.hasNotes = !notes.isEmpty();
        family.kinDispensed = tellsOfKinDispensation(notes);
    }
}

void Reader::readMemberships()
{
    jet::Rows row(bdp_, jet::NativeSql("select nfamilia, nind, idade, estadocivil, numcasam from familias "
                                       "order by nfamilia, nind"));
    while (row.next())
        rows_->memberships.push_back(
            {familyNumber(row, 0), nullptr, link(row, 1), code(row, 2), code(row, 3), code(row, 4)});
}

void Reader::readAssistances()
{
    jet::Rows row(bdp_, jet::NativeSql("select tipoacto, entidade, dataref, nind, tipoassistente, estadocivil, "
                                       "falecidopai, falecidomae, parentbapt, parentnoivo, parentnoiva, "
                                       "coalesce(obs, '') <> '' from assistente "
                                       "order by tipoacto collate nocase, entidade, dataref, nind"));
    while (row.next()) {
        next();
        Assistance& one = rows_->assistances.emplace_back();
        one.kind = row.text(0).compare("c", Qt::CaseInsensitive) == 0 ? ActKind::Marriage : ActKind::Baptism;
        one.entity = row.number(1);
        one.date = dateOf(row.date(2), true);
        one.assistant = link(row, 3);
        one.godparent = row.text(4).compare("p", Qt::CaseInsensitive) == 0;
        one.state = code(row, 5);
        one.fatherDead = flag(row, 6);
        one.motherDead = flag(row, 7);
        one.kinToChild = code(row, 8);
        one.kinToGroom = code(row, 9);
        one.kinToBride = code(row, 10);
        one.hasNotes = row.number(11) != 0;
    }
}

void Reader::readResidences()
{
    jet::Rows row(bdp_, jet::NativeSql("select tiporesid, numero, dataref, datafixa, localresid, tipolocal "
                                       "from residencia order by tiporesid collate nocase, numero, dataref"));
    while (row.next()) {
        Residence& one = rows_->residences.emplace_back();
        if (row.text(0).compare("f", Qt::CaseInsensitive) == 0)
            one.family = familyNumber(row, 1);
        else
            one.person = personNumber(row, 1);
        one.date = dated(row, 2);
        one.place = place(row, 4);
    }
}

void Reader::readProfessions()
{
    jet::Rows row(bdp_, jet::NativeSql("select nind, dataref, datafixa, codprof from profissoes "
                                       "order by nind, dataref, idprofissao"));
    while (row.next())
        rows_->professions.push_back({personNumber(row, 0), dated(row, 1), code(row, 3)});
}

void Reader::readSignatures()
{
    jet::Rows row(
        bdp_,
        jet::NativeSql("select nind, dataref, datafixa, idade, nivelassinatura, assinatura, funcao from assinatura "
                       "order by nind, dataref, idassinatura"));
    while (row.next()) {
        rows_->signatures.push_back({personNumber(row, 0), dated(row, 1), code(row, 3), code(row, 4), row.text(5)});
        rows_->rolesOfSigners.push_back(shared(row.text(6).simplified()));
    }
}

void Reader::readBequests()
{
    jet::Rows row(bdp_, jet::NativeSql("select nind, nindherd, parentesco, coalesce(bensraiz, '') <> '', "
                                       "coalesce(bensmoveis, '') <> '' from legadosprofanos order by nind, idlegprof"));
    while (row.next())
        rows_->bequests.push_back(
            {personNumber(row, 0), link(row, 1), code(row, 2), row.number(3) != 0, row.number(4) != 0});
}

void Reader::readSuffrages()
{
    jet::Rows row(bdp_, jet::NativeSql("select nind, tipolegpio, tipo, quantidade, valorunit, valortotal, tipoMoeda, "
                                       "destino from rituaismorte order by nind, idlegpio"));
    while (row.next())
        rows_->suffrages.push_back({personNumber(row, 0), suffrageKind(row.text(1)), code(row, 2), amount(row, 3),
                                    amount(row, 4), amount(row, 5), shared(row.text(6)), shared(row.text(7))});
}

void Reader::readPassports()
{
    jet::Rows row(bdp_, jet::NativeSql("select nind, dataref, localdestino, tipolocaldest, coalesce(obs, '') <> '' "
                                       "from passaporte order by nind, dataref, nPass"));
    while (row.next())
        rows_->passports.push_back(
            {personNumber(row, 0), dateOf(row.date(1), true), place(row, 2), row.number(4) != 0});
}

// Another program may have a table of that name.
bool Reader::hasColumns(const QString& table, const QStringList& columns) const
{
    const QList<jet::Connection::Column> all = bdp_.columns();
    return std::ranges::all_of(columns, [&](const QString& name) {
        return std::ranges::any_of(all, [&](const auto& one) { return one.table == table && one.name == name; });
    });
}

void Reader::readActs()
{
    if (hasColumns("estudo_pessoa", {"acto", "ordem", "nome", "nind"})) {
        jet::Rows lost(bdp_, jet::NativeSql("select acto, ordem, nome, nind from estudo_pessoa where nind is not null "
                                            "and nind not in (select nind from individuo) order by acto, ordem"));
        while (lost.next())
            rows_->lostMentions.push_back(
                {lost.number(0), static_cast<int>(lost.number(1)), lost.text(2), personNumber(lost, 3)});
        jet::Rows named(bdp_, jet::NativeSql("select distinct nind from estudo_pessoa where nind is not null"));
        while (named.next())
            rows_->namedInActs.push_back(personNumber(named, 0));
    }
    if (!hasColumns("estudo_familia", {"acto", "ordem", "nfamilia"})) return;
    jet::Rows lost(bdp_, jet::NativeSql("select acto, ordem, nfamilia from estudo_familia where nfamilia is not null "
                                        "and nfamilia not in (select nfamilia from familia) order by acto, ordem"));
    while (lost.next())
        rows_->lostFamilies.push_back({lost.number(0), static_cast<int>(lost.number(1)), familyNumber(lost, 2)});
}

} // namespace study::parish
