// The line at the foot of the main window.
#pragma once

#include <QString>

// Shows the text in the main window's status bar, in place of what stood there, until the next one. Asks nothing and
// takes no focus. Without a main window, or where that has no status bar, it does nothing.
void showStatus(const QString& text);
