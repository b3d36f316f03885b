// A report as files for other programs: each table as CSV, and what they are in a tabular data package.
#pragma once

#include "study/report/report.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace study::report {

struct ReportFile
{
    QString name = {}; // a to z, 0 to 9, "-" and "."
    QByteArray bytes = {};

    bool operator==(const ReportFile&) const = default;
};

// One file for each table that has columns, "subject-table.csv" (sheet.h), and datapackage.json behind them: what each
// file and column holds, with the SHA-256 of each, the settings, and the states of the BDP. Same bytes for the same
// report.
std::vector<ReportFile> filesOf(const Report& report);

// Writes them all to a folder that is there. A file that stands there already is written over where it is of such a
// package and as it was written; of a file of anybody else, and of one that was changed since, Error fileExists tells
// the name, and nothing is written. Files of an older package that no longer belong to it stay.
// All are on the disk before the first one takes its name: what fails before has changed nothing. Throws jet::Error.
void writeFiles(const std::vector<ReportFile>& files, const QString& folder);

// One file, in place of any of that name; one that can't be written leaves what was there. Throws jet::Error.
void writeWhole(const QString& path, const QByteArray& bytes);

} // namespace study::report
