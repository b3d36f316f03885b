#include "attributes/sufragios.h"

#include <algorithm>

namespace {

template <class Tabela, class Criterio>
std::optional<int> posicao(const Tabela& tabela, Criterio criterio)
{
    const auto achado = std::ranges::find_if(tabela, criterio);
    if (achado == tabela.end()) return {};
    return static_cast<int>(achado - tabela.begin());
}

} // namespace

std::optional<int> sufragioDaColuna(const QString& tipolegpio)
{
    const QString palavra = tipolegpio.toLower().remove(' ');
    return posicao(sufragios, [&](const Sufragio& sufragio) { return palavra == sufragio.tipolegpio; });
}

QString colunaDaMoeda(const QString& moeda)
{
    return moeda.left(2);
}

std::optional<int> moedaDaColuna(const QString& tipoMoeda)
{
    return posicao(moedas, [&](const char* moeda) { return colunaDaMoeda(moeda) == tipoMoeda; });
}
