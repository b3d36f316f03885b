// The coded lists of the open forms, brought up to date when the codes were edited.
#include "codes/frmInfo.h"

#include "common/codigos.h"
#include "common/modGeral.h"
#include "platform/forms/forms.h"

#include <QAbstractButton>

namespace {

struct ListaAberta
{
    const char *form, *lista, *categoria;
    bool mantemEscolha;          // the item number chosen is chosen again: it stands for a stored value
    const char* opcao = nullptr; // the option under which the list shows the category
};

constexpr ListaAberta listasAbertas[] = {
    {"frmzona", "cmbTipo", "TipZo", false},
    {"frmfuneral", "cmbFuncao", "FunPa", true},
    {"frmind", "cmbclass", "ClaPa", false},
    {"frmind", "cmbSacram", "Sacra", false},
    {"frmintervenientes", "cmbPar1", "Paren", true},
    {"frmintervenientes", "cmbPar2", "Paren", true},
    {"frmintervenientes", "cmbFuncP1", "FunPa", true},
    {"frmintervenientes", "cmbFuncP2", "FunPa", true},
    {"frmlegados", "cmbParentesco", "Paren", false},
    {"frmrituais", "cmbTipo", "TipMi", false, "optLeg_0"},
    {"frmrituais", "cmbTipo", "TipOf", false, "optLeg_1"},
    {"frmrituais", "cmbTipo", "TipEs", false, "optLeg_2"},
};

// Kept: the blank entry is one blank long, and the marks stay in the texts.
void preenche(ComboBox& lista, const QString& categoria)
{
    jet::Recordset codigos = codigosDaCategoria(categoria);
    PreencheComBranco(lista, codigos, 1, 0);
    lista.setItemText(0, " ");
}

void actualiza(const QWidget* form, const ListaAberta& aberta)
{
    if (aberta.opcao && !form->findChild<QAbstractButton*>(aberta.opcao)->isChecked()) return;
    auto& lista = *form->findChild<ComboBox*>(aberta.lista);
    const bool escolhida = aberta.mantemEscolha && lista.listIndex() >= 0;
    const qint32 codigo = lista.itemData(lista.listIndex());
    preenche(lista, aberta.categoria);
    if (escolhida) ProcuraItemData(lista, codigo);
}

} // namespace

void FrmInfo::Form_Unload()
{
    if (Forms::isUnloadingAll()) return;
    guarded([] {
        for (const QWidget* form : Forms::loaded())
            for (const ListaAberta& aberta : listasAbertas)
                if (form->objectName().toLower() == aberta.form) actualiza(form, aberta);
    });
}
