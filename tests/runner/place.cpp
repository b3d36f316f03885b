#include "place.h"

#include <QDir>
#include <QFile>

void copyToAlter(const QString& from, const QString& to)
{
    QFile::copy(from, to);
    QFile::setPermissions(to, QFile::permissions(to) | QFile::WriteOwner);
}

void copyProgramFolder(const QString& from, const QString& to)
{
    QDir().mkpath(to);
    const auto names = QDir(from).entryList({"*.dat", "*.doc", "*.csv", "*.pdf"}, QDir::Files);
    for (const QString& name : names)
        copyToAlter(from + '/' + name, to + '/' + name);
}

void makeDocumentsFolder(const QString& folder)
{
    QDir().mkpath(folder + "/documents");
    QFile told(folder + "/user-dirs.dirs");
    if (told.open(QIODevice::WriteOnly)) told.write("XDG_DOCUMENTS_DIR=\"" + folder.toUtf8() + "/documents\"\n");
}

bool isOffscreen()
{
    return qEnvironmentVariable("QT_QPA_PLATFORM", "offscreen") == "offscreen";
}

QProcessEnvironment playEnvironment(const QString& folder, const PlayScreen& screen)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    if (isOffscreen()) {
        const QString text =
            QStringLiteral(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": %1, "height": %2,
                                            "logicalDpi": 96, "dpr": %3}]})")
                .arg(screen.width)
                .arg(screen.height)
                .arg(screen.scale);
        QFile file(folder + "/screen.json");
        if (file.open(QIODevice::WriteOnly)) file.write(text.toUtf8());
        environment.insert("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName());
    }
    for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"})
        environment.insert(name, QStringLiteral("exitcode=%1:%2").arg(sanitizerExit).arg(environment.value(name)));
    return environment;
}
