// Which acts and people a study is about.
#pragma once

#include "study/indicators/subject.h"
#include "study/parish/locality.h"

namespace study::indicators {

// Whether an act counts by its place: all do, unless those of the parish alone are asked for.
inline bool isHere(const parish::Place& place, const Study& study)
{
    return !study.settings.localOnly || parish::isLocal(place, study.parish.home());
}

inline bool isWanted(parish::Gender gender, const Settings& settings)
{
    return settings.gender == parish::Gender::Undetermined || settings.gender == gender;
}

// Of one of all births and children. An unknown legitimacy is wanted only among all, and so are foundlings: they come
// from elsewhere, and are neither.
inline bool isWanted(Legitimacy legitimacy, const Settings& settings)
{
    switch (settings.which) {
    case Which::All:
        return true;
    case Which::Legitimate:
        return legitimacy == Legitimacy::Legitimate || legitimacy == Legitimacy::Legitimised;
    case Which::Illegitimate:
        return legitimacy == Legitimacy::Illegitimate;
    }
    return false;
}

inline std::span<const parish::Person> peopleOf(const Study& study, const Share& share)
{
    return study.parish.people().subspan(share.firstPerson, share.lastPerson - share.firstPerson);
}

inline std::span<const parish::Family> familiesOf(const Study& study, const Share& share)
{
    return study.parish.families().subspan(share.firstFamily, share.lastFamily - share.firstFamily);
}

inline qint32 numbered(parish::Gender gender)
{
    return static_cast<qint32>(gender);
}

} // namespace study::indicators
