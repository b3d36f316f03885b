// The reference data: how the files of the program's folder become rows.
#include "common/instrucao.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/text.h"
#include "platform/desktop/desktop.h"
#include "platform/forms/msgbox.h"
#include "store/dataFile.h"
#include "store/modBD.h"

#include <array>
#include <memory>

namespace {

struct Destino
{
    const char* ficheiro;
    const char* tabela;
};

// By hierarchy, so that parents come before their children.
constexpr std::array locais{
    Destino{"paises.dat", "pais"},       Destino{"zonas.dat", "zonapais"},     Destino{"distrito.dat", "distrito"},
    Destino{"concelho.dat", "concelho"}, Destino{"freguesia.dat", "paroquia"}, Destino{"lugares.dat", "lugar"},
    Destino{"sitio.dat", "sitio"},
};
constexpr std::array codigos{
    Destino{"prof.dat", "profissao"},
    Destino{"dados.dat", "infocomplementar"},
};

using Insert = jet::Connection::Insert;

// Null if the header doesn't fit the table: the first row then tells what is wrong.
std::unique_ptr<Insert> insercaoPara(jet::Connection& bdp, const QString& tabela, const QString& cabecalho)
{
    try {
        return std::make_unique<Insert>(bdp, tabela, cabecalho.split(';'));
    } catch (const jet::Error&) {
        return nullptr;
    }
}

// The values of a line, as slices of it.
void separa(const QByteArray& line, QList<QByteArray>& values)
{
    values.clear();
    for (qsizetype begin = 0; begin <= line.size();) {
        const auto separator = line.indexOf(';', begin);
        const auto end = separator < 0 ? line.size() : separator;
        values << QByteArray::fromRawData(line.constData() + begin, end - begin);
        begin = end + 1;
    }
}

// Loads a file whose first line names the columns and whose others are rows, all with ";" between the values. The
// values are texts, with no escaping of any kind: the engine converts them. A line that doesn't fit the header, or
// holds an apostrophe, ends in the error that its whole statement has in the engine.
void carregaFicheiro(jet::Connection& bdp, const Destino& destino)
{
    DataFile dados = DataFile::inProgramFolder(destino.ficheiro);
    if (dados.atEnd()) return;
    const QString cabecalho = dados.readLine();
    const QString inicio =
        QStringLiteral("insert into %1 (%2) values ('").arg(destino.tabela, QString(cabecalho).replace(';', ','));
    const auto insercao = insercaoPara(bdp, destino.tabela, cabecalho);
    const auto colunas = cabecalho.count(';') + 1;
    QList<QByteArray> valores;
    while (!dados.atEnd()) {
        const QByteArray linha = dados.readUtf8Line();
        separa(linha, valores);
        try {
            if (insercao && valores.size() == colunas && !linha.contains('\''))
                insercao->run(valores);
            else
                bdp.execute(inicio + semPlica(QString::fromUtf8(linha)).replace(';', "','") + "')");
        } catch (const jet::Error& erro) {
            throw dados.located(erro);
        }
    }
}

// Runs a load as if it had no transaction, yet without a write to the disk for each row: what was made before an error
// is committed too.
template <class Load>
void guardandoTudo(jet::Connection& bdp, Load&& load)
{
    bdp.beginTrans();
    try {
        load();
    } catch (...) {
        try {
            bdp.commitTrans();
        } catch (const jet::Error&) { // the first failure, such as a full disk, says more
        }
        throw;
    }
    bdp.commitTrans();
}

// What was made before an error is kept in the file.
void encheBDP(const QString& ficheiro)
{
    jet::Connection bdp;
    bdp.open(connectionString(ficheiro));
    guardandoTudo(bdp, [&] {
        CriaTabelas(bdp, Desktop::programFolder() + "/CriarTab.dat");
        CarregaDadosIniciais(bdp);
    });
}

} // namespace

void EscreveBDP(const QString& caminho)
{
    jet::createDatabase(caminho, encheBDP);
}

void SubstituiBDP(const QString& caminho)
{
    jet::replaceDatabase(caminho, encheBDP);
}

void CriaTabelas(jet::Connection& bdp, const QString& ficheiro)
{
    DataFile instrucoes(ficheiro);
    guardandoTudo(bdp, [&] {
        while (!instrucoes.atEnd()) {
            const QString linha = instrucoes.readLine();
            try {
                bdp.execute(linha);
            } catch (const jet::Error& erro) {
                throw instrucoes.located(erro);
            }
        }
    });
}

void CarregaDadosIniciais(jet::Connection& bdp)
{
    guardandoTudo(bdp, [&] {
        for (const Destino& destino : locais)
            carregaFicheiro(bdp, destino);
        for (const Destino& destino : codigos)
            carregaFicheiro(bdp, destino);
    });
}

void ActualizaLocais()
{
    guarded([&] {
        cnBDP.beginTrans();
        for (const char* instrucao :
             {"delete from sitio", "delete from lugar", "delete from paroquia", "delete from concelho",
              "delete from distrito", "delete from zonapais", "delete from pais"})
            cnBDP.execute(instrucao);
        for (const Destino& destino : locais)
            carregaFicheiro(cnBDP, destino);
        cnBDP.commitTrans();
        showMessage("A actualização de locais foi concluída com êxito!", Icon::None);
    });
}

// Reads the older form of prof.dat: no header, fields separated by ",".
// Kept: the name's length is right only for a code of one character, the note loses its first letter, and any error
// ends the update silently.
void ActualizaProfissoes()
{
    jet::RoutineScope scope(cnBDP);
    try {
        DataFile dados = DataFile::inProgramFolder("prof.dat");
        cnBDP.beginTrans();
        cnBDP.execute("delete from profissao");
        while (!dados.atEnd()) {
            const QString linha = dados.readLine();
            if (Trim(linha).isEmpty()) continue;
            const int virgula = InStr(linha, ",");
            if (virgula == 0) return;
            const QString codprof = Mid(linha, 1, virgula - 1);
            const int comprimento = InStr(linha, ",", int(codprof.size()) + 2) - 3;
            if (comprimento < 0) return;
            const QString profissao = Mid(linha, int(codprof.size()) + 2, comprimento);
            const QString obs = Mid(linha, int(codprof.size() + profissao.size()) + 4);
            cnBDP.execute("Insert into profissao (codprof, profissao, obs) values (" + numeroEmSQL(codprof) + ", " +
                          digitado(profissao) + "," + digitado(obs) + ")");
        }
        cnBDP.commitTrans();
    } catch (const jet::Error&) {
    }
}

void ActualizaCategorias()
{
    jet::RoutineScope scope(cnBDP);
    DataFile dados = DataFile::inProgramFolder("dados.dat");
    cnBDP.beginTrans();
    dados.readLine();
    cnBDP.execute("delete from infocomplementar");
    while (!dados.atEnd()) {
        const QString linha = dados.readLine();
        const QString categoria = Mid(linha, 1, 5);
        const QString resto = Mid(linha, 7);
        const int separador = InStr(resto, ";");
        if (separador == 0)
            throw dados.located({jet::number::invalidCall, "Falta o \";\" entre o código e a descrição."});
        const QString codigo = Mid(resto, 1, separador - 1);
        const QString descricao = Mid(resto, separador + 1);
        cnBDP.execute("Insert into infocomplementar(categoria,codigo,descricao) values (" + digitado(categoria) + ", " +
                      digitado(codigo) + "," + digitado(descricao) + ")");
    }
    cnBDP.commitTrans();
}
