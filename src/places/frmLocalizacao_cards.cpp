// The forms that ask for a place: who waits, what comes back, and the place lists of the cards.
#include "common/listasAbertas.h"
#include "common/modGeral.h"
#include "common/text.h"
#include "places/frmLocalizacao.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

#include <algorithm>

namespace {

// Kept: the refilled list begins with one blank and has nothing chosen.
void refaz(ComboBox& lista, const ListBox& locais)
{
    lista.clear();
    lista.add(" ");
    for (int indice = 0; indice < locais.listCount(); ++indice)
        lista.add(locais.list(indice));
}

QString oQueSeSegue(OrigemLoc origem)
{
    switch (origem) {
    case OrigemLoc::BDP:
        return "Escolha o distrito, o concelho e a paróquia, e carregue em \"Atribuir\".";
    case OrigemLoc::Menu:
        return "Escolha um local, de cima para baixo, e carregue em \"Guardar\": fica na lista que as fichas oferecem.";
    default:
        return "Escolha o local, de cima para baixo, e carregue em \"Atribuir\": passa para a ficha. \"Guardar\" põe-no na "
               "lista.";
    }
}

} // namespace

// A form that asks for a place waits for the unload, also where another one asks meanwhile.
void FrmLocalizacao::setVisible(bool visible)
{
    const PedidoDeLocal& pedido = pedidoDeLocal();
    const auto espera = [&](const PedidoDeLocal& outro) { return outro.quemPede == pedido.quemPede; };
    if (visible && pedido.quemPede && std::ranges::none_of(emEspera, espera)) emEspera << pedido;
    Form::setVisible(visible);
    if (visible) dica_.tell(oQueSeSegue(pedido.origem));
}

bool FrmLocalizacao::Form_QueryUnload(UnloadMode modo)
{
    return modo != UnloadMode::ControlMenu;
}

void FrmLocalizacao::Form_Unload()
{
    if (Forms::isUnloadingAll()) return;
    for (const PedidoDeLocal& pedido : std::as_const(emEspera)) {
        if (!Forms::loaded().contains(pedido.quemPede)) continue;
        pedido.quemPede->setEnabled(true);
        if (pedido.escondeQuemPede()) pedido.quemPede->display();
    }
}

void FrmLocalizacao::cmdAtribuir_Click()
{
    guarded([&] {
        if (pedidoDeLocal().origem != OrigemLoc::BDP)
            atribuiLocal();
        else if (!atribuiParoquia())
            return;
        unload();
    });
}

void FrmLocalizacao::cmdSair_Click()
{
    guarded([&] {
        for (const auto& aberta : ListasAbertas::deLocais())
            refaz(*aberta.combo, *lstLocal);
        unload();
    });
}

// The place on the combos goes to the card that asks for it, whether or not it is on the working list.
void FrmLocalizacao::atribuiLocal()
{
    const PedidoDeLocal& pedido = pedidoDeLocal();
    if (!pedido.quemPede) return;
    for (const auto& aberta : ListasAbertas::deLocais())
        if (aberta.janela == pedido.quemPede) refaz(*aberta.combo, *lstLocal);
    LocalEscolhido();
    pedido.recebe(LocalNome, {LocalCod, LocalTipo});
}

// The parish on the combos becomes that of the BDP, at once. False where there is none.
bool FrmLocalizacao::atribuiParoquia()
{
    LocalEscolhido();
    if (Trim(cmbParoquia->text()).isEmpty()) {
        showMessage("Deve seleccionar uma paróquia!");
        return false;
    }
    if (const PedidoDeLocal& pedido = pedidoDeLocal(); pedido.quemPede) pedido.recebe(LocalNome, {LocalCod, LocalTipo});
    CodParoquia = LocalCod;
    CodPais = codigoAte(Nivel::Pais);
    cnBDP.execute(dadosDe(Nivel::Paroquia).marca(LocalCod, Prioridade::DaBDP));
    return true;
}
