// The settings of scenario files: beginnings that several scenarios share.
#include "play.h"

namespace {

std::string toldOf(const QString& text, const QList<Beside>& others = {})
{
    return play(text, {}, others).lines.join('\n').toStdString();
}

} // namespace

TEST(ScenarioSettings, ASettingIsPlayedWhereItIsAskedFor)
{
    EXPECT_EQ(toldOf("setting \"a file\"\n"
                     "file \"a.txt\"\n"
                     "setting\n"
                     "end\n"
                     "end\n"
                     "setting \"two files\"\n"
                     "with \"a file\"\n"
                     "file \"b.txt\"\n"
                     "end\n"
                     "end\n"
                     "scenario \"a\"\n"
                     "expect file \"a.txt\" missing\n"
                     "with \"two files\"\n"
                     "expect file \"a.txt\" has \"setting\"\n"
                     "expect file \"b.txt\" exists\n"
                     "scenario \"b\"\n"
                     "with \"a file\"\n"
                     "expect file \"a.txt\" exists\n"
                     "expect file \"b.txt\" missing\n"),
              "ok prova.txt:11 a\nok prova.txt:16 b\n2 passed, 0 failed");
}

TEST(ScenarioSettings, ASettingMayBeToldAfterTheScenarioThatUsesIt)
{
    EXPECT_EQ(toldOf("scenario \"a\"\n"
                     "with \"both\"\n"
                     "expect file \"a.txt\" exists\n"
                     "setting \"both\"\n"
                     "with \"a file\"\n"
                     "end\n"
                     "setting \"a file\"\n"
                     "file \"a.txt\"\n"
                     "end\n"
                     "end\n"),
              "ok prova.txt:1 a\n1 passed, 0 failed");
}

TEST(ScenarioSettings, AFailureInsideASettingNamesItsPlaceAndThatOfEachWith)
{
    EXPECT_EQ(toldOf("setting \"deep\"\n"
                     "exec \"nada\"\n"
                     "end\n"
                     "include \"settings.txt\"\n"
                     "scenario \"a\"\n"
                     "with \"high\"\n"
                     "start\n"
                     "scenario \"b\"\n"
                     "start\n"
                     "with \"deep\"\n",
                     {{"settings.txt", "# one\nsetting \"high\"\nbdp \"a.orv\" bare\nwith \"deep\"\nend\n"}}),
              "not ok prova.txt:6 a: near \"nada\": syntax error in \"nada\" "
              "(prova.txt:2 in \"deep\", by settings.txt:4 in \"high\")\n"
              "not ok prova.txt:10 b: no BDP is in use: bdp or use comes first (prova.txt:2 in \"deep\")\n"
              "0 passed, 2 failed");
}

TEST(ScenarioSettings, AFailureBehindASettingNamesOnlyItsOwnPlace)
{
    EXPECT_EQ(toldOf("setting \"s\"\nbdp \"a.orv\" bare\nend\n"
                     "scenario \"a\"\nwith \"s\"\nexpect sql \"select 1\" \"2\"\n"),
              "not ok prova.txt:6 a: the row is \"1\", not \"2\"\n0 passed, 1 failed");
}

TEST(ScenarioSettings, AnUnknownSettingFailsItsScenarioAlone)
{
    EXPECT_EQ(toldOf("setting \"s\"\n"
                     "with \"nothing\"\n"
                     "end\n"
                     "scenario \"a\"\n"
                     "expect file \"a.txt\" missing\n"
                     "with \"nobody\"\n"
                     "scenario \"b\"\n"
                     "with \"s\"\n"
                     "scenario \"c\"\n"
                     "expect file \"a.txt\" missing\n"),
              "not ok prova.txt:2: there is no setting \"nothing\"\n"
              "not ok prova.txt:6 a: there is no setting \"nobody\"\n"
              "not ok prova.txt:8 b: there is no setting \"nothing\" (prova.txt:2 in \"s\")\n"
              "ok prova.txt:9 c\n"
              "1 passed, 3 failed");
}

TEST(ScenarioSettings, ASettingIsToldOnce)
{
    const QString twice = "setting \"s\"\nend\nsetting \"s\"\nend\nscenario \"a\"\nwith \"s\"\n";
    EXPECT_EQ(toldOf(twice), "not ok prova.txt:3: the setting \"s\" is told twice (prova.txt:1)\n"
                             "ok prova.txt:5 a\n1 passed, 1 failed");
    EXPECT_EQ(toldOf("include \"b.txt\"\nsetting \"s\"\nend\n", {{"b.txt", "\nsetting \"s\"\nend\n"}}),
              "not ok prova.txt:1: the setting \"s\" is told twice (b.txt:2 and prova.txt:2)\n0 passed, 1 failed");
}

TEST(ScenarioSettings, ASettingThatNeedsItselfFails)
{
    EXPECT_EQ(toldOf("setting \"a\"\nwith \"b\"\nend\n"
                     "setting \"b\"\nwith \"a\"\nend\n"
                     "scenario \"c\"\nwith \"a\"\n"),
              "not ok prova.txt:2: the setting \"a\" needs itself (prova.txt:5 in \"b\")\n"
              "not ok prova.txt:8 c: the setting \"a\" needs itself "
              "(prova.txt:5 in \"b\", by prova.txt:2 in \"a\")\n"
              "0 passed, 2 failed");
}

