#include "acts/frmIntervenientes.h"

#include "acts/observacao.h"
#include "common/codigos.h"
#include "common/dicaDaPessoa.h"
#include "common/instrucao.h"
#include "common/listasAbertas.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/text.h"
#include "individuals/frmInd.h"
#include "platform/forms/forms.h"

FrmIntervenientes::FrmIntervenientes() : JanelaDoDono(Name)
{
    setupUi(this);
    for (TextBox* numero : {txtIndP1, txtIndP2, txtIndAss})
        mostraPessoaNaDica(numero);
    mostraPessoaNaDica(dtInterv, 0);
    lugares_[0] = {OrigemInd::PrimeiroPadre, txtIndP1, cmbFuncP1, cmdIndP1, cmdX_0};
    lugares_[1] = {OrigemInd::SegundoPadre, txtIndP2, cmbFuncP2, cmdIndP2, cmdX_1};
    padres_.usa({{cmdE, legenda::editarAParte, nullptr, legenda::confirmarOuCancelar}});
    assistentes_.usa({{cmdIns, legenda::adicionar, legenda::confirmar},
                      {cmdAlt, legenda::alterar, legenda::cancelar, legenda::confirmar},
                      {cmdElim, legenda::eliminar, nullptr, legenda::cancelar}});
    for (ComboBox* parente : {assistente->cmbPar1, assistente->cmbPar2})
        ListasAbertas::segueCodigos(*this, *parente, "Paren");
    for (ComboBox* funcao : {cmbFuncP1, cmbFuncP2})
        ListasAbertas::segueCodigos(*this, *funcao, "FunPa");
    connectEvents();
}

void FrmIntervenientes::connectEvents()
{
    for (int indice : {0, 1}) {
        const LugarDoPadre& lugar = lugares_[indice];
        connect(lugar.numero, &TextBox::textChanged, this, [=, this] { txtIndP_Change(indice); });
        connect(lugar.escolher, &CommandButton::clicked, this,
                [=, this] { chamaIndividuo(lugares_[indice].origem, lugares_[indice].numero); });
        connect(lugar.retirar, &CommandButton::clicked, this, [=, this] { cmdX_Click(indice); });
    }
    connect(cmdE, &CommandButton::clicked, this, &FrmIntervenientes::cmdE_Click);

    opensOn(dtInterv, cmdIns);
    connect(dtInterv, &Grid::picked, this, &FrmIntervenientes::dtInterv_Click);
    connect(cmdIndAss, &CommandButton::clicked, this, [this] { chamaIndividuo(OrigemInd::Assistente, txtIndAss); });
    connect(cmdIns, &CommandButton::clicked, this, &FrmIntervenientes::cmdIns_Click);
    connect(cmdAlt, &CommandButton::clicked, this, &FrmIntervenientes::cmdAlt_Click);
    connect(cmdElim, &CommandButton::clicked, this, &FrmIntervenientes::cmdElim_Click);
    connect(cmdSair, &CommandButton::clicked, this, &FrmIntervenientes::cmdSair_Click);
}

void FrmIntervenientes::Form_Load()
{
    setCaption(caption() + (casamento() ? " do casamento" : " do baptismo"));
    guarded([&] {
        preencheListas();
        assistente->mostraParentescos(casamento());
        abreActo();
        AplicarModo(Modo::Cons);
        PreencheFG();
        ActualizaCampos();
    });
}

void FrmIntervenientes::preencheListas()
{
    assistente->preencheListas();
    for (const LugarDoPadre& lugar : lugares_)
        PreencheCodigos(*lugar.funcao, "FunPa");
    pintaPadres(corDoModo::cons);
}

void FrmIntervenientes::abreActo()
{
    const Dono& dono = donoDaJanela();
    txtNum->setText(dono.numero);
    txtNome->setText(dono.nome);
    txtNome->setVisible(!casamento());
    mskData->showPlain(dono.data);
    adoInterv.setRecordSource(
        "Select dataref, entidade, nind, tipoassistente, tipoacto, estadocivil, falecidopai, "
        "falecidomae, parentbapt, parentnoivo, parentnoiva, obs from assistente where entidade = " +
        chaveEmSQL(dono.numero) + " and tipoacto = " + citado(letraDoActo()));
    adoInterv.refresh();
    if (dono.registo) mostraPadres(*dono.registo);
}

QString FrmIntervenientes::papel(OrigemInd origem, const FrmInd& ficha) const
{
    if (origem == OrigemInd::PrimeiroPadre) return "primeiro padre";
    if (origem == OrigemInd::SegundoPadre) return "segundo padre";
    if (assistente->optassistente_1->isChecked()) return "testemunha";
    if (!assistente->optassistente_0->isChecked()) return "assistente";
    return ficha.sexo() == "f" ? "madrinha" : "padrinho";
}

QString FrmIntervenientes::acto() const
{
    return (casamento() ? " do casamento nº " : " do baptismo nº ") + txtNum->text();
}

// Calls up the card of a person, on the one in the field. Kept: only the second priest is asked for without the splash,
// and sends the list to its first row.
void FrmIntervenientes::chamaIndividuo(OrigemInd origem, TextBox* campo)
{
    guarded([&] {
        if (origem == OrigemInd::SegundoPadre) frmInd().vaiAoPrincipio();
        const QString actual = campo->text();
        FrmInd::pede({.origem = origem,
                      .quem = this,
                      .deActo = true,
                      .IndChamado = true,
                      .depois = casamento() ? DepoisDePedido::FicaEscondida : DepoisDePedido::FicaAberta,
                      .DataActo = mskData->text(),
                      .recusa = recusaNoActo,
                      .recebe = [=](const FrmInd& ficha) { campo->setText(ficha.numero()); },
                      .comoQue = [=, this](const FrmInd& ficha) { return papel(origem, ficha) + acto(); }},
                     Trim(actual).isEmpty() ? std::optional<QString>() : actual);
    });
}

void FrmIntervenientes::cmdSair_Click()
{
    guarded([&] { unload(); });
}

bool FrmIntervenientes::Form_QueryUnload(UnloadMode mode)
{
    return mode != UnloadMode::ControlMenu || assistentes_.passo() == Passo::Repouso; // keeps an assistant being edited
}

bool FrmIntervenientes::podeMudarDeDono() const
{
    return assistentes_.passo() == Passo::Repouso && padres_.passo() == Passo::Repouso && isEnabled();
}

void FrmIntervenientes::Form_Unload()
{
    JanelaDoDono::Form_Unload();
    if (Forms::isUnloadingAll()) return;
    guarded([&] {
        if (!Forms::isLoaded(FrmInd::Name)) return chamada().terminaIndChamado(); // of an alteration that went along
        frmInd().desiste(*this); // the hand-over has disabled the card, even if the act was a marriage
    });
}

void FrmIntervenientes::volta()
{
    guarded([&] {
        chamada().acaba(); // Kept: whoever asks by now.
        if (Form* individuo = Forms::find(FrmInd::Name)) individuo->setEnabled(true);
        casamento() ? voltaAFamilia() : voltaAoIndividuo();
    });
}

void FrmIntervenientes::voltaAoIndividuo()
{
    if (!Forms::isLoaded(FrmInd::Name)) return;
    frmInd().voltaDoBaptismo(txtNum->text());
}

void FrmIntervenientes::voltaAFamilia()
{
    Ficha* ficha = donoDaJanela().ficha;
    if (!ficha) return;
    ficha->setEnabled(true);
    ficha->display();
    ficha->procuraRegisto("nfamilia = " + chaveEmSQL(txtNum->text()));
}
