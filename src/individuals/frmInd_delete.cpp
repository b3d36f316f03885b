// What goes with a person: the dated attributes, the acts, the family links.
#include "individuals/frmInd.h"

#include "common/dono.h"
#include "common/instrucao.h"
#include "common/numeros.h"
#include "platform/forms/msgbox.h"
#include "platform/jet/transaction.h"
#include "store/lixo.h"

namespace {

// Kept: the statement for the person's own appearances as an assistant is sent twice. Those who assisted at the death,
// the heirs and the columns in which others name the person keep the number.
void eliminaReferencias(const QString& n)
{
    cnBDP.execute(comChave("delete from residencia where tiporesid = 'i' and numero = ?", n));
    cnBDP.execute(comChave("delete from profissoes where nind = ?", n));
    cnBDP.execute(comChave("delete from legadosprofanos where nind = ?", n));
    cnBDP.execute(comChave("delete from rituaismorte where nind = ?", n));
    cnBDP.execute(comChave("delete from assinatura where nind = ?", n));
    cnBDP.execute(comChave("delete from assistente where tipoacto = 'b' and entidade = ?", n));
    cnBDP.execute(comChave("delete from assistente where nind = ?", n));
    cnBDP.execute(comChave("delete from assistente where nind = ?", n));
    cnBDP.execute(comChave("delete from passaporte where nind = ?", n));
}

// A family that loses its only spouse is deleted, and its children no longer have a family of origin. Kept: a couple
// loses both spouses, and the family stays without any; more than two are left alone. Whether it was deleted.
bool desfazFamilia(const QString& f)
{
    const jet::Recordset contagem(cnBDP, comChave("select count(*) as cont from familias where nfamilia = ?", f));
    const double conjuges = contagem["cont"].toDouble();
    if (conjuges == 1) {
        cnBDP.execute(comChave("update individuo set famorig = null where famorig = ?", f));
        cnBDP.execute(comChave("delete from familias where nfamilia = ?", f));
        cnBDP.execute(comChave("delete from familia where nfamilia = ?", f));
    } else if (conjuges == 2) {
        cnBDP.execute(comChave("delete from familias where nfamilia = ?", f));
    }
    return conjuges == 1;
}

// Kept: where the store refuses that the row itself goes, nothing is said, and the references are gone all the same.
void eliminaLinha(const QString& n)
{
    try {
        cnBDP.execute(jet::NativeSql("delete from individuo where nind = ?", {n}));
    } catch (const jet::Error& erro) {
        if (erro.number != jet::number::invalidStatement || cnBDP.transactionLevel() == 0) throw;
    }
}

} // namespace

void FrmInd::elimina()
{
    if (ask("Tem a certeza que deseja eliminar este indivíduo e todas as suas referências?", Icon::None))
        eliminaIndividuo();
}

// What goes can be put back. Kept: the family card is not told.
void FrmInd::eliminaIndividuo()
{
    poeListaNoNumero(txtNind->text()); // the list may be elsewhere, as at the start of an alteration
    const QString n = chaveEmSQL(adoInd.recordset()["Nind"]);
    jet::Transaction transaccao(cnBDP);
    lixo::Recolha recolha(cnBDP, lixo::Tipo::Individuo, n);
    eliminaReferencias(n);
    QStringList desfeitas;
    for (jet::Recordset familias(cnBDP, comChave("select nfamilia from familias where nind = ?", n)); !familias.eof();
         familias.moveNext())
        if (const QString f = chaveEmSQL(familias["nfamilia"]); desfazFamilia(f)) desfeitas << f;
    eliminaLinha(n);
    recolha.guarda();
    transaccao.commit();
    for (const QString& f : std::as_const(desfeitas))
        JanelaDoDono::fechaAsDe(TipoDeDono::Familia, f);

    eliminaDoFicheiro();
}
