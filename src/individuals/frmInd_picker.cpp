// The card as a picker: the individual shown goes to whoever called the card up, and so does the user who closes it.
#include "individuals/frmInd.h"

#include "common/dates.h"
#include "common/globals.h"
#include "common/modGeral.h"
#include "common/numbers.h"
#include "common/vbtext.h"
#include "families/frmFam.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

#include <algorithm>

namespace {

// The forms of acts that ask for a person, by OrigemInd, and the field that gets the number.
struct Pedido
{
    int origem;
    const char* form;
    const char* campo;
};

const Pedido pedidos[] = {
    {3, "frmIntervenientes", "txtIndP1"},  // first priest
    {4, "frmIntervenientes", "txtIndP2"},  // second priest
    {5, "frmIntervenientes", "txtIndAss"}, // assistant
    {6, "frmFuneral", "txtNindP"},         // priest
    {7, "frmLegados", "txtNindH"},         // heir
};

// Null where no act asks.
const Pedido* pedidoDoActo()
{
    const auto pedido = std::ranges::find(pedidos, OrigemInd, &Pedido::origem);
    return pedido == std::end(pedidos) ? nullptr : pedido;
}

// Null where no act asks, or its form is gone: none is loaded to go back to.
Form* actoQueChamou()
{
    const Pedido* pedido = pedidoDoActo();
    return pedido ? Forms::find(pedido->form) : nullptr;
}

} // namespace

void FrmInd::chamaPara(int origem, const QString& nind)
{
    DataActo.clear();
    for (const MaskedEdit* campo : {mskDtNasc, mskDtObito})
        if (DataActo.isEmpty() && eData(campo->text())) DataActo = campo->text();
    setEnabled(true);
    display();
    OrigemInd = origem;
    procuraRegisto(nind.isEmpty() ? QString() : "nind = " + nind);
    cmdAtribuir->setEnabled(modo() == Modo::Cons); // whoever edits or searches there ends that first
}

void FrmInd::retomaDe(int origem, const QString& nind)
{
    setEnabled(true);
    if (OrigemInd == origem) OrigemInd = 8;
    if (OrigemInd == 8) cmdAtribuir->setEnabled(false);
    procuraRegisto("nind = " + nind);
}

void FrmInd::cmdAtribuir_Click()
{
    guarded([&] {
        if (txtNind->text().isEmpty()) return;
        switch (OrigemInd) {
        case 0:
            return atribuiFilho();
        case 1:
        case 2:
            return atribuiConjuge();
        case 9:
            return atribuiTestamenteiro();
        default:
            return atribuiAoActo();
        }
    });
}

// The family is the one that its card shows by now. A family of origin that was known is replaced without a question.
void FrmInd::atribuiFilho()
{
    adoNind.recordset().set("famorig", frmFam().txtNFam->text());
    adoNind.recordset().update();
    adoNind.refresh();
    frmFam().adoFilhos.refresh();
    frmFam().ActualizaFilhos();
    voltaAFamilia();
}

void FrmInd::atribuiConjuge()
{
    const bool homem = OrigemInd == 1;
    if (!(homem ? optSexo_0 : optSexo_1)->isChecked())
        return showMessage(homem ? "Deve seleccionar um indivíduo de sexo masculino!"
                                 : "Deve seleccionar um indivíduo de sexo feminino!");
    const FrmFam& familia = frmFam();
    (homem ? familia.txtPnind : familia.txtSnind)->setText(txtNind->text());
    // Kept: the bare name replaces the description that the change of the number has just brought.
    (homem ? familia.txtPnome : familia.txtSnome)->setText(txtNome->text());
    voltaAFamilia();
}

void FrmInd::atribuiAoActo()
{
    const Pedido* pedido = pedidoDoActo();
    if (!pedido) return;
    Form* acto = actoQueChamou();
    if (!acto) {
        OrigemInd = 8;
        return;
    }
    if (!podeEstarNoActo(*acto)) return;
    acto->findChild<TextBox*>(pedido->campo)->setText(txtNind->text());
    setEnabled(false);
    voltaA(*acto);
}

