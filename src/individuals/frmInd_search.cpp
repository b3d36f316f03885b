// The search by example: what was filled becomes one statement, and frmResult shows whom it finds.
#include "individuals/frmInd.h"

#include "common/campos.h"
#include "common/filtro.h"
#include "common/instrucao.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "individuals/frmDatas.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "views/frmResult.h"

namespace {

// Month first, as a statement takes a date. A text that is no date is left as it is, for the store to refuse.
QString mesPrimeiro(const QString& data)
{
    return eData(data) ? dataDoTexto(data).toString("MM/dd/yyyy") : data;
}

QString condicaoDaData(const CriterioDeDatas& datas)
{
    if (!datas.fixa.isEmpty()) return " = " + dataDigitada(mesPrimeiro(datas.fixa));
    return " between " + dataDigitada(mesPrimeiro(datas.inicio)) + " and " + dataDigitada(mesPrimeiro(datas.fim));
}

QString condicaoDoNascimento(const CriterioDeDatas& datas)
{
    if (!datas.fixa.isEmpty()) return "datanasc" + condicaoDaData(datas);
    // Kept: here alone the dates go as typed, and the comparison is with two texts.
    return "datanasc between Format(" + dataDigitada(datas.inicio) + ", 'mm/dd/yyyy') and Format(" +
           dataDigitada(datas.fim) + ", 'mm/dd/yyyy')";
}

QString pelosCampos(const Filtro& filtro)
{
    return "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where " + filtro.texto() +
           " order by nome";
}

// Kept: anybody married more than once is tested on the first marriage that the store returns.
QString peloCasamento(const Filtro& filtro, const QString& data)
{
    return "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig, first(datacasam) from individuo, "
           "familias, familia where  individuo.nind =  familias.nind and familia.nfamilia = familias.nfamilia " +
           (filtro.vazio() ? QString() : "and " + filtro.texto()) +
           " group by individuo.nind, nome, datanasc, dataobito,  famorig having first(datacasam) " + data +
           " order by nome";
}

QString peloPrimeiroFilho(const Filtro& filtro, const QString& data)
{
    return "select individuo.nind as Nind, individuo.nome as nome,  individuo.datanasc as DataNasc,"
           "individuo.dataobito as DataObito, individuo.famorig as Famorig, min(filho.datanasc) from individuo, "
           "individuo as filho, familias where individuo.nind = familias.nind and  filho.famorig = familias.nfamilia " +
           (filtro.vazio() ? QString() : "and " + filtro.texto()) +
           " group by individuo.nind, individuo.nome, individuo.datanasc, individuo.dataobito,  individuo.famorig "
           "having min(filho.datanasc) " +
           data + " order by individuo.nome";
}

} // namespace

void FrmInd::cmdLocDat_Click()
{
    guarded([&] { frmDatas().mostraPara(*this, FrmDatas::Procura::Individuo); });
}

void FrmInd::iniciaPesquisa()
{
    abrePesquisa();
    Focus::setTo(txtNome);
}

void FrmInd::confirmaPesquisa()
{
    const Hourglass ampulheta;
    const QString instrucao = instrucaoDaPesquisa();
    if (instrucao.isEmpty()) return;
    adoFiltro.setRecordSource(instrucao);
    adoFiltro.refresh();
    if (!adoFiltro.hasRows()) {
        showMessage("Não existem registos que cumprem os requisitos especificados.");
        Focus::setTo(txtNind);
        return;
    }

    terminaOutraLista();
    AplicarModo(Modo::Cons);
    ActualizaCampos(adoFiltro.recordset());
    entregaAosResultados();
    frmResult().mostraResultados(*this, FrmResult::Uso::Individuos, [](const jet::Recordset& linha) {
        const PessoaDaArvore pessoa{textoDoNumero(linha["nind"]), linha["nome"].toString(),
                                    textoDoNumero(linha["famorig"])};
        return Achado{{pessoa.nind, pessoa.nome, pessoa.famorig}, {pessoa}};
    });
}

QString FrmInd::instrucaoDaPesquisa() const
{
    const auto datas = recolheDatas(Onde::UltimaFicha); // first, as a field that is refused takes the date away, too
    Filtro filtro = condicoesDosCampos();
    if (datas) {
        switch (datas->data) {
        case 0:
            filtro.junta(condicaoDoNascimento(*datas));
            break;
        case 1:
            return peloCasamento(filtro, condicaoDaData(*datas));
        case 2:
            filtro.junta("dataobito" + condicaoDaData(*datas));
            break;
        case 3:
            return peloPrimeiroFilho(filtro, condicaoDaData(*datas));
        }
    }
    return filtro.vazio() ? QString() : pelosCampos(filtro);
}

// Texts go in as typed: the wildcards are the user's, and so is a quote that spoils the statement.
Filtro FrmInd::condicoesDosCampos() const
{
    Filtro filtro;
    if (!txtNind->text().isEmpty()) filtro.junta("individuo.nind=" + numeroEmSQL(txtNind->text()));
    if (!txtNome->text().isEmpty()) filtro.junta("individuo.nome like " + digitado(txtNome->text()));
    if (preenchido(cmbTipoInd)) filtro.junta("individuo.tipo= " + citado(Trim(cmbTipoInd->text())));
    if (!sexo().isEmpty()) filtro.junta("individuo.sexo = " + citado(sexo()));
    if (preenchido(cmbLoc))
        filtro.junta("individuo.localnasc = " + citado(codigoDe(cmbLoc).toString()) +
                     " and individuo.tipolocalnasc = " + citado(letraDe(cmbLoc).toString()));
    if (preenchido(cmbFiliacao)) filtro.junta("individuo.filiacao = " + chaveEmSQL(itemDe(cmbFiliacao)));
    if (preenchido(cmbLocObito))
        filtro.junta("individuo.localobito = " + citado(codigoDe(cmbLocObito).toString()) +
                     " and individuo.tipolocalobito = " + citado(letraDe(cmbLocObito).toString()));
    if (preenchido(txtObs)) filtro.junta("individuo.obs like " + digitado(txtObs->text()));
    return filtro;
}

void FrmInd::cancelaPesquisa()
{
    AplicarModo(Modo::Cons);
    ActualizaCampos(adoInd.recordset());
    permiteAtribuir();
    retomaFicheiro();
}

void FrmInd::terminaOutraLista()
{
    FrmResult::terminaOutra(*this);
}

void FrmInd::escolheAchado(int linha, const QString&)
{
    adoFiltro.recordset().setAbsolutePosition(linha);
}

void FrmInd::mostraAchado()
{
    ActualizaCampos(adoFiltro.recordset());
}

void FrmInd::aceitaAchado(const QString& numero)
{
    AplicarModo(Modo::Cons);
    mostra(numero);
    permiteAtribuir();
}

void FrmInd::terminaNoAchado()
{
    permiteAtribuir(); // Kept: the list of all people stays where it was before the search.
}
