// A person: name, baptism, death, what else the card tells, and the links.
#include "study/exchange/gedcomPeople_p.h"

#include <utility>

namespace study::exchange {

namespace {

// 0: nobody is named.
bool isGiven(const Link& link)
{
    return link.number != 0;
}

const char* sexOf(const QString& letter)
{
    if (letter.compare("m", Qt::CaseInsensitive) == 0) return "M";
    return letter.compare("f", Qt::CaseInsensitive) == 0 ? "F" : "U";
}

QString figure(parish::Code value)
{
    return isTold(value) ? QString::number(*value) : QString();
}

// About it: a birth of which the baptism alone is known.
parish::Date about(const parish::Date& date)
{
    return {date.day, date.isExact() ? parish::Precision::About : date.precision};
}

QString firstPage(OwnedRows& acts, qint64 owner)
{
    return acts.next(owner) ? pageAt(acts.row()) : QString();
}

} // namespace

void GedcomWriter::writePerson(const PersonCard& card, OfPeople& rows)
{
    lines_.record(personXref(card.number), "INDI");
    writeName(card);
    lines_.word(1, "SEX", sexOf(card.sex));
    writeBirth(card, rows);
    Event will = willOf(card, rows);
    const bool hasWill = card.will || !will.notes.isEmpty() || !will.associations.empty();
    QStringList suffrages = suffragesOf(card, rows);
    if (hasWill) will.notes << std::exchange(suffrages, {});
    writeDeath(card, rows, suffrages);
    writeTold(card);
    writeDated(card, rows);
    if (hasWill) write(will);
    writeFamilyLinks(card, rows);
    if (lines_.is551()) keepMarriageAssociations(card, rows);
    writeKeptAssociations();
    if (!card.notes.trimmed().isEmpty()) lines_.memo(1, "NOTE", card.notes);
    writeNumbers("nind", card.number);
    writePictureRecords();
    ++counts_.people;
}

// Names recur in a parish; the latest ones aren't taken apart again.
GedcomName GedcomWriter::nameOf(const QString& name)
{
    if (const GedcomName* const known = namesOfLate_.object(name)) return *known;
    const GedcomName made = gedcomName(withoutBanned(name, lines_.version()), names_);
    namesOfLate_.insert(name, new GedcomName(made));
    return made;
}

// A title of one word stands before the name, unless that begins with one as well; one of several, "Conde de Basto", is
// one of its own.
void GedcomWriter::writeName(const PersonCard& card)
{
    const GedcomName name = nameOf(card.name);
    const QString title = card.title.simplified(), nickname = card.nickname.simplified();
    const bool isPrefix = !title.isEmpty() && !title.contains(u' ') && !name.payload.isEmpty() && name.titles.isEmpty();
    const QString prefix = isPrefix ? title : name.titles.join(' ');
    if (!name.payload.isEmpty() || !nickname.isEmpty()) {
        const int longest = lines_.is551() ? longestValue551("NAME") : 0;
        const qsizetype bytes = name.payload.toUtf8().size() + name.payload.count(u'@'); // which is two
        const bool isLong = longest > 0 && (name.payload.size() > longest || bytes > qsizetype(2) * longest);
        const QString short551 = name.given.left(longest / 2) + " //";
        lines_.text(1, "NAME", isLong ? short551 : name.payload.isEmpty() ? "//" : name.payload);
        bool areWhole = !isLong;
        for (const auto& [tag, value] :
             {std::pair("NPFX", prefix), std::pair("GIVN", name.given), std::pair("NICK", nickname),
              std::pair("SPFX", name.particle), std::pair("SURN", name.surname)})
            if (!value.isEmpty() && !lines_.text(2, tag, value)) areWhole = false;
        QStringList whole;
        if (!areWhole) {
            ++counts_.shortened;
            addTold(whole, "Nome completo", card.name);
            addTold(whole, "Título", prefix);
            addTold(whole, "Alcunha", nickname);
        }
        writeNotes(2, whole);
    }
    if (!title.isEmpty() && !isPrefix) write({.tag = "TITL", .text = title});
}

std::vector<Association> GedcomWriter::baptismAssociations(const PersonCard& card, OfPeople& rows)
{
    std::vector<Association> all;
    while (rows.godparents.next(card.number))
        all.push_back(assistantAt(rows.godparents.row(), true));
    for (int i = 0; i < 2; ++i)
        if (isGiven(card.baptismPriests[i])) all.push_back(priest(card.baptismPriests[i], card.baptismFunctions[i]));
    return all;
}

void GedcomWriter::writeBirth(const PersonCard& card, OfPeople& rows)
{
    const QString page = firstPage(rows.baptisms, card.number);
    Event ceremony{.tag = options_.birthDates == BirthDates::Baptisms ? "BAPM" : "CHR", .act = "do baptismo"};
    ceremony.associations = baptismAssociations(card, rows);
    addTold(ceremony.notes, "Idade do pai", figure(card.fatherAge));
    addTold(ceremony.notes, "Idade da mãe", figure(card.motherAge));
    addTold(ceremony.notes, "Estado civil do pai", meaningOf("EstCi", card.fatherState));
    addTold(ceremony.notes, "Estado civil da mãe", meaningOf("EstCi", card.motherState));
    ceremony.picture = {relativePath(card.baptismFile, folder_), "OB" + personXref(card.number)};
    Event birth{.tag = "BIRT", .act = "do nascimento"};
    const auto days = options_.days ? options_.days(parish::PersonNumber(card.number), card.birth, card.notes)
                                    : std::optional<KnownDays>();
    const bool isBirth = !days && options_.birthDates == BirthDates::Births;
    if (days) {
        birth.date = gedcomDate(parish::dateOf(days->birth, true));
        ceremony.date = gedcomDate(parish::dateOf(days->baptism, true));
    } else if (isBirth)
        birth.date = gedcomDate(card.birth);
    else {
        birth.date = gedcomDate(about(card.birth));
        ceremony.date = gedcomDate(card.birth);
    }
    (isBirth ? birth : ceremony).place = card.birthPlace;
    ceremony.citation = citationOf(Register::Baptisms, card.birth, card.birthPlace, page);
    if (isBirth) birth.citation = ceremony.citation;
    if (!birth.date.isEmpty() || birth.place.isKnown()) write(birth);
    const bool hasCeremony = !ceremony.date.isEmpty() || ceremony.place.isKnown() || !ceremony.associations.empty() ||
                             !ceremony.notes.isEmpty() || !ceremony.picture.path.isEmpty() || !page.isEmpty();
    if (hasCeremony) write(ceremony);
}

void GedcomWriter::writeDeath(const PersonCard& card, OfPeople& rows, const QStringList& suffrages)
{
    const QString page = firstPage(rows.burials, card.number);
    Event death{.tag = "DEAT",
                .date = gedcomDate(card.death),
                .place = card.deathPlace,
                .cause = card.cause.simplified(),
                .age = gedcomAge(card.ageAtDeath),
                .act = "do óbito"};
    death.citation = citationOf(Register::Burials, card.death, card.deathPlace, page);
    death.picture = {relativePath(card.burialFile, folder_), "OO" + personXref(card.number)};
    const bool hasDied = !death.date.isEmpty() || death.place.isKnown() || !death.cause.isEmpty() ||
                         isTold(card.ageAtDeath) || isTold(card.stateAtDeath) || !page.isEmpty() ||
                         !death.picture.path.isEmpty();
    if (hasDied || !suffrages.isEmpty()) {
        death.notes = suffrages;
        write(death);
    }
    Event burial{.tag = "BURI", .act = "do enterro"};
    addTold(burial.notes, "Igreja", card.church);
    addTold(burial.notes, "Enterro", card.burial);
    addTold(burial.notes, "Mortalha", card.shroud);
    if (isGiven(card.burialPriest)) burial.associations = {priest(card.burialPriest, card.burialFunction)};
    if (!burial.notes.isEmpty() || !burial.associations.empty()) write(burial);
}

void GedcomWriter::writeTold(const PersonCard& card)
{
    writeFact("Filiação", meaningOf("Filia", card.filiation));
    writeFact("Estado civil ao óbito", meaningOf("EstCi", card.stateAtDeath));
    writeFact("Sacramentos", meaningOf("Sacra", card.sacraments));
    writeFact("Classe paroquial", meaningOf("ClaPa", card.parishClass));
    if (card.minor) writeFact("Menor", "Sim");
    const QByteArray observed = gedcomPeriod(card.observedFrom, card.observedUntil);
    if (!observed.isEmpty()) writeFact("Observação", "Em observação", observed);
    QStringList looks;
    addTold(looks, "Estatura", card.stature);
    if (isTold(card.height)) addTold(looks, "Altura", figure(card.height) + " cm");
    if (!card.looks.trimmed().isEmpty()) looks << card.looks;
    if (!looks.isEmpty()) write({.tag = "DSCR", .text = looks.join('\n')});
}

// Who stands third and further on the card of a couple has no place in GEDCOM; the family tells of them in a note.
void GedcomWriter::writeFamilyLinks(const PersonCard& card, OfPeople& rows)
{
    if (card.origin != 0 && !card.hasOrigin) ++counts_.lostLinks;
    if (card.hasOrigin) {
        lines_.pointer(1, "FAMC", familyXref(card.origin));
        if (const PedigreeWords* const words = pedigreeOf(card.filiation)) {
            lines_.word(2, "PEDI", lines_.is551() ? words->pedi551 : words->pedi70);
            if (!lines_.is551() && qstrcmp(words->pedi70, "OTHER") == 0)
                lines_.text(3, "PHRASE", meaningOf("Filia", card.filiation));
        }
    }
    static constexpr int ofACouple = 2;
    while (rows.families.next(card.number))
        if (rows.families.row().number(2) < ofACouple)
            lines_.pointer(1, "FAMS", familyXref(rows.families.row().number(1)));
}

void GedcomWriter::keepMarriageAssociations(const PersonCard& card, OfPeople& rows)
{
    static constexpr int family = 13;
    const auto act = [](qint64 number) { return QString("do casamento da família %1").arg(number); };
    while (rows.witnesses.next(card.number)) {
        const jet::Rows& row = rows.witnesses.row();
        if (withheldFamilies_.contains(row.number(family))) continue;
        const Association witness = assistantAt(row, false);
        if (canBeLinked(witness.who)) kept_.emplace_back(witness, act(row.number(family)));
    }
    while (rows.priests.next(card.number)) {
        const jet::Rows& row = rows.priests.row();
        const Link who = linkAt(row, 1);
        if (withheldFamilies_.contains(row.number(4))) continue;
        if (isGiven(who) && canBeLinked(who)) kept_.emplace_back(priest(who, codeAt(row, 3)), act(row.number(4)));
    }
}

} // namespace study::exchange
