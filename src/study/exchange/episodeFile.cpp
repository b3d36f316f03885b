// Cells and words of the files of episodes.
#include "study/exchange/episodes_p.h"
#include "study/exchange/portions.h"

namespace study::exchange {

using observation::BirthBy;
using observation::EndBy;
using observation::Proof;
using parish::Date;
using parish::Family;
using parish::Person;

namespace {

template <class Code>
QByteArray wordAt(const QStringList& words, Code code)
{
    return words.at(static_cast<qsizetype>(code)).toLatin1();
}

} // namespace

bool Withheld::hides(const Person* person) const
{
    return person && people.contains(parish::value(person->number));
}

bool Withheld::hides(const Family* family) const
{
    if (!family) return false;
    for (const parish::Membership& row : family->members)
        if (hides(row.member.person)) return true;
    return false;
}

bool Withheld::hidesAny(const Family& family) const
{
    for (const Person* child : family.children)
        if (hides(child)) return true;
    return hides(&family);
}

EpisodeFile::EpisodeFile(const TableInfo& table, const Withheld& withheld, report::PackageFiles& files)
    : table_(table), withheld_(withheld), files_(files)
{
    files_.begin(table.name + ".csv");
    for (const TableColumn& column : table.columns)
        rows_.add(column.name);
    rows_.endRow();
}

void EpisodeFile::number(std::optional<qint64> value)
{
    value ? rows_.addNumber(*value) : none();
}

void EpisodeFile::flag(std::optional<bool> value)
{
    value ? rows_.addWritten(*value ? "1" : "0") : none();
}

void EpisodeFile::person(const Person* person)
{
    person && !withheld_.hides(person) ? number(parish::value(person->number)) : none();
}

void EpisodeFile::family(const Family* family)
{
    family && !withheld_.hides(family) ? number(parish::value(family->number)) : none();
}

void EpisodeFile::date(const Date& value)
{
    raw(isoDay(value));
}

void EpisodeFile::dateAndYear(const Date& value)
{
    date(value);
    raw(decimalYear(value));
}

void EpisodeFile::age(const Date& origin, const Date& at)
{
    const bool isTold = origin.isKnown() && at.isKnown() && origin.middle() <= at.middle();
    isTold ? raw(ageAt(origin, {at})) : none();
}

void EpisodeFile::days(int spell, const Spell& of)
{
    number(spell);
    between(of.from.day, of.until.day);
}

void EpisodeFile::between(const Date& from, const Date& until)
{
    date(from);
    date(until);
    raw(decimalYear(from));
    raw(decimalYear(until));
}

void EpisodeFile::risk(const Date& origin, const Spell& of)
{
    raw(ageAt(origin, of.from));
    raw(ageAt(origin, of.until));
    flag(of.event);
    raw(daysOf(of.halfDays()));
}

void EpisodeFile::endRow()
{
    rows_.endRow();
    ++count_;
    if (rows_.bytes().size() >= bytesAtOnce) files_.write(rows_.take());
}

report::PackageFiles::Written EpisodeFile::end()
{
    files_.write(rows_.take());
    return files_.end();
}

namespace word {

// In the order of their codes.
const QStringList genders{"d", "m", "f"};
const QStringList precisions{"", "year", "about", "exact"};
const QStringList legitimacies{"legitimate", "legitimised", "illegitimate", "foundling", "unknown"};
const QStringList proofs{"",          "birth",      "marriage",  "child_born", "child_buried",
                         "residence", "profession", "signature", "assistance", "passport",
                         "death",     "parents",    "spouse",    "sibling",    "researcher"};
const QStringList ends{"", "both_deaths", "survivor_seen", "married_at_death", "other_widowed"};
const QStringList births{"", "register", "age_at_marriage", "age_at_child", "age_at_death"};

QByteArray of(parish::Gender gender)
{
    return wordAt(genders, gender);
}

QByteArray of(parish::Precision precision)
{
    return wordAt(precisions, precision);
}

QByteArray of(indicators::Legitimacy legitimacy)
{
    return wordAt(legitimacies, legitimacy);
}

QByteArray of(Proof proof)
{
    return wordAt(proofs, proof);
}

QByteArray of(EndBy how)
{
    return wordAt(ends, how);
}

QByteArray of(BirthBy how)
{
    return wordAt(births, how);
}

} // namespace word

std::optional<bool> isDead(const Person* parent, const Date& at)
{
    if (!parent) return {};
    return parent->death.isKnown() && parent->death.middle() <= at.middle();
}

std::vector<Date> deathsOfParents(const Person& child)
{
    std::vector<Date> days;
    for (const Person* parent : {child.mother(), child.father()})
        if (parent && parent->death.isKnown()) days.push_back(parent->death);
    return days;
}

} // namespace study::exchange
