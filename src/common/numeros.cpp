#include "common/numeros.h"

#include "common/modGeral.h"
#include "common/text.h"
#include "platform/forms/controls.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"

#include <QLocale>

#include <cmath>
#include <optional>

QString textoDoNumero(const QVariant& numero)
{
    if (numero.metaType() != QMetaType::fromType<double>()) return numero.toString();
    return QString::number(numero.toDouble(), 'f', QLocale::FloatingPointShortest);
}

static std::optional<double> lido(const QString& texto)
{
    bool valido = false;
    const double numero = texto.trimmed().replace(u',', u'.').toDouble(&valido);
    if (valido && std::isfinite(numero)) return numero;
    return std::nullopt;
}

double numeroDoTexto(const QString& texto)
{
    if (const auto numero = lido(texto)) return *numero;
    throw jet::Error{jet::number::typeMismatch, "\"" + texto + "\" não é um número."};
}

qint32 codigoDoTexto(const QString& texto)
{
    bool valido = false;
    const qint32 codigo = texto.toInt(&valido);
    if (valido) return codigo;
    throw jet::Error{jet::number::typeMismatch, "O código \"" + texto + "\" não é um número."};
}

bool eNumero(const QString& texto)
{
    return lido(texto).has_value();
}

void VerificaNumero(TextBox& campo, const QString& recusa, double minimo, double maximo)
{
    guarded([&] {
        if (Trim(campo.text()).isEmpty()) return;
        const double numero = numeroDoTexto(campo.text());
        if (numero >= minimo && numero <= maximo) return;
        showMessage(recusa);
        campo.clear();
        Focus::setTo(&campo);
    });
}
