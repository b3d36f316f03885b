#include "places/frmLugares.h"

FrmLugares::FrmLugares() : EditorProvisorio(Name, Nivel::Paroquia)
{
    setupUi(this);
    usa(*this, adoLug, dtgLug,
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
    return existe("select * from lugar where nomelugar = '" + nome + "' and codparoquia = '" + CodSup + "'");
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
