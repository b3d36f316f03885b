#include "views/arvore.h"

#include "common/instrucao.h"
#include "common/numeros.h"
#include "platform/forms/showntext.h"
#include "store/session.h"

#include <QHeaderView>

namespace {

// The members of a family, with what a node tells of a person and their own family of origin.
jet::NativeSql membros(const QString& familia)
{
    return comChave("select individuo.nome, datanasc, localnasc, tipolocalnasc, dataobito, individuo.inicioobs, "
                    "individuo.fimobs, individuo.famorig from individuo inner join (familia inner join familias on "
                    "familia.nfamilia = familias.nfamilia) on individuo.nind = familias.nind where familias.nfamilia = "
                    "? order by individuo.sexo collate orv_alphabetical desc",
                    familia);
}

// The whole text also where the node is wider than the tree.
QTreeWidgetItem* comDica(QTreeWidgetItem* no)
{
    no->setToolTip(0, shownTip(no->text(0)));
    no->setText(0, shownText(no->text(0)));
    return no;
}

} // namespace

QString nomeNaArvore(QString nome)
{
    return nome.remove(QLatin1String("    "));
}

Arvore::Arvore(QTreeWidget& tvw, Resumo resumo) : tvw_(tvw), resumo_(resumo)
{
    tvw_.clear();
    tvw_.header()->setSectionResizeMode(QHeaderView::ResizeToContents); // a long text is reached by scrolling
}

Arvore::No Arvore::junta(const QString& texto)
{
    return ultimo_ = comDica(new QTreeWidgetItem(&tvw_, {texto}));
}

Arvore::No Arvore::junta(No pai, const jet::Recordset& pessoa)
{
    ultimo_ = comDica(new QTreeWidgetItem(pai, {nomeNaArvore(pessoa["nome"].toString()) + resumo_(pessoa)}));
    pai->setExpanded(true); // only laid out when a node is shown at the end
    return ultimo_;
}

void Arvore::juntaMembros(No no, const QVariant& familia)
{
    if (familia.toDouble() == 0) return;
    for (jet::Recordset membro(cnBDP, membros(textoDoNumero(familia))); !membro.eof(); membro.moveNext())
        junta(no, membro);
}

void Arvore::juntaPaisEAvos(No no, const QString& familia)
{
    jet::Recordset membro(cnBDP, membros(familia));
    if (membro.eof()) return;
    // Kept: of a family of one, or of three, only the first member is drawn.
    if (membro.recordCount() == 2) {
        juntaComPais(no, membro);
        membro.moveNext();
    }
    juntaComPais(no, membro);
}

void Arvore::juntaComPais(No filho, const jet::Recordset& pessoa)
{
    const No no = junta(filho, pessoa);
    juntaMembros(no, pessoa["famorig"]);
}

void Arvore::mostraUltimo()
{
    if (ultimo_) mostra(ultimo_);
}

void Arvore::mostra(No no)
{
    tvw_.scrollToItem(no);
}
