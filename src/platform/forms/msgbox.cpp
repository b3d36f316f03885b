#include "platform/forms/msgbox.h"

#include "platform/desktop/lastchoices.h"
#include "platform/forms/forms.h"
#include "platform/forms/showntext.h"

#include <QApplication>
#include <QCursor>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QWindow>

namespace {

int hourglasses = 0;

// While a box waits for an answer, the user has the usual pointer; afterwards the window in use gets the keyboard back,
// even if the desktop doesn't see to it.
class Interruption
{
public:
    Interruption() : active_(QApplication::activeWindow() ? QApplication::activeWindow() : Forms::mainWindow())
    {
        if (hourglasses > 0) QApplication::restoreOverrideCursor();
    }
    ~Interruption()
    {
        if (hourglasses > 0) QApplication::setOverrideCursor(Qt::WaitCursor);
        if (active_ && active_->isVisible()) active_->activateWindow();
    }
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

private:
    QPointer<QWidget> active_;
};

QMessageBox::Icon boxIcon(Icon icon)
{
    switch (icon) {
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

void fill(QMessageBox& box, const QString& text, Icon icon, const QString& title)
{
    QString lines = text;
    box.setTextFormat(Qt::PlainText);
    box.setText(shownLines(lines.replace(QLatin1String("\r\n"), QLatin1String("\n"))));
    box.setIcon(boxIcon(icon));
    box.setWindowTitle(title);
    if (title.isEmpty()) {
        // Some desktops show the program's name for an empty title; a blank in the frame keeps it empty.
        box.winId();
        box.windowHandle()->setTitle(QStringLiteral(" "));
    }
}

struct Filter
{
    QStringList names; // as the dialog wants them: "BDP - ORV (*.orv)"
    QString suffix;    // of the first: "orv"; empty for any file
};

// Pairs of description and pattern, all separated by "|".
Filter parseFilter(const QString& filter)
{
    Filter result;
    const QStringList parts = filter.split('|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString patterns = QString(parts.at(i + 1)).replace(';', ' ');
        const QString name = parts.at(i).section('(', 0, 0).trimmed();
        result.names << QStringLiteral("%1 (%2)").arg(name, patterns);
    }
    const QString first = parts.value(1).section(';', 0, 0);
    if (first.startsWith(QLatin1String("*.")) && !first.contains(QLatin1String(".*"))) result.suffix = first.mid(2);
    return result;
}

QString chosenIn(QFileDialog& dialog, const QString& folder)
{
    const Interruption interruption;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setDirectory(folder.isEmpty() ? Desktop::lastFolder() : folder);
    if (dialog.exec() != QDialog::Accepted) return {};
    const QString chosen = dialog.selectedFiles().value(0);
    Desktop::keepFolder(QFileInfo(chosen).absolutePath());
    return chosen;
}

QString chooseFile(QFileDialog::AcceptMode mode, const Filter& filter, const QString& title, const QString& folder)
{
    QFileDialog dialog(Forms::mainWindow(), title);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setAcceptMode(mode);
    dialog.setFileMode(QFileDialog::AnyFile); // whoever opens a missing file reports it
    dialog.setNameFilters(filter.names);
    return chosenIn(dialog, folder);
}

enum class Default
{
    Yes,
    No
};

bool askWith(Default byReturn, const QString& text, Icon icon, const QString& title)
{
    const Interruption interruption;
    QMessageBox box(Forms::mainWindow());
    auto* yes = box.addButton(QStringLiteral("&Sim"), QMessageBox::YesRole);
    auto* no = box.addButton(QStringLiteral("&Não"), QMessageBox::NoRole);
    box.setDefaultButton(byReturn == Default::Yes ? yes : no);
    box.setEscapeButton(no);
    fill(box, text, icon, title);
    box.exec();
    return box.clickedButton() == yes;
}

bool hasSuffix(const QString& name)
{
    static const QRegularExpression suffix(QStringLiteral(R"(\.(?!\d+$)[\p{L}\d]{0,4}$)"));
    return name.contains(suffix);
}

} // namespace

void showMessage(const QString& text, Icon icon, const QString& title)
{
    const Interruption interruption;
    QMessageBox box(Forms::mainWindow());
    box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
    fill(box, text, icon, title);
    box.exec();
}

bool ask(const QString& text, Icon icon, const QString& title)
{
    return askWith(Default::No, text, icon, title);
}

bool askWhetherToStore(const QString& text)
{
    return askWith(Default::Yes, text, Icon::Question, QString::fromLatin1(boxTitle));
}

QString openFileName(const QString& filter, const QString& title, const QString& folder)
{
    return chooseFile(QFileDialog::AcceptOpen, parseFilter(filter), title, folder);
}

QString saveFileName(const QString& filter, const QString& title, const QString& folder)
{
    const Filter parsed = parseFilter(filter);
    QString name = chooseFile(QFileDialog::AcceptSave, parsed, title, folder);
    const bool bare = !name.isEmpty() && !hasSuffix(name.section('/', -1));
    if (bare && !parsed.suffix.isEmpty()) name += '.' + parsed.suffix;
    return name;
}

QString folderName(const QString& title, const QString& folder)
{
    QFileDialog dialog(Forms::mainWindow(), title);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return chosenIn(dialog, folder);
}

Hourglass::Hourglass()
{
    if (++hourglasses == 1) QApplication::setOverrideCursor(Qt::WaitCursor);
}

Hourglass::~Hourglass()
{
    if (--hourglasses == 0) QApplication::restoreOverrideCursor();
}
