// The page of a report: whole, escaped, and linked.
#include "sampleReport.h"
#include "study/report/page.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

using namespace study;
using namespace study::report;

namespace {

// An element of the page with all that stands in it, as text.
struct Element
{
    QString name;
    QHash<QString, QString> attributes;
    QString text;
    int parent = -1;
};

// Every element in its order; an error of the page is told.
std::vector<Element> elementsOf(const QByteArray& page)
{
    std::vector<Element> elements;
    std::vector<int> open;
    QXmlStreamReader reader(page);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            Element element{reader.name().toString(), {}, {}, open.empty() ? -1 : open.back()};
            for (const QXmlStreamAttribute& attribute : reader.attributes())
                element.attributes[attribute.name().toString()] = attribute.value().toString();
            open.push_back(int(elements.size()));
            elements.push_back(element);
        } else if (reader.isEndElement()) {
            open.pop_back();
        } else if (reader.isCharacters()) {
            for (const int i : open)
                elements[std::size_t(i)].text += reader.text();
        }
    }
    EXPECT_FALSE(reader.hasError()) << qPrintable(reader.errorString()) << " in line " << reader.lineNumber();
    return elements;
}

QStringList textsOf(const std::vector<Element>& elements, const QString& name)
{
    QStringList texts;
    for (const Element& element : elements)
        if (element.name == name) texts << element.text.simplified();
    return texts;
}

qsizetype countOf(const std::vector<Element>& elements, const QString& name)
{
    return textsOf(elements, name).size();
}

Report onlyOf(const Figure& figure)
{
    return {.title = "R", .chapters = {{"C", {{"s", "S", "M", {figure}}}}}};
}

TEST(APageOfAReport, IsWellFormedAndTellsAll)
{
    const auto elements = elementsOf(pageOf(sample::report()));
    ASSERT_FALSE(elements.empty());
    EXPECT_EQ(elements[0].name, "html");
    EXPECT_EQ(elements[0].attributes["lang"], "pt-PT");
    EXPECT_EQ(textsOf(elements, "h1"), QStringList{"Estudo demográfico"});
    EXPECT_EQ(textsOf(elements, "h2"), (QStringList{"Índice", "Fonte", "Opções do estudo", "Como ler os quadros",
                                                    "1 Nupcialidade", "2 Fecundidade e mortalidade"}));
    EXPECT_EQ(textsOf(elements, "h3").value(0), "1.1 Idade ao primeiro casamento");
    const QStringList told = textsOf(elements, "dd");
    EXPECT_EQ(told.value(0), "/home/ana/moinhos & vale.orv");
    EXPECT_TRUE(told.value(1).endsWith(" bytes"));
    EXPECT_EQ(told.value(2), QString(64, 'a'));
    EXPECT_EQ(told.value(3), "22/11/2026 09:30:00");
    EXPECT_EQ(told.value(4), "1700–1850");
    EXPECT_EQ(countOf(elements, "svg"), 5);
    EXPECT_EQ(countOf(elements, "table"), 3);
}

TEST(APageOfAReport, HasContentsWhoseLinksLeadSomewhere)
{
    const auto elements = elementsOf(pageOf(sample::report()));
    QSet<QString> ids;
    QStringList links;
    for (const Element& element : elements) {
        if (const QString id = element.attributes.value("id"); !id.isEmpty()) {
            EXPECT_FALSE(ids.contains(id)) << qPrintable(id) << " stands twice";
            ids.insert(id);
        }
        if (element.name == "a") links << element.attributes["href"];
    }
    EXPECT_EQ(links.size(), 7) << "two chapters, five sections";
    for (const QString& link : links) {
        EXPECT_TRUE(link.startsWith('#'));
        EXPECT_TRUE(ids.contains(link.mid(1))) << qPrintable(link);
    }
}

TEST(APageOfAReport, RefersToNothingOutsideAndRunsNothing)
{
    const QByteArray bytes = pageOf(sample::report());
    const QString page = QString::fromUtf8(bytes);
    for (const char* word : {"<script", "javascript:", "<link", "<img", "@import", " onload", " onclick"})
        EXPECT_FALSE(page.contains(word)) << word;
    static const QRegularExpression outside("(?:href|src)=\"(?!#)|url\\((?!#)");
    EXPECT_FALSE(page.contains(outside));
    QString without = page;
    without.remove("http://www.w3.org/2000/svg"); // the name of a language, which nobody fetches
    EXPECT_FALSE(without.contains("http"));
}

