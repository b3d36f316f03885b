#include "common/tipoFam.h"

#include <algorithm>
#include <iterator>

namespace {

struct Tipo
{
    DatasDaFamilia conhecidas;
    const char* codigo;
};

// clang-format off
const Tipo tipos[] = {
    // mother's birth, both deaths, marriage, children's births
    {{true,  true,  true,  true}, "1"},
    {{false, true,  true,  true}, "2"},
    {{true,  false, true,  true}, "3"},
    {{false, false, true,  true}, "4"},
    {{true,  true,  false, true}, "5"},
    {{false, true,  false, true}, "6"},
};
// clang-format on

} // namespace

QString tipoDaFamilia(const DatasDaFamilia& conhecidas)
{
    const auto tipo = std::ranges::find(tipos, conhecidas, &Tipo::conhecidas);
    return tipo == std::end(tipos) ? "7" : tipo->codigo;
}
