#include "help/messageEntry.h"

#include <gtest/gtest.h>

namespace {

const QList<help::MessageEntry>& manual()
{
    static const QList<help::MessageEntry> entries{
        {"erro", "\"Ocorreu o erro …\""},
        {"existe", "\"Já existe o código ….\""},
        {"existe-indice", "\"Já existe o código … no índice ….\""},
        {"indice", "\"Já existe um registo com estes valores no índice \"…\".\""},
        {"nome", "\"O nome não está preenchido.\""},
        {"confirma", "\"O nome não está preenchido. Deseja continuar?\""},
        {"plural", "\"… indivíduo… sem data\""},
        {"disco", "\"O disco está cheio.\""},
    };
    return entries;
}

QString entryOf(const QString& shown)
{
    return help::messageEntry(shown, manual());
}

} // namespace

TEST(MessageEntry, IsFoundByTheWordsOfTheTitle)
{
    EXPECT_EQ(entryOf("O disco está cheio."), "disco");
    EXPECT_EQ(entryOf("O DISCO esta cheio!"), "disco");
    EXPECT_EQ(entryOf("O disco está quase cheio."), "");
    EXPECT_EQ(entryOf("Se o disco está cheio."), "");
    EXPECT_EQ(entryOf("O disco está cheiote."), "");
    EXPECT_EQ(entryOf(""), "");
    EXPECT_EQ(help::messageEntry("O disco está cheio.", {}), "");
}

TEST(MessageEntry, TakesAnythingForWhatChangesAndNothingToo)
{
    EXPECT_EQ(entryOf("Já existe o código 12."), "existe");
    EXPECT_EQ(entryOf("Já existe o código!"), "existe");
    EXPECT_EQ(entryOf("Já existe um registo com estes valores no índice \"Primary Key\"."), "indice");
    EXPECT_EQ(entryOf("Já existe um registo com estes valores no índice \"\"."), "indice");
    EXPECT_EQ(entryOf("1 indivíduo sem data"), "plural");
    EXPECT_EQ(entryOf("2 indivíduos sem data"), "plural");
    EXPECT_EQ(entryOf("2 indivíduos com data"), "");
}

TEST(MessageEntry, IsTheOneThatSaysMost)
{
    EXPECT_EQ(entryOf("Já existe o código 12 no índice 3!"), "existe-indice");
    EXPECT_EQ(entryOf("O nome não está preenchido.\r\nDeseja continuar?"), "confirma");
    EXPECT_EQ(help::messageEntry("O disco está cheio.", {{"a", "O disco …"}, {"b", "O … está cheio"}}), "b");
    EXPECT_EQ(help::messageEntry("O disco está cheio.", {{"a", "O … está cheio"}, {"b", "O … está cheio"}}), "a");
}

TEST(MessageEntry, MayBeWholeSentencesOrLinesOfWhatIsShown)
{
    EXPECT_EQ(entryOf("Ocorreu o erro 3022\r\nJá existe um registo com estes valores no índice \"a\"."), "indice");
    EXPECT_EQ(entryOf("Ao guardar:\n\nO nome não está preenchido.\nDeseja continuar?\n"), "confirma");
    EXPECT_EQ(entryOf("Ao guardar: O nome não está preenchido."), "nome");
    EXPECT_EQ(entryOf("Nada foi escrito. O disco está cheio. Veja."), "disco");
    EXPECT_EQ(entryOf("Ao guardar o nome não está preenchido."), "");
    EXPECT_EQ(entryOf("O nome não está preenchido: falta."), "");
    EXPECT_EQ(entryOf("O nome não está preenchido.txt"), "");
}

TEST(MessageEntry, ThatLeadsToSomethingElseComesLast)
{
    EXPECT_EQ(entryOf("Ocorreu o erro 3022\r\nNunca vista."), "erro");
    EXPECT_EQ(entryOf("Ocorreu o erro 3022\r\nJá existe o código 3."), "existe");
    EXPECT_EQ(
        help::messageEntry("Ocorreu o erro 7\nDisco cheio.", {{"a", "\"Ocorreu o erro …\""}, {"b", "Disco cheio"}}),
        "b");
}

TEST(MessageEntry, OfFewLettersIsNone)
{
    EXPECT_EQ(help::messageEntry("Ana e Rui são pais.", {{"a", "… e … são …."}}), "");
    EXPECT_EQ(help::messageEntry("Já existe.", {{"a", "Já existe …."}}), "a");
}

TEST(MessageEntry, ComparesPiecesWithoutCountingALetterTwice)
{
    EXPECT_EQ(help::messageEntry("anabela", {{"a", "anabela…anabela"}}), "");
    EXPECT_EQ(help::messageEntry("anabela anabela", {{"a", "anabela … anabela"}}), "a");
    EXPECT_EQ(help::messageEntry("anabela", {{"a", "anabela … anabela"}}), "");
    EXPECT_EQ(help::messageEntry("anabela b", {{"a", "anabela … b … b"}}), "");
    EXPECT_EQ(help::messageEntry("anabela b b", {{"a", "anabela … b … b"}}), "a");
}

TEST(MessageEntry, IsFoundInALongTextWithinAMoment)
{
    QString shown = "Ocorreu o erro 1\n";
    for (int i = 0; i < 5000; ++i)
        shown += QString("Linha %1. ").arg(i);
    EXPECT_EQ(entryOf(shown), "erro");
}
