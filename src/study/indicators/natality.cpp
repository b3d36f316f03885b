#include "study/indicators/natality.h"

#include "study/indicators/marriages.h"
#include "study/indicators/scope.h"
#include "study/parish/codes.h"

#include <algorithm>
#include <cmath>

namespace study::indicators::natality {

using parish::Date;
using parish::Family;
using parish::Person;

Date settled(const Date& date)
{
    return parish::dateOf(date.middle(), true);
}

Date anniversary(const Date& of, int years)
{
    return parish::dateOf(parish::birthday(of, years), true);
}

int completedMonths(const Date& from, const Date& to)
{
    const QDate first = from.middle(), last = to.middle();
    int months = 12 * (last.year() - first.year()) + last.month() - first.month();
    if (first.addMonths(months) > last) --months;
    return months;
}

qint32 hundredthsOfAge(const Date& birth, const Date& at)
{
    static constexpr double hundredths = 100;
    const double age = parish::exactAge(birth, at);
    return static_cast<qint32>(std::min(std::round(age * hundredths), std::floor(age) * hundredths + hundredths - 1));
}

qint32 groupOf(int value, int breadth)
{
    const int rest = value % breadth;
    return value - (rest < 0 ? rest + breadth : rest);
}

bool isFirstMarriage(const Person* person, const Family& family)
{
    if (!person) return false;
    const auto row = std::find_if(family.members.begin(), family.members.end(),
                                  [person](const auto& member) { return member.member.person == person; });
    return row != family.members.end() && rankOf({person, &*row}, family) != Rank::Later;
}

bool isMarital(const Family& family)
{
    return !parish::isUnmarried(family) && family.situation != QLatin1String(parish::situation::foster);
}

NoBirth lackOfBirth(const Person& person, const Study& study, bool chosen)
{
    const Settings& settings = study.settings;
    if (!person.birth.isKnown()) return NoBirth::Undated;
    if (!isHere(person.birthPlace, study)) return NoBirth::Elsewhere;
    if (!settings.period.holds(person.birth.year())) return NoBirth::Period;
    if (!settings.covers(Series::Baptisms, person.birth.year())) return NoBirth::Books;
    if (chosen && !isWanted(legitimacyOf(person, settings), settings)) return NoBirth::Filiation;
    return isWanted(person.gender, settings) ? NoBirth::None : NoBirth::Sex;
}

qint32 cohortOf(const Date& marriage, const Date& event, const Settings& settings)
{
    return periodOf((settings.byMarriageCohort ? marriage : event).year(), settings);
}

std::vector<Named> periodsOf(const Reading& reading, quint16 count, int dimension, const Settings& settings)
{
    std::vector<Named> named;
    for (const qint32 period : reading.values(count, dimension)) {
        Named one{periodName(period, settings)};
        one.at[static_cast<std::size_t>(dimension)] = period;
        named.push_back(one);
    }
    return named;
}

report::Chart bars(const QString& id, const QString& title, const QString& xTitle, const QString& yTitle,
                   const std::vector<std::pair<QString, double>>& values)
{
    report::Chart chart{id, title, report::Drawing::Bars, xTitle, yTitle, {}, {{}}, {}};
    QStringList words;
    for (const auto& [name, value] : values) {
        chart.plots.front().points.push_back({static_cast<double>(chart.categories.size()), value, {}});
        chart.categories << name;
        words << name + " " + decimalComma(value, value == std::floor(value) ? 0 : 1);
    }
    chart.described = title + ". " + words.join(", ") + ".";
    return chart;
}

std::vector<report::Figure> withoutData(const QString& title)
{
    return {Table{"sem-dados", title, {}, {}, {"sem dados"}}};
}

} // namespace study::indicators::natality
