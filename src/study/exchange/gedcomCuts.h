// How the one who wrote a file cut its long texts for CONC. For the reader alone.
#pragma once

#include "study/exchange/gedcomStructure.h"

#include <vector>

namespace study::exchange {

// 5.5.1 has texts cut inside a word, since blanks at the ends of lines get lost. Some programs cut them between two
// words and leave the blank out. These show by what they don't have: a blank at any cut, lines that are all full, and a
// line that had room for the next word.
class GedcomCuts
{
public:
    void take(const GedcomStructureLine& line); // one after the other
    bool areEnough() const { return cuts_.size() >= 400; }
    bool loseBlanks() const;
    int firstLine() const { return firstLine_; } // where the first text goes on; 0 where none does

private:
    // By bytes, and by letters of UTF-8: nobody says what a program counts.
    struct Length
    {
        qsizetype bytes = 0, letters = 0;
    };
    struct Cut
    {
        Length before = {}, nextWord = {};
    };
    static Length lengthOf(QStringView text);
    bool areOfFullLines(qsizetype Length::*unit) const;

    std::vector<Cut> cuts_ = {};
    QString before_ = {};
    bool isText_ = false, keepBlanks_ = false;
    int firstLine_ = 0;
};

} // namespace study::exchange
