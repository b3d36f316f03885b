// What transcriptions tell of the books that their acts stand in (table estudo_fonte, made when first needed).
#pragma once

#include "platform/jet/connection.h"
#include "study/transcripts/transcript.h"

#include <QList>
#include <QStringList>

namespace study {

// Adds those that tell more than their id and aren't there to the letter. Returns what each of them tells, as a line of
// a report. Within the transaction of the caller, where there is one. Throws jet::Error.
QStringList keepSources(jet::Connection& bdp, const QList<Source>& sources);

// In the order in which they were kept; without lines. Throws jet::Error.
QList<Source> keptSources(jet::Connection& bdp);

} // namespace study
