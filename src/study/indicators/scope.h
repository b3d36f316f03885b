// Which acts and people a study is about.
#pragma once

#include "study/indicators/subject.h"

namespace study::indicators {

// An act of the parish: one without a place is taken for one, and all are where the parish isn't known to itself.
inline bool isHere(const parish::Place& place, const Study& study)
{
    const parish::Home& home = study.parish.home();
    return !study.settings.localOnly || !place.isKnown() || home.code.isEmpty() || parish::isIn(place, home);
}

inline bool isWanted(parish::Gender gender, const Settings& settings)
{
    return settings.gender == parish::Gender::Undetermined || settings.gender == gender;
}

// Of one of all births and children. An unknown legitimacy is wanted only among all.
inline bool isWanted(Legitimacy legitimacy, const Settings& settings)
{
    switch (settings.which) {
    case Which::All:
        return true;
    case Which::Legitimate:
        return legitimacy == Legitimacy::Legitimate || legitimacy == Legitimacy::Legitimised;
    case Which::Illegitimate:
        return legitimacy == Legitimacy::Illegitimate || legitimacy == Legitimacy::Foundling;
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
