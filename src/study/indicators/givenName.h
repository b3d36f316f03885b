// The given name of a person, as it is spelled today.
#pragma once

#include "study/parish/snapshot.h"

#include <unordered_map>

namespace study::indicators {

struct GivenName
{
    QString first = {};        // "" where there is none
    bool isDouble = false;     // a second given name stands behind it: "Maria Rosa"
    bool isDevotional = false; // a devotional name stands behind the given ones: "da Conceição"
    bool isSaint = false;      // nobody, but a saint: "Nossa Senhora do Rosário"

    bool operator==(const GivenName&) const = default;
};
GivenName givenNameOf(const QString& name);

// Each name is taken apart once, however many bear it: few names are borne by most. For one thread.
class GivenNames
{
public:
    const GivenName& of(const parish::Person& person);

private:
    std::unordered_map<QString, GivenName> known_;
};

} // namespace study::indicators
