// What becomes of a file that is made beside its target, whatever ends the program meanwhile.
#include "platform/jet/claim.h"
#include "platform/jet/disk.h"
#include "platform/jet/draft.h"

#include "jet/recordeddisk.h"
#include "jet/testbdp.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <sqlite3.h>

#include <cerrno>
#include <filesystem>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace jet::test {

namespace {

class Drafts : public testing::Test
{
protected:
    QString path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }
    QStringList files() const { return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden); }
    QString write(const char* name, const QByteArray& content) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }
    static QByteArray content(const QString& file)
    {
        QFile source(file);
        EXPECT_TRUE(source.open(QIODevice::ReadOnly));
        return source.readAll();
    }

    QTemporaryDir folder_;
};

// Makes a draft in another process, which is then killed or goes on.
class OtherProcess
{
public:
    explicit OtherProcess(const QString& target)
    {
        int ends[2];
        EXPECT_EQ(pipe(ends), 0);
        child_ = fork();
        if (child_ == 0) {
            const Draft draft(target);
            [[maybe_unused]] const auto told = ::write(ends[1], "x", 1);
            for (;;)
                pause();
        }
        char byte = 0;
        EXPECT_EQ(read(ends[0], &byte, 1), 1);
        ::close(ends[0]);
        ::close(ends[1]);
    }
    ~OtherProcess() { kill(); }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;
    void kill()
    {
        if (child_ <= 0) return;
        ::kill(child_, SIGKILL);
        waitpid(child_, nullptr, 0);
        child_ = 0;
    }

private:
    pid_t child_ = 0;
};

} // namespace

TEST_F(Drafts, TakeTheirNameWholeAndLeaveNothingWhereTheyAreGivenUp)
{
    {
        Draft draft(path("a.orv"));
        write(QFileInfo(draft.path()).fileName().toUtf8(), "novo");
        EXPECT_FALSE(QFile::exists(path("a.orv")));
        draft.place();
    }
    EXPECT_EQ(content(path("a.orv")), "novo");
    {
        const Draft draft(path("b.orv"));
        EXPECT_EQ(files().size(), 2);
    }
    EXPECT_EQ(files(), QStringList(QStringLiteral("a.orv")));
}

TEST_F(Drafts, AreNotPlacedOverAFileNorOverALinkThatLeadsNowhere)
{
    const QString old = write("a.orv", "velho");
    const QString journal = write("a.orv-journal", "diario");
    EXPECT_EQ(numberOf([&] { Draft(old).place(); }), number::fileExists);
    EXPECT_EQ(content(old), "velho");
    EXPECT_EQ(content(journal), "diario");
    ASSERT_TRUE(QFile::link(path("nada"), path("b.orv")));
    EXPECT_EQ(numberOf([&] { Draft(path("b.orv")).place(); }), number::fileExists);
    EXPECT_EQ(disk().place(old, path("b.orv")), std::errc::file_exists);
    EXPECT_EQ(files().size(), 2);
}

TEST_F(Drafts, AreOnTheDiskBeforeTheyTakeTheirNameAndTheirFolderAfterwards)
{
    RecordedDisk disk;
    const QString old = write("a.orv", "velho");
    write("a.orv-journal", "velho");
    Draft(old).replace();
    EXPECT_EQ(disk.done().join(' '), QStringLiteral("make x sync x remove a.orv-journal syncfolder replace x>a.orv "
                                                    "syncfolder"));
    disk.forget();
    Draft(path("b.orv")).place();
    EXPECT_EQ(disk.done().join(' '), QStringLiteral("make x sync x place x>b.orv syncfolder"));
}

TEST_F(Drafts, LeaveTheTargetWhereTheDiskFails)
{
    const QString old = write("a.orv", "velho");
    for (const auto& [operation, reason, error] :
         {std::tuple{"make", std::errc::no_space_on_device, number::diskFull},
          std::tuple{"sync", std::errc::io_error, number::engineFailure},
          std::tuple{"replace", std::errc::permission_denied, number::permissionDenied}})
    {
        RecordedDisk disk;
        disk.fail(operation, reason);
        const Error failure = errorOf([&] { Draft(old).replace(); });
        EXPECT_EQ(failure.number, error) << operation;
        EXPECT_TRUE(failure.description.contains(QStringLiteral("\"%1\"").arg(old)));
        EXPECT_EQ(content(old), "velho");
        EXPECT_EQ(files(), QStringList(QStringLiteral("a.orv"))) << operation;
    }
}

TEST_F(Drafts, TellWhatIsWrongWithTheirName)
{
    const QString name = QString(245, u'x');
    const Error error = errorOf([&] { Draft(folder_.filePath(name)).place(); });
    EXPECT_EQ(error.number, number::pathNotFound);
    EXPECT_TRUE(error.description.endsWith(name + QStringLiteral("\" é demasiado longo."))) << error.what();
    EXPECT_EQ(files(), QStringList());
}

