#include "platform/forms/cuttext.h"

#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"

#include <QApplication>
#include <QClipboard>

void tellCut(const QString& whole, qsizetype fitting, int limit)
{
    QClipboard* clipboard = QApplication::clipboard();
    if (clipboard->text() != whole) clipboard->setText(whole);
    const QString told = QStringLiteral("O texto tem %1 caracteres, mas só couberam %2: o campo leva no máximo %3.\r\n"
                                        "O texto inteiro está na área de transferência.")
                             .arg(whole.size())
                             .arg(fitting)
                             .arg(limit);
    QMetaObject::invokeMethod(
        qApp, [told] { showMessage(told); }, Qt::QueuedConnection);
}

void tellFull(int limit)
{
    QApplication::beep();
    showStatus(QStringLiteral("O campo está cheio: leva no máximo %1 caracteres.").arg(limit));
}

void tellUnshown()
{
    showStatus(QStringLiteral("O texto é demasiado longo para ser mostrado todo: o resto mantém-se."));
}
