#include "store/sessionChange.h"

#include "platform/forms/forms.h"
#include "platform/forms/showntext.h"

namespace {
std::function<void()> beginAnew;
QString caption;
} // namespace

void clearSession()
{
    Forms::unloadAll();
    if (beginAnew) beginAnew(); // a search left behind would bar every insert in the next BDP
}

void onClearSession(std::function<void()> begin)
{
    beginAnew = std::move(begin);
}

void setSessionCaption(const QString& text)
{
    caption = text;
    if (QWidget* window = Forms::mainWindow()) window->setWindowTitle(shownText(caption, 500));
}

QString sessionCaption()
{
    return caption;
}
