#include "codes/EditorDeCodigos.h"

#include "common/captions.h"
#include "common/modGeral.h"

void EditorDeCodigos::ligaComandos(CommandButton* sair)
{
    connect(ins_, &CommandButton::clicked, this, &EditorDeCodigos::cmdIns_Click);
    connect(alt_, &CommandButton::clicked, this, &EditorDeCodigos::cmdAlt_Click);
    connect(elim_, &CommandButton::clicked, this, &EditorDeCodigos::cmdElim_Click);
    connect(sair, &CommandButton::clicked, this, [this] { unload(); });
}

bool EditorDeCodigos::Form_QueryUnload(UnloadMode modo)
{
    return modo != UnloadMode::ControlMenu;
}

bool EditorDeCodigos::inserindo() const
{
    return ins_->text() == legenda::confirmar;
}

void EditorDeCodigos::cmdIns_Click()
{
    guarded([&] {
        if (inserindo()) return confirmaInsercao();
        ins_->setText(legenda::confirmar);
        alt_->setText(legenda::cancelar);
        abreInsercao();
    });
}

void EditorDeCodigos::cmdAlt_Click()
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

void EditorDeCodigos::cmdElim_Click()
{
    guarded([&] {
        if (elim_->text() == legenda::cancelar) return cancela();
        elimina();
    });
}

void EditorDeCodigos::cancela()
{
    terminaEdicao();
    mostraLinha();
}

void EditorDeCodigos::terminaEdicao()
{
    ins_->setText(legenda::inserir);
    alt_->setText(legenda::alterar);
    elim_->setText(legenda::eliminar);
}
