// The pattern of the editors of code and place tables.
#pragma once

#include "common/passo.h"
#include "platform/forms/controls.h"
#include "platform/forms/form.h"

// An editor shows one row of its table and has four commands. The step decides what a click on them means: an addition
// turns add and alter into confirm and cancel, an alteration does the same to alter and delete. Each editor says what
// the steps do to its fields and its table.
class EditorDeTabela : public Form
{
    Q_OBJECT

public:
    using Form::Form;

protected:
    // Takes the commands from the editor's own controls.
    // Precondition: setupUi() has run, and this hasn't.
    template <class Controls>
    void usaComandos(const Controls& ui)
    {
        ins_ = ui.cmdIns, alt_ = ui.cmdAlt, elim_ = ui.cmdElim, sair_ = ui.cmdSair;
        ligaComandos();
    }

    bool emRepouso() const { return comandos_.passo() == Passo::Repouso; }
    bool inserindo() const { return comandos_.passo() == Passo::Insercao; }

    // What the first and the second click of a command do. The step has already begun when its opening routine runs,
    // and lasts until terminaEdicao().
    virtual void abreInsercao() = 0;
    virtual void confirmaInsercao() = 0;
    virtual bool podeAlterar() = 0; // asked at both clicks; tells the user why not
    virtual void abreAlteracao() = 0;
    virtual void confirmaAlteracao() = 0;
    virtual void elimina() = 0;
    virtual void fecha() { unload(); }

    virtual void terminaEdicao(); // back at rest
    virtual void mostraLinha() = 0;

    bool Form_QueryUnload(UnloadMode modo) override; // its own close box does nothing

    CommandButton *ins_ = nullptr, *alt_ = nullptr, *elim_ = nullptr, *sair_ = nullptr;

private:
    void ligaComandos();
    void cmdIns_Click();
    void cmdAlt_Click();
    void cmdElim_Click();
    void cmdSair_Click();
    void cancela();

    Comandos comandos_;
    bool sobreAlteracao_ = false; // the insertion began in the middle of an alteration
};
