// What a field tells of a text that it has no room for.
#pragma once

#include <QString>

// Of the text that was pasted, dropped or composed only `fitting` characters had room in a field of `limit`. The
// clipboard has the whole text from now on. A box tells so, behind the event under way.
void tellCut(const QString& whole, qsizetype fitting, int limit);

// A key had no room in a field of `limit` characters.
void tellFull(int limit);

// Of a text of the program the field shows the beginning alone.
void tellUnshown();
