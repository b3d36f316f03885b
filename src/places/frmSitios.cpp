#include "places/frmSitios.h"

#include "common/instrucao.h"

FrmSitios::FrmSitios() : EditorProvisorio(Name, Nivel::Lugar)
{
    setupUi(this);
    usa<Ui::FrmSitios>(
        *this, adoSit, dtSit,
        {.nivel = Nivel::Sitio,
         .colunas = {{"Código", "codsitio", 100}, {"Nome do sitio", "nomesitio"}},
         .recusas = {"Deve inserir o nome do sitio!", "A base de dados já contém um sitio com o nome que inseriu!"}});
}

jet::NativeSql FrmSitios::fonte() const
{
    return jet::NativeSql("select * from sitio where codlugar = ? order by codsitio collate orv_alphabetical",
                          {CodSup});
}

bool FrmSitios::nomeRepetido(const QString& nome, Passo) const
{
    return existe("select * from sitio where nomesitio = " + digitado(nome) + " and codlugar = " + citado(CodSup));
}

QString FrmSitios::codigoNovo()
{
    return proximoCodigo();
}
