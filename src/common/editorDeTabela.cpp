#include "common/editorDeTabela.h"

#include "common/modGeral.h"

void EditorDeTabela::ligaComandos()
{
    comandos_.usa({{ins_, legenda::inserir, legenda::confirmar},
                   {alt_, legenda::alterar, legenda::cancelar, legenda::confirmar},
                   {elim_, legenda::eliminar, nullptr, legenda::cancelar}});
    connect(ins_, &CommandButton::clicked, this, &EditorDeTabela::cmdIns_Click);
    connect(alt_, &CommandButton::clicked, this, &EditorDeTabela::cmdAlt_Click);
    connect(elim_, &CommandButton::clicked, this, &EditorDeTabela::cmdElim_Click);
    connect(sair_, &CommandButton::clicked, this, &EditorDeTabela::cmdSair_Click);
}

bool EditorDeTabela::Form_QueryUnload(UnloadMode modo)
{
    return modo != UnloadMode::ControlMenu;
}

void EditorDeTabela::cmdIns_Click()
{
    guarded([&] {
        if (inserindo()) return confirmaInsercao();
        sobreAlteracao_ = comandos_.passo() == Passo::Alteracao;
        comandos_.passaA(Passo::Insercao);
        elim_->setEnabled(sobreAlteracao_); // the row that it would delete isn't on the screen
        abreInsercao();
    });
}

void EditorDeTabela::cmdAlt_Click()
{
    guarded([&] {
        if (inserindo()) return cancela();
        if (!podeAlterar()) return;
        if (comandos_.passo() == Passo::Alteracao) return confirmaAlteracao();
        comandos_.passaA(Passo::Alteracao);
        abreAlteracao();
    });
}

// In the middle of an insertion it is open only if that began in the middle of an alteration, and cancels both.
void EditorDeTabela::cmdElim_Click()
{
    guarded([&] {
        if (emRepouso()) return elimina();
        cancela();
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
    comandos_.passaA(Passo::Repouso);
    elim_->setEnabled(true);
}
