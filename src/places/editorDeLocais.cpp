#include "places/editorDeLocais.h"

#include "common/campos.h"
#include "common/instrucao.h"
#include "common/marca.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/text.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "platform/jet/transaction.h"

#include <algorithm>

void EditorDeLocais::ligaControlos()
{
    opensOn(grelha_, ins_);
    connect(grelha_, &Grid::picked, this, &EditorDeLocais::grelha_Click);
    connect(txtNome_, &TextBox::textEdited, this, &EditorDeLocais::txtNome_Edited);
}

// Names of places have no hyphens, as in the reference data: a hyphen begins the code in the text of a place.
void EditorDeLocais::txtNome_Edited(const QString& texto)
{
    if (!texto.contains('-')) return;
    const int onde = txtNome_->cursorPosition();
    txtNome_->setText(QString(texto).replace('-', ' '));
    txtNome_->setCursorPosition(onde);
}

void EditorDeLocais::Form_Load()
{
    guarded([&] { carrega(); });
}

void EditorDeLocais::carrega()
{
    AplicarModo(Modo::Cons);
    registos_->setRecordSource(fonte());
    registos_->refresh();
    registos_->recordset().setSort(regras_.ordem);
    mostraRegistos();
}

bool EditorDeLocais::Form_QueryUnload(UnloadMode modo)
{
    return modo != UnloadMode::ControlMenu || emRepouso();
}

void EditorDeLocais::grelha_Click()
{
    guarded([&] { mostraLinha(); });
}

// Those with fields of their own, or other ones to shut, have a table of their own.
const QList<ModeRow>& EditorDeLocais::modos() const
{
    using enum Effect;
    static const QList<ModeRow> tabela{
        // control   Edi     Cons
        {"txtCod", {Open}, {Shut}},
        {"txtNome", {Open}, {Shut}},
        {"txtObs", {Open}, {Shut}},
    };
    return tabela;
}

void EditorDeLocais::AplicarModo(Modo modo)
{
    applyMode(this, modos(), modo);
    for (QWidget* outro : QList<QWidget*>{grelha_, sair_} + regras_.outros)
        outro->setEnabled(modo == Modo::Cons);
}

void EditorDeLocais::terminaEdicao()
{
    EditorDeTabela::terminaEdicao();
    ins_->setEnabled(true);
    AplicarModo(Modo::Cons);
}

QWidget* EditorDeLocais::primeiroCampo() const
{
    return txtNome_;
}

// The "*" of the places that the researcher made isn't shown.
void EditorDeLocais::preencheGrelha()
{
    jet::Recordset& linhas = registos_->recordset();
    const int total = linhas.recordCount();
    grelha_->setRows(total > 0 ? total + 1 : 0);
    QList<GridColumn> colunas;
    for (const Coluna& coluna : regras_.colunas)
        colunas << GridColumn{coluna.titulo, coluna.largura};
    grelha_->setColumns(colunas);
    for (int linha = 1; linha <= total; ++linha) {
        linhas.setAbsolutePosition(linha);
        for (int coluna = 0; coluna < regras_.colunas.size(); ++coluna)
            grelha_->setTextMatrix(linha, coluna, semMarca(valor(regras_.colunas[coluna].campo)));
    }
}

void EditorDeLocais::mostraRegistos(const QString& codigo)
{
    preencheGrelha();
    jet::Recordset& linhas = registos_->recordset();
    if (registos_->hasRows()) {
        linhas.moveFirst();
        if (!codigo.isEmpty()) linhas.find(QString(nivel().codigo) + " =" + citado(codigo));
        grelha_->setRow(std::max(linhas.absolutePosition(), 1));
    }
    mostraLinha();
}

bool EditorDeLocais::posiciona()
{
    if (!registos_->hasRows()) return false;
    registos_->recordset().setAbsolutePosition(grelha_->row());
    return true;
}

QString EditorDeLocais::valor(const QString& campo) const
{
    return textoDoNumero(registos_->recordset()[campo]);
}

