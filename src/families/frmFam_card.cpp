// Showing one family, and moving through all of them.
#include "families/frmFam.h"

#include "common/datas.h"
#include "common/instrucao.h"
#include "common/locais.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/text.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/stilltext.h"

namespace {

// Kept: a movement that fails is passed over; the cursor's place afterwards tells whether it was at an end.
template <class Movimento>
void semErros(Movimento movimento)
{
    try {
        movimento();
    } catch (const jet::Error&) {
    }
}

} // namespace

void FrmFam::LimpaCampos()
{
    txtNFam->clear();
    for (MaskedEdit* campo : {mskini, mskFim, mskData})
        campo->clearMasked();
    chkDF->setChecked(true);
    txtPnind->clear();
    txtPnome->clear();
    txtIdade1->clear();
    txtNC1->clear();
    txtObs->clear();
    txtSnind->clear();
    txtSnome->clear();
    txtIdade2->clear();
    txtNC2->clear(); // Kept: lblIdCalc_0 and lblIdCalc_1 go on showing the last ages.
    for (ComboBox* lista : {cmbEC1, cmbEC2, cmbTipoFam, cmbLoc})
        lista->setListIndex(-1);
    cmbSit->setListIndex(0); // Kept: the blank entry here, no entry in the others.
    dtgFilho->setRows(0);
}

void FrmFam::ActualizaCampos(jet::Recordset& rs, Nfam nf)
{
    evenIfItFails([&] { mostraRegisto(rs, nf); });
}

void FrmFam::mostraRegisto(jet::Recordset& rs, Nfam nf)
{
    LimpaCampos();
    if (rs.bof() && rs.eof()) return mostraFicheiroVazio();

    // Read before the file moves, as rs may be the file itself.
    const QString nfam = nf && nf != Nfam(0) ? nf.texto() : textoDoNumero(rs["nfamilia"]);
    adoFam.recordset().moveFirst();
    adoFam.recordset().find("nfamilia = " + chaveEmSQL(nfam));
    adonFam.setRecordSource(comChave("select * from familias where nfamilia = ? order by rowid limit -1", nfam));
    adonFam.refresh();
    txtNFam->setText(nfam);

    jet::Recordset& membros = adonFam.recordset();
    if (!membros.eof()) mostraMembro(membros);
    if (membros.recordCount() == 2) { // Kept: of three or more, the first alone is shown.
        membros.moveNext();
        mostraMembro(membros);
    }
    mostraFamilia();

    adoFilhos.setRecordSource(
        comChave("select famorig, individuo.fimobs, individuo.nind, nome, datanasc, dataobito, "
                 "min(familia.datacasam) as datacasam from individuo left join familias on individuo.nind = "
                 "familias.nind left join familia on familia.nfamilia = familias.nfamilia where famorig = ? "
                 "group by famorig, individuo.nind, nome, individuo.fimobs, datanasc, dataobito order by datanasc",
                 nfam));
    adoFilhos.refresh();
    ActualizaFilhos();

    cmdResid->setEnabled(true);
    cmdRP->setEnabled(true);
    setStillText(lblFam, QString::number(adoFam.recordset().absolutePosition()));
    setStillText(lblTotal, QString::number(adoFam.recordset().recordCount()));
}

void FrmFam::esvaziaContagens()
{
    setStillText(lblFam, {});
    setStillText(lblTotal, {});
    fraFilhos->setTitle("Filhos");
}

void FrmFam::mostraFicheiroVazio()
{
    for (CommandButton* botao : {cmdAnt, cmdPrim, cmdSeg, cmdUlt, cmdAlt, cmdElim, cmdResid, cmdInt, cmdRP, cmdLoc,
                                 cmdConsultar, cmdElimF, cmdInsF})
        botao->setEnabled(false);
    lblFam->setText("0");
    lblTotal->setText("0");
}

