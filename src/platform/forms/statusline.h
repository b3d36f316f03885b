// The line at the foot of the main window.
#pragma once

#include <QPointer>
#include <QStatusBar>
#include <QString>

// The main window's; null where there is none.
QStatusBar* mainStatusBar();

// Shows the text in the main window's status bar, in place of what stood there, until the next one. Asks nothing and
// takes no focus. Without a main window, or where that has no status bar, it does nothing.
void showStatus(const QString& text);

// What a form tells there of the step that comes next. When the form has gone, what stood there before comes back,
// unless something else has been told meanwhile.
class StatusHint
{
public:
    StatusHint() = default;
    ~StatusHint();
    StatusHint(const StatusHint&) = delete;
    StatusHint& operator=(const StatusHint&) = delete;

    void tell(const QString& text);

private:
    QPointer<QStatusBar> bar_;
    QString before_, told_;
};

// Shows a note at the right end of the status bar, which stands beside the text and stays; "" takes it away. A long one
// is cut short; `whole` is told by its tip.
void showStatusNote(const QString& text, const QString& whole);
