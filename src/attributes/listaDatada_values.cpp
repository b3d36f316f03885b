// What the fields of a list hold: checked when one is left, and written as a row.
#include "attributes/listaDatada.h"

#include "common/datas.h"
#include "common/modGeral.h"
#include "platform/forms/focus.h"

void ListaDatada::vigiaData(MaskedEdit* campo, QCheckBox* fixa)
{
    const auto deixa = [=, this] {
        if (comandos_.passo() == Passo::Alteracao && dataAntiga_.inalterada(*campo)) return;
        if (!VerificaData(*campo))
            dataAntiga_.recusa();
        else if (fixa)
            fixa->setChecked(!semData(campo->text()));
        Focus::keepClick();
    };
    Focus::watch(
        campo, [=, this] { dataAntiga_.entra(*campo); }, [=] { guarded(deixa); });
}

void ListaDatada::vigiaNumero(TextBox* campo, const QString& recusa)
{
    Focus::watch(campo, {}, [=] { VerificaNumero(*campo, recusa, 0); });
}

void ListaDatada::vigiaInteiro(TextBox* campo, const QString& recusa)
{
    Focus::watch(campo, {}, [=] { VerificaInteiro(*campo, recusa, 0); });
}

void ListaDatada::vigiaFraccao(TextBox* campo, const QString& motivo)
{
    Focus::watch(campo, {}, [=] {
        if (campo->isModified() && eNumero(campo->text()) && !eInteiro(campo->text())) recusa(motivo, campo);
    });
}

void ListaDatada::acrescentaLinha(const Valores& valores)
{
    jet::Recordset& linhas = registos().recordset();
    linhas.addNew();
    for (const auto& [coluna, valor] : valores)
        if (!valor.isNull()) linhas.set(coluna, valor);
    linhas.update();
}

void ListaDatada::alteraLinha(const Valores& valores)
{
    jet::Recordset& linhas = registos().recordset();
    for (const auto& [coluna, valor] : valores)
        linhas.set(coluna, valor);
    linhas.update();
}

QString ListaDatada::proximoNumero(const QString& coluna)
{
    if (!registos().hasRows()) return "1";
    jet::Recordset& linhas = registos().recordset();
    linhas.setSort(coluna + " Desc");
    const QVariant ultimo = linhas[coluna];
    linhas.setSort({}); // back to the order of the grid
    return textoDoNumero(ultimo.toDouble() + 1);
}
