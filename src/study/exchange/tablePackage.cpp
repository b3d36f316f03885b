#include "study/exchange/tablePackage.h"

namespace study::exchange {

namespace {

using report::PackageJson;
using report::put;
using report::utf8;

void describe(PackageJson& json, const QString& portuguese, const QString& english)
{
    put(json, "description", portuguese);
    put(json, "description_en", english);
}

PackageJson fieldOf(const QString& name, const char* type)
{
    PackageJson field;
    put(field, "name", name);
    field["type"] = type;
    return field;
}

PackageJson typed(const TableColumn& column, Dialect dialect)
{
    const bool isSheet = dialect == Dialect::Spreadsheet;
    switch (column.kind) {
    case Kind::Text:
        break;
    case Kind::Whole:
        return fieldOf(column.name, "integer");
    case Kind::Number: {
        PackageJson field = fieldOf(column.name, "number");
        if (isSheet) field["decimalChar"] = ",";
        return field;
    }
    case Kind::Day: {
        PackageJson field = fieldOf(column.name, "date");
        field["format"] = isSheet ? "%d/%m/%Y" : "default";
        return field;
    }
    case Kind::Flag: {
        PackageJson field = fieldOf(column.name, "boolean");
        field["trueValues"] = {"1"};
        field["falseValues"] = {"0"};
        return field;
    }
    }
    return fieldOf(column.name, "string");
}

PackageJson namesOf(const QStringList& names)
{
    if (names.size() == 1) return utf8(names.first());
    PackageJson all = PackageJson::array();
    for (const QString& name : names)
        all.push_back(utf8(name));
    return all;
}

PackageJson constraintsOf(const TableInfo& table, const TableColumn& column, const TableSeen& seen)
{
    PackageJson constraints;
    if (table.key.contains(column.name)) constraints["required"] = true;
    if (table.key.size() == 1 && table.key.first() == column.name) constraints["unique"] = true;
    if (!column.words.isEmpty() && !seen.otherWords.contains(column.name)) {
        constraints["enum"] = PackageJson::array();
        for (const QString& word : column.words)
            constraints["enum"].push_back(utf8(word));
    }
    return constraints;
}

PackageJson labelOf(const TableColumn& column)
{
    PackageJson field = fieldOf(column.labelName(), "string");
    describe(field, QString("O que %1 quer dizer.").arg(column.name), QString("What %1 means.").arg(column.name));
    return field;
}

PackageJson placeField()
{
    PackageJson field = fieldOf(placeColumn, "integer");
    describe(field, "Lugar da linha na tabela.", "Place of the row in the table.");
    field["constraints"] = {{"required", true}, {"unique", true}};
    return field;
}

} // namespace

report::CsvForm formOf(Dialect dialect)
{
    if (dialect == Dialect::Spreadsheet) return {.separator = ';', .lineEnd = "\r\n"};
    return {};
}

PackageJson schemaOf(const TableInfo& table, const std::vector<const TableColumn*>& columns, const TableSeen& seen,
                     const QStringList& tables, Dialect dialect)
{
    PackageJson fields = PackageJson::array(), foreign = PackageJson::array();
    if (table.showsPlace()) fields.push_back(placeField());
    for (const TableColumn* column : columns) {
        PackageJson field = typed(*column, dialect);
        describe(field, column->portuguese, column->english);
        if (PackageJson constraints = constraintsOf(table, *column, seen); !constraints.empty())
            field["constraints"] = constraints;
        fields.push_back(field);
        if (column->hasLabel()) fields.push_back(labelOf(*column));
        if (!tables.contains(column->table)) continue;
        const QString other = column->table == table.name ? QString() : column->table; // "" is the resource itself
        foreign.push_back({{"fields", utf8(column->name)},
                           {"reference", {{"resource", utf8(other)}, {"fields", utf8(column->key)}}}});
    }
    PackageJson schema{{"fields", fields}, {"missingValues", PackageJson::array({""})}};
    schema["primaryKey"] = namesOf(table.key.isEmpty() ? QStringList{placeColumn} : table.key);
    if (!foreign.empty()) schema["foreignKeys"] = foreign;
    return schema;
}

PackageJson schemaOfProblems()
{
    struct Line
    {
        QString name;
        const char* type;
        QString portuguese, english;
    };
    const std::vector<Line> lines{
        {problem::table, "string", "Tabela da célula.", "Table of the cell."},
        {problem::place, "integer", "Lugar da linha nessa tabela (rowid, ou a chave).",
         "Place of the row in that table (rowid, or the key)."},
        {problem::column, "string", "Coluna da célula.", "Column of the cell."},
        {problem::value, "string", "O que a BDP lá tem.", "What the BDP has there."},
        {problem::form, "string", "json: o valor está em JSON.", "json: the value is given as JSON."},
        {problem::reason, "string", "Porque não está na tabela.", "Why it doesn't stand in the table."}};
    PackageJson fields = PackageJson::array();
    for (const Line& line : lines) {
        PackageJson field = fieldOf(line.name, line.type);
        describe(field, line.portuguese, line.english);
        fields.push_back(field);
    }
    PackageJson schema{{"fields", fields}, {"missingValues", PackageJson::array({""})}};
    schema["primaryKey"] = namesOf({problem::table, problem::place, problem::column});
    return schema;
}

QString descriptionOf(const TableInfo& table, const TableSeen& seen)
{
    QString told = table.portuguese;
    if (seen.apart > 0) told += QString(" Células que estão em problemas.csv: %1.").arg(seen.apart);
    if (seen.emptied > 0)
        told += QString(" Números que não levam a nenhum registo e ficaram vazios: %1.").arg(seen.emptied);
    return told;
}

QString englishOf(const TableInfo& table, const TableSeen& seen)
{
    QString told = table.english;
    if (seen.apart > 0) told += QString(" Cells that stand in problemas.csv: %1.").arg(seen.apart);
    if (seen.emptied > 0) told += QString(" Numbers that lead to no record and became empty: %1.").arg(seen.emptied);
    return told;
}

} // namespace study::exchange
