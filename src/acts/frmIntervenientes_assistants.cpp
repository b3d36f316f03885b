// The assistants of the act: the list, and how its rows are added, altered and deleted.
#include "acts/frmIntervenientes.h"

#include "common/campos.h"
#include "common/datas.h"
#include "common/escolhido.h"
#include "common/ficha.h"
#include "common/instrucao.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/pesquisa.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"

#include <algorithm>

void FrmIntervenientes::AplicarModo(Modo modo)
{
    using enum Effect;
    constexpr QColor blue = corDoModo::edi, white = corDoModo::cons;

    // clang-format off
    static const QList<ModeRow> tabela{
        // control      Edi            Cons
        {"dtInterv",    {Disabled},    {Enabled},      {}},
        {"txtIndAss",   {Shut, blue},  {Shut, white},  {}},
        {"cmdIndAss",   {Enabled},     {Disabled},     {}},
        {"cmdIns",      {Enabled},     {Enabled},      {}},
        {"cmdAlt",      {Enabled},     {Enabled},      {}},
        {"cmdElim",     {Enabled},     {Enabled},      {}},
        {"cmdSair",     {Disabled},    {Enabled},      {}},
    };
    // clang-format on
    applyMode(this, tabela, modo);
    assistente->AplicarModo(modo);
}

void FrmIntervenientes::LimpaCampos()
{
    assistente->limpa();
    txtIndAss->clear();
}

// If a person has two rows, the first is shown. If none was chosen, the last of the list is: filling the grid has left
// the cursor there.
void FrmIntervenientes::ActualizaCampos()
{
    LimpaCampos();
    if (!adoInterv.hasRows()) return;
    jet::Recordset& linha = adoInterv.recordset();
    if (!Chave.isEmpty()) {
        linha.moveFirst();
        linha.find("nind =" + chaveEmSQL(Chave));
        if (linha.eof()) return; // another card has deleted it
    } else {
        if (linha.eof()) linha.movePrevious();
        if (linha.bof()) linha.moveNext();
    }
    mostraLinha();
}

void FrmIntervenientes::mostraLinha()
{
    const jet::Recordset& linha = adoInterv.recordset();
    dtInterv->setRow(linha.absolutePosition());
    txtIndAss->setText(textoDoNumero(linha["nind"]));
    assistente->mostra(linha);
    // Kept: the columns decide, not the act.
    if (!linha["parentbapt"].isNull()) {
        ProcuraItemData(*assistente->cmbPar1, linha["parentbapt"]);
    } else {
        ProcuraItemData(*assistente->cmbPar1, linha["parentnoivo"]);
        ProcuraItemData(*assistente->cmbPar2, linha["parentnoiva"]);
    }
}

void FrmIntervenientes::PreencheFG()
{
    if (!adoInterv.hasRows()) {
        dtInterv->setRows(0);
        cmdAlt->setEnabled(false);
        cmdElim->setEnabled(false);
        return;
    }
    const int escolhida = dtInterv->row();
    jet::Recordset& linhas = adoInterv.recordset();
    linhas.moveFirst();
    dtInterv->setRows(linhas.recordCount() + 1);
    dtInterv->setColumns({{"Nind", 67}, {"Tipo Assistente"}});
    for (int linha = 1; !linhas.eof(); linhas.moveNext())
        PreencheLinha(linha++);
    dtInterv->setRow(std::clamp(escolhida, 1, linhas.recordCount()));
}

void FrmIntervenientes::PreencheLinha(int linha)
{
    const jet::Recordset& registo = adoInterv.recordset();
    dtInterv->setTextMatrix(linha, 0, textoDoNumero(registo["nind"]));
    dtInterv->setTextMatrix(linha, 1, registo["tipoassistente"].toString() == "p" ? "Padrinho" : "Testemunha");
}

void FrmIntervenientes::dtInterv_Click()
{
    guarded([&] {
        Chave = dtInterv->textMatrix(dtInterv->row(), 0);
        ActualizaCampos();
    });
}

void FrmIntervenientes::cmdIns_Click()
{
    guarded([&] {
        if (assistentes_.passo() == Passo::Insercao) return confirmaAdicao();
        if (EmPesquisa) return;
        releData();
        LimpaCampos();
        AplicarModo(Modo::Edi);
        assistentes_.passaA(Passo::Insercao);
        cmdElim->setEnabled(false);
        Focus::setTo(assistente->optassistente_0);
    });
}

// The act may have another date by now. A card that shows another one, or searches, says nothing of this one.
void FrmIntervenientes::releData()
{
    Ficha* ficha = donoDaJanela().ficha;
    dataPorConfirmar_ = false;
    if (!ficha || ficha->modo() == Modo::Loc || ficha->numero() != txtNum->text()) return;
    mskData->showPlain(ficha->dono().data);
    dataPorConfirmar_ = ficha->modo() == Modo::Edi;
}

