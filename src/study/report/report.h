// A report as a plain value: what the page and the files are made of.
#pragma once

#include "study/parish/source.h"
#include "study/report/figure.h"

#include <QDateTime>
#include <QString>

#include <vector>

namespace study::report {

// One setting, told in words: "Período" and "1700–1850".
struct Told
{
    QString name = {}, value = {};

    bool operator==(const Told&) const = default;
};

// A subject: its figures in their order, what was left out last.
struct Section
{
    QString id = {}; // unique in the report; of files' names
    QString title = {};
    QString method = {};
    std::vector<Figure> figures = {};

    bool operator==(const Section&) const = default;
};

struct Chapter
{
    QString title = {};
    std::vector<Section> sections = {};

    bool operator==(const Chapter&) const = default;
};

struct Report
{
    QString title = {};
    QString parish = {};
    QString parishCode = {}; // of its place; "" where the BDP doesn't tell
    QString program = {};    // with its version: "ORV 1.0.6"
    QDateTime made = {};
    std::vector<parish::Source> sources = {}; // the states of the BDPs that the figures are of
    std::vector<Told> settings = {};
    std::vector<Chapter> chapters = {};

    bool operator==(const Report&) const = default;
};

} // namespace study::report
