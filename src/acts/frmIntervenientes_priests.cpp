// The two priests of the act: columns of its own row, edited and written together.
#include "acts/frmIntervenientes.h"

#include "acts/padres.h"
#include "common/campos.h"
#include "common/escolhido.h"
#include "common/ficha.h"
#include "common/instrucao.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/pesquisa.h"
#include "platform/forms/msgbox.h"
#include "platform/jet/transaction.h"

// The act's own row is read. One that is still being inserted has none yet, and the cursor is on another.
void FrmIntervenientes::mostraPadres(const jet::Recordset& acto)
{
    const ColunasDosPadres& colunas = padresAMostrar(casamento());
    if (acto.bof() || acto.eof() || textoDoNumero(acto[colunas.chave]) != txtNum->text()) return;
    for (int indice : {0, 1}) {
        const QVariant numero = acto[colunas.padre[indice]];
        if (numero.isNull()) continue;
        lugares_[indice].numero->setText(textoDoNumero(numero));
        // Kept: in a marriage the second priest, too, opens the command of the first.
        (casamento() ? cmdIndP1 : lugares_[indice].escolher)->setEnabled(true);
    }
    for (int indice : {0, 1})
        ProcuraItemData(*lugares_[indice].funcao, acto[colunas.funcao[indice]]);
}

// Kept: the number of the second priest, too, governs the function of the first. Both commands open in the edit only.
void FrmIntervenientes::txtIndP_Change(int indice)
{
    guarded([&] {
        const bool vazio = lugares_[indice].numero->text().isEmpty();
        if (vazio) cmbFuncP1->setListIndex(0);
        if (padres_.passo() != Passo::Alteracao) return;
        cmbFuncP1->setLocked(vazio);
        lugares_[indice].retirar->setEnabled(!vazio);
    });
}

void FrmIntervenientes::cmdX_Click(int indice)
{
    guarded([&] {
        if (ask("Deseja realmente retirar a associação ao  padre referido?")) lugares_[indice].numero->clear();
    });
}

void FrmIntervenientes::cmdE_Click()
{
    guarded([&] {
        if (padres_.passo() == Passo::Alteracao) return confirmaPadres();
        if (!EmPesquisa) iniciaPadres();
    });
}

// The priests are columns of the act's own row, and one that is being inserted has none yet.
void FrmIntervenientes::iniciaPadres()
{
    if (const Ficha* ficha = donoDaJanela().ficha; ficha && ficha->insere(donoDaJanela().numero))
        return showMessage("Os padres só podem ser atribuídos depois de gravar " + donoDaJanela().designacao() + "!");
    padres_.passaA(Passo::Alteracao);
    padresVistos_.ve(padresGuardados());
    for (LugarDoPadre& lugar : lugares_) {
        lugar.antes = lugar.numero->text();
        lugar.escolher->setEnabled(true);
        if (!preenchido(lugar.numero)) continue;
        lugar.retirar->setEnabled(true);
        lugar.funcao->setLocked(false);
    }
    pintaPadres(corDoModo::edi);
}

// Kept: where both places are empty, nothing is written, so both priests of an act can't be removed.
void FrmIntervenientes::confirmaPadres()
{
    const bool haPadres = preenchido(txtIndP1) || preenchido(txtIndP2);
    if (haPadres && !donoGuardado()) return;
    if (haPadres && !askWhetherToStore("Deseja realmente confirmar as alterações?")) {
        relePadres();
    } else if (haPadres) {
        for (const LugarDoPadre& lugar : lugares_)
            if (!escolhidoExiste(lugar.numero, lugar.antes)) return;
        jet::Recordset agora = padresGuardados();
        if (!padresVistos_.podeGravar(agora)) return;
        gravaPadres();
    }
    padres_.passaA(Passo::Repouso);
    for (const LugarDoPadre& lugar : lugares_) {
        lugar.funcao->setLocked(true);
        lugar.retirar->setEnabled(false);
    }
    pintaPadres(corDoModo::cons);
}

jet::Recordset FrmIntervenientes::padresGuardados() const
{
    const ColunasDosPadres& colunas = padresAGravar(casamento());
    return {cnBDP, jet::NativeSql(QString("select %1, %2, %3, %4 from %5 where %6 = ?")
                                      .arg(colunas.padre[0], colunas.funcao[0], colunas.padre[1], colunas.funcao[1],
                                           colunas.tabela, colunas.chave),
                                  {Nind::doCampo(txtNum->text()).paraColuna()})};
}

void FrmIntervenientes::gravaPadres()
{
    const ColunasDosPadres& colunas = padresAGravar(casamento());
    const auto grava = [&](const char* coluna, const QVariant& valor) {
        cnBDP.execute(
            jet::NativeSql(QString("update %1 set %2 = ? where %3 = ?").arg(colunas.tabela, coluna, colunas.chave),
                           {valor, Nind::doCampo(txtNum->text()).paraColuna()}));
    };
    jet::Transaction transaccao(cnBDP);
    for (int indice : {0, 1}) {
        const TextBox* numero = lugares_[indice].numero;
        grava(colunas.padre[indice], preenchido(numero) ? Trim(numero->text()) : QVariant());
    }
    for (int indice : {0, 1})
        grava(colunas.funcao[indice], itemDe(lugares_[indice].funcao));
    transaccao.commit();
}

// Kept: crossed, as the writing is. What comes back needn't be what was shown before.
void FrmIntervenientes::relePadres()
{
    for (const LugarDoPadre& lugar : lugares_)
        lugar.numero->clear();
    for (const LugarDoPadre& lugar : lugares_)
        lugar.funcao->setListIndex(0);
    const jet::Recordset guardados(
        cnBDP,
        (casamento() ? "select primpadrebapt, funcprimpbapt,segpadrebapt, funcsegpbapt  from individuo where nind = "
                     : "select primpadrecasam, funcprimpcasam,segpadrecasam, funcsegpcasam  from familia where "
                       "nfamilia = ") +
            chaveEmSQL(txtNum->text()));
    if (guardados.eof()) return;
    for (int indice : {0, 1}) {
        if (const QVariant numero = guardados[2 * indice]; !numero.isNull())
            lugares_[indice].numero->setText(textoDoNumero(numero));
        ProcuraItemData(*lugares_[indice].funcao, guardados[2 * indice + 1]);
    }
}

void FrmIntervenientes::pintaPadres(const QColor& cor)
{
    for (const LugarDoPadre& lugar : lugares_) {
        setBackColor(lugar.numero, cor);
        setBackColor(lugar.funcao, cor);
    }
}
