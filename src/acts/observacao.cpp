#include "acts/observacao.h"

#include "common/datas.h"
#include "individuals/frmInd.h"

namespace {

std::optional<RecusaDeIndividuo> recusa(const PedidoDeIndividuo& pedido, const FrmInd& ficha, const QString& brancos)
{
    if (DentroObservacao(Nind::doCampo(ficha.numero()), pedido.DataActo)) return {};
    return RecusaDeIndividuo{"O indivíduo que tenta atribuir não se" + brancos +
                                 "encontra no espaço temporal permitido!\r\nAtribua outro indivíduo.",
                             Icon::None};
}

} // namespace

std::optional<RecusaDeIndividuo> recusaNoActo(const PedidoDeIndividuo& pedido, const FrmInd& ficha)
{
    return recusa(pedido, ficha, " ");
}

std::optional<RecusaDeIndividuo> recusaNoFuneral(const PedidoDeIndividuo& pedido, const FrmInd& ficha)
{
    if (pedido.DataActo.isEmpty()) return {};
    return recusa(pedido, ficha, "  "); // kept: two blanks there
}
