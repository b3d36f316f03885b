// A process that is killed while it writes leaves a BDP with every row that it had confirmed.
#include "jet/testbdp.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>

#include <cstdio>

namespace jet::test {

namespace {

constexpr auto fileVariable = "ORV_CRASH_FILE";
constexpr int rounds = 8;

QList<int> confirmedRows(const QByteArray& output)
{
    QList<int> numbers;
    for (const QByteArray& line : output.left(output.lastIndexOf('\n')).split('\n')) // the last line may be cut short
        if (line.startsWith("row ")) numbers << line.mid(4).toInt();
    return numbers;
}

// Runs the test below in a process of its own, kills it after a while, and returns the rows that it confirmed.
QList<int> insertAndKill(const QString& file)
{
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(fileVariable), file);
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--gtest_also_run_disabled_tests"),
                                                          QStringLiteral("--gtest_filter=AKilledProcess.*Inserts*")});
    QByteArray output;
    while (!output.contains("row ") && child.waitForReadyRead(10000))
        output += child.readAllStandardOutput();
    child.waitForFinished(QRandomGenerator::global()->bounded(120));
    child.kill();
    child.waitForFinished();
    return confirmedRows(output + child.readAllStandardOutput());
}

} // namespace

// Not a test of its own: what the killed process does.
TEST(AKilledProcess, DISABLED_InsertsUntilItIsKilled)
{
    const QString file = qEnvironmentVariable(fileVariable);
    if (file.isEmpty()) GTEST_SKIP();
    Connection bdp;
    bdp.open(file);
    Recordset set(bdp, QStringLiteral("select * from t order by a"));
    int next = set.recordCount() == 0 ? 1 : (set.moveLast(), set[QStringLiteral("a")].toInt() + 1);
    for (;; ++next) {
        bdp.beginTrans();
        set.addNew();
        set.set(QStringLiteral("a"), next);
        set.set(QStringLiteral("b"), QString(2000, u'x')); // rows that go over many pages
        set.update();
        bdp.execute(QStringLiteral("insert into u (a) values (%1)").arg(next));
        bdp.commitTrans();
        std::printf("row %d\n", next);
        std::fflush(stdout);
    }
}

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
    int confirmed = 0;
    for (int round = 0; round < rounds; ++round) {
        for (const int number : insertAndKill(file))
            EXPECT_EQ(number, ++confirmed);
        bdp.open(file);
        Recordset check(bdp, QStringLiteral("select count(*) as n, max(a) as last from t"));
        const int kept = check[QStringLiteral("n")].toInt();
        EXPECT_EQ(check[QStringLiteral("last")].toInt(), kept);
        EXPECT_EQ(Recordset(bdp, QStringLiteral("select count(*) as n from u"))[0].toInt(), kept);
        // One more may have reached the disk before its confirmation was printed.
        EXPECT_GE(kept, confirmed);
        EXPECT_LE(kept, confirmed + 1);
        confirmed = kept;
        bdp.close();
    }
    EXPECT_GE(confirmed, rounds);
}

} // namespace jet::test
