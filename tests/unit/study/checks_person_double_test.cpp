// Two records of one person: cases that must fire and near misses that must not.
#include "study/checked.h"

class TwoRecords : public Checked
{
protected:
    // The cases of people who have two parents in common.
    QStringList ofParents()
    {
        person({"Zé"});
        person({"Eva", 'f'});
        couple(1, 2);
        run("update individuo set famorig = 1 where nind <> 1 and nind <> 2");
        return cases("P-26");
    }
};

TEST_F(TwoRecords, OfOneNameAndOneCoupleOfParentsAreOne)
{
    lastPerson = 2;
    person({"Manoel", 'm', "1702-02-14"});
    person({"Manuel", 'm', "1702-02-14", "1760-05-01"});
    person({"Ana", 'f', "1702-02-14"});
    lastPerson = 0;
    EXPECT_EQ(ofParents(),
              QStringList("aviso: Manoel (nº 3) e Manuel (nº 4) parecem a mesma pessoa: têm o mesmo nome e "
                          "os mesmos pais, e nenhuma data o impede."));
    run("update individuo set datanasc = '1702-02-15' where nind = 4");
    EXPECT_EQ(cases("P-26"), QStringList());
    run("update individuo set DnascFixa = 0 where nind = 4"); // about that day
    EXPECT_EQ(cases("P-26").size(), 1);
}

TEST_F(TwoRecords, AreTwoWhereANameWasGivenAgain)
{
    lastPerson = 2;
    person({"Rui", 'm', "1702-02-14", "1703-01-02"});
    person({"Rui", 'm', "1704-02-14"});
    person({"Gil", 'm', "1706-02-14", "1706-02-20"});
    person({"Gil", 'm'}); // who signs
    lastPerson = 0;
    run("insert into assinatura (nind, idassinatura, dataref) values (6, 1, '1730-01-02')");
    EXPECT_EQ(ofParents(), QStringList());
}

TEST_F(TwoRecords, AreTwoWhereThereIsAChoice)
{
    lastPerson = 2;
    person({"Rui", 'm', "1702-02-14"});
    person({"Rui", 'm', "1704-02-14"});
    person({"Rui"});
    lastPerson = 0;
    EXPECT_EQ(ofParents(), QStringList());
}

TEST_F(TwoRecords, OfOneFullNameAndOneSpouseAreOne)
{
    person({"Rui"});
    person({"Ana Lopes", 'f'});
    person({"Anna Lopez", 'f'});
    wedding(1, 2, "1730-02-03");
    couple(1, 3);
    EXPECT_EQ(cases("P-26"), QStringList("aviso: Ana Lopes (nº 2) e Anna Lopez (nº 3) parecem a mesma pessoa: têm o "
                                         "mesmo nome e o mesmo cônjuge, Rui (nº 1), e nenhuma data o impede."));
    run("update familia set datacasam = '1735-02-03', dcasamfixa = 1 where nfamilia = 2"); // he married again
    EXPECT_EQ(cases("P-26"), QStringList());
    run("update familia set datacasam = null where nfamilia = 2");
    run("update individuo set nome = substr(nome, 1, instr(nome, ' ') - 1) where nind > 1"); // "Ana" is no full name
    EXPECT_EQ(cases("P-26"), QStringList());
}

TEST_F(TwoRecords, OfOneFullNameBuriedOnOneDayAreOne)
{
    person({"Ana Lopes", 'f', "", "1760-05-01"});
    person({"Ana Lopes", 'f', "1702-02-14", "1760-05-01"});
    person({"Ana Lopes", 'f', "", "1760-05-02"});
    EXPECT_EQ(cases("P-26"),
              QStringList("aviso: Ana Lopes (nº 1) e Ana Lopes (nº 2) parecem a mesma pessoa: têm o mesmo "
                          "nome e a mesma data de óbito, 01/05/1760, e nenhuma data o impede."));
    run("update individuo set sexo = 'm' where nind = 1");
    EXPECT_EQ(cases("P-26"), QStringList());
}
