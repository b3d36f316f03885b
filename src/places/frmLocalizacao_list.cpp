// The working list of the BDP: the places that the cards offer.
#include "common/modGeral.h"
#include "common/places.h"
#include "places/frmLocalizacao_niveis.h"
#include "platform/forms/msgbox.h"

void FrmLocalizacao::preencheLista()
{
    for (const DadosDoNivel& nivel : niveis) {
        if (!nivel.daLista) continue;
        for (jet::Recordset locais(cnBDP, nivel.daLista); !locais.eof(); locais.moveNext()) {
            lstLocal->add(
                textoDoLocal(locais[nivel.nome].toString().remove('*'), nivel.tipo, locais[nivel.codigo].toString()));
        }
    }
}

void FrmLocalizacao::cmdGuardar_Click()
{
    guarded([&] {
        LocalEscolhido();
        for (int indice = 0; indice < lstLocal->listCount(); ++indice) {
            if (restoDoLocal(lstLocal->list(indice)) == LocalTipo + "- " + LocalCod)
                return showMessage("O local que pretende adicionar já se encontra na lista!");
        }
        // Kept: a site is marked under the name shown, so one that the researcher made never is; nor is one with a
        // quote in its name.
        if (LocalTipo == "S")
            cnBDP.execute("update sitio set prioridade = 1 where codsitio  = '" + LocalCod + "' and nomesitio = '" +
                          cmbS->text() + "'");
        else if (const DadosDoNivel* nivel = DadosDoNivel::doTipo(LocalTipo))
            cnBDP.execute(jet::NativeSql(nivel->guarda, {LocalCod}));
        lstLocal->add(textoDoLocal(LocalNome, LocalTipo, LocalCod));
        cmdRem->setEnabled(lstLocal->listCount() > 0);
    });
}

void FrmLocalizacao::cmdRem_Click()
{
    guarded([&] {
        if (!ask("Deseja retirar o elemento seleccionado da lista?")) return;
        const int indice = lstLocal->listIndex();
        if (indice < 0) return;
        const Local local = localDoTexto(lstLocal->list(indice));
        if (const DadosDoNivel* nivel = DadosDoNivel::doTipo(local.nivel))
            cnBDP.execute(jet::NativeSql(nivel->retira, {local.codigo}));
        lstLocal->removeItem(indice);
        if (lstLocal->listCount() == 0) cmdRem->setEnabled(false);
    });
}
