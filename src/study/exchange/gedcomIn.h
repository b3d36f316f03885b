// GEDCOM in: the people and families of a file of 5.5.1 or 7.0 become records of a BDP, and can be taken back.
#pragma once

#include "platform/jet/connection.h"
#include "study/exchange/gedcomRecord.h"
#include "study/exchange/progress.h"

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace study::exchange {

struct GedcomImportOptions
{
    bool newPlaces = true;      // a place that the BDP doesn't have becomes a provisional locality
    bool newProfessions = true; // the same for professions
    bool copyBefore = true;     // of the BDP, among its copies

    bool operator==(const GedcomImportOptions&) const = default;
};

// What an import has written, or would write.
struct GedcomReport
{
    QString version = {}, program = {}; // as HEAD tells them
    GedcomEncoding encoding = GedcomEncoding::Utf8;
    qint64 id = 0;     // in estudo_importacao
    QString copy = {}; // of the BDP before it; "" where none was wanted
    qint64 people = 0, families = 0;
    QMap<QString, qint64> rows = {}; // by table, those of people and families too
    bool keptNumbers = false;        // those of an earlier export, where the BDP had neither people nor families
    qint64 baptisms = 0;             // children of whom both the birth and the baptism are known: into the list of them
    qint64 shortened = 0;            // texts longer than their columns; the whole one is in the notes
    qint64 lostLinks = 0;            // to a record that the file hasn't
    qint64 lostLetters = 0;          // that no BDP can hold
    QMap<QString, qint64> toNotes = {}; // path of tags ("INDI.BIRT.AGNC") → how often it went to the notes
    QMap<QString, qint64> left = {};    // the same of what stands nowhere in the BDP
    std::vector<GedcomProblem> problems = {};
    bool isRehearsal = false; // nothing was to be written

    bool operator==(const GedcomReport&) const = default;
    QStringList lines() const; // in Portuguese, without the problems
};

// Writes all people and families of the file as new records, in one transaction; nobody is taken for somebody whom the
// BDP has (that is the work of candidates and merges). Numbers of an earlier export are kept where the BDP has no
// people, families or merges; otherwise they are the next ones, as the cards give them. What no column takes goes to
// the notes of its person or family, with its path of tags, or is counted. Places are those of the BDP by their code
// and name, or by their names from the narrowest to the widest; else a locality is made in the parish that is told.
// Throws jet::Error, in Portuguese, with the line, where the file can't be read or the BDP not be written; Interrupted
// where goesOn, asked with the share that is done, answered false. Nothing is written then.
// Precondition: the BDP is open and no transaction is pending.
GedcomReport importGedcom(jet::Connection& bdp, const QString& path, const GedcomImportOptions& options = {},
                          const GoesOn& goesOn = {});

// What importGedcom() would do: played on a copy in a folder of its own, which goes with it.
GedcomReport rehearseGedcom(const jet::Connection& bdp, const QString& path, const GedcomImportOptions& options = {},
                            const GoesOn& goesOn = {});

// An import that stands.
struct GedcomImported
{
    qint64 id = 0;
    QDateTime when = {};
    QString file = {}; // its name, without the folder
    qint64 people = 0, families = 0;

    bool operator==(const GedcomImported&) const = default;
};
// The last one that wasn't taken back. Throws jet::Error.
std::optional<GedcomImported> lastImport(jet::Connection& bdp);

// Why the last import can't be taken back, in Portuguese, at most so many reasons; none where it can: a record that it
// made was altered, deleted or got further rows since, or something else in the BDP leads to it by now.
QStringList whyImportStays(jet::Connection& bdp);

// Takes all that the last import has written away, in one transaction. A place, a profession that others use by now
// stays. Returns whyImportStays(): where that isn't empty, nothing is changed. Throws jet::Error, Interrupted.
QStringList takeBackImport(jet::Connection& bdp, const GoesOn& goesOn = {});

} // namespace study::exchange
