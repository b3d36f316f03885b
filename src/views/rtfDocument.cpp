#include "views/rtfDocument.h"

#include "platform/desktop/codepage.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

// A text as the format writes it, in ASCII. Characters with nothing to show are left out.
QByteArray encoded(QString text)
{
    QByteArray bytes;
    text.replace("\r\n", "\n");
    for (const QChar character : std::as_const(text)) {
        const char16_t code = character.unicode();
        if (code == '\n' || code == '\r')
            bytes += "\\line ";
        else if (code == '\t')
            bytes += "\\tab ";
        else if (code == '\\' || code == '{' || code == '}')
            bytes += QByteArray("\\") + char(code);
        else if (code >= ' ' && code < 0x7F)
            bytes += char(code);
        else if (const QByteArray byte = toCodePage(character); code > 0x7F && byte != "?")
            bytes += "\\'" + byte.toHex();
        else if (code > 0x7F)
            bytes += "\\u" + QByteArray::number(qint16(code)) + '?';
    }
    return bytes;
}

bool isWritable(const QString& path)
{
    return QFile::permissions(path) & (QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther);
}

} // namespace

std::optional<RtfDocument> RtfDocument::open(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    RtfDocument document;
    document.bytes_ = file.readAll();
    if (!document.bytes_.startsWith("{\\rtf")) return {};
    document.read_ = readRtf(document.bytes_);
    return document;
}

bool RtfDocument::find(const QString& text)
{
    const qsizetype found = read_.text.indexOf(text, to_, Qt::CaseInsensitive);
    if (found < 0) return false;
    from_ = found;
    to_ = found + text.size();
    return true;
}

void RtfDocument::paste(const QString& text)
{
    const QByteArray bytes = encoded(text);
    if (from_ == to_ && pasted_ >= 0) { // after what was pasted last
        edits_[pasted_].bytes += bytes;
        return;
    }
    RtfText::Span& first = read_.spans[from_];
    pasted_ = edits_.size();
    if (from_ == to_) {
        replace({first.begin, first.begin, first.afterWord}, bytes);
        first.afterWord = false;
        return;
    }
    replace(first, bytes);
    while (++from_ < to_) // one by one: the marks between the characters stay
        replace(read_.spans[from_], {});
}

void RtfDocument::replace(const RtfText::Span& span, const QByteArray& bytes)
{
    edits_.append({span.begin, span.end, (span.afterWord ? " " : "") + bytes});
}

bool RtfDocument::saveAs(const QString& path) const
{
    if (!isWritable(QFileInfo(path).path()) || (QFile::exists(path) && !isWritable(path))) return false;
    QByteArray result;
    qsizetype copied = 0;
    for (const Edit& edit : edits_) {
        result += bytes_.mid(copied, edit.begin - copied) + edit.bytes;
        copied = edit.end;
    }
    result += bytes_.mid(copied);
    QSaveFile file(path); // beside it, and then in its place
    return file.open(QIODevice::WriteOnly) && file.write(result) == result.size() && file.commit();
}
