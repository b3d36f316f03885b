// Insert and alteration.
#include "families/frmFam.h"

#include "common/campos.h"
#include "common/instrucao.h"
#include "common/linhaDeEstado.h"
#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "platform/jet/errors.h"
#include "platform/jet/transaction.h"

#include <algorithm>

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
    esvaziaContagens();
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

void FrmFam::confirmaInsercao()
{
    const Hourglass ampulheta;
    if (!temObrigatorios()) return;
    registoEmSQL(txtNFam->text());
    verificaNumeros();
    if (!conjugesExistem() || !datasValidas()) return;
    jet::Transaction transaccao(cnBDP);
    insereFamilia();
    for (const Metade& membro : metades_)
        insereMembro(membro);
    guardouInsercao();
    transaccao.commit();

    adoFam.refresh();
    contaGravado("família nº " + numero(), {mskData, mskini, mskFim});
    fechaEdicao();
    ActualizaCampos(adoFam.recordset(), Nfam::doCampo(numero()));
}

// Kept: the notes aren't escaped. An apostrophe in them is the engine's error, and the family isn't inserted.
void FrmFam::insereFamilia()
{
    const QString n = registoEmSQL(txtNFam->text()), obs = digitado(txtObs->text());
    cnBDP.execute("insert into familia (nfamilia, sfamilia, tipocasal) values (" + n + "," +
                  chaveEmSQL(itemDe(cmbSit)) + "," + citado(Trim(cmbTipoFam->text())) + ")");
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
        cnBDP.execute("update familia set localcasam =" + citado(local.codigo) + " where nfamilia = " + n);
        cnBDP.execute("update familia set tipolocalcasam =" + citado(local.nivel) + " where nfamilia = " + n);
    }
    if (preenchido(mskini))
        cnBDP.execute("update familia set inicioobs = " + literalDaData(mskini->text()) + " where nfamilia = " + n);
    if (preenchido(mskFim))
        cnBDP.execute("update familia set fimobs = " + literalDaData(mskFim->text()) + " where nfamilia = " + n);
    if (preenchido(txtObs)) cnBDP.execute("update familia set obs = " + obs + " where nfamilia = " + n);
}

void FrmFam::insereMembro(const Metade& membro)
{
    if (membro.nind->text().isEmpty()) return;
    const QString n = registoEmSQL(txtNFam->text()), m = registoEmSQL(membro.nind->text());
    cnBDP.execute("insert into familias (nfamilia, nind) values (" + n + "," + m + ")");
    if (preenchido(membro.idade))
        cnBDP.execute("update familias set idade = " + inteiroEmSQL(membro.idade->text()) + " where nfamilia = " + n +
                      " and nind = " + m);
    if (preenchido(membro.estadoCivil))
        cnBDP.execute("update familias set estadocivil = " + chaveEmSQL(itemDe(membro.estadoCivil)) +
                      " where nfamilia = " + n + " and nind = " + m);
    if (preenchido(membro.numCasam))
        cnBDP.execute("update familias set numcasam = " + inteiroEmSQL(membro.numCasam->text()) +
                      " where nfamilia = " + n + " and nind = " + m);
}

// Kept: back on the last family, where the insert took its number from, and not on the one shown before.
void FrmFam::cancelaInsercao()
{
    largaActoPorGuardar();
    fechaEdicao();
    mostraRegistoDoFicheiro();
}

// It starts from what is stored, whatever the card shows by now; a family that can't be shown isn't altered.
void FrmFam::iniciaAlteracao()
{
    if (!numero().isEmpty()) mostraRegisto(adoFam.recordset(), Nfam::doCampo(numero()));
    if (numero().isEmpty()) throw jet::noCurrentRow(); // a cleared card, or a file without families
    vista_.ve(adoFam.recordset());
    membrosVistos_ = membrosGuardados();
    abreAlteracao();
    for (int indice : {0, 1}) {
        const Metade& membro = metade(indice);
        abertas_[indice] = {Nind::doCampoOuNenhum(membro.nind->text()), membro.idade->text(), membro.numCasam->text(),
                            membro.estadoCivil->listIndex()};
    }
    if (!eData(mskData->text())) mskData->setText({});
    notaMostradas();
    Focus::setTo(cmbSit);
}

