// Records whose type is another one than what is known of them tells.
#pragma once

#include "study/parish/snapshot.h"

#include <QString>

#include <vector>

namespace study::checks {

struct TypeDifference
{
    bool isFamily = false;
    qint64 number = 0;
    QString who = {};    // "Manuel de Abreu (nº 29)", "a família nº 12 de Manuel de Abreu e Joana Lopes"
    QString stored = {}; // "" for none
    QString byDates = {};

    bool operator==(const TypeDifference&) const = default;
};

// People, then families, by their numbers. What typeByDates() leaves to the researcher is no difference.
std::vector<TypeDifference> typeDifferences(const parish::Snapshot& parish);

} // namespace study::checks
