// The forms that ask for a place: who waits, what comes back, and the place lists of the cards.
#include "common/globals.h"
#include "common/modGeral.h"
#include "common/places.h"
#include "common/vbtext.h"
#include "places/frmLocalizacao.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "store/frmIni.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A place list of a card.
struct Lista
{
    QLatin1String cartao;
    QLatin1String combo;
};

const Lista listas[] = {
    {"frmInd"_L1, "cmbLoc"_L1},   {"frmInd"_L1, "cmbLocObito"_L1}, {"frmFam"_L1, "cmbLoc"_L1},
    {"frmResid"_L1, "cmbLoc"_L1}, {"frmPass"_L1, "cmbDados_1"_L1},
};

// Who asks, by OrigemLoc, and the list that gets the place.
struct Pedido
{
    int origem;
    Lista destino;
};

const Pedido pedidos[] = {
    {1, {"frmInd"_L1, "cmbLoc"_L1}}, {3, {"frmInd"_L1, "cmbLocObito"_L1}},
    {4, {"frmFam"_L1, "cmbLoc"_L1}}, {5, {"frmResid"_L1, "cmbLoc"_L1}},
    {6, {"frmIni"_L1, {}}},          {7, {"frmPass"_L1, "cmbDados_1"_L1}},
};

// Null where nobody asks, as from the menu.
const Pedido* pedidoEmCurso()
{
    const auto pedido = std::ranges::find(pedidos, OrigemLoc, &Pedido::origem);
    return pedido == std::end(pedidos) ? nullptr : pedido;
}

// Null where the card isn't loaded: none is loaded for it.
ComboBox* comboDe(const Lista& lista)
{
    const Form* cartao = Forms::find(lista.cartao);
    return cartao ? cartao->findChild<ComboBox*>(lista.combo) : nullptr;
}

// Kept: the refilled list begins with one blank and has nothing chosen.
void refaz(const Lista& lista, const ListBox& locais)
{
    ComboBox* combo = comboDe(lista);
    if (!combo) return;
    combo->clear();
    combo->add(" ");
    for (int indice = 0; indice < locais.listCount(); ++indice)
        combo->add(locais.list(indice));
}

} // namespace

// A form that asks for a place waits for the unload, also where another one asks meanwhile.
void FrmLocalizacao::setVisible(bool visible)
{
    if (const Pedido* pedido = pedidoEmCurso(); visible && pedido) chamadores.insert(pedido->destino.cartao);
    Form::setVisible(visible);
}

bool FrmLocalizacao::Form_QueryUnload(UnloadMode modo)
{
    return modo != UnloadMode::ControlMenu;
}

void FrmLocalizacao::Form_Unload()
{
    if (Forms::isUnloadingAll()) return;
    for (const QString& nome : std::as_const(chamadores)) {
        Form* chamador = Forms::find(nome);
        if (!chamador) continue;
        chamador->setEnabled(true);
        if (nome == FrmIni::Name) chamador->display(); // it hides while the parish is chosen
    }
}

void FrmLocalizacao::cmdAtribuir_Click()
{
    guarded([&] {
        if (OrigemLoc != 6)
            atribuiLocal();
        else if (!atribuiParoquia())
            return;
        unload();
    });
}

void FrmLocalizacao::cmdSair_Click()
{
    guarded([&] {
        for (const Lista& lista : listas)
            refaz(lista, *lstLocal);
        unload();
    });
}

// The place on the combos goes to the card that asks for it, whether or not it is on the working list.
void FrmLocalizacao::atribuiLocal()
{
    const Pedido* pedido = pedidoEmCurso();
    if (!pedido) return;
    for (const Lista& lista : listas)
        if (lista.cartao == pedido->destino.cartao) refaz(lista, *lstLocal);
    LocalEscolhido();
    if (ComboBox* combo = comboDe(pedido->destino)) {
        const QString texto = textoDoLocal(LocalNome, LocalTipo, LocalCod);
        combo->setText(texto);
        if (combo->listIndex() < 0) combo->setListIndex(combo->add(texto));
    }
}

// The parish on the combos becomes that of the BDP, at once. False where there is none.
bool FrmLocalizacao::atribuiParoquia()
{
    LocalEscolhido();
    if (Trim(cmbParoquia->text()).isEmpty()) {
        showMessage("Deve seleccionar uma paróquia!");
        return false;
    }
    frmIni().setParoquia(LocalNome);
    CodParoquia = LocalCod;
    CodPais = Mid(cmbPais->text(), 1, 2);
    cnBDP.execute(dadosDe(Nivel::Paroquia).marca(LocalCod, Prioridade::DaBDP));
    return true;
}
