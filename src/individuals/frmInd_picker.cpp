// The card as a picker: it hands the individual shown to whoever called it up, and leads back there when it closes.
#include "individuals/frmInd.h"

#include "common/dono.h"
#include "common/instrucao.h"
#include "common/modGeral.h"
#include "common/text.h"
#include "families/frmFam.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/showntext.h"
#include "platform/forms/statusline.h"

// The hand-over to the form of an act has disabled the card, and the form may stand there long after. Whoever asks the
// card next finds it in use, unless it waits for a window of its own. Kept: the menu alone brings it up disabled.
void FrmInd::libertaDaEntrega()
{
    const PedidoDeIndividuo& entregue = chamada().pedido();
    if (!Forms::isLoaded(Name) || !entregue.deActo || !entregue.quem || !entregue.quem->isEnabled()) return;
    if (!JanelaDoDono::temAEspera(frmInd())) frmInd().setEnabled(true);
}

void FrmInd::pede(PedidoDeIndividuo pedido, const std::optional<QString>& primeiro)
{
    const bool deActo = pedido.deActo;
    libertaDaEntrega();
    chamada().comeca(std::move(pedido));
    FrmIndLoaded();
    if (deActo)
        frmInd().atendeActo(primeiro);
    else if (primeiro && frmInd().adoInd.hasRows()) // with nobody to show, the card stays as it is
        frmInd().mostra(*primeiro);
    frmInd().dizParaQuem();
    chamada().espera();
}

void FrmInd::atendeActo(const std::optional<QString>& primeiro)
{
    setEnabled(true);
    display();
    if (primeiro) {
        if (!primeiro->isEmpty()) NindCorrente = Nind::doCampo(*primeiro);
        procuraRegisto(primeiro->isEmpty() ? QString() : "nind = " + chaveEmSQL(*primeiro));
    }
    cmdAtribuir->setEnabled(modo() == Modo::Cons); // an edit or a search there has to end first
}

void FrmInd::consulta(const QString& nind)
{
    libertaDaEntrega();
    chamada().interrompe();
    FrmIndLoaded();
    frmInd().mostra(nind);
    frmInd().cmdAtribuir->setEnabled(false);
    frmInd().setFocusToForm();
}

void FrmInd::abrePeloMenu()
{
    FrmIndLoaded();
    frmInd().adoInd.refresh(); // Kept: the list goes to its first row, and the fields stay as they are.
    frmInd().cmdAtribuir->setEnabled(false);
    chamada().interrompe();
    if (!frmInd().adoInd.hasRows()) showStatus("Ainda não há indivíduos: carregue em \"Inserir\" (Alt+I) para o primeiro.");
}

void FrmInd::desiste(const Form& quem)
{
    setEnabled(true);
    if (chamada().pedido().quem == &quem) chamada().desiste();
    if (chamada().existe()) return;
    cmdAtribuir->setEnabled(false);
    chamada().terminaIndChamado();
}

void FrmInd::voltaDoBaptismo(const QString& nind)
{
    if (!insere(nind)) NindCorrente = Nind::doCampo(nind); // an insert that is given up goes back to who was shown
    display();
    cmdAtribuir->setEnabled(false);
    procuraRegisto("nind = " + chaveEmSQL(nind));
}

void FrmInd::vaiAoPrincipio()
{
    if (modo() == Modo::Cons && adoInd.hasRows()) adoInd.recordset().moveFirst();
}

void FrmInd::poeFamiliaDeOrigem(const QString& nfam)
{
    adoNind.recordset().set("famorig", nfam);
    adoNind.recordset().update();
    adoNind.refresh();
}

void FrmInd::cmdAtribuir_Click()
{
    guarded([&] {
        if (numero().isEmpty()) return;
        const PedidoDeIndividuo pedido = chamada().pedido(); // the hand-over may end it
        if (!chamada().existe()) return;
        if (!pedido.quem) return chamada().desiste();
        if (pedido.recusa)
            if (const auto recusa = pedido.recusa(pedido, *this)) return showMessage(recusa->motivo, recusa->icone);
        pedido.recebe(*this);
        if (pedido.depois == DepoisDePedido::Esconde) return termina();
        if (pedido.depois == DepoisDePedido::ReabreEdicao) return;
        setEnabled(false);
        voltaA(pedido);
    });
}

