#include "study/report/drawing.h"

#include "study/report/drawing_p.h"
#include "study/report/markup.h"

#include <QBuffer>
#include <QGraphicsLayout>
#include <QGraphicsScene>
#include <QLegend>
#include <QPainter>
#include <QSvgGenerator>

#include <algorithm>

namespace study::report {

namespace {

constexpr int resolution = 96;
constexpr qsizetype lettersOfARow = 70; // of a legend, about

bool hasDrawable(const Chart& chart)
{
    return std::any_of(chart.plots.begin(), chart.plots.end(), [](const Plot& plot) {
        return std::any_of(plot.points.begin(), plot.points.end(), [](const Point& point) { return drawableY(point); });
    });
}

// Whether the names of all series stand side by side; the legend would cut them off.
bool namesFit(const Chart& chart)
{
    qsizetype letters = 0;
    for (const Plot& plot : chart.plots)
        letters += plot.name.size() + 4; // its marker
    return letters <= lettersOfARow;
}

// The drawing in a scene of its own, which has it until the end.
class Stage
{
public:
    Stage(const Chart& chart, QSize size, const Look& look) : area_(QPointF(0, 0), QSizeF(size))
    {
        QChart* item = drawn(chart, look).release();
        scene_.addItem(item);
        item->setMinimumSize(0, 0);
        item->resize(area_.size());
        item->layout()->activate();
        scene_.setSceneRect(area_);
    }

    void render(QPainter& painter) { scene_.render(&painter, area_, area_); }

private:
    QRectF area_;
    QGraphicsScene scene_;
};

} // namespace

QPalette paper()
{
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    return palette;
}

std::unique_ptr<QChart> drawn(const Chart& chart, const Look& look)
{
    auto item = std::make_unique<QChart>();
    const QColor ink = look.palette.color(QPalette::Text);
    item->setBackgroundBrush(look.palette.color(QPalette::Base));
    item->setBackgroundPen(Qt::NoPen);
    item->setBackgroundRoundness(0);
    item->setPlotAreaBackgroundVisible(false);
    item->setMargins({4, 4, 12, 4});
    item->setTitleBrush(ink);
    const bool isEmpty = !hasDrawable(chart);
    QStringList title;
    if (look.titled && !chart.title.isEmpty()) title << "<b>" + escaped(chart.title) + "</b>";
    if (isEmpty) title << "sem dados";
    item->setTitle("<div align=\"center\">" + title.join("<br>") + "</div>");
    QLegend* legend = item->legend();
    legend->setAlignment(namesFit(chart) ? Qt::AlignBottom : Qt::AlignRight);
    const bool isBars = chart.drawing == Drawing::Bars || chart.drawing == Drawing::Pyramid;
    legend->setMarkerShape(isBars ? QLegend::MarkerShapeRectangle : QLegend::MarkerShapeFromSeries);
    legend->setLabelColor(ink);
    legend->setVisible(!isEmpty && chart.plots.size() > 1);
    if (!isEmpty) drawOn(*item, chart, look);
    return item;
}

QByteArray svgOf(const Chart& chart, QSize size, const Look& look)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(size);
    generator.setResolution(resolution); // that of the screen, by which texts were measured
    generator.setViewBox(QRect(QPoint(0, 0), size));
    QPainter painter(&generator);
    Stage(chart, size, look).render(painter);
    painter.end();
    return tidiedSvg(bytes, chart, size);
}

QImage imageOf(const Chart& chart, QSize size, const Look& look, qreal scale)
{
    QImage image((QSizeF(size) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(look.palette.color(QPalette::Base));
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    Stage(chart, size, look).render(painter);
    return image;
}

} // namespace study::report
