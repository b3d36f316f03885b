// Rules of the children of a family: each with a case that must fire and a near miss that must not.
#include "study/checked.h"

#include <QByteArray>

class TheChildrenOfAFamily : public Checked
{
protected:
    TheChildrenOfAFamily()
    {
        person({"Rui Dias"});
        person({"Ana Lopes", 'f'});
        couple(1, 2);
    }

    qint64 child(const char* name, char sex, const char* birth, const char* death = "", qint64 family = 1)
    {
        return person({name, sex, birth, death, family});
    }

    // So many children, one a year from 1700 on.
    void haveChildren(int number, qint64 family = 1)
    {
        for (int i = 0; i < number; ++i)
            child("Eva", 'f', QByteArray::number(1700 + i).append("-02-03").constData(), "", family);
    }
};

TEST_F(TheChildrenOfAFamily, HaveNamesOfTheirOwn)
{
    child("José", 'm', "1700-02-03", "1705-02-04");
    child("Joze", 'm', "1705-02-03");
    EXPECT_EQ(cases("F-12"),
              QStringList("aviso: José (nº 3), nascido em 03/02/1700, e Joze (nº 4), nascido em 03/02/1705, filhos da "
                          "família nº 1, têm o mesmo nome, e o mais velho ainda vivia."));
    run("update individuo set dataobito = '1705-02-03' where nind = 3"); // the name was given again
    EXPECT_EQ(cases("F-12"), QStringList());
    run("update individuo set dataobito = null where nind = 3"); // it may have been
    EXPECT_EQ(cases("F-12"), QStringList());
    run("insert into assinatura (nind, idassinatura, dataref, datafixa) values (3, 1, '1705-02-04', 1)");
    EXPECT_EQ(cases("F-12").size(), 1);
    run("update individuo set nome = 'José Maria' where nind = 4");
    EXPECT_EQ(cases("F-12"), QStringList());
}

TEST_F(TheChildrenOfAFamily, BearASurnameOfTheirs)
{
    child("Gil Dias", 'm', "");
    child("Eva Diaz Sousa", 'f', "");
    child("Ivo", 'm', "");
    child("Zé Sousa", 'm', "");
    EXPECT_EQ(cases("F-13"), QStringList()); // it is normal: nobody asks
    EXPECT_EQ(cases("F-13", {.asked = {{"F-13", true}}}),
              QStringList("informação: Zé Sousa (nº 6) não tem nenhum apelido dos pais nem dos avós: Rui Dias (nº 1) e "
                          "Ana Lopes (nº 2)."));
    const qint64 grandfather = person({"Ivo Lopes de Sousa"});
    run("update individuo set famorig = ? where nind = 2", {couple(grandfather, 2)});
    run("delete from familias where nfamilia = 2 and nind = 2");
    EXPECT_EQ(cases("F-13", {.asked = {{"F-13", true}}}), QStringList());
}

TEST_F(TheChildrenOfAFamily, AreBornWithinTheYearsOfAMother)
{
    person({"Eva", 'f'});
    couple(1, 3);
    child("Gil", 'm', "1700-02-03");
    child("Ivo", 'm', "1725-02-04");
    child("Zé", 'm', "1750-02-03", "", 2);
    EXPECT_EQ(cases("F-14"),
              QStringList("aviso: Ana Lopes (nº 2) tem filhos durante 25 anos: desde Gil (nº 4), nascido em "
                          "03/02/1700, até Ivo (nº 5), nascido em 04/02/1725."));
    run("update individuo set datanasc = '1725-02-03' where nind = 5");
    EXPECT_EQ(cases("F-14"), QStringList());
    run("update individuo set datanasc = '1750-02-04' where nind = 6");
    EXPECT_EQ(cases("F-14"),
              QStringList("aviso: Rui Dias (nº 1) tem filhos durante 50 anos: desde Gil (nº 4), nascido em "
                          "03/02/1700, até Zé (nº 6), nascido em 04/02/1750."));
}

TEST_F(TheChildrenOfAFamily, AreNotTooManyForAWoman)
{
    haveChildren(10);
    couple(0, 2);
    haveChildren(5, 2);
    EXPECT_EQ(cases("F-15"), QStringList());
    haveChildren(1, 2);
    EXPECT_EQ(cases("F-15"), QStringList("aviso: Ana Lopes (nº 2) tem 16 filhos."));
}

TEST_F(TheChildrenOfAFamily, AreNotTooManyForAFatherAlone)
{
    run("delete from familias where nind = 2");
    haveChildren(20);
    EXPECT_EQ(cases("F-15"), QStringList());
    haveChildren(1);
    EXPECT_EQ(cases("F-15"), QStringList("aviso: Rui Dias (nº 1) tem 21 filhos."));
}

TEST_F(TheChildrenOfAFamily, AreNotTooManyForACouple)
{
    const study::checks::Settings settings{.limits = {{"F-15.mulher", 30}}};
    haveChildren(20);
    EXPECT_EQ(cases("F-15", settings), QStringList());
    haveChildren(1);
    ASSERT_EQ(cases("F-15", settings).size(), 1) << "told of the mother alone";
    EXPECT_TRUE(cases("F-15", settings).first().endsWith("(nº 2) tem 21 filhos."));
}

TEST_F(TheChildrenOfAFamily, AreNumberedAsTheyWereBorn)
{
    child("Gil", 'm', "1700-02-03");
    child("Ivo", 'm', "1701-02-03");
    child("Zé", 'm', "");
    EXPECT_EQ(cases("F-17"), QStringList());
    run("update individuo set datanasc = '1699-02-03' where nind = 4");
    EXPECT_EQ(
        cases("F-17"),
        QStringList("informação: Na família nº 1 os números dos filhos não seguem os nascimentos: Ivo (nº 4), nascido "
                    "em 03/02/1699, antes de Gil (nº 3), nascido em 03/02/1700."));
    run("update individuo set datanasc = '1700-01-01', DnascFixa = 0 where nind = 4"); // some day of 1700
    EXPECT_EQ(cases("F-17"), QStringList());
}

TEST_F(TheChildrenOfAFamily, LeaveNoNumberThatNobodyHas)
{
    child("Gil", 'm', "1700-02-03"); // 3
    child("Ivo", 'm', "1701-02-03");
    child("Zé", 'm', "1702-02-03");
    run("update individuo set famorig = null where nome = 'Ivo'"); // a godfather
    EXPECT_EQ(cases("F-17"), QStringList());
    run("delete from individuo where nome = 'Ivo'");
    EXPECT_EQ(cases("F-17"), QStringList("informação: Na família nº 1 falta o número 4 entre Gil (nº 3), nascido em "
                                         "03/02/1700, e Zé (nº 5), nascido em 03/02/1702: ninguém o tem."));
    EXPECT_EQ(cases("F-17", {.limits = {{"F-17.lacuna", 0}}}), QStringList());
    run("update individuo set nind = 6 where nome = 'Zé'");
    EXPECT_EQ(cases("F-17"), QStringList());
    EXPECT_EQ(cases("F-17", {.limits = {{"F-17.lacuna", 2}}}),
              QStringList("informação: Na família nº 1 faltam os números 4 a 5 entre Gil (nº 3), nascido em "
                          "03/02/1700, e Zé (nº 6), nascido em 03/02/1702: ninguém os tem."));
}
