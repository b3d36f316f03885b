#include "common/passo.h"

#include <QAbstractButton>

void Comandos::passaA(Passo passo)
{
    passo_ = passo;
    for (const LegendasDoComando& legendas : legendas_) {
        const char* const porPasso[] = {legendas.repouso, legendas.insercao, legendas.alteracao, legendas.pesquisa};
        if (const char* legenda = porPasso[static_cast<int>(passo)]) legendas.comando->setText(legenda);
    }
}
