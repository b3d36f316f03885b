#include "study/checks/signs.h"

#include "study/checks/told.h"

#include <algorithm>

namespace study::checks {

namespace {

void addUnions(std::vector<Sign>& signs, const parish::Person& person)
{
    for (const parish::Membership* row : person.unions) {
        if (!row->family) continue;
        signs.push_back({row->family->marriage, "casamento", row->family->place});
        for (const parish::Person* child : row->family->children)
            signs.push_back({child->birth, "baptismo " + of(*child), child->birthPlace});
    }
}

} // namespace

std::vector<Sign> signsOfLife(const parish::Person& person)
{
    std::vector<Sign> signs;
    addUnions(signs, person);
    for (const parish::Assistance* row : person.assisted)
        signs.push_back({row->date, row->godparent ? "apadrinhamento" : "testemunho", {}});
    for (const parish::Residence& row : person.residences)
        signs.push_back({row.date, "residência", row.place});
    for (const parish::Profession& row : person.professions)
        signs.push_back({row.date, "profissão", {}, true});
    for (const parish::Signature& row : person.signatures)
        signs.push_back({row.date, "assinatura", {}, true});
    for (const parish::Passport& row : person.passports)
        signs.push_back({row.date, "passaporte", {}});
    std::erase_if(signs, [](const Sign& sign) { return !sign.date.isKnown(); });
    std::ranges::stable_sort(signs, {}, [](const Sign& sign) { return sign.date.day; });
    return signs;
}

} // namespace study::checks
