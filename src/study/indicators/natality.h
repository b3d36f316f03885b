// What the subjects of fertility and of births share: dates, and the choice of families.
#pragma once

#include "study/indicators/reading.h"

namespace study::indicators::natality {

inline constexpr double daysOfAMonth = parish::daysOfAYear / 12;

// The day that arithmetic is done with: the middle of the year where only that is meant. Precondition: known.
parish::Date settled(const parish::Date& date);
// The day on which so many years are completed; that of a 29 February is 1 March in common years.
parish::Date anniversary(const parish::Date& of, int years);
// Months by the calendar: from 10 June to 10 February are 8; the last day of a shorter month completes one, too.
// Negative before. Precondition: both are known.
int completedMonths(const parish::Date& from, const parish::Date& to);
// Exact age in hundredths of a year, never rounded into a year that isn't completed. Precondition: both are known, the
// birth isn't the later one.
qint32 hundredthsOfAge(const parish::Date& birth, const parish::Date& at);
qint32 groupOf(int value, int breadth = 5); // its lowest value: 20 for 24; downwards below 0, too

// As the act and the BDP tell it: no other marriage before, no order above the first, not widowed. False for nobody.
bool isFirstMarriage(const parish::Person* person, const parish::Family& family);
// Of a marriage: legitimate, presumed so, made so later, or untold.
bool isMarital(const parish::Family& family);
// Why a person isn't counted among the births of the parish.
enum class NoBirth : quint8
{
    None,
    Undated,
    Elsewhere,
    Period,
    Books,
    Filiation, // another than the settings ask for
    Sex
};
inline constexpr std::size_t noBirths = 6;
inline constexpr std::array<const char*, noBirths> noBirthNames{
    "sem-data", "fora-da-paroquia", "fora-do-periodo", "fora-dos-livros", "outra-filiacao", "outro-sexo"};
inline constexpr std::array<const char*, noBirths> noBirthTold{
    "pessoas sem data de nascimento", "nascimentos noutra paróquia",   "nascimentos fora do período do estudo",
    "nascimentos fora dos livros",    "nascimentos de outra filiação", "nascimentos do outro sexo"};
// By the settings, those of filiation only where `chosen`.
NoBirth lackOfBirth(const parish::Person& person, const Study& study, bool chosen = true);
// Each person of the share who is born in the parish; tells why others don't count, under counts from `first` on.
template <class Take>
void eachBirth(const Study& study, const Share& share, quint16 first, bool chosen, Taker& taker, const Take& take)
{
    for (std::size_t i = share.firstPerson; i < share.lastPerson; ++i) {
        const parish::Person& person = study.parish.people()[i];
        const NoBirth lack = lackOfBirth(person, study, chosen);
        if (lack == NoBirth::None)
            take(person);
        else
            taker.count({static_cast<quint16>(first + static_cast<int>(lack) - 1), {}}, {&person, nullptr});
    }
}

// In the way of the settings: the period of the marriage, or that of the event.
qint32 cohortOf(const parish::Date& marriage, const parish::Date& event, const Settings& settings);

// Names of counts one behind another, and the reasons told for counts from `first` on.
template <std::size_t A, std::size_t B>
constexpr std::array<const char*, A + B> joined(const std::array<const char*, A>& one,
                                                const std::array<const char*, B>& other)
{
    std::array<const char*, A + B> all{};
    for (std::size_t i = 0; i < A + B; ++i)
        all[i] = i < A ? one[i] : other[i - A];
    return all;
}
template <std::size_t N>
constexpr std::array<Reason, N> reasonsFrom(quint16 first, const std::array<const char*, N>& told)
{
    std::array<Reason, N> all{};
    for (std::size_t i = 0; i < N; ++i)
        all[i] = {static_cast<quint16>(first + i), told[i]};
    return all;
}

// One row of a table: what it is of, and where that stands on the dimensions.
struct Named
{
    QString name = {};
    Reading::At at = Reading::everywhere;
};
// A row for each period that the count has on this dimension.
std::vector<Named> periodsOf(const Reading& reading, quint16 count, int dimension, const Settings& settings);

using Row = std::vector<Cell>;

// Bars of one series, a number for each name.
report::Chart bars(const QString& id, const QString& title, const QString& xTitle, const QString& yTitle,
                   const std::vector<std::pair<QString, double>>& values);

// What stands where nothing was counted.
std::vector<report::Figure> withoutData(const QString& title);

} // namespace study::indicators::natality
