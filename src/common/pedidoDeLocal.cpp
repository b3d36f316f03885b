#include "common/pedidoDeLocal.h"

#include "platform/forms/controls.h"
#include "platform/forms/forms.h"

namespace {

PedidoDeLocal emVigor;

} // namespace

PedidoDeLocal paraLista(OrigemLoc origem, Form& quemPede, ComboBox& lista)
{
    return {origem, &quemPede, [&lista](const QString& nome, const Local& local) {
                const QString texto = textoDoLocal(nome, local.nivel, local.codigo);
                lista.setText(texto);
                if (lista.listIndex() < 0) lista.setListIndex(lista.add(texto));
            }};
}

void pedeLocal(const PedidoDeLocal& pedido)
{
    emVigor = pedido;
    Form* quemPede = pedido.quemPede;
    if (quemPede && !pedido.escondeQuemPede()) quemPede->setEnabled(false);
    const bool mostrada = Forms::show("frmLocalizacao");
    if (mostrada && quemPede && pedido.escondeQuemPede()) quemPede->conceal();
}

const PedidoDeLocal& pedidoDeLocal()
{
    return emVigor;
}

void esquecePedidoDeLocal()
{
    emVigor = {};
}
