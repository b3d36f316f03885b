// What a connection has written, for the lists that follow it.
#pragma once

#include <QByteArray>
#include <QString>

#include <deque>
#include <optional>
#include <vector>

struct sqlite3;

namespace jet {

// Notes which rows the connection has touched in the tables that somebody follows. What has become of a row, the
// reader looks up itself: so a row that was touched and isn't any different, as its statement was refused or its
// transaction rolled back, does no harm.
// It hears of the rows of insert, update and delete. Of anything else that writes it knows no rows, and says so.
class Changes
{
public:
    // Where the notes end at one moment. Those of an earlier open file are of no use.
    struct Moment
    {
        int era = -1;
        qint64 end = 0;
    };

    void install(sqlite3* database); // this stays where it is as long as the handle is open

    // From now on the rows of that table are noted.
    Moment now(const QString& table);
    // The keys of the rows touched since, each once, and where the notes end by now; nothing where others may have
    // been touched, too.
    // Precondition: the moment comes from now() of that table.
    std::optional<std::vector<qint64>> since(Moment& moment, const QString& table);

    static bool hearsRowsOf(const QString& statement); // one that writes
    void statementBegins();
    void statementEnds(bool heard); // without an error; the rows of a refused one may be noted

    // Levels of transactions. What the innermost one has touched is touched once more where it is rolled back.
    void levelBegins();
    void levelIsKept();
    void levelIsRolledBack();
    void allLevelsAreRolledBack();

private:
    struct Touched
    {
        int table;
        qint64 key;
    };

    static void hear(void* changes, int action, const char* database, const char* table, long long key);
    int indexOf(const char* table) const; // -1: nobody follows it
    qint64 end() const { return first_ + qint64(touched_.size()); }
    void note(Touched row);
    void lose(); // anything may have been touched
    void touchSince(qint64 begin);

    sqlite3* database_ = nullptr;
    std::vector<QByteArray> tables_;
    std::deque<Touched> touched_;
    qint64 first_ = 0; // the number of the first one of touched_
    std::vector<qint64> levels_;
    int era_ = 0;
    qint64 heard_ = 0; // rows, of whatever table
    qint64 total_ = 0; // that the engine has changed when its last statement ended
    qint64 heardBefore_ = 0;
    qint64 totalBefore_ = 0;
};

} // namespace jet
