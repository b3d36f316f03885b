// A step that keeps the program busy for long, and the key that ends it.
#pragma once

#include <QString>

class QAbstractButton;
class QWidget;

// Between the first call of escapePressed() or cancelled() and ended(), nothing that the user does acts, and nothing is
// painted but the status bar: keys, clicks and the like are kept, and act in their order when the program is back in
// the event loop. Escape alone is taken away.
namespace LongWork {

// Whether Escape was pressed since the last call.
bool escapePressed();

// The same for work that shows on `shown` how far it is: that is painted, too, and a click on `cancel`, or the key that
// presses it, counts as Escape. No other click comes back afterwards: it was meant for what the window showed then.
bool cancelled(QWidget& shown, QAbstractButton& cancel);

// Shows the text in the status bar, until ended() brings back what stood there.
void tell(const QString& text);

void ended();

} // namespace LongWork
