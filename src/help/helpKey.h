// Help where one is: the page of the manual for what stands in front.
#pragma once

class QWidget;

namespace help {

// Shows the manual at the page of the form in front, or of the message where a box stands in front, which it is shown
// over then; at its beginning where the manual says nothing of it. Where there is no manual, says so as F1 does.
void showForFront();

// Shift+F1 in boxes and file dialogs, where the keys of the menus don't work.
void installKey();

} // namespace help
