#include "acts/frmIntervenientes.h"

#include "common/codigos.h"
#include "common/globals.h"
#include "common/listasAbertas.h"
#include "common/modGeral.h"
#include "common/numbers.h"
#include "common/vbtext.h"
#include "families/frmFam.h"
#include "individuals/frmInd.h"
#include "platform/forms/forms.h"

FrmIntervenientes& frmIntervenientes()
{
    return theForm<FrmIntervenientes>();
}

void abreIntervenientes(int origem)
{
    const bool aberta = Forms::isLoaded(FrmIntervenientes::Name);
    if (!aberta) OrigemInterv = origem;
    frmIntervenientes().display();
    if (aberta) return;
    frmIntervenientes().setCaption(frmIntervenientes().caption() + (origem == 1 ? " do casamento" : " do baptismo"));
}

FrmIntervenientes::FrmIntervenientes() : Form(Name)
{
    setupUi(this);
    lugares_[0] = {txtIndP1, cmbFuncP1, cmdIndP1, cmdX_0};
    lugares_[1] = {txtIndP2, cmbFuncP2, cmdIndP2, cmdX_1};
    for (ComboBox* parente : {assistente->cmbPar1, assistente->cmbPar2})
        ListasAbertas::segueCodigos(*this, *parente, "Paren", ListasAbertas::Escolha::Mantem);
    for (ComboBox* funcao : {cmbFuncP1, cmbFuncP2})
        ListasAbertas::segueCodigos(*this, *funcao, "FunPa", ListasAbertas::Escolha::Mantem);
    connectEvents();
}

void FrmIntervenientes::connectEvents()
{
    for (int indice : {0, 1}) {
        const LugarDoPadre& lugar = lugares_[indice];
        connect(lugar.numero, &TextBox::textChanged, this, [=, this] { txtIndP_Change(indice); });
        connect(lugar.escolher, &CommandButton::clicked, this,
                [=, this] { chamaIndividuo(3 + indice, lugares_[indice].numero); });
        connect(lugar.retirar, &CommandButton::clicked, this, [=, this] { cmdX_Click(indice); });
    }
    connect(cmdE, &CommandButton::clicked, this, &FrmIntervenientes::cmdE_Click);

    connect(dtInterv, &Grid::picked, this, &FrmIntervenientes::dtInterv_Click);
    connect(cmdIndAss, &CommandButton::clicked, this, [this] { chamaIndividuo(5, txtIndAss); });
    connect(cmdIns, &CommandButton::clicked, this, &FrmIntervenientes::cmdIns_Click);
    connect(cmdAlt, &CommandButton::clicked, this, &FrmIntervenientes::cmdAlt_Click);
    connect(cmdElim, &CommandButton::clicked, this, &FrmIntervenientes::cmdElim_Click);
    connect(cmdSair, &CommandButton::clicked, this, &FrmIntervenientes::cmdSair_Click);
}

bool FrmIntervenientes::casamento() const
{
    return OrigemInterv == 1;
}

void FrmIntervenientes::Form_Load()
{
    guarded([&] {
        preencheListas();
        assistente->mostraParentescos(casamento());
        casamento() ? abreCasamento() : abreBaptismo();
        AplicarModo("Cons");
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

void FrmIntervenientes::abreCasamento()
{
    txtNum->setText(frmFam().txtNFam->text());
    txtNome->hide();
    mskData->showPlain(frmFam().mskData->text());
    adoInterv.setRecordSource("Select dataref, entidade, nind,tipoassistente, tipoacto, estadocivil, falecidopai,  "
                              "falecidomae, parentbapt, parentnoivo, parentnoiva, obs  from assistente where "
                              "entidade = " +
                              txtNum->text() + " and  tipoacto = 'c'");
    adoInterv.refresh();
    mostraPadres(frmFam().adoFam.recordset());
}

void FrmIntervenientes::abreBaptismo()
{
    txtNum->setText(frmInd().txtNind->text());
    txtNome->setText(frmInd().txtNome->text());
    mskData->showPlain(frmInd().mskDtNasc->text());
    adoInterv.setRecordSource("Select dataref, entidade, nind,  tipoassistente, tipoacto, estadocivil, falecidopai,  "
                              "falecidomae, parentbapt, parentnoivo, parentnoiva, obs  from assistente where "
                              "entidade = " +
                              txtNum->text() + " and  tipoacto = 'b'");
    adoInterv.refresh();
    mostraPadres(frmInd().adoNind.recordset());
}

// Calls the card of a person up, on the one whom the field holds by now. Kept: the second priest alone is asked for
// without the splash, and sends the list to its first row.
void FrmIntervenientes::chamaIndividuo(int origem, const TextBox* campo)
{
    guarded([&] {
        setEnabled(false);
        OrigemInd = origem;
        IndChamado = 1;
        if (origem != 4)
            FrmIndLoaded();
        else if (frmInd().Modo == "Cons" && frmInd().adoInd.hasRows())
            frmInd().adoInd.recordset().moveFirst();
        frmInd().setEnabled(true);
        frmInd().display();
        if (!Trim(campo->text()).isEmpty()) {
            NindCorrente = static_cast<long>(numeroDoTexto(campo->text()));
            frmInd().procuraRegisto("nind = " + campo->text());
        }
        // Whoever edits or searches there ends that first.
        frmInd().cmdAtribuir->setEnabled(frmInd().Modo == "Cons");
    });
}

void FrmIntervenientes::cmdSair_Click()
{
    guarded([&] { unload(); });
}

bool FrmIntervenientes::Form_QueryUnload(UnloadMode mode)
{
    return mode != UnloadMode::ControlMenu || cmdSair->isEnabled(); // an assistant who is being edited isn't lost
}

void FrmIntervenientes::Form_Unload()
{
    if (Forms::isUnloadingAll()) return;
    guarded([&] {
        OrigemInd = 8;
        terminaChamada();
        // The hand-over has disabled the card of a person, also where the act was a marriage.
        if (Form* individuo = Forms::find(FrmInd::Name)) individuo->setEnabled(true);
        casamento() ? voltaAFamilia() : voltaAoIndividuo();
    });
}

void FrmIntervenientes::voltaAoIndividuo()
{
    if (!Forms::isLoaded(FrmInd::Name)) return;
    NindCorrente = static_cast<long>(numeroDoTexto(txtNum->text()));
    frmInd().display();
    frmInd().cmdAtribuir->setEnabled(false);
    frmInd().procuraRegisto("nind = " + txtNum->text());
}

void FrmIntervenientes::voltaAFamilia()
{
    if (!Forms::isLoaded(FrmFam::Name)) return;
    frmFam().setEnabled(true);
    frmFam().display();
    frmFam().procuraRegisto("nfamilia = " + txtNum->text());
}
