#include "common/locais.h"

#include "common/emptybdp.h"
#include "common/text.h"
#include "platform/forms/controls.h"
#include "platform/jet/recordset.h"

#include <gtest/gtest.h>

namespace {

// A BDP with the seven place tables, a place or two in each.
class Places : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const auto& [tabela, nivel] : {std::pair{"pais", "pais"},
                                            {"zonapais", "zona"},
                                            {"distrito", "distrito"},
                                            {"concelho", "concelho"},
                                            {"paroquia", "paroquia"},
                                            {"lugar", "lugar"},
                                            {"sitio", "sitio"}})
        {
            cnBDP.execute(
                QString("create table %1 (cod%2 varchar, nome%2 varchar(255), prioridade long)").arg(tabela, nivel));
        }
        cnBDP.execute("create table infocomplementar (categoria char(5), codigo varchar, descricao varchar(255))");
        insere("pais", "'34', 'Espanha', 1");
        insere("pais", "'PT', 'Portugal', 0");
        insere("zonapais", "'341', '*Galiza', 1");
        insere("distrito", "'03', 'Braga', 1");
        insere("concelho", "'0303', 'Braga', 2");
        insere("paroquia", "'030302', 'Adaúfe', 1");
        insere("paroquia", "'030301', 'São Mamede', 2");
        insere("paroquia", "'030303', '*Arentim', 0");
        insere("paroquia", "'030304', 'Avelar', null");
        insere("lugar", "'03030101', '*Vila-Cova', 1");
        insere("sitio", "'0303010101', 'Fonte', 1");
        insere("sitio", "'0303010102', 'Cruz', 0");
    }
    void TearDown() override { CodParoquia.clear(); }

    static void insere(const char* tabela, const char* valores)
    {
        cnBDP.execute(QString("insert into %1 values (%2)").arg(tabela, valores));
    }
    static QStringList entradas(const ComboBox& lista)
    {
        QStringList textos;
        for (int i = 0; i < lista.count(); ++i)
            textos += lista.list(i);
        return textos;
    }

    EmptyBdp bdp;
    ComboBox lista;
};

TEST(PlaceText, IsNameTokenAndCode)
{
    EXPECT_EQ(textoDoLocal("Adaúfe", "F", "030302"), "Adaúfe -F- 030302");
}

TEST(PlaceText, GivesCodeAndLetterByItsLastToken)
{
    const Local local = localDoTexto("Adaúfe -F- 030302");
    EXPECT_EQ(local.codigo, "030302");
    EXPECT_EQ(local.nivel, "F");
}

TEST(PlaceText, MayHaveHyphensInItsName)
{
    for (const char* nome : {"Vila-Cova", "Vila -Cova", "A -L- B", "Vila -"}) {
        const Local local = localDoTexto(textoDoLocal(nome, "F", "010204"));
        EXPECT_EQ(local.codigo, "010204") << nome;
        EXPECT_EQ(local.nivel, "F") << nome;
    }
    EXPECT_EQ(restoDoLocal("Vila-Cova -F- 010204"), "F- 010204");
}

TEST(PlaceText, IsNoPlaceWithoutItsToken)
{
    EXPECT_EQ(localDoTexto("Vila-Cova").codigo, "");
    EXPECT_EQ(localDoTexto("Vila-Cova").nivel, "");
    EXPECT_EQ(localDoTexto(" -- ").codigo, "");
    EXPECT_EQ(localDoTexto(" -- ").nivel, "");
}

TEST(PlaceText, OfTheBlankEntryHasNeitherCodeNorLetter)
{
    EXPECT_EQ(localDoTexto("  ").codigo, "");
    EXPECT_EQ(localDoTexto("  ").nivel, "");
    EXPECT_EQ(localDoTexto("").codigo, "");
    EXPECT_EQ(localDoTexto("").nivel, "");
}

TEST(PlaceText, KeepsTheWholeTextAsRemainderWhereThereIsNoToken)
{
    EXPECT_EQ(restoDoLocal("Braga -D- 03"), "D- 03");
    EXPECT_EQ(restoDoLocal("Braga"), "Braga");
}

