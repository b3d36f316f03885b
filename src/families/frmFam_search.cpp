// The search: by example on the card, and by the dates of frmDatas. The two names may hold wildcards.
#include "families/frmFam.h"

#include "common/campos.h"
#include "common/instrucao.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/pesquisa.h"
#include "individuals/frmDatas.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "views/frmResult.h"

namespace {

// The dates go between the # signs as they were typed. Kept: the store reads them month first.
QString condicaoDasDatas(const CriterioDeDatas& datas)
{
    if (datas.fixa.isEmpty()) return " between " + dataDigitada(datas.inicio) + " and " + dataDigitada(datas.fim);
    return " = " + dataDigitada(datas.fixa);
}

QString condicaoDoConjuge(const QString& sexo, const QString& nome)
{
    return " nfamilia in (select nfamilia from familias where nind in (select nind from individuo where sexo = " +
           citado(sexo) + " and nome like " + digitado(nome) + "))";
}

// The same days in words, as the store reads them: what was typed as 9 March is searched as 3 September.
QString diasProcurados(const CriterioDeDatas& datas)
{
    const QString que = datas.data == 1 ? "Procurados os casamentos" : "Procurados os nascimentos do 1º filho";
    if (!datas.fixa.isEmpty()) return que + " de " + diaDoLiteral(datas.fixa);
    return que + " entre " + diaDoLiteral(datas.inicio) + " e " + diaDoLiteral(datas.fim);
}

} // namespace

void FrmFam::cmdLocDat_Click()
{
    guarded([&] { frmDatas().mostraPara(*this, FrmDatas::Procura::Familia); });
}

void FrmFam::iniciaPesquisa()
{
    abrePesquisa();
    Focus::setTo(primeiroCampo());
    EmPesquisa.comeca();
}

void FrmFam::confirmaPesquisa()
{
    const Hourglass ampulheta;
    const std::optional<CriterioDeDatas> datas = recolheDatas(Onde::QualquerFicha); // also where a field is refused
    const Filtro filtro = filtroDosCampos();
    const bool casamento = datas && datas->data == 1, primeiroFilho = datas && datas->data == 3;
    if (filtro.vazio() && !casamento && !primeiroFilho) return desistePorFaltaDeCriterio();

    if (casamento)
        adoFiltro.setRecordSource("select nfamilia , tipocasal,datacasam  from familia where " + filtro.texto() +
                                  (filtro.vazio() ? "" : " and ") + " datacasam " + condicaoDasDatas(*datas) +
                                  " order by datacasam");
    else if (primeiroFilho)
        // Kept: a number or a name among the conditions is ambiguous here, and the store refuses it.
        adoFiltro.setRecordSource(
            "select familia.nfamilia as nfamilia, tipocasal,  datacasam,  min(filho.datanasc) from individuo, "
            "individuo as filho, familias, familia where familia.nfamilia =  familias.nfamilia and  individuo.nind = "
            "familias.nind and  filho.famorig = familias.nfamilia " +
            (filtro.vazio() ? QString() : "and " + filtro.texto()) +
            " group by familia.nfamilia , tipocasal, datacasam  having min(filho.datanasc) " +
            condicaoDasDatas(*datas) + " order by familia.nfamilia");
    else
        adoFiltro.setRecordSource("select nfamilia , tipocasal, datacasam  from familia where " + filtro.texto() +
                                  " order by datacasam");
    adoFiltro.refresh();
    contaDias(casamento || primeiroFilho ? diasProcurados(*datas) : QString());

    if (!adoFiltro.hasRows()) {
        showMessage("Não existem registos que cumprem os requisitos especificados.");
        Focus::setTo(txtNFam);
        adoFiltro.recordset().close();
        return;
    }
    terminaOutraLista();
    EmPesquisa.comeca(); // the end of the other search has ended it
    ActualizaCampos(adoFiltro.recordset(), {});
    AplicarModo(Modo::Cons);
    entregaAosResultados();
    cmdInsF->setEnabled(false);
    cmdElimF->setEnabled(false);
    frmResult().mostraResultados(*this, FrmResult::Uso::Familias,
                                 [this](const jet::Recordset& linha) { return achado(linha); });
}

// In the status bar, where nothing is left of the days of an earlier search.
void FrmFam::contaDias(const QString& dias)
{
    if (!dias.isEmpty() || diasContados_) showStatus(dias);
    diasContados_ = !dias.isEmpty();
}

// The couple is that of the card, which shows the row already when its tree is drawn.
Achado FrmFam::achado(const jet::Recordset& linha) const
{
    QList<PessoaDaArvore> raizes;
    for (const Metade& membro : metades_)
        raizes << PessoaDaArvore{membro.nind->text(), membro.nome->text()};
    return {{textoDoNumero(linha["nfamilia"]), textoDoNumero(linha["tipocasal"]), textoDaData(linha["datacasam"])},
            raizes};
}

void FrmFam::terminaOutraLista()
{
    FrmResult::terminaOutra(*this);
}

void FrmFam::escolheAchado(int, const QString& nfam)
{
    NfamCorrente = Nfam::doCampo(nfam);
}

void FrmFam::mostraAchado()
{
    ActualizaCampos(adoFiltro.recordset(), NfamCorrente);
    cmdInsF->setEnabled(false);
    cmdElimF->setEnabled(false);
}

void FrmFam::aceitaAchado(const QString& nfam)
{
    AplicarModo(Modo::Cons);
    ActualizaCampos(adoFam.recordset(), Nfam::doCampo(nfam));
}

void FrmFam::terminaNoAchado()
{
    NfamCorrente = Nfam::doCampo(numero());
    ActualizaCampos(adoFam.recordset(), NfamCorrente);
    setEnabled(true);
}

// Kept: the search stays in progress, and bars the commands that would clear it.
void FrmFam::desistePorFaltaDeCriterio()
{
    ActualizaCampos(adoFam.recordset(), {});
    AplicarModo(Modo::Cons);
    fechaPesquisa();
}

// Back to NfamCorrente. Kept: opening the search doesn't set it from the card.
void FrmFam::cancelaPesquisa()
{
    AplicarModo(Modo::Cons);
    ActualizaCampos(adoFam.recordset(), NfamCorrente);
    retomaFicheiro();
}

Filtro FrmFam::filtroDosCampos() const
{
    Filtro filtro;
    if (!txtNFam->text().isEmpty()) filtro.junta("nfamilia=" + numeroEmSQL(txtNFam->text()));
    if (preenchido(cmbSit)) filtro.junta("sfamilia= " + citado(itemDe(cmbSit).toString()));
    if (preenchido(cmbTipoFam)) filtro.junta("tipocasal = " + chaveEmSQL(Trim(cmbTipoFam->text())));

    const QString pai = txtPnome->text(), mae = txtSnome->text();
    // A man and a woman of one family are two people, so each is found by itself, and people before their families.
    if (!pai.isEmpty()) filtro.junta(condicaoDoConjuge("m", pai));
    if (!mae.isEmpty()) filtro.junta(condicaoDoConjuge("f", mae));

    if (preenchido(cmbLoc)) {
        const Local local = localDoTexto(cmbLoc->text());
        filtro.junta("localcasam = " + citado(local.codigo) + " and tipolocalcasam = " + citado(local.nivel));
    }
    // Kept: the notes stay locked and empty in a search, so this never counts.
    if (preenchido(txtObs)) filtro.junta(" obs like " + digitado(txtObs->text()));
    return filtro;
}
