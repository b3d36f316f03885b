#include "places/frmLugares.h"

#include "common/instrucao.h"

FrmLugares::FrmLugares() : EditorProvisorio(Name, Nivel::Paroquia)
{
    setupUi(this);
    usa<Ui::FrmLugares>(
        *this, adoLug, dtgLug,
        {.nivel = Nivel::Lugar,
         .colunas = {{"Código", "codlugar", 100}, {"Nome Lugar", "nomelugar"}},
         .recusas = {"Deve inserir o nome do lugar!", "A base de dados já contém um lugar com o nome que inseriu!"}});
}

jet::NativeSql FrmLugares::fonte() const
{
    return jet::NativeSql("select * from lugar where codparoquia = ? order by codlugar collate orv_alphabetical",
                          {CodSup});
}

bool FrmLugares::nomeRepetido(const QString& nome, Passo) const
{
    return existe("select * from lugar where nomelugar = " + digitado(nome) + " and codparoquia = " + citado(CodSup));
}

QString FrmLugares::codigoNovo()
{
    return proximoCodigo();
}

// Kept: here alone a reference row can't be altered either.
bool FrmLugares::podeAlterar()
{
    return EditorProvisorio::podeAlterar() && provisorio("Não é possível editar este registo!");
}
