// What hangs on people, as they go by. For this room alone.
#pragma once

#include "study/exchange/gedcom_p.h"

namespace study::exchange {

struct GedcomWriter::OfPeople
{
    OfPeople(const jet::Connection& bdp, GedcomVersion version);

    OwnedRows godparents, residences, professions, signatures, bequests, suffrages, passports, families;
    OwnedRows baptisms, burials; // the acts
    // In 5.5.1, of the wife of each family, or of who stands in her place: assistants, and priests.
    OwnedRows witnesses, priests;
};

// Selects the cards, in the order of their numbers; cardAt() reads one.
extern const char* const peopleSelect;
PersonCard cardAt(const jet::Rows& row);

// Columns of an assistant from number to date, in a select with "s" for assistente and "a" for the card of who
// assisted.
extern const char* const assistantColumns;

} // namespace study::exchange
