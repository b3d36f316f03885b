// The time in which the births of a couple are observed, and the births in it: L. Henry, Manuel de démographie
// historique, 1967.
//
// From the marriage until the first death or the wife's fiftieth birthday. A couple whose end is unknown gives no such
// time, unless the settings take it up to the day both are last seen; no end depends on a birth. Days are those of
// study/parish/date.h, those of a year alone in its middle.
#pragma once

#include "study/indicators/subject.h"

#include <array>
#include <vector>

namespace study::indicators {

// Why a family gives no married life.
enum class Lack : quint8
{
    None,
    Couple,        // one member, or both on one side
    Marriage,      // unknown, or not exact where the rules ask for that
    Contradiction, // between its own dates
    End,           // of the union
    Situation,     // told as no marriage
    Period,        // the marriage is outside the period of the study
    WifeBirth,
    WifeStated, // her birth is only known by an age that an act tells
    TooLate,    // married at fifty or above, or observed from then on
    Books       // of baptisms, that cover not one year of it
};
inline constexpr std::size_t lacks = 10;
// Names of their counts, and what they tell, without None, in their order.
inline constexpr std::array<const char*, lacks> lackNames{
    "falta-casal",   "falta-casamento",   "falta-contradicao",        "falta-fim",          "falta-situacao",
    "falta-periodo", "falta-nasc-mulher", "falta-idade-so-declarada", "falta-casada-tarde", "falta-livros"};
inline constexpr std::array<const char*, lacks> lacksTold{
    "famílias de um só membro, ou sem marido e mulher",
    "sem data de casamento que conte",
    "datas da família que se contradizem",
    "sem fim conhecido da união",
    "situação da família que não é de casamento",
    "casamento fora do período do estudo",
    "sem nascimento da mulher",
    "nascimento da mulher conhecido só por uma idade declarada",
    "casamento, ou início da observação, aos 50 anos da mulher ou depois",
    "nenhum ano da união coberto pelos livros de baptismos"};

enum class Placed : quint8
{
    Within,
    Undated,
    NotLegitimate,
    Before, // the marriage, or what is observed
    Behind, // the end: 300 days after the husband's death count as within
    Young,  // of a mother under fifteen
    Unread  // in a year without books, or outside the period
};
inline constexpr std::size_t placings = 6;
// Without Within.
inline constexpr std::array<const char*, placings> placingNames{"filho-sem-data",     "filho-nao-legitimo",
                                                                "filho-antes",        "filho-depois",
                                                                "filho-mae-menor-15", "filho-fora-dos-livros"};
inline constexpr std::array<const char*, placings> placingsTold{
    "filhos sem data de nascimento",
    "filhos que não são legítimos",
    "filhos nascidos antes do casamento ou da observação",
    "filhos nascidos depois do fim da observação (os póstumos contam até 300 dias)",
    "filhos de mãe com menos de 15 anos",
    "filhos nascidos em anos sem livros ou fora do período"};

struct Birth
{
    const parish::Person* child = nullptr;
    parish::Date day = {}; // unknown where undated
    Placed placed = Placed::Within;

    bool operator==(const Birth&) const = default;
};

// A part of it that is of one age, one duration, one period.
struct Stretch
{
    int age = 0;      // lowest of the group of five years; 0 in a life that asks for no age
    int duration = 0; // likewise, of years of marriage
    int period = 0;   // first year of the period of the study
    qint64 halfDays = 0;

    bool operator==(const Stretch&) const = default;
};

struct MarriedLife
{
    const observation::Union* of = nullptr;
    Lack lack = Lack::None;
    parish::Date marriage = {}, end = {}; // of the union, or the day an open one is last seen; exact days
    parish::Date from = {}, until = {};   // of observation: [from, until), until the fiftieth birthday at most
    parish::Date wifeBirth = {};          // unknown in a life that asks for no age
    int ageAtMarriage = 0;                // completed; where the wife's birth is known
    bool isReadThroughout = true;         // no year of it lacks in the books
    std::vector<Birth> births = {};       // all children, those within in the order of their births

    bool isCounted() const { return lack == Lack::None; }
    std::vector<Birth> within() const;
    std::size_t placedAs(Placed placed) const; // how many
    // Born to the couple in their marriage, as far as is known: those without a date are taken to be.
    std::size_t size() const { return placedAs(Placed::Within) + placedAs(Placed::Undated); }
    // Both lived, married, and observed from the marriage until the wife was so old; of a union whose end is known.
    bool isCompleteAt(int age) const;
};

// With the wife's age: families MF I, I′ where the settings take stated ages, and MO where they take open families.
MarriedLife marriedLifeOf(const observation::Union& of, const Study& study);
// Closed families whatever is known of the wife; no fiftieth birthday ends them.
MarriedLife closedLifeOf(const observation::Union& of, const Study& study);

// What was lived, at ages from 15 to 49 or, in a life that asks for no age, at any, in years that the books of baptisms
// cover. Precondition: a life that is counted. A birth on the one day of a life without length gives that half a day.
std::vector<Stretch> stretchesOf(const MarriedLife& life, const Settings& settings);
// The same with their days, in the order of time: [from, until), a life without length from its one day to that day.
struct DatedStretch
{
    Stretch stretch = {};
    parish::Date from = {}, until = {};

    bool operator==(const DatedStretch&) const = default;
};
std::vector<DatedStretch> datedStretchesOf(const MarriedLife& life, const Settings& settings);
// The group of a birth within; without length.
Stretch placeOf(const Birth& birth, const MarriedLife& life, const Settings& settings);

// Tells why nothing of this family counts, or which of its children don't; under counts from `first` on, in the order
// of lackNames and placingNames.
void countLack(const MarriedLife& life, quint16 first, Taker& taker);
void countPlacings(const MarriedLife& life, quint16 first, Taker& taker);

// Age at marriage as tables have it: 15 for all under 20, 35 for all above 34.
int groupAtMarriage(int age);
QString groupAtMarriageName(int group); // "menos de 20", "20–24", "35 e mais"
QString groupName(int first);           // "20–24"

} // namespace study::indicators
