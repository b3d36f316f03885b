// What a researcher sets for a study; kept in the BDP with it.
#pragma once

#include "study/observation/unions.h"

#include <QDate>
#include <QHash>
#include <QMap>
#include <QString>

#include <array>
#include <map>
#include <vector>

namespace study::indicators {

enum class Series : quint8
{
    Baptisms,
    Marriages,
    Burials,
    ChildBurials // often begin later
};

struct YearSpan
{
    int first = 0, last = 0; // 0: no limit on that side

    bool operator==(const YearSpan&) const = default;
    bool holds(int year) const { return (first == 0 || year >= first) && (last == 0 || year <= last); }
};

// What a code of the filiation counts as.
enum class Legitimacy : quint8
{
    Legitimate,
    Legitimised,
    Illegitimate,
    Foundling,
    Unknown
};

enum class Which : quint8
{
    All,
    Legitimate,
    Illegitimate
};

// When a child was born and when it was baptised, from a list beside the BDP: both are valid.
struct BaptismDays
{
    QDate birth = {}, baptism = {};

    bool operator==(const BaptismDays&) const = default;
};

struct Settings
{
    YearSpan period = {};               // of the events that count
    int cohortYears = 50;               // breadth of a cohort or period of a table: 10, 25 or 50
    bool byMarriageCohort = true;       // marriages and their fertility; otherwise by the period of the event
    std::array<YearSpan, 4> books = {}; // by Series
    std::array<std::vector<YearSpan>, 4> gaps = {};       // by Series
    Which which = Which::All;                             // of births and children
    parish::Gender gender = parish::Gender::Undetermined; // that one alone; undetermined: both
    bool localOnly = true;                                // acts of the parish alone; unknown places count as local
    observation::UnionRules unions = {};
    bool derivedBirths = false;             // ages from statements count where the register has none (I′)
    bool openFamilies = false;              // couples of unknown end count up to the day both are last seen
    int completeAge = 50;                   // the wife's age to which a complete family is seen: 50 or 45
    double missingBirths = 0;               // share of births that the books lack, 0 to 0.2
    int movingAverage = 9;                  // years: 5, 9 or 11
    int signsFrom = 2;                      // lowest level of a signature that counts as "assina"
    bool skipCrises = false;                // years of crisis stay out of the base of the crises' index
    QStringList neighbours = {};            // codes of the neighbouring parishes
    QHash<int, Legitimacy> filiations = {}; // code: what it counts as, where it isn't the default
    // Lowest level of a signature that counts as a mark, "cruz ou sinal"; what is lower counts as "não sabe".
    int marksFrom = 1;
    int indexBase = 0; // first of the ten years whose mean is the 100 of an index; 0: the first ten without a gap
    // The words of a card's notes behind which the day of the birth stands, or that of the baptism ("nasceu a; n.");
    // the date of the card is that of the other act then. "": the notes aren't read.
    QString birthWords = {}, baptismWords = {};
    std::map<parish::PersonNumber, BaptismDays> baptisms = {}; // from a list, which goes before the notes
    QMap<QString, QString> causes = {}; // beginning of a word: the cause of death that it tells; goes before the rule

    bool operator==(const Settings&) const = default;

    bool covers(Series series, int year) const; // within the books, and in no gap
};

// The default of a code of the filiation; Unknown for one of the researcher's own.
Legitimacy legitimacyOfCode(int filiation);
// Of a birth: by its filiation, where that tells nothing by the situation of its family.
Legitimacy legitimacyOf(const parish::Person& child, const Settings& settings);

// The first year of the period (of cohortYears) that a year is in: 1750 for 1787 and 50.
int periodOf(int year, const Settings& settings);

} // namespace study::indicators
