// The scenario runner, played on scenarios that hold and on scenarios that must not.
#include "play.h"

#include <QRegularExpression>

namespace {

struct Case
{
    const char* steps;
    const char* reason; // of the failure at the last of the steps; empty where they hold
};

// Plays each case as a scenario of its own, behind the opening of the form.
void playEach(const QList<Case>& cases)
{
    QString text;
    QStringList expected;
    int failed = 0;
    for (const Case& one : cases) {
        const auto opening = static_cast<int>(text.count('\n')) + 1;
        text += QStringLiteral("scenario \"caso\"\nstart\nopen frmProva\n%1\n").arg(QString(one.steps));
        const auto last = static_cast<int>(text.count('\n'));
        if (one.reason[0] == '\0')
            expected << QStringLiteral("ok prova.txt:%1 caso").arg(opening);
        else
            expected << QStringLiteral("not ok prova.txt:%1 caso: %2").arg(QString::number(last), QString(one.reason));
        failed += one.reason[0] != '\0';
    }
    expected << QStringLiteral("%1 passed, %2 failed").arg(cases.size() - failed).arg(failed);
    Outcome outcome = play(text);
    outcome.lines.replaceInStrings(QDir::tempPath(), ""); // which may have a blank
    const QRegularExpression folders("/[^ \"]*/(dir|program)\\b");
    outcome.lines.replaceInStrings(folders, "{\\1}");
    outcome.lines.removeIf([](const QString& line) { return line.startsWith("   | "); }); // last words of a crash
    for (qsizetype i = 0; i < std::max(expected.size(), outcome.lines.size()); ++i)
        EXPECT_EQ(outcome.lines.value(i).toStdString(), expected.value(i).toStdString());
    EXPECT_EQ(outcome.status, failed == 0 ? 0 : 1);
}

} // namespace

TEST(ScenarioRunner, WhatAPersonCouldNotDoFailsAndTellsWhatStoodInTheWay)
{
    playEach({
        {"click frmProva.txtInactivo", "frmProva.txtInactivo is disabled"},
        {"click frmProva.txtOculto", "frmProva.txtOculto is hidden"},
        {"enter frmProva.txtFechado \"a\"", "frmProva.txtFechado is locked"},
        {"type frmProva.txtFechado \"a\"", "frmProva.txtFechado is locked"},
        {"choose frmProva.cmbFechado 0", "frmProva.cmbFechado is locked"},
        {"choose frmProva.cmbLoc \"Porto\"", "frmProva.cmbLoc has no entry \"Porto\""},
        {"choose frmProva.cmbLoc 4", "frmProva.cmbLoc has no entry 4"},
        {"row frmProva.dtgFilho 3", "frmProva.dtgFilho has no row 3 that could be chosen"},
        {"row frmProva.dtgFilho 0", "frmProva.dtgFilho has no row 0 that could be chosen"},
        {"enter frmProva.lblEstado \"a\"", "frmProva.lblEstado doesn't get the focus"},
        {"click frmProva.cmdDesliga\nclick frmProva.cmdConta", "frmProva is disabled"},
        {"click frmProva.cmdDesliga\nclose frmProva", "frmProva is disabled"},
        {"click frmProva.cmdNada", "frmProva has no control cmdNada"},
        {"click frmNada.cmdNada", "frmNada is no form of the program"},
        {"click frmIni.cmdOk", "frmIni isn't loaded"},
        {"open frmNada", "frmNada is no form of the program"},
        {"menu mnuEditInd", "mnuEditInd is disabled"},
        {"menu mnuBack", "mnuBack is in a menu that is disabled or hidden"},
        {"menu mnuNada", "frmORV has no control mnuNada"},
        {"key Nada", "unknown key \"Nada\""},
        {"start", "the program runs already"},
    });
}

TEST(ScenarioRunner, WhatWasNotForeseenFailsWhereItComes)
{
    playEach({
        {"click frmProva.cmdPergunta", "an unforeseen question: \"Sim ou não?\""},
        {"click frmProva.cmdAbre", "an unforeseen file dialog: \"NUBE - ORV\""},
        {"click frmProva.cmdDialogo", "an unforeseen dialog: \"Outro\""},
        {"click frmProva.cmdAborta", "the process crashed"},
    });
}