// Kept: the row of the family stays written where the members fail. A power cut leaves both or neither.
void FrmFam::gravaFamiliaEMembros()
{
    RegistoVisto escrita;
    const auto guardaTudo = [&](jet::Transaction& transaccao) {
        transaccao.commit();
        vista_ = escrita; // the members may have been refused, and the alteration go on
        mostradas_ = colunasDaFicha();
    };
    jet::Transaction transaccao(cnBDP);
    alteraFamilia();
    escrita.ve(adoFam.recordset());
    adoFam.refresh(); // Kept: the file is on its first row again; cmdSeg goes on from the number on the card.
    try {
        jet::Transaction membros(cnBDP);
        reescreveMembros();
        membros.commit();
    } catch (const jet::Error&) {
        if (cnBDP.transactionLevel() > 0) guardaTudo(transaccao);
        throw;
    }
    guardaTudo(transaccao);
}

void FrmFam::confirmaAlteracao()
{
    const Hourglass ampulheta;
    if (!temObrigatorios()) return;
    verificaNumeros();
    if (!membrosPresentes() || !conjugesExistem() || !datasValidas()) return;
    poeFicheiroNaFicha();
    if (adoFam.recordset().eof()) throw jet::noCurrentRow(); // it has gone, and its members aren't written without it
    if (!podeGravarFamilia()) return;
    gravaFamiliaEMembros();
    contaGravado("família nº " + numero(), {mskData, mskini, mskFim});

    fechaEdicao();
}

// Null where a field is empty. A date is the text of its field, which may be none; a list in which nobody has chosen
// says nothing.
Colunas FrmFam::colunasDaFicha() const
{
    const auto dataDe = [](const MaskedEdit* campo) { return preenchido(campo) ? campo->text() : QVariant(); };
    return Colunas{
               {"sfamilia", itemDe(cmbSit)},   {"tipocasal", Trim(cmbTipoFam->text())},
               {"datacasam", dataDe(mskData)}, {"dcasamfixa", eData(mskData->text()) ? chkDF->isChecked() : QVariant()},
               {"inicioobs", dataDe(mskini)},  {"fimobs", dataDe(mskFim)},
               {"obs", textoDe(txtObs)}} +
           localPara("localcasam", "tipolocalcasam", cmbLoc);
}

// Kept: without a date the flag becomes null, and beside one a null becomes what the box shows, though nobody touches
// either. But nothing happens to the flag of a stored date that the field can't show.
void FrmFam::notaMostradas()
{
    const jet::Recordset& familia = adoFam.recordset();
    mostradas_ = colunasDaFicha();
    if (!eData(mskData->text()) && !familia["datacasam"].isNull()) return;
    for (auto& [coluna, valor] : mostradas_)
        if (coluna == "dcasamfixa") valor = familia["dcasamfixa"];
}

// What the user has changed on the card: what nobody touches stays as it is stored, which may be what no field shows.
Colunas FrmFam::colunasAlteradas() const
{
    Colunas colunas = colunasDaFicha();
    colunas.removeIf([this](const auto& coluna) { return mostradas_.contains(coluna); });
    return colunas;
}

void FrmFam::alteraFamilia()
{
    jet::Recordset& familia = adoFam.recordset();
    for (const auto& [coluna, valor] : colunasAlteradas())
        familia.set(coluna, valor);
    familia.update();
}

FrmFam::Membros FrmFam::membrosGuardados() const
{
    Membros guardados;
    for (jet::Recordset membro(cnBDP, "select * from familias where nfamilia = " + chaveEmSQL(txtNFam->text()));
         !membro.eof(); membro.moveNext())
        guardados.insert(Nind::daColuna(membro["nind"]), {membro["idade"], membro["estadocivil"], membro["numcasam"]});
    return guardados;
}

