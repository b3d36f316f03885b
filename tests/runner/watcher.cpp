#include "watcher.h"

#include "failure.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

QString iconOf(const QMessageBox* box)
{
    switch (box->icon()) {
    case QMessageBox::NoIcon:
        return "none";
    case QMessageBox::Information:
        return "information";
    case QMessageBox::Question:
        return "question";
    case QMessageBox::Warning:
        return "warning";
    case QMessageBox::Critical:
        return "critical";
    }
    return {};
}

QAbstractButton* buttonOf(const QMessageBox* box, bool yes)
{
    const auto buttons = box->buttons();
    for (QAbstractButton* button : buttons)
        if (box->buttonRole(button) == (yes ? QMessageBox::YesRole : QMessageBox::NoRole)) return button;
    return nullptr;
}

void press(QWidget* button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

void pressReturn(QDialog* dialog)
{
    QWidget* focused = dialog->focusWidget();
    QTest::keyClick(focused ? focused : dialog, Qt::Key_Return);
}

} // namespace

Watcher::Watcher(Stage& stage, std::function<void(const QString&)> onFailure)
    : stage_(stage), onFailure_(std::move(onFailure))
{
    qApp->installEventFilter(this);
}

QWidget* Watcher::keptSplash() const
{
    return stage_.state.splashKept && splash_ && splash_->isVisible() ? splash_.data() : nullptr;
}

bool Watcher::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Show || !watched->isWidgetType()) return false;
    auto* widget = static_cast<QWidget*>(watched);
    if (auto* dialog = qobject_cast<QDialog*>(widget)) {
        QTimer::singleShot(0, dialog, [this, dialog] { attend(dialog); });
    } else if (widget->objectName() == "SplashForm") {
        splash_ = widget;
        QTimer::singleShot(0, widget, [this, widget] {
            if (!stage_.state.splashKept && widget->isVisible()) QTest::keyClick(widget, Qt::Key_Escape);
        });
    }
    return false;
}

void Watcher::attend(QDialog* dialog)
{
    if (!dialog->isVisible()) return;
    if (auto* box = qobject_cast<QMessageBox*>(dialog))
        attend(box);
    else if (auto* files = qobject_cast<QFileDialog*>(dialog))
        attend(files);
    else
        onFailure_("an unforeseen dialog: " + quoted(dialog->windowTitle()));
}

void Watcher::attend(QMessageBox* box)
{
    State& state = stage_.state;
    state.accounts.spend({.boxes = 1});
    Box record{box->text(), box->windowTitle(), iconOf(box), box->buttons().size() > 1};
    QAbstractButton* button = box->buttons().value(0);
    bool byReturn = false;
    if (record.question) {
        if (state.answers.isEmpty()) onFailure_("an unforeseen question: " + quoted(record.text));
        const Answer answer = state.answers.takeFirst();
        byReturn = answer == Answer::Return;
        button = buttonOf(box, answer == Answer::Yes);
    }
    if (!button) onFailure_("a box without the button that it needs: " + quoted(record.text));
    state.boxes.append(record);
    stage_.save();
    if (byReturn) return pressReturn(box);
    press(button);
}

void Watcher::attend(QFileDialog* dialog)
{
    State& state = stage_.state;
    state.accounts.spend({.boxes = 1});
    if (state.picks.isEmpty()) onFailure_("an unforeseen file dialog: " + quoted(dialog->windowTitle()));
    const QString path = state.picks.takeFirst();
    stage_.save();
    if (path.isEmpty())
        QTest::keyClick(dialog, Qt::Key_Escape);
    else
        pick(dialog, path);
}

void Watcher::pick(QFileDialog* dialog, const QString& path)
{
    const bool opens = dialog->acceptMode() == QFileDialog::AcceptOpen;
    auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
    const auto* buttons = dialog->findChild<QDialogButtonBox*>("buttonBox");
    QWidget* accept = buttons ? buttons->button(opens ? QDialogButtonBox::Open : QDialogButtonBox::Save) : nullptr;
    if (!name || !accept) return onFailure_("a file dialog without a field for the name, or without its button");
    name->selectAll();
    name->insert(path);
    press(accept);
    QTimer::singleShot(0, dialog, [this, dialog, path] {
        if (dialog->isVisible()) onFailure_("the file dialog doesn't take " + quoted(path));
    });
}
