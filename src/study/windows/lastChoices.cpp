#include "study/windows/lastChoices.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

namespace study {

namespace {

constexpr auto folderChoice = "trocas/pasta";

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

QString lastFolder()
{
    const QString kept = lastChoice(folderChoice).toString();
    if (!kept.isEmpty() && QDir(kept).exists()) return kept;
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

void keepFolder(const QString& folder)
{
    keepChoice(folderChoice, folder);
}

} // namespace study
