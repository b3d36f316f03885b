#include "common/places.h"

#include "common/vbtext.h"
#include "platform/forms/controls.h"
#include "platform/jet/recordset.h"
#include "store/session.h"

#include <algorithm>

namespace {

// What is asked of the table of one level.
struct Nivel
{
    const char* tipo;
    const char* daLista; // its places on the working list
    const char* nome;    // the name of the place with a code
};

// The narrow levels come first, which keeps the places of everyday use at the top of the lists.
const Nivel niveis[] = {
    {"S", "Select codsitio, nomesitio from sitio  where prioridade <> 0",
     "select nomesitio from sitio where codsitio = ?"},
    {"L", "Select codlugar, nomelugar from lugar where prioridade <> 0",
     "select nomelugar from lugar where codlugar = ?"},
    {"F", "Select codparoquia, nomeparoquia from paroquia where prioridade <> 0",
     "select nomeparoquia from paroquia where codparoquia = ?"},
    {"C", "select codConcelho, nomeconcelho from concelho where prioridade <> 0",
     "select nomeconcelho from concelho where codconcelho = ?"},
    {"D", "select coddistrito, nomedistrito from distrito where prioridade <> 0 ",
     "select nomedistrito from distrito where coddistrito = ?"},
    {"Z", "select codzona, nomezona from zonapais where prioridade <> 0",
     "select nomezona from zonapais where codzona = ?"},
    {"P", "select codpais, nomepais from pais where prioridade <> 0", "select nomepais from pais where codpais = ?"},
};

constexpr auto sitioEntreLugares = "select nomesitio from lugar where codsitio = ?";

const Nivel* nivelDoTipo(const QString& tipo)
{
    const auto nivel = std::ranges::find_if(niveis, [&](const Nivel& n) { return tipo == QLatin1String(n.tipo); });
    return nivel == std::end(niveis) ? nullptr : nivel;
}

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

void PreencheLocais(ComboBox& lista)
{
    lista.add("  ");
    lista.setListIndex(0);
    for (const Nivel& nivel : niveis) {
        for (jet::Recordset locais(cnBDP, nivel.daLista); !locais.eof(); locais.moveNext())
            lista.add(textoDoLocal(locais[1].toString().remove('*'), nivel.tipo, locais[0].toString()));
    }
}

void SeleccionaLocal(ComboBox& lista, const QString& codigo, const QString& tipo, TabelaDosSitios sitios)
{
    if (Trim(codigo).isEmpty()) return;
    const QString letra = tipo.toUpper();
    lista.setListIndex(-1);
    if (escolhePeloResto(lista, letra + "- " + codigo)) return;

    const Nivel* nivel = nivelDoTipo(letra);
    if (!nivel) return;
    const bool entreLugares = letra == "S" && sitios == TabelaDosSitios::lugar;
    const jet::Recordset local(cnBDP, jet::NativeSql(entreLugares ? sitioEntreLugares : nivel->nome, {codigo}));
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
    const Nivel* nivel = nivelDoTipo(tipo.toString().toUpper());
    if (!nivel) return {};
    const jet::Recordset local(cnBDP, jet::NativeSql(nivel->nome, {codigo.toString()}));
    return local.eof() ? QString() : local[0].toString();
}

QString DescricaoInfo(const QString& categoria, const QString& codigo)
{
    const jet::Recordset info(
        cnBDP, jet::NativeSql("select descricao from infocomplementar where categoria = ? and codigo = ?",
                              {categoria, codigo}));
    return info.eof() ? QString() : info["Descricao"].toString();
}
