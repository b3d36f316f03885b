// The causes of death of a short list, by the words of the acts.
#pragma once

#include "study/indicators/settings.h"

#include <QString>

namespace study::indicators {

inline constexpr int causesOfTheList = 14; // the last one is "outra"

QString nameOfCause(int cause);   // from 0 on: "Bexigas (varíola)"
QString idOfCause(int cause);     // "bexigas": of the settings
int causeById(const QString& id); // -1 for an unknown one

// The first cause whose beginning of a word is told: those of the settings before those of the list. "Outra" where none
// is: nothing is inferred.
int causeOf(const QString& told, const Settings& settings);

} // namespace study::indicators
