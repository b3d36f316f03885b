// What the parts of the page share.
#pragma once

#include "study/report/markup.h"
#include "study/report/report.h"

#include <QString>

#include <initializer_list>
#include <utility>

namespace study::report {

using Attribute = std::pair<const char*, QString>;
// <name …>inner</name>; the values of the attributes are escaped, what is inside has to be.
QString tag(const char* name, std::initializer_list<Attribute> attributes, const QString& inner);
QString tag(const char* name, const QString& inner);

// The caption begins with `label`: "Quadro 2.1". `anchor` is the id of the element.
QString tableMarkup(const Table& table, const QString& label, const QString& anchor);
QString chartMarkup(const Chart& chart, const QString& label, const QString& anchor);

// The style of the page.
QString pageStyle();

} // namespace study::report
