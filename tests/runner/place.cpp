#include "place.h"

#include <QDir>
#include <QFile>

void copyProgramFolder(const QString& from, const QString& to)
{
    QDir().mkpath(to);
    const auto names = QDir(from).entryList({"*.dat", "*.doc", "*.csv", "*.pdf"}, QDir::Files);
    for (const QString& name : names) {
        QFile::copy(from + '/' + name, to + '/' + name);
        QFile::setPermissions(to + '/' + name, QFile::permissions(to + '/' + name) | QFile::WriteOwner);
    }
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

QProcessEnvironment playEnvironment(const QString& folder)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    // The screen of the offscreen platform is as large as the smallest one that the program has to fit.
    if (isOffscreen()) {
        QFile screen(folder + "/screen.json");
        if (screen.open(QIODevice::WriteOnly))
            screen.write(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1280, "height": 800,
                             "logicalDpi": 96, "dpr": 1}]})");
        environment.insert("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName());
    }
    for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"})
        environment.insert(name, QStringLiteral("exitcode=%1:%2").arg(sanitizerExit).arg(environment.value(name)));
    return environment;
}
