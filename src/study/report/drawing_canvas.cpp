// The axes and series of a drawing.
#include "study/report/drawing_p.h"
#include "study/report/markup.h"

#include <QBarSeries>
#include <QBarSet>
#include <QHorizontalStackedBarSeries>
#include <QLegend>
#include <QLegendMarker>
#include <QLineSeries>
#include <QPen>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace study::report {

namespace {

constexpr std::size_t mostMarkers = 40; // more points than these are a line alone

struct Extent
{
    double low = std::numeric_limits<double>::max(), high = std::numeric_limits<double>::lowest();

    void take(double value)
    {
        low = std::min(low, value);
        high = std::max(high, value);
    }
};

Extent extentOf(const Chart& chart)
{
    Extent extent;
    for (const Plot& plot : chart.plots)
        for (const Point& point : plot.points) {
            if (const auto y = drawableY(point)) extent.take(*y);
            if (const auto interval = drawableInterval(point)) {
                extent.take(interval->low);
                extent.take(interval->high);
            }
        }
    return extent;
}

// What is counted from nothing begins there; a line far above it (ages at marriage) shows its own part alone.
Scale heightOf(const Chart& chart)
{
    Extent extent = extentOf(chart);
    const bool fromZero = chart.drawing == Drawing::Bars || chart.drawing == Drawing::Steps ||
                          (extent.low > 0 && extent.low < extent.high / 2);
    if (fromZero) extent.take(0);
    return scaleOf(extent.low, extent.high);
}

// One drawing in the making: the item, its axes, and what is put on them.
class Canvas
{
public:
    Canvas(const Chart& chart, const Look& look, QChart& item)
        : chart_(chart), look_(look), item_(item), places_(chart), dark_(isDark(look.palette))
    {
    }

    void draw();

private:
    void upright();
    void pyramid();
    void bars();
    void lines(std::size_t plot);
    void steps(std::size_t plot);
    void markers(std::size_t plot, bool named);
    void intervals(std::size_t plot);
    void limits(std::size_t plot, bool upper);

    void addAxis(std::unique_ptr<QAbstractAxis> axis, Qt::Alignment side);
    void put(std::unique_ptr<QAbstractSeries> series, const QString& name);
    void putLine(const QList<QPointF>& points, const QPen& pen, const QString& name = {});
    QBarSet* barsOf(std::size_t plot, double sign) const;
    double shiftOf(std::size_t plot) const;
    QPen penOf(std::size_t plot) const;
    QPointF at(const Point& point, double y, std::size_t plot) const
    {
        return {places_.of(point.x) + shiftOf(plot), y};
    }

