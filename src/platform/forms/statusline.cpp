#include "platform/forms/statusline.h"

#include "platform/forms/forms.h"
#include "platform/forms/showntext.h"

#include <QLabel>
#include <QStatusBar>

namespace {

constexpr auto noteName = "statusNote";

QStatusBar* statusBar()
{
    const QWidget* window = Forms::mainWindow();
    return window ? window->findChild<QStatusBar*>() : nullptr;
}

QLabel& noteOf(QStatusBar& bar)
{
    if (auto* note = bar.findChild<QLabel*>(noteName)) return *note;
    auto* note = new QLabel(&bar);
    note->setObjectName(noteName);
    note->setTextFormat(Qt::PlainText);
    bar.addPermanentWidget(note);
    return *note;
}

} // namespace

void showStatus(const QString& text)
{
    if (auto* bar = statusBar()) bar->showMessage(shownText(text));
}

StatusHint::~StatusHint()
{
    auto* bar = statusBar();
    if (bar && !told_.isEmpty() && bar->currentMessage() == told_) bar->showMessage(before_);
}

void StatusHint::tell(const QString& text)
{
    auto* bar = statusBar();
    if (!bar) return;
    if (bar->currentMessage() != told_) before_ = bar->currentMessage();
    told_ = shownText(text);
    bar->showMessage(told_);
}

void showStatusNote(const QString& text, const QString& whole)
{
    auto* bar = statusBar();
    if (!bar) return;
    QLabel& note = noteOf(*bar);
    note.setText(note.fontMetrics().elidedText(text, Qt::ElideRight,
                                               bar->window()->width() / 2)); // the rest is for what is told
    note.setToolTip(shownTip(whole));
    note.setVisible(!text.isEmpty());
}
