// The command of the scenario runner: which scenarios it plays, how many at once, how long, and what it tells of them.
#include "play.h"

#include <QImage>
#include <QRegularExpression>

TEST(ScenarioRunner, OneScenarioIsPlayedByItsTitle)
{
    const QString text = "scenario \"a\"\nstart\nscenario \"b\"\nanswer yes\n";
    EXPECT_EQ(play(text, {"--only", "a"}).lines.join('\n').toStdString(), "ok prova.txt:1 a\n1 passed, 0 failed");
    EXPECT_EQ(play(text, {"--only", "c"}).lines.join('\n').toStdString(),
              "not ok --only: no scenario has the title \"c\"\n0 passed, 1 failed");
}

TEST(ScenarioRunner, FilesThatTellNothingFail)
{
    EXPECT_EQ(play("# nothing\n").lines.join('\n').toStdString(),
              "not ok prova.txt: no scenario stands in this file\n0 passed, 1 failed");
    EXPECT_EQ(
        play("scenario \"a\"\n", {"nada.txt"}).lines.join('\n').toStdString(),
        "not ok nada.txt: the file can't be read: No such file or directory\nok prova.txt:1 a\n1 passed, 1 failed");
}

TEST(ScenarioRunner, AScenarioThatHangsIsEnded)
{
    const Outcome outcome =
        play("scenario \"a\"\nstart\nopen frmProva\nclick frmProva.cmdPreso\n", {"--hasten", "--limit", "5"});
    const QRegularExpression told(
        "^not ok prova.txt:[1-4] a: not over after 5 seconds$"); // where depends on the machine
    EXPECT_TRUE(told.match(outcome.lines.value(0)).hasMatch()) << outcome.lines.join('\n').toStdString();
    EXPECT_EQ(outcome.lines.value(1).toStdString(), "0 passed, 1 failed");
}

TEST(ScenarioRunner, FoldersOfFailedScenariosAreKept)
{
    const Outcome outcome = play("scenario \"a\"\nstart\nshot \"a.png\"\nanswer yes\n", {"--keep"});
    const QString folder = outcome.lines.value(1).section("kept: ", 1);
    ASSERT_TRUE(QFile::exists(folder + "/dir/a.png")) << outcome.lines.join('\n').toStdString();
    QDir(QFileInfo(folder).path()).removeRecursively();
}

TEST(ScenarioRunner, PicturesGoToTheirFolderAtTwiceTheScale)
{
    const QTemporaryDir folder;
    const Outcome outcome = play("scenario \"a\"\nstart\nopen frmProva\nshot \"tudo.png\"\nshot frmProva \"so.png\"\n",
                                 {"--shots", folder.filePath("imagens"), "--folder", folder.filePath("cenas")});
    EXPECT_EQ(outcome.lines.last().toStdString(), "1 passed, 0 failed");
    const QImage all(folder.filePath("imagens/tudo.png")), form(folder.filePath("imagens/so.png"));
    ASSERT_FALSE(all.isNull() || form.isNull());
    EXPECT_EQ(all.width() % 2, 0);
    EXPECT_LT(form.width(), all.width());
    EXPECT_GT(all.width(), 1366) << "twice the points";
}

TEST(ScenarioRunner, EachScenarioFindsWhatIsBrought)
{
    const Outcome outcome = play("scenario \"a\"\nexpect file \"trazido.txt\" exists\nremove \"trazido.txt\"\n"
                                 "scenario \"b\"\nexpect file \"trazido.txt\" exists\n",
                                 {"--bring", "trazido.txt"}, {{"trazido.txt", "a"}});
    EXPECT_EQ(outcome.lines.last().toStdString(), "2 passed, 0 failed");
}

TEST(ScenarioRunner, OfAFormThatIsNotShownThereIsNoPicture)
{
    const Outcome outcome = play("scenario \"a\"\nstart\nshot frmProva \"a.png\"\n");
    EXPECT_EQ(outcome.lines.value(0).toStdString(), "not ok prova.txt:3 a: frmProva isn't loaded");
}

TEST(ScenarioRunner, SoManyArePlayedAtOnceAsItIsToldToAndToldInTheirOrder)
{
    // The first one waits behind the splash for what the second one does meanwhile.
    const QString text = "scenario \"a\"\nstart\nopen frmProva\nsplash keep\nclick frmProva.cmdEspera\n"
                         "expect file \"../../2/dir/b.txt\" exists\nkey Escape\n"
                         "scenario \"b\"\nfile \"b.txt\"\nend\nexpect file \"c.txt\" exists\n"
                         "scenario \"c\"\nstart\nopen frmProva\nclick frmProva.cmdAborta\n";
    const Outcome together = play(text, {"--jobs", "2", "--keep"});
    EXPECT_EQ(together.lines.value(0).toStdString(), "ok prova.txt:1 a");
    EXPECT_TRUE(together.lines.value(1).startsWith("not ok prova.txt:11 b: ")) << together.lines[1].toStdString();
    EXPECT_TRUE(together.lines.contains("not ok prova.txt:15 c: the process crashed"));
    EXPECT_EQ(together.lines.last().toStdString(), "1 passed, 2 failed");
    QDir(QFileInfo(together.lines.value(2).section("kept: ", 1)).path()).removeRecursively();

    const Outcome alone = play(text, {"--jobs", "1"});
    EXPECT_TRUE(alone.lines.value(0).startsWith("not ok prova.txt:6 a: ")) << alone.lines[0].toStdString();
    EXPECT_EQ(alone.lines.last().toStdString(), "0 passed, 3 failed");
}

TEST(ScenarioRunner, TheSlowestAreToldBesideTheReport)
{
    const QString text = "scenario \"a\"\nexpect file \"a\" missing\nscenario \"b\"\nstart\n"
                         "scenario \"c\"\nexpect file \"c\" missing\n";
    const Outcome outcome = play(text, {"--slowest", "2"});
    EXPECT_EQ(outcome.lines,
              QStringList({"ok prova.txt:1 a", "ok prova.txt:3 b", "ok prova.txt:5 c", "3 passed, 0 failed"}));
    const QStringList told = outcome.told.filter(QRegularExpression("^[1-9][0-9]* ms prova.txt:[135] [abc]$"));
    ASSERT_EQ(told.size(), 2) << outcome.told.join('\n').toStdString();
    EXPECT_GE(told[0].section(' ', 0, 0).toInt(), told[1].section(' ', 0, 0).toInt());
    EXPECT_EQ(play(text).told.filter(" ms ").size(), 0);
}
