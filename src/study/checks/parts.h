// The groups of people, marriages and families in parts, each in a file of its own. For this room alone.
#pragma once

#include "study/checks/rule.h"

namespace study::checks {

std::vector<Rule> personAgeRules();
std::vector<Rule> personStateRules();
std::vector<Rule> personDateRules();
std::vector<Rule> personObservationRules();
std::vector<Rule> personColumnRules();
std::vector<Rule> personDoubleRules();

std::vector<Rule> marriageAgeRules();
std::vector<Rule> marriageOrderRules();
std::vector<Rule> marriageKinRules();
std::vector<Rule> marriageCoupleRules();

std::vector<Rule> familyCardRules();
std::vector<Rule> familyCycleRules();
std::vector<Rule> familyDoubleRules();
std::vector<Rule> familyChildRules();

// As one group, in the order of their numbers.
std::vector<Rule> joined(std::vector<std::vector<Rule>> parts);

} // namespace study::checks
