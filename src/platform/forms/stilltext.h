// A label whose text changes with every record.
#pragma once

class QLabel;
class QString;

// Sets the text, of one line, and gives the label that one size: the window is laid out anew only where the text has no
// room, or where the last one needed much. A label has all its texts from here, or may cut them.
void setStillText(QLabel* label, const QString& text);
