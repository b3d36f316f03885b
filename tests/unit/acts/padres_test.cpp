#include "acts/padres.h"

#include <gtest/gtest.h>

TEST(Priests, AreShownFromTheirOwnActAndWrittenToTheOther)
{
    for (const bool marriage : {true, false}) {
        EXPECT_STREQ(padresAMostrar(marriage).tabela, marriage ? "familia" : "individuo");
        EXPECT_STREQ(padresAGravar(marriage).tabela, marriage ? "individuo" : "familia");
        EXPECT_STREQ(padresAGravar(marriage).chave, marriage ? "nind" : "nfamilia");
    }
}

TEST(Priests, EachStandWithTheirFunctionInColumnsOfTheirAct)
{
    EXPECT_STREQ(padresDoBaptismo.padre[1], "segpadrebapt");
    EXPECT_STREQ(padresDoBaptismo.funcao[1], "funcsegpbapt");
    EXPECT_STREQ(padresDoCasamento.padre[0], "primpadrecasam");
    EXPECT_STREQ(padresDoCasamento.funcao[0], "funcprimpcasam");
}
