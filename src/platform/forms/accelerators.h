// Which control of a form a letter with Alt means.
#pragma once

class QKeySequence;
class QWidget;

struct LetterBearer
{
    QWidget* control = nullptr; // an open button, or the bar of the pages
    int page = -1;              // of the bar
    bool shut = false;          // no open control bears the letter, and a button in sight does that is shut
};

// The next bearer of the letter behind `from` in the tab order of `form`; `from` itself comes last.
LetterBearer nextBearer(const QWidget* form, QWidget* from, const QKeySequence& letter);
