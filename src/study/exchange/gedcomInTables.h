// What the tags and words of a GEDCOM file become in the BDP: each mapping one table.
#pragma once

#include "study/exchange/gedcomTables.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace study::exchange {

// A fact of a person by its TYPE: a code of a category, in a column.
struct FactColumn
{
    const char* type;
    const char* column;
    const char* category;
};
const FactColumn* factColumnOf(const QString& type); // null for none

// A note of an event that begins a line with a label: a number, a text, or a code of a category.
enum class LabelKind : quint8
{
    Number,
    Text,
    Code
};
struct LabelColumn
{
    const char* label;
    const char* column;
    LabelKind kind;
    const char* category = "";
};
const std::vector<LabelColumn>& labelsOfBaptism();
const std::vector<LabelColumn>& labelsOfBurial();
const std::vector<LabelColumn>& labelsOfLooks();
const std::vector<LabelColumn>& labelsOfAssistant();
const std::vector<LabelColumn>& labelsOfBequest();
const std::vector<LabelColumn>& labelsOfSignature();

// Who somebody is, by ROLE and its PHRASE, or by RELA.
struct RoleTold
{
    Role role;
    bool isGodparent = false; // also at a marriage
};
std::optional<RoleTold> roleTold(const QString& role, const QString& phrase);

// What 5.5.1 writes behind somebody's role, where an association stands with the person.
enum class ActTold : quint8
{
    None,
    Baptism,
    Marriage,
    Burial,
    Will
};
struct PhraseOfAct
{
    ActTold act = ActTold::None;
    QString phrase = {};
    qint64 family = 0; // the number that the file has
};
PhraseOfAct phraseOfAct(const QString& line); // "Testemunha do casamento da família 3"

// The filiation that the kind of a child's link tells; 0: none.
int filiationOf(const QString& pedigree);

// What programs keep for themselves: it is counted and not noted.
bool isTechnical(const QString& tag);

// Which level of the places a word of a FORM means, as in placeForm; -1 for none.
int levelOfWord(const QString& word);

} // namespace study::exchange
