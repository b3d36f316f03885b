// Texts from a file, as far as a screen shows them: laying out a line takes longer the longer it is.
#pragma once

#include <QString>

// The beginning of a long text, with "…" behind it; a shorter one as it is.
QString shownText(const QString& text, int longest = 1000);

// What a box has room for, with long words broken: the beginning and the end of a long text, with "…" between them.
QString shownLines(const QString& text);

// The beginning with long words broken, for a tool tip or a label, which would take a text with tags for a document of its own.
QString shownTip(const QString& text);
