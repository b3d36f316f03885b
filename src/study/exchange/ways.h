// The ways out of a BDP and into one, as the window and the shell offer them: a row each.
#pragma once

#include "study/exchange/gedcom.h"
#include "study/exchange/tables.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace study::exchange {

// Something about what was read or written. Of no file where that is "", of the whole file where the line is 0.
struct Remark
{
    QString file = {}; // "individuo.csv"
    int line = 0;      // from 1
    QString text = {}; // in Portuguese

    bool operator==(const Remark&) const = default;
};
QString textOf(const Remark& remark); // "individuo.csv:12: …"

// What came of a way, in Portuguese.
struct Exchanged
{
    QStringList lines = {}; // what was written
    std::vector<Remark> warnings = {};
    std::vector<Remark> errors = {}; // of a way in: with one of them nothing was written

    bool operator==(const Exchanged&) const = default;
};

enum class Place : quint8
{
    File,
    Folder
};

// What the user may say of a way out, beside its target.
enum class Choice : quint8
{
    LimitYears,
    BirthDates,
    AssociationsTwice,
    EmptyOrphans,
    UpperCase,
    ReversedRelations,
    ChildrenAtHome
};

struct OutOptions
{
    int limitYears = 110; // as in GedcomOptions, the next two as well
    BirthDates birthDates = BirthDates::Christenings;
    bool associationsTwice = false;
    bool emptyOrphans = false; // Orphans::Emptied instead of Orphans::Apart
    bool upperCase = false, reversedRelations = false, childrenAtHome = false; // as in IdsOptions
    QDate version = {}; // the same; invalid: the day on which the BDP was last written

    bool operator==(const OutOptions&) const = default;
};

struct OutOrder
{
    QString bdp; // the file that the rows are of, which is never written over
    QString target;
    OutOptions options = {};
    QDate today = {};                            // what may be alive is told by
    std::function<parish::Source()> source = {}; // asked once, while the state of the file is held; may be null
};

struct WayOut
{
    const char* name;  // "gedcom-7.0": of the settings, and of what chooses it
    const char* title; // in Portuguese, as the next one
    const char* explanation;
    Place target;
    const char* suffix; // of a file, without its point; "" of a folder
    std::vector<Choice> choices;
    Exchanged (*run)(const jet::Connection& bdp, const OutOrder& order, const GoesOn& goesOn);

    bool offers(Choice choice) const;
};

const std::vector<WayOut>& waysOut();
const WayOut* wayOut(const QString& name); // null where there is none

// Writes one state of the BDP, whole or not at all; a folder that isn't there is made. What stands at the target is
// taken for an earlier export and replaced, or refused where it is something else, with its name.
// Throws jet::Error, in Portuguese, and Interrupted; the target is then as it was.
Exchanged writeOut(const WayOut& way, const jet::Connection& bdp, const OutOrder& order, const GoesOn& goesOn = {});

// "", or what the user is asked before the way writes there, as something stands there already.
QString questionBefore(const WayOut& way, const QString& target);

// What a way in writes to.
enum class Into : quint8
{
    NewBdp,
    OpenBdp
};

// What the user may say of a way in, beside its source.
enum class InChoice : quint8
{
    NewPlaces,
    NewProfessions
};

struct InOptions
{
    bool newPlaces = true; // as in GedcomImportOptions, both
    bool newProfessions = true;

    bool operator==(const InOptions&) const = default;
};

struct InOrder
{
    QString source;
    QString bdp; // the one to be made, or that is open
    InOptions options = {};
    bool rehearse = false;

    bool operator==(const InOrder&) const = default;
};

struct WayIn
{
    const char* name;
    const char* title;
    const char* explanation;
    Place source;
    const char* filter; // of a dialog for the file, as platform/forms/msgbox.h has it; "" of a folder
    Into into;
    std::vector<InChoice> choices;
    Exchanged (*run)(jet::Connection* open, const InOrder& order, const GoesOn& goesOn);

    bool offers(InChoice choice) const;
};

const std::vector<WayIn>& waysIn();
const WayIn* wayIn(const QString& name); // null where there is none

// A rehearsal reads and tells all, and nothing is left of it. Throws jet::Error, in Portuguese, and Interrupted;
// nothing was written then, nor where there are errors.
// Precondition: `open` is the BDP of a way into an open one, which a rehearsal doesn't write, with no transaction
// pending; null otherwise.
Exchanged readIn(const WayIn& way, jet::Connection* open, const InOrder& order, const GoesOn& goesOn = {});

} // namespace study::exchange
