#include "platform/forms/statusline.h"

#include "platform/forms/forms.h"
#include "platform/forms/showntext.h"

#include <QStatusBar>

void showStatus(const QString& text)
{
    const QWidget* window = Forms::mainWindow();
    if (auto* bar = window ? window->findChild<QStatusBar*>() : nullptr) bar->showMessage(shownText(text));
}
