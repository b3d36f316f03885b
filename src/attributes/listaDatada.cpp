#include "attributes/listaDatada.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"

#include <algorithm>

void ListaDatada::usa(const Botoes& botoes, Grid* grelha, QList<GridColumn> colunas, Regras regras)
{
    cmd_ = botoes;
    comandos_.usa({{cmd_.ins, legenda::adicionar, legenda::confirmar},
                   {cmd_.alt, legenda::alterar, legenda::cancelar, legenda::confirmar},
                   {cmd_.elim, legenda::eliminar, nullptr, legenda::cancelar}});
    grelha_ = grelha;
    colunas_ = std::move(colunas);
    regras_ = std::move(regras);
    opensOn(grelha_, cmd_.ins);
    connect(grelha_, &Grid::picked, this, &ListaDatada::grelha_Click);
    connect(cmd_.ins, &CommandButton::clicked, this, &ListaDatada::cmdIns_Click);
    connect(cmd_.alt, &CommandButton::clicked, this, &ListaDatada::cmdAlt_Click);
    connect(cmd_.elim, &CommandButton::clicked, this, &ListaDatada::cmdElim_Click);
    connect(cmd_.sair, &CommandButton::clicked, this, &ListaDatada::cmdSair_Click);
}

void ListaDatada::abreLista(const QString& instrucao)
{
    AplicarModo(Modo::Cons);
    registos().setRecordSource(instrucao);
    registos().refresh();
    PreencheFG();
}

void ListaDatada::mostraPrimeira()
{
    Chave = grelha_->textMatrix(1, 0);
    ActualizaCampos();
}

void ListaDatada::AplicarModo(Modo modo)
{
    applyMode(this, modos(), modo);
}

void ListaDatada::PreencheFG()
{
    jet::Recordset& linhas = registos().recordset();
    const int total = registos().hasRows() ? linhas.recordCount() : 0;
    if (regras_.fechaSemLinhas) {
        cmd_.elim->setEnabled(total > 0);
        cmd_.alt->setEnabled(total > 0);
    }
    const int actual = grelha_->row();
    const bool semCabecalho = grelha_->rows() == 0;
    grelha_->setRows(total > 0 ? total + 1 : 0);
    if (total == 0) return;

    if (semCabecalho) grelha_->setColumns(colunas_); // else it would scroll back under the mouse
    linhas.moveFirst();
    for (int linha = 1; !linhas.eof(); ++linha, linhas.moveNext()) {
        const QStringList celulas = PreencheLinha(linhas);
        for (int coluna = 0; coluna < celulas.size(); ++coluna)
            grelha_->setTextMatrix(linha, coluna, celulas[coluna]);
    }
    grelha_->setRow(std::clamp(actual, 1, total));
}

void ListaDatada::ActualizaCampos()
{
    if (regras_.limpaAoMostrar) LimpaCampos();
    if (regras_.preencheAoMostrar) {
        registos().refresh();
        PreencheFG();
    }
    if (!registos().hasRows()) return;
    jet::Recordset& linhas = registos().recordset();
    if (Chave.isEmpty()) {
        if (linhas.eof()) linhas.movePrevious();
        if (linhas.bof()) linhas.moveNext();
    } else {
        linhas.moveFirst();
        linhas.find(regras_.procura + chaveNoCriterio());
        if (linhas.eof()) return LimpaCampos();
    }
    grelha_->setRow(linhas.absolutePosition());
    mostraLinha(linhas);
    vista_.ve(linhas);
}

void ListaDatada::grelha_Click()
{
    guarded([&] {
        Chave = grelha_->textMatrix(grelha_->row(), 0);
        ActualizaCampos();
    });
}

void ListaDatada::cmdIns_Click()
{
    guarded([&] {
        if (comandos_.passo() == Passo::Insercao)
            confirmaInsercao();
        else
            iniciaInsercao();
    });
}

void ListaDatada::cmdAlt_Click()
{
    guarded([&] {
        switch (comandos_.passo()) {
        case Passo::Insercao:
            return cancelaInsercao();
        case Passo::Alteracao:
            return confirmaAlteracao();
        default:
            iniciaAlteracao();
        }
    });
}

void ListaDatada::cmdElim_Click()
{
    guarded([&] {
        if (comandos_.passo() == Passo::Alteracao)
            cancelaAlteracao();
        else
            eliminaRegisto();
    });
}

void ListaDatada::cmdSair_Click()
{
    guarded([&] { unload(); });
}

// The row as it is stored now, whatever a refill of the lists or the row shown before has left in the fields.
void ListaDatada::mostraGuardada()
{
    LimpaCampos();
    if (!registos().hasRows()) return;
    jet::Recordset& linhas = registos().recordset();
    linhas.setAbsolutePosition(linhas.absolutePosition()); // a row is read when the cursor comes to it
    ActualizaCampos();
}

// The row of Chave is gone from the store, so none is shown.
bool ListaDatada::linhaPerdida()
{
    return registos().hasRows() && registos().recordset().eof();
}

bool ListaDatada::Form_QueryUnload(UnloadMode modo)
{
    return modo != UnloadMode::ControlMenu || emRepouso();
}

void ListaDatada::volta()
{
    if (Ficha* ficha = donoDaJanela().ficha) ficha->display();
}
