// The working list of the BDP: the places that the cards offer.
#include "common/listasAbertas.h"
#include "common/locais.h"
#include "common/marca.h"
#include "common/modGeral.h"
#include "places/frmLocalizacao.h"
#include "platform/forms/msgbox.h"

namespace {

// The text of a place as its table has it now, "" where that has none. A text of another level stays as it is.
QString textoGuardado(const DadosDoNivel& nivel, const QString& texto)
{
    const Local local = localDoTexto(texto);
    if (local.nivel != QLatin1String(nivel.tipo)) return texto;
    const jet::Recordset guardado(cnBDP, nivel.nomeDe(local.codigo));
    return guardado.eof() ? QString() : textoDoLocal(semMarca(guardado[0].toString()), local.nivel, local.codigo);
}

// Nothing is chosen any more where it was such a place: an entry beside it would be chosen in its stead.
void retiraEliminados(const DadosDoNivel& nivel, ComboBox& lista)
{
    for (int indice = lista.count() - 1; indice >= 0; --indice) {
        if (!textoGuardado(nivel, lista.list(indice)).isEmpty()) continue;
        if (lista.listIndex() == indice) lista.setListIndex(-1);
        lista.removeItem(indice);
    }
}

} // namespace

// Kept: countries and districts are never shown, though they can be put on the list.
void FrmLocalizacao::preencheLista()
{
    for (const DadosDoNivel& nivel : niveis) {
        if (nivel.nivel == Nivel::Pais || nivel.nivel == Nivel::Distrito) continue;
        for (jet::Recordset locais(cnBDP, nivel.locaisDaLista()); !locais.eof(); locais.moveNext())
            lstLocal->add(textoDoLocal(semMarca(locais[1].toString()), nivel.tipo, locais[0].toString()));
    }
}

// The places of one level as their editor has left them. The code of one that was deleted may soon be another's.
void FrmLocalizacao::releNaLista(Nivel nivel)
{
    const DadosDoNivel& dados = dadosDe(nivel);
    for (int indice = lstLocal->listCount() - 1; indice >= 0; --indice) {
        const QString texto = textoGuardado(dados, lstLocal->list(indice));
        if (texto.isEmpty())
            lstLocal->removeItem(indice);
        else
            lstLocal->item(indice)->setText(texto);
    }
    cmdRem->setEnabled(lstLocal->listCount() > 0);
    for (const auto& aberta : ListasAbertas::deLocais())
        retiraEliminados(dados, *aberta.combo);
}

void FrmLocalizacao::cmdGuardar_Click()
{
    guarded([&] {
        LocalEscolhido();
        for (int indice = 0; indice < lstLocal->listCount(); ++indice) {
            if (restoDoLocal(lstLocal->list(indice)) == LocalTipo + "- " + LocalCod)
                return showMessage("O local que pretende adicionar já se encontra na lista!");
        }
        marcaLocal();
        lstLocal->setListIndex(lstLocal->add(textoDoLocal(LocalNome, LocalTipo, LocalCod)));
        lstLocal->scrollToItem(lstLocal->currentItem());
        cmdRem->setEnabled(lstLocal->listCount() > 0);
    });
}

// Kept: a site is marked under the name shown, so one that the researcher made never is.
void FrmLocalizacao::marcaLocal()
{
    const DadosDoNivel* nivel = nivelDaLetra(LocalTipo);
    if (!nivel) return;
    if (nivel->nivel == Nivel::Sitio)
        cnBDP.execute(jet::NativeSql("update sitio set prioridade = 1 where codsitio = ? and nomesitio = ? collate "
                                     "orv_nocase",
                                     {LocalCod, cmbS->text()}));
    else
        cnBDP.execute(nivel->marca(LocalCod, Prioridade::NaLista));
}

// Kept: a zone is taken off in a table that doesn't exist, so that it stays on the list.
void FrmLocalizacao::cmdRem_Click()
{
    guarded([&] {
        if (!ask("Deseja retirar o elemento seleccionado da lista?")) return;
        const int indice = lstLocal->listIndex();
        if (indice < 0) return;
        const Local local = localDoTexto(lstLocal->list(indice));
        if (nivelDaLetra(local.nivel)) {
            DadosDoNivel nivel = *nivelDaLetra(local.nivel);
            if (nivel.nivel == Nivel::Zona) nivel.tabela = "zona";
            cnBDP.execute(nivel.marca(local.codigo, Prioridade::Nenhuma));
        }
        lstLocal->removeItem(indice);
        if (lstLocal->listCount() == 0) cmdRem->setEnabled(false);
    });
}
