// Rules of the acts of all years: each with a case that must fire and a near miss that must not.
#include "study/checkedActs.h"

#include <QDate>

class ASeries : public CheckedActs
{
protected:
    ASeries() { bdp.beginTrans(); }
    ~ASeries() override { bdp.commitTrans(); }

    void births(int year, int number)
    {
        for (int i = 0; i < number; ++i)
            person({"Rui", 'm', qPrintable(QDate(year, 2, 2 + i).toString(Qt::ISODate))});
    }
    // So many confinements in one family, a year apart, the first few of twins.
    void confinements(int number, int twins)
    {
        const qint64 family = couple(person({"Rui"}), person({"Eva", 'f'}));
        for (int i = 0; i < number; ++i) {
            const QByteArray day = QDate(1000 + i, 3, 5).toString(Qt::ISODate).toLatin1();
            person({"Gil", i % 2 ? 'm' : 'f', day, "", family});
            if (i < twins) person({"Ivo", i % 2 ? 'm' : 'f', day, "", family});
        }
    }
};

TEST_F(ASeries, LeavesNoYearOut)
{
    births(1700, 5);
    births(1701, 5);
    births(1704, 5);
    births(1706, 4);
    EXPECT_EQ(cases("S-01"), QStringList("aviso: Não há baptismos de 1702 a 1703: em 1701 há 5 e em 1704 há 5."));
    births(1703, 1);
    EXPECT_EQ(cases("S-01"), QStringList());
    births(1706, 1);
    EXPECT_EQ(cases("S-01"), QStringList("aviso: Não há baptismos em 1705: em 1704 há 5 e em 1706 há 5."));
    run("update individuo set DnascFixa = 0 where datanasc >= '1706-01-01'");
    EXPECT_EQ(cases("S-01"), QStringList());
}

TEST_F(ASeries, HasTwinsAsElsewhere)
{
    confinements(500, 0);
    EXPECT_EQ(cases("S-02"), QStringList());
    confinements(1, 0);
    EXPECT_EQ(cases("S-02"), QStringList("informação: Em 501 partos só 0 são de gémeos: 0,0 por mil."));
    confinements(3, 3);
    EXPECT_EQ(cases("S-02"), QStringList()); // 3 of 504
}

TEST_F(ASeries, HasBoysAndGirlsAsElsewhere)
{
    for (int i = 0; i < 1000; ++i)
        person({"Rui", i < 550 ? 'm' : 'f', "1700-02-14"});
    EXPECT_EQ(cases("S-02"), QStringList());
    person({"Rui", 'm', "1700-02-14"});
    EXPECT_EQ(cases("S-02"), QStringList("informação: Nasceram 551 rapazes e 450 raparigas: 122,4 por cem."));
    run("update individuo set sexo = 'f' where nind <= 17"); // 534 to 467
    EXPECT_EQ(cases("S-02"), QStringList());
}

TEST_F(ASeries, FallsOnAllDays)
{
    for (int i = 0; i < 281; ++i)
        person({"Rui", 'm', qPrintable(QDate(1700 + i, 3, 2).toString(Qt::ISODate))});
    for (int i = 0; i < 19; ++i)
        person({"Rui", 'm', qPrintable(QDate(1700 + i, 3, 15).toString(Qt::ISODate))});
    EXPECT_EQ(cases("S-03"), QStringList()); // 9.9 are expected
    person({"Rui", 'm', "1700-03-15"});
    EXPECT_EQ(cases("S-03"), QStringList("informação: Dos 301 baptismos com data exacta, 20 são de um dia 15: "
                                         "esperavam-se 9,9."));
    run("update individuo set DnascFixa = 0 where nind = 301");
    EXPECT_EQ(cases("S-03"), QStringList());
}
