// Words beside the names: all in small letters without accents. For this room alone.
#pragma once

#include <QHash>
#include <QSet>
#include <QString>

namespace study::lexicon {

const QSet<QString>& particles(); // "de", "d'"

// How titles are written, without full stops and hyphens, and how they are shown.
const QHash<QString, QString>& titles();

const QSet<QString>& states();  // which an act may give in the place of a name or behind it: "exposto"
const QSet<QString>& tags();    // which tell two of one name apart: "velho"
const QSet<QString>& noNames(); // texts that stand where no name is told

} // namespace study::lexicon
