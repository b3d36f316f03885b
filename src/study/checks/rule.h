// The rules by which a parish is checked: one entry of a table each.
#pragma once

#include "study/checks/case.h"
#include "study/parish/snapshot.h"

#include <QString>

#include <span>
#include <variant>
#include <vector>

namespace study::checks {

class Check;

// What a rule measures with, and what the user may set otherwise.
struct Limit
{
    const char* name; // "idade"
    double standard;
    const char* title; // "Idade máxima ao óbito", with its unit: "(anos)"
};

// A rule looks at one person, at one family with its children, or at the parish as a whole, and reports to the check.
using OfAPerson = void (*)(const parish::Person&, Check&);
using OfAFamily = void (*)(const parish::Family&, Check&);
using OfTheParish = void (*)(const parish::Snapshot&, Check&);

struct Rule
{
    const char* id; // "P-01"
    Severity severity;
    const char* title; // "Óbito antes do nascimento"
    std::variant<OfAPerson, OfAFamily, OfTheParish> look;
    std::vector<Limit> limits = {};
    const char* remark = ""; // what may be right all the same, for whom the case puzzles
    bool standard = true;    // whether it is asked where the user has set nothing
};

// All rules, in the order of their groups: people, marriages, families, children, acts, dated lists, wills, codes and
// what leads nowhere, series.
const std::vector<Rule>& rules();
const Rule* ruleOf(const QString& id); // null: there is none

// The groups, each in a file of its own.
std::vector<Rule> personRules();
std::vector<Rule> marriageRules();
std::vector<Rule> familyRules();
std::vector<Rule> childRules();
std::vector<Rule> siblingRules();
std::vector<Rule> birthRules();
std::vector<Rule> actRules();
std::vector<Rule> assistantRules();
std::vector<Rule> listRules();
std::vector<Rule> willRules();
std::vector<Rule> codeRules();
std::vector<Rule> lostRules();
std::vector<Rule> ownCodeRules();
std::vector<Rule> seriesRules();

} // namespace study::checks
