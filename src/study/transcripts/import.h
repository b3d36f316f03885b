// Acts transcribed elsewhere become acts of the BDP.
#pragma once

#include "platform/jet/connection.h"
#include "study/transcripts/transcript.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace study {

// Who may be taken for a known person without asking.
enum class LinkRule
{
    Nothing,            // nobody: everyone is a new person
    CouplesWithOpenSpan // a father and a mother together, where they can be one couple of the BDP alone
                        // (Finder::onlyCouple())
};

struct ImportOptions
{
    LinkRule rule = LinkRule::Nothing;
    bool newPlaces = false;      // a place that the BDP doesn't have is made in its own parish
    bool newProfessions = false; // the same for professions
    bool newPriests = false;     // each celebrant becomes a new person; else the name stays in the act
    QString overruling = {}; // the reason for which objections that can be overruled are; "": such an act isn't written

    bool operator==(const ImportOptions&) const = default;
};

// An act that isn't written, or to no card.
struct LeftAct
{
    int line = 0;
    QString act; // "Baptismos 3, fl. 12v, n.º 7: Maria"
    QStringList reasons;
    bool there = false; // because the BDP has it already

    bool operator==(const LeftAct&) const = default;
};

// What an import has done, or would do.
struct ImportReport
{
    int acts = 0;              // of the file
    QMap<ActKind, int> stored; // by kind
    int newPeople = 0;
    int knownPeople = 0; // taken for a person that the BDP, or an act before in the same file, has
    int keptNames = 0;   // people of the acts who are no person of the BDP: priests, and whoever has no name
    int sexesByName = 0; // of people whose sex the transcription leaves to the name (sexByName.h)
    int newFamilies = 0;
    int linkedCouples = 0;       // by the rule
    QMap<QString, int> rows;     // of the cards' tables, new or altered
    QStringList examples;        // the first sentences of what is written
    QList<LeftAct> alone;        // stored without cards, which couldn't take them; in the order of the file
    QList<LeftAct> left;         // not stored, in the same order
    QMap<QString, int> leftOut;  // what acts tell and no column takes → how often
    QMap<QString, int> unplaced; // places that the BDP doesn't have → how often
    QMap<QString, int> unknownProfessions;
    QStringList books;               // what is kept of the books of the file: "Livro b1: 1702; paroquiais"
    QMap<QString, int> unknownParts; // Transcript::unknownParts
    QString encoding;                // Transcript::encoding
    QList<Problem> problems;         // Transcript::problems
    bool cancelled = false;          // nothing was written
    bool isRehearsal = false;        // nothing was to be written

    bool operator==(const ImportReport&) const = default;

    int storedActs() const;
    QStringList lines() const; // the report in Portuguese, without its problems
};

// Called before each act and at the end; false ends the import.
using ImportProgress = std::function<bool(int done, int all)>;

// What storing transcripts, one after the other, would do. It is played on a copy of the BDP in a folder of its own,
// which goes with this: not a byte of the BDP changes, and it may be written meanwhile. The copy belongs to the thread
// that has made it. All throw jet::Error.
class Rehearsal
{
public:
    explicit Rehearsal(const jet::Connection& bdp);
    ~Rehearsal();
    Rehearsal(const Rehearsal&) = delete;
    Rehearsal& operator=(const Rehearsal&) = delete;

    // As importActs(), on the copy.
    ImportReport play(const Transcript& transcript, const ImportOptions& options, const ImportProgress& progress = {});

private:
    struct Private;
    std::unique_ptr<Private> d_;
};
ImportReport rehearsed(const jet::Connection& bdp, const Transcript& transcript, const ImportOptions& options,
                       const ImportProgress& progress = {});

// Stores the acts in one transaction, in their order, so that later ones find the couples of earlier ones. An act that
// stood in the BDP before isn't stored again: see KnownActs::has(). One that the cards can't take at all (a day that no
// calendar has, a child without a name) is stored alone: all its people stay in the act. What the file tells of its
// books is kept, too, also where no act of theirs is stored: see keepSources(). A damaged transcript, a cancel and an
// error leave nothing. Throws jet::Error.
ImportReport importActs(jet::Connection& bdp, const Transcript& transcript, const ImportOptions& options,
                        const ImportProgress& progress = {});

// Copies the BDP as it is to the folder of its copies, under a name that tells the occasion and the moment; daily
// copies never take it away. Returns its path. Throws jet::Error.
QString copyBeforeImport(const jet::Connection& bdp);
QString copyBeforeTakingBack(const jet::Connection& bdp); // an import; the same

} // namespace study
