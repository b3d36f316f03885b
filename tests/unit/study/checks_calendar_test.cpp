// The ten days that were left out in October 1582, as the rules count them.
#include "study/checkedActs.h"
#include "study/days.h"

#include "study/parish/calendar.h"

using study::parish::daysBetween;

TEST(TheDaysBetween, AreTenLessThroughOctober1582)
{
    EXPECT_EQ(daysBetween(day(1582, 10, 4), day(1582, 10, 15)), 1);
    EXPECT_EQ(daysBetween(day(1582, 10, 15), day(1582, 10, 4)), -1);
    EXPECT_EQ(daysBetween(day(1582, 1, 1), day(1583, 1, 1)), 355);
    EXPECT_EQ(daysBetween(day(1582, 10, 15), day(1583, 10, 15)), 365);
    EXPECT_EQ(daysBetween(day(1581, 10, 4), day(1582, 10, 4)), 365);
    EXPECT_EQ(daysBetween(day(1582, 10, 7), day(1582, 10, 9)), 2) << "days that no register has";
    EXPECT_EQ(daysBetween(day(1582, 10, 4), day(1582, 10, 9)), 5);
    EXPECT_FALSE(study::parish::wasLeftOut(QDate(1582, 10, 4)));
    EXPECT_TRUE(study::parish::wasLeftOut(QDate(1582, 10, 5)));
    EXPECT_TRUE(study::parish::wasLeftOut(QDate(1582, 10, 14)));
    EXPECT_FALSE(study::parish::wasLeftOut(QDate(1582, 10, 15)));
}

class TheYear1582 : public CheckedActs
{
};

TEST_F(TheYear1582, HasPosthumousChildrenOfTenDaysMore)
{
    const qint64 rui = person({"Rui", 'm', "", "1582-01-01"}), ana = person({"Ana", 'f'});
    const qint64 family = couple(rui, ana);
    const qint64 gil = person({"Gil", 'm', "1582-11-07", "", family}); // 310 days by the columns
    EXPECT_EQ(cases("C-03"), QStringList());
    run("update individuo set datanasc = '1582-11-08' where nind = ?", {gil});
    EXPECT_EQ(cases("C-03"),
              QStringList("impossível: Gil (nº 3) nasceu em 08/11/1582, 301 dias depois da morte do pai, "
                          "Rui (nº 1), em 01/01/1582."));
}

TEST_F(TheYear1582, HasBirthsNearerToEachOther)
{
    const qint64 family = couple(person({"Rui"}), person({"Ana", 'f'}));
    person({"Gil", 'm', "1582-03-01", "", family});
    const qint64 ivo = person({"Ivo", 'm', "1582-12-06", "", family}); // 280 days by the columns
    EXPECT_EQ(cases("C-08").size(), 1);
    run("update individuo set datanasc = '1582-12-07' where nind = ?", {ivo});
    EXPECT_EQ(cases("C-08"), QStringList());
}

TEST_F(TheYear1582, HasNoDayBetweenThe4thAndThe15thOfOctober)
{
    person({"Rui", 'm', "1582-10-04", "1582-10-15"});
    EXPECT_EQ(cases("P-32"), QStringList());
    const qint64 gil = person({"Gil", 'm', "1582-10-05", "1582-10-14"});
    EXPECT_EQ(cases("P-32"),
              QStringList("aviso: Gil (nº 2) tem datas de um dia que não houve (de 5 a 14/10/1582): nascimento em "
                          "05/10/1582 e óbito em 14/10/1582."));
    run("update individuo set DnascFixa = 0, dobitofixa = 0 where nind = ?", {gil});
    EXPECT_EQ(cases("P-32"), QStringList());
}

TEST_F(TheYear1582, EndsTheCalendarThatIsToldOnce)
{
    person({"Rui", 'm', "1582-10-15"});
    EXPECT_EQ(cases("S-04"), QStringList());
    person({"Gil", 'm', "1582-10-04", "1640-01-02"});
    wedding(1, 0, "1560-02-03");
    EXPECT_EQ(cases("S-04"),
              QStringList("informação: Há 2 actos com data exacta antes de 15/10/1582, desde 03/02/1560: "
                          "os dias são do calendário juliano, e o que passa por Outubro de 1582 conta-se "
                          "com menos dez dias."));
}
