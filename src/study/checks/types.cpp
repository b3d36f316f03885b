#include "study/checks/types.h"

#include "study/checks/check.h"
#include "study/checks/codes.h"

namespace study::checks {

std::vector<TypeDifference> typeDifferences(const parish::Snapshot& parish)
{
    std::vector<TypeDifference> found;
    for (const parish::Person& person : parish.people()) {
        const QString stored = person.type.trimmed();
        const QString byDates = typeByDates(person);
        if (stored != byDates) found.push_back({false, parish::value(person.number), named(person), stored, byDates});
    }
    for (const parish::Family& family : parish.families()) {
        const QString stored = family.type ? QString::number(*family.type) : QString();
        const QString byDates = typeByDates(family);
        if (stored != byDates) found.push_back({true, parish::value(family.number), named(family), stored, byDates});
    }
    return found;
}

} // namespace study::checks
