#include "views/arvore.h"

#include "common/numbers.h"
#include "store/session.h"

#include <QHeaderView>

QString nomeNaArvore(QString nome)
{
    return nome.remove(QLatin1String("    "));
}

Arvore::Arvore(QTreeWidget& tvw, Instrucao membros, Resumo resumo) : tvw_(tvw), membros_(membros), resumo_(resumo)
{
    tvw_.clear();
    tvw_.header()->setSectionResizeMode(QHeaderView::ResizeToContents); // a long text is reached by scrolling
}

Arvore::No Arvore::junta(const QString& texto)
{
    return ultimo_ = new QTreeWidgetItem(&tvw_, {texto});
}

Arvore::No Arvore::junta(No pai, const jet::Recordset& pessoa)
{
    ultimo_ = new QTreeWidgetItem(pai, {nomeNaArvore(pessoa["nome"].toString()) + resumo_(pessoa)});
    pai->setExpanded(true); // laid out only when a node is shown in the end
    return ultimo_;
}

void Arvore::juntaMembros(No no, const QVariant& familia)
{
    if (familia.toDouble() == 0) return;
    for (jet::Recordset membro(cnBDP, membros_(textoDoNumero(familia))); !membro.eof(); membro.moveNext())
        junta(no, membro);
}

void Arvore::juntaPaisEAvos(No no, const QString& familia)
{
    jet::Recordset membro(cnBDP, membros_(familia));
    if (membro.eof()) return;
    // Kept: a family of one, or of three, draws its first member alone.
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