TEST_F(Drafts, TakeAShareOfTheDiskThatIsUsedUpForAFullOne)
{
    EXPECT_EQ(writeError({EDQUOT, std::generic_category()}, path("a.orv")).number, number::diskFull);
}

TEST_F(Drafts, DiskTellsAFileInThePlaceOfAFolder)
{
    EXPECT_EQ(disk().makeFolder(path("pasta")), std::error_code());
    EXPECT_EQ(disk().makeFolder(path("pasta")), std::error_code());
    EXPECT_EQ(disk().makeFolder(write("ficheiro", "x")), std::errc::not_a_directory);
    EXPECT_EQ(content(path("ficheiro")), "x");
}

TEST_F(Drafts, OfAKilledProgramAreRemovedByTheNextOne)
{
    OtherProcess other(path("a.orv"));
    ASSERT_EQ(files().size(), 1);
    const QString left = files().first();
    write((left + QStringLiteral("-journal")).toUtf8(), "x");
    removeLeftovers(folder_.path());
    EXPECT_EQ(files().size(), 2) << "it is at work";
    other.kill();
    Draft(path("b.orv")).place();
    EXPECT_EQ(files(), QStringList(QStringLiteral("b.orv")));
}

TEST_F(Drafts, AreTheOnlyFilesThatAreTakenForLeftovers)
{
    QStringList foreign;
    for (const char* name : {"a.orv", "a.orv.Xa3bc9", "a.orvtmp-abc12", "a.orv.orvtmp-ABC123",
                             "a.orv.orvtmp-abc123.orv", "a.orv.orvtmp-abc1234", ".orvtmp-abc123", "a.orv-journal"})
        foreign << QFileInfo(write(name, "x")).fileName();
    ASSERT_TRUE(QFile::link(path("a.orv"), path("l.orv.orvtmp-abc123")));
    ASSERT_EQ(mkfifo(path("f.orv.orvtmp-abc123").toUtf8(), 0600), 0);
    ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("d.orv.orvtmp-abc123")));
    write("a.orv.orvtmp-abc123", "x");
    write("a b.orv.orvtmp-zzzzzz-journal", "x");
    removeLeftovers(folder_.path());
    EXPECT_TRUE(QFileInfo(path("l.orv.orvtmp-abc123")).isSymLink());
    EXPECT_TRUE(QFileInfo::exists(path("f.orv.orvtmp-abc123")));
    EXPECT_TRUE(QFileInfo::exists(path("d.orv.orvtmp-abc123")));
    for (const QString& name : foreign)
        EXPECT_TRUE(QFile::exists(folder_.filePath(name))) << name.toStdString();
    EXPECT_FALSE(QFile::exists(path("a.orv.orvtmp-abc123")));
    EXPECT_FALSE(QFile::exists(path("a b.orv.orvtmp-zzzzzz-journal")));
}

TEST_F(Drafts, HaveANewNameEachTime)
{
    QSet<QString> names;
    for (int i = 0; i < 100; ++i)
        names << temporaryName(path("a.orv"));
    EXPECT_EQ(names.size(), 100);
    for (const QString& name : names) {
        EXPECT_TRUE(isTemporaryName(name));
        EXPECT_EQ(targetOf(name), path("a.orv"));
    }
}

TEST_F(Drafts, AClaimHoldsThroughEveryNameOfAFileAndGoesWithItsProcess)
{
    const QString file = write("a.orv", "x");
    ASSERT_TRUE(QFile::link(file, path("l.orv")));
    std::filesystem::create_hard_link(file.toStdString(), path("h.orv").toStdString());
    Claim claim;
    EXPECT_EQ(claim.take(file), Claim::Outcome::Taken);
    for (const char* name : {"a.orv", "l.orv", "h.orv"})
        EXPECT_EQ(Claim().take(path(name)), Claim::Outcome::Held) << name;
    claim.release();
    EXPECT_EQ(Claim().take(path("l.orv")), Claim::Outcome::Taken);
    EXPECT_EQ(Claim().take(path("nada.orv")), Claim::Outcome::Unknown);
    ASSERT_EQ(mkfifo(path("f.orv").toUtf8(), 0600), 0);
    EXPECT_EQ(Claim().take(path("f.orv")), Claim::Outcome::Unknown);
    EXPECT_EQ(Claim().take(QStringLiteral("/dev/null")), Claim::Outcome::Unknown);
}

TEST_F(Drafts, AClaimIsNoneOfTheProgramsThatAreStartedMeanwhile)
{
    const QString file = write("a.orv", "x");
    Claim claim;
    ASSERT_EQ(claim.take(file), Claim::Outcome::Taken);
    QProcess started;
    started.start(QStringLiteral("sleep"), {QStringLiteral("60")});
    ASSERT_TRUE(started.waitForStarted());
    claim.release();
    EXPECT_EQ(claim.take(file), Claim::Outcome::Taken);
    started.kill();
    started.waitForFinished();
}

} // namespace jet::test
