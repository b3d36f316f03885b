// Names as Portuguese registers of the 17th and 18th centuries have them.
#pragma once

#include "random.h"

#include <QString>

namespace demo {

enum class Sex
{
    male,
    female,
    unknown
};

// A given name; double ones become common in the course of the 18th century.
QString givenName(Random& random, Sex sex, int year);

// A surname that passes from parent to child.
QString familyName(Random& random);

// A surname of devotion, which women bear instead of their family's.
QString devotionalName(Random& random);

QString nickname(Random& random, Sex sex);

// The cause of death as a priest would write it; "" where he wrote none, which is the rule.
QString causeOfDeath(Random& random, int age);

} // namespace demo
