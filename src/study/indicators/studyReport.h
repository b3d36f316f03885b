// The report of a study: the parishes it is of, its settings in words, and the figures of all subjects.
#pragma once

#include "study/indicators/tallyJson.h"
#include "study/report/report.h"

#include <QDateTime>
#include <QString>

#include <functional>
#include <span>

namespace study::indicators {

// Asked now and then by the thread that calls, with the share that is done, from 0 to 1; false ends the counting.
using GoesOn = std::function<bool(double done)>;

// All subjects of one parish, without the list of baptisms of its settings, which is of people; on as many threads as
// are given (one at least). Same digits whatever their number. Throws parish::Snapshot::Interrupted where goesOn
// answered false, and what a subject's fill() throws.
Tallies talliesOf(const Study& study, const parish::Source& source, int threads = 1, const GoesOn& goesOn = {},
                  std::span<const Subject* const> known = subjects());

// What stands at the head of a report.
struct Heading
{
    QString title = "Estudo demográfico";
    QString program = {}; // with its version
    QDateTime made = {};
};

// A chapter for each group of the subjects that were counted, in the order of the known ones, by settingsOf(tallies).
// What the parishes of joined tallies have set for themselves is told of each. goesOn is asked before each subject;
// throws parish::Snapshot::Interrupted where it answered false.
report::Report reportOf(const Tallies& tallies, const Heading& heading,
                        std::span<const Subject* const> known = subjects(), const GoesOn& goesOn = {});

// The settings in words, each of them, those as standard too.
std::vector<report::Told> inWords(const Tallies& tallies);

} // namespace study::indicators
