// Ways out and in as a window tells of them.
#pragma once

#include "study/exchange/ways.h"

#include <QString>

namespace study {

// What was written, then the warnings and the errors, a line each.
QString reportOn(const exchange::Exchanged& told);

// Where an export of the BDP is proposed to go: "…/moinhos.ged", or "…/moinhos-tabelas", in that folder.
QString proposedTarget(const exchange::WayOut& way, const QString& bdp, const QString& folder);

// What the user has typed as a whole path: beginning in `folder`, with the suffix where it has none. "" stays "".
QString wholePath(const QString& typed, const QString& folder, const QString& suffix);

// Another one once a file of what is read was altered: of a file, or of those in a folder.
QString stampOf(const QString& source);

} // namespace study
