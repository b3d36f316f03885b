#include "platform/desktop/lastchoices.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

namespace Desktop {

namespace {

constexpr auto folderChoice = "ficheiros/pasta";

QString file()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + "/escolhas.ini";
}

} // namespace

QVariant lastChoice(const QString& name, const QVariant& otherwise)
{
    return QSettings(file(), QSettings::IniFormat).value(name, otherwise);
}

void keepChoice(const QString& name, const QVariant& value)
{
    QSettings(file(), QSettings::IniFormat).setValue(name, value);
}

QString documentsFolder()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

QString lastFolder()
{
    const QString kept = lastChoice(folderChoice).toString();
    return !kept.isEmpty() && QDir(kept).exists() ? kept : documentsFolder();
}

void keepFolder(const QString& folder)
{
    keepChoice(folderChoice, folder);
}

} // namespace Desktop
