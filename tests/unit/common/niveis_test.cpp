#include "common/niveis.h"

#include <gtest/gtest.h>

TEST(Levels, StandInTheirOrderEachUnderItsLetter)
{
    QString letras;
    for (const DadosDoNivel& nivel : niveis) {
        EXPECT_EQ(&dadosDe(nivel.nivel), &nivel);
        EXPECT_EQ(nivelDaLetra(nivel.tipo), &nivel);
        letras += nivel.tipo;
    }
    EXPECT_EQ(letras, "PZDCFLS");
    EXPECT_EQ(nivelDaLetra("X"), nullptr);
    EXPECT_EQ(nivelDaLetra("p"), nullptr);
    EXPECT_EQ(nivelDaLetra(""), nullptr);
}

TEST(Levels, HaveTheirNumberBehindTheCodeOfTheLevelAbove)
{
    const QString sitio = "0102030405";
    QStringList acima;
    for (const DadosDoNivel& nivel : niveis)
        if (nivel.nivel > Nivel::Distrito) acima << sitio.left(nivel.inicio - 1);
    EXPECT_EQ(acima, (QStringList{"01", "0102", "010203", "01020304"}));
}

TEST(Levels, BindTheCodesOfTheirStatements)
{
    const QString codigo = "03'01";
    const DadosDoNivel& concelho = dadosDe(Nivel::Concelho);
    EXPECT_EQ(concelho.locaisDaLista().sql, "select codconcelho, nomeconcelho from concelho where prioridade <> 0");
    EXPECT_EQ(concelho.locais().sql, "select * from concelho");
    EXPECT_EQ(concelho.nomeDe(codigo).sql, "select nomeconcelho from concelho where codconcelho = ?");
    EXPECT_EQ(concelho.superiorDe(codigo).sql, "select coddistrito from concelho where codconcelho = ?");
    EXPECT_EQ(concelho.locaisDe(codigo).sql, "select * from concelho where coddistrito = ?");
    for (const jet::NativeSql& instrucao :
         {concelho.nomeDe(codigo), concelho.superiorDe(codigo), concelho.locaisDe(codigo)})
        EXPECT_EQ(instrucao.values, QVariantList{codigo});
    const jet::NativeSql marca = concelho.marca(codigo, Prioridade::DaBDP);
    EXPECT_EQ(marca.sql, "update concelho set prioridade = ? where codconcelho = ?");
    EXPECT_EQ(marca.values, (QVariantList{2, codigo}));
}
