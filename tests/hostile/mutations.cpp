#include "mutations.h"

#include <QStringList>

QString mutate(Site& site, Dice& dice)
{
    using Family = const QList<Mutation>& (*)();
    static constexpr Family inside[] = {byteMutations,  byteMutations,     valueMutations,
                                        valueMutations, relationMutations, schemaMutations};
    static constexpr Family around[] = {companyMutations, kindMutations};
    QStringList names;
    const auto spoil = [&](Family family) {
        const Mutation& mutation = dice.of(family());
        names << mutation.name;
        mutation.make(site, dice);
    };
    const bool aroundOnly = dice.chance(10);
    for (int count = aroundOnly ? 0 : 1 + dice.below(3); count > 0; --count)
        spoil(dice.of(inside));
    if (aroundOnly || dice.chance(15)) spoil(dice.of(around));
    return names.join(", ");
}
