// The checks of the number fields.
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/text.h"
#include "platform/forms/controls.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"

namespace {

template <class Condicao>
void verifica(TextBox& campo, const QString& recusa, Condicao aceita)
{
    guarded([&] {
        if (!campo.isModified()) return; // a value stored by other means isn't lost by looking at it
        if (Trim(campo.text()).isEmpty() || aceita(numeroDoTexto(campo.text()))) return;
        showMessage(recusa);
        campo.clear();
        Focus::setTo(&campo);
    });
}

} // namespace

void VerificaNumero(TextBox& campo, const QString& recusa, double minimo, double maximo)
{
    verifica(campo, recusa, [=](double numero) { return numero >= minimo && numero <= maximo; });
}

void VerificaInteiro(TextBox& campo, const QString& recusa, qint32 minimo, qint32 maximo)
{
    verifica(campo, recusa,
             [&](double numero) { return eInteiro(campo.text()) && numero >= minimo && numero <= maximo; });
}
