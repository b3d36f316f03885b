#include "views/frmArv.h"

#include "common/modGeral.h"
#include "individuals/frmInd.h"
#include "platform/forms/forms.h"
#include "views/arvore.h"

namespace {

QString membros(const QString& familia)
{
    return "SELECT familia.nfamilia, individuo.nome as nome,individuo.sexo, datanasc,  dataobito, individuo.inicioobs, "
           "individuo.fimobs, individuo.famorig  FROM individuo INNER JOIN (familia INNER JOIN familias ON  "
           "familia.nfamilia = familias.nfamilia) ON individuo.nind = familias.nind WHERE familias.nfamilia = " +
           familia + " order by individuo.sexo desc";
}

} // namespace

FrmArv& frmArv()
{
    return theForm<FrmArv>();
}

FrmArv::FrmArv() : Form(Name)
{
    setupUi(this);
}

void FrmArv::PreencheArv()
{
    guarded([&] {
        Arvore arvore(*tvw, membros, DatasResumo);
        Arvore::No raiz = nullptr;
        if (lblTipo->text() == "Indivíduo") {
            FrmInd& ficha = frmInd();
            raiz = arvore.junta(nomeNaArvore(ficha.txtNome->text()) + DatasResumo(ficha.adoNind.recordset()));
            if (!ficha.txtFamOrig->text().isEmpty()) arvore.juntaPaisEAvos(raiz, ficha.txtFamOrig->text());
        } else {
            const jet::Recordset pessoa(
                cnBDP, "select nome , datanasc, dataobito, inicioobs, fimobs, famorig from individuo where nind = " +
                           txtNind->text());
            raiz = arvore.junta(pessoa["Nome"].toString() + DatasResumo(pessoa));
            arvore.juntaMembros(raiz, pessoa["famorig"]);
        }
        arvore.mostra(raiz);
    });
}

void FrmArv::Form_Unload()
{
    if (Forms::isUnloadingAll()) return;
    if (Form* ficha = Forms::find(FrmInd::Name)) ficha->setEnabled(true);
}
