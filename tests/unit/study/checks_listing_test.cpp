// Cases as lists: chosen, counted, written for other programs.
#include "study/checks/listing.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iterator>

using namespace study;
using namespace study::checks;

namespace {

const std::vector<Case> some{{.rule = "P-01",
                              .severity = Severity::Impossible,
                              .text = "João \"o Moço\" <b>",
                              .people = {parish::PersonNumber(1)},
                              .when = QDate(1702, 2, 14)},
                             {.rule = "P-01",
                              .severity = Severity::Unlikely,
                              .text = "Rui",
                              .people = {parish::PersonNumber(2)},
                              .when = QDate(1709, 12, 31)},
                             {.rule = "P-02",
                              .severity = Severity::Unlikely,
                              .text = "=1+1; Ana",
                              .people = {parish::PersonNumber(3)},
                              .families = {parish::FamilyNumber(4), parish::FamilyNumber(5)},
                              .acts = {6},
                              .when = QDate(1710, 1, 1)},
                             {.rule = "P-02", .severity = Severity::Information, .text = "Eva"}};

std::vector<Case> chosenCases(const std::vector<Case>& cases, const CaseFilter& filter)
{
    std::vector<Case> chosen;
    std::ranges::copy_if(cases, std::back_inserter(chosen), CaseChoice(filter));
    return chosen;
}

TEST(AListOfCases, IsFilteredBySeverityAndWords)
{
    EXPECT_EQ(chosenCases(some, {}), some);
    EXPECT_EQ(chosenCases(some, {.severity = Severity::Unlikely}).size(), 2U);
    EXPECT_EQ(chosenCases(some, {.text = "JOAO moc"}).at(0), some[0]) << "blind to case and accents";
    EXPECT_EQ(chosenCases(some, {.text = "obito nascimento"}).size(), 2U) << "the title of the rule";
    EXPECT_TRUE(chosenCases(some, {.text = "joao rui"}).empty()) << "all words";
    EXPECT_EQ(gravest(some, Severity::Impossible).size(), 1U);
    EXPECT_EQ(gravest(some, Severity::Unlikely).size(), 3U);
    EXPECT_EQ(gravest(some, Severity::Information), some);
}

TEST(AListOfCases, IsCountedByRuleAndDecade)
{
    EXPECT_EQ(countsByRule(some),
              (std::vector<RuleCount>{{"P-01", Severity::Impossible, 2}, {"P-02", Severity::Unlikely, 2}}));
    EXPECT_EQ(countsByDecade(some), (std::vector<std::pair<int, int>>{{1700, 2}, {1710, 1}, {0, 1}}));
    EXPECT_EQ(countText(some), "1 impossível, 2 avisos, 1 informação");
    EXPECT_EQ(countText({}), "nada");
    EXPECT_TRUE(countsByDecade({}).empty());
}

TEST(AListOfCases, IsWrittenForTablesWithNothingThatRuns)
{
    const QByteArray csv = toCsv(some);
    EXPECT_TRUE(csv.startsWith("\xEF\xBB\xBF\"Gravidade\";\"Regra\";")) << csv.toStdString();
    const QList<QByteArray> rows = csv.split('\n');
    ASSERT_EQ(rows.size(), 6);
    EXPECT_TRUE(rows[1].startsWith("\"impossível\";\"P-01\";\"Óbito antes do nascimento\";\"João \"\"o Moço\"\" <b>\";"
                                   "\"1\";\"\";\"\";\"14/02/1702\";"))
        << rows[1].toStdString();
    EXPECT_TRUE(rows[3].contains("\"'=1+1; Ana\";\"3\";\"4 5\";\"6\"")) << rows[3].toStdString();
    for (int row = 0; row < 5; ++row)
        EXPECT_TRUE(rows[row].endsWith('\r'));
}

TEST(AListOfCases, IsWrittenAsJson)
{
    const QJsonArray all = QJsonDocument::fromJson(toJson(some)).array();
    ASSERT_EQ(all.size(), 4);
    EXPECT_EQ(all[0]["texto"].toString(), some[0].text);
    EXPECT_EQ(all[0]["gravidade"].toString(), "impossível");
    EXPECT_EQ(all[2]["familias"].toArray(), QJsonArray({4, 5}));
    EXPECT_EQ(all[2]["actos"].toArray(), QJsonArray({6}));
    EXPECT_EQ(all[2]["data"].toString(), "1710-01-01");
    EXPECT_TRUE(all[3]["data"].isNull());
    EXPECT_EQ(all[0]["chave"].toString(), "P-01 i1");
}

TEST(AListOfCases, IsAPageToBePrintedWhateverTheNames)
{
    const QString page = QString::fromUtf8(toHtml(some, "São <Mamede> %1", "hoje"));
    EXPECT_TRUE(page.contains("<h1>Contradições: São &lt;Mamede&gt; %1</h1>")) << qPrintable(page);
    EXPECT_TRUE(page.contains("<h2>P-01 Óbito antes do nascimento (2)</h2>"));
    EXPECT_TRUE(page.contains("<li>impossível: João &quot;o Moço&quot; &lt;b&gt;</li>"));
    EXPECT_FALSE(page.contains("<b>"));
    EXPECT_TRUE(page.contains("<p>Verificação de hoje: 1 impossível, "));
    EXPECT_TRUE(QString::fromUtf8(toHtml(some, "Moinhos", "")).contains("<p>Casos: 1 impossível, ")) << "of no check";
}

} // namespace
