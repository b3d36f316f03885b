#include "places/frmPais.h"

#include "common/instrucao.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "platform/forms/forms.h"

FrmPais::FrmPais() : EditorDeLocais(Name)
{
    setupUi(this);
    usa<Ui::FrmPais>(
        *this, adoPais, dtPais,
        {.nivel = Nivel::Pais,
         .ordem = "nomepais ASC",
         .colunas = {{"Código", "codpais", 80}, {"Nome do País", "nomepais"}},
         .recusas = {"Deve inserir um nome de país!", "A base de dados já contém um país com o nome que inseriu!"},
         .outros = {cmdZonas, cmdDist}});
    connect(cmdZonas, &CommandButton::clicked, this, &FrmPais::cmdZonas_Click);
    connect(cmdDist, &CommandButton::clicked, this, &FrmPais::cmdDist_Click);
}

jet::NativeSql FrmPais::fonte() const
{
    return jet::NativeSql("select codpais, nomepais, obs from pais");
}

// Here alone an alteration leaves the row itself out.
bool FrmPais::nomeRepetido(const QString& nome, Passo passo) const
{
    jet::Recordset iguais(cnBDP, "select codpais from pais where nomepais = " + digitado(nome));
    if (passo == Passo::Insercao) return !iguais.eof();
    for (; !iguais.eof(); iguais.moveNext())
        if (iguais[0].toString().compare(valor("codpais"), Qt::CaseInsensitive) != 0) return true;
    return false;
}

// Kept: a code that is no number, as that of Portugal, is an error here.
QString FrmPais::codigoNovo()
{
    const jet::Recordset maior(cnBDP, "Select max (cint(codpais)) from pais");
    return textoDoNumero(maior[0].toDouble() + 1);
}

std::optional<jet::NativeSql> FrmPais::eliminacaoDosDescendentes(const QString& codigo) const
{
    return jet::NativeSql("delete from zonapais where codpais = ?", {codigo});
}

void FrmPais::cmdZonas_Click()
{
    guarded([&] { Forms::show("frmZona"); });
}

void FrmPais::cmdDist_Click()
{
    guarded([&] { Forms::show("frmDistritos"); });
}
