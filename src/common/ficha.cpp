#include "common/ficha.h"

#include "common/captions.h"
#include "common/globals.h"
#include "common/modGeral.h"
#include "platform/jet/errors.h"

void Ficha::ligaComandos()
{
    connect(ins_, &CommandButton::clicked, this, &Ficha::cmdIns_Click);
    connect(alt_, &CommandButton::clicked, this, &Ficha::cmdAlt_Click);
    connect(elim_, &CommandButton::clicked, this, &Ficha::cmdElim_Click);
    connect(loc_, &CommandButton::clicked, this, &Ficha::cmdLoc_Click);
    connect(prim_, &CommandButton::clicked, this, &Ficha::cmdPrim_Click);
    connect(ult_, &CommandButton::clicked, this, &Ficha::cmdUlt_Click);
    marcaFiltro(false);
}

void Ficha::AplicarModo(const QString& modo)
{
    Modo = modo;
    applyMode(this, modos(), modo);
}

void Ficha::procuraRegisto(const QString& criterio)
{
    if (Modo != "Cons" || !ficheiro().hasRows()) return;
    jet::Recordset& registos = ficheiro().recordset();
    registos.moveFirst();
    if (!criterio.isEmpty()) registos.find(criterio);
    if (registos.eof()) registos.moveFirst();
    mostraRegistoDoFicheiro();
}

jet::Recordset& Ficha::registoNaFicha()
{
    const bool emInsercao = ins_->text() == legenda::confirmar;
    if (numeroNaFicha().isEmpty() || emInsercao || Modo == "Loc") throw jet::noCurrentRow();
    return registo();
}

void Ficha::eliminaDoFicheiro()
{
    jet::Recordset& registos = ficheiro().recordset();
    try {
        registos.deleteRow();
    } catch (const jet::Error&) {
    }
    if (!ficheiro().hasRows()) return LimpaCampos(); // kept: position, total and commands stay as they were
    registos.movePrevious();
    if (registos.bof()) registos.moveNext();
    mostraRegistoDoFicheiro();
}

void Ficha::cmdIns_Click()
{
    guarded([&] {
        if (ins_->text() == legenda::confirmar) return confirmaInsercao();
        if (ins_->text() == legenda::cancelar) return cancelaPesquisa();
        if (!EmPesquisa) iniciaInsercao();
    });
}

void Ficha::cmdAlt_Click()
{
    guarded([&] {
        if (alt_->text() == legenda::confirmar) return confirmaAlteracao();
        if (alt_->text() == legenda::cancelar) return cancelaInsercao();
        if (!EmPesquisa) iniciaAlteracao();
    });
}

void Ficha::cmdElim_Click()
{
    guarded([&] {
        if (elim_->text() == legenda::cancelar) return cancelaAlteracao();
        if (!EmPesquisa) elimina();
    });
}

void Ficha::cmdLoc_Click()
{
    guarded([&] {
        if (loc_->text() == legenda::confirmar) return confirmaPesquisa();
        if (!EmPesquisa) iniciaPesquisa();
    });
}

void Ficha::abreInsercao()
{
    LimpaCampos();
    AplicarModo("Edi");
    ins_->setText(legenda::confirmar);
    alt_->setText(legenda::cancelar);
    alt_->setEnabled(true);
    elim_->setEnabled(false);
}

void Ficha::abreAlteracao()
{
    AplicarModo("Edi");
    alt_->setText(legenda::confirmar);
    elim_->setText(legenda::cancelar);
    ins_->setEnabled(false);
}

void Ficha::fechaEdicao()
{
    AplicarModo("Cons");
    ins_->setText(legenda::inserir);
    alt_->setText(legenda::alterar);
    elim_->setText(legenda::eliminar);
}

void Ficha::cmdPrim_Click()
{
    guarded([&] {
        if (!ficheiro().hasRows()) return;
        ficheiro().recordset().moveFirst();
        mostraRegistoDoFicheiro();
        permiteRecuar(false);
        permiteAvancar(true);
    });
}

void Ficha::cmdUlt_Click()
{
    guarded([&] {
        if (!ficheiro().hasRows()) return;
        ficheiro().recordset().moveLast();
        mostraRegistoDoFicheiro();
        permiteAvancar(false);
        permiteRecuar(true);
    });
}

void Ficha::permiteRecuar(bool permite)
{
    prim_->setEnabled(permite);
    ant_->setEnabled(permite);
}

void Ficha::permiteAvancar(bool permite)
{
    seg_->setEnabled(permite);
    ult_->setEnabled(permite);
}

void Ficha::abrePesquisa()
{
    LimpaCampos();
    AplicarModo("Loc");
    loc_->setText(legenda::confirmar);
    ins_->setText(legenda::cancelar);
}

void Ficha::entregaAosResultados()
{
    marcaFiltro(true);
    for (CommandButton* comando : {ins_, loc_, alt_, elim_, fechar_, prim_, ant_, seg_, ult_})
        comando->setEnabled(false);
}

void Ficha::retomaFicheiro()
{
    marcaFiltro(false);
    loc_->setText(legenda::localizar);
    ins_->setText(legenda::inserir);
    EmPesquisa = false;
}

void Ficha::retomaPesquisa()
{
    adoFiltro.recordset().close();
    LimpaCampos();
    AplicarModo("Loc");
    loc_->setEnabled(true);
    ins_->setEnabled(true);
}

void Ficha::marcaFiltro(bool resultados)
{
    setBackColor(filtro_, resultados ? QColor(140, 0, 0) : QColor(0, 0, 140));
}
