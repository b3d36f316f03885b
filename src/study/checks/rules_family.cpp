// What cannot be in a family as the card has it.
#include "study/checks/parts.h"

namespace study::checks {

std::vector<Rule> familyRules()
{
    return joined({familyCardRules(), familyCycleRules(), familyDoubleRules(), familyChildRules()});
}

} // namespace study::checks
