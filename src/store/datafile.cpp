#include "store/datafile.h"

#include "platform/desktop/codepage.h"
#include "platform/desktop/desktop.h"

#include <QFileInfo>

namespace {
constexpr long deviceError = 57;
constexpr long readPastEnd = 62;
} // namespace

DataFile DataFile::inProgramFolder(const QString& name)
{
    return DataFile(Desktop::programFolder() + '/' + name);
}

DataFile::DataFile(const QString& path) : file_(path)
{
    if (!QFileInfo::exists(path))
        throw jet::Error{jet::number::fileNotFound, "Não foi encontrado o ficheiro " + path + "."};
    if (!file_.open(QIODevice::ReadOnly))
        throw jet::Error{jet::number::permissionDenied, "Não é possível ler o ficheiro " + path + "."};
}

bool DataFile::atEnd()
{
    return file_.atEnd();
}

QByteArray DataFile::readUtf8Line()
{
    if (atEnd()) throw located({readPastEnd, "O ficheiro terminou antes do esperado."});
    ++line_;
    QByteArray bytes = file_.readLine();
    if (bytes.isEmpty()) throw located({deviceError, "Não foi possível ler o ficheiro."});
    if (bytes.endsWith('\n')) bytes.chop(1);
    if (bytes.endsWith('\r')) bytes.chop(1);
    if (isAscii(bytes)) return bytes;
    if (const auto text = fromCodePage(bytes)) return text->toUtf8();
    throw located({jet::number::typeMismatch, "O texto não está na página de código 1252."});
}

jet::Error DataFile::located(const jet::Error& error) const
{
    return {error.number, QStringLiteral("%1\r\nFicheiro %2, linha %3.")
                              .arg(error.description, file_.fileName(), QString::number(line_))};
}
