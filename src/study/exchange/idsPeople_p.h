// What hangs on people, as INDIVIDUAL has it. For this room alone.
#pragma once

#include "study/exchange/gedcomPeople_p.h"
#include "study/exchange/ids_p.h"

namespace study::exchange {

struct IdsWriter::OfPeople
{
    explicit OfPeople(const jet::Connection& bdp);

    OwnedRows unions, professions, signatures, passports;
    OwnedRows assisted;  // acts at which the person assisted
    OwnedRows inherited; // of whom
    OwnedRows suffrages, baptisms, burials;
};

} // namespace study::exchange
