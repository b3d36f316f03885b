// Charts drawn: what stands in them, and that no value of any kind breaks them.
#include "sampleReport.h"
#include "study/report/drawing_p.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

#include <array>

using namespace study;
using namespace study::report;

namespace {

struct Svg
{
    QStringList names, texts, ids, references;
    QHash<QString, QString> root;
    QString title, described, error;
};

Svg readSvg(const QByteArray& bytes)
{
    Svg svg;
    static const QRegularExpression reference("url\\(#([^)]*)\\)");
    QXmlStreamReader reader(bytes);
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement()) continue;
        const QString name = reader.name().toString();
        svg.names << name;
        for (const QXmlStreamAttribute& attribute : reader.attributes()) {
            if (name == "svg") svg.root[attribute.name().toString()] = attribute.value().toString();
            if (attribute.name() == QLatin1String("id")) svg.ids << attribute.value().toString();
            if (const auto found = reference.match(attribute.value()); found.hasMatch())
                svg.references << found.captured(1);
        }
        if (name == "text") svg.texts << reader.readElementText();
        if (name == "title") svg.title = reader.readElementText();
        if (name == "desc") svg.described = reader.readElementText();
    }
    if (reader.hasError()) svg.error = reader.errorString();
    return svg;
}

Svg svgOfChart(const Chart& chart)
{
    const Svg svg = readSvg(svgOf(chart, {720, 420}));
    EXPECT_EQ(svg.error, "");
    return svg;
}

const std::vector<Chart> allKinds{sample::linesChart(), sample::pyramidChart(), sample::barsChart(),
                                  sample::survivalChart(), sample::ratesChart()};

TEST(ADrawnChart, TellsItselfToAReaderOfScreens)
{
    const Svg svg = svgOfChart(sample::linesChart());
    EXPECT_EQ(svg.root["role"], "img");
    EXPECT_EQ(svg.root["viewBox"], "0 0 720 420");
    EXPECT_EQ(svg.names.mid(0, 3), (QStringList{"svg", "title", "desc"}));
    EXPECT_EQ(svg.title, sample::linesChart().title);
    EXPECT_EQ(svg.described, sample::linesChart().described);
}

TEST(ADrawnChart, HasItsAxesWithTheirTitlesAndItsLegend)
{
    for (const Chart& chart : allKinds) {
        const Svg svg = svgOfChart(chart);
        for (const QString& title : {chart.title, chart.xTitle, chart.yTitle})
            EXPECT_TRUE(title.isEmpty() || svg.texts.contains(title)) << qPrintable(title);
        for (const Plot& plot : chart.plots)
            EXPECT_EQ(svg.texts.count(plot.name), plot.name.isEmpty() ? 0 : 1) << qPrintable(plot.name);
        for (const QString& category : chart.categories)
            EXPECT_EQ(svg.texts.count(category), 1) << qPrintable(category);
    }
}

TEST(ADrawnChart, LeavesItsTitleToWhoHasItBeside)
{
    const Svg svg = readSvg(svgOf(sample::linesChart(), {720, 420}, {.titled = false}));
    EXPECT_FALSE(svg.texts.contains(sample::linesChart().title));
    EXPECT_EQ(svg.title, sample::linesChart().title) << "yet it is told";
}

TEST(ADrawnChart, NumbersItsAxesWithACommaAndItsYearsWithNothing)
{
    Chart chart = sample::linesChart();
    chart.plots = {{"", {{1750, 0.25}, {1751, 0.75}}}};
    const Svg svg = svgOfChart(chart);
    EXPECT_TRUE(svg.texts.contains("0,2")) << qPrintable(svg.texts.join(' '));
    EXPECT_EQ(svg.texts.filter(QRegularExpression("\\d\\.\\d")), QStringList());
    EXPECT_TRUE(svgOfChart(sample::linesChart()).texts.contains("1760"));
}

TEST(ADrawnChart, NumbersBothSidesOfAPyramidUpwardsFromTheMiddle)
{
    QStringList texts = svgOfChart(sample::pyramidChart()).texts;
    EXPECT_EQ(texts.filter("-") + texts.filter(QChar(0x2212)), QStringList());
    for (QString& one : texts)
        one.remove(QChar(QChar::Nbsp));
    EXPECT_EQ(texts.count("50"), 2);
    EXPECT_EQ(texts.count("0"), 1);
}

TEST(ADrawnChart, ShowsTextsAsTheyAre)
{
    Chart chart = sample::barsChart();
    chart.title = "<i>a</i> & b";
    chart.yTitle = "<15";
    chart.categories = {"<15", "15 & 16", "c", "c", "e", "f"};
    chart.plots[0].name = "<u>";
    const Svg svg = svgOfChart(chart);
    for (const QString& one : {chart.title, chart.plots[0].name, QString("15 & 16")})
        EXPECT_EQ(svg.texts.count(one), 1) << qPrintable(one);
    EXPECT_EQ(svg.texts.count("<15"), 2);
    EXPECT_EQ(svg.texts.filter(QRegularExpression("^\\W*c\\W*$")).size(), 2) << "two categories of one name";
}

