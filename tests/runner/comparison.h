// Two BDPs beside each other, as the runner reads them.
#pragma once

#include <QString>
#include <QStringList>

namespace Comparison {

// What differs between the tables of the cards in both files: each row that only one of them has, each value that
// differs, named by table, key and column. `except` are columns that aren't looked at ("individuo.obs"). Throws Failure
// for a file that can't be read, and for a column in `except` that neither has.
QStringList differences(const QString& one, const QString& other, const QStringList& except);

} // namespace Comparison
