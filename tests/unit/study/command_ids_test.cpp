// orv-estudo exportar ids.
#include "study/people.h"

#include "study/command/command.h"
#include "study/command/usage.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

using namespace study;

namespace {

class TheIdsOfAParish : public People
{
protected:
    TheIdsOfAParish() { person({"Eva Dias", 'f', "1750-03-10"}); }
    int orv(const QStringList& arguments, bool goesOn = true)
    {
        out_.clear();
        err_.clear();
        QTextStream out(&out_), err(&err_);
        return runCommand(arguments, out, err, [goesOn] { return goesOn; });
    }
    QString target() const { return folder.filePath("ids"); }
    QByteArray bytes(const QString& name) const
    {
        QFile file(QDir(target()).filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QString out_, err_;
};

} // namespace

TEST_F(TheIdsOfAParish, IsSixTablesInAFolder)
{
    ASSERT_EQ(orv({"exportar", "ids", path(), target(), "--data", "2026-11-03"}), done) << qPrintable(err_);
    EXPECT_TRUE(out_.startsWith("INDIVIDUAL: ")) << qPrintable(out_);
    QStringList files = QDir(target()).entryList(QDir::Files);
    files.sort();
    EXPECT_EQ(files.join(' '), "CONTEXT.csv CONTEXT_CONTEXT.csv INDIVIDUAL.csv INDIV_CONTEXT.csv INDIV_INDIV.csv "
                               "METADATA.csv datapackage.json");
    EXPECT_TRUE(bytes("INDIVIDUAL.csv").contains(",ORV_20261103,1,,Name_original,Eva Dias,"))
        << bytes("INDIVIDUAL.csv").constData();
    ASSERT_EQ(orv({"exportar", "ids", path(), target(), "--maiusculas", "--relacao-inversa", "--filhos-em-casa"}), done)
        << "over its own files";
    EXPECT_TRUE(bytes("INDIVIDUAL.csv").contains(",BIRTH_DATE,"));
    EXPECT_TRUE(bytes("METADATA.csv").contains("Id_I_2 is the Relation of Id_I_1"));
    EXPECT_TRUE(bytes("METADATA.csv").contains("children at home"));
    EXPECT_FALSE(bytes("INDIVIDUAL.csv").contains("ORV_20261103"));
}

TEST_F(TheIdsOfAParish, TakesTheDayOfTheFileWhereNoneIsGiven)
{
    bdp.close();
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime(QDate(2025, 2, 3), QTime(12, 0)), QFileDevice::FileModificationTime));
    file.close();
    ASSERT_EQ(orv({"exportar", "ids", path(), target()}), done) << qPrintable(err_);
    EXPECT_TRUE(bytes("INDIVIDUAL.csv").contains(",ORV_20250203,1,")) << bytes("INDIVIDUAL.csv").constData();
}

TEST_F(TheIdsOfAParish, LeavesOutWhoMayBeAliveByTheLimitOfTheUser)
{
    const int year = QDate::currentDate().year();
    person({"Nova", 'f', QByteArray::number(year - 50) + "-01-01"});
    ASSERT_EQ(orv({"exportar", "ids", path(), target()}), done);
    EXPECT_TRUE(out_.contains("Podem estar vivas e não foram: 1 pessoas.\n")) << qPrintable(out_);
    EXPECT_FALSE(bytes("INDIVIDUAL.csv").contains("Nova"));
    ASSERT_EQ(orv({"exportar", "ids", path(), target(), "--limite", "40"}), done);
    EXPECT_TRUE(bytes("INDIVIDUAL.csv").contains("Nova"));
}

TEST_F(TheIdsOfAParish, CountsFiliationsAsTheStudyOfTheBdpDoes)
{
    run("update individuo set filiacao = 99 where nind = 1");
    ASSERT_EQ(orv({"exportar", "ids", path(), target()}), done);
    EXPECT_TRUE(out_.contains("Filiações que não contam como legítimas nem como ilegítimas: 1.\n"));
}

TEST_F(TheIdsOfAParish, WritesNothingWhereItIsInterruptedOrRefused)
{
    EXPECT_EQ(orv({"exportar", "ids", path(), target()}, false), refused);
    EXPECT_EQ(err_, "Interrompido. Nada foi escrito.\n");
    EXPECT_EQ(QDir(target()).entryList(QDir::Files | QDir::Hidden), QStringList());
    EXPECT_EQ(orv({"exportar", "ids", folder.filePath("nada.orv"), target()}), refused);
    EXPECT_FALSE(QFileInfo::exists(target())) << "a folder that was made for nothing";
    ASSERT_TRUE(QDir().mkpath(target()));
    QFile other(QDir(target()).filePath("METADATA.csv"));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("de outrem");
    other.close();
    EXPECT_EQ(orv({"exportar", "ids", path(), target()}), refused);
    EXPECT_TRUE(err_.contains("METADATA.csv já existe")) << qPrintable(err_);
    EXPECT_EQ(QDir(target()).entryList(QDir::Files | QDir::Hidden), QStringList("METADATA.csv"));
}

TEST_F(TheIdsOfAParish, SaysWhichArgumentItDoesNotUnderstand)
{
    EXPECT_EQ(orv({"exportar", "ids", path()}), wrongUsage);
    EXPECT_EQ(orv({"exportar", "ids", path(), target(), "--data", "ontem"}), wrongUsage);
    EXPECT_TRUE(err_.startsWith("A data é AAAA-MM-DD, e não \"ontem\".")) << qPrintable(err_);
    EXPECT_EQ(orv({"exportar", "ids", path(), target(), "--limite", "muitos"}), wrongUsage);
    EXPECT_TRUE(helpText().contains("exportar ids PAROQUIA.orv PASTA [--maiusculas]"));
}
