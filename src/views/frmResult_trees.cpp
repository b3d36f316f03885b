// The trees of the row chosen.
#include "common/modGeral.h"
#include "common/places.h"
#include "common/resumo.h"
#include "common/vbtext.h"
#include "families/frmFam.h"
#include "views/arvore.h"
#include "views/frmResult.h"

namespace {

QString membros(const QString& familia)
{
    return "SELECT familia.nfamilia, individuo.nome,individuo.sexo, datanasc, localnasc,  tipolocalnasc, dataobito, "
           "individuo.inicioobs, individuo.fimobs, individuo.famorig  FROM individuo INNER JOIN (familia INNER JOIN "
           "familias ON  familia.nfamilia = familias.nfamilia) ON individuo.nind = familias.nind WHERE "
           "familias.nfamilia = " +
           familia + " order by individuo.sexo desc";
}

// The place of birth stands behind the date, and also without one.
QString datasELocal(const jet::Recordset& pessoa)
{
    const QVariant codigo = pessoa["localnasc"];
    const QString local = codigo.isNull() ? QString() : " (" + NomeLocal(codigo, pessoa["tipolocalnasc"]) + ")";
    return InicioDaVida(pessoa) + local + FimDaVida(pessoa);
}

void juntaConjuge(Arvore& arvore, const TextBox* nind, const TextBox* nome)
{
    if (Trim(nome->text()).isEmpty()) return;
    const jet::Recordset pessoa(cnBDP, "select famorig, datanasc, localnasc, tipolocalnasc,  dataobito, inicioobs, "
                                       "fimobs from individuo where nind = " +
                                           nind->text());
    // Kept: the card's description of the person has the dates already; the node shows them twice.
    const Arvore::No no = arvore.junta(nomeNaArvore(nome->text()) + datasELocal(pessoa));
    arvore.juntaMembros(no, pessoa["famorig"]);
}

} // namespace

void FrmResult::PreencheArvore()
{
    guarded([&] {
        Arvore arvore(*tvw, membros, datasELocal);
        const Arvore::No raiz = arvore.junta(nomeNaArvore(dtgProf->textMatrix(dtgProf->row(), 1)));
        const QString familia = dtgProf->textMatrix(dtgProf->row(), 2);
        if (!familia.isEmpty()) arvore.juntaPaisEAvos(raiz, familia);
        arvore.mostra(raiz);
    });
}

void FrmResult::PreencheArvoreFam()
{
    guarded([&] {
        Arvore arvore(*tvw, membros, datasELocal);
        juntaConjuge(arvore, frmFam().txtPnind, frmFam().txtPnome);
        juntaConjuge(arvore, frmFam().txtSnind, frmFam().txtSnome);
        arvore.mostraUltimo();
    });
}
