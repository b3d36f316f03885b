#include "shell/beginSession.h"

#include "common/pedidoDeLocal.h"
#include "common/pesquisa.h"
#include "individuals/pedido.h"

void beginSession()
{
    EmPesquisa.acaba();
    chamada().recomeca();
    esquecePedidoDeLocal();
}
