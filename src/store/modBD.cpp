#include "store/modBD.h"

#include "common/modGeral.h"
#include "common/splashForm.h"
#include "platform/forms/msgbox.h"
#include "platform/jet/draft.h"
#include "store/copiaDiaria.h"

#include <QFileInfo>

#include <algorithm>

namespace {
// What programs that were killed have left beside the BDP.
void retiraRestos(const QString& caminho)
{
    jet::removeLeftovers(QFileInfo(QFileInfo(caminho).canonicalFilePath()).path());
    jet::removeLeftovers(pastaDasCopias(caminho));
}

using Colunas = QList<jet::Connection::Column>;

bool temColuna(const Colunas& colunas, const QString& tabela, const QString& coluna)
{
    return std::any_of(colunas.begin(), colunas.end(), [&](const jet::Connection::Column& existente) {
        return existente.table.compare(tabela, Qt::CaseInsensitive) == 0 &&
               existente.name.compare(coluna, Qt::CaseInsensitive) == 0;
    });
}
} // namespace

bool AbreBDP(const QString& caminho)
{
    bool aberta = false;
    evenIfItFails([&] {
        Hourglass ampulheta;
        StrLigacao = connectionString(caminho);
        cnBDP.close();
        vigiaCopiaDiaria();
        cnBDP.open(StrLigacao, jet::Connection::Sharing::Alone);
        retiraRestos(cnBDP.dataSource());
        aberta = true;
        ActualizaEstrutura();
    });
    return aberta;
}

void CriaBDP(const QString& caminho)
{
    evenIfItFails([&] {
        const bool existe = QFileInfo(caminho).isFile();
        if (existe) {
            if (!ask("Essa BDP já existe! Deseja substituí-la?", Icon::None)) return;
            cnBDP.close();
            jet::requireReplaceable(caminho); // before the long step
        }
        Hourglass ampulheta;
        splashForm().showStep("A criar a BDP. Aguarde por favor ...");
        existe ? SubstituiBDP(caminho) : EscreveBDP(caminho);
        splashForm().unload();
    });
}

bool ExisteTabela(const QString& tabela, jet::Connection& ligacao)
{
    return ligacao.tables().contains(tabela, Qt::CaseInsensitive);
}

bool ExisteColuna(const QString& tabela, const QString& coluna, jet::Connection& ligacao)
{
    return temColuna(ligacao.columns(), tabela, coluna);
}

void ActualizaEstrutura()
{
    const jet::RoutineScope scope(cnBDP); // what fails is undone before anything else is written
    evenIfItFails([&] {
        cnBDP.beginTrans();
        const Colunas colunas = cnBDP.columns(); // asks each table once
        const auto falta = [&](const char* tabela, const char* coluna) { return !temColuna(colunas, tabela, coluna); };
        if (falta("InfoPar", "Pais")) cnBDP.execute("alter table InfoPar add column Pais char(2)");
        if (!falta("Residencia", "idresidencia")) {
            // Kept: a BDP of this oldest form can't be brought up to date; the engine refuses the first statement.
            cnBDP.execute("alter table Residencia alter CONSTRAINT PKrs Primary Key(numero, tiporesid, dataref)");
            cnBDP.execute("alter table Residencia drop column idresidencia");
            cnBDP.execute("alter table InfoPar add column Pais char(2)");
        }
        if (!ExisteTabela("Passaporte", cnBDP))
            cnBDP.execute("create table Passaporte(nind double not null, nPass double not null, dataref date, "
                          "localdestino varchar(15),tipolocaldest varchar(1), obs memo, "
                          "CONSTRAINT Pkpass Primary Key (nind, npass))");
        if (falta("Individuo", "cFisicas")) cnBDP.execute("alter table Individuo add column cFisicas memo");
        if (falta("Individuo", "escrit")) cnBDP.execute("alter table Individuo add column escrit bit");
        if (falta("Individuo", "estatura")) cnBDP.execute("alter table Individuo add column estatura varchar");
        if (falta("Individuo", "altura")) cnBDP.execute("alter table Individuo add column altura long");
        if (falta("Individuo", "rpBapt")) cnBDP.execute("alter table Individuo add column rpBapt varchar(255)");
        if (falta("Individuo", "rpObi")) cnBDP.execute("alter table Individuo add column rpObi varchar(255)");
        if (falta("Familia", "rpCas")) cnBDP.execute("alter table Familia add column rpCas varchar(255)");
        cnBDP.commitTrans();
    });
}
