// Codes of the researcher's own, of which the rules know nothing.
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <vector>

namespace study::checks {

using parish::Family;
using parish::Person;

namespace {

// What the rules ask by code, and the codes that they know: those of the reference data.
struct Category
{
    const char* name;
    const char* subject;
    int last;              // from 1
    QStringList also = {}; // beside the numbers
};

const std::vector<Category>& categories()
{
    static const std::vector<Category> all{{"EstCi", "estado civil", 8},
                                           {"Filia", "filiação", 16},
                                           {"SitFa", "situação da família", 11},
                                           {"TipFa", "tipo de família", 7},
                                           {"TipIn", "tipo de indivíduo", 4, {"0", "T"}}};
    return all;
}

bool knows(const Category& category, const QString& code)
{
    bool isNumber = false;
    const int number = code.toInt(&isNumber);
    return (isNumber && number >= 1 && number <= category.last) || category.also.contains(code);
}

// How often each code is used, by category.
class OwnUses
{
public:
    void add(const char* category, const QString& code)
    {
        if (!code.isEmpty()) ++times_[category][code];
    }
    void add(const char* category, parish::Code code)
    {
        if (code) add(category, QString::number(*code));
    }
    QMap<QString, qint64> of(const char* category) const { return times_.value(category); }

private:
    QMap<QString, QMap<QString, qint64>> times_;
};

OwnUses usesIn(const parish::Snapshot& parish)
{
    OwnUses uses;
    for (const Person& person : parish.people()) {
        uses.add("TipIn", person.type.trimmed());
        uses.add("Filia", person.filiation);
        for (const parish::Code state : {person.fatherState, person.motherState, person.stateAtDeath})
            uses.add("EstCi", state);
    }
    for (const Family& family : parish.families()) {
        uses.add("SitFa", family.situation);
        uses.add("TipFa", family.type);
    }
    for (const parish::Membership& row : parish.memberships())
        uses.add("EstCi", row.state);
    for (const parish::Assistance& row : parish.assistances())
        uses.add("EstCi", row.state);
    return uses;
}

// One that is in no table either is told by another rule.
void useOwnCodes(const parish::Snapshot& parish, Check& check)
{
    const OwnUses uses = usesIn(parish);
    for (const Category& category : categories()) {
        const QMap<QString, qint64> codes = uses.of(category.name);
        const auto known = parish.catalogue().codes.value(category.name);
        for (auto at = codes.cbegin(); at != codes.cend(); ++at) {
            if (knows(category, at.key()) || !known.contains(at.key())) continue;
            check.report(
                {.text = QString("O código %1 de %2, %3, é próprio desta BDP e é usado %4: as regras não o têm "
                                 "em conta.")
                             .arg(at.key(), category.subject, described(parish, category.name, at.key()),
                                  howMany(*at, "vez", "vezes")),
                 .people = {},
                 .families = {},
                 .when = {},
                 .about = QString(category.name) + ' ' + at.key()});
        }
    }
}

} // namespace

std::vector<Rule> ownCodeRules()
{
    return {
        {"K-12",
         Severity::Information,
         "Código próprio, que as regras não conhecem",
         useOwnCodes,
         {},
         "Nada está errado: mas quem o tem não é dado por solteiro, casado, legítimo ou ilegítimo em nenhuma regra."},
    };
}

} // namespace study::checks
