#include "common/ficha.h"

#include "common/dono.h"
#include "common/modGeral.h"
#include "common/pesquisa.h"
#include "common/valores.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

void Ficha::ligaComandos()
{
    comandos_.usa({{ins_, legenda::inserir, legenda::confirmar, nullptr, legenda::cancelar},
                   {alt_, legenda::alterar, legenda::cancelar, legenda::confirmar},
                   {elim_, legenda::eliminar, nullptr, legenda::cancelar},
                   {loc_, legenda::localizar, nullptr, nullptr, legenda::confirmar}});
    connect(ins_, &CommandButton::clicked, this, &Ficha::cmdIns_Click);
    connect(alt_, &CommandButton::clicked, this, &Ficha::cmdAlt_Click);
    connect(elim_, &CommandButton::clicked, this, &Ficha::cmdElim_Click);
    connect(loc_, &CommandButton::clicked, this, &Ficha::cmdLoc_Click);
    connect(prim_, &CommandButton::clicked, this, &Ficha::cmdPrim_Click);
    connect(ult_, &CommandButton::clicked, this, &Ficha::cmdUlt_Click);
    marcaFiltro(false);
}

void Ficha::AplicarModo(Modo modo)
{
    modo_ = modo;
    applyMode(this, modos(), modo);
}

void Ficha::procuraRegisto(const QString& criterio)
{
    if (modo_ != Modo::Cons || !ficheiro().hasRows()) return;
    jet::Recordset& registos = ficheiro().recordset();
    registos.moveFirst();
    if (!criterio.isEmpty()) registos.find(criterio);
    if (registos.eof()) registos.moveFirst();
    mostraRegistoDoFicheiro();
}

void Ficha::releFicheiro(const QString& criterio)
{
    const bool estavaVazio = !ficheiro().hasRows();
    ficheiro().refresh();
    const bool temLinhas = ficheiro().hasRows();
    if (!temLinhas)
        mostraRegistoDoFicheiro();
    else if (estavaVazio)
        AplicarModo(modo_); // an empty file has shut the commands
    procuraRegisto(criterio);
    permiteRecuar(temLinhas);
    permiteAvancar(temLinhas);
}

void Ficha::abreJanela(const QString& nome)
{
    guarded([&] { JanelaDoDono::abre(nome, dono(), true); });
}

namespace {

void apagaActo(const Dono& dono)
{
    cnBDP.execute(jet::NativeSql("delete from assistente where tipoacto = ? and entidade = ?",
                                 {dono.familia() ? "c" : "b", Nind::doCampo(dono.numero).paraColuna()}));
}

} // namespace

bool Ficha::abreIntervenientes()
{
    const Dono acto = dono();
    if (inserindo()) {
        Nind::doCampo(acto.numero); // no other text has a window
        if (acto.guardado()) {
            showMessage("Já existe " + acto.designacao() + '.');
            return false;
        }
        if (actoPorGuardar_ != acto.numero) apagaActo(acto); // rows that nobody has seen are nobody's
        actoPorGuardar_ = acto.numero;
    }
    JanelaDoDono::abre("frmIntervenientes", acto);
    return true;
}

void Ficha::Form_Unload()
{
    guarded([&] { largaActoPorGuardar(); });
}

void Ficha::largaActoPorGuardar()
{
    if (!inserindo() || actoPorGuardar_.isEmpty() || actoPorGuardar_ != numero()) return;
    const Dono acto = dono();
    JanelaDoDono::fechaAsDe(acto.tipo, acto.numero);
    if (!acto.guardado()) apagaActo(acto); // another program may have stored it meanwhile
    actoPorGuardar_.clear();
}

void Ficha::guardouInsercao()
{
    if (actoPorGuardar_ != numero()) apagaActo(dono());
    actoPorGuardar_.clear();
}

void Ficha::eliminaDoFicheiro()
{
    jet::Recordset& registos = ficheiro().recordset();
    const Dono eliminado = dono();
    try {
        registos.deleteRow();
        JanelaDoDono::fechaAsDe(eliminado.tipo, eliminado.numero);
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
        if (inserindo()) return confirmaInsercao();
        if (passo() == Passo::Pesquisa) return cancelaPesquisa();
        if (!EmPesquisa) iniciaInsercao();
    });
}

void Ficha::cmdAlt_Click()
{
    guarded([&] {
        if (passo() == Passo::Alteracao) return confirmaAlteracao();
        if (passo() == Passo::Insercao) return cancelaInsercao();
        if (!EmPesquisa) iniciaAlteracao();
    });
}

void Ficha::cmdElim_Click()
{
    guarded([&] {
        if (passo() == Passo::Alteracao) return cancelaAlteracao();
        if (!EmPesquisa) elimina();
    });
}

void Ficha::cmdLoc_Click()
{
    guarded([&] {
        if (passo() == Passo::Pesquisa) return confirmaPesquisa();
        terminaOutraLista();
        if (!EmPesquisa) iniciaPesquisa();
    });
}

void Ficha::abreInsercao()
{
    LimpaCampos();
    AplicarModo(Modo::Edi);
    comandos_.passaA(Passo::Insercao);
    actoPorGuardar_.clear();
    alt_->setEnabled(true);
    elim_->setEnabled(false);
}

void Ficha::abreAlteracao()
{
    AplicarModo(Modo::Edi);
    comandos_.passaA(Passo::Alteracao);
    ins_->setEnabled(false);
}

void Ficha::fechaEdicao()
{
    AplicarModo(Modo::Cons);
    comandos_.passaA(Passo::Repouso);
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
    AplicarModo(Modo::Loc);
    interrompido_ = passo();
    comandos_.passaA(Passo::Pesquisa);
}

void Ficha::fechaPesquisa()
{
    comandos_.passaA(Passo::Repouso);
    comandos_.passaA(interrompido_);
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
    fechaPesquisa();
    EmPesquisa.acaba();
}

void Ficha::retomaPesquisa()
{
    adoFiltro.recordset().close();
    LimpaCampos();
    AplicarModo(Modo::Loc);
    loc_->setEnabled(true);
    ins_->setEnabled(true);
    Focus::setTo(primeiroCampo());
}

void Ficha::marcaFiltro(bool resultados)
{
    setBackColor(filtro_, resultados ? QColor(140, 0, 0) : QColor(0, 0, 140));
}
