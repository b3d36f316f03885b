#include "platform/forms/statusline.h"

#include "platform/forms/forms.h"
#include "platform/forms/showntext.h"

#include <QLabel>

namespace {

constexpr auto noteName = "statusNote";

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

QStatusBar* mainStatusBar()
{
    const QWidget* window = Forms::mainWindow();
    return window ? window->findChild<QStatusBar*>() : nullptr;
}

void showStatus(const QString& text)
{
    if (auto* bar = mainStatusBar()) bar->showMessage(shownText(text));
}

// The bar isn't looked for here: the windows are just being taken down.
StatusHint::~StatusHint()
{
    if (bar_ && !told_.isEmpty() && bar_->currentMessage() == told_) bar_->showMessage(before_);
}

void StatusHint::tell(const QString& text)
{
    if (!bar_) bar_ = mainStatusBar();
    if (!bar_) return;
    if (bar_->currentMessage() != told_) before_ = bar_->currentMessage();
    told_ = shownText(text);
    bar_->showMessage(told_);
}

void showStatusNote(const QString& text, const QString& whole)
{
    auto* bar = mainStatusBar();
    if (!bar) return;
    QLabel& note = noteOf(*bar);
    note.setText(note.fontMetrics().elidedText(text, Qt::ElideRight,
                                               bar->window()->width() / 2)); // the rest is for what is told
    note.setToolTip(shownTip(whole));
    note.setVisible(!text.isEmpty());
}
