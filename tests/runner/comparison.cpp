#include "comparison.h"

#include "database.h"
#include "failure.h"

#include <QMap>

#include <algorithm>

namespace {

// Between the values of a row; a text of a BDP has none.
constexpr QChar separator(0x1f);

struct Table
{
    QStringList columns;
    QStringList key;
};

QMap<QString, Table> tablesOf(const QString& file)
{
    QMap<QString, Table> tables;
    const QStringList columns = Database::rows(
        file, "select lower(m.name), lower(c.name), c.pk from sqlite_master m, pragma_table_info(m.name) "
              "c where m.type = 'table' and m.name not like 'sqlite!_%' escape '!' and m.name not like "
              "'estudo!_%' escape '!' order by m.name, c.cid");
    for (const QString& column : columns) {
        const QStringList parts = column.split('|');
        Table& table = tables[parts[0]];
        table.columns << parts[1];
        if (parts[2] != "0") table.key << parts[1];
    }
    return tables;
}

// Each row as its values, quoted as SQL quotes them, so that null isn't "null" and 1 isn't "1".
QList<QStringList> rowsOf(const QString& file, const QString& name, const QStringList& columns)
{
    QStringList values;
    for (const QString& column : columns)
        values << "quote(\"" + column + "\")";
    const QString select = "select " + values.join(" || char(31) || ") + " from \"" + name + '"';
    QList<QStringList> rows;
    for (const QString& row : Database::rows(file, select))
        rows << row.split(separator);
    std::sort(rows.begin(), rows.end());
    return rows;
}

QString named(const QStringList& columns, const QStringList& row)
{
    QStringList parts;
    for (qsizetype i = 0; i < columns.size(); ++i)
        if (row[i] != "NULL") parts << columns[i] + ' ' + row[i];
    return parts.join(", ");
}

class Compared
{
public:
    Compared(QString name, const Table& table, const QStringList& except) : name_(std::move(name))
    {
        for (const QString& column : table.columns)
            if (!except.contains(name_ + '.' + column)) columns_ << column;
        for (const QString& column : table.key)
            if (columns_.contains(column)) key_ << qsizetype(columns_.indexOf(column));
        if (key_.size() != table.key.size()) key_.clear();
    }

    QStringList differences(const QString& one, const QString& other) const
    {
        if (columns_.isEmpty()) return {};
        QList<QStringList> mine = rowsOf(one, name_, columns_), others = rowsOf(other, name_, columns_);
        QList<QStringList> onlyMine, onlyOthers;
        std::set_difference(mine.begin(), mine.end(), others.begin(), others.end(), std::back_inserter(onlyMine));
        std::set_difference(others.begin(), others.end(), mine.begin(), mine.end(), std::back_inserter(onlyOthers));
        QStringList found;
        for (const QStringList& row : onlyMine) {
            const auto twin = std::find_if(onlyOthers.begin(), onlyOthers.end(),
                                           [&](const QStringList& candidate) { return sameKey(row, candidate); });
            if (key_.isEmpty() || twin == onlyOthers.end()) {
                found << name_ + ": only the first has " + named(columns_, row);
                continue;
            }
            found << valuesOf(row, *twin);
            onlyOthers.erase(twin);
        }
        for (const QStringList& row : onlyOthers)
            found << name_ + ": only the second has " + named(columns_, row);
        return found;
    }

private:
    bool sameKey(const QStringList& row, const QStringList& other) const
    {
        return std::all_of(key_.begin(), key_.end(), [&](qsizetype column) { return row[column] == other[column]; });
    }

    QStringList valuesOf(const QStringList& row, const QStringList& other) const
    {
        QStringList keys, found;
        for (const qsizetype column : key_)
            keys << row[column];
        for (qsizetype i = 0; i < columns_.size(); ++i)
            if (row[i] != other[i])
                found << QStringLiteral("%1 %2: %3 is %4 and %5")
                             .arg(name_, keys.join(' '), columns_[i], row[i], other[i]);
        return found;
    }

    QString name_;
    QStringList columns_;
    QList<qsizetype> key_;
};

} // namespace

QStringList Comparison::differences(const QString& one, const QString& other, const QStringList& except)
{
    const QMap<QString, Table> tables = tablesOf(one), others = tablesOf(other);
    QStringList found, wanted;
    for (const QString& column : except)
        wanted << column.toLower();
    for (const QString& column : std::as_const(wanted))
        if (!tables.value(column.section('.', 0, 0)).columns.contains(column.section('.', 1)))
            fail("there is no column " + column);
    for (auto table = tables.begin(); table != tables.end(); ++table) {
        if (!others.contains(table.key()) || others[table.key()].columns != table->columns)
            found << "only the first has the table " + table.key() + " with these columns";
        else
            found << Compared(table.key(), *table, wanted).differences(one, other);
    }
    for (auto table = others.begin(); table != others.end(); ++table)
        if (!tables.contains(table.key())) found << "only the second has the table " + table.key();
    return found;
}
