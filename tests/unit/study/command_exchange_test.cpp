// orv-estudo exportar gedcom, importar gedcom.
#include "study/gedcomGrammar.h"
#include "study/people.h"

#include "study/command/command.h"
#include "study/command/usage.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

using namespace study;

namespace {

class TheExportOfAParish : public People
{
protected:
    TheExportOfAParish() { person({"Eva Dias", 'f', "1750-03-10"}); }
    int orv(const QStringList& arguments, bool goesOn = true)
    {
        out_.clear();
        err_.clear();
        QTextStream out(&out_), err(&err_);
        return runCommand(arguments, out, err, [goesOn] { return goesOn; });
    }
    QString target() const { return folder.filePath("a.ged"); }
    QByteArray bytes() const
    {
        QFile file(target());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QString out_, err_;
};

} // namespace

TEST_F(TheExportOfAParish, IsGedcom551OrThatOf70)
{
    ASSERT_EQ(orv({"exportar", "gedcom", path(), target()}), done) << qPrintable(err_);
    EXPECT_EQ(out_, "Pessoas: 1; famílias: 0.\n");
    EXPECT_TRUE(bytes().contains("\n2 VERS 5.5.1\n"));
    ASSERT_EQ(orv({"exportar", "gedcom", path(), target(), "--versao", "7.0"}), done) << qPrintable(err_);
    EXPECT_TRUE(bytes().contains("\n2 VERS 7.0\n"));
    const QStringList problems = gedcom::problemsOf(gedcom::read(bytes(), false), false);
    EXPECT_TRUE(problems.isEmpty()) << qPrintable(problems.join('\n'));
}

TEST_F(TheExportOfAParish, LeavesOutWhoMayBeAliveByTheLimitOfTheUser)
{
    const int year = QDate::currentDate().year();
    person({"Nova", 'f', QByteArray::number(year - 50) + "-01-01"});
    ASSERT_EQ(orv({"exportar", "gedcom", path(), target()}), done);
    EXPECT_EQ(out_, "Pessoas: 1; famílias: 0.\nPodem estar vivas e não foram: 1 pessoas.\n");
    EXPECT_FALSE(bytes().contains("Nova"));
    ASSERT_EQ(orv({"exportar", "gedcom", path(), target(), "--limite", "40"}), done);
    EXPECT_TRUE(bytes().contains("Nova"));
}

TEST_F(TheExportOfAParish, TakesTheDaysThatTheNotesTell)
{
    run("update individuo set obs = 'n. 8/3/1750' where nind = 1");
    ASSERT_EQ(orv({"baptismos", path(), "--nascido", "n.", "--gravar"}), counted) << qPrintable(err_);
    ASSERT_EQ(orv({"exportar", "gedcom", path(), target()}), done) << qPrintable(err_);
    EXPECT_TRUE(bytes().contains("1 BIRT\n2 DATE 8 MAR 1750\n")) << bytes().constData();
    EXPECT_TRUE(bytes().contains("1 CHR\n2 DATE 10 MAR 1750\n")) << bytes().constData();
}

TEST_F(TheExportOfAParish, TakesTheDatesOfTheCardsForWhatTheUserSays)
{
    const QStringList order{"exportar", "gedcom", path(), target()};
    ASSERT_EQ(orv(order + QStringList{"--datas", "birt"}), done) << qPrintable(err_);
    EXPECT_TRUE(bytes().contains("1 BIRT\n2 DATE 10 MAR 1750\n"));
    EXPECT_FALSE(bytes().contains("1 CHR"));
    ASSERT_EQ(orv(order + QStringList{"--datas", "bapm"}), done) << qPrintable(err_);
    EXPECT_TRUE(bytes().contains("1 BIRT\n2 DATE ABT 10 MAR 1750\n"));
    EXPECT_TRUE(bytes().contains("1 BAPM\n2 DATE 10 MAR 1750\n"));
    ASSERT_EQ(orv(order + QStringList{"--datas", "chr"}), done) << qPrintable(err_);
    EXPECT_TRUE(bytes().contains("1 CHR\n2 DATE 10 MAR 1750\n"));
    EXPECT_EQ(orv(order + QStringList{"--datas", "todas"}), wrongUsage);
    EXPECT_TRUE(err_.startsWith("As datas são chr, bapm ou birt, e não \"todas\".")) << qPrintable(err_);
}

TEST_F(TheExportOfAParish, HasWhoStoodByTwiceWhereThatWasAsked)
{
    person({"Inês", 'f', "1700-01-02"});
    run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) "
        "values ('b', 1, '1750-03-10', 2, 'p')");
    const QStringList order{"exportar", "gedcom", path(), target()};
    ASSERT_EQ(orv(order), done) << qPrintable(err_);
    EXPECT_TRUE(bytes().contains("\n1 ASSO @I2@\n2 RELA Godparent\n"));
    EXPECT_FALSE(bytes().contains("_ASSO"));
    ASSERT_EQ(orv(order + QStringList{"--associacoes"}), done) << qPrintable(err_);
    EXPECT_TRUE(bytes().contains("\n2 _ASSO @I2@\n3 RELA Godparent\n"));
    ASSERT_EQ(orv(order + QStringList{"--versao", "7.0"}), done) << qPrintable(err_);
    EXPECT_FALSE(bytes().contains("\n1 ASSO"));
    ASSERT_EQ(orv(order + QStringList{"--versao", "7.0", "--associacoes"}), done) << qPrintable(err_);
    EXPECT_TRUE(bytes().contains("\n1 ASSO @I2@\n2 ROLE GODP\n"));
    EXPECT_TRUE(bytes().contains("\n2 ASSO @I2@\n3 ROLE GODP\n"));
}

