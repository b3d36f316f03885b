// What the window shows of a simulated parish.
#pragma once

#include "study/simulated_parish.h"

#include "study/indicators/subject.h"

#include <gtest/gtest.h>

#include <map>

namespace simulated {

// The figures of the subjects that are asked for, each counted once.
class Figures
{
public:
    using Cell = study::report::Cell;
    using Subject = study::indicators::Subject;
    using Settings = study::indicators::Settings;

    explicit Figures(const study::parish::Snapshot& parish, const Settings& settings = {})
        : study_(study::indicators::studyOf(parish, settings))
    {
    }

    // The row is named by its texts, joined by a bar.
    const Cell& cell(const Subject& subject, const char* table, const QString& row, const QString& column)
    {
        static const Cell none;
        for (const auto& figure : figuresOf(subject)) {
            const auto* one = std::get_if<study::report::Table>(&figure);
            if (!one || one->id != QString(table)) continue;
            for (std::size_t i = 0; i < one->columns.size(); ++i)
                if (one->columns[i].title == column)
                    for (const auto& cells : one->rows)
                        if (isNamed(*one, cells, row)) return cells[i];
        }
        ADD_FAILURE() << "no cell " << table << ": " << qPrintable(row + ", " + column);
        return none;
    }
    // −1 where the cell has no number.
    double value(const Subject& subject, const char* table, const QString& row, const QString& column)
    {
        const double* number = std::get_if<double>(&cell(subject, table, row, column).value);
        EXPECT_TRUE(number) << table << ": " << qPrintable(row + ", " + column);
        return number ? *number : -1;
    }

private:
    const std::vector<study::report::Figure>& figuresOf(const Subject& subject)
    {
        auto& figures = figures_[&subject];
        if (figures.empty()) figures = subject.figures(tallyOf(subject, study_), study_.settings);
        return figures;
    }
    static bool isNamed(const study::report::Table& table, const std::vector<Cell>& cells, const QString& row)
    {
        QStringList names;
        for (std::size_t i = 0; i < cells.size(); ++i)
            if (const auto* text = std::get_if<QString>(&cells[i].value); text && table.columns[i].isText)
                names << *text;
        return (names.join('|') + '|').startsWith(row + '|');
    }

    study::indicators::Study study_;
    std::map<const Subject*, std::vector<study::report::Figure>> figures_ = {};
};

} // namespace simulated
