// Where the Tab key leads on a form.
#pragma once

class QWidget;

// The next control in the tab order of `form` that the Tab key stops at, behind `from` or before it; the first one or
// the last where `from` is none of the form's. Null: no other. It stops at what is open: locked fields are passed over.
// A group of radios is one stop: the radio that is chosen, or else its first.
QWidget* nextTabStop(QWidget* form, QWidget* from, bool forward);
