#pragma once

namespace bench {

// Runs what waits in the event loop: painting, layouts, the end of windows that were closed.
void settle();

} // namespace bench
