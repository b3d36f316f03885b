// The date fields and the ages: what is checked when one is left, and what it sets in other fields.
#include "individuals/frmInd.h"

#include "common/datas.h"
#include "common/linhaDeEstado.h"
#include "common/locais.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/text.h"
#include "common/tipoInd.h"
#include "individuals/diaEMes.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"

void FrmInd::mskDtNasc_GotFocus()
{
    Tipo = cmbTipoInd->text();
    DataNascAntiga.entra(*mskDtNasc);
}

void FrmInd::mskDtNasc_LostFocus()
{
    guarded([&] {
        const QString nascimento = mskDtNasc->text();
        mostraDiaEMes(nascimento);
        contaAnoImprovavel(mskDtNasc);
        // Nobody has changed the date: what was stored beside it stays.
        if (alterando() && DataNascAntiga.inalterada(*mskDtNasc)) {
            cmdInterv->setEnabled(eData(nascimento));
            if (eData(nascimento)) mostraIdadeCalculada();
            return;
        }
        if (!eData(nascimento)) {
            chkDtNasc->setChecked(false);
            cmdInterv->setEnabled(false);
            mskini->showPlain({});
            return;
        }
        const bool temObito = eData(mskDtObito->text());
        if (temObito && dataDoTexto(mskDtObito->text()) < dataDoTexto(nascimento)) {
            recusaData(mskDtNasc, DataNascAntiga,
                       "Não é possível atribuir uma data de nascimento maior que uma data de óbito. Por "
                       "favor, reveja os seus dados.");
            cmdInterv->setEnabled(false);
            return;
        }
        if (semData(DataNascAntiga.texto())) SeleccionaParoquiaDaBDP(*cmbLoc);
        mskini->showPlain(nascimento);
        chkDtNasc->setChecked(true);
        cmdInterv->setEnabled(true);
        mostraIdadeCalculada();
        propoeTipo(tipoPeloNascimento(Tipo, true, temObito));
    });
}

void FrmInd::mskDtObito_GotFocus()
{
    DataObitoAntiga.entra(*mskDtObito);
}

// Kept: not the mirror of the birth field. An invalid date leaves mskFim alone, and the parish is proposed each time
// the field is left.
void FrmInd::mskDtObito_LostFocus()
{
    guarded([&] {
        const QString obito = mskDtObito->text();
        mostraDiaEMes(obito);
        contaAnoImprovavel(mskDtObito);
        if (alterando() && DataObitoAntiga.inalterada(*mskDtObito)) {
            if (eData(obito)) mostraIdadeCalculada();
            return;
        }
        if (!eData(obito)) {
            chkDFixa->setChecked(false);
            return;
        }
        const bool temNascimento = eData(mskDtNasc->text());
        if (temNascimento && dataDoTexto(mskDtNasc->text()) > dataDoTexto(obito)) {
            recusaData(mskDtObito, DataObitoAntiga,
                       "Não é possível atribuir uma data de óbito menor que uma data de nascimento ou de "
                       "baptismo. Por favor, reveja os seus dados.");
            return;
        }
        SeleccionaParoquiaDaBDP(*cmbLocObito);
        mskFim->showPlain(obito);
        chkDFixa->setChecked(true);
        mostraIdadeCalculada();
        propoeTipo(tipoPeloObito(Tipo, temNascimento, true));
    });
}

void FrmInd::recusaData(MaskedEdit* campo, DataAoEntrar& antiga, const QString& motivo)
{
    showMessage(motivo);
    if (alterando()) antiga.recusa();
    campo->clearMasked();
    Focus::setTo(campo);
}

// The age by the two dates, shown and not stored. Called with one of them valid; the other may be any text.
void FrmInd::mostraIdadeCalculada()
{
    lblIdCalc->clear();
    if (semData(mskDtNasc->text()) || semData(mskDtObito->text())) return;
    lblIdCalc->setText(QString::number(CalculaIdade(dataDoTexto(mskDtNasc->text()), dataDoTexto(mskDtObito->text()))));
}

void FrmInd::propoeTipo(const QString& tipo)
{
    if (tipo == Tipo) return;
    ProcuraTexto(*cmbTipoInd, tipo);
    Tipo = tipo;
}

void FrmInd::VerificaIdade(TextBox* campo)
{
    VerificaInteiro(*campo, "Deve inserir uma idade válida!", 0);
}
