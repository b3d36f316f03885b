// Tables and charts as plain values: the window, the page and the files only show them.
#pragma once

#include "study/statistics/confidence.h"
#include "study/statistics/distribution.h"
#include "study/statistics/tally.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace study::report {

// How far a figure can be trusted, by the size of its base.
enum class Standing : quint8
{
    Sound,
    Grey,      // shown, and marked
    Suppressed // too little behind it: not shown
};

struct Cell
{
    std::variant<std::monostate, QString, double> value = {}; // nothing: "–"; never NaN, never infinite
    Standing standing = Standing::Sound;
    std::optional<statistics::Interval> interval = {}; // of 95 %
    std::vector<statistics::Key> from = {};            // what was counted for it: the way to the people behind it
    std::optional<int> decimals = {};                  // at most so many, where its base bears less than its column has

    bool operator==(const Cell&) const = default;
};

struct Column
{
    QString title = {};
    QString unit = {}; // "anos", "‰", "meses"; "" for a count or a text
    int decimals = 0;
    bool isText = false;

    bool operator==(const Column&) const = default;
};

struct Table
{
    QString id = {}; // unique within its subject; of a file's name
    QString title = {};
    std::vector<Column> columns = {};         // the first one names the rows
    std::vector<std::vector<Cell>> rows = {}; // each as long as columns
    QStringList notes = {};

    bool operator==(const Table&) const = default;
    bool isEmpty() const { return rows.empty(); }
};

enum class Drawing : quint8
{
    Lines,
    Bars,
    Steps,
    Points, // with the bars of their intervals
    Pyramid // bars of two series to either side
};

struct Point
{
    double x = 0;
    std::optional<double> y = {}; // none: the line is broken there
    std::optional<statistics::Interval> interval = {};

    bool operator==(const Point&) const = default;
};

struct Plot
{
    QString name = {}; // of the legend; "" where there is one series alone
    std::vector<Point> points = {};

    bool operator==(const Plot&) const = default;
};

struct Chart
{
    QString id = {};
    QString title = {};
    Drawing drawing = Drawing::Lines;
    QString xTitle = {}, yTitle = {}; // with units: "taxa (‰)"
    QStringList categories = {};      // where x counts them: 0 is the first one; empty where x is a number
    std::vector<Plot> plots = {};
    QString described = {}; // the same in words, for who doesn't see it

    bool operator==(const Chart&) const = default;
    bool isEmpty() const; // no point has a y
};

using Figure = std::variant<Table, Chart>;

// Cells by their kind; a value that is no number gives the empty one.
Cell text(const QString& value);
Cell number(int value, std::vector<statistics::Key> from = {});
Cell number(qint64 value, std::vector<statistics::Key> from = {});
Cell number(double value, std::vector<statistics::Key> from = {});

// By the rule of small numbers. A rate needs 5 events and 20 years of exposure (suppressed below); a mean is grey under
// 10 and suppressed under 5; a share needs a base of 20. Without a base, or with a part above its whole, the cell is
// empty. What is suppressed keeps its value and its keys, and no interval. By thousand, a base below 100 bears no
// decimals.
Cell rate(qint64 events, double years, double per,
          std::vector<statistics::Key> from);                                         // with the exact Poisson interval
Cell share(qint64 part, qint64 whole, double per, std::vector<statistics::Key> from); // with Wilson's interval
// Of a distribution whose values are `perUnit` to the unit of the column (100 for hundredths of a year), with their
// intervals.
Cell mean(const statistics::Distribution& of, double perUnit, std::vector<statistics::Key> from);
Cell median(const statistics::Distribution& of, double perUnit, std::vector<statistics::Key> from);

// Decimal comma, as the screen and the page show it; "–" for nothing, "*" for what is suppressed.
QString shown(const Cell& cell, const Column& column);
// Decimal point, for files; "" for nothing or suppressed.
QString plain(const Cell& cell, const Column& column);

} // namespace study::report
