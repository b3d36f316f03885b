// The lines of a GEDCOM file as they stand, before their letters are known. For the reader alone.
#pragma once

#include "study/exchange/gedcomEncoding.h"

#include <QIODevice>
#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace study::exchange {

enum class GedcomDoubt : quint8
{
    Broken,
    Level,
    Letter,
    Nul,
    Continuation,
    Structure,
    End,
    Encoding
};
inline constexpr std::size_t gedcomDoubts = 8;

// What is told: of each kind the first ones, and how many more there are.
class GedcomProblems
{
public:
    void tell(GedcomDoubt kind, int line, const QString& text);
    const std::vector<GedcomProblem>& all() const { return all_; }

private:
    struct Told
    {
        int count = 0;
        std::size_t more = 0; // where it stands how many more there are
    };
    std::vector<GedcomProblem> all_ = {};
    std::array<Told, gedcomDoubts> told_ = {};
};

[[noreturn]] void refuseGedcom(int line, const QString& why); // jet::Error, "Linha 12: …"

// Letters of 8 bits stand in a QString byte by byte, those of UTF-16 as they are.
struct GedcomLine
{
    QString letters = {};
    int number = 0; // from 1
};

class GedcomSource
{
public:
    // Precondition: the device isn't sequential, and stands at its beginning.
    explicit GedcomSource(QIODevice& device);

    bool is8Bit() const { return start_.units == GedcomUnits::Bytes; }
    ForeignBytes foreignBytes(); // of the file, as far as it takes; reading begins anew
    void restart();
    // False at the end. A line ends with CR, LF, CR LF or LF CR. Nul letters are left out, and told.
    bool next(GedcomLine& line, GedcomProblems& problems);
    double done() const;
    bool isWhole() const { return endsWithLineEnd_; } // the last line has its end

private:
    bool fill();
    QByteArray read();

    QIODevice& device_;
    GedcomStart start_;
    QString letters_ = {}; // of the chunk at hand
    qsizetype at_ = 0;
    QByteArray half_ = {}; // of a letter of UTF-16
    int number_ = 0;
    char16_t lineEnd_ = 0; // the one that was read last, of which the other half may follow
    bool endsWithLineEnd_ = true;
};

} // namespace study::exchange