TEST(ScenarioSettings, ASettingThatNeverEndsFails)
{
    EXPECT_EQ(toldOf("setting \"s\"\nremove \"a\"\nscenario \"a\"\nwith \"s\"\nsetting \"t\"\n"),
              "not ok prova.txt:1: its \"end\" is missing\n"
              "not ok prova.txt:4 a: its \"end\" is missing (prova.txt:1 in \"s\")\n"
              "0 passed, 2 failed");
    EXPECT_EQ(toldOf("setting \"t\"\n"), "not ok prova.txt:1: its \"end\" is missing\n0 passed, 1 failed");
}

TEST(ScenarioSettings, ASettingHoldsOnlyWhatPrepares)
{
    for (const char* step : {"start", "answer yes", "expect no message"})
        EXPECT_EQ(toldOf(QStringLiteral("setting \"s\"\n%1\nend\nscenario \"a\"\nwith \"s\"\n").arg(step)),
                  "not ok prova.txt:2: a setting holds only steps that prepare\n"
                  "not ok prova.txt:5 a: a setting holds only steps that prepare (prova.txt:2 in \"s\")\n"
                  "0 passed, 2 failed");
    EXPECT_EQ(toldOf("setting \"s\"\nbdp \"a.orv\"\nuse \"a.orv\"\nexec \"select 1\"\nreadonly \"a.orv\"\n"
                     "remove \"a.orv\"\nend\nscenario \"a\"\nwith \"s\"\nexpect file \"a.orv\" missing\n"),
              "ok prova.txt:8 a\n1 passed, 0 failed");
}

TEST(ScenarioSettings, MistakesAroundSettingsAreToldWithTheirLine)
{
    EXPECT_EQ(toldOf("scenario \"a\"\nwith \"s\" \"t\"\nscenario \"b\"\nwith s\n"
                     "setting \"s\"\nend\nremove \"a\"\n"),
              "not ok prova.txt:7: a step stands outside of a scenario\n"
              "not ok prova.txt:2 a: a setting is asked for with: with \"name\"\n"
              "not ok prova.txt:4 b: a setting is asked for with: with \"name\"\n"
              "0 passed, 3 failed");
    EXPECT_EQ(toldOf("setting\nend\nsetting\nend\n"), "not ok prova.txt:1: a setting opens with: setting \"name\"\n"
                                                      "0 passed, 1 failed");
    EXPECT_EQ(toldOf("include b.txt\nsetting \"s\"\nend\n"),
              "not ok prova.txt:1: settings are included with: include \"path\"\n0 passed, 1 failed");
}

TEST(ScenarioSettings, SettingsComeFromOtherFilesWithoutTheirScenarios)
{
    EXPECT_EQ(toldOf("include \"inner/b.txt\"\nscenario \"a\"\nwith \"b\"\nwith \"c\"\n"
                     "expect file \"b.txt\" exists\nexpect file \"c.txt\" exists\n",
                     {{"inner/b.txt", "include \"../c.txt\"\nscenario \"never\"\nstart\nstart\n"
                                      "setting \"b\"\nfile \"b.txt\"\nend\nend\n"},
                      {"c.txt", "setting \"c\"\nfile \"c.txt\"\nend\nend\n"}}),
              "ok prova.txt:2 a\n1 passed, 0 failed");
}

TEST(ScenarioSettings, FilesThatIncludeEachOtherAreReadOnce)
{
    EXPECT_EQ(toldOf("include \"prova.txt\"\ninclude \"b.txt\"\ninclude \"./b.txt\"\n"
                     "setting \"a\"\nfile \"a.txt\"\nend\nend\n"
                     "scenario \"a\"\nwith \"b\"\nexpect file \"a.txt\" exists\n",
                     {{"b.txt", "include \"prova.txt\"\nsetting \"b\"\nwith \"a\"\nend\n"}}),
              "ok prova.txt:8 a\n1 passed, 0 failed");
}

TEST(ScenarioSettings, AnIncludedFileThatCantBeReadFails)
{
    const QString text = "\ninclude \"b.txt\"\nscenario \"a\"\nexpect file \"a.txt\" missing\n";
    EXPECT_EQ(toldOf(text), "not ok prova.txt:2: the file can't be read: No such file or directory (b.txt)\n"
                            "ok prova.txt:3 a\n1 passed, 1 failed");
    EXPECT_EQ(toldOf(text, {{"b.txt", "include \"no/c.txt\"\n"}}),
              "not ok prova.txt:2: the file can't be read: No such file or directory (no/c.txt)\n"
              "ok prova.txt:3 a\n1 passed, 1 failed");
    EXPECT_EQ(toldOf(text, {{"b.txt", "# nothing but:\nstart\n"}}),
              "not ok prova.txt:2: a step stands outside of a scenario (b.txt:2)\n"
              "ok prova.txt:3 a\n1 passed, 1 failed");
}

TEST(ScenarioSettings, AFileOfSettingsPlaysNothing)
{
    const Outcome outcome = play("setting \"s\"\nremove \"a.txt\"\nend\n");
    EXPECT_EQ(outcome.lines.join('\n').toStdString(), "0 passed, 0 failed");
    EXPECT_EQ(outcome.status, 0);
}
