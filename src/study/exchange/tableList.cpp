#include "study/exchange/tableList.h"

#include <iterator>

namespace study::exchange {

const TableColumn* TableInfo::column(const QString& named) const
{
    for (const TableColumn& each : columns)
        if (each.name.compare(named, Qt::CaseInsensitive) == 0) return &each;
    return nullptr;
}

const std::vector<TableInfo>& allTables()
{
    static const std::vector<TableInfo> all = [] {
        std::vector<TableInfo> made;
        for (auto* const list : {tablesOfPlaces, tablesOfRecords, tablesOfLists, tablesOfActs, tablesOfStudy}) {
            std::vector<TableInfo> some = list();
            made.insert(made.end(), std::make_move_iterator(some.begin()), std::make_move_iterator(some.end()));
        }
        return made;
    }();
    return all;
}

const TableInfo* tableOf(const QString& name)
{
    for (const TableInfo& table : allTables())
        if (table.name.compare(name, Qt::CaseInsensitive) == 0) return &table;
    return nullptr;
}

QStringList lettersOfLevels()
{
    return {"P", "Z", "D", "C", "F", "L", "S"};
}

TableColumn textColumn(const char* name, const char* portuguese, const char* english)
{
    return {name, Kind::Text, portuguese, english};
}

TableColumn placeLevel(const char* name)
{
    return TableColumn(name, Kind::Text, "Nível do local, como em individuo.", "Level of the place, as in individuo.")
        .only(lettersOfLevels());
}

bool isIndexOfNames(const QString& table)
{
    const QString name = table.toLower();
    return name == "estudo_nome" || name.startsWith("estudo_nome_");
}

} // namespace study::exchange
