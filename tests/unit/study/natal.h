// Couples with their children, counted and shown by a subject.
#pragma once

#include "study/people.h"

#include "study/indicators/subject.h"

#include <memory>

class Natal : public People
{
protected:
    using Settings = study::indicators::Settings;
    using Table = study::report::Table;

    // A married couple of the parish, with the wife's birth and the deaths of both as acts that are exact.
    struct Couple
    {
        const char* marriage = "";
        const char* wifeBirth = "";
        const char* wifeDeath = "";
        const char* husbandDeath = "";
    };
    qint64 married(const Couple& dates)
    {
        const qint64 husband = person({"Rui", 'm', "", dates.husbandDeath});
        const qint64 wife = person({"Ana", 'f', dates.wifeBirth, dates.wifeDeath});
        const qint64 family = couple(husband, wife, dates.marriage);
        run("update familia set dcasamfixa = 1, sfamilia = '1' where nfamilia = ?", {family});
        return family;
    }
    qint64 child(qint64 family, const char* birth, char sex = 'm', const char* death = "")
    {
        const qint64 number = person({"Zé", sex, birth, death, family});
        run("update individuo set filiacao = 1 where nind = ?", {number});
        return number;
    }
    void children(qint64 family, std::initializer_list<const char*> births)
    {
        for (const char* birth : births)
            child(family, birth);
    }

    // The figures stand as long as the test, until it is counted anew.
    void count(const study::indicators::Subject& subject, const Settings& settings = {})
    {
        parish_ = std::make_unique<study::parish::Snapshot>(study::parish::Snapshot::read(bdp));
        tally_ = tallyOf(subject, studyOf(*parish_, settings));
        figures_ = subject.figures(tally_, settings);
        subject_ = &subject;
    }
    const study::indicators::Tally& tally() const { return tally_; }
    const std::vector<study::report::Figure>& figures() const { return figures_; }
    const Table& table(const QString& id) const
    {
        static const Table none;
        for (const auto& figure : figures_)
            if (const auto* table = std::get_if<Table>(&figure); table && table->id == id) return *table;
        ADD_FAILURE() << "no table " << qPrintable(id);
        return none;
    }
    // The cell of a row whose first texts are these, joined by a bar, under a column.
    const study::report::Cell& cell(const QString& id, const QString& row, const QString& column) const
    {
        static const study::report::Cell none;
        const Table& of = table(id);
        for (const auto& cells : of.rows)
            for (std::size_t i = 0; i < of.columns.size(); ++i)
                if (of.columns[i].title == column && rowName(of, cells).startsWith(row + "|")) return cells[i];
        ADD_FAILURE() << "no cell " << qPrintable(row + " " + column);
        return none;
    }
    // −1 where the cell holds no number.
    double value(const QString& id, const QString& row, const QString& column) const
    {
        const double* number = std::get_if<double>(&cell(id, row, column).value);
        return number ? *number : -1;
    }
    qint64 leftOut(const QString& reason) const
    {
        for (const auto& one : subject_->reasons)
            if (QString::fromUtf8(one.told).contains(reason)) return tally_.sum(one.count);
        ADD_FAILURE() << "no reason " << qPrintable(reason);
        return -1;
    }

private:
    static QString rowName(const Table& table, const std::vector<study::report::Cell>& cells)
    {
        QString name;
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            if (const auto* text = std::get_if<QString>(&cells[i].value); text && table.columns[i].isText)
                name += *text + "|";
        return name;
    }

    std::unique_ptr<study::parish::Snapshot> parish_;
    study::indicators::Tally tally_;
    std::vector<study::report::Figure> figures_;
    const study::indicators::Subject* subject_ = nullptr;
};
