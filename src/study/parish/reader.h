// Fills a snapshot from the tables of a BDP. For this room alone.
#pragma once

#include "platform/jet/connection.h"
#include "platform/jet/rows.h"
#include "study/parish/snapshot_p.h"

#include <QSet>

namespace study::parish {

class Reader
{
public:
    using Rows = Snapshot::Rows;

    Reader(const jet::Connection& bdp, const Snapshot::GoesOn& goesOn);

    Snapshot read();
    // Of rows that were made without a BDP, in the order in which read() puts them, with the numbers that they name:
    // what points from row to row is found here.
    static Snapshot linked(std::unique_ptr<Rows> rows);

private:
    // The tables, one after the other.
    void readHome();
    void readCodes();
    void readPlaces();
    void readPeople();
    void readFamilies();
    void readMemberships();
    void readAssistances();
    void readResidences();
    void readProfessions();
    void readSignatures();
    void readBequests();
    void readSuffrages();
    void readPassports();
    void readActs();

    // Then what points from row to row.
    static void linkPeople(Rows& rows);
    static void linkMemberships(Rows& rows);
    static void linkChildren(Rows& rows);
    static void linkAssistances(Rows& rows);
    static void linkDatedRows(Rows& rows);

    bool hasColumns(const QString& table, const QStringList& columns) const; // of a table of the acts
    void next();                                             // counts a row, and asks now and then whether to go on
    PersonLink link(const jet::Rows& row, int column) const; // the person is found later
    Priest priest(const jet::Rows& row, int column, int function) const;
    Place place(const jet::Rows& row, int column); // and the column behind it
    QString shared(const QString& text);           // one copy of each code

    const jet::Connection& bdp_;
    const Snapshot::GoesOn& goesOn_;
    std::unique_ptr<Rows> rows_;
    QSet<QString> texts_;
    qint64 all_ = 1, read_ = 0;
};

} // namespace study::parish