void EditorDeLocais::limpaCampos()
{
    txtCod_->clear();
    txtNome_->clear();
    txtObs_->clear();
    limpaOutros();
}

void EditorDeLocais::mostraLinha()
{
    limpaCampos();
    if (!posiciona()) return;
    txtCod_->setText(valor(nivel().codigo));
    txtNome_->setText(semMarca(valor(nivel().nome)));
    txtObs_->setText(valor("obs"));
    mostraOutros(registos_->recordset());
    vista_.ve(registos_->recordset());
}

void EditorDeLocais::abreInsercao()
{
    AplicarModo(Modo::Edi);
    limpaCampos();
    Focus::setTo(primeiroCampo());
    txtCod_->setText(codigoNovo());
}

void EditorDeLocais::confirmaInsercao()
{
    if (!VerificaCampos(Passo::Insercao)) return;
    const QString codigo = codigoAGravar();
    jet::Recordset& linhas = registos_->recordset();
    linhas.addNew();
    linhas.set(nivel().codigo, codigo.isEmpty() ? QVariant() : codigo); // the store refuses a row without one
    if (nivel().superior) linhas.set(nivel().superior, superior());
    escreveCampos();
    linhas.requery(); // in its order
    terminaEdicao();
    mostraRegistos(codigo);
}

bool EditorDeLocais::podeAlterar()
{
    return posiciona();
}

void EditorDeLocais::abreAlteracao()
{
    ins_->setEnabled(false);
    AplicarModo(Modo::Edi);
    Focus::setTo(txtNome_);
}

void EditorDeLocais::confirmaAlteracao()
{
    if (!VerificaCampos(Passo::Alteracao) || !vista_.podeGravar(registos_->recordset())) return;
    const QString codigo = valor(nivel().codigo);
    escreveCampos();
    registos_->recordset().requery();
    terminaEdicao();
    mostraRegistos(codigo);
}

// Kept: notes that were emptied stay as they were.
void EditorDeLocais::escreveCampos()
{
    jet::Recordset& linhas = registos_->recordset();
    linhas.set(nivel().nome, nomeAGravar());
    if (!txtObs_->text().isEmpty()) linhas.set("obs", txtObs_->text());
    escreveOutros(linhas);
    linhas.update();
}

QString EditorDeLocais::codigoAGravar() const
{
    return Trim(txtCod_->text());
}

QString EditorDeLocais::nomeAGravar() const
{
    return txtNome_->text();
}

bool EditorDeLocais::VerificaCampos(Passo passo)
{
    const Recusas& recusas = passo == Passo::Insercao ? regras_.recusas : regras_.aoAlterar;
    const QString nome = Trim(txtNome_->text());
    const QString aMostrar = Trim(semMarca(nome)); // a name of "*"s alone would show as none
    const bool falta = aMostrar.isEmpty() || eNumero(aMostrar);
    if (!falta && !nomeRepetido(nome, passo)) return true;
    const QString anterior = passo == Passo::Insercao ? QString() : semMarca(valor(nivel().nome));
    return recusaComTexto(falta ? recusas.semNome : recusas.repetido, txtNome_, anterior);
}

bool EditorDeLocais::recusaComTexto(const QString& mensagem, TextBox* campo, const QString& texto)
{
    campo->setText(texto);
    return recusa(mensagem, campo);
}

void EditorDeLocais::elimina()
{
    if (!posiciona() || !ask("Tem a certeza que deseja eliminar este registo?")) return;
    exigeQueNinguemUse(valor(nivel().codigo));
    if (const auto descendentes = eliminacaoDosDescendentes(valor(nivel().codigo))) {
        jet::Transaction transaccao(cnBDP);
        cnBDP.execute(*descendentes);
        transaccao.commit();
    }
    registos_->recordset().deleteRow();
    const int linha = grelha_->row(); // where the next row stands now, if there is one
    preencheGrelha();
    grelha_->setRow(std::min(linha, registos_->recordset().recordCount()));
    mostraLinha();
}
