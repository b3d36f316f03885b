// The letters of a GEDCOM file: which encoding it is in, by what it says and by its bytes, and what its bytes mean.
#pragma once

#include "study/exchange/gedcomRecord.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace study::exchange {

// How UTF-16 is told from the others, before a letter is read: by its mark, or by the zero beside the first level.
enum class GedcomUnits : quint8
{
    Bytes,
    LittleEndian,
    BigEndian
};
struct GedcomStart
{
    GedcomUnits units = GedcomUnits::Bytes;
    int mark = 0; // bytes at the beginning that are no text
    bool operator==(const GedcomStart&) const = default;
};
GedcomStart startOf(const QByteArray& firstBytes);

// What the bytes beyond ASCII would be as letters of the one or the other encoding; counted piece by piece.
class ForeignBytes
{
public:
    void count(const QByteArray& piece);
    void countRest(); // what waits for bytes behind it
    bool areEnough() const { return all >= 65536; }

    qint64 all = 0;
    qint64 utf8Letters = 0, notUtf8 = 0;           // letters of several bytes, and bytes that are of none
    qint64 ansel = 0, notAnsel = 0, onlyAnsel = 0; // accents before a letter; before none; pairs that are no Latin word

private:
    void countTo(qsizetype end);

    QByteArray text_ = {}; // behind the byte before it
    qsizetype from_ = 0, utf8End_ = 0;
};

// The encoding of 8-bit text that calls itself so (HEAD.CHAR, "" where it says nothing). Text that is UTF-8 is read as
// that whatever it says, what is no UTF-8 as code page 1252, and ANSEL only where its accents stand before letters.
struct GedcomEncodingFound
{
    GedcomEncoding encoding = GedcomEncoding::Utf8;
    QString problem = {}; // in Portuguese; "" where the file is what it says
};
GedcomEncodingFound encodingOf(const QString& claimed, const ForeignBytes& bytes);

// A text, and the places of the bytes that are no letters of its encoding, which were read by a guess: as those of code
// page 1252, or as U+FFFD where it has none either.
struct GedcomText
{
    QString text = {};
    QList<qsizetype> guessed = {};
};
GedcomText decoded(const QByteArray& bytes, GedcomEncoding encoding); // of 8 bits

} // namespace study::exchange
