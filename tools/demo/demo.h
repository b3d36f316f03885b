// The demonstration BDP.
#pragma once

#include "parish.h"

#include "platform/jet/connection.h"

#include <QString>

namespace demo {

inline constexpr std::uint32_t seed = 1896;

// The parish of the demonstration: a chronicle, the households told by hand, and what the registers tell around them.
Parish demonstration();

// Makes the BDP at `path`, where no file may stand, with the reference data of `dataFolder`. Throws jet::Error.
void make(const QString& path, const QString& dataFolder);

// Writes the parish into a BDP that has its reference data, in one transaction.
void write(const Parish& parish, jet::Connection& bdp);

} // namespace demo
