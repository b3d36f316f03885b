// The rows that an import adds.
#pragma once

#include "platform/jet/rows.h"
#include "study/exchange/gedcomTables.h"

#include <QHash>
#include <QMap>
#include <QString>
#include <QVariant>

#include <map>
#include <memory>

namespace study::exchange {

using RowValues = QHash<QString, QVariant>; // by columns, in small letters; one that isn't there is null

inline constexpr qsizetype longestName = 254; // letters of a place, a code or a profession, behind its mark

// Precondition: the connection outlives it.
class GedcomRows
{
public:
    explicit GedcomRows(jet::Connection& bdp);
    ~GedcomRows();
    GedcomRows(const GedcomRows&) = delete;
    GedcomRows& operator=(const GedcomRows&) = delete;

    // Precondition: a table of tableList.h that every BDP has. Throws jet::Error.
    void add(const QString& table, const RowValues& values);
    const QMap<QString, qint64>& counts() const { return counts_; }

private:
    struct Prepared;
    jet::Connection& bdp_;
    std::map<QString, std::unique_ptr<Prepared>> prepared_;
    QMap<QString, qint64> counts_ = {};
};

} // namespace study::exchange