// The card becomes a picker of itself. What was typed and not confirmed is lost.
void FrmInd::cmdTest_Click()
{
    guarded([&] {
        NindCorrente = Nind::doCampo(numero());
        testador = NindCorrente; // a copy, as each person shown becomes NindCorrente
        chamada().comeca({.origem = OrigemInd::Testamenteiro,
                          .quem = this,
                          .espera = false,
                          .IndChamado = true,
                          .depois = DepoisDePedido::ReabreEdicao,
                          .recebe = [](FrmInd& ficha) { ficha.atribuiTestamenteiro(); },
                          .comoQue =
                              [numero = testador.texto()](const FrmInd& ficha) {
                                  return (ficha.sexo() == "f" ? "testamenteira" : "testamenteiro") +
                                         (" do indivíduo nº " + numero);
                              }});
        adoInd.recordset().moveFirst();
        ActualizaCampos(adoInd.recordset());
        AplicarModo(Modo::Cons);
        cmdAtribuir->setEnabled(true);
    });
}

// Back to the alteration that was left, with the row as it is stored.
void FrmInd::atribuiTestamenteiro()
{
    if (!Trim(numero()).isEmpty())
        cnBDP.execute("update individuo set testamenteiro = " + chaveEmSQL(numero()) +
                      " where nind = " + testador.paraSQL());
    abreAlteracaoDe(testador.texto());
}

// With the alteration that it belongs to, however the choice itself ended. A newer request goes on.
void FrmInd::acabaEscolhaDoTestamenteiro()
{
    if (!testador) return;
    testador = {};
    if (!chamada().existe() || chamada().origem() == OrigemInd::Testamenteiro) chamada().acaba();
}

// The alteration goes on, unless an insert has taken its place.
void FrmInd::desisteDoTestamenteiro()
{
    ActualizaCampos(adoInd.recordset());
    if (passo() == Passo::Alteracao) return;
    acabaEscolhaDoTestamenteiro();
    permiteAtribuir();
}

void FrmInd::cmdFechar_Click()
{
    guarded([&] {
        if (!chamada().existe()) {
            FrmLoaded();
            setEnabled(true);
        }
        devolveAoChamador();
    });
}

// The card is hidden and not unloaded: it keeps its list and its place in it.
void FrmInd::devolveAoChamador()
{
    const PedidoDeIndividuo pedido = chamada().pedido();
    if (!chamada().existe())
        conceal();
    else if (pedido.depois == DepoisDePedido::Esconde)
        termina();
    else if (pedido.depois == DepoisDePedido::ReabreEdicao)
        desisteDoTestamenteiro();
    else if (pedido.quem)
        voltaA(pedido);
    chamada().desiste();
}

void FrmInd::termina()
{
    conceal();
    FrmLoaded();
    chamada().acaba();
}

void FrmInd::voltaA(const PedidoDeIndividuo& pedido)
{
    if (pedido.depois == DepoisDePedido::FicaEscondida) conceal();
    pedido.quem->setEnabled(true);
    pedido.quem->setFocusToForm();
}

void FrmInd::FrmLoaded()
{
    if (Form* familia = Forms::find(FrmFam::Name)) familia->setEnabled(true);
    chamada().libertaQuemEspera();
}

void FrmInd::dizParaQuem()
{
    const PedidoDeIndividuo& pedido = chamada().pedido();
    const bool alguem = pedido.quem && pedido.comoQue && cmdAtribuir->isEnabled();
    cmdAtribuir->setToolTip(alguem ? shownTip("Atribuir como " + pedido.comoQue(*this)) : QString());
}

// The part may depend on the person shown by now.
bool FrmInd::eventFilter(QObject* objecto, QEvent* evento)
{
    if (objecto == cmdAtribuir && (evento->type() == QEvent::ToolTip || evento->type() == QEvent::EnabledChange))
        dizParaQuem();
    return Ficha::eventFilter(objecto, evento);
}

// An edit or a search there has to end first.
void FrmInd::permiteAtribuirAoSubir()
{
    const bool livre = modo() == Modo::Cons && passo() != Passo::Pesquisa;
    cmdAtribuir->setEnabled(livre && chamada().ofereceAoSubir());
}

void FrmInd::permiteAtribuir()
{
    cmdAtribuir->setEnabled(chamada().ofereceAtribuir());
}

bool FrmInd::Form_QueryUnload(UnloadMode mode)
{
    return mode != UnloadMode::ControlMenu;
}

void FrmInd::Form_Unload()
{
    Ficha::Form_Unload();
    if (!Forms::isUnloadingAll()) guarded([&] { devolveAoChamador(); });
}
