#include "codes/frmInfo.h"

#include "common/ficha.h"
#include "common/instrucao.h"
#include "common/marca.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/text.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "store/modBD.h"

FrmInfo::FrmInfo() : EditorDeTabela(Name)
{
    setupUi(this);
    connect(cmbCat, &ComboBox::clicked, this, &FrmInfo::cmbCat_Click);
    connect(dtgInfo, &Grid::picked, this, &FrmInfo::dtgInfo_Click);
    usaComandos<Ui::FrmInfo>(*this);
    opensOn(dtgInfo, cmdIns);
}

void FrmInfo::Form_Load()
{
    guarded([&] {
        fechaCampos();
        adoInfo.setRecordSource("select codigo, descricao,categoria from infocomplementar");
        adoInfo.refresh();
        adoInfo.recordset().setSort("codigo ASC");
        adoInfo.recordset().setFilter("categoria=''"); // no row can be edited before its category is chosen
        preencheCategorias();
    });
}

// The first category is chosen, and with it its codes are shown.
void FrmInfo::preencheCategorias()
{
    if (!ExisteTabela("categoria", cnBDP))
        return showMessage("A base de dados não contém a tabela de categorias!\r\nContacte o suporte!", Icon::Critical);
    jet::Recordset categorias(cnBDP, "select codcat, nomecat from categoria");
    if (categorias.eof())
        return showMessage("A base de dados não faz referência a categorias!\r\nContacte o suporte!", Icon::Critical);
    for (; !categorias.eof(); categorias.moveNext())
        cmbCat->add(categorias["codcat"].toString() + " - " + categorias["nomecat"].toString());
    cmbCat->setListIndex(0);
}

QString FrmInfo::categoria() const
{
    return Mid(cmbCat->text(), 1, 5);
}

void FrmInfo::cmbCat_Click()
{
    guarded([&] {
        adoInfo.recordset().setFilter("categoria=" + citado(categoria()));
        Chave.clear();
        PreencheFG();
        if (inserindo()) propoeCodigo(); // the new row goes to the category that is chosen now
    });
}

void FrmInfo::dtgInfo_Click()
{
    guarded([&] {
        jet::Recordset& registos = adoInfo.recordset();
        registos.moveFirst();
        registos.find("codigo =" + citado(dtgInfo->textMatrix(dtgInfo->row(), 0)));
        mostraLinha();
    });
}

// The marks aren't shown.
void FrmInfo::PreencheFG()
{
    jet::Recordset& registos = adoInfo.recordset();
    const int linhas = registos.recordCount();
    const bool semCabecalho = dtgInfo->rows() == 0;
    dtgInfo->setRows(linhas == 0 ? 0 : linhas + 1);
    if (semCabecalho) dtgInfo->setColumns({{"Código"}, {"Descrição"}});
    for (int linha = 1; linha <= linhas; ++linha) {
        registos.setAbsolutePosition(linha);
        dtgInfo->setTextMatrix(linha, 0, registos["codigo"].toString());
        dtgInfo->setTextMatrix(linha, 1, semMarca(registos["descricao"].toString()));
    }
    if (linhas > 0) registos.moveFirst();
    if (!Chave.isEmpty()) registos.find("codigo =" + citado(Chave));
    dtgInfo->setRow(registos.absolutePosition());
    if (!inserindo()) mostraLinha();
}

void FrmInfo::mostraLinha()
{
    const jet::Recordset& registos = adoInfo.recordset();
    const bool existe = registos.absolutePosition() > 0;
    txtCod->setText(existe ? registos["codigo"].toString() : QString());
    txtNome->setText(existe ? semMarca(registos["descricao"].toString()) : QString());
    visto_.ve(registos);
}

// Captions, grid and fields as they are between two edits.
void FrmInfo::terminaEdicao()
{
    EditorDeTabela::terminaEdicao();
    fechaCampos();
}

void FrmInfo::fechaCampos()
{
    dtgInfo->setEnabled(true);
    abreCampo(*txtCod, false);
    abreCampo(*txtNome, false);
}

void FrmInfo::abreCampo(TextBox& campo, bool aberto)
{
    campo.setLocked(!aberto);
    setBackColor(&campo, aberto ? corDoModo::edi : corDoModo::cons);
}

void FrmInfo::abreInsercao()
{
    dtgInfo->setEnabled(false);
    abreCampo(*txtCod, true);
    abreCampo(*txtNome, true);
    txtNome->clear();
    Focus::setTo(txtNome);
    propoeCodigo();
}

void FrmInfo::propoeCodigo()
{
    const jet::Recordset ultimo(
        cnBDP, jet::NativeSql("select max(cint(codigo)) from infocomplementar where categoria = ?", {categoria()}));
    const QVariant maior = ultimo.eof() ? QVariant() : ultimo[0];
    txtCod->setText(textoDoNumero(maior.toDouble() + 1));
}

bool FrmInfo::descricaoEmFalta(bool comIcone)
{
    if (!txtNome->text().isEmpty()) return false;
    showMessage("Deve inserir uma descrição!", comIcone ? Icon::Information : Icon::None);
    Focus::setTo(txtNome);
    return true;
}

void FrmInfo::confirmaInsercao()
{
    if (descricaoEmFalta(true)) return;
    // As the lists of the cards hold it: a code that is no number would leave them empty, and "007" is the code 7.
    const QString codigo = QString::number(codigoDoTexto(txtCod->text()));
    jet::Recordset& registos = adoInfo.recordset();
    registos.addNew();
    registos.set("codigo", codigo);
    registos.set("categoria", categoria());
    escreve();
}

// The description of the new or the current row; it is shown as the row chosen.
void FrmInfo::escreve()
{
    jet::Recordset& registos = adoInfo.recordset();
    registos.set("descricao", comMarca(txtNome->text()));
    registos.update();
    Chave = registos["codigo"].toString();
    registos.setSort("codigo ASC");
    terminaEdicao();
    PreencheFG();
}

// Whether the current row is the researcher's own; of a fixed one the user is told. No row, nothing to tell.
bool FrmInfo::provisoria(const QString& mensagemSeFixa)
{
    const jet::Recordset& registos = adoInfo.recordset();
    if (registos.absolutePosition() == 0) return false;
    if (temMarca(registos["Descricao"].toString())) return true;
    showMessage(mensagemSeFixa);
    return false;
}

bool FrmInfo::podeAlterar()
{
    return provisoria("Não é possível alterar este registo!");
}

void FrmInfo::abreAlteracao()
{
    abreCampo(*txtNome, true);
    Focus::setTo(txtNome);
}

void FrmInfo::confirmaAlteracao()
{
    if (descricaoEmFalta(false)) return; // Kept: without the icon
    if (visto_.podeGravar(adoInfo.recordset())) escreve();
}

// Kept: whether a card uses the code isn't asked.
void FrmInfo::elimina()
{
    if (!provisoria("Não é possível eliminar este registo!")) return;
    if (!ask(" Tem a certeza que deseja eliminar este registo?")) return;
    jet::Recordset& registos = adoInfo.recordset();
    registos.deleteRow();
    Chave.clear();
    if (adoInfo.hasRows()) {
        registos.movePrevious();
        if (registos.bof()) registos.moveFirst();
        Chave = registos["codigo"].toString();
    }
    PreencheFG();
}