    const Chart& chart_;
    const Look& look_;
    QChart& item_;
    Places places_;
    bool dark_;
};

void Canvas::draw()
{
    if (chart_.drawing == Drawing::Pyramid)
        pyramid();
    else
        upright();
}

void Canvas::addAxis(std::unique_ptr<QAbstractAxis> axis, Qt::Alignment side)
{
    item_.addAxis(axis.release(), side);
}

void Canvas::put(std::unique_ptr<QAbstractSeries> series, const QString& name)
{
    QAbstractSeries* added = series.release();
    added->setName(escaped(name));
    item_.addSeries(added);
    for (QAbstractAxis* axis : item_.axes())
        added->attachAxis(axis);
    if (!name.isEmpty() || qobject_cast<QAbstractBarSeries*>(added)) return;
    for (QLegendMarker* marker : item_.legend()->markers(added))
        marker->setVisible(false);
}

void Canvas::putLine(const QList<QPointF>& points, const QPen& pen, const QString& name)
{
    auto line = std::make_unique<QLineSeries>();
    line->append(points);
    line->setPen(pen);
    put(std::move(line), name);
}

QPen Canvas::penOf(std::size_t plot) const
{
    const Style style = styleOf(plot, dark_);
    return {style.colour, 2, style.dash, Qt::FlatCap, Qt::RoundJoin};
}

// Bars of a group stand side by side, and so do points with intervals; lines stay where they are.
double Canvas::shiftOf(std::size_t plot) const
{
    if (chart_.drawing != Drawing::Points && chart_.drawing != Drawing::Bars) return 0;
    const double all = double(chart_.plots.size());
    const double group = chart_.drawing == Drawing::Bars ? 0.8 : 0.3;
    return (double(plot) - (all - 1) / 2) * group * places_.spacing() / all;
}

void Canvas::upright()
{
    const Scale height = heightOf(chart_);
    const bool isBars = chart_.drawing == Drawing::Bars, points = chart_.drawing == Drawing::Points;
    const bool marked = points || chart_.drawing == Drawing::Lines;
    // Points at the very edge would have their marker cut in two.
    const double margin = marked && chart_.categories.isEmpty()
                              ? 0.015 * (places_.high() - places_.low()) + (points ? 0.15 * places_.spacing() : 0)
                              : 0;
    const double above = marked ? 0.025 * (height.high - height.low) : 0;
    addAxis(axisOf(places_.ticks(), places_.low() - margin, places_.high() + margin, chart_.xTitle, look_, true),
            Qt::AlignBottom);
    addAxis(axisOf(ticksOf(height), height.low - above, height.high + above, chart_.yTitle, look_, false),
            Qt::AlignLeft);
    item_.axes(Qt::Horizontal).constFirst()->setGridLineVisible(!isBars && chart_.categories.isEmpty());
    if (isBars) bars();
    for (std::size_t plot = 0; plot < chart_.plots.size(); ++plot) {
        if (chart_.drawing == Drawing::Lines) lines(plot);
        if (chart_.drawing == Drawing::Steps) steps(plot);
        if (points) markers(plot, true);
        if (chart_.drawing != Drawing::Steps) intervals(plot);
    }
}

QBarSet* Canvas::barsOf(std::size_t plot, double sign) const
{
    const Style style = styleOf(plot, dark_);
    auto* set = new QBarSet(escaped(chart_.plots[plot].name));
    QList<double> values(qsizetype(places_.count()), 0.0);
    for (const Point& point : chart_.plots[plot].points) {
        const auto y = drawableY(point);
        const qsizetype place = y ? qsizetype(std::lround(places_.of(point.x))) : -1;
        if (place >= 0 && place < values.size()) values[place] = sign * *y;
    }
    set->append(values);
    set->setBrush(QBrush(style.colour, style.hatch));
    set->setPen(QPen(style.colour, 1));
    return set;
}

void Canvas::bars()
{
    auto series = std::make_unique<QBarSeries>();
    series->setBarWidth(0.8);
    for (std::size_t plot = 0; plot < chart_.plots.size(); ++plot)
        series->append(barsOf(plot, 1));
    put(std::move(series), {});
}

// The first series to the left of the middle, the second one to the right; x goes upwards.
void Canvas::pyramid()
{
    Extent extent = extentOf(chart_);
    extent.take(0);
    const Scale half = scaleOf(0, std::max(extent.high, -extent.low), 4);
    std::vector<Tick> ticks = ticksOf({-half.high, half.high, half.step, half.decimals});
    for (Tick& tick : ticks)
        tick.label = numberText(std::abs(tick.at), half.decimals);
    addAxis(axisOf(ticks, -half.high, half.high, chart_.yTitle, look_, true), Qt::AlignBottom);
    addAxis(axisOf(places_.ticks(), places_.low(), places_.high(), chart_.xTitle, look_, false), Qt::AlignLeft);
    item_.axes(Qt::Vertical).constFirst()->setGridLineVisible(false);
    auto series = std::make_unique<QHorizontalStackedBarSeries>();
    series->setBarWidth(0.9);
    for (std::size_t plot = 0; plot < std::min<std::size_t>(2, chart_.plots.size()); ++plot)
        series->append(barsOf(plot, plot == 0 ? -1 : 1));
    put(std::move(series), {});
}

void Canvas::lines(std::size_t plot)
{
    QString name = chart_.plots[plot].name; // the legend has it once, however often the line is broken
    QList<QPointF> piece;
    const auto end = [&] {
        if (piece.isEmpty()) return;
        putLine(piece, penOf(plot), std::exchange(name, {}));
        piece.clear();
    };
    for (const Point& point : chart_.plots[plot].points)
        if (const auto y = drawableY(point))
            piece << at(point, *y, plot);
        else
            end();
    end();
    markers(plot, false);
}

// Each value holds until the next one.
void Canvas::steps(std::size_t plot)
{
    QString name = chart_.plots[plot].name;
    QList<QPointF> piece;
    const auto end = [&] {
        if (!piece.isEmpty()) putLine(piece, penOf(plot), std::exchange(name, {}));
        piece.clear();
    };
    for (const Point& point : chart_.plots[plot].points) {
        const auto y = drawableY(point);
        if (!piece.isEmpty() && isDrawable(point.x)) piece << QPointF(places_.of(point.x), piece.constLast().y());
        if (y)
            piece << at(point, *y, plot);
        else
            end();
    }
    end();
    limits(plot, false);
    limits(plot, true);
}

// One limit of the intervals of steps, as a thin line of dots.
void Canvas::limits(std::size_t plot, bool upper)
{
    const QPen pen(styleOf(plot, dark_).colour, 1, Qt::DotLine);
    QList<QPointF> piece;
    for (const Point& point : chart_.plots[plot].points) {
        const auto interval = drawableInterval(point);
        if (!piece.isEmpty() && isDrawable(point.x)) piece << QPointF(places_.of(point.x), piece.constLast().y());
        if (interval) {
            piece << at(point, upper ? interval->high : interval->low, plot);
        } else if (!piece.isEmpty()) {
            putLine(piece, pen);
            piece.clear();
        }
    }
    if (!piece.isEmpty()) putLine(piece, pen);
}

void Canvas::markers(std::size_t plot, bool named)
{
    const Style style = styleOf(plot, dark_);
    auto series = std::make_unique<QScatterSeries>();
    for (const Point& point : chart_.plots[plot].points)
        if (const auto y = drawableY(point)) series->append(at(point, *y, plot));
    if (series->count() == 0 || (!named && std::size_t(series->count()) > mostMarkers)) return;
    series->setMarkerShape(style.marker);
    series->setMarkerSize(named ? 9 : 7);
    series->setColor(style.colour);
    series->setBorderColor(look_.palette.color(QPalette::Base));
    put(std::move(series), named ? chart_.plots[plot].name : QString());
}

// From limit to limit, with a dash across either end.
void Canvas::intervals(std::size_t plot)
{
    const bool onBars = chart_.drawing == Drawing::Bars; // seen on a bar of the same colour
    const QColor colour = onBars ? look_.palette.color(QPalette::Text) : styleOf(plot, dark_).colour;
    const double dash = 0.06 * places_.spacing() / double(chart_.plots.size());
    for (const Point& point : chart_.plots[plot].points)
        if (const auto interval = drawableInterval(point)) {
            const QPointF low = at(point, interval->low, plot), high = at(point, interval->high, plot);
            const QPointF across(dash, 0);
            putLine({low - across, low + across, low, high, high - across, high + across}, QPen(colour, 1.2));
        }
}

} // namespace

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

