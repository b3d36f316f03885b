// Insert and alteration.
#include "families/frmFam.h"

#include "common/campos.h"
#include "common/linhaDeEstado.h"
#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "platform/jet/transaction.h"

namespace {

// Kept: the last entry wins; so "Legítima" may stand anywhere among the situations.
void escolheLegitima(ComboBox& situacoes)
{
    for (int i = 0; i < situacoes.count(); ++i)
        if (situacoes.list(i).startsWith('l', Qt::CaseInsensitive)) situacoes.setListIndex(i);
}

} // namespace

void FrmFam::iniciaInsercao()
{
    abreInsercao();
    // Kept: the number after that of the last row of the file, which isn't always the highest one.
    Nfam ultima;
    if (adoFam.hasRows()) {
        adoFam.recordset().moveLast();
        ultima = Nfam::daColuna(adoFam.recordset()["nfamilia"]);
    }
    NfamCorrente = ultima.seguinte();
    txtNFam->setText(NfamCorrente.texto());
    escolheLegitima(*cmbSit);
    Focus::setTo(cmbSit);
    ProcuraTexto(*cmbTipoFam, "7");
}

// Without these no family is stored.
bool FrmFam::temObrigatorios()
{
    if (txtPnind->text().isEmpty() && txtSnind->text().isEmpty())
        return recusa("Deve inserir pelo menos um dos elementos da família!", txtPnind);
    if (!preenchido(cmbSit)) return recusa("Deve especificar a situação da família!", cmbSit);
    if (!preenchido(cmbTipoFam)) return recusa("Deve especificar o tipo de família!", cmbTipoFam);
    return true;
}

void FrmFam::confirmaInsercao()
{
    const Hourglass ampulheta;
    if (!temObrigatorios()) return;
    jet::Transaction transaccao(cnBDP);
    insereFamilia();
    for (const Metade& membro : metades_)
        insereMembro(membro);
    transaccao.commit();

    adoFam.refresh();
    contaGravado("família nº " + numero(), {mskData, mskini, mskFim});
    fechaEdicao();
    ActualizaCampos(adoFam.recordset(), Nfam::doCampo(numero()));
}

// Kept: no text is escaped. An apostrophe in the notes fails its statement, and the family isn't inserted.
void FrmFam::insereFamilia()
{
    const QString n = txtNFam->text();
    cnBDP.execute("insert into familia (nfamilia, sfamilia, tipocasal) values (" + n + "," + itemDe(cmbSit).toString() +
                  ",'" + Trim(cmbTipoFam->text()) + "')");
    if (preenchido(mskData)) {
        cnBDP.execute("update familia set datacasam = " + literalDaData(mskData->text()) + " where nfamilia = " + n);
        if (chkDF->isChecked())
            cnBDP.execute("update familia set dcasamfixa = 1  where nfamilia = " + n);
        else
            cnBDP.execute("update familia set dcasamfixa = 0  where nfamilia = " + n);
    } else {
        cnBDP.execute("update familia set dcasamfixa = 0 where nfamilia = " + n);
    }
    if (preenchido(cmbLoc)) {
        const Local local = localDoTexto(cmbLoc->text());
        cnBDP.execute("update familia set localcasam ='" + local.codigo + "' where nfamilia = " + n);
        cnBDP.execute("update familia set tipolocalcasam ='" + local.nivel + "' where nfamilia = " + n);
    }
    if (preenchido(mskini))
        cnBDP.execute("update familia set inicioobs = " + literalDaData(mskini->text()) + " where nfamilia = " + n);
    if (preenchido(mskFim))
        cnBDP.execute("update familia set fimobs = " + literalDaData(mskFim->text()) + " where nfamilia = " + n);
    if (preenchido(txtObs)) cnBDP.execute("update familia set obs = '" + txtObs->text() + "' where nfamilia = " + n);
}

