#include "common/codigos.h"

#include "common/modGeral.h"
#include "platform/forms/controls.h"

void PreencheCodigos(ComboBox& lista, const QString& instrucao)
{
    jet::Recordset codigos(cnBDP, instrucao);
    PreencheCombo(lista, codigos, 1, 0);
    if (lista.count() == 0) lista.add("  ");
    for (int i = 0; i < lista.count(); ++i)
        lista.setItemText(i, lista.list(i).remove('*'));
}