TEST(ADrawnChart, CutsNoNameOfItsLegend)
{
    for (Chart chart : {sample::ratesChart(), sample::barsChart(), sample::linesChart()}) {
        const Plot first = chart.plots[0];
        chart.plots.clear();
        for (int i = 0; i < 6; ++i)
            chart.plots.push_back({QString("Nascimentos ilegítimos %1").arg(1600 + 50 * i), first.points});
        const Svg svg = svgOfChart(chart);
        for (const Plot& plot : chart.plots)
            EXPECT_TRUE(svg.texts.contains(plot.name)) << qPrintable(svg.texts.join(" | "));
    }
}

TEST(ADrawnChart, ShortensCategoriesThatWouldTakeItsRoom)
{
    Chart chart = sample::barsChart();
    chart.categories[0] = QString(60, 'x');
    const QStringList shortened = svgOfChart(chart).texts.filter("xxx");
    ASSERT_EQ(shortened.size(), 1);
    EXPECT_LE(shortened[0].size(), 24);
}

// The names of the series take the room beside it, and leave little to each of the labels.
TEST(ADrawnChart, CutsNoLabelWhereThereAreMany)
{
    Chart chart = sample::linesChart();
    chart.plots = {{"nascimentos com data exacta", {}}, {"óbitos com nascimento", {}}, {"cônjuges com nascimento", {}}};
    for (int i = 0; i < 25; ++i) {
        chart.categories << QString("%1–%2").arg(1600 + 10 * i).arg(1609 + 10 * i);
        for (Plot& plot : chart.plots)
            plot.points.push_back({double(i), 90.0 + i % 7});
    }
    const QStringList texts = svgOfChart(chart).texts;
    for (const QString& category : chart.categories)
        EXPECT_EQ(texts.count(category), 1) << qPrintable(category) << " in " << qPrintable(texts.join(" | "));
}

TEST(ADrawnChart, BreaksLongCategoriesBetweenTheirWords)
{
    Chart chart = sample::barsChart();
    chart.categories = {"Mulher mais velha 5 anos e mais", "Mulher mais velha 1–4 anos", "Mesma idade (menos de 1 ano)",
                        "Marido mais velho 1–4 anos",      "Marido mais velho 5–9 anos", "Marido mais velho 10 e mais"};
    const QStringList texts = svgOfChart(chart).texts;
    EXPECT_EQ(texts.filter(QChar(0x2026)), QStringList());
    const QString all = texts.join(' ');
    for (const QString& category : chart.categories)
        EXPECT_TRUE(all.contains(category)) << qPrintable(category) << " in " << qPrintable(all);
    EXPECT_FALSE(texts.contains(chart.categories[1])) << "in one line it would meet its neighbour";
}

TEST(ADrawnChart, NamesWhatItRefersToByItsOwnId)
{
    const Svg svg = svgOfChart(sample::barsChart());
    EXPECT_FALSE(svg.ids.isEmpty()) << "the hatching";
    for (const QString& id : svg.ids)
        EXPECT_TRUE(id.startsWith("barras-")) << qPrintable(id);
    EXPECT_EQ(QSet<QString>(svg.ids.begin(), svg.ids.end()).size(), svg.ids.size());
    for (const QString& reference : svg.references)
        EXPECT_TRUE(svg.ids.contains(reference)) << qPrintable(reference);
}

TEST(ADrawnChart, SaysWhenThereIsNothingToDraw)
{
    for (Chart chart : allKinds) {
        for (Plot& plot : chart.plots)
            for (Point& point : plot.points)
                point.y.reset();
        EXPECT_TRUE(svgOfChart(chart).texts.contains("sem dados"));
        chart.plots.clear();
        EXPECT_TRUE(svgOfChart(chart).texts.contains("sem dados"));
    }
}

TEST(ADrawnChart, LeavesOutWhatIsNoNumber)
{
    const double nan = std::numeric_limits<double>::quiet_NaN(), infinite = std::numeric_limits<double>::infinity();
    static const QRegularExpression none("\\b(nan|inf)\\b", QRegularExpression::CaseInsensitiveOption);
    for (Chart chart : allKinds) {
        chart.plots[0].points = {{0, 1.0},
                                 {1, nan},
                                 {nan, 2.0},
                                 {2, -infinite},
                                 {infinite, 1.0},
                                 {3, 1e300},
                                 {4, 2.0, statistics::Interval{nan, infinite}}};
        const QByteArray svg = svgOf(chart, {720, 420});
        EXPECT_FALSE(QString::fromUtf8(svg).contains(none));
        EXPECT_EQ(readSvg(svg).error, "");
    }
}

