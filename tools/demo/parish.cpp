#include "parish.h"

#include "chronicle.h"

namespace demo {

QList<const Person*> Parish::childrenOf(Nfam family) const
{
    QList<const Person*> children;
    for (const Person& person : people)
        if (person.origin == family) children.append(&person);
    return children;
}

int completedYears(QDate from, QDate to)
{
    const bool before = std::pair(to.month(), to.day()) < std::pair(from.month(), from.day());
    return to.year() - from.year() - before;
}

Parish simulate(std::uint32_t seed)
{
    return Chronicle(seed).run();
}

const QList<Locality>& localities()
{
    static const QList<Locality> all{
        {"Igreja", {"Adro", "Residência"}},         {"Ribeira de Cima", {"Azenha", "Ponte"}},
        {"Ribeira de Baixo", {"Moinhos", "Ínsua"}}, {"Outeiro", {}},
        {"Paço", {"Quinta do Paço", "Eira"}},       {"Souto", {}},
        {"Casal Novo", {"Fonte", "Lameira"}},       {"Barreiro", {}},
    };
    return all;
}

const QStringList& neighbours()
{
    static const QStringList codes{"030866", "030867", "030868", "030869", "030872"};
    return codes;
}

} // namespace demo
