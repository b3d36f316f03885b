// The tables of a BDP as an export has them: what each column holds, in two languages, and what leads where.
#pragma once

#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

namespace study::exchange {

// What a cell of a column is, when it is as it should be.
enum class Kind : quint8
{
    Text,
    Whole, // a whole number; a record's number is one, however the engine keeps it
    Number,
    Day,
    Flag // 0 or 1
};

struct TableColumn
{
    TableColumn(const char* named, Kind of, const char* inPortuguese, const char* inEnglish)
        : name(named), kind(of), portuguese(inPortuguese), english(inEnglish)
    {
    }

    QString name; // in small letters; the engine is blind to their case
    Kind kind;
    QString portuguese, english;
    QString category = {};   // of the codes that it holds (infocomplementar.categoria)
    QString categoryBy = {}; // the column that tells the category, by `categories`: word → category
    std::vector<std::pair<QString, QString>> categories = {};
    QString placeLetter = {}; // it holds the code of a place, and that column the letter of its level
    bool isProfession = false;
    QString table = {}, key = {}; // whom it leads to: a column that is the key of a table
    QStringList words = {};       // that it may hold; none: any

    bool hasLabel() const
    {
        return !category.isEmpty() || !categoryBy.isEmpty() || !placeLetter.isEmpty() || isProfession;
    }
    QString labelName() const { return name + "_texto"; }

    // As the lists of the tables tell it.
    TableColumn codes(const char* of) const { return with(&TableColumn::category, of); }
    TableColumn place(const char* letter) const { return with(&TableColumn::placeLetter, letter); }
    TableColumn codesBy(const char* column, std::vector<std::pair<QString, QString>> ofWords) const
    {
        TableColumn made = with(&TableColumn::categoryBy, column);
        made.categories = std::move(ofWords);
        return made;
    }
    TableColumn profession() const
    {
        TableColumn made = *this;
        made.isProfession = true;
        return made;
    }
    TableColumn leads(const char* toTable, const char* itsKey) const
    {
        return with(&TableColumn::table, toTable).with(&TableColumn::key, itsKey);
    }
    TableColumn only(const QStringList& these) const
    {
        TableColumn made = *this;
        made.words = these;
        return made;
    }

private:
    TableColumn with(QString TableColumn::*field, const char* value) const
    {
        TableColumn made = *this;
        made.*field = QString(value);
        return made;
    }
};

struct TableInfo
{
    QString name;
    QString portuguese, english;
    QStringList key; // none: rows are told apart by their place alone
    std::vector<TableColumn> columns;
    QStringList statements = {}; // that make it and its indexes; none: every BDP has it
    bool isDerived = false;      // a file of its own, which no table of a BDP has: its rows have no place

    bool isOwn() const { return !statements.isEmpty(); } // of the study: it may be missing
    // Of one key that is a whole number the engine makes the place itself.
    bool showsPlace() const
    {
        return !isDerived && (!isOwn() || key.size() != 1 || columns.front().kind != Kind::Whole);
    }
    const TableColumn* column(const QString& name) const; // whatever its case; null for none
};

// Each behind those that its columns lead to, but for the two that lead to each other.
const std::vector<TableInfo>& allTables();
const TableInfo* tableOf(const QString& name); // null for none

// What is made anew when it is needed, and would be of another file: it isn't exported.
bool isIndexOfNames(const QString& table);

// The letters of the levels of places, and a column that holds one, told as a reminder.
QStringList lettersOfLevels();
TableColumn placeLevel(const char* name);
TableColumn textColumn(const char* name, const char* portuguese, const char* english);

// The lists that allTables() is made of.
std::vector<TableInfo> tablesOfPlaces();
std::vector<TableInfo> tablesOfRecords();
std::vector<TableInfo> tablesOfLists();
std::vector<TableInfo> tablesOfActs();
std::vector<TableInfo> tablesOfStudy();

} // namespace study::exchange
