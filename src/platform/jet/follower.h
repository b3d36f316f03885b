// What has become of some tables since somebody looked last.
#pragma once

#include "platform/jet/connection.h"

#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace jet {

// Tells the rows that the connection has touched in its tables. Precondition: the connection outlives it.
class Follower
{
public:
    Follower(const Connection& connection, QStringList tables);
    ~Follower();
    Follower(const Follower&) = delete;
    Follower& operator=(const Follower&) = delete;

    // For each table, in their order, the rowids of the rows that were inserted, altered or deleted since the last
    // call, each once, also where that was rolled back; nothing where any row may have changed: at the first call,
    // where another connection has written, the file was opened anew, or more was done than insert, update and delete.
    // Throws Error.
    using Rowids = std::vector<qint64>;
    std::optional<std::vector<Rowids>> touched();

    void forget(); // the next call is a first one

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

// Another number behind each transaction that has changed the file, whoever's it was, in whatever session; the next one
// behind the transaction that is open. -1 where the file has none yet. Throws Error.
// Precondition: a transaction is open, or nobody else writes meanwhile.
qint64 changesOfFile(const Connection& connection);

} // namespace jet
