// Scales, axes, and where points stand on them.
#include "study/report/drawing_p.h"
#include "study/report/markup.h"

#include <QCategoryAxis>
#include <QGraphicsLayout>
#include <QLocale>
#include <QPen>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace study::report {

namespace {

constexpr double largest = 1e12;
constexpr std::size_t mostBars = 2000;
constexpr qsizetype mostLabels = 30;    // turned ones
constexpr qsizetype lettersInLine = 90; // about as many as stand side by side
constexpr std::size_t labelsInLine = 14;
constexpr qsizetype longestLabel = 22; // turned, longer ones would leave no room to draw
constexpr qsizetype mostLines = 3;     // of a label that is broken between its words

QColor blend(const QColor& one, const QColor& other, double part)
{
    return QColor::fromRgbF(float(one.redF() + part * (other.redF() - one.redF())),
                            float(one.greenF() + part * (other.greenF() - one.greenF())),
                            float(one.blueF() + part * (other.blueF() - one.blueF())));
}

std::vector<double> placesIn(const Chart& chart)
{
    std::vector<double> xs;
    for (const Plot& plot : chart.plots)
        for (const Point& point : plot.points)
            if (isDrawable(point.x)) xs.push_back(point.x);
    std::sort(xs.begin(), xs.end());
    xs.erase(std::unique(xs.begin(), xs.end()), xs.end());
    return xs;
}

double leastDistance(const std::vector<double>& ascending)
{
    double least = 0;
    for (std::size_t i = 1; i < ascending.size(); ++i) {
        const double distance = ascending[i] - ascending[i - 1];
        least = least == 0 ? distance : std::min(least, distance);
    }
    return least > 0 ? least : 1;
}

// Of many, every second or fifth one, from the first.
std::vector<Tick> thinned(const std::vector<Tick>& ticks)
{
    std::size_t every = 1;
    for (const std::size_t next : {2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000})
        if (ticks.size() > every * mostLabels) every = next;
    std::vector<Tick> left;
    for (std::size_t i = 0; i < ticks.size(); i += every)
        left.push_back(ticks[i]);
    return left;
}

QString shortened(const QString& label)
{
    return label.size() <= longestLabel ? label : label.left(longestLabel - 1) + QChar(0x2026);
}

bool fitInLine(const std::vector<Tick>& ticks)
{
    qsizetype letters = 0;
    for (const Tick& tick : ticks)
        letters += tick.label.size() + 2;
    return letters <= lettersInLine && ticks.size() <= labelsInLine;
}

// Its words in lines of so many letters at most; none where that takes too many lines.
QStringList brokenLabel(const QString& label, qsizetype letters)
{
    QStringList lines;
    const auto words = label.split(' ', Qt::SkipEmptyParts);
    for (const QString& word : words) {
        if (word.size() > letters) return {};
        if (lines.isEmpty() || lines.constLast().size() + 1 + word.size() > letters)
            lines << word;
        else
            lines.last() += ' ' + word;
    }
    return lines.size() > mostLines ? QStringList() : lines;
}

// How the labels of an axis stand. On a lying one whole where they fit side by side, else in lines, else turned.
enum class Layout : quint8
{
    Whole,
    Broken,
    Turned,
    Stacked // on a standing axis
};

qsizetype lettersOfOne(const std::vector<Tick>& ticks)
{
    return lettersInLine / std::max<qsizetype>(1, qsizetype(ticks.size())) - 2;
}

Layout layoutOf(const std::vector<Tick>& ticks)
{
    if (fitInLine(ticks)) return Layout::Whole;
    const bool breaks = std::all_of(ticks.begin(), ticks.end(), [&](const Tick& tick) {
        return !brokenLabel(tick.label, lettersOfOne(ticks)).isEmpty();
    });
    return breaks ? Layout::Broken : Layout::Turned;
}

// As rich text, by which the axis reads it.
QString markupOf(const QString& label, Layout layout, qsizetype letters)
{
    if (layout != Layout::Broken) return escaped(layout == Layout::Whole ? label : shortened(label));
    QStringList lines = brokenLabel(label, letters);
    for (QString& line : lines)
        line = escaped(line);
    return lines.join("<br>");
}

} // namespace

bool isDrawable(double value)
{
    return std::isfinite(value) && std::abs(value) <= largest;
}

std::optional<double> drawableY(const Point& point)
{
    if (point.y && isDrawable(*point.y) && isDrawable(point.x)) return point.y;
    return {};
}

std::optional<statistics::Interval> drawableInterval(const Point& point)
{
    const auto& interval = point.interval;
    if (drawableY(point) && interval && isDrawable(interval->low) && isDrawable(interval->high)) return interval;
    return {};
}

