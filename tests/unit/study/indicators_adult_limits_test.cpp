// Adults within the limits of the books, and within those that a researcher typed.
#include "study/taking.h"

#include "study/indicators/adultLife.h"
#include "study/indicators/mortality.h"

#include <gtest/gtest.h>

using namespace study::indicators;
using taking::keyOf;

namespace {

class AdultsWithinLimits : public Counting
{
protected:
    // He marries in 1745, and dies in 1760.
    AdultsWithinLimits()
    {
        man_ = person({"João", 'm', "1720-01-01", "1760-01-01"});
        family_ = couple(man_, person({"Ana", 'f', "1722-01-01", "1780-01-01"}), "1745-01-01");
    }

    AdultLife life(const Settings& settings = {}) const
    {
        const auto parish = study::parish::Snapshot::read(bdp);
        AdultLife life = adultLifeOf(*parish.person(study::parish::PersonNumber(man_)), studyOf(parish, settings));
        life.family = nullptr; // of a parish that is gone
        return life;
    }
    void typed(const char* column, const char* day)
    {
        run(qPrintable(QString("update individuo set %1 = ? where nind = ?").arg(column)), {QString(day), man_});
    }
    static QDate endOf(const AdultLife& life, Estimate estimate)
    {
        return life.ends[static_cast<std::size_t>(estimate)].day.date();
    }
    static bool dies(const AdultLife& life, Estimate estimate)
    {
        return life.ends[static_cast<std::size_t>(estimate)].dies;
    }

    qint64 man_ = 0, family_ = 0;
};

} // namespace

TEST_F(AdultsWithinLimits, LeaveOnTheDayThatAResearcherTyped)
{
    typed("fimobs", "1755-07-01");
    const AdultLife seen = life();
    for (const Estimate estimate : estimates) {
        EXPECT_EQ(endOf(seen, estimate), QDate(1755, 7, 1));
        EXPECT_FALSE(dies(seen, estimate));
    }
    typed("fimobs", "1740-01-01");
    EXPECT_EQ(endOf(life(), Estimate::Censored), QDate(1745, 1, 1)) << "nothing is lived before the marriage";
}

TEST_F(AdultsWithinLimits, AreNotLimitedByWhatTheCardWrote)
{
    typed("inicioobs", "1720-01-01");
    typed("fimobs", "1760-01-01");
    const AdultLife seen = life();
    EXPECT_EQ(seen.from.date(), QDate(1745, 1, 1));
    EXPECT_EQ(endOf(seen, Estimate::Closed), QDate(1760, 1, 1));
    EXPECT_TRUE(dies(seen, Estimate::Closed));
}

TEST_F(AdultsWithinLimits, BeginWhereAResearcherTypedALaterDay)
{
    typed("inicioobs", "1755-01-01");
    EXPECT_EQ(life().from.date(), QDate(1755, 1, 1));
    const Tally tally = tallyFor(adultMortality);
    constexpr qint32 any = Tally::any;
    const auto exposure = keyOf(adultMortality, "meios-dias");
    const auto closed = static_cast<qint32>(Estimate::Closed), man = 1;
    EXPECT_EQ(tally.sum(exposure.count, {any, man, closed, any}), 2 * QDate(1755, 1, 1).daysTo(QDate(1760, 1, 1)));
    EXPECT_EQ(tally.sum(keyOf(adultMortality, "entradas").count, {any, man, 35 * 365 - 1, any}), 1);
}

TEST_F(AdultsWithinLimits, LeaveWithTheBooksOfBurials)
{
    Settings settings;
    settings.books[static_cast<std::size_t>(Series::Burials)] = {0, 1750};
    const AdultLife ended = life(settings);
    for (const Estimate estimate : estimates) {
        EXPECT_EQ(endOf(ended, estimate), QDate(1751, 1, 1));
        EXPECT_FALSE(dies(ended, estimate));
    }
    settings.books = {};
    settings.gaps[static_cast<std::size_t>(Series::Burials)] = {{1758, 1759}};
    EXPECT_EQ(endOf(life(settings), Estimate::Censored), QDate(1758, 1, 1));
}

