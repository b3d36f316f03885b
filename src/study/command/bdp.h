// How the command opens a BDP.
#pragma once

#include "platform/jet/connection.h"

#include <QString>

namespace study {

// Throws jet::Error, in Portuguese, also where the file is no BDP, or one that the program has to bring up to date
// first.
void openBdp(jet::Connection& bdp, const QString& path, jet::Connection::Sharing sharing);

// For who only reads: as Shared, and ReadOnly where nobody may write the file or its folder.
void openBdpToRead(jet::Connection& bdp, const QString& path);

} // namespace study
