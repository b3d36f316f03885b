#include "views/achado.h"

#include <QScopeGuard>

#include <algorithm>

Achado leAchado(jet::Recordset& filtro, int linha, const std::function<Achado(const jet::Recordset&)>& le)
try {
    const int posicao = filtro.absolutePosition();
    const auto volta = qScopeGuard([&] { filtro.setAbsolutePosition(std::max(posicao, 1)); });
    filtro.setAbsolutePosition(linha);
    return le(filtro);
} catch (const jet::Error&) {
    return {};
}
