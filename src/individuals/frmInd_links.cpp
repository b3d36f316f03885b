// The ways out of the card: the place picker, and back to whoever called it.
#include "individuals/frmInd.h"

#include "common/globals.h"
#include "common/modGeral.h"
#include "platform/forms/forms.h"

namespace {

void voltaA(const QString& nome)
{
    Form* form = Forms::find(nome);
    if (!form) return;
    form->setEnabled(true);
    form->setFocusToForm();
}

} // namespace

// The picker enables the card again when it goes.
void FrmInd::escolheLocal(int origem)
{
    guarded([&] {
        OrigemLoc = origem;
        setEnabled(false);
        Forms::show("frmLocalizacao");
    });
}

void FrmInd::FrmLoaded()
{
    if (Form* familia = Forms::find("frmFam"); familia && !familia->isEnabled()) familia->setEnabled(true);
}

void FrmInd::cmdFechar_Click()
{
    guarded([&] {
        if (OrigemInd == 8) {
            FrmLoaded();
            setEnabled(true);
        }
        devolveAoChamador();
    });
}

// By who called the card. It is hidden and not unloaded: it keeps its list and its place in it.
void FrmInd::devolveAoChamador()
{
    switch (OrigemInd) {
    case 0:
    case 1:
    case 2:
        conceal();
        FrmLoaded();
        break;
    case 3:
    case 4:
    case 5:
        if (OrigemInterv == 1) conceal();
        voltaA("frmIntervenientes");
        break;
    case 6:
        voltaA("frmFuneral");
        break;
    case 7:
        voltaA("frmLegados");
        break;
    case 8:
        conceal();
        break;
    case 9:
        ActualizaCampos(adoInd.recordset());
        break;
    }
    OrigemInd = 8;
}

bool FrmInd::Form_QueryUnload(UnloadMode mode)
{
    return mode != UnloadMode::ControlMenu;
}

void FrmInd::Form_Unload()
{
    if (!Forms::isUnloadingAll()) guarded([&] { devolveAoChamador(); });
}
