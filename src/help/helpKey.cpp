#include "help/helpKey.h"

#include "common/modGeral.h"
#include "help/frmManual.h"
#include "platform/desktop/desktop.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPointer>

#include <algorithm>

namespace help {

namespace {

QPointer<FrmManual> beside; // the window that stays

QString formInFront()
{
    for (QWidget* window : Forms::loaded())
        if (const auto* form = qobject_cast<Form*>(window); form && form->isActive()) return form->name();
    return {};
}

// Empty where the manual has nothing of what is in front.
QString idInFront(const Manual& manual, const QWidget* dialog)
{
    if (const auto* box = qobject_cast<const QMessageBox*>(dialog))
        if (const Entry* entry = manual.explaining(box->text())) return entry->id;
    return formInFront();
}

bool isKey(const QEvent* event)
{
    if (event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<const QKeyEvent*>(event);
    return key->key() == Qt::Key_F1 && key->modifiers() == Qt::ShiftModifier;
}

class Key : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (!isKey(event) || !watched->isWidgetType() || !QApplication::activeModalWidget()) return false;
        showForFront();
        return true;
    }
};

} // namespace

void showForFront()
{
    QWidget* dialog = QApplication::activeModalWidget();
    if (qobject_cast<FrmManual*>(dialog)) return;
    const Manual manual(Desktop::programFolder() + "/manual");
    if (!manual.isThere()) return showMessage("Não foi possível encontrar o ficheiro!", Icon::None);
    const QString id = idInFront(manual, dialog);
    if (dialog) {
        auto* over = new FrmManual(manual, dialog);
        over->setWindowModality(Qt::WindowModal);
        return over->showPage(id);
    }
    if (!beside) beside = new FrmManual(manual, Forms::mainWindow());
    beside->showPage(id);
}

void installKey()
{
    static QPointer<Key> key;
    if (key) return;
    key = new Key(qApp);
    qApp->installEventFilter(key);
}

} // namespace help
