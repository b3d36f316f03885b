// What lies beside a BDP when it is opened: what a killed program has left is played back, all else is refused.
#include "jet/testbdp.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <sqlite3.h>

#include <sys/stat.h>

namespace jet::test {

namespace {

QByteArray contentOf(const QString& file)
{
    QFile source(file);
    EXPECT_TRUE(source.open(QIODevice::ReadOnly)) << file.toStdString();
    return source.readAll();
}

void write(const QString& file, const QByteArray& content)
{
    QFile target(file);
    ASSERT_TRUE(target.open(QIODevice::WriteOnly)) << file.toStdString();
    target.write(content);
}

QByteArray bigEndian(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

// A program that is killed in the middle of a transaction, or in the middle of its commit.
struct Killed
{
    QByteArray before, during, after; // the file
    QByteArray journal;               // as full as it is when the first page of the file is written

    Killed(const QString& file, const char* changes, bool inFirstPage = true)
    {
        sqlite3* database = nullptr;
        EXPECT_EQ(sqlite3_open(file.toUtf8(), &database), SQLITE_OK);
        const auto run = [&](const char* sql) {
            EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(database);
        };
        before = contentOf(file);
        run("pragma cache_size = 1; pragma cache_spill = 1; pragma synchronous = off; begin");
        run(changes);
        if (inFirstPage) run("pragma user_version = 7");
        journal = contentOf(file + QStringLiteral("-journal"));
        during = contentOf(file);
        run("commit");
        after = contentOf(file);
        sqlite3_close(database);
        EXPECT_GT(journal.size(), 512);
        EXPECT_NE(before, after);
    }
};

constexpr auto changes = "update t set b = 'depois'; insert into t (a, b) select a + 1000, 'novo' from t";

} // namespace

class WhatLiesBesideAFile : public TestBdp
{
protected:
    WhatLiesBesideAFile()
    {
        run("create table t (a long, b varchar(10))");
        bdp.beginTrans();
        for (int i = 0; i < 500; ++i)
            bdp.execute(QStringLiteral("insert into t (a, b) values (%1, 'antes')").arg(i));
        bdp.commitTrans();
        bdp.close();
    }

    QString journal() const { return path() + QStringLiteral("-journal"); }

    // The open plays the journal back.
    void expectPlayedBack(const QByteArray& file, const QByteArray& diary, const QByteArray& before)
    {
        write(path(), file);
        write(journal(), diary);
        bdp.open(path());
        EXPECT_EQ(rows("select min(b) as um, max(b) as outro from t"), "antes|antes");
        bdp.close();
        EXPECT_EQ(contentOf(path()), before);
        EXPECT_FALSE(QFile::exists(journal()));
    }

