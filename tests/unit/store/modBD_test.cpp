// The opening and the making of a BDP beside other programs, and across kills.
#include "store/modBD.h"

#include "forms/house.h"
#include "platform/desktop/desktop.h"
#include "platform/jet/draft.h"
#include "platform/jet/recordset.h"
#include "store/session.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <csignal>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Another process, which does that and then waits to be killed.
class OtherProcess
{
public:
    template <class Do>
    explicit OtherProcess(Do work)
    {
        int ends[2];
        EXPECT_EQ(pipe(ends), 0);
        child_ = fork();
        if (child_ == 0) {
            work([&] { [[maybe_unused]] const auto told = write(ends[1], "x", 1); });
            for (;;)
                pause();
        }
        char byte = 0;
        EXPECT_EQ(read(ends[0], &byte, 1), 1);
        close(ends[0]);
        close(ends[1]);
    }
    ~OtherProcess()
    {
        kill(child_, SIGKILL);
        waitpid(child_, nullptr, 0);
    }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

private:
    pid_t child_ = 0;
};

class Bdp : public House
{
protected:
    Bdp() { Desktop::setProgramFolder(QStringLiteral(ORV_DATA_DIR)); }
    ~Bdp() override
    {
        cnBDP.close();
        Desktop::setProgramFolder({});
    }

    void cria() const
    {
        jet::createDatabase(bdp, [](const QString& ficheiro) {
            jet::Connection nova;
            nova.open(ficheiro);
            CriaTabelas(nova, ORV_DATA_DIR "/CriarTab.dat");
        });
    }
    QStringList ficheiros() const { return QDir(pasta.path()).entryList(QDir::Files | QDir::Hidden); }
    static bool inteira(const QString& ficheiro)
    {
        jet::Connection ligacao;
        ligacao.open(ficheiro);
        return jet::Recordset(ligacao, "select count(*) as n from infocomplementar")["n"].toInt() > 0;
    }

    QTemporaryDir pasta;
    QString bdp = pasta.filePath("arga.orv");
};

} // namespace

TEST_F(Bdp, ThatAnotherProgramHasOpenIsNotOpenedAndTheUserIsTold)
{
    cria();
    const QString ligacao = pasta.filePath("ligada.orv");
    ASSERT_TRUE(QFile::link(bdp, ligacao));
    {
        const OtherProcess outro([&](auto&& pronto) {
            jet::Connection alheia;
            alheia.open(bdp, jet::Connection::Sharing::Alone);
            pronto();
            pause();
        });
        for (const QString& caminho : {bdp, ligacao}) {
            Answer resposta("OK");
            EXPECT_FALSE(AbreBDP(caminho));
            EXPECT_EQ(resposta.text, "Ocorreu o erro -2147467259\nO ficheiro \"" + caminho +
                                         "\" já está aberto noutro programa, ou noutra janela do ORV. Feche-o lá "
                                         "primeiro.");
            EXPECT_EQ(cnBDP.state(), jet::Connection::Closed);
        }
    }
    EXPECT_TRUE(AbreBDP(bdp)) << "a killed program holds nothing";
    EXPECT_TRUE(AbreBDP(ligacao)) << "the file that is open here may be opened anew";
}

TEST_F(Bdp, IsFreeForAnotherProgramOnceItIsClosed)
{
    cria();
    EXPECT_TRUE(AbreBDP(bdp));
    jet::Connection alheia;
    EXPECT_ANY_THROW(alheia.open(bdp, jet::Connection::Sharing::Alone));
    cnBDP.close();
    EXPECT_NO_THROW(alheia.open(bdp, jet::Connection::Sharing::Alone));
}

TEST_F(Bdp, WhoseCreationIsKilledIsThereWholeOrNotAtAll)
{
    for (int volta = 0; volta < 8; ++volta) {
        {
            const OtherProcess outro([&](auto&& pronto) {
                pronto();
                EscreveBDP(bdp);
            });
            usleep(QRandomGenerator::global()->bounded(200) * 1000);
        }
        if (!QFile::exists(bdp)) continue;
        EXPECT_TRUE(inteira(bdp));
        QFile::remove(bdp);
    }
    EscreveBDP(bdp);
    EXPECT_EQ(ficheiros(), QStringList("arga.orv"));
}

TEST_F(Bdp, WhoseReplacementIsKilledIsTheOldOneOrTheNew)
{
    for (int volta = 0; volta < 8; ++volta) {
        cria();
        {
            const OtherProcess outro([&](auto&& pronto) {
                pronto();
                SubstituiBDP(bdp);
            });
            usleep(QRandomGenerator::global()->bounded(200) * 1000);
        }
        jet::Connection ligacao;
        ligacao.open(bdp);
        EXPECT_TRUE(ExisteTabela("individuo", ligacao));
        ligacao.close();
        QFile::remove(bdp);
    }
    jet::removeLeftovers(pasta.path());
    EXPECT_EQ(ficheiros(), QStringList());
}

TEST_F(Bdp, IsAskedForTheColumnsOfEachTableOnce)
{
    cria();
    ASSERT_TRUE(AbreBDP(bdp));
    int runs = 0;
    for (sqlite3_stmt* each = nullptr; (each = sqlite3_next_stmt(cnBDP.handle(), each));)
        if (QByteArrayView(sqlite3_sql(each)).contains("pragma_table_info"))
            runs += sqlite3_stmt_status(each, SQLITE_STMTSTATUS_RUN, 0);
    EXPECT_EQ(runs, cnBDP.tables().size());
}
