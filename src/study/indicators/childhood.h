// A child from its birth to its fifteenth birthday, as long as its family is seen.
//
// A child is at risk only while events that aren't its own prove that its family is there: its own death never makes
// that time longer. Rules: R. Schofield and E. A. Wrigley, 1979, after M. Fleury and L. Henry.
#pragma once

#include "study/indicators/subject.h"

namespace study::indicators {

// Age in days of years that all have 365: what would be the 366th is the 365th, so that birthdays stand at multiples of
// 365. Precondition: both are known, and the birth isn't the later one.
qint32 ageInDays(const parish::Date& birth, const parish::Date& at);
inline constexpr qint32 daysOfAnAge = 365;
inline constexpr qint32 endOfChildhood = 15 * daysOfAnAge;

// Why a child isn't watched.
enum class Unwatched : quint8
{
    Watched,
    NotAsked,     // no birth of this study: of another parish's people, period, sex or legitimacy; adults without birth
    DiedUnlinked, // died young, and nobody knows of the birth
    BornElsewhere,
    OutOfBooks,
    UnknownFiliation, // where the legitimate or the others alone are asked for
    DeathBeforeBirth,
    Approximate, // a death less than two years behind the birth, and one of the two isn't exact
    ObservedLater,
    FamilyUnseen // nothing proves that the family was there behind the birth
};

struct Childhood
{
    Unwatched why = Unwatched::Watched;
    Legitimacy legitimacy = Legitimacy::Unknown;
    qint32 until = 0;                 // age at which it leaves, or dies; at most endOfChildhood
    bool died = false;                // while it was seen
    qint32 seen = 0;                  // age to which it would have been seen had it lived; at most endOfChildhood
    std::optional<qint32> death = {}; // age in days, whether it was seen or not
    bool exact = false;               // to the day: the birth, and the death where there is one

    bool isWatched() const { return why == Unwatched::Watched; }
};

Childhood childhoodOf(const parish::Person& child, const Study& study);

// Until when a child would have been seen had it lived: as long as its family is, it hasn't married, and the books and
// the limits that a researcher typed go on. Unknown where nothing proves it. Precondition: its birth is known.
parish::Date seenUntil(const parish::Person& child, const Study& study);

// Why somebody wasn't watched, as a subject counts it: the reasons stand together among its counts, from `first` on.
inline constexpr std::array<const char*, 8> unwatchedNames = {
    "menor-sem-nascimento", "nascido-fora",      "fora-dos-livros",   "filiacao-desconhecida",
    "obito-antes",          "datas-aproximadas", "observacao-tardia", "familia-sem-presenca"};
constexpr std::array<Reason, 8> reasonsFrom(quint16 first)
{
    constexpr std::array<const char*, 8> texts = {"óbito de menor sem nascimento ligado",
                                                  "nascimento fora da freguesia",
                                                  "nascimento fora dos livros de baptismos ou de óbitos de menores",
                                                  "filiação desconhecida",
                                                  "óbito anterior ao nascimento",
                                                  "datas aproximadas, com menos de dois anos entre nascimento e óbito",
                                                  "observação que começa depois do nascimento",
                                                  "sem prova de presença da família depois do nascimento"};
    std::array<Reason, 8> reasons = {};
    for (std::size_t i = 0; i < reasons.size(); ++i)
        reasons[i] = {static_cast<quint16>(first + i), texts[i]};
    return reasons;
}
// Precondition: neither Watched nor NotAsked.
constexpr quint16 reasonOf(Unwatched why, quint16 first)
{
    return static_cast<quint16>(first + static_cast<quint16>(why) - static_cast<quint16>(Unwatched::DiedUnlinked));
}

// What a child is told to a taker as: nothing for who isn't asked for, the reason for who isn't watched.
bool isTold(const Childhood& life, const parish::Person& child, quint16 firstReason, Taker& taker);

} // namespace study::indicators
