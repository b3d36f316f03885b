// orv-estudo smam.
#include "study/command/command.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

using namespace study;

namespace {

class TheCommandForSinglesByAge : public testing::Test
{
protected:
    // The list as a file, and what the command says of it.
    int orv(
        const QByteArray& list, const std::function<bool()>& goesOn = [] { return true; })
    {
        out_.clear();
        err_.clear();
        QFile file(path_);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(list);
        file.close();
        QTextStream out(&out_), err(&err_);
        return runCommand({"smam", path_}, out, err, goesOn);
    }
    void expectRefused(const QByteArray& list, const QString& why)
    {
        EXPECT_EQ(orv(list), notCounted) << list.constData();
        EXPECT_TRUE(err_.contains(path_ + ':' + why)) << qPrintable(err_);
        EXPECT_EQ(out_, "");
    }
    QString told(const char* age, const char* at50) const
    {
        return QString("%1: idade média ao primeiro casamento (SMAM, Hajnal) %2 anos; %3 % de solteiros aos 50 anos.\n")
            .arg(path_, age, at50);
    }

    QTemporaryDir folder_;
    QString path_ = folder_.filePath("lista.csv");
    QString out_, err_;
};

// 15 + 5 · 2.62 = 28.1; 14.5 % at 50; (28.1 − 7.25)/0.855 = 24.386
const QByteArray percents = "grupo;solteiros\n15–19;95\n20-24;62 %\n25 a 29;34,0\n30–34;22\n35–39;18\n40–44;16\n"
                            "45–49;15\n50–54 anos;14\n";

} // namespace

TEST_F(TheCommandForSinglesByAge, TakesThemInPercent)
{
    EXPECT_EQ(orv(percents), counted) << qPrintable(err_);
    EXPECT_EQ(out_, told("24,4", "14,5"));
    EXPECT_EQ(err_, "");
}

TEST_F(TheCommandForSinglesByAge, TakesThemInCountsBesideAll)
{
    EXPECT_EQ(orv("Idades,Solteiras,Todas\n50-54,14,100\n15-19,190,200\n20-24,124,200\n25-29,34,100\n30-34,11,50\n"
                  "35-39,9,50\n40-44,8,50\n45-49,3,20\n"),
              counted)
        << qPrintable(err_);
    EXPECT_EQ(out_, told("24,4", "14,5"));
}

TEST_F(TheCommandForSinglesByAge, TellsWhichRowsDontEnter)
{
    EXPECT_EQ(orv(percents + "55–59;13\ntotal;40\n"), counted) << qPrintable(err_);
    EXPECT_EQ(out_, told("24,4", "14,5"));
    EXPECT_EQ(err_, path_ + ":10: aviso: \"55–59\" não é um dos grupos de 15–19 a 50–54: não entra.\n" + path_ +
                        ":11: aviso: \"total\" não é um dos grupos de 15–19 a 50–54: não entra.\n");
}

TEST_F(TheCommandForSinglesByAge, RefusesAListByTheLineThatIsWrong)
{
    const auto with = [](const char* row, const char* instead) { return QByteArray(percents).replace(row, instead); };
    expectRefused(with("30–34;22", "30–34;muitos"), "5: \"muitos\" não é uma percentagem");
    expectRefused(with("30–34;22", "30–34;120"), "5: \"120\" não é uma percentagem");
    expectRefused(with("30–34;22", "30–34;-1"), "5: \"-1\" não é uma percentagem");
    expectRefused(with("30–34;22", "30–34;nan"), "5: \"nan\" não é uma percentagem");
    expectRefused(with("30–34;22", "30–35;22"), "0: Faltam os grupos: 30–34.");
    expectRefused(with("30–34;22", "25–29;22"), "5: O grupo 25–29 está duas vezes.");
    expectRefused(with("grupo", "nome"), "0: Falta a coluna \"grupo\"");
    expectRefused(with("solteiros", "casados"), "0: Falta a coluna \"solteiros\"");
    expectRefused("grupo;solteiros;todos\n15–19;9;8\n", "2: Os solteiros do grupo são mais do que todos.");
    expectRefused("grupo;solteiros;todos\n15–19;0;0\n", "2: O grupo não tem ninguém");
    expectRefused("grupo;solteiros;todos\n15–19;1.234;2.000\n", "2: \"1.234\" e \"2.000\" não são dois números");
    expectRefused("", "0: A tabela não tem nenhuma linha");
}

// "1.000" is a thousand, whatever follows the point.
TEST_F(TheCommandForSinglesByAge, RefusesCountsWithThePointOfThousands)
{
    const auto expectNoCounts = [this](const char* singles, const char* all) {
        expectRefused(
            QByteArray("grupo;solteiros;todos\n15–19;") + singles + ';' + all + '\n',
            QString("2: \"%1\" e \"%2\" não são dois números de pessoas, inteiros e sem pontos.").arg(singles, all));
    };
    expectNoCounts("1.000", "2.000");
    expectNoCounts("1,000", "2");
    expectNoCounts("900", "1.000");
    expectNoCounts("1", "2%");
}

TEST_F(TheCommandForSinglesByAge, RefusesSharesAndAPeopleThatNeverMarries)
{
    QByteArray shares = "grupo;solteiros\n", all = shares;
    for (int from = 15; from < 55; from += 5) {
        const QByteArray group = QByteArray::number(from) + '-' + QByteArray::number(from + 4);
        shares += group + ";0,95\n";
        all += group + ";100\n";
    }
    expectRefused(shares, "0: Nenhum valor passa de 1");
    expectRefused(all, "0: Aos 50 anos todos são solteiros");
}

TEST_F(TheCommandForSinglesByAge, EndsWith2WhereThereIsNoFileOrItIsInterrupted)
{
    EXPECT_EQ(orv(percents, [] { return false; }), notCounted);
    EXPECT_EQ(err_, "Interrompido.\n");
    path_ = folder_.filePath("outra.csv");
    QTextStream out(&out_), err(&err_);
    err_.clear();
    EXPECT_EQ(runCommand({"smam", path_}, out, err, [] { return true; }), notCounted);
    EXPECT_TRUE(err_.contains("não existe")) << qPrintable(err_);
    EXPECT_EQ(runCommand({"smam"}, out, err, [] { return true; }), wrongUsage);
}
