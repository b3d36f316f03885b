// Addition, alteration and deletion of a row.
#include "attributes/listaDatada.h"

#include "common/pesquisa.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"

void ListaDatada::iniciaInsercao()
{
    if (EmPesquisa) return;
    comandos_.passaA(Passo::Insercao);
    cmd_.alt->setEnabled(true);
    cmd_.elim->setEnabled(false);
    cmd_.sair->setEnabled(false);
    LimpaCampos();
    AplicarModo(Modo::Edi);
    if (regras_.focoAoInserir) Focus::setTo(regras_.focoAoInserir);
}

void ListaDatada::confirmaInsercao()
{
    if (!donoGuardado() || !VerificaCampos(Passo::Insercao)) return;
    if (const QString nova = acrescenta(); !nova.isEmpty()) Chave = nova;
    registos().refresh();
    PreencheFG();
    AplicarModo(Modo::Cons);
    ActualizaCampos();
    terminaInsercao();
}

void ListaDatada::cancelaInsercao()
{
    terminaInsercao();
    AplicarModo(Modo::Cons);
    if (regras_.preencheAoCancelar) PreencheFG();
    ActualizaCampos();
}

void ListaDatada::terminaInsercao()
{
    comandos_.passaA(Passo::Repouso);
    cmd_.elim->setEnabled(true);
    cmd_.sair->setEnabled(true);
}

void ListaDatada::iniciaAlteracao()
{
    if (EmPesquisa || !temLinhas() || linhaPerdida()) return;
    mostraGuardada();
    if (linhaPerdida()) return showMessage("O registo já não existe na base de dados.");
    comandos_.passaA(Passo::Alteracao);
    cmd_.ins->setEnabled(false);
    cmd_.sair->setEnabled(false);
    AplicarModo(Modo::Edi);
    preparaAlteracao();
    if (regras_.focoAoAlterar) Focus::setTo(regras_.focoAoAlterar);
}

void ListaDatada::confirmaAlteracao()
{
    if (!donoGuardado() || !VerificaCampos(Passo::Alteracao)) return;
    if (!vista_.podeGravar(registos().recordset())) return;
    const QString alterada = altera();
    if (regras_.releAoAlterar) registos().refresh();
    AplicarModo(Modo::Cons);
    PreencheFG();
    Chave = alterada.isEmpty() ? grelha_->textMatrix(grelha_->row(), 0) : alterada;
    ActualizaCampos();
    terminaAlteracao();
}

void ListaDatada::cancelaAlteracao()
{
    terminaAlteracao();
    AplicarModo(Modo::Cons);
    ActualizaCampos();
}

void ListaDatada::terminaAlteracao()
{
    comandos_.passaA(Passo::Repouso);
    cmd_.ins->setEnabled(true);
    cmd_.sair->setEnabled(true);
}

void ListaDatada::eliminaRegisto()
{
    const bool impedido = EmPesquisa || !temLinhas() || linhaPerdida();
    if (impedido && !regras_.perguntaPrimeiro) return;
    if (!ask(regras_.pergunta) || impedido) return;

    const QString vizinha = chaveVizinha();
    elimina();
    registos().refresh();
    if (!registos().hasRows()) {
        Chave.clear();
        LimpaCampos();
        if (!regras_.guardaUltimaNaGrelha) PreencheFG();
        return;
    }
    PreencheFG();
    Chave = regras_.eliminarVaiAPrimeira ? grelha_->textMatrix(1, 0) : vizinha;
    ActualizaCampos();
}

// Of the row above the one shown, or of the one below the first.
QString ListaDatada::chaveVizinha()
{
    const int linha = registos().recordset().absolutePosition();
    return grelha_->textMatrix(linha > 1 ? linha - 1 : linha + 1, 0);
}

void ListaDatada::acrescentaLinha(const Valores& valores)
{
    jet::Recordset& linhas = registos().recordset();
    linhas.addNew();
    for (const auto& [coluna, valor] : valores)
        if (!valor.isNull()) linhas.set(coluna, valor);
    linhas.update();
}

void ListaDatada::alteraLinha(const Valores& valores)
{
    jet::Recordset& linhas = registos().recordset();
    for (const auto& [coluna, valor] : valores)
        linhas.set(coluna, valor);
    linhas.update();
}

QString ListaDatada::proximoNumero(const QString& coluna)
{
    if (!registos().hasRows()) return "1";
    jet::Recordset& linhas = registos().recordset();
    linhas.setSort(coluna + " Desc");
    const QVariant ultimo = linhas[coluna];
    linhas.setSort({}); // back to the order of the grid
    return textoDoNumero(ultimo.toDouble() + 1);
}
