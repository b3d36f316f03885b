// What cannot be in the life of one person.
#include "study/checks/parts.h"

namespace study::checks {

std::vector<Rule> personRules()
{
    return joined({personAgeRules(), personStateRules(), personDateRules(), personObservationRules(),
                   personColumnRules(), personDoubleRules()});
}

} // namespace study::checks
