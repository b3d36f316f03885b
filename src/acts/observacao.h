// Whether a person can have been at an act, for the requests of the forms of acts.
#pragma once

#include "individuals/pedido.h"

#include <optional>

// The person shown must have been observable at the DataActo of the request. None if that is so.
std::optional<RecusaDeIndividuo> recusaNoActo(const PedidoDeIndividuo& pedido, const FrmInd& ficha);
// The same, if the funeral has a date at all.
std::optional<RecusaDeIndividuo> recusaNoFuneral(const PedidoDeIndividuo& pedido, const FrmInd& ficha);
