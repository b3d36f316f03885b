// Message boxes and file dialogs, in Portuguese on every machine.
#pragma once

#include <QString>

enum class Icon
{
    None,
    Information,
    Question,
    Critical
};

// The title of every box and dialog, unless the caller says otherwise.
inline constexpr auto boxTitle = "NUBE - ORV";

// A box with "OK". Waits for the user. An empty title is really empty.
void showMessage(const QString& text, Icon icon = Icon::Information,
                 const QString& title = QString::fromLatin1(boxTitle));

// A box with "Sim" and "Não", "Não" by Escape. True for "Sim". Return is "Não": a "Sim" destroys or leaves something.
bool ask(const QString& text, Icon icon = Icon::Question, const QString& title = QString::fromLatin1(boxTitle));
// The same where "Não" is what loses something, as what was typed: Return is "Sim".
bool askWhetherToStore(const QString& text);

// File dialogs. The filter is in the form "BDP - ORV (*.orv)|*.orv". An empty text means that the user cancelled.
// The save form asks nothing about a file that exists, and appends the filter's suffix to a name that has none. A
// suffix is what follows the last point, up to four letters or digits that aren't a mere number; nothing at all counts,
// too. They begin in `folder`; without one, where the last of them has ended, and the first of all in the user's
// documents (Desktop::lastFolder()).
QString openFileName(const QString& filter, const QString& title = QString::fromLatin1(boxTitle),
                     const QString& folder = {});
QString saveFileName(const QString& filter, const QString& title = QString::fromLatin1(boxTitle),
                     const QString& folder = {});
// The same of a folder that is there, or that the user makes in it.
QString folderName(const QString& title = QString::fromLatin1(boxTitle), const QString& folder = {});

// Shows the hourglass as long as it exists.
class Hourglass
{
public:
    Hourglass();
    ~Hourglass();
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

// Portuguese for the toolkit's own texts (buttons, file dialogs, context menus), and Portuguese dates and numbers.
// Precondition: no window exists yet.
void installPortuguese();
