#include "common/modGeral.h"

#include "forms/house.h"
#include "platform/desktop/desktop.h"
#include "store/programfolder.h"

#include <new>
#include <stdexcept>

namespace {

class SharedLists : public House
{
protected:
    SharedLists()
    {
        lista.add("  ");
        lista.add("Solteiro", 1);
        lista.add(" Casado ", 2);
        lista.add("*Viúvo", 3);
        lista.setListIndex(1);
    }

    ComboBox lista;
};

class SharedRows : public ProgramFolder
{
protected:
    SharedRows() { create(bdp); }

    jet::Connection bdp;
    ComboBox lista;
};

} // namespace

TEST_F(SharedLists, AnEntryIsFoundByItsNumber)
{
    EXPECT_EQ(ProcuraItemData(lista, 2.0), 2);
    EXPECT_EQ(lista.listIndex(), 2);
    EXPECT_EQ(ProcuraItemData(lista, " 3 "), 3);
}

TEST_F(SharedLists, AFractionOfAColumnIsNotReadAsThousands)
{
    lista.add("Mil", 1125);
    EXPECT_EQ(ProcuraItemData(lista, 1.125), -1);
}

TEST_F(SharedLists, TheNumberZeroFindsTheBlankEntry)
{
    EXPECT_EQ(ProcuraItemData(lista, 0), 0);
    EXPECT_EQ(lista.listIndex(), 0);
}

TEST_F(SharedLists, NoNumberLeavesTheChoice)
{
    for (const QVariant& valor : {QVariant(), QVariant(""), QVariant("  "), QVariant(99)})
        EXPECT_EQ(ProcuraItemData(lista, valor), -1);
    EXPECT_EQ(lista.listIndex(), 1);
}

TEST_F(SharedLists, WhatIsNoNumberIsAnError)
{
    EXPECT_EQ(errorOf([&] { ProcuraItemData(lista, "T"); }).number, jet::number::typeMismatch);
}

TEST_F(SharedLists, ACodeMayBeAsLargeAsAnEntryHoldsIt)
{
    const int novo = lista.add("Compadre", 2147483647);
    EXPECT_EQ(ProcuraItemData(lista, 2147483647), novo);
    EXPECT_EQ(ProcuraItemData(lista, 1e12), -1);
}

TEST_F(SharedLists, AnEntryIsFoundByItsTextWithoutTheMarkOfTheValue)
{
    EXPECT_EQ(ProcuraTexto(lista, "*Casado"), 2);
    EXPECT_EQ(lista.listIndex(), 2);
    EXPECT_EQ(ProcuraTexto(lista, " Solteiro"), 1);
}

TEST_F(SharedLists, AnEntryThatShowsTheMarkIsNeverFound)
{
    EXPECT_EQ(ProcuraTexto(lista, "*Viúvo"), -1);
    EXPECT_EQ(ProcuraTexto(lista, QVariant()), -1);
    EXPECT_EQ(ProcuraTexto(lista, "   "), -1);
    EXPECT_EQ(lista.listIndex(), 1);
}

TEST_F(SharedLists, AnErrorIsShownWithItsNumberAndDescription)
{
    Answer ok("OK");
    MostraErro({13, "Assim não."});
    EXPECT_EQ(ok.given, 1);
    EXPECT_EQ(ok.text, "Ocorreu o erro 13\nAssim não.");
    EXPECT_EQ(ok.icon, QMessageBox::Information);
    EXPECT_EQ(ok.title, "NUBE - ORV");
}

TEST_F(SharedLists, NoErrorShowsNothing)
{
    const Answer ok("OK");
    MostraErro(jet::Error{});
    EXPECT_EQ(ok.given, 0);
}

TEST_F(SharedLists, AnyErrorEndsARoutineInTheSameBox)
{
    const auto told = [](const auto& routine) {
        Answer ok("OK");
        guarded(routine);
        EXPECT_EQ(ok.given, 1);
        EXPECT_EQ(ok.icon, QMessageBox::Information);
        return ok.text.toStdString();
    };
    EXPECT_EQ(told([] { throw jet::Error{13, "Assim não."}; }), "Ocorreu o erro 13\nAssim não.");
    EXPECT_EQ(told([] { throw std::out_of_range("index"); }),
              "Ocorreu o erro 51\nErro interno do programa: o que estava a ser feito não foi levado até ao fim.");
    EXPECT_EQ(told([] { throw std::bad_alloc(); }), "Ocorreu o erro 7\nNão há memória suficiente.");
}

