// A process that is killed while it writes leaves a BDP with every row that it had confirmed.
#include "jet/testbdp.h"

#include <QRandomGenerator>

#include <csignal>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace jet::test {

namespace {

constexpr int rounds = 8;

// What the process does that is killed: each row goes to two tables, and is confirmed through the pipe.
[[noreturn]] void insertForEver(const QString& file, int pipe)
{
    Connection bdp;
    bdp.open(file);
    Recordset set(bdp, QStringLiteral("select * from t order by a"));
    for (int next = set.recordCount() + 1;; ++next) {
        bdp.beginTrans();
        set.addNew();
        set.set(QStringLiteral("a"), next);
        set.set(QStringLiteral("b"), QString(2000, u'x')); // rows that go over many pages
        set.update();
        bdp.execute(QStringLiteral("insert into u (a) values (%1)").arg(next));
        bdp.commitTrans();
        if (write(pipe, &next, sizeof next) != sizeof next) _exit(1);
    }
}

// Lets such a process run for a while behind its first row, kills it, and returns the last row that it confirmed.
int insertAndKill(const QString& file)
{
    int ends[2];
    if (pipe(ends) != 0) return -1;
    const pid_t child = fork();
    if (child == 0) insertForEver(file, ends[1]);
    close(ends[1]);
    pollfd confirmation{ends[0], POLLIN, 0};
    poll(&confirmation, 1, 10'000);
    usleep(QRandomGenerator::global()->bounded(120) * 1000);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    int last = 0;
    while (read(ends[0], &last, sizeof last) == sizeof last) {
    }
    close(ends[0]);
    return last;
}

} // namespace

TEST(AKilledProcess, LeavesAllThatItHadConfirmed)
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("a.orv"));
    createDatabase(file);
    Connection bdp;
    bdp.open(file);
    bdp.execute(QStringLiteral("create table t (a long, b memo, constraint PKt primary key (a))"));
    bdp.execute(QStringLiteral("create table u (a long)"));
    bdp.close();
    int rows = 0;
    for (int round = 0; round < rounds; ++round) {
        const int confirmed = insertAndKill(file);
        EXPECT_GT(confirmed, rows);
        bdp.open(file);
        const Recordset check(bdp, QStringLiteral("select count(*) as n, max(a) as last from t"));
        rows = check[QStringLiteral("n")].toInt();
        EXPECT_EQ(check[QStringLiteral("last")].toInt(), rows);
        EXPECT_EQ(Recordset(bdp, QStringLiteral("select count(*) as n from u"))[0].toInt(), rows);
        // One more may have reached the disk before it could be confirmed.
        EXPECT_GE(rows, confirmed);
        EXPECT_LE(rows, confirmed + 1);
        bdp.close();
    }
}

} // namespace jet::test
