// Every column of the BDP that names a person, a family, a place, a profession or a code, told once: for a merge, which
// has them follow, and for the way back.
#pragma once

#include "study/linkage/decisions.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace study::linkage {

enum class Target
{
    Person,
    Family,
    Place,
    Profession,
    Code
};

struct Reference
{
    const char* table;
    const char* column;
    Target target;
    const char* category = ""; // of a code
    // The column that says which: the level of a place; of the others, only rows with `word` there are meant, whatever
    // its case. "" for all rows.
    const char* with = "";
    const char* word = "";
    // The column that counts the rows of one person: those who move to somebody else get the next ones, and two rows
    // that only it tells apart are one.
    const char* number = "";
};

const QList<Reference>& references();

// What a reference has to name: a number, or a code with its category or level.
struct Named
{
    Target target;
    QJsonValue value;
    QString group = {}; // the category of a code, the level of a place

    bool isMeantBy(const Reference& reference, const QJsonObject& row) const;
};

// Whether two are the same record.
bool isOne(const Named& one, const Named& other);

// What references call the record of that row; nothing for a table that none leads to.
std::optional<Named> namedBy(const QString& table, const QJsonObject& row);

// The rows that name it by that column.
QList<Row> rowsNaming(const Recording& recording, const Reference& reference, const Named& named);

// The records that those columns of a row lead to, also the place in which a place lies.
struct ColumnLink
{
    QString column;
    Named named;
};
QList<ColumnLink> linksIn(const QString& table, const QJsonObject& row, const QStringList& columns);

// Whether there are such records, each looked for once. Precondition: the connection outlives it, and nothing is
// written meanwhile.
class Presence
{
public:
    explicit Presence(jet::Connection& bdp) : recording_(bdp) {}

    bool has(const Named& named); // throws jet::Error

private:
    bool isStored(const Named& named) const;

    Recording recording_;
    QHash<QString, bool> known_;
};

// Columns of numbers of people and families that don't follow a merge, and why.
struct Unfollowed
{
    const char* table;
    const char* column;
    const char* why;
};
const QList<Unfollowed>& unfollowed();

} // namespace study::linkage
