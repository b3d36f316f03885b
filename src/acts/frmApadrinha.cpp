#include "acts/frmApadrinha.h"

#include "common/datas.h"
#include "common/instrucao.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "platform/forms/forms.h"

FrmApadrinha::FrmApadrinha() : JanelaDoDono(Name)
{
    setupUi(this);
    assistente->AplicarModo(Modo::Cons);
    assistente->mostraParentescos(false);
    opensOn(dtgAp, cmdSair);
    connect(dtgAp, &Grid::picked, this, &FrmApadrinha::dtgAp_Click);
    connect(cmdSair, &CommandButton::clicked, this, &FrmApadrinha::cmdSair_Click);
}

void FrmApadrinha::Form_Load()
{
    guarded([&] {
        txtNind->setText(donoDaJanela().numero);
        txtNome->setText(donoDaJanela().nome);
        adoAp.setRecordSource("select * from assistente where nind = " + chaveEmSQL(donoDaJanela().numero) +
                              " order by dataref");
        adoAp.refresh();
        assistente->preencheListas();
        PreencheFG();
        ActualizaCampos(adoAp.recordset());
    });
}

void FrmApadrinha::PreencheFG()
{
    if (!adoAp.hasRows()) return dtgAp->setRows(0);
    jet::Recordset& actos = adoAp.recordset();
    dtgAp->setRows(actos.recordCount() + 1);
    dtgAp->setColumns({{"", 67}, {"Data de Referência", 130}, {"Tipo Acto"}});
    for (int linha = 1; !actos.eof(); actos.moveNext())
        PreencheLinha(linha++);
    dtgAp->setRow(1);
}

void FrmApadrinha::PreencheLinha(int linha)
{
    const jet::Recordset& acto = adoAp.recordset();
    dtgAp->setTextMatrix(linha, 0, textoDoNumero(acto["entidade"]));
    dtgAp->setTextMatrix(linha, 1, textoDaData(acto["dataref"]));
    dtgAp->setTextMatrix(linha, 2, acto["tipoacto"].toString() == "c" ? "Casamento" : "Baptismo");
}

void FrmApadrinha::LimpaCampos()
{
    lblActo->clear();
    txtNum->clear();
    txtEnt->clear();
    mskData->clearMasked();
    assistente->limpa();
}

// Kept: only the number is searched for; if a baptism and a marriage have the same one, both rows show the earlier act.
void FrmApadrinha::ActualizaCampos(jet::Recordset& actos)
{
    LimpaCampos();
    if (!adoAp.hasRows()) return;
    actos.moveFirst();
    actos.find("entidade = " + chaveEmSQL(dtgAp->textMatrix(dtgAp->row(), 0)));
    if (actos.eof()) return; // the act's own form has deleted it
    txtNum->setText(textoDoNumero(actos["entidade"]));
    actos["tipoacto"].toString() == "c" ? mostraCasamento(actos) : mostraBaptismo(actos);
    if (!actos["dataref"].isNull()) mskData->showPlain(textoDaData(actos["dataref"]));
    assistente->mostra(actos);
}

void FrmApadrinha::mostraBaptismo(const jet::Recordset& acto)
{
    lblActo->setText("Baptismo");
    const jet::Recordset baptizado(cnBDP,
                                   "select nome from individuo where individuo.nind= " + chaveEmSQL(txtNum->text()));
    if (!baptizado.eof()) txtEnt->setText(baptizado["nome"].toString());
    ProcuraItemData(*assistente->cmbPar1, acto["parentbapt"]);
    assistente->mostraParentescos(false);
}

void FrmApadrinha::mostraCasamento(const jet::Recordset& acto)
{
    lblActo->setText("Casamento");
    jet::Recordset esposos(cnBDP, "select nome from individuo, familia, familias  where familia.nfamilia = "
                                  "familias.nfamilia  and familia.nfamilia = " +
                                      chaveEmSQL(txtNum->text()) + " and  familias.nind = individuo.nind");
    QStringList nomes;
    for (; !esposos.eof() && nomes.size() < 2; esposos.moveNext())
        nomes << esposos["nome"].toString();
    txtEnt->setText(nomes.join(" + "));
    ProcuraItemData(*assistente->cmbPar1, acto["parentnoivo"]);
    ProcuraItemData(*assistente->cmbPar2, acto["parentnoiva"]);
    assistente->mostraParentescos(true);
}

void FrmApadrinha::dtgAp_Click()
{
    guarded([&] { ActualizaCampos(adoAp.recordset()); });
}

void FrmApadrinha::cmdSair_Click()
{
    guarded([&] { unload(); });
}

void FrmApadrinha::volta()
{
    if (Ficha* ficha = donoDaJanela().ficha) ficha->display();
}
