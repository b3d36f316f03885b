// What the text in a field of an act may mean, for the user to choose from: people, couples, places, words.
#pragma once

#include "study/acts/catalogue.h"
#include "study/acts/sheet.h"
#include "study/people/finder.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

namespace study {

struct Choice
{
    enum class Kind
    {
        NewPerson,
        Person,
        Couple,
        KeptPerson, // no person of the BDP
        Place,      // one of the BDP, or a new one
        Unplaced,   // stays a text of the act
        Profession, // 0: a new one
        Word        // that the field gets
    };
    Kind kind = Kind::Word;
    QString shown = {};
    qint64 nind = 0; // of a couple: the husband's
    qint64 wife = 0;
    Sex sex = Sex::Unknown;
    QString reason = {};
    PlaceChoice place = {};
    int profession = 0;
    QString word = {};

    bool operator==(const Choice&) const = default;
};

struct Choices
{
    QList<Choice> entries = {};
    int usual = -1;      // the one that Return takes if the user chooses none; -1: the user has to choose
    int firstNumber = 1; // of the first entry, to be chosen by Alt and its number

    bool operator==(const Choices&) const = default;
};

// Of the entry for somebody or something new, and of that by which nothing becomes part of the BDP; -1 for none.
int newEntry(const Choices& choices);
int keptEntry(const Choices& choices);

// The key that chooses an entry together with Alt: its number, or else "0" for what is new and "-" for what stays in
// the act, by which these two are always chosen. "" for another one that has no number of one digit.
QString keyOf(const Choices& choices, int entry);

// Return takes the person from now on, where the list has them: whom the row had, or whose name was repeated.
void expectPerson(Choices& choices, qint64 nind);

// Who a person of the act may be: somebody new comes first, and is the usual choice where the name tells a person. A
// couple whose dates allow no birth at the date of the act comes last among the parents of a child.
Choices choicesOfPerson(const Act& act, int person, const QList<Candidate>& people,
                        const QList<CoupleCandidate>& couples);

// The places that the text of the field may mean, then a new one in the parish, then none. The usual one has the same
// name and lies in the parish; for where somebody was born or something took place, it may be the only one of that name
// elsewhere. Without such a place and without one that is like it, a residence is a new place, and the church of an act
// no place of the BDP. In all other cases the user has to choose.
Choices choicesOfPlace(Field field, const QString& text, const QList<PlaceFound>& places, const NewPlacesIn& parish);

// The professions that the text may mean; the usual one as for places.
Choices choicesOfProfession(const QString& text, const QList<QPair<int, QString>>& professions);

// Those of the words that the text begins; the first one is the usual choice. A text that is none of them stays.
Choices choicesOfWord(const QString& text, const QStringList& words);

// The words of a code list as they are told of a woman: "viúva".
QStringList wordsFor(Sex sex, const QStringList& descriptions);

// What the choice does to the sheet: identities, what a text means, or the text of the field.
void take(Sheet& sheet, const Spot& spot, const Choice& choice);

// Which of the entries the sheet has already; -1 for none.
int chosenIn(const Choices& choices, const Sheet& sheet, const Spot& spot);

} // namespace study
