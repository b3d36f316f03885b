#include "places/frmFreguesias.h"

#include "common/instrucao.h"
#include "common/modGeral.h"
#include "places/frmConcelhos.h"
#include "platform/forms/forms.h"

FrmFreguesias::FrmFreguesias() : EditorComCodigo(Name)
{
    setupUi(this);
    usa<Ui::FrmFreguesias>(*this, adoFreg, dtFreg,
                           {.nivel = Nivel::Paroquia,
                            .ordem = "nomeparoquia ASC",
                            .colunas = {{"Nome do paróquia", "nomeparoquia", 290}, {"Código", "codparoquia"}},
                            .recusas = {"Deve inserir o nome da paróquia!",
                                        "A base de dados já contém uma freguesia com o nome que inseriu!"},
                            .aoAlterar = {"Deve inserir o nome da freguesia!",
                                          "Já existe uma freguesia na base de dados com o nome que inseriu!"},
                            .outros = {cmdLug}});
    usaCodigo(
        {3, "Deve inserir o código da freguesia!", "A base de dados já contém uma freguesia com o código que inseriu!"},
        cmbConc);
    connect(cmdLug, &CommandButton::clicked, this, &FrmFreguesias::cmdLug_Click);
}

// The municipalities are those that their editor shows.
void FrmFreguesias::carrega()
{
    EditorComCodigo::carrega();
    jet::DataControl& concelhos = frmConcelhos().adoConc;
    if (concelhos.hasRows()) concelhos.recordset().moveFirst();
    preencheSuperiores(concelhos.recordset());
}

jet::NativeSql FrmFreguesias::fonte() const
{
    return jet::NativeSql("select codparoquia, nomeparoquia, codconcelho, obs from paroquia");
}

QString FrmFreguesias::instrucaoDoCodigo(const QString& codigo) const
{
    return "select * from paroquia where codparoquia = " + citado(codigo);
}

bool FrmFreguesias::nomeRepetido(const QString& nome, Passo) const
{
    return existe("select * from paroquia where nomeparoquia = " + digitado(nome));
}

std::optional<jet::NativeSql> FrmFreguesias::eliminacaoDosDescendentes(const QString& codigo) const
{
    return jet::NativeSql("delete from lugar where codparoquia = ?", {codigo});
}

void FrmFreguesias::cmdLug_Click()
{
    guarded([&] { Forms::show("frmLugares"); });
}
