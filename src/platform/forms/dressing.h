// What a form gets when it is loaded, before it is shown.
#pragma once

#include <QRect>
#include <QSize>

class QWidget;

// Gives each control without an accessible name the text of the labels that are its buddies, for screen readers; a
// frame its title. A drop-down list with a name is told by a label beside it, which isn't seen where the form has none.
void nameControls(QWidget* form);

// Tells in the tip of each button the keys of one that its caption doesn't show: "..." has no room for a letter.
void tellShortcuts(QWidget* form);

// Gives the fields that say so in the .ui ("looksLocked": they are filled by a dialog, and never typed in) the colour
// of the window, also after the colours of the desktop have changed.
void showLockedFields(QWidget* form);

// How much wider the letters are than those that the forms were drawn with; 1 at least.
double fontScale(const QWidget* form);

// Widens the widths that the form fixes for its controls, so that they hold as many letters as they were drawn for, and
// heightens its lists, so that they show as many rows at least.
void followFont(QWidget* form);

// Sees to it that what the form's fields, lists and check boxes hold, and the titles of its frames, can be read while
// they are disabled, also after the colours of the desktop have changed.
void keepFieldsReadable(QWidget* form);

// Where a window of `size` goes in an area of `room`: beside `caller`, below it, or else a step off, where it covers
// the least of it; wholly within the area if it fits in. Without a caller (an empty rectangle) it stands in the corner.
QPoint placeBeside(const QRect& caller, const QSize& size, const QSize& room, int step);
