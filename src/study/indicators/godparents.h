// What godparenthood and its network share: which acts count, who is a person, where people live.
#pragma once

#include "study/indicators/givenName.h"
#include "study/indicators/subject.h"

namespace study::indicators {

// The code of a kinship, as it counts.
enum Kin : qint32
{
    UnknownKin,
    NoKin,
    Paternal,
    Maternal,
    OtherKin
};
// Grandparents and uncles have a side; from "compadre" to "sem parentesco" no kin, but for the kin of a degree that
// isn't told; a code of the researcher's own is unknown.
Kin kinOf(parish::Code code);

// Whether the baptism of a child is one of this study: of the parish, its books, period, gender and legitimacy.
bool isCountedBaptism(const parish::Person& child, const Study& study);

// Whether an assistant has a card and is no saint.
bool isPerson(const parish::Assistance& act, GivenNames& known);
bool isCleric(const parish::Assistance& act); // Precondition: the assistant has a card

// Where somebody lived on a day: the last residence until then, or the first behind it, the own ones before those of a
// family of theirs. Null where none is told.
const parish::Residence* homeOf(const parish::Person& person, QDate day);
const parish::Residence* homeOf(const parish::Family& family, QDate day);

} // namespace study::indicators
