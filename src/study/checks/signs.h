// When a person was certainly alive, by what the snapshot has.
#pragma once

#include "study/parish/snapshot.h"

#include <QString>

#include <vector>

namespace study::checks {

struct Sign
{
    parish::Date date = {}; // known
    QString what = {};      // "casamento", "baptismo de Rui (nº 3)", "testemunha"
    parish::Place place = {};
    bool isOfTheParish = false; // told by its books, though without a place
};

// By their dates: marriages, births of own children, assistances, residences, professions, signatures, passports.
// Neither the birth nor the death. A child may be born 300 days behind its father's death.
std::vector<Sign> signsOfLife(const parish::Person& person);

} // namespace study::checks