TEST(ScenarioRunner, WhatIsLeftOverFailsAtTheLastLine)
{
    playEach({
        {"click frmProva.cmdDiz", "a message box came up: \"Primeira\\nlinha\""},
        {"click frmProva.cmdCorreio", "opened was \"mailto:orv@example.org?Body=a b\""},
        {"answer yes", "an answer is left over that no question asked for"},
        {"pick \"a.orv\"", "a pick is left over that no file dialog asked for"},
    });
}

TEST(ScenarioRunner, BoxesAreExpectedInTheOrderOfTheirComing)
{
    const char* first =
        "the message box is \"Uma\" (icon information, title \"NUBE - ORV\"), not \"Outra\" (title \"\")";
    playEach({
        {"click frmProva.cmdDuas\nexpect message \"Uma\" icon information\nexpect message \"Outra\" icon none title "
         "\"\"",
         ""},
        {"click frmProva.cmdDuas\nexpect message \"Outra\" title \"\"", first},
        {"click frmProva.cmdDuas\nexpect message \"Uma\" icon none",
         "the message box is \"Uma\" (icon information, title \"NUBE - ORV\"), not \"Uma\" (icon none, title \"NUBE - "
         "ORV\")"},
        {"click frmProva.cmdDuas\nexpect message \"Uma\"\nexpect message \"Outra\"",
         "the message box is \"Outra\" (icon none, title \"\"), not \"Outra\" (title \"NUBE - ORV\")"},
        {"expect message \"Uma\"", "no message box came up; expected was \"Uma\" (title \"NUBE - ORV\")"},
        {"click frmProva.cmdDiz\nexpect message \"Primeira\\r\\nlinha\"\nexpect no message", ""},
        {"click frmProva.cmdErro\nexpect error", ""},
        {"click frmProva.cmdErro\nexpect error like \"%erro 53\\n%\"", ""},
        {"click frmProva.cmdErro\nexpect error like \"%54%\"",
         "the message box is \"Ocorreu o erro 53\\nNão há ficheiro.\" (icon information, title \"NUBE - ORV\"), "
         "not an error like \"%54%\""},
        {"click frmProva.cmdDiz\nexpect error",
         "the message box is \"Primeira\\nlinha\" (icon information, title \"NUBE - ORV\"), not an error"},
    });
}

TEST(ScenarioRunner, AnAnsweredQuestionMayBeExpectedAndNeedNotBe)
{
    playEach({
        {"answer yes\nclick frmProva.cmdPergunta\nexpect frmProva.lblEstado \"sim\"", ""},
        {"answer no\nclick frmProva.cmdPergunta\nexpect frmProva.lblEstado \"não\"", ""},
        {"answer yes\nclick frmProva.cmdPergunta\nexpect message \"Sim ou não?\" icon question", ""},
        {"answer no\nclick frmProva.cmdPergunta\nclick frmProva.cmdErro\nexpect error", ""},
        {"answer no\nclick frmProva.cmdPergunta\nexpect no message", ""},
        {"answer return\nclick frmProva.cmdPergunta\nexpect frmProva.lblEstado \"não\"", ""},
    });
}

TEST(ScenarioRunner, FileDialogsGetTheNextPick)
{
    playEach({
        {"pick \"a.orv\"\nclick frmProva.cmdAbre\nexpect frmProva.lblEstado \"{dir}/a.orv\"", ""},
        {"pick cancel\nclick frmProva.cmdAbre\nexpect frmProva.lblEstado \"\"", ""},
        {"pick \"novo\"\nclick frmProva.cmdGrava\nexpect frmProva.lblEstado \"{dir}/novo.orv\"", ""},
        {"pick \"{program}\"\nclick frmProva.cmdAbre", "the file dialog doesn't take \"{program}\""},
    });
}

