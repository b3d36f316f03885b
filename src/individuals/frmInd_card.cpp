// Showing one person, and moving through the list.
#include "individuals/frmInd.h"

#include "common/datas.h"
#include "common/instrucao.h"
#include "common/locais.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/text.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/stilltext.h"

void FrmInd::LimpaCampos()
{
    txtNind->clear();
    txtNome->clear();
    cmbTipoInd->setListIndex(0);
    setStillText(lblTipoInd, {});
    for (OptionButton* opcao : {optSexo_0, optSexo_1, optSexo_2})
        opcao->setValue(false);
    txtFamOrig->clear();
    txtTit->clear();
    txtAlcunha->clear();
    mskini->clearMasked();
    mskFim->clearMasked();
    txtObs->clear();

    mskDtNasc->clearMasked();
    chkDtNasc->setChecked(false);
    cmdInterv->setEnabled(false);
    cmbLoc->setListIndex(-1); // Kept: no entry here, the blank one in cmbLocObito.
    cmbFiliacao->setListIndex(0);
    txtIdPai->clear();
    txtIdMae->clear();
    cmbECPai->setListIndex(0);
    cmbECMae->setListIndex(0);

    dtgProf->setRows(0);

    mskDtObito->clearMasked();
    chkDFixa->setChecked(false);
    cmbLocObito->setListIndex(0);
    cmbEC->setListIndex(0);
    txtIdade->clear(); // Kept: lblIdCalc goes on showing the last age until a date field is left.
    chkMenor->setChecked(false);
    cmbSacram->setListIndex(0);
    txtCausa->clear();
    cmbclass->setListIndex(0);
    optTest_0->setValue(false);
    optTest_1->setValue(false);
    adoRel.setRecordSource({});
}

// Kept: the name of a site is looked for among the localities, which stops the showing of a person who has one.
void FrmInd::ActualizaCampos(jet::Recordset& rs)
{
    evenIfItFails([&] {
        LimpaCampos();
        if (rs.bof() && rs.eof()) return mostraListaVazia();
        mostraRegisto(rs, TabelaDosSitios::lugar);
    });
}

// The fields are clear. An error leaves those not yet filled so.
void FrmInd::mostraRegisto(jet::Recordset& rs, TabelaDosSitios sitios)
{
    const QString nind = textoDoNumero(rs["Nind"]);
    adoNind.setRecordSource(comChave("select * from individuo where nind = ?", nind));
    adoNind.refresh();
    NindCorrente = Nind::daColuna(rs["Nind"]);
    txtNind->setText(nind);

    const jet::Recordset& guardado = adoNind.recordset();
    txtNome->setText(guardado["Nome"].toString());
    const QString tipo = guardado["Tipo"].toString();
    for (int i = 0; !Trim(tipo).isEmpty() && i < cmbTipoInd->count(); ++i) {
        if (Trim(cmbTipoInd->list(i)) != tipo) continue;
        cmbTipoInd->setListIndex(i);
        break;
    }
    const QString sexoGuardado = guardado["sexo"].toString();
    if (sexoGuardado == "m") optSexo_0->setValue(true);
    if (sexoGuardado == "f") optSexo_1->setValue(true);
    if (sexoGuardado == "d") optSexo_2->setValue(true);
    txtFamOrig->setText(textoDoNumero(guardado["famorig"]));
    txtTit->setText(guardado["titulo"].toString());
    txtAlcunha->setText(guardado["alcunha"].toString());
    // Stored dates are shown without the mask, which comes back when the fields are cleared.
    mskini->showPlain(textoDaData(guardado["inicioobs"]));
    mskFim->showPlain(textoDaData(guardado["fimobs"]));

    const bool temNascimento = !guardado["datanasc"].isNull();
    mskDtNasc->showPlain(textoDaData(guardado["datanasc"]));
    chkDtNasc->setChecked(temNascimento && guardado["DnascFixa"].toBool());
    cmdInterv->setEnabled(temNascimento);
    if (!guardado["localnasc"].isNull())
        SeleccionaLocal(*cmbLoc, guardado["localnasc"].toString(), guardado["tipolocalnasc"].toString(), sitios);
    ProcuraItemData(*cmbFiliacao, guardado["filiacao"]);
    txtIdPai->setText(textoDaQuantidade(guardado["idadepai"]));
    txtIdMae->setText(textoDaQuantidade(guardado["idademae"]));
    ProcuraItemData(*cmbECPai, guardado["estadocivilpai"]);
    ProcuraItemData(*cmbECMae, guardado["estadocivilmae"]);

    mskDtObito->showPlain(textoDaData(guardado["dataobito"]));
    if (!guardado["dataobito"].isNull()) chkDFixa->setChecked(guardado["dobitofixa"].toBool());
    if (!guardado["localobito"].isNull())
        SeleccionaLocal(*cmbLocObito, guardado["localobito"].toString(), guardado["tipolocalobito"].toString(), sitios);
    ProcuraItemData(*cmbSacram, guardado["sacramentos"]);
    ProcuraItemData(*cmbEC, guardado["estadoobito"]);
    txtIdade->setText(textoDaQuantidade(guardado["idadeobito"]));
    chkMenor->setChecked(guardado["menor"].toBool());
    txtCausa->setText(guardado["causa"].toString());
    ProcuraItemData(*cmbclass, guardado["classparoquial"]);
    // Kept: two columns shown as one choice, the will first.
    if (guardado["testam"].toBool())
        optTest_0->setValue(true);
    else if (guardado["escrit"].toBool())
        optTest_1->setValue(true);
    txtObs->setText(guardado["obs"].toString());

    adoRel.setRecordSource(comChave("select familia.nfamilia, tipocasal, sfamilia, datacasam from familia inner join "
                                    "familias on familia.nfamilia = familias.nfamilia where familias.nind = ? "
                                    "order by datacasam asc",
                                    nind));
    adoRel.refresh();
    PreencheFamilias();

    // Kept: cmdInterv and cmdConsRel end enabled, whatever the birth date and the families said before.
    for (CommandButton* botao : {cmdDirFam_0, cmdDirFam_1, cmdProf, cmdResid, cmdAssin, cmdInterv, cmdRP_0, cmdRP_1,
                                 cmdConsRel, cmdCerFun, cmdRMorte, cmdLegProf})
        botao->setEnabled(true);
    setStillText(lblInd, QString::number(rs.absolutePosition()));
    setStillText(lblTotal, QString::number(rs.recordCount()));
}

