// The tutorial is true: the scenario that plays it does what the text tells, and nothing else.
#include "house/tutorial.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>

using house::differences;

namespace {

QString contents(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return QString::fromUtf8(file.readAll());
}

QString pages()
{
    const QDir folder(ORV_DATA_DIR "/../docs/tutorial");
    QString all;
    for (const QString& name : folder.entryList({"*.md"}, QDir::Files, QDir::Name))
        all += contents(folder.filePath(name)) + '\n';
    return all;
}

constexpr auto text =
    "# Acto {#acto}\n\n## Passo 1. Escrever {#passo-1 .passo}\n\n1. Em \"Nome\" escreva `Ana\n"
    "   Dias`, carregue em <kbd>Tab</kbd> e\n   em \"confIrmar\".\n\n![A ficha](imagens/ficha.png)\n\n"
    "!!! porque \"Porquê?\"\n    Por \"isto\", e `aquilo`.\n\n    E mais \"isto\".\n";
constexpr auto scenario = "scenario \"x\"\n# Passo 1. Escrever\nexpect frmInd.lblNome \"&Nome\"\n"
                          "type frmInd.txtNome \"Ana Dias\"\nkey Tab\nexpect frmInd.cmdIns \"conf&Irmar\"\n"
                          "click frmInd.cmdIns\nshot frmInd \"ficha.png\"\n";

TEST(TheReaderOfTheTutorial, FindsNothingWhereTextAndScenarioAgree)
{
    EXPECT_EQ(differences(text, scenario), QStringList());
}

TEST(TheReaderOfTheTutorial, TellsEachWayInWhichTheyDiffer)
{
    struct Change
    {
        const char* from;
        const char* to;
        const char* told;
    };
    const auto changed = [](const char* all, const Change& change) {
        return QString(all).replace(change.from, change.to);
    };
    for (const Change& change : {Change{">Tab<", ">Return<", "not typed: \"Return\""},
                                 Change{"<kbd>Tab</kbd>", "Tab", "typed, but not told: \"Tab\""},
                                 Change{"\"confIrmar\"", "ao botão", "clicked, but not told: \"confIrmar\""},
                                 Change{"\"Nome\"", "\"Nomes\"", "told, but not seen: \"Nomes\""},
                                 Change{"ficha.png", "outra.png", "isn't taken: \"outra.png\""},
                                 Change{"Passo 1. Escrever", "Passo 1. Ler", "the text has \"Passo 1. Ler\""},
                                 Change{"## Passo 1. Escrever", "## Antes", "the text has \"\""}})
        EXPECT_TRUE(differences(changed(text, change), scenario).join('\n').contains(change.told)) << change.told;
    for (const Change& change : {Change{"Ana Dias", "Ana", "typed, but not told: \"Ana\""},
                                 Change{"\"&Nome\"", "\"&Título\"", "told, but not seen: \"Nome\""},
                                 Change{"ficha.png", "outra.png", "isn't shown: \"outra.png\""},
                                 Change{"# Passo 1", "# Passo 2", "the scenario \"Passo 2. Escrever\""}})
        EXPECT_TRUE(differences(text, changed(scenario, change)).join('\n').contains(change.told)) << change.told;
}

TEST(TheHouse, PlaysTheTutorialAsItIsWritten)
{
    const QString played = contents(ORV_DATA_DIR "/../tests/scenarios/tutorial/tutorial.txt");
    EXPECT_TRUE(pages().contains("## Passo 20. "));
    const QStringList found = differences(pages(), played);
    EXPECT_TRUE(found.isEmpty()) << qPrintable(found.join('\n'));
}

// The hand and what it reads stand line beside line.
TEST(TheHouse, ReadsEachLineOfTheRegisterPagesOfTheTutorial)
{
    const QStringList leaves = pages().split("<div class=\"assento\"").mid(1);
    EXPECT_EQ(leaves.size(), 4);
    for (const QString& leaf : leaves) {
        const QString drawn = leaf.section("<div class=\"leitura\">", 0, 0);
        const QString read = leaf.section("<div class=\"leitura\">", 1).section("</ol>", 0, 0);
        EXPECT_GT(drawn.count("<li"), 5);
        EXPECT_EQ(drawn.count("<li"), read.count("<li"));
    }
}

} // namespace
