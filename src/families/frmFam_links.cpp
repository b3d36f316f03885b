// The ways out of the card: to a person, to the forms of the family, and back to whoever called it.
#include "families/frmFam.h"

#include "acts/frmIntervenientes.h"
#include "common/captions.h"
#include "common/globals.h"
#include "common/modGeral.h"
#include "common/pedidoDeLocal.h"
#include "common/vbtext.h"
#include "individuals/frmInd.h"
#include "platform/forms/forms.h"
#include "views/frmRP.h"

// On an empty half nobody is sought, and the first individual is shown.
void FrmFam::cmdDirInd_Click(int indice)
{
    guarded([&] {
        FrmIndLoaded();
        frmInd().setFocusToForm();
        OrigemInd = indice + 1;
        jet::Recordset& individuos = frmInd().adoInd.recordset();
        if (frmInd().adoInd.hasRows()) {
            individuos.moveFirst();
            const QString numero = metade(indice).nind->text();
            const bool vazio = indice == 0 ? Trim(numero).isEmpty() : numero.isEmpty(); // Kept: one of them trimmed.
            if (!vazio) individuos.find("nind = " + numero);
            frmInd().ActualizaCampos(individuos);
        }
        setEnabled(false);
    });
}

// The picker enables the card again when it goes.
void FrmFam::cmdEncLoc_Click()
{
    guarded([&] { pedeLocal(paraLista(OrigemLoc::Casamento, *this, *cmbLoc)); });
}

void FrmFam::cmdRP_Click()
{
    guarded([&] { frmRP().mostraPara("c"); });
}

void FrmFam::cmdInt_Click()
{
    guarded([&] {
        if (!emInsercao()) poeFicheiroNaFicha();
        abreIntervenientes(1);
    });
}

// The form of the residences enables the card again when it goes. One that is open already stays with whoever opened
// it, and only comes forward.
void FrmFam::cmdResid_Click()
{
    guarded([&] {
        if (Form* aberto = Forms::find("frmResid")) return aberto->display();
        OrigemResid = 1;
        Form* residencias = Forms::load("frmResid");
        if (!residencias) return;
        setEnabled(false);
        residencias->findChild<QLabel*>("Label2")->setText("Família");
        residencias->display();
    });
}

// Kept: back on the individual's card, this one is left standing as it is.
void FrmFam::cmdFechar_Click()
{
    guarded([&] {
        if ((OrigemFam != 1 && OrigemFam != 2) || OrigemInd == 8) return conceal();
        frmInd().display();
        frmInd().setEnabled(true);
        frmInd().setFocusToForm();
        OrigemFam = 0;
    });
}

// The family has no row yet, and the file stands on the last one, where its number came from.
bool FrmFam::emInsercao() const
{
    return cmdIns->text() == legenda::confirmar;
}

void terminaChamada()
{
    IndChamado = Forms::isLoaded(FrmFam::Name) && frmFam().Modo == "Edi" ? 1 : 0;
}