// The person must have been observable at the date of the act. Legacies ask for no date.
bool FrmInd::podeEstarNoActo(const Form& acto) const
{
    const bool funeral = OrigemInd == 6;
    if (OrigemInd == 7 || (funeral && DataActo.isEmpty())) return true;
    if (!funeral) DataActo = acto.findChild<MaskedEdit*>("mskData")->text();
    if (DentroObservacao(numeroDoTexto(txtNind->text()))) return true;
    showMessage(QString("O indivíduo que tenta atribuir não se ") + (funeral ? " " : "") + // kept: two blanks there
                    "encontra no espaço temporal permitido!\r\nAtribua outro indivíduo.",
                Icon::None);
    return false;
}

// The card becomes a picker of itself. What was typed and not confirmed is lost.
void FrmInd::cmdTest_Click()
{
    guarded([&] {
        NindCorrente = static_cast<long>(numeroDoTexto(txtNind->text()));
        testador = NindCorrente; // a value of its own: each person shown becomes NindCorrente
        OrigemInd = 9;
        IndChamado = 1;
        adoInd.recordset().moveFirst();
        ActualizaCampos(adoInd.recordset());
        AplicarModo(Modo::Cons);
        cmdAtribuir->setEnabled(true);
    });
}

// Back to the edit that was left, with the row as it is stored.
void FrmInd::atribuiTestamenteiro()
{
    const QString numero = QString::number(testador);
    if (!Trim(txtNind->text()).isEmpty())
        cnBDP.execute("update individuo set testamenteiro = " + txtNind->text() + " where nind = " + numero);
    poeListaNoNumero(numero);
    ActualizaCampos(adoInd.recordset());
    AplicarModo(Modo::Edi);
    for (CommandButton* comando : {cmdAtribuir, cmdLoc, cmdFechar})
        comando->setEnabled(false);
    (passo() == Passo::Insercao ? cmdElim : cmdIns)->setEnabled(false);
}

void FrmInd::cmdFechar_Click()
{
    guarded([&] {
        if (OrigemInd == 8) {
            FrmLoaded();
            setEnabled(true);
        }
        devolveAoChamador();
    });
}

// By who called the card. It is hidden and not unloaded: it keeps its list and its place in it.
void FrmInd::devolveAoChamador()
{
    switch (OrigemInd) {
    case 0:
    case 1:
    case 2:
        voltaAFamilia();
        break;
    case 8:
        conceal();
        break;
    case 9:
        ActualizaCampos(adoInd.recordset());
        break;
    default:
        if (Form* acto = actoQueChamou()) voltaA(*acto);
    }
    OrigemInd = 8;
}

void FrmInd::voltaAFamilia()
{
    conceal();
    FrmLoaded();
    OrigemInd = 8;
    terminaChamada();
}

void FrmInd::voltaA(Form& chamador)
{
    const bool intervenientes = 3 <= OrigemInd && OrigemInd <= 5;
    if (intervenientes && OrigemInterv == 1) conceal();
    chamador.setEnabled(true);
    chamador.setFocusToForm();
}

void FrmInd::FrmLoaded()
{
    if (Form* familia = Forms::find(FrmFam::Name)) familia->setEnabled(true);
    // An act that asked for a person, too, where the card was called up again meanwhile for something else.
    for (const Pedido& pedido : pedidos)
        if (Form* acto = Forms::find(pedido.form)) acto->setEnabled(true);
}

bool FrmInd::Form_QueryUnload(UnloadMode mode)
{
    return mode != UnloadMode::ControlMenu;
}

void FrmInd::Form_Unload()
{
    if (!Forms::isUnloadingAll()) guarded([&] { devolveAoChamador(); });
}
