// A BDP of a test, counted for a subject.
#pragma once

#include "study/people.h"

#include "study/indicators/reading.h"

#include <QMap>

class Counting : public People
{
protected:
    using Tally = study::statistics::Tally;
    using Settings = study::indicators::Settings;
    using Subject = study::indicators::Subject;
    using Table = study::report::Table;
    using Figures = std::vector<study::report::Figure>;

    Tally tallyFor(const Subject& subject, const Settings& settings = {}) const
    {
        const auto parish = study::parish::Snapshot::read(bdp);
        return study::indicators::tallyOf(subject, study::indicators::studyOf(parish, settings));
    }
    Figures figuresFor(const Subject& subject, const Settings& settings = {}) const
    {
        return subject.figures(tallyFor(subject, settings), settings);
    }

public:
    static Table tableOf(const Figures& figures, const char* id)
    {
        for (const auto& figure : figures)
            if (const auto* table = std::get_if<Table>(&figure); table && table->id == QString(id)) return *table;
        ADD_FAILURE() << "no table " << id;
        return {};
    }
    static const study::report::Cell& cell(const Table& table, const QString& row, const QString& column)
    {
        static const study::report::Cell none;
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            if (table.columns[i].title == column)
                for (const auto& cells : table.rows)
                    if (cells[0].value == decltype(none.value)(row)) return cells[i];
        ADD_FAILURE() << qPrintable(table.id + ": no cell " + row + ", " + column);
        return none;
    }
    // −1 where the cell has no number.
    static double value(const Table& table, const QString& row, const QString& column)
    {
        const double* number = std::get_if<double>(&cell(table, row, column).value);
        return number ? *number : -1;
    }
    // What is left out: only reasons that have left out something.
    static QMap<QString, int> leftOut(const Figures& figures)
    {
        QMap<QString, int> reasons;
        for (const auto& row : tableOf(figures, "nao-contados").rows)
            if (const double n = std::get<double>(row[1].value); n != 0)
                reasons[std::get<QString>(row[0].value)] = static_cast<int>(n);
        return reasons;
    }
};