// The person as stored, whatever the card shows by now, so that an alteration begins with nothing missing: a site is
// read where it stands, and a list that has no entry for what is stored has none chosen. Throws if that fails.
void FrmInd::mostraGuardado(const QString& nind)
{
    poeListaNoNumero(nind);
    LimpaCampos();
    mostraRegisto(adoInd.recordset(), TabelaDosSitios::sitio);
    for (const auto& [coluna, lista] : listasDeCodigos())
        if (ProcuraItemData(*lista, adoNind.recordset()[coluna]) < 0 && !adoNind.recordset()[coluna].isNull())
            lista->setListIndex(-1);
    visto_.ve(adoNind.recordset());
    mostrados_.clear();
    try {
        mostrados_ = valoresDaAlteracao();
    } catch (const jet::Error&) { // a stored value that the store would refuse today: the confirm will tell
    }
}

void FrmInd::mostra(const QString& nind)
{
    if (modo() != Modo::Cons) return;
    jet::Recordset& lista = adoInd.recordset();
    if (adoInd.hasRows()) {
        lista.moveFirst();
        if (!nind.isEmpty()) lista.find("nind = " + chaveEmSQL(nind));
    }
    ActualizaCampos(lista);
}

void FrmInd::mostraListaVazia()
{
    for (CommandButton* botao : {cmdRMorte, cmdCerFun, cmdLegProf, cmdResid, cmdProf, cmdAssin, cmdRP_0, cmdRP_1,
                                 cmdConsRel, cmdAlt, cmdElim, cmdLoc, cmdAnt, cmdSeg, cmdUlt, cmdPrim})
        botao->setEnabled(false);
    lblInd->setText("0");
    lblTotal->setText("0");
}

void FrmInd::PreencheFamilias()
{
    evenIfItFails([&] {
        const bool tem = adoRel.hasRows();
        cmdConsRel->setEnabled(tem);
        Command1->setEnabled(tem);
        dtgProf->setRows(tem ? adoRel.recordset().recordCount() + 1 : 0);
        if (!tem) return;

        dtgProf->setColumns({{"Nº. Família", 80}, {"Tipo", 80}, {"Situação", 80}, {"Data de Casamento"}});
        for (int linha = 1; !adoRel.recordset().eof(); adoRel.recordset().moveNext())
            EscreveLinhaFam(linha++);
        dtgProf->setRow(1);
    });
}

void FrmInd::EscreveLinhaFam(int linha)
{
    const jet::Recordset& familia = adoRel.recordset();
    dtgProf->setTextMatrix(linha, 0, textoDoNumero(familia["nfamilia"]));
    dtgProf->setTextMatrix(linha, 1, familia["tipocasal"].toString());
    dtgProf->setTextMatrix(linha, 2, DescricaoInfo("SitFa", familia["sfamilia"].toString()));
    dtgProf->setTextMatrix(linha, 3, textoDaData(familia["datacasam"]));
}

void FrmInd::cmbTipoInd_Click()
{
    guarded([&] {
        setStillText(lblTipoInd, {});
        const QString codigo = cmbTipoInd->text();
        if (Trim(codigo).isEmpty()) return;
        setStillText(lblTipoInd, DescricaoInfo("TipIn", codigo));
    });
}

void FrmInd::cmdSeg_Click()
{
    guarded([&] {
        if (!adoInd.hasRows()) return;
        jet::Recordset& lista = adoInd.recordset();
        lista.moveNext();
        const bool passouOFim = lista.eof();
        if (passouOFim) {
            lista.movePrevious();
            showMessage("Não é possível ir para o próximo registo!");
        } else {
            ActualizaCampos(lista);
        }
        permiteAvancar(!passouOFim);
        permiteRecuar(true);
    });
}

void FrmInd::cmdAnt_Click()
try {
    if (!adoInd.hasRows()) return;
    jet::Recordset& lista = adoInd.recordset();
    if (lista.eof()) lista.movePrevious();
    if (lista.bof()) lista.moveNext();
    lista.movePrevious();
    const bool passouOInicio = lista.bof();
    if (passouOInicio) {
        lista.moveNext();
        showMessage("Não é possível ir para o registo anterior!");
    } else {
        ActualizaCampos(lista);
    }
    permiteRecuar(!passouOInicio);
    permiteAvancar(true);
} catch (const jet::Error&) {
    // Kept: alone of the four movements, this one passes over errors.
}
