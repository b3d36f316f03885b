// The working list of the BDP: the places that the cards offer.
#include "common/listasAbertas.h"
#include "common/locais.h"
#include "common/marca.h"
#include "common/modGeral.h"
#include "places/frmLocalizacao.h"
#include "platform/forms/msgbox.h"

namespace {

// Nothing is chosen any more where it was the place: an entry beside it would be chosen in its stead.
void retira(ComboBox& lista, const QString& resto)
{
    for (int indice = lista.count() - 1; indice >= 0; --indice) {
        if (restoDoLocal(lista.list(indice)) != resto) continue;
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
    for (int indice = lstLocal->listCount() - 1; indice >= 0; --indice) {
        const QString texto = lstLocal->list(indice);
        const Local local = localDoTexto(texto);
        if (local.nivel != QLatin1String(dadosDe(nivel).tipo)) continue;
        const jet::Recordset guardado(cnBDP, dadosDe(nivel).nomeDe(local.codigo));
        if (!guardado.eof()) {
            lstLocal->item(indice)->setText(textoDoLocal(semMarca(guardado[0].toString()), local.nivel, local.codigo));
            continue;
        }
        lstLocal->removeItem(indice);
        for (const auto& aberta : ListasAbertas::deLocais())
            retira(*aberta.combo, restoDoLocal(texto));
    }
    cmdRem->setEnabled(lstLocal->listCount() > 0);
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

// Kept: a site is marked under the name shown, so one that the researcher made never is; nor is one with a quote in its
// name.
void FrmLocalizacao::marcaLocal()
{
    const DadosDoNivel* nivel = nivelDaLetra(LocalTipo);
    if (!nivel) return;
    if (nivel->nivel == Nivel::Sitio)
        cnBDP.execute("update sitio set prioridade = 1 where codsitio  = '" + LocalCod + "' and nomesitio = '" +
                      cmbS->text() + "'");
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