Scale scaleOf(double low, double high, int steps)
{
    const double least = std::max(1e-9, 1e-6 * std::max(std::abs(low), std::abs(high)));
    if (high - low < least) {
        const double room = low == 0 && high == 0 ? 1 : std::max(least, std::abs(high) / 2);
        high += room;
        if (low < 0) low -= room;
    }
    const double wanted = (high - low) / steps;
    const int power = int(std::floor(std::log10(wanted)));
    double step = std::pow(10, power);
    for (const double factor : {1.0, 2.0, 5.0, 10.0}) {
        step = factor * std::pow(10, power);
        if (step >= wanted * (1 - 1e-9)) break;
    }
    const int decimals = std::max(0, -int(std::floor(std::log10(step) + 1e-9)));
    return {std::floor(low / step + 1e-9) * step, std::ceil(high / step - 1e-9) * step, step, decimals};
}

QString numberText(double value, int decimals)
{
    QLocale portuguese(QLocale::Portuguese, QLocale::Portugal);
    portuguese.setNumberOptions(QLocale::OmitGroupSeparator);
    QString digits = portuguese.toString(std::abs(value), 'f', decimals);
    const bool isZero = std::abs(value) < 0.5 * std::pow(10, -decimals);
    return value < 0 && !isZero ? QChar(0x2212) + digits : digits;
}

std::vector<Tick> ticksOf(const Scale& scale)
{
    std::vector<Tick> ticks;
    const int count = int(std::lround((scale.high - scale.low) / scale.step));
    for (int i = 0; i <= count; ++i) {
        const double at = scale.low + i * scale.step;
        ticks.push_back({at, numberText(at, scale.decimals)});
    }
    return ticks;
}

std::unique_ptr<QAbstractAxis> axisOf(const std::vector<Tick>& ticks, double low, double high, const QString& title,
                                      const Look& look, bool lying)
{
    auto axis = std::make_unique<QCategoryAxis>();
    axis->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    axis->setStartValue(low);
    const std::vector<Tick> told = thinned(ticks);
    const Layout layout = lying ? layoutOf(told) : Layout::Stacked;
    QSet<QString> taken;
    for (const Tick& tick : told) {
        QString label = markupOf(tick.label, layout, lettersOfOne(told));
        while (taken.contains(label)) // and wants each once: what stands on both sides of one leaves it in the middle
            label = QChar(QChar::Nbsp) + label + QChar(QChar::Nbsp);
        taken.insert(label);
        axis->append(label, tick.at);
    }
    axis->setRange(low, high);
    axis->setTitleText(escaped(title));
    axis->setTitleVisible(!title.isEmpty());
    if (layout == Layout::Turned) axis->setLabelsAngle(-90);
    axis->setTruncateLabels(false); // which leaves three points of a label that has little room to its sides
    const QColor ink = look.palette.color(QPalette::Text), ground = look.palette.color(QPalette::Base);
    axis->setLabelsBrush(ink);
    axis->setTitleBrush(ink);
    axis->setLinePen(QPen(blend(ink, ground, 0.3), 1));
    axis->setGridLinePen(QPen(blend(ink, ground, 0.82), 1));
    return axis;
}

Places::Places(const Chart& chart) : xs_(placesIn(chart))
{
    isBars_ = chart.drawing == Drawing::Bars || chart.drawing == Drawing::Pyramid;
    if (!chart.categories.isEmpty()) {
        count_ = std::size_t(chart.categories.size());
        for (std::size_t i = 0; i < count_; ++i)
            ticks_.push_back({double(i), chart.categories[qsizetype(i)]});
        low_ = -0.5;
        high_ = double(count_) - 0.5;
    } else if (!xs_.empty()) {
        spacing_ = leastDistance(xs_);
        isBars_ ? asBars() : atNumbers();
    }
}

void Places::atNumbers()
{
    const Scale scale = scaleOf(xs_.front(), xs_.back(), 8);
    ticks_ = ticksOf(scale);
    low_ = scale.low;
    high_ = scale.high;
}

void Places::asBars()
{
    const double span = (xs_.back() - xs_.front()) / spacing_;
    isEven_ = span < double(mostBars) && std::all_of(xs_.begin(), xs_.end(), [&](double x) {
                  const double steps = (x - xs_.front()) / spacing_;
                  return std::abs(steps - std::round(steps)) < 1e-6;
              });
    isOrdered_ = !isEven_;
    count_ = isEven_ ? std::size_t(std::lround(span)) + 1 : xs_.size();
    low_ = -0.5;
    high_ = double(count_) - 0.5;
    if (isEven_ && count_ > labelsInLine) {
        for (const Tick& tick : ticksOf(scaleOf(xs_.front(), xs_.back(), 8)))
            if (tick.at >= xs_.front() && tick.at <= xs_.back()) ticks_.push_back({of(tick.at), tick.label});
        return;
    }
    for (const double x : xs_)
        ticks_.push_back(
            {of(x), QLocale(QLocale::Portuguese, QLocale::Portugal).toString(x, 'g', 6).remove(QChar(0xA0))});
}

double Places::of(double x) const
{
    if (isEven_) return (x - xs_.front()) / spacing_;
    if (isOrdered_) return double(std::lower_bound(xs_.begin(), xs_.end(), x) - xs_.begin());
    return x;
}

} // namespace study::report
