#include "places/frmPais.h"

#include "common/modGeral.h"
#include "common/numbers.h"
#include "platform/forms/forms.h"

FrmPais::FrmPais() : EditorDeLocais(Name)
{
    setupUi(this);
    usa(*this, adoPais, dtPais,
        {.codigo = "codpais",
         .nome = "nomepais",
         .ordem = "nomepais ASC",
         .colunas = {{"Código", "codpais", 80}, {"Nome do País", "nomepais"}},
         .recusas = {"Deve inserir um nome de país!", "A base de dados já contém um país com o nome que inseriu!"},
         .outros = {cmdZonas, cmdDist}});
    connect(cmdZonas, &CommandButton::clicked, this, &FrmPais::cmdZonas_Click);
    connect(cmdDist, &CommandButton::clicked, this, &FrmPais::cmdDist_Click);
}

QString FrmPais::instrucao() const
{
    return "select codpais, nomepais, obs from pais";
}

QString FrmPais::instrucaoDoNome(const QString& nome) const
{
    return "select * from pais where nomepais = '" + nome + "'";
}

bool FrmPais::nomeRepetido(const QString& nome, Passo passo) const
{
    if (passo == Passo::Insercao) return EditorDeLocais::nomeRepetido(nome, passo);
    const jet::Recordset outros(cnBDP, "select count(*) as cont from pais where codpais <> '" + valor("codpais") +
                                           "' and nomepais = '" + nome + "'");
    return outros["cont"].toDouble() != 0;
}

// Kept: a code that is no number, as that of Portugal, is an error here.
QString FrmPais::codigoNovo()
{
    const jet::Recordset maior(cnBDP, "Select max (cint(codpais)) from pais");
    return textoDoNumero(maior[0].toDouble() + 1);
}

QString FrmPais::instrucaoDosDescendentes(const QString& codigo) const
{
    return "delete from zonapais where codpais = '" + codigo + "'";
}

void FrmPais::cmdZonas_Click()
{
    guarded([&] { Forms::show("frmZona"); });
}

void FrmPais::cmdDist_Click()
{
    guarded([&] { Forms::show("frmDistritos"); });
}
