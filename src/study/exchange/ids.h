// IDS out: a BDP in the Intermediate Data Structure, version 4, that databases of historical demography share:
// everything that is known of a person or of a context is a row of its own, with a type, a value and a date. G. Alter
// and K. Mandemakers, Historical Life Course Studies 1 (2014), 1–26.
#pragma once

#include "platform/jet/connection.h"
#include "study/exchange/progress.h"
#include "study/exchange/tables.h"
#include "study/indicators/settings.h"

#include <QDate>
#include <QString>

namespace study::exchange {

struct IdsOptions
{
    bool upperCase = false;         // BIRTH_DATE instead of Birth_date
    bool reversedRelations = false; // Id_I_2 is the Relation of Id_I_1; otherwise Id_I_1 that of Id_I_2
    bool childrenAtHome = false;    // a residence of a family is also that of its children at home
    // Who may be alive stays out: born less than so many years before `today`, without a death. 0: nobody stays out.
    int limitYears = 110;
    QDate today = {};   // valid where there is a limit
    QDate version = {}; // of the database, the end of its name ("ORV_030899_20261123"); invalid: it has none
    QString program = {};
    indicators::Settings study = {}; // by which unions end, and legitimacy is told
    parish::Source source = {};
};

// What has been written, and what hasn't.
struct IdsCounts
{
    std::vector<TableCount> tables = {}; // in the order in which they are written
    qint64 people = 0;
    qint64 withheldPeople = 0;   // who may be alive
    qint64 withheldFamilies = 0; // of which only links are written, or nothing
    qint64 lostLinks = 0;        // to a person or a family that isn't in the BDP
    qint64 unmapped = 0;         // codes of the filiation that count as nothing: the original alone is written

    bool operator==(const IdsCounts&) const = default;
};

// Writes INDIVIDUAL, INDIV_INDIV, INDIV_CONTEXT, CONTEXT, CONTEXT_CONTEXT and METADATA as CSV (UTF-8, commas, an empty
// cell for what is missing) and datapackage.json into a folder that is there: one state of the BDP, as
// report::PackageFiles does. The same state and options give the same bytes. Each type, relation and coded value stands
// in METADATA with what it means, and so does each choice that programs make otherwise.
// Rows go from the BDP to the files one after the other. Beside that, memory takes the whole parish (parish::Snapshot)
// while the times of observation are found, before the first row, and then some 48 bytes a person and the places.
// Throws jet::Error, in Portuguese, and Interrupted where goesOn, asked with the share that is done, answered false;
// the folder is then as it was.
IdsCounts exportIds(const jet::Connection& bdp, const QString& folder, const IdsOptions& options,
                    const GoesOn& goesOn = {});

} // namespace study::exchange
