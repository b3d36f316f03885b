#include "fuzz/targets.h"

void Fuzz::require(bool holds, const QString& what)
{
    if (!holds) throw Broken{what};
}
