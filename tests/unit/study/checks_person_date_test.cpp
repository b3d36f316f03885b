// Rules of dates that no book can have: each with a case that must fire and a near miss that must not.
#include "study/checked.h"

#include <QDate>

using TheDatesOfAParish = Checked;

TEST_F(TheDatesOfAParish, AreNotToCome)
{
    person({"Rui", 'm', "2902-02-14", "2903-01-02"});
    person({"Gil", 'm', "1902-02-14"});
    run("insert into profissoes (nind, idprofissao, dataref, datafixa) values (2, 1, '2950-01-01', 0)");
    wedding(1, 2, "2902-03-01");
    EXPECT_EQ(cases("P-13"), QStringList({"impossível: A família nº 1 de Rui tem uma data depois do dia de hoje: "
                                          "casamento em 01/03/2902.",
                                          "impossível: Rui (nº 1) tem datas depois do dia de hoje: nascimento em "
                                          "14/02/2902 e óbito em 02/01/2903.",
                                          "impossível: Gil (nº 2) tem uma data depois do dia de hoje: profissão em "
                                          "cerca de 2950."}));
}

TEST_F(TheDatesOfAParish, MayBeOfToday)
{
    person({"Rui"});
    run("update individuo set datanasc = ?, DnascFixa = 1", {QDate::currentDate().addDays(-1)});
    EXPECT_EQ(cases("P-13"), QStringList());
}

TEST_F(TheDatesOfAParish, EndWithTheBooks)
{
    person({"Rui", 'm', "1851-01-01"});
    person({"Gil", 'm', "1850-12-31"});
    EXPECT_EQ(cases("P-13", {.limits = {{"P-13.fim", 1850}}}),
              QStringList("impossível: Rui (nº 1) tem uma data depois do fim dos livros (1850): nascimento em "
                          "01/01/1851."));
}

TEST_F(TheDatesOfAParish, AreNotLongBeforeTheBooks)
{
    person({"Rui", 'm', "1599-12-31"});
    person({"Gil", 'm', "1600-05-01"});
    for (const char* day : {"1700-05-01", "1701-05-01", "1702-05-01", "1703-05-01", "1704-05-01"})
        person({"Ana", 'f', day});
    EXPECT_EQ(cases("P-14"), QStringList("aviso: Rui (nº 1) tem uma data mais de 100 anos antes dos primeiros livros "
                                         "(1700): nascimento em 31/12/1599."));
    EXPECT_EQ(cases("P-14", {.limits = {{"P-14.inicio", 1690}}}), QStringList());
    run("delete from individuo where nind = 7"); // four acts are no book
    EXPECT_EQ(cases("P-14"), QStringList());
}

TEST_F(TheDatesOfAParish, AreNoMoreOnNewYearThanOnOtherDays)
{
    for (int i = 0; i < 10; ++i)
        person({"Rui", 'm', "1702-01-01"});
    EXPECT_EQ(cases("P-15"), QStringList("informação: Há 10 nascimentos com data exacta em 1 de Janeiro, e num dia "
                                         "qualquer do ano há em média 0,0: alguns serão anos sem dia."));
    run("update individuo set DnascFixa = 0 where nind = 1");
    EXPECT_EQ(cases("P-15"), QStringList());
    EXPECT_EQ(cases("P-15", {.limits = {{"P-15.nascimentos", 9}}}).size(), 1);
    EXPECT_EQ(cases("P-15", {.limits = {{"P-15.nascimentos", 9}, {"P-15.vezes", 366}}}), QStringList());
}
