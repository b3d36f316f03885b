// What a scenario costs a person, and two BDPs beside each other.
#include "play.h"

namespace {

QString opened(const QString& steps)
{
    return "scenario \"a\"\nstart\nopen frmProva\n" + steps;
}

// What is told of the cost of these steps alone.
std::string costOf(const QString& steps)
{
    const Outcome outcome = play(opened("cost begin \"b\"\n" + steps + "cost end\n"), {"--cost"});
    EXPECT_EQ(outcome.lines.value(0).toStdString(), "ok prova.txt:1 a") << steps.toStdString();
    return outcome.lines.value(1).section(": ", 1).toStdString();
}

std::string told(int clicks, int keys, int boxes = 0)
{
    const auto counted = [](int number, const char* word, const char* end) {
        return QString("%1 %2%3, ").arg(number).arg(word, number == 1 ? "" : end);
    };
    const double seconds = clicks * 1.3 + keys * 0.28 + boxes * 0.9;
    return (counted(clicks, "click", "s") + counted(keys, "key", "s") + counted(boxes, "box", "es") +
            "0 window changes, " + QString::number(seconds, 'f', 1) + " s")
        .toStdString();
}

struct Costing
{
    const char* steps;
    int clicks;
    int keys;
    int boxes = 0;
};

} // namespace

TEST(ScenarioCost, IsToldForTheWholeScenarioWhereNothingMarksAPart)
{
    const QString text = opened("enter frmProva.txtNome \"Ana\"\nclick frmProva.cmdConta\n");
    EXPECT_EQ(play(text, {"--cost"}).lines.join('\n').toStdString(),
              "ok prova.txt:1 a\n   cost: 3 clicks, 3 keys, 0 boxes, 1 window change, 4.7 s\n1 passed, 0 failed");
    EXPECT_EQ(play(text).lines.join('\n').toStdString(), "ok prova.txt:1 a\n1 passed, 0 failed");
}

TEST(ScenarioCost, IsToldForEachPartThatIsMarked)
{
    const QString text = opened("key Escape\ncost begin \"x\"\nkey Escape\nkey Escape\ncost end\nkey Escape\n"
                                "cost begin \"y\"\nkey Escape\ncost end within 1\n");
    EXPECT_EQ(play(text, {"--cost"}).lines.join('\n').toStdString(),
              "ok prova.txt:1 a\n   cost \"x\": 0 clicks, 2 keys, 0 boxes, 0 window changes, 0.6 s\n"
              "   cost \"y\": 0 clicks, 1 key, 0 boxes, 0 window changes, 0.3 s\n1 passed, 0 failed");
}

TEST(ScenarioCost, OfEachStepIsWhatAPersonDoes)
{
    for (const Costing& one : std::initializer_list<Costing>{
             {"enter frmProva.txtNome \"Ana\"\n", 1, 3},
             {"type frmProva.txtNome \"Ana\"\ntype frmProva.txtNome \"Rui\"\n", 1, 7}, // the text there is chosen first
             {"type frmProva.txtNome \"\"\n", 1, 0},
             {"type frmProva.txtNome \"Ana\"\ntype frmProva.txtNome \"\"\n", 1, 5},
             {"enter frmProva.txtNome \"Ana\"\nenter frmProva.txtNome \"Rui\"\n", 2, 7},
             {"enter frmProva.mskData \"14/02/1702\"\n", 1, 8}, // the strokes stand there already
             {"type frmProva.mskData \"14/02/1702\"\nkey Tab\n", 1, 9},
             {"enter frmProva.txtObs \"a\\r\\nb\"\n", 1, 3},
             {"enter frmProva.txtNome \"\xF0\x9F\x98\x80\"\n", 1, 1},
             {"paste frmProva.txtNome \"Ana Maria\"\n", 1, 1},
             {"focus frmProva.txtNome\nfocus frmProva.txtNome\n", 1, 0},
             {"focus frmProva.txtNome\ntype frmProva.txtNome \"Ana\"\n", 1, 3},
             {"key Ctrl+I\n", 0, 1},
             {"check frmProva.chkMenor\ncheck frmProva.chkMenor\n", 1, 0},
             {"check frmProva.chkMenor\nuncheck frmProva.chkMenor\n", 2, 0},
             {"click frmProva.cmdConta\n", 2, 0}, // its page has to be turned up
             {"click frmProva.cmdConta\nclick frmProva.cmdConta\n", 3, 0},
             {"choose frmProva.cmbLoc \"Guimarães\"\n", 2, 0},
             {"choose frmProva.lstLocal 1\n", 2, 0},
             {"row frmProva.dtgFilho 2\n", 2, 0},
             {"dblclick frmProva.LV 1\n", 3, 0},
             {"close frmProva\n", 1, 0},
             {"click frmProva.cmdDiz\nexpect message \"Primeira\\r\\nlinha\"\n", 2, 0, 1},
             {"answer yes\nclick frmProva.cmdPergunta\n", 2, 0, 1},
             {"pick \"a.orv\"\nclick frmProva.cmdGrava\n", 2, 0, 1},
             {"expect frmProva.txtNome \"\"\nexpect frmProva is active\n", 0, 0},
         })
        EXPECT_EQ(costOf(one.steps), told(one.clicks, one.keys, one.boxes)) << one.steps;
}

