#include "codes/frmProfissao.h"

#include "common/ficha.h"
#include "common/instrucao.h"
#include "common/listasAbertas.h"
#include "common/marca.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/text.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

#include <QSignalBlocker>

FrmProfissao::FrmProfissao() : EditorDeTabela(Name)
{
    setupUi(this);
    connect(lstProf, &ListBox::clicked, this, &FrmProfissao::lstProf_Click);
    connect(lstProf, &ListBox::currentRowChanged, this, &FrmProfissao::lstProf_Click); // the arrow keys choose too
    usaComandos<Ui::FrmProfissao>(*this);
    opensOn(lstProf, cmdIns);
}

void FrmProfissao::Form_Load()
{
    guarded([&] {
        adoProf.setRecordSource("select * from profissao order by codprof");
        adoProf.refresh();
        jet::Recordset& registos = adoProf.recordset();
        for (; !registos.eof(); registos.moveNext())
            lstProf->add(registos["profissao"].toString(), codigoDoTexto(codigoDaLinha()));
        if (adoProf.hasRows()) registos.moveFirst();
        mostraEstado(false);
        mostraLinha();
    });
}

// Brings an open frmProf up to date.
void FrmProfissao::Form_Unload()
{
    if (Forms::isUnloadingAll()) return;
    for (const ListasAbertas::Lista& aberta : ListasAbertas::deProfissoes()) {
        ComboBox& lista = *aberta.combo;
        const QVariant escolhida = lista.listIndex() < 0 ? QVariant() : lista.itemData(lista.listIndex());
        lista.clear();
        for (int i = 0; i < lstProf->listCount(); ++i)
            lista.add(lstProf->list(i), lstProf->itemData(i));
        ProcuraItemData(lista, escolhida);
        aberta.janela->display();
    }
}

void FrmProfissao::mostraLinha()
{
    jet::Recordset& registos = adoProf.recordset();
    if (!Chave.isEmpty() && adoProf.hasRows()) {
        registos.moveFirst();
        registos.find("codProf=" + chaveEmSQL(Chave));
    }
    const bool existe = registos.absolutePosition() > 0;
    txtCod->setText(existe ? codigoDaLinha() : QString());
    txtDes->setText(existe ? semMarca(registos["profissao"].toString()) : QString());
    txtObs->setText(existe ? registos["obs"].toString() : QString());
    vista_.ve(registos);
}

QString FrmProfissao::codigoDaLinha()
{
    return textoDoNumero(adoProf.recordset()["codprof"]);
}

int FrmProfissao::entradaDaLinha()
{
    const qint32 codigo = codigoDoTexto(codigoDaLinha());
    for (int i = 0; i < lstProf->listCount(); ++i)
        if (lstProf->itemData(i) == codigo) return i;
    return -1;
}

void FrmProfissao::lstProf_Click()
{
    guarded([&] {
        if (lstProf->list(lstProf->listIndex()).isEmpty()) return;
        Chave = QString::number(lstProf->itemData(lstProf->listIndex()));
        mostraLinha();
    });
}

void FrmProfissao::mostraEstado(bool edicao)
{
    for (QWidget* campo : QList<QWidget*>{txtDes, txtObs})
        setBackColor(campo, edicao ? corDoModo::edi : corDoModo::cons);
}

void FrmProfissao::abreAlteracao()
{
    mostraEstado(true);
}

void FrmProfissao::terminaEdicao()
{
    EditorDeTabela::terminaEdicao();
    mostraEstado(false);
}

void FrmProfissao::abreInsercao()
{
    mostraEstado(true);
    propoeCodigo();
    txtDes->clear();
    txtObs->clear();
    Focus::setTo(txtDes);
}

void FrmProfissao::propoeCodigo()
{
    txtCod->clear();
    if (!adoProf.hasRows()) return;
    adoProf.recordset().moveLast();
    txtCod->setText(textoDoNumero(adoProf.recordset()["Codprof"].toDouble() + 1));
}

// Whether what stands in txtDes can't be stored: the user is told, and goes on there.
bool FrmProfissao::designacaoRecusada(const QString& mensagemSeFalta)
{
    if (txtDes->text().isEmpty()) {
        showMessage(mensagemSeFalta);
        Focus::setTo(txtDes);
        return true;
    }
    // Kept: the texts are compared as they are stored, so a marked one is no duplicate of the same word, and a standard
    // one that is altered without a change is a duplicate of itself.
    const jet::Recordset repetida(cnBDP, "select * from profissao where profissao = " + digitado(Trim(txtDes->text())));
    if (repetida.eof()) return false;
    showMessage("Essa profissão já existe!");
    txtDes->clear();
    Focus::setTo(txtDes);
    return true;
}

// The command stays at its confirmation, with empty fields and the next code proposed: so a series can be typed.
void FrmProfissao::confirmaInsercao()
{
    if (designacaoRecusada("Deve inserir uma designação para a nova profisssão!")) return;
    const QString marcada = comMarca(txtDes->text());
    jet::Recordset& registos = adoProf.recordset();
    registos.addNew();
    registos.set("codprof", txtCod->text());
    registos.set("profissao", marcada);
    registos.set("obs", txtObs->text());
    registos.update();
    lstProf->add(marcada, codigoDoTexto(codigoDaLinha()));
    abreInsercao();
}

bool FrmProfissao::podeAlterar()
{
    return adoProf.recordset().absolutePosition() > 0;
}

void FrmProfissao::confirmaAlteracao()
{
    if (designacaoRecusada("Deve inserir a designação da profissão!")) return;
    const QString marcada = comMarca(txtDes->text());
    jet::Recordset& registos = adoProf.recordset();
    if (!vista_.podeGravar(registos)) return;
    registos.set("profissao", marcada);
    registos.set("obs", txtObs->text());
    registos.update();
    lstProf->item(entradaDaLinha())->setText(marcada);
    const QString codigo = codigoDaLinha();
    registos.setSort("codprof ASC");
    registos.find("codprof=" + chaveEmSQL(codigo));
    mostraLinha();
    terminaEdicao();
}

void FrmProfissao::elimina()
{
    jet::Recordset& registos = adoProf.recordset();
    if (registos.absolutePosition() == 0) return;
    if (!ask("Tem a certeza que deseja eliminar este registo?")) return;
    const jet::Recordset usos(
        cnBDP, jet::NativeSql("select count(*) from profissoes where codprof = ?", {registos["codprof"]}));
    if (usos[0].toDouble() != 0)
        return showMessage("Não é possível eliminar a profissão seleccionada, pois já existem registos relacionados!");
    const int entrada = entradaDaLinha();
    registos.deleteRow();
    {
        const QSignalBlocker quieta(lstProf); // the row that remains current is shown, whatever the list turns to
        lstProf->removeItem(entrada);
    }
    Chave.clear();
    registos.moveNext();
    if (registos.eof() && adoProf.hasRows()) registos.moveLast();
    mostraLinha();
}