TEST_F(TheExportOfAParish, WritesNothingWhereItIsInterruptedOrRefused)
{
    EXPECT_EQ(orv({"exportar", "gedcom", path(), target()}, false), refused);
    EXPECT_EQ(err_, "Interrompido. Nada foi escrito.\n");
    EXPECT_EQ(orv({"exportar", "gedcom", path(), path()}), refused) << "over the BDP itself";
    EXPECT_EQ(orv({"exportar", "gedcom", folder.filePath("nada.orv"), target()}), refused);
    EXPECT_EQ(bytes(), "");
}

TEST_F(TheExportOfAParish, SaysWhichArgumentItDoesNotUnderstand)
{
    EXPECT_EQ(orv({"exportar", "gedcom", path()}), wrongUsage);
    EXPECT_EQ(orv({"exportar", "gedcom", path(), target(), "--versao", "6"}), wrongUsage);
    EXPECT_TRUE(err_.startsWith("A versão é 5.5.1 ou 7.0, e não \"6\".")) << qPrintable(err_);
    EXPECT_EQ(orv({"exportar", "gedcom", path(), target(), "--limite", "-1"}), wrongUsage);
    EXPECT_EQ(orv({"exportar", "gedcom", path(), target(), "--limite", "muitos"}), wrongUsage);
    EXPECT_TRUE(err_.startsWith("O limite é um número de anos")) << qPrintable(err_);
    EXPECT_TRUE(helpText().contains("exportar gedcom PAROQUIA.orv ALVO.ged"));
    EXPECT_FALSE(helpText().contains('@'));
}

