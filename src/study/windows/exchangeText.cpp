#include "study/windows/exchangeText.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

namespace study {

namespace {

void add(QStringList& lines, const QString& title, const std::vector<exchange::Remark>& remarks)
{
    if (remarks.empty()) return;
    if (!lines.isEmpty()) lines << QString();
    lines << title;
    for (const exchange::Remark& one : remarks)
        lines << exchange::textOf(one);
}

QString stampOfFile(const QFileInfo& file)
{
    return QString("%1 %2 %3")
        .arg(file.fileName(), QString::number(file.size()), file.lastModified().toString(Qt::ISODateWithMs));
}

} // namespace

QString reportOn(const exchange::Exchanged& told)
{
    QStringList lines = told.lines;
    add(lines, "Avisos:", told.warnings);
    add(lines, "Erros:", told.errors);
    return lines.join("\r\n");
}

QString proposedTarget(const exchange::WayOut& way, const QString& bdp, const QString& folder)
{
    const QString name = QFileInfo(bdp).completeBaseName();
    const QString ending = way.target == exchange::Place::File ? QString(".") + way.suffix : QString("-") + way.name;
    return QDir::toNativeSeparators(QDir(folder).filePath(name + ending));
}

QString wholePath(const QString& typed, const QString& folder, const QString& suffix)
{
    const QString told = typed.trimmed();
    if (told.isEmpty()) return {};
    QString path = QDir::cleanPath(QDir(folder).absoluteFilePath(QDir::fromNativeSeparators(told)));
    if (!suffix.isEmpty() && QFileInfo(path).suffix().isEmpty()) path += '.' + suffix;
    return path;
}

QString stampOf(const QString& source)
{
    const QFileInfo there(source);
    if (!there.isDir()) return stampOfFile(there);
    QStringList files;
    for (const QFileInfo& file : QDir(source).entryInfoList(QDir::Files, QDir::Name))
        files << stampOfFile(file);
    return files.join('\n');
}

} // namespace study
