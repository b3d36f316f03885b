#include "shell/demonstracao.h"

#include "platform/desktop/desktop.h"
#include "platform/desktop/lastchoices.h"
#include "platform/forms/msgbox.h"
#include "store/session.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

// As many as nobody has.
constexpr int mostCopies = 1000;

QString nameOf(int copy)
{
    return copy == 1 ? QString("demonstracao.orv") : QString("demonstracao %1.orv").arg(copy);
}

// The file that comes with the program may be shut to writing.
bool copyTo(const QString& path)
{
    if (!QFile::copy(demoFile(), path)) return false; // nothing is written over
    QFile::setPermissions(path, QFile::permissions(path) | QFile::ReadOwner | QFile::WriteOwner);
    return true;
}

QString copyIntoDocuments()
{
    const QDir folder(Desktop::documentsFolder() + "/ORV");
    if (!folder.mkpath(".")) return {};
    for (int copy = 1; copy <= mostCopies; ++copy) {
        const QString path = folder.filePath(nameOf(copy));
        if (copyTo(path)) return path;
        if (!QFileInfo::exists(path)) return {};
    }
    return {};
}

} // namespace

QString demoFile()
{
    return Desktop::programFolder() + "/demo.orv";
}

QString copyOfDemo()
{
    if (!QFileInfo(demoFile()).isFile()) {
        showMessage(QString("Falta a paróquia de demonstração: o ficheiro \"%1\" não está instalado. Instale de novo o "
                            "ORV, ou comece por abrir ou criar uma BDP.")
                        .arg(QDir::toNativeSeparators(demoFile())));
        return {};
    }
    if (const QString path = copyIntoDocuments(); !path.isEmpty()) return path;
    showMessage(QString("Não foi possível guardar a cópia da demonstração na pasta \"%1\". Escolha outro lugar para ela.")
                    .arg(QDir::toNativeSeparators(Desktop::documentsFolder() + "/ORV")));
    const QString path = saveFileName(bdpFilter, "Cópia da demonstração");
    if (path.isEmpty() || copyTo(path)) return path;
    showMessage(QString("A cópia da demonstração não foi feita: não se pode escrever em \"%1\", ou já lá está um "
                        "ficheiro com esse nome.")
                    .arg(QDir::toNativeSeparators(path)));
    return {};
}