TEST(ScenarioRunner, FieldsAreTypedInAndLeft)
{
    playEach({
        {"enter frmProva.txtNome \"João d'Além\"\nexpect frmProva.txtNome \"João d'Além\"\n"
         "expect frmProva is active\nenter frmProva.txtNome \"Rui\"\nexpect frmProva.txtNome \"Rui\"\n"
         "enter frmProva.txtNome \"\"\nexpect frmProva.txtNome \"\"",
         ""},
        {"type frmProva.txtNome \"a\"\nexpect frmProva.txtNome is focused open enabled visible", ""},
        {"enter frmProva.txtNome \"a\"\nexpect frmProva.txtNome is focused", "frmProva.txtNome isn't focused"},
        {"enter frmProva.mskData \"09/03/1750\"\nexpect frmProva.mskData \"09/03/1750\"\n"
         "enter frmProva.mskData \"1_/__/____\"\nexpect frmProva.mskData \"1_/__/____\"\n"
         "enter frmProva.mskData \"\"\nexpect frmProva.mskData \"__/__/____\"\n"
         "enter frmProva.mskData \"abc\"\nexpect frmProva.mskData \"__/__/____\"",
         ""},
        {"enter frmProva.txtObs \"uma\\noutra\"\nexpect frmProva.txtObs \"uma\\r\\noutra\"\n"
         "expect frmProva.txtObs like \"um%tra\"",
         ""},
        {"enter frmProva.txtRecusa \"mal\"\nexpect message \"Recusado!\"\nexpect frmProva.txtRecusa \"\"\n"
         "expect frmProva.txtRecusa is focused",
         ""},
        {"type frmProva.txtRecusa \"mal\"\nclick frmProva.cmdConta\nexpect message \"Recusado!\"\n"
         "expect frmProva.lblEstado \"1\"",
         ""},
        {"type frmProva.txtNome \"a\"\npaste frmProva.txtNome \"D'Além\"\nexpect frmProva.txtNome \"D'Além\"\n"
         "expect frmProva.txtNome is focused",
         ""},
        {"focus frmProva.txtNome\nkey Tab\nkey A\nexpect frmProva.txtNome \"\"", ""},
        {"focus frmProva.txtNome\nkey Ctrl+A\nexpect frmIni is shown active", ""},
        {"expect frmProva.txtNome \"x\"", "frmProva.txtNome is \"\", not \"x\""},
        {"expect frmProva.txtNome like \"x%\"", "frmProva.txtNome is \"\", not like \"x%\""},
    });
}

TEST(ScenarioRunner, ButtonsListsGridsAndTreesAreUsedAndRead)
{
    playEach({
        {"click frmProva.cmdConta\nclick frmProva.cmdConta\nexpect frmProva.cmdConta \"&Conta 2\"", ""},
        {"check frmProva.chkMenor\ncheck frmProva.chkMenor\nexpect frmProva.chkMenor is checked\n"
         "uncheck frmProva.chkMenor\nexpect frmProva.chkMenor is unchecked\nexpect frmProva.chkMenor \" Menor?\"",
         ""},
        {"click frmProva.optSexo(1)\nexpect frmProva.optSexo(1) is checked\nexpect frmProva.optSexo(0) is unchecked",
         ""},
        {"choose frmProva.cmbLoc \"Guimarães\"\nexpect frmProva.cmbLoc \"Guimarães\"\nexpect frmProva.lblEstado \"8\"\n"
         "choose frmProva.cmbLoc 3\nexpect frmProva.cmbLoc index 3\nexpect frmProva.lblEstado \"4\"",
         ""},
        {"expect frmProva.cmbLoc index -1\nexpect frmProva.cmbLoc entries 4\nexpect frmProva.cmbLoc entry 1 \"Braga\"\n"
         "expect frmProva.cmbLoc item 2 8\nexpect frmProva.cmbLoc \"\"",
         ""},
        {"choose frmProva.lstLocal \"Vizela\"\nexpect frmProva.lstLocal index 1\nexpect frmProva.lstLocal \"Vizela\"",
         ""},
        {"row frmProva.dtgFilho 2\nexpect frmProva.lblEstado \"Rui\"\nexpect frmProva.dtgFilho current 2\n"
         "expect frmProva.dtgFilho rows 3\nexpect frmProva.dtgFilho row 0 \"Nº\" \"Nome\"\n"
         "expect frmProva.dtgFilho row 1 * \"Ana\"\nexpect frmProva.dtgVazia rows 0",
         ""},
        {"expect frmProva.dtgFilho row 2 \"2\" \"Ana\"",
         "column 1 of row 2 of frmProva.dtgFilho is \"Rui\", not \"Ana\""},
        {"expect frmProva.dtgFilho row 2 * * *", "frmProva.dtgFilho has only 2 columns"},
        {"dblclick frmProva.LV 2\nexpect frmProva.lblEstado \"Fafe\"\nexpect frmProva.LV rows 2\n"
         "expect frmProva.LV row 1 \"Braga\" \"Distrito\"",
         ""},
        {"expect frmProva.tvw nodes\nAna\n  Rui\n  Eva\n    Gil\nend", ""},
        {"expect frmProva.SST(2) \"&Comandos\"\nexpect frmProva.pagina0 \"ca&Mpos\"\nexpect frmProva.fraSexo \"&Sexo\"",
         ""},
        {"expect frmProva.txtNome color 192 192 255\nexpect frmProva.txtFechado is locked enabled\n"
         "expect frmProva.txtInactivo is disabled visible\nexpect frmProva.txtOculto is hidden enabled\n"
         "expect frmProva.cmdConta is visible enabled",
         ""},
        {"expect frmProva.txtNome color 0 0 0", "the colour of frmProva.txtNome is 192 192 255, not 0 0 0"},
        {"expect frmProva.txtNome is checked", "frmProva.txtNome has no check mark"},
        {"expect frmProva.txtNome is locked", "frmProva.txtNome isn't locked"},
    });
}

