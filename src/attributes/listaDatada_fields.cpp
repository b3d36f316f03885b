// The checks of the fields when one is left.
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
