#include "individuals/pedido.h"

void Chamada::comeca(PedidoDeIndividuo pedido)
{
    pedido_ = std::move(pedido);
    if (pedido_.IndChamado) IndChamado_ = true;
}

void Chamada::espera()
{
    if (!pedido_.espera) return;
    aEspera_ << pedido_.quem;
    pedido_.quem->setEnabled(false);
}

void Chamada::interrompe()
{
    if (pedido_.IndChamado) terminaIndChamado();
    desiste();
}

void Chamada::acaba()
{
    desiste();
    terminaIndChamado();
}

void Chamada::libertaQuemEspera()
{
    for (const QPointer<Form>& form : std::exchange(aEspera_, {}))
        if (form) form->setEnabled(true);
}

void Chamada::familiaMudaDeModo(bool emEdicao)
{
    familiaEmEdicao_ = emEdicao;
    IndChamado_ = emEdicao;
}

Chamada& chamada()
{
    static Chamada unica;
    return unica;
}
