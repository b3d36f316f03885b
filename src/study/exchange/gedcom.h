// GEDCOM out: a BDP as genealogists' programs read it, in 7.0 or 5.5.1.
#pragma once

#include "platform/jet/connection.h"
#include "study/exchange/progress.h"
#include "study/parish/date.h"
#include "study/parish/numbers.h"

#include <QDate>
#include <QString>

#include <functional>
#include <optional>

class QIODevice;

namespace study::exchange {

enum class GedcomVersion : quint8
{
    V551,
    V70
};

// What the one date of a card that may be the birth or the baptism is written as.
enum class BirthDates : quint8
{
    Christenings, // CHR
    Baptisms,     // BAPM
    Births        // BIRT
};

// What is told of a child beside the date of its card.
struct KnownDays
{
    QDate birth = {}, baptism = {};
};

struct GedcomOptions
{
    GedcomVersion version = GedcomVersion::V551;
    BirthDates birthDates = BirthDates::Christenings;
    // Who may be alive stays out: born less than so many years before `today`, without a death. 0: nobody stays out.
    int limitYears = 110;
    QDate today = {}; // nothing else of the file depends on it; valid where there is a limit
    // Who stood by is told twice: with the event and with the person. Otherwise 5.5.1, which has associations of people
    // alone, tells it with the person, and 7.0 with the event. Below an event of 5.5.1 it is _ASSO.
    bool associationsTwice = false;
    QString programVersion = {}; // "1.0.6"
    // Where both the birth and the baptism of a child are known; nothing: as `birthDates`.
    std::function<std::optional<KnownDays>(parish::PersonNumber, const parish::Date& card, const QString& notes)> days =
        {};
};

// What has been written, and what hasn't.
struct GedcomCounts
{
    qint64 people = 0, families = 0; // records
    qint64 withheldPeople = 0;       // who may be alive
    qint64 withheldFamilies = 0;     // of which only links are written, or nothing
    qint64 lostLinks = 0;            // to a person or a family that isn't in the BDP
    qint64 shortened = 0;            // texts longer than 5.5.1 has room for; the whole one is a note beside it

    bool operator==(const GedcomCounts&) const = default;
};

// Writes all, in UTF-8, of one state of the BDP: the same state and options give the same bytes. What a mapping has no
// word for is a note. Rows go from the BDP to the file one after the other.
// Throws jet::Error, in Portuguese; Interrupted where goesOn, asked with the share that is done, answered false: the
// device has a part of it then.
GedcomCounts writeGedcom(const jet::Connection& bdp, QIODevice& target, const GedcomOptions& options,
                         const GoesOn& goesOn = {});

// The same to a file, which takes its name when it is whole: an earlier export stays as it was until then. jet::Error
// where a file stands there that is none, or the BDP itself.
GedcomCounts exportGedcom(const jet::Connection& bdp, const QString& path, const GedcomOptions& options,
                          const GoesOn& goesOn = {});

} // namespace study::exchange