TEST(VbText, CountsFromOneAndNeverFails)
{
    EXPECT_EQ(InStr("abcb", "b"), 2);
    EXPECT_EQ(InStr("abcb", "b", 3), 4);
    EXPECT_EQ(InStr("abc", "x"), 0);
    EXPECT_EQ(Mid("abcdef", 3), "cdef");
    EXPECT_EQ(Mid("abcdef", 3, 2), "cd");
    EXPECT_EQ(Mid("abc", 4), "");
    EXPECT_EQ(Mid("abc", 9, 2), "");
}

TEST_F(Places, FillAListFromSitesToCountriesInOrderOfEntryWithoutStars)
{
    PreencheLocais(lista);
    EXPECT_EQ(entradas(lista), (QStringList{"  ", "Fonte -S- 0303010101", "Vila-Cova -L- 03030101", "Adaúfe -F- 030302",
                                            "São Mamede -F- 030301", "Braga -C- 0303", "Braga -D- 03", "Galiza -Z- 341",
                                            "Espanha -P- 34"}));
    EXPECT_EQ(lista.listIndex(), 0);
}

TEST_F(Places, AreAddedToWhatTheListHolds)
{
    lista.add("antes");
    PreencheLocais(lista);
    EXPECT_EQ(lista.count(), 10);
    EXPECT_EQ(lista.list(0), "antes");
    EXPECT_EQ(lista.list(1), "  ");
    EXPECT_EQ(lista.listIndex(), 0);
}

TEST_F(Places, OfAnEmptyWorkingListGiveTheBlankEntryAlone)
{
    for (const char* tabela : {"pais", "zonapais", "distrito", "concelho", "paroquia", "lugar", "sitio"})
        cnBDP.execute(QString("update %1 set prioridade = 0").arg(tabela));
    PreencheLocais(lista);
    EXPECT_EQ(entradas(lista), QStringList{"  "});
}

TEST_F(Places, OfTheWorkingListAreChosenByCodeAndLetterOfAnyCase)
{
    PreencheLocais(lista);
    SeleccionaLocal(lista, "0303", "c");
    EXPECT_EQ(lista.text(), "Braga -C- 0303");
    EXPECT_EQ(lista.count(), 9);
}

TEST_F(Places, OutsideTheWorkingListAreAddedWithTheirStarAndChosen)
{
    PreencheLocais(lista);
    SeleccionaLocal(lista, "030303", "F");
    EXPECT_EQ(lista.text(), "*Arentim -F- 030303");
    EXPECT_EQ(lista.listIndex(), 9);
}

TEST_F(Places, WithAHyphenInTheirNameAreFoundOnTheList)
{
    PreencheLocais(lista);
    const int entries = lista.count();
    SeleccionaLocal(lista, "03030101", "L");
    EXPECT_EQ(lista.text(), "Vila-Cova -L- 03030101");
    EXPECT_EQ(lista.count(), entries);
}

// The list grows by each; what it shows is what a search of all its entries would choose.
TEST_F(Places, OfManyPeopleAreAddedOnceEach)
{
    for (int i = 0; i < 300; ++i)
        insere("lugar", qPrintable(QString("'0399%1', 'Outeiro', 0").arg(i, 4, 10, QChar('0'))));
    PreencheLocais(lista);
    const int antes = lista.count();
    for (int pessoa = 0; pessoa < 900; ++pessoa) {
        SeleccionaLocal(lista, QString("0399%1").arg(pessoa * 7 % 300, 4, 10, QChar('0')), "l");
        ASSERT_EQ(lista.text(), QString("Outeiro -L- 0399%1").arg(pessoa * 7 % 300, 4, 10, QChar('0')));
    }
    EXPECT_EQ(lista.count(), antes + 300);
    lista.clear();
    SeleccionaLocal(lista, "03990000", "L");
    EXPECT_EQ(lista.listIndex(), 0);
}

TEST_F(Places, WhoseCodeReadsLikeAnotherPlaceAreChosenByTheirText)
{
    insere("lugar", "'1 -F- 2', 'Souto', 0");
    SeleccionaLocal(lista, "1 -F- 2", "L");
    EXPECT_EQ(lista.listIndex(), 0);
    SeleccionaLocal(lista, "1 -F- 2", "L");
    EXPECT_EQ(lista.count(), 2); // as it isn't found by the remainder
    EXPECT_EQ(lista.listIndex(), 0);
}

