#include "common/codigos.h"
#include "common/marca.h"

#include "common/modGeral.h"
#include "platform/forms/controls.h"

void PreencheComBranco(ComboBox& lista, jet::Recordset& registos, int colunaTexto, int colunaDados)
{
    PreencheCombo(lista, registos, colunaTexto, colunaDados);
    if (lista.count() == 0) lista.add("  ");
}

jet::Recordset codigosDaCategoria(const QString& categoria)
{
    return {cnBDP, jet::NativeSql("select codigo, descricao from infocomplementar where categoria = ?", {categoria})};
}

void PreencheCodigos(ComboBox& lista, const QString& categoria)
{
    jet::Recordset codigos = codigosDaCategoria(categoria);
    PreencheComBranco(lista, codigos, 1, 0);
    for (int i = 0; i < lista.count(); ++i)
        lista.setItemText(i, semMarca(lista.list(i)));
}
