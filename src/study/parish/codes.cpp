#include "study/parish/codes.h"

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace study::parish {

bool isOutOfWedlock(Code filiation)
{
    static constexpr int codes[]{filiation::natural,        filiation::fatherUnknown, filiation::motherUnknown,
                                 filiation::parentsUnknown, filiation::adulterine,    filiation::sacrilegious,
                                 filiation::incestuous,     filiation::spurious};
    return filiation && std::ranges::find(codes, *filiation) != std::end(codes);
}

bool isMarried(const Family& family)
{
    static const QStringList codes{situation::legitimate, situation::presumedLegitimate, situation::madeLegitimate};
    return codes.contains(family.situation);
}

bool isLegitimate(const Family& family)
{
    static const QStringList codes{situation::legitimate, situation::presumedLegitimate};
    return codes.contains(family.situation);
}

bool isUnmarried(const Family& family)
{
    static const QStringList codes{situation::fatherUnknown,  situation::motherUnknown, situation::bothKnown,
                                   situation::unmarriedUnion, situation::adulterine,    situation::sacrilegious};
    return codes.contains(family.situation);
}

} // namespace study::parish
