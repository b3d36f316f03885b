#include "common/resumo.h"

#include "common/datas.h"

namespace {

QString primeiraData(const jet::Recordset& registos, const char* campo, const char* rotulo, const char* outroCampo,
                     const char* outroRotulo)
{
    if (const QVariant data = registos[campo]; !data.isNull()) return rotulo + textoDaData(data);
    if (const QVariant data = registos[outroCampo]; !data.isNull()) return outroRotulo + textoDaData(data);
    return {};
}

} // namespace

QString InicioDaVida(const jet::Recordset& registos)
{
    return primeiraData(registos, "datanasc", "  DN: ", "inicioobs", "  IO: ");
}

QString FimDaVida(const jet::Recordset& registos)
{
    return primeiraData(registos, "dataobito", "  DO: ", "fimobs", "  FO: ");
}
