#include "platform/forms/accelerators.h"

#include <QAbstractButton>
#include <QKeySequence>
#include <QTabBar>

namespace {

// The page that bears the letter, the first one behind the page in front; -1 if none does.
int pageWith(const QTabBar* bar, const QKeySequence& letter)
{
    for (int step = 1; step <= bar->count(); ++step) {
        const int page = (bar->currentIndex() + step) % bar->count();
        if (bar->isTabVisible(page) && bar->isTabEnabled(page) && QKeySequence::mnemonic(bar->tabText(page)) == letter)
            return page;
    }
    return -1;
}

} // namespace

LetterBearer nextBearer(const QWidget* form, QWidget* from, const QKeySequence& letter)
{
    LetterBearer bearer;
    QWidget* const start = from ? from : const_cast<QWidget*>(form);
    QWidget* control = start;
    do {
        control = control->nextInFocusChain();
        if (!form->isAncestorOf(control) || !control->isVisible()) continue;
        if (const auto* bar = qobject_cast<QTabBar*>(control); bar && bar->isEnabled()) {
            if (const int page = pageWith(bar, letter); page >= 0) return {control, page};
        } else if (const auto* button = qobject_cast<QAbstractButton*>(control); button && button->shortcut() == letter)
        {
            if (button->isEnabled()) return {control};
            bearer.shut = true;
        }
    } while (control != start);
    return bearer;
}
