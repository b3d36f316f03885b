// A subject of a study: how a parish is counted for it, and how the counts become tables and charts.
#pragma once

#include "study/indicators/settings.h"
#include "study/observation/presence.h"
#include "study/report/figure.h"
#include "study/statistics/tally.h"

#include <QString>

#include <span>
#include <vector>

namespace study::indicators {

using statistics::Key;
using statistics::Tally;

// A parish, made ready once for all subjects. Read-only, so any number of threads may share it.
struct Study
{
    const parish::Snapshot& parish;
    Settings settings;
    std::vector<observation::Union> unions;       // of parish.families(), in their order
    std::vector<observation::Presence> presences; // of parish.people(), in their order

    const observation::Union& unionOf(const parish::Family& family) const;
    const observation::Presence& presenceOf(const parish::Person& person) const;
};
// goesOn is asked as by presencesOf().
Study studyOf(const parish::Snapshot& parish, const Settings& settings, const parish::Snapshot::GoesOn& goesOn = {});

// Who stands behind a count: the person, the family, or both.
struct Who
{
    const parish::Person* person = nullptr;
    const parish::Family* family = nullptr;
};

// Why something was left out of a subject's counts. Counted as every cell is, under the reason's own key.
struct Reason
{
    quint16 count;    // the subject's count that it stands for
    const char* told; // "sem nascimento da mulher"
};

// What a subject tells its counts to: adds them up, or listens for who stands behind some cells.
class Taker
{
public:
    virtual ~Taker() = default;
    virtual void count(const Key& key, const Who& who, qint64 amount = 1) = 0;
};

// The part of a parish that one thread counts: people and families from first to last (past the end).
struct Share
{
    std::size_t firstPerson = 0, lastPerson = 0;
    std::size_t firstFamily = 0, lastFamily = 0;
};

struct Subject
{
    const char* id;                      // "idade-ao-casamento"; of files, of tallies and of settings
    const char* group;                   // "Nupcialidade"
    const char* title;                   // "Idade ao primeiro casamento"
    const char* method;                  // three sentences: who, how, what to mind
    std::span<const char* const> counts; // the name of each count in a tally's file; Key::count is its place here
    std::span<const Reason> reasons;     // what is left out

    // Counts each person and each family of the share once: the counts of two shares add up to those of both.
    void (*fill)(const Study& study, const Share& share, Taker& taker);
    // Tables and charts of a tally. "sem dados" where it is empty; never a division by zero.
    std::vector<report::Figure> (*figures)(const Tally& tally, const Settings& settings);
};

// In the order of a report: quality, nuptiality, fertility, births, mortality, other.
std::span<const Subject* const> subjects();
const Subject* subjectOf(const QString& id); // null for an unknown one

// Of the whole parish, on as many threads as are given (one at least). Same digits whatever their number. Throws what
// the subject's fill() throws.
Tally tallyOf(const Subject& subject, const Study& study, int threads = 1);

// Who stands behind these cells, each once, in the order of their numbers. In a key Tally::any stands for every value.
// goesOn is asked now and then, with 0: how far it is isn't known. Throws parish::Snapshot::Interrupted where it
// answered false.
std::vector<Who> behind(const Subject& subject, const Study& study, const std::vector<Key>& cells,
                        const parish::Snapshot::GoesOn& goesOn = {});

} // namespace study::indicators
