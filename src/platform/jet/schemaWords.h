// The words of what a schema holds, as the engine reads them.
#pragma once

#include <QString>

#include <vector>

namespace jet {

struct SchemaWord
{
    enum Kind
    {
        Name, // a word, a number
        Quoted,
        Symbol
    };
    Kind kind;
    QString text; // in lower case; without its quotes, with doubled ones read as one
};

// Comments left out. A quote without its partner ends with the text.
std::vector<SchemaWord> schemaWords(const QString& sql);

// One row of the schema, by its text alone: the engine goes by that.
struct SchemaItem
{
    enum Kind
    {
        Other,
        Table,
        Index,
        Trigger,
        View,
        VirtualTable
    };

    explicit SchemaItem(const QString& sql);

    std::vector<SchemaWord> words;
    Kind kind = Other;
};

} // namespace jet
