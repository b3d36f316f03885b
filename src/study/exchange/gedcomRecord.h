// A GEDCOM file as its records, one after the other: of 5.5.1 and 7.0, and of the programs that write them their way.
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

class QIODevice;

namespace study::exchange {

// A structure: a line, what continues it, and what stands below it.
struct GedcomNode
{
    QString xref = {}; // "I1", without its signs; "" of a structure that nobody points to
    QString tag = {};  // in capitals
    // CONC and CONT joined, each "@@" as "@" (in 7.0 the first one of a line); of a pointer "I1", without its signs.
    // Blanks at both ends stay, and escapes as "@#DJULIAN@".
    QString value = {};
    bool isPointer = false;
    int line = 0; // of its first line, from 1
    std::vector<GedcomNode> children = {};

    bool operator==(const GedcomNode&) const = default;
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

    bool operator==(const GedcomHead&) const = default;
};

// Reads one record at a time, in the order of the file; memory is that of the longest one, of 250,000 lines and
// 32 million letters at the most. Line ends of every kind, blank lines, indents, tabs, lines that were broken in the
// middle (taken as a continuation of the one before, and told) and levels that skip one (told) are read. Text that is
// UTF-8 is read as that, whatever HEAD says; bytes that are no letters are read by a guess, and told.
class GedcomReader
{
public:
    // Reads HEAD, and from it, from the mark at the beginning and from the bytes the encoding.
    // Throws jet::Error, which names the line, where the file isn't GEDCOM. Precondition: the device is open, isn't
    // sequential, stands at its beginning, and lives as long as this does.
    explicit GedcomReader(QIODevice& device);
    ~GedcomReader();
    GedcomReader(const GedcomReader&) = delete;
    GedcomReader& operator=(const GedcomReader&) = delete;

    const GedcomHead& head() const;
    // The next record; false behind TRLR, or behind the last one of a file without it, which is told. HEAD and TRLR
    // aren't given. Throws jet::Error, which names the line, where the rest can't be read as GEDCOM.
    bool next(GedcomNode& record);
    // Of what was read until now. Of a kind that comes again and again the first ones, and how many more there are.
    const std::vector<GedcomProblem>& problems() const;
    double done() const; // the share of the file that was read, 0 to 1

private:
    class Records;
    std::unique_ptr<Records> records_;
    GedcomHead head_ = {};
};

} // namespace study::exchange
