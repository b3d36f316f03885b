#include "common/linhaDeEstado.h"

#include "common/campos.h"
#include "platform/forms/statusline.h"
#include "platform/time/clock.h"

namespace {

bool anoImprovavel(const QString& texto)
{
    if (!eData(texto)) return false;
    const int ano = dataDoTexto(texto).year();
    return ano < 1400 || ano > Clock::moment().date().year();
}

} // namespace

void contaAnoImprovavel(const MaskedEdit* campo)
{
    if (anoImprovavel(campo->text()))
        showStatus("Ano pouco provável: " + campo->text() + ". A data fica como foi escrita.");
}

void contaGravado(const QString& registo, const QList<const MaskedEdit*>& datas)
{
    QStringList improvaveis;
    for (const MaskedEdit* campo : datas)
        if (anoImprovavel(campo->text())) improvaveis << campo->text();
    improvaveis.removeDuplicates();
    showStatus("Gravado: " + registo +
               (improvaveis.isEmpty() ? QString() : " (ano pouco provável: " + improvaveis.join(", ") + ")"));
}
