// What goes with a family, and can be put back. Its people stay.
#include "families/frmFam.h"

#include "common/instrucao.h"
#include "common/numeros.h"
#include "platform/forms/msgbox.h"
#include "platform/jet/transaction.h"
#include "store/lixo.h"

void FrmFam::elimina()
{
    if (ask("Tem a certeza que deseja eliminar esta família e todas as suas referências?")) eliminaFamilia();
}

void FrmFam::eliminaFamilia()
{
    poeFicheiroNaFicha();
    const QString n = chaveEmSQL(adoFam.recordset()["nfamilia"]);
    jet::Transaction transaccao(cnBDP);
    lixo::Recolha recolha(cnBDP, lixo::Tipo::Familia, n);
    cnBDP.execute(comChave("update individuo set famorig = null where famorig = ?", n));
    cnBDP.execute(comChave("delete from residencia where tiporesid = 'f' and numero = ?", n));
    cnBDP.execute(comChave("delete from assistente where tipoacto = 'c' and entidade = ?", n));
    cnBDP.execute(comChave("delete from familias where nfamilia = ?", n));
    cnBDP.execute(comChave("delete from familia where nfamilia = ?", n));
    recolha.guarda();
    transaccao.commit();

    eliminaDoFicheiro();
}
