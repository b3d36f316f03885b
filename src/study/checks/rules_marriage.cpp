// What cannot be between two who married.
#include "study/checks/parts.h"

namespace study::checks {

std::vector<Rule> marriageRules()
{
    return joined({marriageAgeRules(), marriageOrderRules(), marriageKinRules(), marriageCoupleRules()});
}

} // namespace study::checks