void FrmFam::insereMembro(const Metade& membro)
{
    const QString n = txtNFam->text(), m = membro.nind->text();
    if (m.isEmpty()) return;
    cnBDP.execute("insert into familias (nfamilia, nind) values (" + n + "," + m + ")");
    if (preenchido(membro.idade))
        cnBDP.execute("update familias set idade = " + membro.idade->text() + " where nfamilia = " + n +
                      " and nind = " + m);
    if (preenchido(membro.estadoCivil))
        cnBDP.execute("update familias set estadocivil = " + itemDe(membro.estadoCivil).toString() +
                      " where nfamilia = " + n + " and nind = " + m);
    if (preenchido(membro.numCasam))
        cnBDP.execute("update familias set numcasam = " + membro.numCasam->text() + " where nfamilia = " + n +
                      " and nind = " + m);
}

// Kept: back on the last family, where the insert took its number from, and not on the one shown before.
void FrmFam::cancelaInsercao()
{
    fechaEdicao();
    ActualizaCampos(adoFam.recordset(), adoFam.hasRows() ? Nfam::daColuna(adoFam.recordset()["nfamilia"]) : Nfam());
}

void FrmFam::iniciaAlteracao()
{
    abreAlteracao();
    if (!eData(mskData->text())) mskData->setText({});
    Focus::setTo(cmbSit);
}

// Kept: the row of the family is written outside the transaction, and stays written where the members fail.
void FrmFam::confirmaAlteracao()
{
    const Hourglass ampulheta;
    if (!temObrigatorios()) return;
    poeFicheiroNaFicha();
    alteraFamilia();
    adoFam.refresh(); // Kept: the file is on its first row again; cmdSeg goes on from the number on the card.

    jet::Transaction transaccao(cnBDP);
    cnBDP.execute("delete from familias where nfamilia = " + txtNFam->text());
    // Kept: the first member's number of marriages decides for the second's too.
    const bool temNumCasam = preenchido(txtNC1);
    for (const Metade& membro : metades_)
        reescreveMembro(membro, temNumCasam);
    transaccao.commit();
    contaGravado("família nº " + numero(), {mskData, mskini, mskFim});

    fechaEdicao();
}

// Every column of the card; null where its field is empty or, for a date, no date.
void FrmFam::alteraFamilia()
{
    const auto dataDe = [](const MaskedEdit* campo) { return eData(campo->text()) ? campo->text() : QVariant(); };
    jet::Recordset& familia = adoFam.recordset();
    familia.set("sfamilia", itemDe(cmbSit));
    familia.set("tipocasal", Trim(cmbTipoFam->text()));
    familia.set("datacasam", dataDe(mskData));
    familia.set("dcasamfixa", eData(mskData->text()) ? chkDF->isChecked() : QVariant());
    familia.set("localcasam", codigoDe(cmbLoc));
    familia.set("tipolocalcasam", letraDe(cmbLoc));
    familia.set("inicioobs", dataDe(mskini));
    familia.set("fimobs", dataDe(mskFim));
    familia.set("obs", textoDe(txtObs));
    familia.update();
}

void FrmFam::reescreveMembro(const Metade& membro, bool temNumCasam)
{
    const QString n = txtNFam->text(), m = membro.nind->text();
    if (m.isEmpty()) return;
    cnBDP.execute("insert into familias (nind, nfamilia)  values (" + m + "," + n + ")");
    if (preenchido(membro.idade))
        cnBDP.execute("update familias set idade =" + membro.idade->text() + " where nind = " + m +
                      " and nfamilia =" + n);
    if (preenchido(membro.estadoCivil))
        cnBDP.execute("update familias set estadocivil =" + itemDe(membro.estadoCivil).toString() +
                      " where nind = " + m + " and nfamilia =" + n);
    if (temNumCasam)
        cnBDP.execute("update familias set numcasam =" + membro.numCasam->text() + " where nind = " + m +
                      " and nfamilia =" + n);
}

// On a card left empty by the deletion of the last family there is no number to come back to.
void FrmFam::cancelaAlteracao()
{
    fechaEdicao();
    ActualizaCampos(adoFam.recordset(), Nfam::doCampoOuNenhum(numero()));
}