TEST_F(Places, OfAllLevelsAreFoundOutsideTheList)
{
    const std::pair<const char*, const char*> pares[] = {
        {"34", "P"}, {"341", "Z"}, {"03", "D"}, {"0303", "C"}, {"030301", "F"}, {"03030101", "L"}, {"0303010102", "S"}};
    for (const auto& [codigo, tipo] : pares) {
        SeleccionaLocal(lista, codigo, tipo);
        EXPECT_TRUE(lista.text().endsWith(QString(" -%1- %2").arg(tipo, codigo))) << codigo;
    }
}

TEST_F(Places, ThatAreSitesAreSoughtInTheWrongTableForAPerson)
{
    PreencheLocais(lista);
    SeleccionaLocal(lista, "0303010101", "S", TabelaDosSitios::lugar); // on the list: nothing is read
    EXPECT_EQ(lista.text(), "Fonte -S- 0303010101");
    EXPECT_THROW(SeleccionaLocal(lista, "0303010102", "S", TabelaDosSitios::lugar), jet::Error);
    EXPECT_EQ(lista.listIndex(), -1);
}

TEST_F(Places, ThatNobodyKnowsLeaveTheListWithNoChoice)
{
    PreencheLocais(lista);
    SeleccionaLocal(lista, "999999", "F");
    EXPECT_EQ(lista.listIndex(), -1);
    SeleccionaLocal(lista, "0303", "C");
    SeleccionaLocal(lista, "0303", "X"); // a letter of no level
    EXPECT_EQ(lista.listIndex(), -1);
    SeleccionaLocal(lista, "0303", "");
    EXPECT_EQ(lista.listIndex(), -1);
    EXPECT_EQ(lista.count(), 9);
}

TEST_F(Places, WithABlankCodeLeaveTheChoiceAsItWas)
{
    PreencheLocais(lista);
    lista.setListIndex(3);
    SeleccionaLocal(lista, "  ", "F");
    EXPECT_EQ(lista.listIndex(), 3);
}

TEST_F(Places, HaveTheBdpsOwnParishAsDefault)
{
    PreencheLocais(lista);
    SeleccionaParoquiaDaBDP(lista);
    EXPECT_EQ(lista.listIndex(), 0);
    CodParoquia = "030301";
    SeleccionaParoquiaDaBDP(lista);
    EXPECT_EQ(lista.text(), "São Mamede -F- 030301");
}

TEST_F(Places, AreNamedAsStoredByALetterOfAnyCase)
{
    EXPECT_EQ(NomeLocal("34", "P"), "Espanha");
    EXPECT_EQ(NomeLocal("341", "z"), "*Galiza");
    EXPECT_EQ(NomeLocal("03", "D"), "Braga");
    EXPECT_EQ(NomeLocal("0303", "C"), "Braga");
    EXPECT_EQ(NomeLocal("030303", "F"), "*Arentim");
    EXPECT_EQ(NomeLocal("03030101", "L"), "*Vila-Cova");
    EXPECT_EQ(NomeLocal("0303010102", "s"), "Cruz");
}

TEST_F(Places, WithoutALetterOrARowHaveNoName)
{
    EXPECT_EQ(NomeLocal("0303", QVariant()), "");
    EXPECT_EQ(NomeLocal("0303", " "), "");
    EXPECT_EQ(NomeLocal("0303", "X"), "");
    EXPECT_EQ(NomeLocal("9999", "C"), "");
    EXPECT_EQ(NomeLocal(QVariant(), "C"), "");
}

class CodedValues : public Places
{
};

TEST_F(CodedValues, HaveTheDescriptionOfTheirCategoryAndCode)
{
    insere("infocomplementar", "'EstCi', '1', 'Solteiro'");
    EXPECT_EQ(DescricaoInfo("EstCi", "1"), "Solteiro");
    EXPECT_EQ(DescricaoInfo("EstCi", "2"), "");
    EXPECT_EQ(DescricaoInfo("SitFa", "1"), "");
}

} // namespace