TEST(AnError, TellsItsDescriptionAsAnException)
{
    try {
        throw jet::Error{13, "Não há."};
    } catch (const std::exception& erro) {
        EXPECT_STREQ(erro.what(), "Não há.");
    }
    EXPECT_STREQ(jet::Error{}.what(), "");
}

TEST_F(SharedLists, AFailingDocumentIsTold)
{
    int result = 0;
    Desktop::setOpener([&](const QString&) { return result; });
    const QTemporaryDir folder;
    const QString path = folder.filePath("manual.pdf");
    ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
    const auto told = [&](int code) {
        result = code;
        Answer ok("OK");
        AbreFicheiro(path);
        EXPECT_EQ(ok.icon, QMessageBox::NoIcon);
        return ok.text;
    };
    EXPECT_EQ(told(Desktop::fileNotFound), "Não foi possível encontrar o ficheiro!");
    EXPECT_EQ(told(Desktop::outOfMemory), "Memória insuficiente!\nFeche algumas aplicações!");
    EXPECT_EQ(told(Desktop::noProgram), "Este tipo de ficheiro não tem um programa associado!");
    EXPECT_EQ(told(5), "5Erro inesperado!");
    EXPECT_EQ(told(Desktop::success), "");
    Desktop::setOpener({});
}

TEST_F(SharedLists, NoDocumentIsNoneToTell)
{
    const Answer ok("OK");
    AbreFicheiro("");
    EXPECT_EQ(ok.given, 0);
}

TEST_F(SharedRows, ACodedListBeginsWithABlankEntry)
{
    bdp.execute("create table t (codigo varchar(5), descricao varchar(20))");
    bdp.execute("insert into t values ('7', 'Sete')");
    bdp.execute("insert into t values ('1', 'Um')");
    jet::Recordset registos(bdp, "select codigo, descricao from t");
    PreencheCombo(lista, registos, 1, 0);
    ASSERT_EQ(lista.count(), 3);
    EXPECT_EQ(lista.list(0), "  ");
    EXPECT_EQ(lista.itemData(0), 0);
    EXPECT_EQ(lista.list(1), "Sete");
    EXPECT_EQ(lista.itemData(1), 7);
    EXPECT_EQ(lista.listIndex(), -1);
    EXPECT_TRUE(registos.isOpen());

    PreencheCombo(lista, registos, 0, 0);
    EXPECT_EQ(lista.list(2), "1");
    EXPECT_EQ(lista.itemData(2), 0);
}

TEST_F(SharedRows, WithoutRowsAListHasNoEntryAtAll)
{
    bdp.execute("create table t (codigo varchar(5), descricao varchar(20))");
    jet::Recordset registos(bdp, "select codigo, descricao from t");
    lista.add("velha");
    PreencheCombo(lista, registos, 1, 0);
    EXPECT_EQ(lista.count(), 0);
}

TEST_F(SharedRows, TheDatesOfAPersonAreBirthOrStartAndDeathOrEnd)
{
    bdp.execute("create table individuo (nind double, datanasc date, inicioobs date, dataobito date, fimobs date)");
    bdp.execute("insert into individuo (nind) values (1)");
    bdp.execute("insert into individuo (nind, inicioobs, dataobito) values (2, #03/09/1750#, #12/31/1790#)");
    bdp.execute("insert into individuo values (3, #03/09/1750#, #03/10/1750#, #12/31/1790#, #01/01/1791#)");
    bdp.execute("insert into individuo (nind, fimobs) values (4, #01/02/1791#)");
    jet::Recordset registos(bdp, "select * from individuo order by nind");
    EXPECT_EQ(DatasResumo(registos), "");
    registos.moveNext();
    EXPECT_EQ(DatasResumo(registos), "  IO: 09/03/1750  DO: 31/12/1790");
    registos.moveNext();
    EXPECT_EQ(DatasResumo(registos), "  DN: 09/03/1750  DO: 31/12/1790");
    registos.moveNext();
    EXPECT_EQ(DatasResumo(registos), "  FO: 02/01/1791");
}
