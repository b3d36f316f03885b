// The trees of the row chosen.
#include "common/instrucao.h"
#include "common/locais.h"
#include "common/modGeral.h"
#include "common/resumo.h"
#include "common/text.h"
#include "views/frmResult.h"

namespace {

// The place of birth follows the date, and is shown without one too.
QString datasELocal(const jet::Recordset& pessoa)
{
    const QVariant codigo = pessoa["localnasc"];
    const QString local = codigo.isNull() ? QString() : " (" + NomeLocal(codigo, pessoa["tipolocalnasc"]) + ")";
    return InicioDaVida(pessoa) + local + FimDaVida(pessoa);
}

void juntaConjuge(Arvore& arvore, const PessoaDaArvore& conjuge)
{
    if (Trim(conjuge.nome).isEmpty()) return;
    const jet::Recordset pessoa(cnBDP, comChave("select famorig, datanasc, localnasc, tipolocalnasc, dataobito, "
                                                "inicioobs, fimobs from individuo where nind = ? limit 1",
                                                conjuge.nind));
    // Kept: the name is the card's description of the person and has the dates already; the node shows them twice.
    const Arvore::No no = arvore.junta(nomeNaArvore(conjuge.nome) + datasELocal(pessoa));
    arvore.juntaMembros(no, pessoa["famorig"]);
}

} // namespace

void FrmResult::desenhaArvore()
{
    evenIfItFails([&] {
        const Achado achado = leAchado(ficha_->adoFiltro.recordset(), dtgProf->row(), le_);
        uso_ == Uso::Individuos ? PreencheArvore(achado) : PreencheArvoreFam(achado);
    });
}

void FrmResult::PreencheArvore(const Achado& achado)
{
    Arvore arvore(*tvw, datasELocal);
    const PessoaDaArvore pessoa = achado.raizes.value(0);
    const Arvore::No raiz = arvore.junta(nomeNaArvore(pessoa.nome));
    if (!pessoa.famorig.isEmpty()) arvore.juntaPaisEAvos(raiz, pessoa.famorig);
    arvore.mostra(raiz);
}

void FrmResult::PreencheArvoreFam(const Achado& achado)
{
    Arvore arvore(*tvw, datasELocal);
    for (const PessoaDaArvore& conjuge : achado.raizes)
        juntaConjuge(arvore, conjuge);
    arvore.mostraUltimo();
}
