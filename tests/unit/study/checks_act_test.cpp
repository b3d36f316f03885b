// Rules of acts, their days and their priests: each with a case that must fire and a near miss that must not.
#include "study/checkedActs.h"

using AnActOfTheParish = CheckedActs;

TEST_F(AnActOfTheParish, HasTheDayOfItsAssistants)
{
    const qint64 ana = person({"Ana", 'f', "1730-02-14"});
    const qint64 rui = person({"Rui"});
    const qint64 eva = person({"Eva", 'f'});
    assists("b", ana, "1730-02-14", rui);
    EXPECT_EQ(cases("T-01"), QStringList());
    assists("b", ana, "1730-02-15", eva);
    marriesExactly(rui, eva, "1725-01-10");
    assists("c", lastFamily, "1725-01-11", ana, "t");
    assists("c", lastFamily, "1725-01-11", rui, "t");
    EXPECT_EQ(cases("T-01"),
              QStringList({"aviso: Os assistentes ao casamento da família nº 1 de Rui e Eva têm a data "
                           "11/01/1725, mas a ficha tem 10/01/1725.",
                           "aviso: Os assistentes ao baptismo de Ana (nº 1) têm a data 15/02/1730, mas a "
                           "ficha tem 14/02/1730."}));
    run("update assistente set dataref = null");
    EXPECT_EQ(cases("T-01"), QStringList());
}

TEST_F(AnActOfTheParish, HasADay)
{
    const qint64 ana = person({"Ana", 'f', "1730-02-14"});
    const qint64 ivo = person({"Ivo"});
    assists("b", ana, "1730-02-14", person({"Rui"}));
    EXPECT_EQ(cases("T-11"), QStringList());
    assists("b", ana, "", person({"Eva", 'f'}));
    assists("b", ivo, "1730-02-14", ana);
    EXPECT_EQ(cases("T-11"),
              QStringList({"informação: O baptismo de Ana (nº 1) tem 2 assistentes, de que 1 sem data.",
                           "informação: O baptismo de Ivo (nº 2) não tem data na ficha, mas tem 1 assistente."}));
}

TEST_F(AnActOfTheParish, HasAGodfatherAndAGodmother)
{
    const qint64 ana = person({"Ana", 'f', "1730-02-14"});
    const qint64 rui = person({"Rui"});
    assists("b", ana, "1730-02-14", rui);
    assists("b", ana, "1730-02-14", rui); // twice the same one: T-12
    const qint64 eva = person({"Eva", 'f'});
    assists("b", ana, "1730-02-14", eva);
    assists("b", ana, "1730-02-14", person({"Gil"}), "t"); // a witness
    EXPECT_EQ(cases("T-05"), QStringList());
    run("update individuo set sexo = 'm' where nind = ?", {eva});
    EXPECT_EQ(cases("T-05"), QStringList("aviso: O baptismo de Ana (nº 1) em 14/02/1730 tem dois padrinhos e nenhuma "
                                         "madrinha: Rui (nº 2) e Eva (nº 3)."));
    run("update individuo set sexo = 'f' where nind = ?", {rui});
    run("update individuo set sexo = 'f' where nind = ?", {eva});
    EXPECT_EQ(cases("T-05"), QStringList("aviso: O baptismo de Ana (nº 1) em 14/02/1730 tem duas madrinhas e nenhum "
                                         "padrinho: Rui (nº 2) e Eva (nº 3)."));
    run("update individuo set sexo = 'd' where nind = ?", {eva});
    EXPECT_EQ(cases("T-05"), QStringList());
    assists("b", ana, "1730-02-14", person({"Ivo"}));
    EXPECT_EQ(cases("T-05"), QStringList("aviso: O baptismo de Ana (nº 1) em 14/02/1730 tem 3 padrinhos: Rui (nº 2), "
                                         "Eva (nº 3) e Ivo (nº 5)."));
    EXPECT_EQ(cases("T-05", {.limits = {{"T-05.padrinhos", 3}}}), QStringList());
}

TEST_F(AnActOfTheParish, HasAPriestOfAnOrdinaryLife)
{
    const qint64 priest = person({"Padre Bento"});
    person({"Ana", 'f', "1730-02-14"});
    person({"Rui", 'm', "", "1790-02-14"});
    run("update individuo set primpadrebapt = ? where nind = 2", {priest});
    run("update individuo set primpadreobito = ? where nind = 3", {priest});
    EXPECT_EQ(cases("T-10"), QStringList()); // 60 years to the day
    marriesExactly(person({"Ivo"}), person({"Eva", 'f'}), "1790-02-15");
    run("update familia set segpadrecasam = ?", {priest});
    EXPECT_EQ(cases("T-10"), QStringList("aviso: Padre Bento (nº 1) consta como padre em 3 actos, de 14/02/1730 a "
                                         "15/02/1790: mais de 60 anos."));
    run("update familia set dcasamfixa = 0");
    EXPECT_EQ(cases("T-10"), QStringList());
    run("update individuo set sexo = 'f' where nind = ?", {priest});
    EXPECT_EQ(cases("T-10"),
              QStringList("aviso: Padre Bento (nº 1), mulher, consta como padre em 3 actos, de 14/02/1730 "
                          "a cerca de 15/02/1790."));
}

TEST_F(AnActOfTheParish, NamesNobodyTwice)
{
    const qint64 ana = person({"Ana", 'f', "1730-02-14"});
    const qint64 rui = person({"Rui"});
    assists("b", ana, "1730-02-14", rui);
    assists("b", ana, "1730-02-14", rui, "t"); // as something else
    assists("b", ana, "", rui);                // of another day
    EXPECT_EQ(cases("T-12"), QStringList());
    assists("b", ana, "1730-02-14", rui);
    assists("b", ana, "1730-02-14", rui);
    EXPECT_EQ(cases("T-12"),
              QStringList("aviso: Rui (nº 2) consta 3 vezes com os mesmos dados no baptismo de Ana (nº 1)."));
}

TEST_F(AnActOfTheParish, HasADayWhereItHasAPriest)
{
    const qint64 priest = person({"Bento", 'm', "1700-01-01", "1760-01-01"});
    const qint64 ana = person({"Ana", 'f', "1730-02-14", "1780-02-14"});
    couple(person({"Rui", 'm', "1700-01-01"}), ana, "1750-02-14");
    run("update individuo set primpadrebapt = ?, segpadrebapt = 99, primpadreobito = ? where nind = ?",
        {priest, priest, ana});
    run("update familia set primpadrecasam = ?, segpadrecasam = 0", {priest});
    for (const char* rule : {"T-13", "T-14", "T-15"})
        EXPECT_EQ(cases(rule), QStringList()) << rule;
    run("update individuo set datanasc = null, dataobito = null where nind = ?", {ana});
    run("update familia set datacasam = null");
    EXPECT_EQ(cases("T-13"), QStringList("aviso: A família nº 1 de Rui e Ana não tem data de casamento, mas o padre do "
                                         "casamento é Bento (nº 1)."));
    EXPECT_EQ(cases("T-14"), QStringList("aviso: Ana (nº 2) não tem data de nascimento, mas o padre desse acto é Bento "
                                         "(nº 1) e nº 99."));
    EXPECT_EQ(cases("T-15"),
              QStringList("aviso: Ana (nº 2) não tem data de óbito, mas o padre desse acto é Bento (nº 1)."));
}
