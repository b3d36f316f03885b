#include "study/exchange/gedcomSource.h"

#include "platform/jet/error.h"
#include "study/exchange/portions.h"

#include <QtEndian>

namespace study::exchange {

namespace {

constexpr qsizetype longestLine = 1 << 24;
constexpr int toldOfAKind = 50;
constexpr char16_t endOfOldFiles = 0x1A;
constexpr char16_t halfOfNone = 0xDC00; // what a single byte at the end of UTF-16 is read as: no letter

bool isLineEnd(QChar letter)
{
    return letter == u'\n' || letter == u'\r';
}

} // namespace

void GedcomProblems::tell(GedcomDoubt kind, int line, const QString& text)
{
    Told& told = told_[static_cast<std::size_t>(kind)];
    if (++told.count <= toldOfAKind) {
        all_.push_back({line, text});
        return;
    }
    if (told.count == toldOfAKind + 1) {
        told.more = all_.size();
        all_.push_back({line, {}});
    }
    all_[told.more].text = QString("Desta linha em diante, mais %1 como: %2").arg(told.count - toldOfAKind).arg(text);
}

void refuseGedcom(int line, const QString& why)
{
    throw jet::Error(jet::number::typeMismatch, QString("Linha %1: %2").arg(line).arg(why));
}

GedcomSource::GedcomSource(QIODevice& device) : device_(device), start_(startOf(device.peek(4)))
{
    restart();
}

void GedcomSource::restart()
{
    if (!device_.seek(start_.mark)) refuseGedcom(1, "o ficheiro não pode ser lido: " + device_.errorString());
    letters_.clear();
    at_ = 0;
    half_.clear();
    number_ = 0;
    lineEnd_ = 0;
    endsWithLineEnd_ = true;
}

ForeignBytes GedcomSource::foreignBytes()
{
    restart();
    ForeignBytes counted;
    for (QByteArray piece = read(); !piece.isEmpty() && !counted.areEnough(); piece = read())
        counted.count(piece);
    counted.countRest();
    restart();
    return counted;
}

QByteArray GedcomSource::read()
{
    QByteArray bytes(bytesAtOnce, Qt::Uninitialized);
    const qint64 length = device_.atEnd() ? 0 : device_.read(bytes.data(), bytesAtOnce);
    if (length < 0)
        throw jet::Error(
            jet::number::permissionDenied,
            QString("Linha %1: o ficheiro não pode ser lido: %2").arg(number_ + 1).arg(device_.errorString()));
    bytes.resize(length);
    return bytes;
}

bool GedcomSource::fill()
{
    at_ = 0;
    letters_.clear();
    QByteArray bytes = half_ + read();
    if (is8Bit()) {
        letters_ = QString::fromLatin1(bytes);
        return !letters_.isEmpty();
    }
    if (bytes.size() == 1) bytes += read();
    half_.clear();
    if (bytes.size() == 1) {
        letters_ = QChar(halfOfNone);
        return true;
    }
    if (bytes.size() % 2 != 0) half_ = bytes.last(1);
    letters_.resize(bytes.size() / 2);
    for (qsizetype i = 0; i < letters_.size(); ++i)
        letters_[i] = start_.units == GedcomUnits::LittleEndian
                          ? QChar(qFromLittleEndian<quint16>(bytes.constData() + 2 * i))
                          : QChar(qFromBigEndian<quint16>(bytes.constData() + 2 * i));
    return !letters_.isEmpty();
}

bool GedcomSource::next(GedcomLine& line, GedcomProblems& problems)
{
    line.letters.resize(0);
    bool isEnded = false, isAny = false;
    while (!isEnded && (at_ < letters_.size() || fill())) {
        if (lineEnd_ && isLineEnd(letters_[at_]) && letters_[at_] != lineEnd_) ++at_; // the other half of the last end
        lineEnd_ = 0;
        qsizetype end = at_;
        while (end < letters_.size() && !isLineEnd(letters_[end]))
            ++end;
        isAny = isAny || end > at_ || end < letters_.size();
        line.letters += QStringView(letters_).sliced(at_, end - at_);
        if (line.letters.size() > longestLine)
            refuseGedcom(number_ + 1, "a linha é demasiado longa para um ficheiro GEDCOM.");
        isEnded = end < letters_.size();
        if (isEnded) lineEnd_ = letters_[end++].unicode();
        at_ = end;
    }
    if (!isAny) return false;
    endsWithLineEnd_ = isEnded;
    line.number = ++number_;
    if (line.letters.contains(endOfOldFiles)) line.letters.remove(endOfOldFiles);
    if (!line.letters.contains(QChar(0))) return true;
    line.letters.remove(QChar(0));
    if (!line.letters.isEmpty()) problems.tell(GedcomDoubt::Nul, number_, "Há caracteres nulos, que não foram lidos.");
    return true;
}

double GedcomSource::done() const
{
    const double size = static_cast<double>(device_.size());
    return size > 0 ? qBound(0.0, static_cast<double>(device_.pos() - (letters_.size() - at_)) / size, 1.0) : 1.0;
}

} // namespace study::exchange