TEST(ADrawnChart, TakesAnyPlaceOfABar)
{
    for (const Drawing drawing : {Drawing::Bars, Drawing::Pyramid})
        for (const std::vector<Point>& points :
             {std::vector<Point>{{-3, 1.0}, {7, 2.0}, {0.5, 3.0}}, {{0, 5.0}}, {{1e11, 1.0}, {0, 1.0}, {0.001, -2.0}}})
        {
            Chart chart{.drawing = drawing, .plots = {{"", points}}};
            EXPECT_EQ(readSvg(svgOf(chart, {300, 200})).error, "");
            chart.categories = {"a", "b"};
            EXPECT_EQ(readSvg(svgOf(chart, {300, 200})).error, "");
        }
}

TEST(ADrawnChart, KeepsTheYearsThatLackBetweenBars)
{
    Chart chart{.drawing = Drawing::Bars, .plots = {{"", {{1700, 1.0}, {1701, 2.0}, {1710, 3.0}}}}};
    const Places places(chart);
    EXPECT_EQ(places.count(), 11U);
    EXPECT_EQ(places.of(1710), 10);
    chart.plots[0].points.push_back({1700.3, 1.0});
    const Places uneven(chart);
    EXPECT_EQ(uneven.count(), 4U) << "of no even distance: side by side";
    EXPECT_EQ(uneven.of(1710), 3);
}

TEST(ADrawnChart, TellsItsSeriesApartAlsoWithoutColours)
{
    std::array<QSet<QString>, 3> bare, coloured;
    for (std::size_t plot = 0; plot < 30; ++plot) {
        const Style style = styleOf(plot, false);
        EXPECT_NE(styleOf(plot, true).colour, style.colour);
        const std::array<int, 3> looks{int(style.dash), int(style.marker), int(style.hatch)};
        for (std::size_t i = 0; i < looks.size(); ++i) {
            if (plot < 5) bare[i] << QString::number(looks[i]);
            coloured[i] << style.colour.name() + QString::number(looks[i]);
        }
    }
    for (std::size_t i = 0; i < bare.size(); ++i) {
        EXPECT_EQ(bare[i].size(), 5);
        EXPECT_EQ(coloured[i].size(), 30);
    }
}

TEST(ADrawnChart, IsLightOnADarkGround)
{
    Look look;
    look.palette.setColor(QPalette::Base, QColor(30, 30, 30));
    look.palette.setColor(QPalette::Text, QColor(230, 230, 230));
    const QImage dark = imageOf(sample::linesChart(), {360, 240}, look);
    EXPECT_EQ(dark.pixelColor(2, 2), QColor(30, 30, 30));
    const QImage light = imageOf(sample::linesChart(), {360, 240}, {}, 2);
    EXPECT_EQ(light.size(), QSize(720, 480));
    EXPECT_EQ(light.pixelColor(2, 2), QColor(Qt::white));
    const auto colours = [](const QImage& image) {
        QSet<QRgb> found;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                found << image.pixel(x, y);
        return found;
    };
    EXPECT_TRUE(colours(dark).contains(styleOf(0, true).colour.rgb()));
    EXPECT_TRUE(colours(light).contains(styleOf(0, false).colour.rgb()));
}

TEST(AScale, StandsOnRoundNumbers)
{
    EXPECT_EQ(scaleOf(0, 10), (Scale{0, 10, 2, 0}));
    EXPECT_EQ(scaleOf(1703, 1848, 8), (Scale{1700, 1860, 20, 0}));
    EXPECT_EQ(scaleOf(0, 0), (Scale{0, 1, 0.2, 1}));
    EXPECT_LE(scaleOf(-3, 7).low, -3);
    EXPECT_GE(scaleOf(-3, 7).high, 7);
}

TEST(AScale, IsFiniteForAnyTwoNumbers)
{
    for (const double low : {-1e12, -1.0, 0.0, 1e-12, 1.0, 999999999999.0, 1e12})
        for (const double more : {0.0, 1e-15, 1e-3, 1.0, 1e12}) {
            const Scale scale = scaleOf(low, low + more);
            EXPECT_GT(scale.step, 0);
            EXPECT_LE(scale.low, low + 1e-6 * scale.step);
            EXPECT_GE(scale.high, low + more - 1e-6 * scale.step);
            EXPECT_LE(ticksOf(scale).size(), 14U) << low << " + " << more;
            EXPECT_GE(ticksOf(scale).size(), 2U) << low << " + " << more;
        }
}

TEST(ANumberOfAnAxis, HasACommaAndATrueMinus)
{
    EXPECT_EQ(numberText(1750, 0), "1750");
    EXPECT_EQ(numberText(-0.5, 1), QString(QChar(0x2212)) + "0,5");
    EXPECT_EQ(numberText(-0.001, 1), "0,0");
}

} // namespace
