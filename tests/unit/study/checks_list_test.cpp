// Rules of dated lists: each with a case that must fire and a near miss that must not.
#include "study/checkedActs.h"

class ADatedList : public CheckedActs
{
protected:
    ADatedList() { rui = person({"Rui", 'm', "1700-02-14", "1760-02-14"}); }
    void resides(qint64 number, const char* day, const char* place = "03030101", const char* kind = "i")
    {
        run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal) values (?, ?, ?, 1, "
            "?, 'L')",
            {number, kind, day, place});
    }
    void works(qint64 who, const char* day, int profession = 4)
    {
        run("insert into profissoes (nind, idprofissao, dataref, datafixa, codprof) values (?, ?, ?, 1, ?)",
            {who, ++lastRow, *day ? QVariant(QString(day)) : QVariant(), profession});
    }
    void signs(qint64 who, const char* day, int level)
    {
        run("insert into assinatura (nind, idassinatura, dataref, datafixa, nivelassinatura) values (?, ?, ?, 1, ?)",
            {who, ++lastRow, day, level});
    }
    void travels(qint64 who, const char* day)
    {
        run("insert into passaporte (nind, nPass, dataref) values (?, ?, ?)", {who, ++lastRow, day});
    }
    void profession(int code, const char* name)
    {
        run("insert into profissao (codprof, profissao) values (?, ?)", {code, QString::fromUtf8(name)});
    }
    void approximate() { run("update individuo set DnascFixa = 0, dobitofixa = 0"); }

    qint64 rui = 0;
    int lastRow = 0;
};

TEST_F(ADatedList, LiesWithinTheLife)
{
    profession(4, "Ferreiro");
    resides(rui, "1700-02-14");
    works(rui, "1707-02-14");
    works(rui, "");
    signs(rui, "1760-02-14", 2);
    travels(rui, "1700-02-14");
    EXPECT_EQ(cases("L-01"), QStringList());
    resides(rui, "1700-02-13");
    works(rui, "1707-02-13");
    signs(rui, "1760-02-15", 2);
    travels(rui, "1699-02-14");
    EXPECT_EQ(cases("L-01"),
              QStringList("impossível: Rui (nº 1) nasceu em 14/02/1700 e morreu em 14/02/1760; não cabem na sua vida a "
                          "residência em 03030101 em 13/02/1700; a profissão «Ferreiro» em 13/02/1707; a assinatura em "
                          "15/02/1760; o passaporte em 14/02/1699."));
    run("delete from passaporte");
    approximate();
    EXPECT_EQ(cases("L-01").first().section(':', 0, 0), "aviso");
    EXPECT_EQ(cases("L-01", {.tolerance = 0}).first().section(':', 0, 0), "impossível");
}

TEST_F(ADatedList, ResidesWhereObserved)
{
    run("insert into lugar (codlugar, nomelugar) values ('03030101', 'Paço')");
    run("update individuo set inicioobs = '1720-01-01', fimobs = '1750-01-01'");
    const qint64 family = couple(rui, person({"Eva", 'f'}));
    run("update familia set fimobs = '1740-01-01'");
    resides(rui, "1720-01-01");
    resides(rui, "1750-01-01");
    resides(rui, "1699-01-01"); // L-01
    resides(family, "1740-01-01", "03030101", "f");
    EXPECT_EQ(cases("L-02"), QStringList());
    resides(rui, "1719-12-31");
    resides(rui, "1750-01-02");
    resides(family, "1740-01-02", "03030101", "f");
    EXPECT_EQ(
        cases("L-02"),
        QStringList({"aviso: A família nº 1 de Rui e Eva está em observação até 01/01/1740, e fora dela reside em "
                     "Paço em 02/01/1740.",
                     "aviso: Rui (nº 1) está em observação desde 01/01/1720 até 01/01/1750, e fora dela reside em "
                     "Paço em 31/12/1719; Paço em 02/01/1750."}));
    run("update residencia set datafixa = 0");
    EXPECT_EQ(cases("L-02"), QStringList());
}

TEST_F(ADatedList, ResidesAtOnePlaceAtATime)
{
    resides(rui, "1720-01-01", "03030101");
    resides(rui, "1720-01-31", "03030102");
    resides(rui, "1720-02-05", "0303010201"); // a site of the same locality
    EXPECT_EQ(cases("L-03"), QStringList());
    resides(rui, "1720-03-05", "03030103");
    EXPECT_EQ(cases("L-03"), QStringList("informação: Rui (nº 1) reside em 0303010201 em 05/02/1720 e em 03030103 em "
                                         "05/03/1720, 29 dias depois."));
    run("update residencia set datafixa = 0");
    EXPECT_EQ(cases("L-03"), QStringList());
}

TEST_F(ADatedList, SignsAsBefore)
{
    signs(rui, "1720-01-01", 1);
    signs(rui, "1725-01-01", 3);
    signs(rui, "1730-01-01", 2);
    EXPECT_EQ(cases("L-04"), QStringList());
    signs(rui, "1740-01-01", 1);
    EXPECT_EQ(cases("L-04"),
              QStringList("informação: Rui (nº 1) assinou em 01/01/1725 (nível 3), mas em 01/01/1740 não (nível 1)."));
    EXPECT_EQ(cases("L-04", {.limits = {{"L-04.assina", 1}}}), QStringList());
    run("update assinatura set datafixa = 0, dataref = '1725-06-01' where nivelassinatura = 1");
    EXPECT_EQ(cases("L-04"), QStringList());
}

TEST_F(ADatedList, HasAProfessionOfThatSex)
{
    profession(4, "Parteira");
    for (int i = 0; i < 19; ++i)
        works(person({"Eva", 'f'}), "");
    EXPECT_EQ(cases("L-05"), QStringList());
    works(rui, "");
    works(rui, ""); // each person once
    EXPECT_EQ(cases("L-05"),
              QStringList("informação: Rui (nº 1) tem uma profissão estranha: «Parteira» é quase sempre de mulheres."));
    run("update individuo set sexo = 'd' where nind = 2"); // 18 of 19 are less than 95 %
    EXPECT_EQ(cases("L-05"), QStringList());
}

TEST_F(ADatedList, HasAProfessionOfThatAge)
{
    profession(4, "Vendedor");
    works(rui, "1710-02-14");
    works(rui, "1706-02-14"); // L-01
    EXPECT_EQ(cases("L-05"), QStringList());
    works(rui, "1710-02-13");
    EXPECT_EQ(cases("L-05"),
              QStringList("informação: Rui (nº 1) tem uma profissão estranha: aos 9 anos já é «Vendedor»."));
    approximate();
    EXPECT_EQ(cases("L-05"), QStringList());
}

TEST_F(ADatedList, TravelsAliveAndGrown)
{
    travels(rui, "1760-02-14");
    travels(rui, "1714-02-14");
    EXPECT_EQ(cases("L-06"), QStringList());
    travels(rui, "1760-02-15");
    travels(rui, "1714-02-13");
    EXPECT_EQ(cases("L-06"), QStringList({"aviso: Rui (nº 1) tem passaporte de 13/02/1714, com 13 anos e sem nota de "
                                          "quem o leva.",
                                          "aviso: Rui (nº 1) tem passaporte de 15/02/1760, depois de morrer em "
                                          "14/02/1760."}));
    run("update passaporte set obs = 'com o pai'");
    EXPECT_EQ(cases("L-06").size(), 1);
    approximate();
    EXPECT_EQ(cases("L-06"), QStringList());
}