    // The open is refused, naming what stands there, and touches nothing.
    void expectRefused(const char* suffix, const char* why)
    {
        const QString beside = path() + QLatin1String(suffix);
        const bool regular = QFileInfo(beside).isFile() && !QFileInfo(beside).isSymLink();
        const QByteArray file = contentOf(path());
        const QByteArray stood = regular ? contentOf(beside) : QByteArray();
        const Error error = errorOf([&] { bdp.open(path()); });
        EXPECT_EQ(error.number, number::engineFailure);
        EXPECT_EQ(error.description, QStringLiteral("O ficheiro \"%1\" não foi aberto, e nada foi alterado: ao lado "
                                                    "dele está \"%2\", que %3.")
                                         .arg(path(), beside, QString::fromUtf8(why)));
        EXPECT_EQ(bdp.state(), Connection::Closed);
        EXPECT_EQ(contentOf(path()), file);
        EXPECT_EQ(regular ? contentOf(beside) : QByteArray(), stood);
        bdp.close();
    }
};

constexpr auto foreign = "não é o diário que um programa interrompido lá deixou";
constexpr auto notRegular = "não é um ficheiro comum";

TEST_F(WhatLiesBesideAFile, IsPlayedBackWhereAProgramWasKilled)
{
    const Killed killed(path(), changes);
    ASSERT_NE(killed.during, killed.before);
    expectPlayedBack(killed.before, killed.journal, killed.before);
    expectPlayedBack(killed.during, killed.journal, killed.before);
    expectPlayedBack(killed.after, killed.journal, killed.before);
    QByteArray torn = killed.before; // of the first page only the first half has reached the disk
    expectPlayedBack(torn.replace(0, 512, killed.after.left(512)), killed.journal, killed.before);
}

TEST_F(WhatLiesBesideAFile, IsPlayedBackWhereOnlyTheEndOfTheFirstPageReachedTheDisk)
{
    const Killed killed(path(), "create table u (a); insert into u values (1); update t set b = 'depois'");
    QByteArray torn = killed.after;
    expectPlayedBack(torn.replace(0, 512, killed.before.left(512)), killed.journal, killed.before);
    torn = killed.after; // and of its first sector the front, up to behind the number of changes
    expectPlayedBack(torn.replace(28, 484, killed.before.mid(28, 484)), killed.journal, killed.before);
}

TEST_F(WhatLiesBesideAFile, IsPlayedBackWhereItsNextPartWasCutOff)
{
    const Killed killed(path(), changes);
    const quint32 page = 4096;
    const quint32 count = quint32((killed.journal.size() - 512) / (page + 8));
    QByteArray diary = killed.journal.left(512 + qsizetype(count) * (page + 8));
    diary.replace(8, 4, bigEndian(count));
    diary.resize((diary.size() + 511) / 512 * 512, '\0');
    diary += killed.journal.left(8) + QByteArray(504, '\0');
    expectPlayedBack(killed.after, diary, killed.before);
}

TEST_F(WhatLiesBesideAFile, IsPlayedBackUpToWhereItIsWhole)
{
    const Killed killed(path(), changes);
    expectPlayedBack(killed.before, killed.journal + QByteArray(4096 + 8, 'x'), killed.before);
}

TEST_F(WhatLiesBesideAFile, IsPlayedBackWhereAProgramWasKilledOverItsTables)
{
    const Killed killed(path(), "create table u (a); insert into u values (1); update t set b = 'depois'");
    expectPlayedBack(killed.after, killed.journal, killed.before);
}

TEST_F(WhatLiesBesideAFile, MayBeTheBeginningOfAJournal)
{
    const Killed killed(path(), changes);
    write(path(), killed.before);
    for (const qsizetype size : {0, 1, 7, 8, 20, 27, 100, 511}) {
        write(journal(), killed.journal.left(size));
        EXPECT_NO_THROW(bdp.open(path())) << size;
        bdp.close();
        EXPECT_EQ(contentOf(path()), killed.before) << size;
    }
    write(journal(), QByteArray(2000, '\0'));
    EXPECT_NO_THROW(bdp.open(path()));
    bdp.close();
    QByteArray begun = killed.journal; // the magic is written last
    write(journal(), begun.replace(3, 9, QByteArray(9, '\0')));
    EXPECT_NO_THROW(bdp.open(path()));
    bdp.close();
    EXPECT_EQ(contentOf(path()), killed.before);
    QByteArray headless = killed.journal;
    write(journal(), headless.replace(0, 28, QByteArray(28, '\0')));
    EXPECT_NO_THROW(bdp.open(path()));
    bdp.close();
    EXPECT_EQ(contentOf(path()), killed.before);
}

TEST_F(WhatLiesBesideAFile, IsRefusedWhereItIsNoRegularFile)
{
    for (const char* suffix : {"-journal", "-wal", "-shm"}) {
        const QString beside = path() + QLatin1String(suffix);
        ASSERT_EQ(mkfifo(beside.toUtf8(), 0600), 0);
        expectRefused(suffix, notRegular);
        QFile::remove(beside);
        write(path(QStringLiteral("alvo")), "x");
        ASSERT_TRUE(QFile::link(path(QStringLiteral("alvo")), beside));
        expectRefused(suffix, notRegular);
        EXPECT_EQ(contentOf(path(QStringLiteral("alvo"))), "x");
        QFile::remove(beside);
        ASSERT_TRUE(QDir().mkdir(beside));
        expectRefused(suffix, notRegular);
        QDir().rmdir(beside);
    }
}

TEST_F(WhatLiesBesideAFile, IsRefusedWhereItNamesAFurtherFileWhichStays)
{
    const QString named = path(QStringLiteral("testamento.txt"));
    write(named, "letras");
    const Killed killed(path(), changes);
    write(path(), killed.before);
    const QByteArray name = named.toUtf8();
    quint32 sum = 0;
    for (const char letter : name)
        sum += quint32(letter);
    const QByteArray end = name + bigEndian(quint32(name.size())) + bigEndian(sum) + killed.journal.left(8);
    QByteArray headless = killed.journal;
    headless[0] = '\0';
    for (const QByteArray& begin : {killed.journal, killed.journal.left(512), QByteArray("x"), headless}) {
        write(journal(), begin + end);
        expectRefused("-journal", "manda mexer num outro ficheiro");
        EXPECT_EQ(contentOf(named), "letras");
        requireReplaceable(path());
        EXPECT_EQ(contentOf(named), "letras");
        EXPECT_EQ(contentOf(path()), killed.before);
    }
}

TEST_F(WhatLiesBesideAFile, IsRefusedWhereItIsNoJournal)
{
    write(journal(), "Isto não é um diário, mas uma carta.");
    expectRefused("-journal", foreign);
    write(journal(), QByteArray(5000, 'x'));
    expectRefused("-journal", foreign);
}

TEST_F(WhatLiesBesideAFile, IsRefusedWhereItIsTheJournalOfAnotherFile)
{
    const auto make = [&](const char* name, const char* before) {
        const QString other = path(QString::fromUtf8(name));
        outside(other, before);
        outside(other,
                "create table t (a long, b varchar(10)); with recursive n (x) as (select 1 union all select x + 1 "
                "from n limit 500) insert into t select x, 'outro' from n");
        return Killed(other, changes).journal;
    };
    for (const char* before : {"pragma page_size = 1024", "pragma page_size = 4096",
                               "create table primeira (x); insert into primeira values (zeroblob(99999))",
                               "create table primeira (x); drop table primeira"})
    {
        write(journal(), make("outro.orv", before));
        expectRefused("-journal", foreign);
        QFile::remove(path(QStringLiteral("outro.orv")));
    }
}

TEST_F(WhatLiesBesideAFile, IsPlayedBackWhereAProgramWasKilledBeforeItsCommit)
{
    outside("insert into t select t.a, t.b from t, (select a from t limit 20)");
    const Killed killed(path(), "update t set b = 'agora'", false);
    ASSERT_NE(killed.during, killed.before);
    expectPlayedBack(killed.during, killed.journal, killed.before);
}

// The first page is in a part of the journal that has not reached the disk.
TEST_F(WhatLiesBesideAFile, IsPlayedBackWhereAPageHasBecomeAnotherKindSinceItsLastPart)
{
    outside("insert into t select t.a, t.b from t, (select a from t limit 40)");
    const Killed killed(path(), "update t set b = 'agora'", false);
    QByteArray file = killed.during;
    const auto page = qFromBigEndian<quint32>(killed.journal.constData() + 512);
    file[(qsizetype(page) - 1) * 4096] = '\5'; // no leaf any more
    ASSERT_NE(file, killed.during);
    expectPlayedBack(file, killed.journal, killed.before);
}

TEST_F(WhatLiesBesideAFile, IsRefusedWhereItIsTheJournalOfAnotherFileOfTheSameSizeBeforeItsCommit)
{
    const QString other = path(QStringLiteral("outro.orv"));
    outside(other,
            "create table u (a long, b varchar(10)); create index ub on u (b); with recursive n (x) as (select 1 "
            "union all select x + 1 from n limit 60) insert into u select x, 'outro' from n");
    for (int i = 0; i < 100 && QFileInfo(other).size() != QFileInfo(path()).size(); ++i)
        QFileInfo(other).size() < QFileInfo(path()).size()
            ? outside(other, "insert into u select a + 1000, 'mais' from u limit 20")
            : outside("insert into t select a + 1000, 'antes' from t limit 20");
    ASSERT_EQ(QFileInfo(other).size(), QFileInfo(path()).size());
    write(journal(), Killed(other, "update u set b = 'x' || a", false).journal);
    expectRefused("-journal", foreign);
}

TEST_F(WhatLiesBesideAFile, IsRefusedWhereItWouldCutTheFile)
{
    const Killed killed(path(), changes);
    write(path(), killed.before);
    for (const quint32 pages : {0U, 1U, 2U, 1000U}) {
        QByteArray diary = killed.journal.left(512);
        diary.replace(8, 4, bigEndian(0)).replace(16, 4, bigEndian(pages));
        write(journal(), diary);
        expectRefused("-journal", foreign);
    }
}

TEST_F(WhatLiesBesideAFile, IsRefusedWhereItsMeasuresAreNone)
{
    const Killed killed(path(), changes);
    write(path(), killed.before);
    const auto with = [&](qsizetype at, quint32 value) {
        QByteArray diary = killed.journal;
        write(journal(), diary.replace(at, 4, bigEndian(value)));
        expectRefused("-journal", foreign);
    };
    with(20, 3); // the sector
    with(20, 1U << 31);
    with(24, 100); // the page
    with(24, 1U << 31);
    with(24, 1024);
    with(512, 0x7fffffff); // the number of the first page in it
}

TEST_F(WhatLiesBesideAFile, IsRefusedWhereItIsALogWithWritingsOfAnotherProgram)
{
    for (const char* mode : {"delete", "wal"}) {
        outside((QByteArray("pragma journal_mode = ") + mode).constData());
        write(path() + QStringLiteral("-wal"), QByteArray(5000, 'x'));
        expectRefused("-wal",
                      "guarda o que outro programa escreveu: a BDP tem de ser fechada primeiro por esse programa");
        QFile::remove(path() + QStringLiteral("-wal"));
    }
}

TEST_F(WhatLiesBesideAFile, IsLeftAloneWhileAnotherProgramWritesThere)
{
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path().toUtf8(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "begin; insert into t (a) values (9999)", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_NO_THROW(bdp.open(path()));
    EXPECT_EQ(rows("select count(*) as n from t"), "500");
    ASSERT_EQ(sqlite3_exec(other, "commit", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(rows("select count(*) as n from t"), "501");
    sqlite3_close(other);
}

TEST_F(WhatLiesBesideAFile, IsThatOfTheFileBehindALink)
{
    const QString link = path(QStringLiteral("link.orv"));
    ASSERT_TRUE(QFile::link(path(), link));
    ASSERT_EQ(mkfifo(journal().toUtf8(), 0600), 0);
    EXPECT_EQ(numberOf([&] { bdp.open(link); }), number::engineFailure);
}

TEST_F(WhatLiesBesideAFile, GoesWithAFileThatIsReplacedWithoutBeingPlayedBack)
{
    ASSERT_EQ(mkfifo(journal().toUtf8(), 0600), 0);
    replaceDatabase(path(), [](const QString&) {});
    bdp.open(path());
    EXPECT_EQ(rows("select count(*) as n from sqlite_master"), "0");
    EXPECT_FALSE(QFile::exists(journal()));
}

} // namespace jet::test