Style styleOf(std::size_t plot, bool dark)
{
    // Told apart also by who sees no red or no green; at least 3 : 1 against the ground.
    static constexpr std::array<QRgb, 6> onLight{0xff005f9e, 0xffc44e00, 0xff00805d,
                                                 0xff8f3f71, 0xff7a5c00, 0xff404040};
    static constexpr std::array<QRgb, 6> onDark{0xff6cbcf0, 0xfff2a35e, 0xff5fd3a8, 0xffe8a5cf, 0xfff0e072, 0xffdddddd};
    static constexpr std::array dashes{Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine};
    static constexpr std::array markers{QScatterSeries::MarkerShapeCircle, QScatterSeries::MarkerShapeRectangle,
                                        QScatterSeries::MarkerShapeTriangle,
                                        QScatterSeries::MarkerShapeRotatedRectangle, QScatterSeries::MarkerShapeStar};
    static constexpr std::array hatches{Qt::SolidPattern, Qt::BDiagPattern, Qt::Dense5Pattern, Qt::HorPattern,
                                        Qt::DiagCrossPattern};
    const auto& colours = dark ? onDark : onLight;
    return {QColor(colours[plot % colours.size()]), dashes[plot % dashes.size()], markers[plot % markers.size()],
            hatches[plot % hatches.size()]};
}

void drawOn(QChart& item, const Chart& chart, const Look& look)
{
    Canvas(chart, look, item).draw();
}

} // namespace study::report
