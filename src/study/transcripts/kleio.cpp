#include "study/transcripts/kleio.h"

#include "platform/jet/connection.h"
#include "study/transcripts/kleioReader.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace study {

Transcript readKleio(const QByteArray& bytes)
{
    const Text text = textOf(bytes);
    Transcript read;
    read.problems = text.problems;
    read.encoding = text.encoding;
    if (read.isDamaged()) return read;
    const kleio::Groups groups = kleio::groupsOf(text.text);
    read.problems << groups.problems;
    kleio::Reader reader(read);
    for (const kleio::Group& group : groups.groups)
        reader.take(group);
    reader.end();
    std::stable_sort(read.problems.begin(), read.problems.end(),
                     [](const Problem& a, const Problem& b) { return a.line < b.line; });
    return read;
}

void checkExportTarget(const QString& target, const QString& bdp)
{
    const QFileInfo there(target);
    if (!there.exists()) return;
    if (there.canonicalFilePath() == QFileInfo(bdp).canonicalFilePath())
        throw jet::Error(jet::number::permissionDenied, "Os actos não se exportam para cima da própria BDP.");
    QFile file(target);
    const bool opened = file.open(QIODevice::ReadOnly);
    const QByteArray content = opened ? file.readAll() : QByteArray();
    const bool mayGo =
        opened && (content.trimmed().isEmpty() || content.startsWith("kleio$") || !readKleio(content).isDamaged());
    if (!mayGo)
        throw jet::Error(
            jet::number::permissionDenied,
            QString("O ficheiro \"%1\" já existe e não é de notação Kleio; não se escreve por cima.").arg(target));
}

} // namespace study