// What was read in the middle of an edit that is over now may have been given up: the store knows.
void FrmIntervenientes::confirmaData()
{
    const Ficha* ficha = donoDaJanela().ficha;
    const bool emEdicao = ficha && ficha->modo() == Modo::Edi && ficha->numero() == txtNum->text();
    if (!dataPorConfirmar_ || emEdicao) return;
    const jet::Recordset guardado(cnBDP, (casamento() ? "select datacasam from familia where nfamilia = "
                                                      : "select datanasc from individuo where nind = ") +
                                             chaveEmSQL(txtNum->text()));
    if (!guardado.eof()) mskData->showPlain(textoDaData(guardado[0]));
}

// "&Alterar", or the end of an edit: the confirmation of an alteration, the cancel of an addition.
void FrmIntervenientes::cmdAlt_Click()
{
    guarded([&] {
        if (assistentes_.passo() == Passo::Alteracao) return confirmaAlteracao();
        if (assistentes_.passo() == Passo::Insercao) return terminaEdicao();
        if (EmPesquisa) return;
        releLinha();
        AplicarModo(Modo::Edi);
        chamada().chama();
        assistentes_.passaA(Passo::Alteracao);
        cmdIns->setEnabled(false);
        Focus::setTo(assistente->optassistente_0);
    });
}

// An alteration starts from what is stored by now. A row that has gone is told as an error.
void FrmIntervenientes::releLinha()
{
    jet::Recordset& linha = adoInterv.recordset();
    linha.setAbsolutePosition(linha.absolutePosition());
    LimpaCampos();
    mostraLinha();
    assistenteVisto_.ve(linha);
}

void FrmIntervenientes::cmdElim_Click()
{
    guarded([&] {
        if (assistentes_.passo() == Passo::Alteracao) return terminaEdicao();
        if (EmPesquisa) return;
        if (ask(" Tem a certeza que deseja eliminar este registo?")) eliminaAssistente();
    });
}

// The date of the act is copied here, and never written again.
void FrmIntervenientes::confirmaAdicao()
{
    if (!donoGuardado() || !temObrigatorios()) return;
    confirmaData();
    Colunas valores{{"entidade", txtNum->text()}, {"Dataref", mskData->text()}, {"tipoacto", letraDoActo()}};
    valores += valoresDoParentesco() + valoresDoAssistente();
    adoInterv.recordset().addNew();
    gravaLinha(valores);
}

void FrmIntervenientes::confirmaAlteracao()
{
    if (donoGuardado() && temObrigatorios() && assistenteVisto_.podeGravar(adoInterv.recordset()))
        gravaLinha(valoresDoParentesco() + valoresDoAssistente());
}

bool FrmIntervenientes::temObrigatorios()
{
    if (!preenchido(txtIndAss)) return recusa("Deve identificar o assistente!", txtIndAss);
    if (!assistente->optassistente_0->isChecked() && !assistente->optassistente_1->isChecked())
        return recusa("Deve indicar o tipo de assistente!", assistente->optassistente_0);
    const bool altera = assistentes_.passo() == Passo::Alteracao;
    return escolhidoExiste(txtIndAss, altera ? textoDoNumero(adoInterv.recordset()["nind"]) : QString());
}

Colunas FrmIntervenientes::valoresDoParentesco() const
{
    if (!casamento()) return itemPara("parentbapt", assistente->cmbPar1);
    return itemPara("parentnoivo", assistente->cmbPar1) + itemPara("parentnoiva", assistente->cmbPar2);
}

Colunas FrmIntervenientes::valoresDoAssistente() const
{
    return Colunas{{"Nind", txtIndAss->text()},
                   {"tipoassistente", assistente->optassistente_0->isChecked() ? "p" : "t"}} +
           itemPara("estadocivil", assistente->cmbEC) +
           Colunas{{"falecidopai", assistente->chkFalPai->isChecked()},
                   {"falecidomae", assistente->chkFalMae->isChecked()},
                   {"obs", textoDe(assistente->txtObs)}};
}

// Writes to the row at the cursor, or to the new one. A refused row leaves the edit as it is.
void FrmIntervenientes::gravaLinha(const Colunas& valores)
{
    for (const auto& [coluna, valor] : valores)
        adoInterv.recordset().set(coluna, valor);
    adoInterv.recordset().update();
    terminaEdicao();
}

// Kept: the row shown is the current one of the grid, even if another was altered or added.
void FrmIntervenientes::terminaEdicao()
{
    assistentes_.passaA(Passo::Repouso);
    chamada().terminaIndChamado();
    AplicarModo(Modo::Cons);
    adoInterv.refresh();
    PreencheFG();
    if (!adoInterv.hasRows()) return; // kept: the fields stay as they were typed
    Chave = dtInterv->textMatrix(dtInterv->row(), 0);
    ActualizaCampos();
}

// The row shown, and no other one of the same person.
void FrmIntervenientes::eliminaAssistente()
{
    try {
        adoInterv.recordset().deleteRow();
    } catch (const jet::Error& erro) {
        if (erro.number != jet::number::noCurrentRow) throw; // the row was gone already
    }
    adoInterv.refresh();
    PreencheFG();
    Chave.clear();
    ActualizaCampos();
}
