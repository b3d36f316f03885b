#include "study/checks/codes.h"

#include "common/tipoFam.h"
#include "common/tipoInd.h"
#include "study/checks/words.h"

#include <QStringList>

#include <algorithm>

namespace study::checks {

using parish::Family;
using parish::Person;

QString typeByDates(const Person& person)
{
    const QString stored = person.type.trimmed();
    if (!QStringList{"", "0", "1", "2", "3", "4", "T"}.contains(stored)) return stored;
    const QString open = "T";
    const QString byBirth = tipoPeloNascimento(open, person.birth.isKnown(), person.death.isKnown());
    if (byBirth != open) return byBirth;
    if (person.death.isKnown()) return "2";
    if (!QStringList{"1", "2", "4"}.contains(stored)) return stored;
    return person.unions.empty() && person.assisted.empty() ? "0" : "3";
}

QString typeByDates(const Family& family)
{
    static constexpr int types = 7;
    if (family.type && (*family.type < 1 || *family.type > types)) return QString::number(*family.type);
    const auto isBorn = [](const Person* child) { return child->birth.isKnown(); };
    const auto isDead = [](const parish::Membership& row) {
        return row.member.person && row.member.person->death.isKnown();
    };
    const Person* const mother = motherIn(family);
    return tipoDaFamilia({
        .nascimentoDaMae = mother && mother->birth.isKnown(),
        .obitos = std::ranges::count_if(family.members, isDead) == 2,
        .casamento = family.marriage.isKnown(),
        .nascimentosDosFilhos = std::ranges::all_of(family.children, isBorn),
    });
}

} // namespace study::checks
