// What the card writes: the columns of an insert and of an alteration, each with its value.
#include "individuals/frmInd.h"

#include "common/campos.h"

namespace {

QVariant dataDe(const MaskedEdit* campo)
{
    return semData(campo->text()) ? QVariant() : campo->text();
}

// True, or nothing at all.
QVariant seLigado(bool ligado)
{
    return ligado ? QVariant(true) : QVariant();
}

} // namespace

// A null is a column that the insert doesn't write.
FrmInd::Valores FrmInd::valoresDaInsercao() const
{
    return {
        {"Nind", txtNind->text()},
        {"Nome", txtNome->text()},
        {"Tipo", cmbTipoInd->text().left(1)},
        {"sexo", sexo()},
        {"titulo", textoDe(txtTit)},
        {"alcunha", textoDe(txtAlcunha)},
        {"datanasc", dataDe(mskDtNasc)},
        {"DnascFixa", chkDtNasc->isChecked()},
        {"localnasc", codigoDe(cmbLoc)},
        {"tipolocalnasc", letraDe(cmbLoc)},
        {"filiacao", itemDe(cmbFiliacao)},
        {"idadepai", textoDe(txtIdPai)},
        {"idademae", textoDe(txtIdMae)},
        {"estadocivilpai", itemDe(cmbECPai)},
        {"estadocivilmae", itemDe(cmbECMae)},
        {"dataobito", dataDe(mskDtObito)},
        {"dobitofixa", chkDFixa->isChecked()},
        {"localobito", codigoDe(cmbLocObito)},
        {"tipolocalobito", letraDe(cmbLocObito)},
        {"causa", textoDe(txtCausa)},
        {"idadeobito", textoDe(txtIdade)},
        {"menor", seLigado(chkMenor->isChecked())},
        {"sacramentos", itemDe(cmbSacram)},
        {"classparoquial", itemDe(cmbclass)},
        {"estadoobito", itemDe(cmbEC)},
        {"testam", seLigado(optTest_0->isChecked())},
        {"escrit", seLigado(optTest_1->isChecked())},
        {"inicioobs", dataDe(mskini)},
        {"fimobs", dataDe(mskFim)},
        {"obs", textoDe(txtObs)},
    };
}

// Every column is written, null where the field is empty, but those of a list where nothing is chosen. Kept: the
// mother's age goes in as 0 then, and the option that is on leaves the other's column as it was.
FrmInd::Valores FrmInd::valoresDaAlteracao()
{
    const jet::Recordset& linha = adoNind.recordset();
    const bool testamento = optTest_0->isChecked(), escritura = optTest_1->isChecked();
    const QVariant idadeMae = textoDe(txtIdMae);
    Valores valores{
        {"Nome", txtNome->text()},
        {"Tipo", Trim(cmbTipoInd->text())},
        {"sexo", sexo()},
        {"titulo", textoDe(txtTit)},
        {"alcunha", textoDe(txtAlcunha)},
        {"datanasc", dataDe(mskDtNasc)},
        {"DnascFixa", chkDtNasc->isChecked()},
        {"idadepai", textoDe(txtIdPai)},
        {"idademae", idadeMae.isNull() ? 0 : idadeMae},
        {"testam", testamento  ? true
                   : escritura ? linha["testam"]
                               : false},
        {"escrit", testamento ? linha["escrit"] : escritura},
        {"dataobito", dataDe(mskDtObito)},
        {"dobitofixa", chkDFixa->isChecked()},
        {"idadeobito", textoDe(txtIdade)},
        {"menor", chkMenor->isChecked()},
        {"causa", textoDe(txtCausa)},
        {"inicioobs", dataDe(mskini)},
        {"fimobs", dataDe(mskFim)},
        {"obs", textoDe(txtObs)},
    };
    valores << localPara("localnasc", "tipolocalnasc", cmbLoc)
            << localPara("localobito", "tipolocalobito", cmbLocObito);
    for (const auto& [coluna, lista] : listasDeCodigos())
        valores << itemPara(coluna, lista);
    return valores;
}

// The lists that show a column by its code.
QList<std::pair<QString, ComboBox*>> FrmInd::listasDeCodigos() const
{
    return {{"filiacao", cmbFiliacao}, {"estadocivilpai", cmbECPai}, {"estadocivilmae", cmbECMae},
            {"estadoobito", cmbEC},    {"sacramentos", cmbSacram},   {"classparoquial", cmbclass}};
}