TEST_F(TheExportOfAParish, IsEpisodesInAFolderOfTheirOwn)
{
    const QString to = folder.filePath("episodios");
    const auto written = [&to](const char* name) {
        QFile file(QDir(to).filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    person({"Nova", 'f', QByteArray::number(QDate::currentDate().year() - 50) + "-01-01"});
    ASSERT_EQ(orv({"exportar", "episodios", path(), to}), done) << qPrintable(err_);
    EXPECT_TRUE(out_.startsWith("pessoas: 1\nfamilias: 0\nfecundidade: 0\n")) << qPrintable(out_);
    EXPECT_TRUE(out_.endsWith("Podem estar vivas e não foram: 1 pessoas.\n")) << qPrintable(out_);
    EXPECT_TRUE(written("datapackage.json").contains("SHA-256"));
    ASSERT_EQ(orv({"exportar", "episodios", path(), to, "--limite", "0"}), done) << qPrintable(err_);
    EXPECT_TRUE(out_.startsWith("pessoas: 2\n")) << qPrintable(out_);

    const QByteArray before = written("pessoas.csv");
    EXPECT_EQ(orv({"exportar", "episodios", path(), to}, false), refused);
    EXPECT_EQ(err_, "Interrompido. Nada foi escrito.\n");
    EXPECT_EQ(written("pessoas.csv"), before);
    EXPECT_EQ(orv({"exportar", "episodios", path()}), wrongUsage);
    EXPECT_EQ(orv({"exportar", "episodios", path(), to, "--limite", "muitos"}), wrongUsage);
    EXPECT_TRUE(helpText().contains("exportar episodios PAROQUIA.orv PASTA"));
}

TEST_F(TheExportOfAParish, IsImportedRehearsedAndTakenBack)
{
    ASSERT_EQ(orv({"exportar", "gedcom", path(), target()}), done) << qPrintable(err_);
    const auto people = [&] {
        const jet::Recordset row(bdp, jet::NativeSql("select count(*) from individuo"));
        return row[0].toInt();
    };
    bdp.close();
    const QStringList import{"importar", "gedcom", target(), "--bdp", path()};
    EXPECT_EQ(orv(import + QStringList("--ensaio")), done) << qPrintable(err_);
    EXPECT_TRUE(out_.endsWith("Pessoas: 1; famílias: 0.\nEnsaio: nada foi escrito.\n")) << qPrintable(out_);
    EXPECT_EQ(orv(import), done) << qPrintable(err_);
    EXPECT_TRUE(out_.startsWith("Cópia da BDP: ")) << qPrintable(out_);
    bdp.open(path());
    EXPECT_EQ(people(), 2);
    bdp.close();
    const QStringList back{"importar", "gedcom", "--bdp", path(), "--desfazer"};
    const QDir copies(QFileInfo(path()).absolutePath() + "/copias");
    EXPECT_EQ(orv(back + QStringList("--ensaio")), done) << qPrintable(err_);
    EXPECT_TRUE(copies.entryList({"*_antes de desfazer_*"}).isEmpty());
    EXPECT_EQ(orv(back), done) << qPrintable(err_);
    const QString copy = copies.filePath(copies.entryList({"*_antes de desfazer_*"}).value(0));
    EXPECT_TRUE(out_.startsWith("Cópia da BDP: " + copy + '\n')) << qPrintable(out_);
    bdp.open(copy);
    EXPECT_EQ(people(), 2) << "as it was with the import";
    bdp.close();
    EXPECT_TRUE(out_.endsWith("1 pessoas, 0 famílias.\nFoi desfeita.\n")) << qPrintable(out_);
    EXPECT_EQ(orv(back), refused);
    EXPECT_EQ(err_, "Não há nenhuma importação para desfazer.\nNada foi desfeito.\n");
    bdp.open(path());
    EXPECT_EQ(people(), 1);
}

TEST_F(TheExportOfAParish, IsNeitherImportedNorTakenBackWhereNoCopyCanBeMade)
{
    ASSERT_EQ(orv({"exportar", "gedcom", path(), target()}), done) << qPrintable(err_);
    bdp.close();
    const QStringList import{"importar", "gedcom", target(), "--bdp", path()};
    ASSERT_EQ(orv(import), done) << qPrintable(err_);
    const QString copies = folder.filePath("copias");
    ASSERT_TRUE(QDir(copies).removeRecursively());
    QFile inTheWay(copies);
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    for (const QStringList& order : {import, QStringList{"importar", "gedcom", "--bdp", path(), "--desfazer"}}) {
        EXPECT_EQ(orv(order), refused);
        EXPECT_EQ(out_, "") << "no copy is told of";
        EXPECT_TRUE(err_.startsWith("Não é possível criar a pasta \"" + copies)) << qPrintable(err_);
    }
    bdp.open(path());
    EXPECT_EQ(jet::Recordset(bdp, "select * from individuo").recordCount(), 2);
}

TEST_F(TheExportOfAParish, IsNotImportedFromWhatIsNoFile)
{
    bdp.close();
    const auto refusal = [&](const QString& file) {
        EXPECT_EQ(orv({"importar", "gedcom", file, "--bdp", path()}), refused);
        return err_.section('\n', 0, 0);
    };
    EXPECT_EQ(refusal(target()), "O ficheiro \"" + target() + "\" não existe.");
    EXPECT_EQ(refusal(folder.path()), '"' + folder.path() + "\" é uma pasta, e não um ficheiro.");
}

TEST_F(TheExportOfAParish, IsImportedOnlyWhereAFileIsNamed)
{
    EXPECT_EQ(orv({"importar", "gedcom", "--bdp", path()}), wrongUsage);
    EXPECT_EQ(orv({"importar", "gedcom", target(), "--bdp", path(), "--desfazer"}), wrongUsage);
    bdp.close();
    EXPECT_EQ(orv({"importar", "gedcom", target(), "--bdp", path()}), refused);
    EXPECT_TRUE(err_.contains("a.ged")) << qPrintable(err_);
}