TEST(ScenarioRunner, FormsAndMenusAreSeenInTheirStates)
{
    playEach({
        {"expect frmProva is loaded shown enabled active\nexpect frmIni is unloaded\nexpect frmProva caption "
         "\"Prova\"\n"
         "close frmProva\nexpect frmProva is unloaded",
         ""},
        {"expect frmProva is hidden", "frmProva isn't hidden"},
        {"expect frmIni is shown", "frmIni isn't loaded"},
        {"expect frmORV.mnuAbrir \"Abrir\"\nexpect frmORV.mnuAbrir is enabled visible\n"
         "expect frmORV.mnuEditInd is disabled\nexpect frmORV.mnuManut \"&Manutenção\"",
         ""},
        {"menu mnuAbrir\nexpect frmIni is shown", ""},
        {"answer no\nrun mnupais", ""},
        {"answer no\nmenu mnuSair\nexpect message \"Deseja realmente fechar a sessão de trabalho?\" icon none", ""},
    });
}

TEST(ScenarioRunner, ThePlayGoesOnBehindTheEndOfTheProgram)
{
    playEach({
        {"answer yes\nmenu mnuSair\nexpect ended\nstart\nexpect frmORV is shown", ""},
        {"click frmProva.cmdSai\nexpect ended\nexpect file \"{program}/CriarTab.dat\" exists", ""},
        {"click frmProva.cmdErroSolto\nexpect ended", ""},
        {"click frmProva.cmdFalha\nexpect error like \"Ocorreu o erro 51\\n%\"\nexpect frmProva is shown enabled", ""},
        {"close frmORV\nexpect ended", ""},
        {"close frmORV\nmenu mnuAbrir", "the program has ended"},
        {"expect ended", "the program has not ended"},
        {"answer yes\nrestart\nmenu mnuSair\nexpect ended", ""},
        {"restart\nexpect frmProva is unloaded\nexpect frmORV is shown\nexpect ended", "the program has not ended"},
        {"click frmProva.cmdDiz\nrestart\nexpect message \"Primeira\\nlinha\"", ""},
    });
}

TEST(ScenarioRunner, TheSplashIsSentAwayUnlessItIsKept)
{
    playEach({
        {"click frmProva.cmdEspera\nexpect frmProva.lblEstado \"esperado\"\nexpect SplashForm is unloaded", ""},
        {"splash keep\nclick frmProva.cmdEspera\nexpect SplashForm.lblEst \"A esperar\"\nkey Escape\n"
         "expect frmProva.lblEstado \"esperado\"",
         ""},
        {"splash keep\nclick frmProva.cmdEspera\nexpect SplashForm is unloaded\nclick frmProva.cmdConta", ""},
    });
}

