// Two families of one couple: cases that must fire and near misses that must not.
#include "study/checked.h"

class TwoFamilies : public Checked
{
protected:
    TwoFamilies()
    {
        person({"Rui Dias"});
        person({"Ana Lopes", 'f'});
    }
};

TEST_F(TwoFamilies, OfTheSamePeopleAreOneTooMany)
{
    wedding(1, 2, "1730-02-03");
    person({"Eva", 'f'});
    couple(1, 3);
    EXPECT_EQ(cases("F-10"), QStringList());
    couple(1, 2);
    EXPECT_EQ(cases("F-10"), QStringList("aviso: Rui Dias (nº 1) e Ana Lopes (nº 2) são o casal de 2 famílias: a nº 1, "
                                         "casamento em 03/02/1730; a nº 3."));
}

TEST_F(TwoFamilies, OfTheSameNamesMayBeOne)
{
    person({"Ruy Diaz"});
    person({"Anna Lopes", 'f'});
    wedding(1, 2, "1730-02-03");
    couple(3, 4);
    EXPECT_EQ(cases("F-11"), QStringList()); // nothing tells when
    person({"Gil", 'm', "1760-02-03", "", 2});
    EXPECT_EQ(cases("F-11"), QStringList("aviso: A família nº 1 de Rui Dias e Ana Lopes e a família nº 2 de Ruy Diaz e "
                                         "Anna Lopes parecem a mesma: os nomes são iguais, e nenhuma data o impede."));
    run("update individuo set datanasc = '1760-02-04' where nind = 5"); // more than thirty years later
    EXPECT_EQ(cases("F-11"), QStringList());
}

TEST_F(TwoFamilies, OfTheSameNamesAreTwoWhereTheDatesSaySo)
{
    person({"Rui Dias"});
    person({"Ana Lopes", 'f'});
    wedding(1, 2, "1730-02-03");
    wedding(3, 4, "1730-02-03");
    EXPECT_EQ(cases("F-11").size(), 1);
    run("update familia set datacasam = '1730-02-04' where nfamilia = 2");
    EXPECT_EQ(cases("F-11"), QStringList());
    run("update familia set datacasam = null where nfamilia = 2");
    person({"Gil", 'm', "1731-02-03", "", 1});
    person({"Ivo", 'm', "1731-09-30", "", 2}); // 239 days
    EXPECT_EQ(cases("F-11"), QStringList());
    run("update individuo set datanasc = '1731-10-01' where nind = 6");
    EXPECT_EQ(cases("F-11").size(), 1);
    run("update individuo set dataobito = '1731-10-02', dobitofixa = 1 where nind = 2");
    run("update individuo set dataobito = '1731-10-03', dobitofixa = 1 where nind = 4");
    EXPECT_EQ(cases("F-11"), QStringList());
}

TEST_F(TwoFamilies, OfGivenNamesAloneTellNothing)
{
    person({"Rui"});
    person({"Ana", 'f'});
    run("update individuo set nome = 'Rui' where nind = 1");
    wedding(1, 2, "1730-02-03");
    wedding(3, 4, "1730-02-03");
    run("update individuo set nome = 'Ana' where nind = 2");
    EXPECT_EQ(cases("F-11"), QStringList());
}
