// orv-estudo contagens, juntar, relatorio, tabelas.
#include "study/people.h"

#include "study/command/command.h"
#include "study/indicators/settingsJson.h"
#include "study/indicators/studyReport.h"
#include "workingFolder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

using namespace study;
using indicators::Tallies;

namespace {

class TheCommandThatCounts : public People
{
protected:
    TheCommandThatCounts()
    {
        run("insert into infopar (cod, nome) values ('030899', 'Moinhos')");
        const qint64 rui = person({"Rui", 'm', "1700-02-14", "1760-02-15"});
        const qint64 ana = person({"Ana", 'f', "1705-02-14", "1770-02-15"});
        const qint64 family = couple(rui, ana, "1725-01-10");
        person({"Eva", 'f', "1726-05-05", "1726-06-05", family});
    }

    int orv(
        const QStringList& arguments, const std::function<bool()>& goesOn = [] { return true; })
    {
        out_.clear();
        err_.clear();
        QTextStream out(&out_), err(&err_);
        return runCommand(arguments, out, err, goesOn);
    }
    static QByteArray bytes(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void write(const QString& name, const QByteArray& bytes)
    {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    // A second parish, of the same people but for one, and its counts and those of the first one as files.
    void countTwo()
    {
        ASSERT_EQ(orv({"contagens", path()}), counted) << qPrintable(err_);
        write("a.json", out_.toUtf8());
        bdp.close();
        QFile::copy(path(), "b.orv");
        bdp.open(path());
        jet::Connection other;
        other.open(folder.filePath("b.orv"));
        other.execute(jet::NativeSql("update infopar set nome = 'Vale', cod = '030898'"));
        other.close();
        ASSERT_EQ(orv({"contagens", "b.orv"}), counted) << qPrintable(err_);
        write("b.json", out_.toUtf8());
    }
    void expectRefused(const QStringList& arguments, const QString& why)
    {
        EXPECT_EQ(orv(arguments), notCounted) << qPrintable(arguments.join(' '));
        EXPECT_TRUE(err_.contains(why)) << qPrintable(err_);
        EXPECT_EQ(out_, "");
    }

    WorkingFolder there_{folder.path()};
    QString out_, err_;
};

} // namespace

TEST_F(TheCommandThatCounts, TellsItsCountsWithWhatTheyAreOf)
{
    indicators::Settings settings;
    settings.cohortYears = 25;
    keepSettings(bdp, settings);
    const QByteArray before = bytes(path());
    EXPECT_EQ(orv({"contagens", "a.orv"}), counted) << qPrintable(err_);
    EXPECT_EQ(err_, "");
    const Tallies tallies = indicators::talliesFrom(out_.toUtf8());
    ASSERT_EQ(tallies.parishes.size(), 1);
    const indicators::Counted& parish = tallies.parishes[0];
    EXPECT_EQ(parish.settings, settings);
    EXPECT_EQ(parish.name, "Moinhos");
    EXPECT_EQ(parish.source.path, QFileInfo("a.orv").absoluteFilePath());
    EXPECT_EQ(parish.source.bytes, before.size());
    EXPECT_EQ(parish.source.sha256,
              QString::fromLatin1(QCryptographicHash::hash(before, QCryptographicHash::Sha256).toHex()));
    EXPECT_LT(parish.source.readAt.secsTo(QDateTime::currentDateTime()), 60);
    EXPECT_EQ(tallies.bySubject.size(), indicators::subjects().size());
    EXPECT_TRUE(bytes(path()) == before);
}

TEST_F(TheCommandThatCounts, TakesABdpThatIsInWorkOrThatNobodyMayWrite)
{
    bdp.close();
    {
        jet::Connection alone;
        alone.open(path(), jet::Connection::Sharing::Alone);
        EXPECT_EQ(orv({"contagens", path()}), counted) << qPrintable(err_);
    }
    const QByteArray before = bytes(path());
    QFile::setPermissions(path(), QFile::ReadOwner | QFile::ReadUser);
    EXPECT_EQ(orv({"contagens", path()}), counted) << qPrintable(err_);
    EXPECT_TRUE(bytes(path()) == before);
    QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser);
}

// What was read is of the state whose mark is told.
TEST_F(TheCommandThatCounts, ReadsAgainWhereSomebodyHasWrittenMeanwhile)
{
    int asked = 0;
    const auto writeOnce = [&] {
        if (++asked == 2) elsewhere("update individuo set nome = 'Gil' where nind = 1");
        return true;
    };
    EXPECT_EQ(orv({"contagens", path()}, writeOnce), counted) << qPrintable(err_);
    const Tallies tallies = indicators::talliesFrom(out_.toUtf8());
    EXPECT_EQ(tallies.parishes.at(0).source.sha256,
              QString::fromLatin1(QCryptographicHash::hash(bytes(path()), QCryptographicHash::Sha256).toHex()));
}

TEST_F(TheCommandThatCounts, JoinsTheCountsOfParishes)
{
    countTwo();
    EXPECT_EQ(orv({"juntar", "a.json", "b.json"}), counted) << qPrintable(err_);
    const Tallies both = indicators::talliesFrom(out_.toUtf8());
    EXPECT_EQ(both, joined(indicators::talliesFrom(bytes("a.json")), indicators::talliesFrom(bytes("b.json"))));
    EXPECT_EQ(orv({"juntar", "a.json"}), counted);
    EXPECT_EQ(out_.toUtf8(), bytes("a.json"));
}

TEST_F(TheCommandThatCounts, JoinsNothingThatDiffersOrIsDamaged)
{
    countTwo();
    expectRefused({"juntar", "a.json", "a.json"}, "a.json: As contagens não se podem juntar: a BDP \"");
    expectRefused({"juntar", "a.json", "nada.json"}, "O ficheiro \"nada.json\" não existe.");
    write("mau.json", "{");
    expectRefused({"juntar", "a.json", "mau.json"}, "mau.json: Isto não é um ficheiro de contagens.");
    expectRefused({"juntar", "a.json", "b.orv"}, "b.orv: Isto não é um ficheiro de contagens.");
    write("c.json", bytes("b.json").replace(R"("anos_da_coorte":50)", R"("anos_da_coorte":10)"));
    expectRefused({"juntar", "a.json", "c.json"},
                  "c.json: As contagens não se podem juntar: foram feitas com ajustes diferentes (anos de cada coorte");
}

TEST_F(TheCommandThatCounts, MakesAPageOfFilesAndOfCounts)
{
    countTwo();
    EXPECT_EQ(orv({"relatorio", "a.orv", "b.json", "-o", "relatorio.html"}), counted) << qPrintable(err_);
    EXPECT_EQ(out_, "");
    const QString page = QString::fromUtf8(bytes("relatorio.html"));
    EXPECT_TRUE(page.startsWith("<!DOCTYPE html>"));
    for (const char* told : {"Moinhos e Vale", "Nupcialidade", "Período dos acontecimentos", "ORV ", "SHA-256"})
        EXPECT_TRUE(page.contains(told)) << told;
    for (const auto* subject : indicators::subjects())
        EXPECT_TRUE(page.contains(QString(subject->title).toHtmlEscaped())) << subject->title;
    EXPECT_EQ(orv({"relatorio", "a.orv", "-o", "relatorio.html"}), counted) << "over its own";
    EXPECT_FALSE(bytes("relatorio.html").contains("Vale"));
}

TEST_F(TheCommandThatCounts, WritesNoPageOverAnythingElse)
{
    countTwo();
    write("carta.txt", "Exmo. Senhor\n");
    QFile::link("a.orv", "atalho.html");
    for (const char* target : {"carta.txt", "a.orv", "a.json", "atalho.html", "."}) {
        const QByteArray before = bytes(target);
        expectRefused({"relatorio", "a.orv", "-o", target}, "não é uma página HTML");
        EXPECT_TRUE(bytes(target) == before);
    }
    expectRefused({"relatorio", "a.orv", "-o", "nada/fora.html"}, "fora.html");
}

TEST_F(TheCommandThatCounts, WritesTablesWithTheirDescription)
{
    EXPECT_EQ(orv({"tabelas", "a.orv", "-o", "quadros"}), counted) << qPrintable(err_);
    const QStringList files = QDir("quadros").entryList(QDir::Files);
    EXPECT_TRUE(files.contains("datapackage.json"));
    EXPECT_GT(files.filter(".csv").size(), indicators::subjects().size());
    EXPECT_EQ(orv({"tabelas", "a.orv", "-o", "quadros"}), counted) << "over its own: " << qPrintable(err_);
    const QString table = "quadros/" + files.filter(".csv").first();
    write(table, bytes(table) + "1,2\n");
    expectRefused({"tabelas", "a.orv", "-o", "quadros"}, "já existe e foi alterado depois de escrito");
    write("quadros/datapackage.json", "{}");
    expectRefused({"tabelas", "a.orv", "-o", "quadros"}, "já existe e não foi escrito por um estudo");
    expectRefused({"tabelas", "a.orv", "-o", "nada/quadros"}, "A pasta \"nada/quadros\" não pode ser criada.");
}

TEST_F(TheCommandThatCounts, EndsWith2WhereItCannot)
{
    expectRefused({"contagens"}, "Falta um argumento");
    expectRefused({"contagens", "a.orv", "b.orv"}, "Não se entende");
    expectRefused({"juntar"}, "Falta um argumento");
    expectRefused({"relatorio", "a.orv"}, "Falta um argumento: -o");
    expectRefused({"tabelas", "-o", "quadros"}, "Falta um argumento");
    expectRefused({"contagens", "nada.orv"}, "nada.orv");
    write("mau.orv", "isto não é uma BDP");
    expectRefused({"relatorio", "mau.orv", "-o", "r.html"}, "mau.orv");
    EXPECT_FALSE(QFile::exists("r.html"));
    EXPECT_EQ(orv({"tabelas", "a.orv", "-o", "quadros"}, [] { return false; }), notCounted);
    EXPECT_EQ(err_, "Interrompido. Nada foi escrito.\n");
    EXPECT_FALSE(QFile::exists("quadros"));
}

TEST_F(TheCommandThatCounts, NeedsWindowsOnlyForAPage)
{
    EXPECT_TRUE(needsWindows({"relatorio", "a.orv", "-o", "r.html"}));
    for (const QStringList& arguments : {QStringList{"tabelas", "a.orv", "-o", "x"}, QStringList{"contagens", "a.orv"},
                                         QStringList{"relatorio"}, QStringList{"--ajuda"}, QStringList{}})
        EXPECT_FALSE(needsWindows(arguments)) << qPrintable(arguments.join(' '));
}
