// orv-tables: prints the section of docs/bdp.md that describes every table and column of a BDP, as an export of tables
// describes them (src/study/exchange/tableList.h).
#include "study/exchange/tableList.h"

#include <QTextStream>

using namespace study::exchange;

namespace {

QString quoted(const QString& name)
{
    return '`' + name + '`';
}

QString quoted(const QStringList& names)
{
    QStringList all;
    for (const QString& name : names)
        all << quoted(name);
    return all.join(", ");
}

QString kindOf(Kind kind)
{
    switch (kind) {
    case Kind::Whole:
        return "whole";
    case Kind::Number:
        return "number";
    case Kind::Day:
        return "date";
    case Kind::Flag:
        return "flag";
    case Kind::Text:
        break;
    }
    return "text";
}

// What the cell means elsewhere in the BDP.
QString linkOf(const TableColumn& column)
{
    if (!column.category.isEmpty()) return " A code of " + quoted(column.category) + '.';
    if (!column.categoryBy.isEmpty()) {
        QStringList categories;
        for (const auto& [word, category] : column.categories)
            categories << QString("%1 where %2 is %3").arg(quoted(category), quoted(column.categoryBy), quoted(word));
        return " A code of " + categories.join(", ") + '.';
    }
    if (!column.placeLetter.isEmpty())
        return " The code of a place, of the level in " + quoted(column.placeLetter) + '.';
    if (column.isProfession) return " To `profissao.codprof`.";
    if (!column.table.isEmpty()) return " To " + quoted(column.table + '.' + column.key) + '.';
    return {};
}

QString keyOf(const TableInfo& table)
{
    return table.key.isEmpty() ? QString("No key.") : "Primary key " + quoted(table.key) + '.';
}

void describe(const TableInfo& table, QTextStream& out)
{
    out << "\n### " << table.name << "\n\n" << table.english << ' ' << keyOf(table) << "\n\n";
    out << "| Column | Kind | Holds |\n|---|---|---|\n";
    for (const TableColumn& column : table.columns)
        out << "| " << quoted(column.name) << " | " << kindOf(column.kind) << " | " << column.english << linkOf(column)
            << " |\n";
}

} // namespace

int main()
{
    QTextStream out(stdout);
    for (const TableInfo& table : allTables())
        describe(table, out);
}