bool FrmFam::mostrado(Nind nind) const
{
    return std::ranges::any_of(abertas_, [=](const auto& aberta) { return aberta.nind == nind; });
}

// A member that the card couldn't show stays, and so does the order of the members, as it says who is shown.
void FrmFam::reescreveMembros()
{
    Membros guardados = membrosGuardados();
    const QList<Nind> todos = guardados.keys();
    const bool noLugar = !std::ranges::all_of(todos, [this](Nind nind) { return mostrado(nind); });
    const QString n = chaveEmSQL(txtNFam->text());
    if (!noLugar) {
        cnBDP.execute("delete from familias where nfamilia = " + n);
    } else {
        const auto naFicha = [this](Nind nind) {
            return std::ranges::any_of(
                metades_, [=](const auto& lado) { return Nind::doCampoOuNenhum(lado.nind->text()) == nind; });
        };
        for (const Nind nind : todos)
            if (mostrado(nind) && !naFicha(nind))
                cnBDP.execute("delete from familias where nfamilia = " + n + " and nind = " + nind.paraSQL());
    }
    for (int indice : {0, 1})
        reescreveMembro(indice, guardados, noLugar);
}

// A column whose box is as it was opened stays as it is stored: the box of a half that two share may show the other's
// value.
void FrmFam::reescreveMembro(int indice, Membros& guardados, bool noLugar)
{
    const Metade& membro = metade(indice);
    const MetadeAberta& aberta = abertas_[indice];
    if (membro.nind->text().isEmpty()) return;
    const QString n = chaveEmSQL(txtNFam->text()), m = numeroEmSQL(membro.nind->text());
    const Nind nind = Nind::doCampo(m);
    const bool existe = guardados.contains(nind), oculto = existe && !mostrado(nind);
    const bool oMesmo = existe && aberta.nind == nind;
    const Membro antes = guardados.take(nind); // so a number in both halves is refused by the key
    if (!existe || !noLugar) {
        cnBDP.execute("insert into familias (nind, nfamilia)  values (" + m + "," + n + ")");
        if (oMesmo)
            cnBDP.execute(jet::NativeSql(
                "update familias set idade = ?, estadocivil = ?, numcasam = ? where nind = ? and nfamilia = ?",
                {antes.idade, antes.estadoCivil, antes.numCasam, nind.paraColuna(), n}));
    }

    const auto escreve = [&](const QString& coluna, bool preenchida, const QString& valor) {
        if (!preenchida && oculto) return;
        cnBDP.execute("update familias set " + coluna + " =" + (preenchida ? valor : "null") + " where nind = " + m +
                      " and nfamilia =" + n);
    };
    if (!oMesmo || membro.idade->text() != aberta.idade)
        escreve("idade", preenchido(membro.idade), inteiroEmSQL(membro.idade->text()));
    if (!oMesmo || membro.estadoCivil->listIndex() != aberta.estadoCivil)
        escreve("estadocivil", preenchido(membro.estadoCivil), chaveEmSQL(itemDe(membro.estadoCivil)));
    if (!oMesmo || !mantemNumCasam(indice))
        escreve("numcasam", preenchido(txtPnind->text().isEmpty() ? txtNC2 : txtNC1),
                inteiroEmSQL(membro.numCasam->text()));
}

// Kept: of a couple, the first member's number of marriages decides whether the second's is written. If it is filled
// and the second's isn't, the store refuses both.
bool FrmFam::mantemNumCasam(int indice) const
{
    const auto intacto = [&](int i) { return metade(i).numCasam->text() == abertas_[i].numCasam; };
    if (indice == 0 || txtPnind->text().isEmpty()) return intacto(indice);
    return intacto(1) && (preenchido(txtNC1) ? preenchido(txtNC2) : intacto(0));
}

// On a card left empty by the deletion of the last family there is no number to come back to.
void FrmFam::cancelaAlteracao()
{
    fechaEdicao();
    ActualizaCampos(adoFam.recordset(), Nfam::doCampoOuNenhum(numero()));
}