TEST(ScenarioCost, TellsHowOftenAnotherWindowIsTheActiveOne)
{
    const QString begin = "scenario \"a\"\nbdp \"a.orv\" bare\n"
                          "exec \"insert into infopar (cod, nome, Pais) values ('030101', 'Braga', 'PT')\"\n"
                          "start \"a.orv\"\nopen frmProva\ncost begin \"b\"\n";
    const QString steps = "open frmPais\nfocus frmProva.txtNome\nfocus frmProva.mskData\nclose frmPais\ncost end\n";
    EXPECT_EQ(play(begin + steps, {"--cost"}).lines.value(1).toStdString(),
              "   cost \"b\": 3 clicks, 0 keys, 0 boxes, 4 window changes, 3.9 s");
}

TEST(ScenarioCost, GoesOnBehindARestart)
{
    EXPECT_EQ(costOf("key Escape\nrestart\nkey Escape\n"), told(0, 2));
}

TEST(ScenarioCost, OfAPartThatIsTooMuchFailsTheScenario)
{
    const Outcome outcome = play(opened("cost begin \"b\"\nkey Escape\nkey Escape\ncost end within 0\n"));
    EXPECT_EQ(outcome.lines.value(0).toStdString(),
              "not ok prova.txt:7 a: \"b\" costs more than 0 s: 0 clicks, 2 keys, "
              "0 boxes, 0 window changes, 0.6 s");
}

TEST(ScenarioCost, HasPartsThatBeginAndEnd)
{
    EXPECT_EQ(play("scenario \"a\"\ncost end\n").lines.value(0).toStdString(),
              "not ok prova.txt:2 a: no cost is counted");
    EXPECT_EQ(play("scenario \"a\"\ncost begin \"b\"\ncost begin \"c\"\n").lines.value(0).toStdString(),
              "not ok prova.txt:3 a: the cost of \"b\" is still counted");
    EXPECT_EQ(play("scenario \"a\"\ncost begin \"b\"\n").lines.value(0).toStdString(),
              "not ok prova.txt:2 a: the cost of \"b\" is still counted");
}

namespace {

// Two BDPs with the same rows, the first of them with more.
std::string comparedAfter(const QString& more, const QString& except = {})
{
    const QString rows = "exec \"insert into individuo (nind, nome) values (1, 'Ana'), (2, 'Rui')\"\n"
                         "exec \"insert into assistente (tipoacto, entidade, nind) values ('b', 1, 2)\"\n";
    const Outcome outcome = play("scenario \"a\"\nbdp \"b.orv\" bare\n" + rows + "bdp \"a.orv\" bare\n" + rows + more +
                                 "expect same \"a.orv\" \"b.orv\"" + except + '\n');
    return outcome.lines.value(0).section("scenario", 0).toStdString() +
           outcome.lines.mid(1, outcome.lines.size() - 2).join('\n').toStdString();
}

} // namespace

TEST(ScenarioComparison, OfTwoBdpsWithTheSameRowsHolds)
{
    EXPECT_EQ(comparedAfter(""), "ok prova.txt:1 a");
    EXPECT_EQ(comparedAfter("exec \"create table estudo_acto (id integer)\"\n"), "ok prova.txt:1 a");
    EXPECT_EQ(comparedAfter("exec \"delete from individuo where nind = 1\"\nexec \"insert into individuo (nind, nome) "
                            "values (1, 'Ana')\"\n"),
              "ok prova.txt:1 a");
}

TEST(ScenarioComparison, NamesEachValueAndEachRowThatDiffers)
{
    const auto failed = [](int line, const std::string& reason) {
        return "not ok prova.txt:" + std::to_string(line) + " a: " + reason;
    };
    EXPECT_EQ(comparedAfter("exec \"update individuo set nome = 'null' where nind = 2\"\n"),
              failed(9, "1 differences:   individuo 2: nome is 'null' and 'Rui'"));
    EXPECT_EQ(comparedAfter("exec \"update individuo set nome = null, obs = 'null' where nind = 2\"\n"),
              failed(9, "2 differences:   individuo 2: nome is NULL and 'Rui'\n   individuo 2: obs is 'null' and "
                        "NULL"));
    EXPECT_EQ(comparedAfter("exec \"update assistente set nind = 1\"\n"),
              failed(9, "2 differences:   assistente: only the first has tipoacto 'b', entidade 1, nind 1\n   "
                        "assistente: only the second has tipoacto 'b', entidade 1, nind 2"));
    EXPECT_EQ(comparedAfter("exec \"insert into assistente (tipoacto, entidade, nind) values ('b', 1, 2)\"\n"),
              failed(9, "1 differences:   assistente: only the first has tipoacto 'b', entidade 1, nind 2"));
    EXPECT_EQ(comparedAfter("exec \"create table outra (a)\"\n"),
              failed(9, "1 differences:   only the first has the table outra with these columns"));
}

TEST(ScenarioComparison, LeavesOutTheColumnsThatItIsTold)
{
    const QString other = "exec \"update individuo set obs = 'x', Causa = 'y' where nind = 2\"\n";
    EXPECT_EQ(comparedAfter(other, " except individuo.obs individuo.causa"), "ok prova.txt:1 a");
    EXPECT_EQ(comparedAfter(other, " except individuo.nada"),
              "not ok prova.txt:9 a: there is no column individuo.nada");
}
