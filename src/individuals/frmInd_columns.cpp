// What the card writes: the columns of an insert and of an alteration, each with its value.
#include "individuals/frmInd.h"

#include "common/dates.h"
#include "common/places.h"
#include "common/vbtext.h"

namespace {

// The values of the fields; null where nothing stands there.
template <class Campo>
QVariant texto(const Campo* campo)
{
    return Trim(campo->text()).isEmpty() ? QVariant() : campo->text();
}

QVariant data(const MaskedEdit* campo)
{
    return semData(campo->text()) ? QVariant() : campo->text();
}

QVariant item(const ComboBox* lista)
{
    return Trim(lista->text()).isEmpty() ? QVariant() : lista->itemData(lista->listIndex());
}

QVariant codigo(const ComboBox* lista)
{
    return Trim(lista->text()).isEmpty() ? QVariant() : localDoTexto(lista->text()).codigo;
}

QVariant letra(const ComboBox* lista)
{
    return Trim(lista->text()).isEmpty() ? QVariant() : localDoTexto(lista->text()).tipo;
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
        {"titulo", texto(txtTit)},
        {"alcunha", texto(txtAlcunha)},
        {"datanasc", data(mskDtNasc)},
        {"DnascFixa", chkDtNasc->isChecked()},
        {"localnasc", codigo(cmbLoc)},
        {"tipolocalnasc", letra(cmbLoc)},
        {"filiacao", item(cmbFiliacao)},
        {"idadepai", texto(txtIdPai)},
        {"idademae", texto(txtIdMae)},
        {"estadocivilpai", item(cmbECPai)},
        {"estadocivilmae", item(cmbECMae)},
        {"dataobito", data(mskDtObito)},
        {"dobitofixa", chkDFixa->isChecked()},
        {"localobito", codigo(cmbLocObito)},
        {"tipolocalobito", letra(cmbLocObito)},
        {"causa", texto(txtCausa)},
        {"idadeobito", texto(txtIdade)},
        {"menor", seLigado(chkMenor->isChecked())},
        {"sacramentos", item(cmbSacram)},
        {"classparoquial", item(cmbclass)},
        {"estadoobito", item(cmbEC)},
        {"testam", seLigado(optTest_0->isChecked())},
        {"escrit", seLigado(optTest_1->isChecked())},
        {"inicioobs", data(mskini)},
        {"fimobs", data(mskFim)},
        {"obs", texto(txtObs)},
    };
}

// Every column is written, null where the field is empty. Kept: the mother's age goes in as 0 then, and the radio that
// is on leaves the other's column as it was.
FrmInd::Valores FrmInd::valoresDaAlteracao() const
{
    const jet::Recordset& registo = const_cast<FrmInd*>(this)->adoNind.recordset();
    const bool testamento = optTest_0->isChecked(), escritura = optTest_1->isChecked();
    const QVariant idadeMae = texto(txtIdMae);
    return {
        {"Nome", txtNome->text()},
        {"Tipo", Trim(cmbTipoInd->text())},
        {"sexo", sexo()},
        {"titulo", texto(txtTit)},
        {"alcunha", texto(txtAlcunha)},
        {"datanasc", data(mskDtNasc)},
        {"DnascFixa", chkDtNasc->isChecked()},
        {"localnasc", codigo(cmbLoc)},
        {"tipolocalnasc", letra(cmbLoc)},
        {"filiacao", item(cmbFiliacao)},
        {"idadepai", texto(txtIdPai)},
        {"idademae", idadeMae.isNull() ? 0 : idadeMae},
        {"estadocivilpai", item(cmbECPai)},
        {"estadocivilmae", item(cmbECMae)},
        {"testam", testamento  ? true
                   : escritura ? registo["testam"]
                               : false},
        {"escrit", testamento ? registo["escrit"] : escritura},
        {"dataobito", data(mskDtObito)},
        {"dobitofixa", chkDFixa->isChecked()},
        {"localobito", codigo(cmbLocObito)},
        {"tipolocalobito", letra(cmbLocObito)},
        {"estadoobito", item(cmbEC)},
        {"idadeobito", texto(txtIdade)},
        {"menor", chkMenor->isChecked()},
        {"sacramentos", item(cmbSacram)},
        {"causa", texto(txtCausa)},
        {"classparoquial", item(cmbclass)},
        {"inicioobs", data(mskini)},
        {"fimobs", data(mskFim)},
        {"obs", texto(txtObs)},
    };
}
