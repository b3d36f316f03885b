#include "views/arvore.h"

#include <gtest/gtest.h>

TEST(Tree, TellsTheWholeTextOfANodeInItsToolTip)
{
    QTreeWidget tree;
    Arvore arvore(tree, [](const jet::Recordset&) { return QString(); });
    const QString text = "Maria Josefa da Conceição e Silva  DN: 09/03/1750 (São Mamede)  DO: 24/12/1801";
    const Arvore::No node = arvore.junta(text);
    EXPECT_EQ(node->text(0), text);
    EXPECT_EQ(node->toolTip(0), text);
}
