#include "store/dataFile.h"

#include "platform/desktop/codepage.h"
#include "platform/desktop/desktop.h"

#include <QFile>
#include <QFileInfo>

namespace {
constexpr long deviceError = 57;
constexpr long readPastEnd = 62;
} // namespace

DataFile DataFile::inProgramFolder(const QString& name)
{
    return DataFile(Desktop::programFolder() + '/' + name);
}

DataFile::DataFile(const QString& path) : path_(path)
{
    if (!QFileInfo::exists(path))
        throw jet::Error{jet::number::fileNotFound, "Não foi encontrado o ficheiro " + path + "."};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw jet::Error{jet::number::permissionDenied, "Não é possível ler o ficheiro " + path + "."};
    bytes_ = file.readAll();
    if (file.error() != QFile::NoError || bytes_.size() < file.size())
        throw located({deviceError, "Não foi possível ler o ficheiro."});
}

QByteArray DataFile::readUtf8Line()
{
    if (atEnd()) throw located({readPastEnd, "O ficheiro terminou antes do esperado."});
    ++line_;
    const auto found = bytes_.indexOf('\n', at_);
    const auto next = found < 0 ? bytes_.size() : found + 1;
    auto end = found < 0 ? next : found;
    if (end > at_ && bytes_[end - 1] == '\r') --end;
    const QByteArray line = bytes_.mid(at_, end - at_);
    at_ = next;
    if (isAscii(line)) return line;
    if (const auto text = fromCodePage(line)) return text->toUtf8();
    throw located({jet::number::typeMismatch, "O texto não está na página de código 1252."});
}

jet::Error DataFile::located(const jet::Error& error) const
{
    return {error.number,
            QStringLiteral("%1\r\nFicheiro %2, linha %3.").arg(error.description, path_, QString::number(line_))};
}