TEST(APageOfAReport, EscapesEveryText)
{
    const QString bad = "<b>&\"'\x01\uFFFF" + QString(QChar(0xD800)) + "]]>";
    const QString good = "<b>&\"']]>";
    Table table{.id = bad,
                .title = bad,
                .columns = {{.title = bad, .isText = true}, {.title = bad, .unit = bad}},
                .rows = {{text(bad), text(bad)}},
                .notes = {bad}};
    Chart chart{.id = bad,
                .title = bad,
                .xTitle = bad,
                .yTitle = bad,
                .categories = {bad, bad},
                .plots = {{bad, {{0, 1.0}, {1, 2.0}}}, {bad, {{0, 2.0}}}},
                .described = bad};
    const Report report{.title = bad,
                        .parish = bad,
                        .parishCode = bad,
                        .program = bad,
                        .sources = {{.path = bad, .sha256 = bad}},
                        .settings = {{bad, bad}},
                        .chapters = {{bad, {{bad, bad, bad, {table, chart}}}}}};
    const auto elements = elementsOf(pageOf(report));
    EXPECT_EQ(countOf(elements, "b"), 0);
    EXPECT_EQ(textsOf(elements, "h1"), QStringList{good});
    EXPECT_TRUE(textsOf(elements, "td").contains(good));
    EXPECT_TRUE(textsOf(elements, "li").contains(good)) << "the note";
    EXPECT_EQ(textsOf(elements, "desc"), QStringList{good});
    EXPECT_TRUE(textsOf(elements, "text").contains(good)) << "of a legend or an axis";
}

TEST(APageOfAReport, ShowsNumbersWithACommaTheirLimitsAndHowFarTheyAreToBeTrusted)
{
    const auto elements = elementsOf(pageOf(onlyOf(sample::agesTable())));
    EXPECT_EQ(textsOf(elements, "td"),
              (QStringList{"1234", "24,3[23,9; 24,8]", "12,5", "8", "25,0†[21,0; 29,1]", "–", "3", "*", "*"}));
    const QStringList heads = textsOf(elements, "th");
    EXPECT_EQ(heads,
              (QStringList{"Coorte", "n", "Média (anos)", "Menos de 20 (%)", "1700–1749", "1750–1799", "1800–1849"}));
    EXPECT_EQ(textsOf(elements, "caption"), QStringList{"Quadro 1.1. Idade média ao primeiro casamento"});
    const QString legend = textsOf(elements, "p").constLast();
    for (const char* mark : {"[ ; ] ", "† ", "* ", "– "})
        EXPECT_TRUE(legend.contains(mark)) << mark << " in " << qPrintable(legend);
    for (const Element& element : elements)
        if (element.name == "th") {
            const bool head = heads.indexOf(element.text.simplified()) < 4;
            EXPECT_EQ(element.attributes["scope"], head ? "col" : "row") << qPrintable(element.text);
        }
}

TEST(APageOfAReport, StatesTheRuleOfSmallNumbers)
{
    const QStringList told = textsOf(elementsOf(pageOf(sample::report())), "p").filter("Não se mostra (*)");
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(
        told[0].contains("uma taxa de menos de 5 acontecimentos ou de 20 anos de observação, uma proporção de menos "
                         "de 20 casos, uma média ou mediana de menos de 5. De 5 a 9 casos"))
        << qPrintable(told[0]);
}

TEST(APageOfAReport, HasALegendOfTheMarksThatStandInTheTableAlone)
{
    const auto elements = elementsOf(pageOf(onlyOf(sample::leftOutTable())));
    EXPECT_EQ(textsOf(elements, "p").filter("[ ; ]").size(), 0);
    EXPECT_EQ(textsOf(elements, "p").filter("sem valor").size(), 0);
}

