// What stands in a record and beside it, as one short text.
#include "study/checks/check.h"

#include <QCryptographicHash>

namespace study::checks {

namespace {

class Hash
{
public:
    Hash& operator<<(const QString& text) { return add(text.toUtf8()); }
    Hash& operator<<(QChar letter) { return *this << QString(letter); }
    Hash& operator<<(qint64 number) { return add(QByteArray::number(number)); }
    Hash& operator<<(const std::optional<double>& amount) { return add(amount ? QByteArray::number(*amount) : "-"); }
    Hash& operator<<(const parish::Code& code) { return add(code ? QByteArray::number(*code) : "-"); }
    Hash& operator<<(const parish::Flag& flag) { return add(flag ? (*flag ? "1" : "0") : "-"); }
    Hash& operator<<(const parish::Date& date) { return *this << qint64(date.day) << qint64(date.precision); }
    Hash& operator<<(const QDate& date) { return *this << date.toJulianDay(); }
    Hash& operator<<(const parish::Place& place) { return *this << place.code << place.level; }
    Hash& operator<<(const parish::PersonLink& link) { return *this << value(link.number); }
    Hash& operator<<(const parish::Priest& priest) { return *this << priest.who << priest.function; }

    QString text() const
    {
        const QByteArray hash = QCryptographicHash::hash(values_, QCryptographicHash::Sha1);
        return QString::fromLatin1(hash.left(bytes).toBase64());
    }

private:
    static constexpr qsizetype bytes = 9; // 12 letters

    Hash& add(const QByteArray& value)
    {
        values_ += value;
        values_ += '|'; // so that no two columns run together
        return *this;
    }

    QByteArray values_;
};

void add(Hash& hash, const parish::Assistance& row)
{
    hash << row.date << qint64(row.kind) << row.assistant << qint64(row.godparent) << row.state << row.fatherDead
         << row.motherDead << row.kinToChild << row.kinToGroom << row.kinToBride << parish::Flag(row.hasNotes);
}

void add(Hash& hash, std::span<const parish::Residence> rows)
{
    for (const parish::Residence& row : rows)
        hash << row.date << row.place;
}

// What the sentences tell of a union beside the row itself: when it was, with whom, and its children.
void add(Hash& hash, const parish::Person& person, const parish::Membership& row)
{
    hash << value(row.familyNumber) << row.age << row.state << row.order;
    if (!row.family) return;
    hash << row.family->situation << row.family->marriage;
    if (const parish::Person* spouse = spouseOf(person, *row.family)) hash << value(spouse->number) << spouse->death;
    for (const parish::Person* child : row.family->children)
        hash << value(child->number) << child->birth;
}

} // namespace

QString stateOf(const QString& text)
{
    return (Hash() << text).text();
}

QString stateOf(const parish::Person& person)
{
    Hash hash;
    hash << person.name << person.title << person.nickname << person.type << qint64(person.gender) << person.birth
         << person.birthPlace << person.death << person.deathPlace << person.observedFrom << person.observedUntil
         << value(person.originNumber) << person.filiation << person.fatherAge << person.motherAge << person.fatherState
         << person.motherState << person.ageAtDeath << person.stateAtDeath << person.sacraments << person.parishClass
         << person.minor << person.will << person.writtenWill << person.executor << person.height
         << person.baptismPriests[0] << person.baptismPriests[1] << person.burialPriest << person.baptismFile
         << person.burialFile;
    for (const parish::Membership* row : person.unions)
        add(hash, person, *row);
    for (const parish::Assistance& row : person.godparents)
        add(hash, row);
    for (const parish::Assistance* row : person.assisted) {
        hash << row->entity;
        add(hash, *row);
    }
    add(hash, person.residences);
    for (const parish::Profession& row : person.professions)
        hash << row.date << row.code;
    for (const parish::Signature& row : person.signatures)
        hash << row.date << row.age << row.level << row.file;
    for (const parish::Bequest& row : person.bequests)
        hash << row.heir << row.kinship;
    for (const parish::Suffrage& row : person.suffrages)
        hash << qint64(row.kind) << row.type << row.quantity << row.unitValue << row.total << row.currency;
    for (const parish::Passport& row : person.passports)
        hash << row.date << row.destination << parish::Flag(row.hasNotes);
    return hash.text();
}

QString stateOf(const parish::Family& family)
{
    Hash hash;
    hash << family.situation << family.type << family.marriage << family.place << family.observedFrom
         << family.observedUntil << family.priests[0] << family.priests[1] << family.file
         << parish::Flag(family.hasNotes);
    for (const parish::Membership& row : family.members) {
        hash << row.member << row.age << row.state << row.order;
        if (const parish::Person* one = row.member.person)
            hash << one->name << qint64(one->gender) << one->birth << one->death;
    }
    for (const parish::Person* child : family.children)
        hash << value(child->number) << child->name << child->birth << child->death;
    for (const parish::Assistance& row : family.witnesses)
        add(hash, row);
    add(hash, family.residences);
    return hash.text();
}

} // namespace study::checks