TEST_F(AdultsWithinLimits, AreToldDeadByTheStateOfTheOtherAtABirth)
{
    run("update individuo set dataobito = null where nind = ?", {man_});
    const qint64 child = person({"Rui", 'm', "1750-06-01", "", family_});
    run("update individuo set filiacao = 15, estadocivilmae = 3 where nind = ?", {child});
    const AdultLife told = life();
    EXPECT_EQ(endOf(told, Estimate::Least), QDate(1750, 6, 1));
    EXPECT_TRUE(dies(told, Estimate::Least));
    run("update individuo set estadocivilmae = 2, estadocivilpai = 3 where nind = ?", {child});
    EXPECT_FALSE(dies(life(), Estimate::Least));
}

// He is married from 24 on.
TEST_F(AdultsWithinLimits, AreNotAtRiskFromAnExactAgeBeforeADayThatWasTyped)
{
    constexpr qint32 any = Tally::any;
    const auto closed = static_cast<qint32>(Estimate::Closed);
    const auto from = [&](const char* name, int start) {
        const auto place = closed + start * static_cast<qint32>(estimates.size());
        return tallyFor(adultMortality).sum(keyOf(adultMortality, name).count, {any, 1, place, any});
    };
    run("update familia set datacasam = '1744-06-01'");
    EXPECT_EQ(from("pessoas-desde", 1), 1);
    EXPECT_EQ(from("pessoas-desde", 2), 1);
    typed("inicioobs", "1748-01-01");
    EXPECT_EQ(from("pessoas-desde", 1), 0) << "seen at 28, not at 25";
    EXPECT_EQ(from("pessoas-desde", 2), 1);
    typed("inicioobs", "1752-01-01");
    for (const char* name : {"pessoas-desde", "meios-dias-desde", "obitos-desde"})
        EXPECT_EQ(from(name, 2), 0) << name;
}

// The child is born in 1750; the father dies ten years later.
TEST_F(AdultsWithinLimits, OrphanNobodyBehindALimitThatWasTyped)
{
    person({"Rui", 'm', "1750-01-01", "", family_});
    const auto sumOf = [](const Tally& tally, const char* name, qint32 days) {
        return tally.sum(keyOf(orphanhood, name).count, {Tally::any, 0, days, Tally::any});
    };
    EXPECT_EQ(sumOf(tallyFor(orphanhood), "obitos-dos-pais", 10 * 365), 1);
    typed("fimobs", "1755-01-01");
    const Tally limited = tallyFor(orphanhood);
    EXPECT_EQ(sumOf(limited, "obitos-dos-pais", Tally::any), 0);
    EXPECT_EQ(sumOf(limited, "saidas-dos-pais", 5 * 365), 1);
}

TEST_F(AdultsWithinLimits, AreNoParentsAtRiskBeforeADayThatWasTyped)
{
    person({"Rui", 'm', "1750-01-01", "", family_});
    const auto sumOf = [](const Tally& tally, const char* name, qint32 which) {
        return tally.sum(keyOf(orphanhood, name).count, {Tally::any, which, Tally::any, Tally::any});
    };
    typed("inicioobs", "1749-01-01");
    EXPECT_EQ(sumOf(tallyFor(orphanhood), "obitos-dos-pais", 0), 1);
    EXPECT_EQ(sumOf(tallyFor(orphanhood), "vistos", 0), 1) << "at the age of 1";
    typed("inicioobs", "1752-01-01");
    const Tally limited = tallyFor(orphanhood);
    EXPECT_EQ(sumOf(limited, "obitos-dos-pais", 0), 0);
    EXPECT_EQ(limited.sum(keyOf(orphanhood, "pais-nao-vistos").count), 1);
    EXPECT_EQ(sumOf(limited, "vistos", 0), 0);
    EXPECT_EQ(sumOf(limited, "vistos", 1), 1) << "at the age of 5";
}