TEST(APageOfAReport, TellsWhatIsEmpty)
{
    const auto nothing = elementsOf(pageOf({}));
    EXPECT_TRUE(textsOf(nothing, "p").contains("O relatório não tem capítulos."));
    EXPECT_EQ(countOf(nothing, "nav"), 0);
    EXPECT_EQ(countOf(nothing, "dl"), 0);
    const auto bare = elementsOf(pageOf({.chapters = {{"A", {}}, {"B", {{.id = "s", .title = "S"}}}}}));
    EXPECT_EQ(textsOf(bare, "p").count("sem dados"), 2);
    for (const Figure& figure : {Figure(Table{.id = "t"}), Figure(Chart{.id = "c"})}) {
        const auto elements = elementsOf(pageOf(onlyOf(figure)));
        EXPECT_EQ(textsOf(elements, "p").count("sem dados"), 1);
        EXPECT_EQ(countOf(elements, "svg") + countOf(elements, "table"), 0);
    }
}

TEST(APageOfAReport, NeverTellsANumberThatIsNone)
{
    const double nan = std::numeric_limits<double>::quiet_NaN(), infinite = std::numeric_limits<double>::infinity();
    Table table = sample::agesTable();
    table.rows = {{text("a"), sample::of(nan), sample::of(infinite, Standing::Sound, statistics::Interval{nan, 1}),
                   sample::of(1, Standing::Sound, statistics::Interval{0, infinite})}};
    Chart chart = sample::linesChart();
    chart.plots[0].points = {
        {1700, nan}, {nan, 2.0}, {1710, infinite}, {1720, 3.0, statistics::Interval{nan, infinite}}};
    Report report = onlyOf(table);
    report.chapters[0].sections[0].figures.push_back(chart);
    const auto elements = elementsOf(pageOf(report));
    EXPECT_EQ(textsOf(elements, "td"), (QStringList{"–", "–", "1,0"}));
    static const QRegularExpression none("\\b(nan|inf|infinity)\\b", QRegularExpression::CaseInsensitiveOption);
    for (const Element& element : elements) {
        EXPECT_FALSE((element.name == "td" || element.name == "text") && element.text.contains(none));
        for (const QString& value : element.attributes)
            EXPECT_FALSE(value.contains(none)) << qPrintable(value);
    }
}

TEST(APageOfAReport, HoldsARowThatIsTooShort)
{
    Table table = sample::agesTable();
    table.rows = {{text("curta")}};
    EXPECT_EQ(textsOf(elementsOf(pageOf(onlyOf(table))), "td"), (QStringList{"–", "–", "–"}));
}

QString classOf(const Table& table, const QString& element)
{
    const auto elements = elementsOf(pageOf(onlyOf(table)));
    for (const Element& one : elements)
        if (one.name == element) return one.attributes["class"];
    return "none";
}

// What doesn't fit on A4 in the usual letters is set in smaller ones; what fits in none has its heading on end.
TEST(APageOfAReport, SetsATableSoThatPaperHasRoomForIt)
{
    EXPECT_EQ(classOf(sample::agesTable(), "table"), "normal");
    EXPECT_EQ(classOf(sample::seasonsTable(), "table"), "larga");
    Table table = sample::agesTable();
    const auto setTitles = [&table](std::size_t columns, const QString& title) {
        table.columns.resize(columns);
        for (std::size_t i = 1; i < columns; ++i)
            table.columns[i] = {.title = title};
    };
    setTitles(7, "Descendência");
    EXPECT_EQ(classOf(table, "table"), "larga");
    setTitles(7, "em que de 10 a 20");
    EXPECT_EQ(classOf(table, "table"), "normal") << "titles are broken between their words";
    setTitles(10, "Descendência");
    EXPECT_EQ(classOf(table, "table"), "larga larguissima");
    setTitles(14, "Administrativos");
    EXPECT_EQ(classOf(table, "table"), "larga larguissima imensa");
}

TEST(APageOfAReport, BreaksNoShortTableBetweenTwoPages)
{
    EXPECT_EQ(classOf(sample::agesTable(), "figure"), "quadro curto");
    EXPECT_EQ(classOf(sample::seasonsTable(), "figure"), "quadro");
}

TEST(APageOfAReport, IsTheSameForTheSameReport)
{
    EXPECT_EQ(pageOf(sample::report()), pageOf(sample::report()));
}

} // namespace