TEST(ScenarioRunner, ASplashBehindWhichNothingIsLeftToDoIsNotWaitedFor)
{
    const QString text = "scenario \"caso\"\nstart\nopen frmProva\nsplash keep\nclick frmProva.cmdEspera\n"
                         "click frmProva.cmdEspera\nclick frmProva.cmdEspera\nclick frmProva.cmdEspera\n"
                         "expect frmProva.lblEstado \"esperado\"\nexpect frmProva.lblSaltos \"12 s\"\n";
    EXPECT_EQ(play(text).lines.value(0).toStdString(), "ok prova.txt:1 caso");
}

TEST(ScenarioRunner, TheBdpIsMadeAndReadBesideTheProgram)
{
    playEach({
        {"bdp \"a.orv\" bare\nexec \"insert into individuo (nind, nome, datanasc) values (1, 'Ana', '1750-03-09')\"\n"
         "exec \"insert into individuo (nind) values (2.5)\"\n"
         "expect sql \"select nind, nome, datanasc from individuo order by nind\" \"1|Ana|1750-03-09\" "
         "\"2.5\\|null|null\"\n"
         "expect sql \"select nind from individuo where nind > 9\" none\nexpect sql \"select count(*) from distrito\" "
         "\"0\"",
         ""},
        {"bdp \"a.orv\" bare\nexpect sql \"select 1\" \"2\"", "the row is \"1\", not \"2\""},
        {"bdp \"a.orv\" bare\nexpect sql \"select 1\" none", "the row is \"1\", not none"},
        {"bdp \"a.orv\" bare\nexpect sql \"select 1 where 0\" \"1\"", "the result (0 rows) is none, not \"1\""},
        {"bdp \"a.orv\" bare\nexec \"nada\"", "near \"nada\": syntax error in \"nada\""},
        {"bdp \"a.orv\" bare\nbdp \"a.orv\"", "there is a file {dir}/a.orv already"},
        {"exec \"select 1\"", "no BDP is in use: bdp or use comes first"},
        {"bdp \"a.orv\"\nexpect sql \"select count(*) > 10 from distrito\" \"1\"", ""},
        {"file \"{program}/distrito.dat\"\ncoddistrito;nomedistrito\n01;Évora\nend\nbdp \"a.orv\"\n"
         "expect sql \"select nomedistrito from distrito\" \"Évora\"",
         ""},
        {"file \"a.txt\"\numa\n  linha é\nend\nexpect file \"a.txt\" exists\nexpect file \"a.txt\" has \"uma\\n  linha "
         "é\"\n"
         "remove \"a.txt\"\nexpect file \"a.txt\" missing",
         ""},
    });
}

TEST(ScenarioRunner, MistakesInTheTextAreToldWithTheirLine)
{
    const Outcome outcome = play("scenario \"a\"\n"
                                 "salta\n"
                                 "scenario \"b\"\n"
                                 "\n"
                                 "# as it should be\n"
                                 "start\n"
                                 "scenario \"c\"\n"
                                 "click\n"
                                 "scenario \"d\"\n"
                                 "enter frmInd.txtNome \"Ana\n"
                                 "scenario \"e\"\n"
                                 "exec \"\\q\"\n"
                                 "scenario \"f\"\n"
                                 "expect frmInd.txtNome is pretty\n"
                                 "scenario \"g\"\n"
                                 "file \"a\"\n"
                                 "no end\n");
    EXPECT_EQ(outcome.lines.join('\n').toStdString(),
              "not ok prova.txt:2 a: unknown step \"salta\"\n"
              "ok prova.txt:3 b\n"
              "not ok prova.txt:8 c: this step can't be read; its form is: click CONTROL\n"
              "not ok prova.txt:10 d: a text without its closing quote\n"
              "not ok prova.txt:12 e: unknown escape in a text\n"
              "not ok prova.txt:14 f: this step can't be read; its form is: expect CONTROL is STATE+\n"
              "not ok prova.txt:16 g: its \"end\" is missing\n"
              "1 passed, 6 failed");
    EXPECT_EQ(outcome.status, 1);
}

TEST(ScenarioRunner, AFileHoldsOnlyWhatCodePage1252Has)
{
    EXPECT_EQ(play("scenario \"a\"\nfile \"a.txt\"\n→\nend\n").lines.value(0).toStdString(),
              "not ok prova.txt:2 a: no place in code page 1252 for the character \"→\"");
}
