// A request for a place, with its receiver.
#pragma once

#include "common/locais.h"
#include "platform/forms/form.h"

#include <QPointer>
#include <QString>

#include <functional>

// What the place is for.
enum class OrigemLoc
{
    Menu = 0, // for nobody
    Nascimento = 1,
    Obito = 3,
    Casamento = 4,
    Residencia = 5,
    BDP = 6, // the parish of the BDP, which alone can be chosen then
    Passaporte = 7
};

struct PedidoDeLocal
{
    OrigemLoc origem = OrigemLoc::Menu;
    QPointer<Form> quemPede = {}; // null: nobody waits
    std::function<void(const QString& nome, const Local& local)> recebe = {};

    // Whether the form that asks is hidden until the picker goes; otherwise it is disabled.
    bool escondeQuemPede() const { return origem == OrigemLoc::BDP; }
};

// A request whose place is to be chosen in a list of the form that asks.
PedidoDeLocal paraLista(OrigemLoc origem, Form& quemPede, ComboBox& lista);

// Puts the request in force in place of an older one, takes the form that asks out of use and shows frmLocalizacao,
// which gives the place to the receiver. All forms that asked are in use again when the picker is unloaded.
void pedeLocal(const PedidoDeLocal& pedido);

// The request in force: that of the last pedeLocal(), also when the picker has gone.
const PedidoDeLocal& pedidoDeLocal();
void esquecePedidoDeLocal();
