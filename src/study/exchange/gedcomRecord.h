// A GEDCOM file as its records, one after the other: of 5.5.1 and 7.0, and of the programs that write them their way.
#pragma once

#include "study/exchange/progress.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

class QIODevice;

namespace study::exchange {

// A structure: a line, what continues it, and what stands below it.
struct GedcomNode
{
    QString xref = {};  // "I1", without its signs; "" of a structure that nobody points to
    QString tag = {};   // in capitals, as it stands
    QString value = {}; // CONC and CONT joined, "@@" of the beginning as "@"; of a pointer "I1", without its signs
    bool isPointer = false;
    int line = 0; // of its first line, from 1
    std::vector<GedcomNode> children = {};

    bool isVoid() const { return isPointer && value == QLatin1String("VOID"); }
    const GedcomNode* child(const char* tag) const; // the first one; null where there is none
    QString text(const char* tag) const;            // the value of that child; ""
};

// Something in the file that can't be read as it should, or that was read with a guess.
struct GedcomProblem
{
    int line = 0;
    QString text; // in Portuguese

    bool operator==(const GedcomProblem&) const = default;
};

enum class GedcomEncoding : quint8
{
    Utf8,
    Utf16,
    Ansel,
    Windows1252
};

// What stands in HEAD, as far as a reader needs it.
struct GedcomHead
{
    QString version = {}; // "5.5.1", "7.0"; "" where it isn't told
    QString source = {};  // the program that wrote it
    QString form = {};    // of the places: "Lugar, Freguesia, Concelho"
    GedcomEncoding encoding = GedcomEncoding::Utf8;
};

// Reads one record at a time, in the order of the file; memory is that of the longest one. Line ends of every kind,
// blank lines, indents, lines that were broken in the middle (taken as a continuation of the one before, and told) and
// levels that skip one (told) are read.
class GedcomReader
{
public:
    // Reads HEAD, and from it (or from the mark at the beginning, or from the bytes) the encoding.
    // Throws jet::Error, which names the line, where the file isn't GEDCOM. Precondition: the device is open, can be
    // read from its beginning, and lives as long as this does.
    explicit GedcomReader(QIODevice& device);
    ~GedcomReader();

    const GedcomHead& head() const;
    // The next record; false behind TRLR, or behind the last one of a file without it, which is told. HEAD and TRLR
    // aren't given. Throws jet::Error, which names the line, where the rest can't be read as GEDCOM.
    bool next(GedcomNode& record);
    const std::vector<GedcomProblem>& problems() const; // of what was read until now
    double done() const;                                // the share of the file that was read, 0 to 1

private:
    class Lines;
    std::unique_ptr<Lines> lines_;
};

} // namespace study::exchange
