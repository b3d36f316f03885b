#include "study/transcripts/kleio.h"

#include <QStringEncoder>

#include <gtest/gtest.h>

using namespace study;

namespace {

const QByteArray bookHead = "kleio$x\nfonte$b1\n";
const QByteArray childLine = " n$ana/f/id=p1\n";

// "4: why" of every problem; an error has a "!" before it.
QStringList problemsOf(const QByteArray& file)
{
    QStringList all;
    for (const Problem& problem : readKleio(file).problems)
        all << (problem.severity == Problem::Severity::Error ? "!" : "") + QString::number(problem.line) + ": " +
                   problem.text;
    return all;
}

TEST(KleioDamage, IsRefusedWithLineAndReason)
{
    const QByteArray act = "bap$a/1/1/1700\n" + childLine;
    EXPECT_EQ(problemsOf(bookHead + act + " pai$rui/obs=\"\"\"nunca acaba\n n$x\n"),
              QStringList("!5: O texto entre três aspas que aqui começa não acaba."));
    EXPECT_EQ(problemsOf("kleio$x\nfonte$b1\n"), QStringList("!0: O ficheiro não tem nenhum acto em notação Kleio."));
    EXPECT_EQ(problemsOf("olá\n" + bookHead + act), QStringList("!1: Há texto antes do primeiro grupo: olá"));
    EXPECT_EQ(problemsOf(bookHead + childLine + act), QStringList("!3: O grupo \"n$\" não pertence a nenhum acto."));
    EXPECT_EQ(problemsOf(bookHead + "ls$ec/s\n" + act), QStringList("!3: O grupo \"ls$\" não pertence a nenhum acto."));
    EXPECT_EQ(problemsOf(bookHead + act + QByteArray("\0", 1)),
              QStringList("!5: O ficheiro não é de texto: tem caracteres nulos."));
    EXPECT_EQ(problemsOf(""), QStringList("!0: O ficheiro não tem nenhum acto em notação Kleio."));
}

TEST(KleioDamage, OfRealFilesIsTakenAsItIsAndTold)
{
    const auto told = [](const QByteArray& rest) { return problemsOf(bookHead + rest); };
    EXPECT_EQ(told("bap$a/31/9/1702\n" + childLine), QStringList("3: A data 31/09/1702 não existe."));
    EXPECT_EQ(told("bap$a/29/2/1701\n" + childLine), QStringList("3: A data 29/02/1701 não existe."));
    EXPECT_EQ(told("bap$a/0/0/1702\n" + childLine), QStringList());
    EXPECT_EQ(told("bap$a/1/1/17020\n" + childLine), QStringList("3: A data 01/01/17020 não existe."));
    EXPECT_EQ(told("bap$a\n" + childLine), QStringList("3: O acto não tem data."));
    EXPECT_EQ(told("bap$a/1/1/1702\n" + childLine + "bap$a/2/1/1702\n" + childLine),
              (QStringList{"5: O id \"a\" aparece duas vezes.", "6: O id \"p1\" aparece duas vezes."}));
    EXPECT_EQ(told("bap$a/1/1/1702\n" + childLine + " rel$parentesco/tio/x/p9\n"),
              QStringList("5: A relação leva ao id \"p9\", que ninguém tem."));
    EXPECT_EQ(told("bap$a/1/1/1702\n" + childLine + " pai$rui/mesmo_que=p9\n"),
              QStringList("5: O id \"p9\" de \"mesmo_que\" não existe no ficheiro."));
    EXPECT_EQ(told("bap$a/1/1/1702\n" + childLine + " pai$?/m\n"), QStringList("5: Há uma pessoa sem nome."));
    EXPECT_EQ(told("bap$a/1/1/1702\n" + childLine + " ppad$rui\n"),
              QStringList("5: Falta a pessoa a quem pertence o grupo \"ppad$\"."));
    EXPECT_EQ(told("bap$a/1/1/1702\n" + childLine + childLine.toUpper().replace("P1", "p2")),
              QStringList("3: O acto tem duas pessoas com o mesmo papel principal."));
    EXPECT_EQ(told("bap$a/1/1/1702/fol.3/sé/padre rui\n" + childLine + " celebrante$Padre Rui\n"),
              QStringList("5: O celebrante aparece duas vezes no mesmo acto."));
    EXPECT_EQ(told("bap$a/1/1/1702\n" + childLine + " ls$ec/s\n ls$ec/c\n"),
              QStringList("6: \"ec\" aparece duas vezes com valores diferentes."));
    EXPECT_EQ(told("bap$a/1/1/1702\n n$\"ana/f\n"), QStringList("4: Há aspas que não fecham; ficam como estão."));
    EXPECT_EQ(problemsOf("bap$a/1/1/1702\n" + childLine),
              (QStringList{"0: Falta a linha \"kleio$\" no princípio do ficheiro.",
                           "1: Há actos antes de qualquer grupo \"fonte$\"; ficam sem livro."}));
}

TEST(KleioDamage, OfAHeadTakesNoNumberForAPlaceOrAPriest)
{
    const Transcript yearFirst = readKleio(bookHead + "bap$a/1702/2/14/igreja\n" + childLine);
    EXPECT_EQ(yearFirst.acts.first().act.date, PartialDate{.year = 1702});
    EXPECT_EQ(yearFirst.acts.first().act.place.value, "igreja");
    EXPECT_EQ(yearFirst.acts.first().act.notes, "2\n14");
    EXPECT_EQ(yearFirst.acts.first().act.people.size(), 1);
    EXPECT_EQ(problemsOf(bookHead + "bap$a/1702/2/14\n" + childLine),
              (QStringList{"3: \"2\" não é data, fólio, lugar nem padre; fica nas notas do acto.",
                           "3: \"14\" não é data, fólio, lugar nem padre; fica nas notas do acto."}));
    const Transcript tooShort = readKleio(bookHead + "bap$a/1/2\n" + childLine);
    EXPECT_EQ(tooShort.acts.first().act.date, PartialDate{}) << "no year 1";
    EXPECT_EQ(tooShort.problems.size(), 3);
}

TEST(KleioDamage, OfRelativesIsTold)
{
    const auto told = [](const QByteArray& act) { return problemsOf(bookHead + act); };
    EXPECT_EQ(told("bap$a/1/1/1702\n" + childLine + "  pai$rui\n  pn$gil\n"), QStringList("3: Há dois pais de ana."));
    EXPECT_EQ(told("o$a/1/1/1702\n" + childLine + "  marido$rui\n  mulher$eva\n"),
              (QStringList{"3: Há dois cônjuges de ana no mesmo lugar.", "3: ana e o seu cônjuge são do mesmo sexo."}));
    EXPECT_EQ(told("c$a/1/1/1702\n noivo$rui\n noiva$ana\n  marido1$gil\n  marido1$tome\n"),
              QStringList("3: Há dois cônjuges de ana no mesmo lugar."));
    EXPECT_EQ(told("c$a/1/1/1702\n noivo$rui\n noiva$ana\n  marido1$gil\n  marido2$tome\n"), QStringList());
}

TEST(KleioDamage, LeavesNothingOutOfAnAct)
{
    const Transcript read =
        readKleio(bookHead + "bap$a/1/1/1702\n xpto$1/x=2\n" + childLine + " bispo$dom rui/m\n ppad$gil\n");
    EXPECT_EQ(read.unknownParts, (QMap<QString, int>{{"xpto", 1}, {"bispo", 1}}));
    const Act act = read.acts.value(0).act;
    EXPECT_EQ(act.notes, "xpto$1/x=2");
    EXPECT_EQ(act.people[0].notes, "bispo$dom rui/m");
    EXPECT_EQ(act.people[1],
              (ActPerson{.role = Role::Mentioned, .name = {.value = "gil"}, .toldSex = Sex::Male, .notes = "ppad$"}));
}

TEST(KleioDamage, OfAnActOfAnotherKindStaysWithTheBook)
{
    const Transcript read = readKleio(bookHead + "bap$a/1/1/1702\n" + childLine +
                                      "crisma$c/2/1/1702\n n$rui\n  ls$ec/s\nbap$b/3/1/1702\n" + " n$eva/f\n");
    ASSERT_EQ(read.acts.size(), 2);
    EXPECT_EQ(read.acts[0].act.people.size(), 1);
    EXPECT_EQ(read.acts[1].act.people.size(), 1);
    EXPECT_EQ(read.sources.value(0).notes, "crisma$c/2/1/1702\nn$rui\nls$ec/s");
    EXPECT_EQ(read.unknownParts, (QMap<QString, int>{{"crisma", 1}, {"n", 1}, {"ls", 1}}));
}

TEST(KleioDamage, OfAnActOfAnotherKindIsNoPartOfTheActBeforeWithoutIndentation)
{
    for (const QByteArray other : {"crisma$k1/2/3/1702\n", "crisma$k1/data=1702\n", "crisma$k1\n"}) {
        const Transcript read = readKleio(bookHead + "bap$h1/1/1/1702\nn$ana/f\npai$rui/m\n" + other +
                                          "n$pedro/m\npai$gil/m\npad$simao/m\nls$ec/s\n");
        ASSERT_EQ(read.acts.size(), 1);
        EXPECT_EQ(read.acts[0].act.people.size(), 2) << other.toStdString();
        EXPECT_EQ(read.sources.value(0).notes,
                  QString::fromUtf8(other).trimmed() + "\nn$pedro/m\npai$gil/m\npad$simao/m\nls$ec/s");
    }
}

TEST(KleioDamage, OfAGroupWithoutADateTakesNobodyFromItsAct)
{
    const Transcript read = readKleio(bookHead + "bap$a/1/1/1702\n n$ana/f\nxpto$algo\n  pai$rui/m\n  mae$eva/f\n" +
                                      "bap$b/1/2/1702\nn$gil/m\nnota$1\npai$tome/m\nnota$2\n");
    ASSERT_EQ(read.acts.size(), 2);
    EXPECT_EQ(read.acts[0].act.people.size(), 3);
    EXPECT_EQ(read.acts[0].act.people[0].notes, "xpto$algo");
    EXPECT_EQ(read.acts[1].act.people.value(0).notes, "nota$1");
    EXPECT_EQ(read.acts[1].act.people.value(1).notes, "nota$2");
    EXPECT_EQ(read.sources.value(0).notes, "");
}

TEST(KleioDamage, OfANameWithANicknameInFrontSwallowsNoOtherElement)
{
    const QByteArray act = "bap$a/1/1/1702\n n$\"Ze\" Pedro/m/id=p7/obs=\"uma/nota\"\n";
    const ActPerson pedro = readKleio(bookHead + act).acts.value(0).act.people.value(0);
    EXPECT_EQ(pedro.name.value, "\"Ze\" Pedro");
    EXPECT_EQ(pedro.toldSex, Sex::Male);
    EXPECT_EQ(pedro.id, "p7");
    EXPECT_EQ(problemsOf(bookHead + act), QStringList("4: Há texto a seguir às aspas; fica tudo como está."));
}

TEST(KleioText, StaysUtf8WhereAFewBytesAreDamaged)
{
    const QByteArray acts = bookHead + "bap$a/1/1/1702/Agadão\n n$Conceição/f\n  pai$João Gonçalves/m\n  mae$An";
    const Transcript read = readKleio(acts + "\xE1/f\n");
    EXPECT_EQ(read.acts.value(0).act.people.value(0).name.value, "Conceição");
    EXPECT_EQ(read.acts.value(0).act.people.value(2).name.value, "An\uFFFD");
    EXPECT_EQ(problemsOf(acts + "\xE1/f\n"),
              QStringList("6: Há 1 caracteres perdidos numa conversão anterior; este é o primeiro."));
}

TEST(KleioText, SaysWhereItsEncodingWasGuessed)
{
    const QByteArray old = bookHead + "bap$a/1/1/1702\n n$Concei\xE7\xE3o/f\n";
    EXPECT_EQ(readKleio(old).encoding, "1252");
    EXPECT_NE(doubtOfEncoding("1252"), "");
    EXPECT_EQ(readKleio(bookHead + "bap$a/1/1/1702\n n$Conceição/f\n").encoding, "UTF-8");
    EXPECT_EQ(doubtOfEncoding("UTF-8"), "");
}

TEST(KleioText, IsReadInItsOwnEncoding)
{
    const QString text = "kleio$x\r\nfonte$b1\r\nbap$a/1/1/1702\r\n n$João Gonçalves €/m\r\n";
    const auto name = [](const QByteArray& bytes) {
        return readKleio(bytes).acts.value(0).act.people.value(0).name.value;
    };
    QByteArray old = text.toLatin1();
    old.replace("?/m", "\x80/m");
    EXPECT_EQ(name(text.toUtf8()), "João Gonçalves €");
    EXPECT_EQ(name("\xEF\xBB\xBF" + text.toUtf8()), "João Gonçalves €");
    EXPECT_EQ(name(old), "João Gonçalves €");
    QStringEncoder wide(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
    EXPECT_EQ(name(wide(text)), "João Gonçalves €");
    old.replace("\x80/m", "\x81/m");
    EXPECT_EQ(problemsOf(old), QStringList("4: Há 1 caracteres perdidos numa conversão anterior; este é o primeiro."));
}

} // namespace
