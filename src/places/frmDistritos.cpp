#include "places/frmDistritos.h"

#include "common/instrucao.h"
#include "common/modGeral.h"
#include "platform/forms/forms.h"

FrmDistritos::FrmDistritos() : EditorComCodigo(Name)
{
    setupUi(this);
    usa<Ui::FrmDistritos>(*this, adoDist, dtDist,
                          {.nivel = Nivel::Distrito,
                           .ordem = "nomedistrito ASC",
                           .colunas = {{"Nome do Distrito", "nomedistrito", 290}, {"Código", "coddistrito"}},
                           .recusas = {"Deve inserir o nome do distrito!",
                                       "A base de dados já contém um distrito com o nome que inseriu!"},
                           .outros = {cmdConc}});
    usaCodigo(
        {2, "Deve inserir o código do distrito!", "A base de dados já contém um distrito com o código que inseriu!"});
    connect(cmdConc, &CommandButton::clicked, this, &FrmDistritos::cmdConc_Click);
}

jet::NativeSql FrmDistritos::fonte() const
{
    return jet::NativeSql("select coddistrito, nomedistrito, obs, codpais from distrito");
}

QString FrmDistritos::instrucaoDoCodigo(const QString& codigo) const
{
    return "select * from distrito where coddistrito = " + citado(codigo);
}

bool FrmDistritos::nomeRepetido(const QString& nome, Passo) const
{
    return existe("select * from distrito where nomedistrito = " + digitado(nome));
}

std::optional<jet::NativeSql> FrmDistritos::eliminacaoDosDescendentes(const QString& codigo) const
{
    return jet::NativeSql("delete from lugar where codparoquia in (select codparoquia from paroquia where codconcelho "
                          "in (select codconcelho from concelho where coddistrito = ?))",
                          {codigo});
}

void FrmDistritos::cmdConc_Click()
{
    guarded([&] { Forms::show("frmConcelhos"); });
}
