// A tree of ancestors, as the windows that show one draw it.
#pragma once

#include "platform/jet/recordset.h"

#include <QString>
#include <QTreeWidget>

// Whose ancestors are drawn. The name is the text of the node.
struct PessoaDaArvore
{
    QString nind, nome;
    QString famorig = {}; // "" if no family of origin is known
};

// Draws upward only: a node stands for a person, the nodes under it for the members of that person's family of origin.
// A node is a text: the name, and what `resumo` says of the person's record. The tree is as deep as the calls make it,
// so somebody recorded as their own ancestor is merely drawn twice.
class Arvore
{
public:
    using No = QTreeWidgetItem*;
    using Resumo = QString (*)(const jet::Recordset& pessoa);

    // Starts with no nodes.
    Arvore(QTreeWidget& tvw, Resumo resumo);

    // A root.
    No junta(const QString& texto);
    // The members of a family under a node; none for 0 or null.
    void juntaMembros(No no, const QVariant& familia);
    // Two generations under a node: the parents and, under each, theirs. Of two members both are drawn; of any other
    // number only the first.
    void juntaPaisEAvos(No no, const QString& familia);
    // Ends the drawing: scrolls to a node.
    void mostraUltimo();
    void mostra(No no);

private:
    No junta(No pai, const jet::Recordset& pessoa);
    void juntaComPais(No filho, const jet::Recordset& pessoa);

    QTreeWidget& tvw_;
    Resumo resumo_;
    No ultimo_ = nullptr;
};

// A name as the nodes show it: every run of four blanks is removed.
QString nomeNaArvore(QString nome);
