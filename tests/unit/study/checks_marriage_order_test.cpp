// Rules of marriages one after the other: each with a case that must fire and a near miss that must not.
#include "study/checked.h"

class MarriagesOfOnePerson : public Checked
{
protected:
    MarriagesOfOnePerson()
    {
        person({"Rui"});
        person({"Ana", 'f'});
        person({"Eva", 'f'});
    }

    void diesOn(qint64 nind, const char* day)
    {
        run("update individuo set dataobito = ?, dobitofixa = 1 where nind = ?", {QString(day), nind});
    }
};

TEST_F(MarriagesOfOnePerson, FollowTheDeathOfTheSpouse)
{
    wedding(1, 2, "1720-02-03");
    wedding(1, 3, "1730-02-03");
    EXPECT_EQ(cases("M-08"), QStringList());
    diesOn(2, "1730-02-04");
    EXPECT_EQ(cases("M-08"),
              QStringList("impossível: Rui (nº 1), que casou em 03/02/1720 com Ana (nº 2), voltou a casar "
                          "em 03/02/1730 com Eva (nº 3), e Ana (nº 2) só morreu em 04/02/1730."));
    run("update individuo set dobitofixa = 0");
    EXPECT_TRUE(cases("M-08").first().startsWith("aviso: "));
    diesOn(2, "1730-02-03");
    EXPECT_EQ(cases("M-08"), QStringList());
}

TEST_F(MarriagesOfOnePerson, AreNoneInAUnionThatIsNoMarriage)
{
    wedding(1, 2, "1720-02-03");
    wedding(1, 3, "1730-02-03");
    diesOn(2, "1740-02-04");
    run("update familia set sfamilia = '6' where nfamilia = 2");
    EXPECT_EQ(cases("M-08"), QStringList());
}

TEST_F(MarriagesOfOnePerson, AreNumberedInTheirOrder)
{
    wedding(1, 2, "1730-02-03");
    wedding(1, 3, "1720-02-03");
    run("update familias set numcasam = nfamilia where nind = 1");
    EXPECT_EQ(cases("M-09"), QStringList("aviso: Dos casamentos de Rui (nº 1), o de 03/02/1720 (família nº 2) tem o "
                                         "número 2, e o de 03/02/1730 (família nº 1) tem o número 1."));
    run("update familias set numcasam = 3 - nfamilia where nind = 1");
    EXPECT_EQ(cases("M-09"), QStringList());
    run("update familias set numcasam = 1");
    run("update familia set datacasam = null where nfamilia = 1");
    EXPECT_EQ(cases("M-09"),
              QStringList("aviso: Dos casamentos de Rui (nº 1), o da família nº 1 tem o número 1, e o de "
                          "03/02/1720 (família nº 2) tem o número 1."));
    run("update familias set numcasam = 0");
    EXPECT_EQ(cases("M-09"), QStringList());
}

TEST_F(MarriagesOfOnePerson, AreNoneBeforeTheFirst)
{
    wedding(1, 2, "1720-02-03");
    wedding(1, 3, "1730-02-03");
    run("update familias set estadocivil = 1");
    EXPECT_EQ(cases("M-10"), QStringList("aviso: Rui (nº 1) casou em 03/02/1730 como solteiro, e já tinha casado em "
                                         "03/02/1720 com Ana (nº 2)."));
    run("update familia set datacasam = null where nfamilia = 1"); // nobody knows which was the first
    EXPECT_EQ(cases("M-10"), QStringList());
}

TEST_F(MarriagesOfOnePerson, PrecedeTheWidowhood)
{
    wedding(1, 3, "1730-02-03");
    run("update familias set estadocivil = 3");
    EXPECT_EQ(cases("M-11"), QStringList("informação: Rui (nº 1) casou em 03/02/1730 como viúvo, e não tem casamento "
                                         "anterior; Eva (nº 3) casou em 03/02/1730 como viúva, e não tem casamento "
                                         "anterior."));
    couple(1, 2);
    run("update familias set estadocivil = 1 where nind = 3");
    EXPECT_EQ(cases("M-11"), QStringList());
    run("update familia set datacasam = '1731-02-03' where nfamilia = 2"); // a later one
    EXPECT_EQ(cases("M-11").size(), 1);
}

TEST_F(MarriagesOfOnePerson, AreApartByTheMourning)
{
    person({"Gil"});
    wedding(2, 1, "1720-02-03");
    wedding(2, 4, "1730-10-28");
    diesOn(1, "1730-01-01");
    EXPECT_EQ(cases("M-17"), QStringList()); // 300 days
    run("update familia set datacasam = '1730-10-27' where nfamilia = 2");
    EXPECT_EQ(cases("M-17"),
              QStringList("informação: Ana (nº 2), viúva de Rui (nº 1) desde 01/01/1730, voltou a casar em "
                          "27/10/1730 com Gil (nº 4), 299 dias depois."));
    run("update familia set datacasam = '1730-01-30' where nfamilia = 2");
    EXPECT_TRUE(cases("M-17").first().startsWith("aviso: "));
    run("update familia set dcasamfixa = 0"); // about that day: no days can be counted
    EXPECT_EQ(cases("M-17"), QStringList());
}

TEST_F(MarriagesOfOnePerson, AreMoreHastyForWidowersAlone)
{
    wedding(1, 2, "1720-02-03");
    wedding(1, 3, "1730-01-31");
    diesOn(2, "1730-01-01");
    EXPECT_EQ(cases("M-17"), QStringList()); // 30 days, and a man
    run("update familia set datacasam = '1730-01-30' where nfamilia = 2");
    EXPECT_EQ(cases("M-17"), QStringList("aviso: Rui (nº 1), viúvo de Ana (nº 2) desde 01/01/1730, voltou a casar em "
                                         "30/01/1730 com Eva (nº 3), 29 dias depois."));
}

TEST_F(MarriagesOfOnePerson, AreFew)
{
    for (const char* day : {"1720-02-03", "1730-02-03", "1740-02-03", "1750-02-03"})
        wedding(1, 2, day);
    EXPECT_EQ(cases("M-20"), QStringList());
    couple(1, 3);
    EXPECT_EQ(cases("M-20"),
              QStringList("aviso: Rui (nº 1) tem 5 casamentos: data desconhecida, 03/02/1720, 03/02/1730, "
                          "03/02/1740 e 03/02/1750."));
}

TEST_F(MarriagesOfOnePerson, AreToldBesideTheSpouseWhoLivedLongest)
{
    person({"Zita", 'f'});
    wedding(1, 2, "1720-02-03");
    wedding(1, 3, "1730-02-03");
    wedding(1, 4, "1740-02-03");
    diesOn(2, "1750-02-04");
    diesOn(3, "1745-02-04");
    EXPECT_EQ(cases("M-08").size(), 2);
    EXPECT_EQ(cases("M-08").last(), "impossível: Rui (nº 1), que casou em 03/02/1720 com Ana (nº 2), voltou a casar em "
                                    "03/02/1740 com Zita (nº 4), e Ana (nº 2) só morreu em 04/02/1750.");
}
