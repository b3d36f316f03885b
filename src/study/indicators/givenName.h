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

    bool operator==(const GivenName&) const = default;
};
GivenName givenNameOf(const QString& name);

// Each person's name is taken apart once. For one thread.
class GivenNames
{
public:
    const GivenName& of(const parish::Person& person);

private:
    std::unordered_map<const parish::Person*, GivenName> known_;
};

} // namespace study::indicators
