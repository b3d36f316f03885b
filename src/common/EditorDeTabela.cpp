#include "common/EditorDeTabela.h"

#include "common/captions.h"
#include "common/modGeral.h"

void EditorDeTabela::ligaComandos()
{
    connect(ins_, &CommandButton::clicked, this, &EditorDeTabela::cmdIns_Click);
    connect(alt_, &CommandButton::clicked, this, &EditorDeTabela::cmdAlt_Click);
    connect(elim_, &CommandButton::clicked, this, &EditorDeTabela::cmdElim_Click);
    connect(sair_, &CommandButton::clicked, this, &EditorDeTabela::cmdSair_Click);
}

bool EditorDeTabela::Form_QueryUnload(UnloadMode modo)
{
    return modo != UnloadMode::ControlMenu;
}

bool EditorDeTabela::inserindo() const
{
    return ins_->text() == legenda::confirmar;
}

void EditorDeTabela::cmdIns_Click()
{
    guarded([&] {
        if (inserindo()) return confirmaInsercao();
        ins_->setText(legenda::confirmar);
        alt_->setText(legenda::cancelar);
        abreInsercao();
    });
}

void EditorDeTabela::cmdAlt_Click()
{
    guarded([&] {
        if (alt_->text() == legenda::cancelar) return cancela();
        if (!podeAlterar()) return;
        if (alt_->text() == legenda::confirmar) return confirmaAlteracao();
        alt_->setText(legenda::confirmar);
        elim_->setText(legenda::cancelar);
        abreAlteracao();
    });
}

void EditorDeTabela::cmdElim_Click()
{
    guarded([&] {
        if (elim_->text() == legenda::cancelar) return cancela();
        elimina();
    });
}

void EditorDeTabela::cmdSair_Click()
{
    guarded([&] { fecha(); });
}

void EditorDeTabela::cancela()
{
    terminaEdicao();
    mostraLinha();
}

void EditorDeTabela::terminaEdicao()
{
    ins_->setText(legenda::inserir);
    alt_->setText(legenda::alterar);
    elim_->setText(legenda::eliminar);
}
