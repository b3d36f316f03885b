// The coded lists of the open forms, brought up to date when the codes were edited.
#include "codes/frmInfo.h"

#include "common/codigos.h"
#include "common/listasAbertas.h"
#include "common/modGeral.h"
#include "platform/forms/forms.h"

namespace {

// Kept: the blank entry is one blank long, and the marks stay in the texts.
void preenche(ComboBox& lista, const QString& categoria)
{
    jet::Recordset codigos = codigosDaCategoria(categoria);
    PreencheComBranco(lista, codigos, 1, 0);
    lista.setItemText(0, " ");
}

void actualiza(const ListasAbertas::Lista& aberta)
{
    if (aberta.quando && !aberta.quando()) return;
    ComboBox& lista = *aberta.combo;
    const bool escolhida = lista.listIndex() >= 0;
    const qint32 codigo = lista.itemData(lista.listIndex());
    preenche(lista, aberta.categoria);
    if (escolhida) ProcuraItemData(lista, codigo);
}

} // namespace

void FrmInfo::Form_Unload()
{
    if (Forms::isUnloadingAll()) return;
    guarded([] {
        for (const ListasAbertas::Lista& aberta : ListasAbertas::deCodigos())
            actualiza(aberta);
    });
}
