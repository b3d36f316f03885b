#include "common/locais.h"
#include "common/marca.h"

#include "common/niveis.h"
#include "common/text.h"
#include "platform/forms/controls.h"
#include "platform/forms/entryindex.h"
#include "platform/jet/recordset.h"
#include "store/session.h"

#include <QRegularExpression>

namespace {

// Where the letter of the last " -X- " stands; -1: nowhere.
qsizetype ondeEstaALetra(const QString& texto)
{
    static const QRegularExpression marca(" -\\S- ");
    const qsizetype onde = texto.lastIndexOf(marca);
    return onde < 0 ? -1 : onde + 2;
}

// Chooses the first entry whose text from the letter on is `resto`.
bool escolhePeloResto(ComboBox& lista, const QString& resto)
{
    const int indice = EntryIndex::of(lista, restoDoLocal).first(resto);
    if (indice >= 0) lista.setListIndex(indice);
    return indice >= 0;
}

// Adds an entry that has just been looked for, and chooses the first one with its text: itself, unless its code reads
// like the end of another place.
void juntaEEscolhe(ComboBox& lista, const QString& texto, const QString& resto)
{
    const int nova = lista.add(texto);
    if (restoDoLocal(texto) == resto)
        lista.setListIndex(nova);
    else
        lista.setText(texto);
}

} // namespace

QString textoDoLocal(const QString& nome, const QString& tipo, const QString& codigo)
{
    return nome + " -" + tipo + "- " + codigo;
}

Local localDoTexto(const QString& texto)
{
    const qsizetype letra = ondeEstaALetra(texto);
    if (letra < 0) return {};
    return {Trim(texto.mid(letra + 2)), texto.mid(letra, 1)};
}

QString restoDoLocal(const QString& texto)
{
    const qsizetype letra = ondeEstaALetra(texto);
    return letra < 0 ? texto : texto.mid(letra);
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
    const QString resto = letra + "- " + codigo;
    if (escolhePeloResto(lista, resto)) return;

    if (!nivelDaLetra(letra)) return;
    DadosDoNivel nivel = *nivelDaLetra(letra);
    if (nivel.nivel == Nivel::Sitio && sitios == TabelaDosSitios::lugar) nivel.tabela = dadosDe(Nivel::Lugar).tabela;
    const jet::Recordset local(cnBDP, nivel.nomeDe(codigo));
    if (local.eof()) return;
    juntaEEscolhe(lista, textoDoLocal(local[0].toString(), letra, codigo), resto); // kept: any "*" stays in the name
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
        cnBDP, jet::NativeSql("select descricao from infocomplementar where categoria = ? and codigo = ? "
                              "order by rowid limit 1",
                              {categoria, codigo}));
    return info.eof() ? QString() : info["Descricao"].toString();
}
