// A step that keeps the program busy for long, and the key that ends it.
#pragma once

#include <QString>

// Between the first call of escapePressed() and ended(), nothing that the user does acts, and nothing is painted but
// the status bar: keys, clicks and the like are kept, and act in their order when the program is back in the event
// loop. Escape alone is taken away.
namespace LongWork {

// Whether Escape was pressed since the last call.
bool escapePressed();

// Shows the text in the status bar, until ended() brings back what stood there.
void tell(const QString& text);

void ended();

} // namespace LongWork
