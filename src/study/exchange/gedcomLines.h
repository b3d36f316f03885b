// The lines of a GEDCOM file: levels, lengths, continued texts, "@".
#pragma once

#include "study/exchange/gedcom.h"

#include <QByteArray>
#include <QIODevice>

namespace study::exchange {

inline constexpr int longestLine551 = 255; // bytes, with the end of the line

// Writes lines in UTF-8, which end with \n. Letters that GEDCOM has no place for (control characters, halves of a pair)
// are left out. Throws jet::Error where the device takes no more.
class GedcomLines
{
public:
    GedcomLines(QIODevice& target, GedcomVersion version);

    GedcomVersion version() const { return version_; }
    bool is551() const { return version_ == GedcomVersion::V551; }

    void record(const QByteArray& xref, const char* tag); // 0 @xref@ tag
    void bare(int level, const char* tag);
    void pointer(int level, const char* tag, const QByteArray& xref); // without its @
    void word(int level, const char* tag, const QByteArray& value); // a value of ours: a date, a number, an enumeration

    // One line; line breaks become blanks. In 5.5.1 it is cut where the tag has no room for it, or the line is full.
    // False where it was cut.
    bool text(int level, const char* tag, const QString& value);
    // As many lines as it needs: CONT for those of the text, and in 5.5.1 CONC where one is full.
    void memo(int level, const char* tag, const QString& value);

    void flush();

private:
    void begin(int level);
    void end();
    void line(int level, const char* tag, const QByteArray& value);
    QByteArray escaped(const QString& text) const;
    void continued(int level, const char* tag, const QByteArray& value);

    QIODevice& target_;
    GedcomVersion version_;
    QByteArray bytes_ = {};
};

// Of GedcomLines, for texts that are looked at before they are written.
QString withoutBanned(const QString& text, GedcomVersion version);

} // namespace study::exchange
