// A name as the index and the evidence compare it: numbers in the place of words.
#pragma once

#include "study/names/names.h"

#include <QString>

#include <vector>

namespace study {

// Stands for a word, or for two words in whatever order. Two of them may share one: what is found by it is compared
// with the words themselves.
using WordCode = quint32;
inline constexpr int bitsOfAWordCode = 24;

WordCode codeOf(const QString& key); // of a key as nameKey() makes it; the same on every machine
WordCode codeOf(WordCode one, WordCode other);
WordCode codeOfAlone(WordCode word); // of a name that has this word and no other

struct CodedWord
{
    WordCode exact = 0;            // of the word as it is spelled today
    std::vector<WordCode> classes; // of the names that it may be: one for each reading
    QString key;                   // as nameKey() makes it
    QString written;               // as it stands there
    bool devotional = false;       // in every reading
    bool known = false;            // the table of names has it
    bool inPart = false;           // still being typed: its classes are those of the words that it may become

    bool operator==(const CodedWord&) const = default;
};

// The words of a name, without particles; the first one is the given name. No words: it is no name.
using CodedName = std::vector<CodedWord>;

CodedName codedName(const QString& name); // by NameTable::shared()

// Word for word, each in one of its readings.
bool isSameName(const CodedName& a, const CodedName& b);
bool shareClass(const CodedWord& a, const CodedWord& b);

// Under which numbers somebody of that name is found: each word of it, the first word with each other one.
// In ascending order, none twice.
std::vector<WordCode> indexCodes(const CodedName& name);

} // namespace study
