// Charts as drawings: in a window, on paper, as a picture.
//
// Series are told apart by dashes, markers and hatching beside their colours, so that a copy in black and white tells
// the same. Numbers have a decimal comma. A point without a finite y is left out, and breaks its line.
#pragma once

#include "study/report/figure.h"

#include <QByteArray>
#include <QChart>
#include <QImage>
#include <QPalette>
#include <QSize>

#include <memory>

namespace study::report {

// Black on white.
QPalette paper();

struct Look
{
    QPalette palette = paper(); // texts and axes in its Text on its Base; lighter colours of series on a dark one
    bool titled = true;         // false where the title stands beside the drawing
};

// An item for a scene or a QChartView, which takes it over. Of an empty chart: the words "sem dados".
// Precondition of all three: the thread of the application's windows.
std::unique_ptr<QChart> drawn(const Chart& chart, const Look& look = {});

// An image of its own for a reader of screens: role="img", the title, and the words of Chart::described. UTF-8, without
// an XML declaration, so that it can stand in a page: its ids begin with Chart::id, and it refers to nothing outside.
// Precondition: the size isn't empty.
QByteArray svgOf(const Chart& chart, QSize size, const Look& look = {});
// In pixels; `scale` of them for each unit of the drawing's size.
QImage imageOf(const Chart& chart, QSize size, const Look& look = {}, qreal scale = 1);

} // namespace study::report
