#include "study/indicators/settings.h"

#include "study/parish/codes.h"

#include <algorithm>

namespace study::indicators {

namespace {

Legitimacy legitimacyOfFamily(const parish::Family& family)
{
    if (isMarried(family)) return Legitimacy::Legitimate;
    if (isUnmarried(family)) return Legitimacy::Illegitimate;
    return family.situation == parish::situation::foster ? Legitimacy::Foundling : Legitimacy::Unknown;
}

} // namespace

bool Settings::covers(Series series, int year) const
{
    const auto place = static_cast<std::size_t>(series);
    const auto isOut = [year](const YearSpan& gap) { return gap != YearSpan() && gap.holds(year); };
    return books[place].holds(year) && std::ranges::none_of(gaps[place], isOut);
}

Legitimacy legitimacyOfCode(int filiation)
{
    switch (filiation) {
    case parish::filiation::legitimate:
    case parish::filiation::posthumous:
        return Legitimacy::Legitimate;
    case parish::filiation::legitimisedByMarriage:
    case parish::filiation::legitimisedByLetter:
        return Legitimacy::Legitimised;
    case parish::filiation::foundling:
        return Legitimacy::Foundling;
    case parish::filiation::recognised:
        return Legitimacy::Illegitimate;
    default:
        return parish::isOutOfWedlock(filiation) ? Legitimacy::Illegitimate : Legitimacy::Unknown;
    }
}

Legitimacy legitimacyOf(const parish::Person& child, const Settings& settings)
{
    Legitimacy told = Legitimacy::Unknown;
    if (child.filiation) {
        const int code = *child.filiation;
        told = settings.filiations.contains(code) ? settings.filiations.value(code) : legitimacyOfCode(code);
    }
    return told == Legitimacy::Unknown && child.origin ? legitimacyOfFamily(*child.origin) : told;
}

int periodOf(int year, const Settings& settings)
{
    const int breadth = std::max(1, settings.cohortYears);
    const int within = year % breadth;
    return year - (within < 0 ? within + breadth : within);
}

} // namespace study::indicators
