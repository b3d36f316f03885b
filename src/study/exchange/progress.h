// How a way in or out asks whether it goes on.
#pragma once

#include "study/parish/snapshot.h"

namespace study::exchange {

using GoesOn = parish::Snapshot::GoesOn;
using Interrupted = parish::Snapshot::Interrupted;

} // namespace study::exchange
