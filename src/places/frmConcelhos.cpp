#include "places/frmConcelhos.h"

#include "common/instrucao.h"
#include "common/modGeral.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

FrmConcelhos& frmConcelhos()
{
    return theForm<FrmConcelhos>();
}

FrmConcelhos::FrmConcelhos() : EditorComCodigo(Name)
{
    setupUi(this);
    usa<Ui::FrmConcelhos>(*this, adoConc, dtgConc,
                          {.nivel = Nivel::Concelho,
                           .colunas = {{"DDCC", "codconcelho", 100}, {"Designação", "nomeconcelho"}},
                           .recusas = {"Deve inserir o nome do concelho!",
                                       "A base de dados já contém um concelho com o nome que inseriu!"},
                           .outros = {cmdFreg}});
    usaCodigo(
        {2, "Deve inserir o código do concelho!", "A base de dados já contém um concelho com o código que inseriu!"},
        cmbDist);
    connect(cmdFreg, &CommandButton::clicked, this, &FrmConcelhos::cmdFreg_Click);
}

void FrmConcelhos::carrega()
{
    EditorComCodigo::carrega();
    jet::Recordset distritos(cnBDP, "select coddistrito, nomedistrito from distrito");
    preencheSuperiores(distritos);
    if (cmbDist->count() == 0)
        showMessage("Não é possível a edição de concelhos!\r\nRazão: Não existem registos de distritos.",
                    Icon::Critical);
}

jet::NativeSql FrmConcelhos::fonte() const
{
    return jet::NativeSql("select codconcelho, nomeconcelho, coddistrito, obs from concelho "
                          "order by nomeconcelho collate orv_alphabetical");
}

QString FrmConcelhos::instrucaoDoCodigo(const QString& codigo) const
{
    return "select * from concelho where codconcelho = " + citado(codigo);
}

bool FrmConcelhos::nomeRepetido(const QString& nome, Passo) const
{
    return existe("select * from concelho where nomeconcelho = " + digitado(nome));
}

std::optional<jet::NativeSql> FrmConcelhos::eliminacaoDosDescendentes(const QString& codigo) const
{
    return jet::NativeSql("delete from lugar where codparoquia in (select codparoquia from paroquia where codconcelho "
                          "in (select codconcelho from concelho where codconcelho = ?))",
                          {codigo});
}

void FrmConcelhos::cmdFreg_Click()
{
    guarded([&] { Forms::show("frmFreguesias"); });
}
