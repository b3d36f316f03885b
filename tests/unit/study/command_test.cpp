#include "study/command/command.h"

#include "store/session.h"
#include "study/acts/register.h"
#include "study/tellings.h"
#include "workingFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

using namespace study;

namespace {

const QByteArray good = "kleio$x\nfonte$b1\nbap$a/1/1/1700\n n$ana/f\n  pai$rui/m\n";

class StudyCommand : public SmallParish
{
protected:
    StudyCommand() : path_(cnBDP.dataSource())
    {
        cnBDP.commitTrans();
        cnBDP.close();
        write("bom.cli", good);
    }

    static void write(const QString& name, const QByteArray& bytes)
    {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    static QByteArray read(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    int run(
        const QStringList& arguments, const std::function<bool()>& goesOn = [] { return true; })
    {
        out_.clear();
        err_.clear();
        QTextStream out(&out_);
        QTextStream err(&err_);
        return runCommand(arguments, out, err, goesOn);
    }
    QByteArray bdp() const { return read(path_); }
    int actsStored()
    {
        jet::Connection opened;
        opened.open(path_);
        return hasActs(opened) ? int(listActs(opened).size()) : 0;
    }

    QString path_;
    WorkingFolder there_{QFileInfo(path_).path()};
    QString out_;
    QString err_;
};

TEST_F(StudyCommand, ImportsAFileAndTellsWhereTheCopyIs)
{
    EXPECT_EQ(run({"importar", "kleio", "bom.cli", "--bdp", path_}), done) << qPrintable(err_);
    EXPECT_EQ(err_, "");
    EXPECT_TRUE(out_.startsWith("Cópia da BDP: ")) << qPrintable(out_);
    EXPECT_TRUE(out_.contains("Actos no ficheiro: 1. Guardados: 1 baptismo.")) << qPrintable(out_);
    EXPECT_EQ(QDir("copias").entryList({"*antes de importar*"}).size(), 1);
    EXPECT_EQ(actsStored(), 1);
}

TEST_F(StudyCommand, RehearsesAndChangesNothing)
{
    const QByteArray before = bdp();
    EXPECT_EQ(run({"importar", "kleio", "bom.cli", "--bdp", path_, "--ensaio"}), done);
    EXPECT_TRUE(out_.contains("Para guardar: 1 baptismo.")) << qPrintable(out_);
    EXPECT_TRUE(out_.endsWith("Ensaio: nada foi escrito.\n"));
    EXPECT_TRUE(bdp() == before);
    EXPECT_TRUE(QDir("copias").entryList({"*antes de importar*"}).isEmpty());
}

TEST_F(StudyCommand, WritesNothingOfAnyFileWhereOneIsDamaged)
{
    write("mau.cli", good + " pad$x/obs=\"\"\"\n");
    const QByteArray before = bdp();
    EXPECT_EQ(run({"importar", "kleio", "bom.cli", "mau.cli", "--bdp", path_}), refused);
    EXPECT_EQ(err_, "mau.cli:6: O texto entre três aspas que aqui começa não acaba.\nNada foi escrito.\n");
    EXPECT_TRUE(bdp() == before);
}

TEST_F(StudyCommand, TellsActsThatItCannotStoreWithTheirLines)
{
    write("meio.cli", good + "bap$b\n n$eva/f\nbap$c/1/1/2400\n n$rita/f\n");
    EXPECT_EQ(run({"importar", "kleio", "meio.cli", "--bdp", path_}), done);
    EXPECT_TRUE(err_.startsWith(
        "meio.cli:6: aviso: O acto não tem data.\nmeio.cli:6: sem fichas: Baptismos b1: Eva: O acto não tem data"))
        << qPrintable(err_);
    EXPECT_TRUE(err_.contains("\nmeio.cli:8: Baptismos b1: Rita: A data 01/01/2400")) << qPrintable(err_);
    EXPECT_EQ(actsStored(), 2);
}

TEST_F(StudyCommand, EndsWithANumberOfItsOwnWhereAFileLeavesNothing)
{
    write("futuro.cli", "kleio$x\nfonte$b1\nbap$c/1/1/2400\n n$rita/f\n");
    EXPECT_EQ(run({"importar", "kleio", "futuro.cli", "--bdp", path_, "--ensaio"}), nothingStored);
    EXPECT_EQ(run({"importar", "kleio", "futuro.cli", "bom.cli", "--bdp", path_}), nothingStored);
    EXPECT_EQ(run({"importar", "kleio", "bom.cli", "--bdp", path_}), done) << "all of it is there";
    EXPECT_EQ(run({"--ajuda"}), done);
    EXPECT_TRUE(out_.contains("3 de um dos ficheiros"));
}

TEST_F(StudyCommand, TellsInPortugueseWhyAFileCannotBeReadOrWritten)
{
    QDir().mkdir("pasta.cli");
    EXPECT_EQ(run({"importar", "kleio", "pasta.cli", "--bdp", path_}), refused);
    EXPECT_EQ(err_, "O ficheiro \"pasta.cli\" não pode ser lido.\n");
    EXPECT_EQ(run({"exportar", "kleio", "--bdp", path_, "nada/fora.cli"}), refused);
    EXPECT_EQ(err_,
              "O ficheiro \"nada/fora.cli\" não pode ser escrito: a pasta não existe, não é sua ou está cheia.\n");
}

TEST_F(StudyCommand, LeavesABdpAloneThatIsInWork)
{
    cnBDP.open(path_, jet::Connection::Sharing::Alone);
    EXPECT_EQ(run({"importar", "kleio", "bom.cli", "--bdp", path_}), refused);
    EXPECT_TRUE(err_.contains(QFileInfo(path_).fileName())) << qPrintable(err_);
    cnBDP.close();
    EXPECT_EQ(actsStored(), 0);
}

TEST_F(StudyCommand, IsInterruptedWithoutATrace)
{
    int asked = 0;
    EXPECT_EQ(run({"importar", "kleio", "bom.cli", "--bdp", path_}, [&] { return ++asked < 2; }), refused);
    EXPECT_EQ(err_, "Interrompido. Do ficheiro em curso nada foi escrito.\n");
    EXPECT_EQ(actsStored(), 0);
}

TEST_F(StudyCommand, ExportsWhatItCanImportAgain)
{
    EXPECT_EQ(run({"importar", "kleio", "bom.cli", "--bdp", path_}), done);
    EXPECT_EQ(run({"exportar", "kleio", "--bdp", path_, "fora.cli"}), done) << qPrintable(err_);
    EXPECT_EQ(out_, "Actos exportados: 1.\n");
    EXPECT_TRUE(read("fora.cli").contains("bap$a/1/1/1700")) << read("fora.cli").toStdString();
    EXPECT_EQ(run({"importar", "kleio", "fora.cli", "--bdp", path_}), done);
    EXPECT_TRUE(out_.contains("Já estavam na BDP: 1 acto.")) << qPrintable(out_);
}

TEST_F(StudyCommand, ExportsNoSexThatItTookFromAName)
{
    write("nomes.cli", "kleio$x\nfonte$b1\nbap$a/1/1/1700\n n$ana\nbap$b/1/1/1700\n n$eva/f\n");
    EXPECT_EQ(run({"importar", "kleio", "nomes.cli", "--bdp", path_}), done);
    EXPECT_EQ(run({"exportar", "kleio", "--bdp", path_, "fora.cli"}), done) << qPrintable(err_);
    EXPECT_FALSE(read("fora.cli").contains("n$ana/f")) << read("fora.cli").toStdString();
    EXPECT_TRUE(read("fora.cli").contains("n$eva/f")) << read("fora.cli").toStdString();
}

TEST_F(StudyCommand, ExportsOverNothingButAnEarlierExport)
{
    EXPECT_EQ(run({"importar", "kleio", "bom.cli", "--bdp", path_}), done);
    const QByteArray before = bdp();
    QFile::link(path_, "atalho.cli");
    for (const QString& target : {path_, QString("atalho.cli")}) {
        EXPECT_EQ(run({"exportar", "kleio", "--bdp", path_, target}), refused);
        EXPECT_EQ(err_, "Os actos não se exportam para cima da própria BDP.\n");
        EXPECT_TRUE(bdp() == before);
    }
    QFile::copy(path_, "outra.orv");
    write("carta.txt", "Exmo. Senhor\n");
    for (const QString& target : {QString("outra.orv"), QString("carta.txt")}) {
        const QByteArray kept = read(target);
        EXPECT_EQ(run({"exportar", "kleio", "--bdp", path_, target}), refused);
        EXPECT_TRUE(err_.contains("não é de notação Kleio")) << qPrintable(err_);
        EXPECT_TRUE(read(target) == kept);
    }
    write("vazio.cli", "");
    for (const char* target : {"vazio.cli", "vazio.cli", "bom.cli"})
        EXPECT_EQ(run({"exportar", "kleio", "--bdp", path_, target}), done) << qPrintable(err_);
}

TEST_F(StudyCommand, ImportsTablesByAFileOfColumnsOrByTheirHeaders)
{
    write("actos.csv", "quando;quem\n1/1/1700;Ana\n");
    EXPECT_EQ(run({"importar", "tabela", "actos.csv", "--bdp", path_}), refused);
    EXPECT_TRUE(err_.startsWith("actos.csv:0: Falta a coluna da data.")) << qPrintable(err_);
    write("colunas.json",
          R"({"especie": "baptismo", "livro": "7", "colunas": {"quando": "data", "quem": "baptizado.nome"}})");
    EXPECT_EQ(run({"importar", "tabela", "actos.csv", "--bdp", path_, "--colunas", "colunas.json"}), done)
        << qPrintable(err_);
    write("mais.csv", "quem;quando\nEva;1/1/1701\n");
    EXPECT_EQ(run({"importar", "tabela", "mais.csv", "--bdp", path_}), done) << "kept: " << qPrintable(err_);
    EXPECT_EQ(actsStored(), 2);
    write("colunas.json", "[");
    EXPECT_EQ(run({"importar", "tabela", "actos.csv", "--bdp", path_, "--colunas", "colunas.json"}), refused);
}

TEST_F(StudyCommand, TellsFilesThatAreMissingOrNoBdp)
{
    EXPECT_EQ(run({"importar", "kleio", "nada.cli", "--bdp", path_}), refused);
    EXPECT_EQ(err_, "O ficheiro \"nada.cli\" não existe.\n");
    EXPECT_EQ(run({"importar", "kleio", "bom.cli", "--bdp", "nada.orv"}), refused);
    EXPECT_TRUE(err_.contains("nada.orv")) << qPrintable(err_);
    EXPECT_EQ(run({"importar", "kleio", "bom.cli", "--bdp", "bom.cli"}), refused);
    jet::createDatabase(QDir::current().filePath("outra.orv"));
    EXPECT_EQ(run({"importar", "kleio", "bom.cli", "--bdp", "outra.orv"}), refused);
    EXPECT_EQ(err_, "O ficheiro \"outra.orv\" não é uma BDP.\n");
}

TEST_F(StudyCommand, ExplainsItsUsage)
{
    EXPECT_EQ(run({"--ajuda"}), done);
    EXPECT_TRUE(out_.startsWith("Uso:")) << qPrintable(out_);
    for (const QStringList& arguments :
         {QStringList{}, QStringList{"importar"}, QStringList{"importar", "kleio"},
          QStringList{"importar", "kleio", "bom.cli"}, QStringList{"importar", "kleio", "bom.cli", "--bdp"},
          QStringList{"importar", "crisma", "bom.cli"},
          QStringList{"importar", "kleio", "bom.cli", "--bdp", path_, "--depressa"},
          QStringList{"exportar", "kleio", "--bdp", path_}})
    {
        EXPECT_EQ(run(arguments), wrongUsage) << qPrintable(arguments.join(' '));
        EXPECT_TRUE(err_.contains("Uso:") && out_.isEmpty()) << qPrintable(arguments.join(' '));
    }
    EXPECT_EQ(actsStored(), 0);
}

} // namespace
