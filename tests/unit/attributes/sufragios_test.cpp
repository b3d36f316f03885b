#include "attributes/sufragios.h"

#include <gtest/gtest.h>

TEST(Suffrages, AreToldByTheirWordWhateverItsBlanksAndCapitals)
{
    EXPECT_EQ(sufragioDaColuna("missa"), 0);
    EXPECT_EQ(sufragioDaColuna("Oficio"), 1);
    EXPECT_EQ(sufragioDaColuna(" es mola "), 2);
    EXPECT_FALSE(sufragioDaColuna("missas"));
    EXPECT_FALSE(sufragioDaColuna(""));
}

TEST(Suffrages, KeepTheFirstTwoLettersOfTheirCurrency)
{
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(moedaDaColuna(colunaDaMoeda(moedas[i])), i) << moedas[i];
    EXPECT_EQ(colunaDaMoeda("Escudos"), "Es");
    EXPECT_EQ(colunaDaMoeda(""), "");
    EXPECT_FALSE(moedaDaColuna("Es "));
    EXPECT_FALSE(moedaDaColuna(""));
}
