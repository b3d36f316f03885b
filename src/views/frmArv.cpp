#include "views/frmArv.h"

#include "common/instrucao.h"
#include "common/modGeral.h"
#include "platform/forms/forms.h"

FrmArv& frmArv()
{
    return theForm<FrmArv>();
}

FrmArv::FrmArv() : Form(Name)
{
    setupUi(this);
    opensOn(tvw, tvw);
}

void FrmArv::mostraIndividuo(Form& cartao, const PessoaDaArvore& pessoa, const jet::Recordset& registo)
{
    mostra(cartao, "Indivíduo", pessoa, [&](Arvore& arvore) {
        const Arvore::No raiz = arvore.junta(nomeNaArvore(pessoa.nome) + DatasResumo(registo));
        if (!pessoa.famorig.isEmpty()) arvore.juntaPaisEAvos(raiz, pessoa.famorig);
        return raiz;
    });
}

void FrmArv::mostraConjuge(Form& cartao, const PessoaDaArvore& pessoa)
{
    mostra(cartao, "Conjuge", pessoa, [&](Arvore& arvore) {
        const jet::Recordset registo(
            cnBDP,
            comChave("select nome, datanasc, dataobito, inicioobs, fimobs, famorig from individuo where nind = ? "
                     "limit 1",
                     pessoa.nind));
        const Arvore::No raiz = arvore.junta(registo["Nome"].toString() + DatasResumo(registo));
        arvore.juntaMembros(raiz, registo["famorig"]);
        return raiz;
    });
}

void FrmArv::mostra(Form& cartao, const QString& tipo, const PessoaDaArvore& pessoa,
                    const std::function<Arvore::No(Arvore&)>& desenha)
{
    display();
    lblTipo->setText(tipo);
    txtNind->setText(pessoa.nind);
    txtNome->setText(pessoa.nome);
    cartao_ = &cartao;
    cartao.setEnabled(false);
    evenIfItFails([&] {
        Arvore arvore(*tvw, DatasResumo);
        arvore.mostra(desenha(arvore));
    });
}

void FrmArv::Form_Unload()
{
    if (!Forms::isUnloadingAll() && cartao_) cartao_->setEnabled(true);
}
