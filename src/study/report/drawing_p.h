// What the parts of a drawing share.
#pragma once

#include "study/report/drawing.h"

#include <QAbstractAxis>
#include <QColor>
#include <QScatterSeries>

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace study::report {

// How one series looks. Six colours, and five of all else: no two of the first thirty look the same, nor the first five
// without their colours.
struct Style
{
    QColor colour;
    Qt::PenStyle dash;
    QScatterSeries::MarkerShape marker;
    Qt::BrushStyle hatch;
};
Style styleOf(std::size_t plot, bool dark);
bool isDark(const QPalette& palette);

// A number that can be drawn: finite, and small enough to be told from its neighbours.
bool isDrawable(double value);
std::optional<double> drawableY(const Point& point);
std::optional<statistics::Interval> drawableInterval(const Point& point); // none without a y

// From where to where, in even steps.
struct Scale
{
    double low = 0, high = 1, step = 1;
    int decimals = 0; // that tell the steps apart

    bool operator==(const Scale&) const = default;
};
// Holds both values on multiples of 1, 2 or 5 times a power of ten, about as many as `steps`. Precondition: low <=
// high.
Scale scaleOf(double low, double high, int steps = 6);

// Decimal comma, a true minus, no mark between thousands: a year is a number, too.
QString numberText(double value, int decimals);

struct Tick
{
    double at = 0;
    QString label = {}; // as plain text
};
std::vector<Tick> ticksOf(const Scale& scale);

// An axis with these labels and no others, from low to high. On a lying one, labels that don't fit side by side are
// turned.
std::unique_ptr<QAbstractAxis> axisOf(const std::vector<Tick>& ticks, double low, double high, const QString& title,
                                      const Look& look, bool lying);

// Gives the item the axes and series of the chart. Precondition: it has none, and some point of the chart can be drawn.
void drawOn(QChart& item, const Chart& chart, const Look& look);

// Of what the generator wrote for this chart: see svgOf().
QByteArray tidiedSvg(const QByteArray& svg, const Chart& chart, QSize size);

// Where the points of a chart stand along x. Bars stand at whole numbers from 0, all else stands at its x.
class Places
{
public:
    explicit Places(const Chart& chart);

    double of(double x) const;
    double spacing() const { return isBars_ ? 1 : spacing_; } // the least between two places
    std::size_t count() const { return count_; }              // of places of bars
    const std::vector<Tick>& ticks() const { return ticks_; } // in the order of their places
    double low() const { return low_; }
    double high() const { return high_; }

private:
    void atNumbers();
    void asBars();

    std::vector<double> xs_; // ascending, each once
    std::vector<Tick> ticks_ = {};
    double spacing_ = 1, low_ = 0, high_ = 1;
    std::size_t count_ = 0;
    bool isBars_ = false;
    bool isEven_ = false;    // bars of numbers at even distances: a gap between them stays
    bool isOrdered_ = false; // bars of other numbers, side by side
};

} // namespace study::report
