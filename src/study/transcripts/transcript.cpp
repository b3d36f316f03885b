#include "study/transcripts/transcript.h"

#include "platform/desktop/codepage.h"
#include "platform/jet/error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>

namespace study {

bool Transcript::isDamaged() const
{
    return std::any_of(problems.begin(), problems.end(),
                       [](const Problem& problem) { return problem.severity == Problem::Severity::Error; });
}

namespace {

constexpr qint64 largestFile = 200'000'000; // a hundred parishes

// What the code page has for each byte, and U+FFFD where it has nothing.
const QString& codePage()
{
    static const QString characters = [] {
        static constexpr int bytes = 256;
        QString made;
        made.reserve(bytes);
        for (int byte = 0; byte < bytes; ++byte)
            made += byte == 0 ? QString(QChar(0))
                              : fromCodePage(QByteArray(1, char(byte))).value_or(QString(QChar::ReplacementCharacter));
        return made;
    }();
    return characters;
}

QString fromCodePageWithHoles(const QByteArray& bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char byte) { return codePage()[uchar(byte)]; });
    return text;
}

int lineAt(const QString& text, qsizetype position)
{
    return 1 + static_cast<int>(text.left(position).count('\n'));
}

// Some spreadsheets save text so, with its mark.
bool isUtf16(const QByteArray& bytes)
{
    return bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF");
}

// A file of another encoding hardly ever has bytes that make letters of UTF-8; a damaged one has few that don't.
bool isNearlyUtf8(const QByteArray& bytes, const QString& text)
{
    static constexpr qsizetype lettersForEachBadByte = 4;
    const qsizetype holesBefore = bytes.count("\xEF\xBF\xBD");
    const qsizetype holes = text.count(QChar::ReplacementCharacter);
    const qsizetype foreign =
        std::count_if(text.begin(), text.end(), [](QChar c) { return c.unicode() > 0x7F && !c.isLowSurrogate(); });
    return foreign - holes + holesBefore >= lettersForEachBadByte * (holes - holesBefore);
}

Text decoded(const QByteArray& bytes)
{
    if (isUtf16(bytes)) return {QStringDecoder(QStringDecoder::Utf16).decode(bytes), "UTF-16", {}};
    static constexpr auto mark = "\xEF\xBB\xBF";
    const QByteArray plain = bytes.startsWith(mark) ? bytes.mid(qstrlen(mark)) : bytes;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    Text read{decoder.decode(plain), "UTF-8", {}};
    if (decoder.hasError() && !isNearlyUtf8(plain, read.text)) read = {fromCodePageWithHoles(plain), "1252", {}};
    return read;
}

} // namespace

Text textOf(const QByteArray& bytes)
{
    Text read = decoded(bytes);
    read.text.replace("\r\n", "\n").replace('\r', '\n');
    if (const qsizetype nul = read.text.indexOf(QChar(0)); nul >= 0)
        read.problems << Problem{lineAt(read.text, nul), "O ficheiro não é de texto: tem caracteres nulos.",
                                 Problem::Severity::Error};
    if (const qsizetype lost = read.text.indexOf(QChar::ReplacementCharacter); lost >= 0)
        read.problems << Problem{lineAt(read.text, lost),
                                 QString("Há %1 caracteres perdidos numa conversão anterior; este é o primeiro.")
                                     .arg(read.text.count(QChar::ReplacementCharacter))};
    return read;
}

QString doubtOfEncoding(const QString& encoding)
{
    if (encoding != "1252") return {};
    return "O ficheiro não está em UTF-8 e foi lido na página de código 1252: veja se os acentos estão certos.";
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    const QString name = QDir::toNativeSeparators(path);
    if (!QFileInfo::exists(path))
        throw jet::Error(jet::number::fileNotFound, QString("O ficheiro \"%1\" não existe.").arg(name));
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        throw jet::Error(jet::number::permissionDenied, QString("O ficheiro \"%1\" não pode ser lido.").arg(name));
    if (file.size() > largestFile)
        throw jet::Error(jet::number::overflow,
                         QString("O ficheiro \"%1\" é demasiado grande para uma transcrição.").arg(name));
    const QByteArray bytes = file.readAll();
    if (file.error() != QFile::NoError)
        throw jet::Error(jet::number::permissionDenied, QString("O ficheiro \"%1\" não pode ser lido.").arg(name));
    return bytes;
}

} // namespace study
