// orv-estudo definicoes, baptismos.
#include "study/people.h"

#include "study/command/command.h"
#include "study/indicators/settingsJson.h"

#include <QFile>
#include <QTextStream>

using namespace study;

namespace {

class TheCommandThatSets : public People
{
protected:
    int orv(const QStringList& arguments)
    {
        bdp.close();
        out_.clear();
        err_.clear();
        QTextStream out(&out_), err(&err_);
        const int end = runCommand(arguments, out, err, [] { return true; });
        out.flush();
        err.flush();
        bdp.open(path());
        return end;
    }
    QString written(const char* name, const QByteArray& bytes) const
    {
        QFile file(folder.filePath(QString(name)));
        if (file.open(QIODevice::WriteOnly)) file.write(bytes);
        return file.fileName();
    }
    indicators::Settings kept() const { return indicators::keptSettings(bdp); }

    QString out_, err_;
};

} // namespace

TEST_F(TheCommandThatSets, TellsTheSettingsAndKeepsThoseOfAFile)
{
    EXPECT_EQ(orv({"definicoes", path()}), counted) << qPrintable(err_);
    EXPECT_EQ(indicators::settingsFrom(out_.toUtf8()), indicators::Settings());
    const QString set = written("a.json", R"({"base_do_indice": 1750, "causas_de_morte": {"tiro": "acidente"}})");
    EXPECT_EQ(orv({"definicoes", path(), "--de", set}), counted) << qPrintable(err_);
    EXPECT_EQ(kept().indexBase, 1750);
    EXPECT_EQ(kept().causes.value("tiro"), "acidente");
    EXPECT_EQ(orv({"definicoes", path(), "--de", written("b.json", R"({"sinal_desde": "um"})")}), notCounted);
    EXPECT_TRUE(err_.contains("sinal_desde")) << qPrintable(err_);
    EXPECT_EQ(kept().indexBase, 1750) << "as it was";
}

TEST_F(TheCommandThatSets, ShowsWhatNotesTellBeforeItIsUsed)
{
    const qint64 child = person({"Rui", 'm', "1750-03-10"});
    run("update individuo set obs = 'Nasceu a 2 de Março.' where nind = ?", {child});
    EXPECT_EQ(orv({"baptismos", path(), "--nascido", "nasceu a"}), counted) << qPrintable(err_);
    EXPECT_TRUE(out_.contains("1 Rui: nascimento 02/03/1750, baptismo 10/03/1750, 8 dias. Notas: \"Nasceu a 2 de "
                              "Março.\"\n"))
        << qPrintable(out_);
    EXPECT_TRUE(out_.endsWith("Nada foi guardado.\n")) << qPrintable(out_);
    EXPECT_EQ(kept(), indicators::Settings());
    EXPECT_EQ(orv({"baptismos", path(), "--nascido", "nasceu a", "--gravar"}), counted) << qPrintable(err_);
    EXPECT_EQ(kept().birthWords, "nasceu a");
}

TEST_F(TheCommandThatSets, TakesAListWholeOrNotAtAll)
{
    person({"Rui", 'm', "1750-03-10"});
    person({"Gil", 'm', "1750-03-10"});
    const QString list =
        written("a.csv", "nind;data_nascimento;data_baptismo\n1;1750-03-01;1750-03-10\n2;8/3/1750;10/3/1750\n");
    EXPECT_EQ(orv({"baptismos", path(), "--lista", list, "--gravar"}), counted) << qPrintable(err_);
    ASSERT_EQ(kept().baptisms.size(), 2U);
    EXPECT_EQ(kept().baptisms.at(parish::PersonNumber(2)),
              (indicators::BaptismDays{QDate(1750, 3, 8), QDate(1750, 3, 10)}));
    const auto expectRefused = [&](const QByteArray& rows, const QString& why) {
        const QString bad = written("b.csv", "nind;data_nascimento;data_baptismo\n" + rows);
        EXPECT_EQ(orv({"baptismos", path(), "--lista", bad, "--gravar"}), notCounted) << rows.constData();
        EXPECT_TRUE(err_.contains(why)) << qPrintable(err_);
        EXPECT_EQ(kept().baptisms.size(), 2U) << "as it was";
    };
    expectRefused("1;1750-03-01;1750-03-10\n7;1750-03-01;1750-03-10\n", "b.csv:3: \"7\" não é o número de ninguém");
    expectRefused("1;1750-03-01;1750-13-10\n", "b.csv:2: As datas escrevem-se");
    expectRefused("1;1750-03-01;1750-03-10\n1;1750-03-01;1750-03-10\n",
                  "b.csv:3: A criança 1 está na lista duas vezes.");
    EXPECT_EQ(orv({"baptismos", path(), "--lista", written("c.csv", "nind;nascimento\n1;1750-03-01\n")}), notCounted);
    EXPECT_TRUE(err_.contains("falta a coluna \"data_nascimento\"")) << qPrintable(err_);
}

// Thursday 4 October 1582 was followed by Friday the 15th.
TEST_F(TheCommandThatSets, ShowsTheDaysOfADelayAsTheyAreCounted)
{
    person({"Rui", 'm', "1582-10-16"});
    const QString list = written("a.csv", "nind;data_nascimento;data_baptismo\n1;1582-10-02;1582-10-16\n");
    EXPECT_EQ(orv({"baptismos", path(), "--lista", list}), counted) << qPrintable(err_);
    EXPECT_TRUE(out_.contains("baptismo 16/10/1582, 4 dias. Lista.\n")) << qPrintable(out_);
}
