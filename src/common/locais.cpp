#include "common/locais.h"
#include "common/marca.h"

#include "common/niveis.h"
#include "common/text.h"
#include "platform/forms/controls.h"
#include "platform/jet/recordset.h"
#include "store/session.h"

namespace {

// Chooses the first entry whose text behind the first "-" is `resto`.
bool escolhePeloResto(ComboBox& lista, const QString& resto)
{
    for (int indice = 0; indice < lista.count(); ++indice) {
        if (restoDoLocal(lista.list(indice)) != resto) continue;
        lista.setListIndex(indice);
        return true;
    }
    return false;
}

} // namespace

QString textoDoLocal(const QString& nome, const QString& tipo, const QString& codigo)
{
    return nome + " -" + tipo + "- " + codigo;
}

Local localDoTexto(const QString& texto)
{
    const int p = InStr(texto, "-");
    return {Trim(Mid(texto, p + 3)), Trim(Mid(texto, p + 1, 1))};
}

QString restoDoLocal(const QString& texto)
{
    return Mid(texto, InStr(texto, "-") + 1);
}

// The narrow levels come first, which keeps the places of everyday use at the top of the lists.
void PreencheLocais(ComboBox& lista)
{
    lista.add("  ");
    lista.setListIndex(0);
    for (auto nivel = niveis.rbegin(); nivel != niveis.rend(); ++nivel) {
        for (jet::Recordset locais(cnBDP, nivel->locaisDaLista()); !locais.eof(); locais.moveNext())
            lista.add(textoDoLocal(semMarca(locais[1].toString()), nivel->tipo, locais[0].toString()));
    }
}

void SeleccionaLocal(ComboBox& lista, const QString& codigo, const QString& tipo, TabelaDosSitios sitios)
{
    if (Trim(codigo).isEmpty()) return;
    const QString letra = tipo.toUpper();
    lista.setListIndex(-1);
    if (escolhePeloResto(lista, letra + "- " + codigo)) return;

    if (!nivelDaLetra(letra)) return;
    DadosDoNivel nivel = *nivelDaLetra(letra);
    if (nivel.nivel == Nivel::Sitio && sitios == TabelaDosSitios::lugar) nivel.tabela = dadosDe(Nivel::Lugar).tabela;
    const jet::Recordset local(cnBDP, nivel.nomeDe(codigo));
    if (local.eof()) return;
    const QString texto = textoDoLocal(local[0].toString(), letra, codigo); // kept: any "*" stays in the name
    lista.add(texto);
    lista.setText(texto);
}

void SeleccionaParoquiaDaBDP(ComboBox& lista)
{
    escolhePeloResto(lista, "F- " + CodParoquia);
}

QString NomeLocal(const QVariant& codigo, const QVariant& tipo)
{
    const DadosDoNivel* nivel = nivelDaLetra(tipo.toString().toUpper());
    if (!nivel) return {};
    const jet::Recordset local(cnBDP, nivel->nomeDe(codigo.toString()));
    return local.eof() ? QString() : local[0].toString();
}

QString DescricaoInfo(const QString& categoria, const QString& codigo)
{
    const jet::Recordset info(
        cnBDP, jet::NativeSql("select descricao from infocomplementar where categoria = ? and codigo = ?",
                              {categoria, codigo}));
    return info.eof() ? QString() : info["Descricao"].toString();
}