// The sex alone chooses the half. Kept: a second member of one sex overwrites the first, but not with nulls.
void FrmFam::mostraMembro(const jet::Recordset& membro)
{
    const QString nind = textoDoNumero(membro["nind"]);
    const jet::Recordset individuo(cnBDP, comChave("select sexo from individuo where nind = ? limit 1", nind));
    const QString sexo = individuo.eof() ? QString() : individuo["sexo"].toString();
    if (sexo.isEmpty()) return;

    const Metade& lado = metade(sexo == "m" ? 0 : 1);
    lado.nind->setText(nind);
    if (!membro["idade"].isNull()) lado.idade->setText(textoDaQuantidade(membro["idade"]));
    if (!membro["numcasam"].isNull()) lado.numCasam->setText(textoDaQuantidade(membro["numcasam"]));
    ProcuraItemData(*lado.estadoCivil, membro["estadocivil"]);
}

// The columns of the family's own row.
void FrmFam::mostraFamilia()
{
    const jet::Recordset& familia = adoFam.recordset();
    ProcuraItemData(*cmbSit, familia["sfamilia"]);
    ProcuraTexto(*cmbTipoFam, familia["tipocasal"]);

    // Stored dates are shown without the mask, which comes back when the fields are cleared.
    const auto mostraData = [&](MaskedEdit* campo, const char* coluna) {
        const QVariant valor = familia[coluna];
        if (!valor.isNull()) campo->showPlain(textoDaData(valor));
    };
    mostraData(mskini, "inicioobs");
    mostraData(mskFim, "fimobs");
    mostraData(mskData, "datacasam");
    cmdInt->setEnabled(!familia["datacasam"].isNull());
    const QVariant dataFixa = familia["dcasamfixa"];
    if (!dataFixa.isNull() && !dataFixa.toBool()) chkDF->setChecked(false); // Kept: a null leaves it ticked.

    txtObs->setText(familia["obs"].toString());
    SeleccionaLocal(*cmbLoc, familia["localcasam"].toString(), familia["tipolocalcasam"].toString(),
                    TabelaDosSitios::sitio);
}

void FrmFam::mostraRegistoDoFicheiro()
{
    ActualizaCampos(adoFam.recordset(), adoFam.hasRows() ? Nfam::daColuna(adoFam.recordset()["nfamilia"]) : Nfam());
}

void FrmFam::cmbTipoFam_Click()
{
    guarded([&] {
        lblTipoFam->clear();
        const QString codigo = cmbTipoFam->text();
        if (codigo.isEmpty()) return;
        lblTipoFam->setText(DescricaoInfo("TipFa", codigo));
    });
}

void FrmFam::poeFicheiroNaFicha()
{
    adoFam.recordset().moveFirst();
    adoFam.recordset().find("nfamilia = " + chaveEmSQL(txtNFam->text()));
}

void FrmFam::cmdAnt_Click()
{
    guarded([&] {
        if (!adoFam.hasRows()) return;
        jet::Recordset& familias = adoFam.recordset();
        semErros([&] { poeFicheiroNaFicha(); }); // a refresh may have moved the file away from the card
        if (familias.eof()) {                    // the family on the card has gone: on to the last one that there is
            adoFam.refresh();
            if (!adoFam.hasRows()) return ActualizaCampos(familias, {});
            familias.moveLast();
        } else {
            semErros([&] { familias.movePrevious(); });
        }
        const bool passouOInicio = familias.bof();
        if (passouOInicio) {
            familias.moveNext();
            showMessage("Não é possível ir para o registo anterior!");
            if (familias.recordCount() > 1) permiteAvancar(true);
        } else {
            mostraRegistoDoFicheiro();
            permiteAvancar(true);
        }
        permiteRecuar(!passouOInicio);
    });
}

// Kept: it starts from the number on the card and not from the cursor, which a refresh may have moved away.
void FrmFam::cmdSeg_Click()
{
    guarded([&] {
        if (!adoFam.hasRows()) return;
        jet::Recordset& familias = adoFam.recordset();
        if (familias.eof()) familias.movePrevious();
        if (familias.bof()) familias.moveNext();
        semErros([&] { familias.find("nfamilia = " + chaveEmSQL(txtNFam->text())); });
        semErros([&] { familias.moveNext(); });
        const bool passouOFim = familias.eof();
        if (passouOFim) {
            familias.movePrevious();
            showMessage("Não é possível ir para o próximo registo!");
        } else {
            mostraRegistoDoFicheiro();
            permiteRecuar(true);
        }
        permiteAvancar(!passouOFim);
    });
}
