#include "common/numbers.h"

#include "platform/jet/error.h"

#include <QLocale>

#include <cmath>

QString textoDoNumero(const QVariant& numero)
{
    if (numero.metaType() != QMetaType::fromType<double>()) return numero.toString();
    return QString::number(numero.toDouble(), 'f', QLocale::FloatingPointShortest);
}

double numeroDoTexto(const QString& texto)
{
    bool valido = false;
    const double numero = texto.trimmed().toDouble(&valido);
    if (valido && std::isfinite(numero)) return numero;
    throw jet::Error{jet::number::typeMismatch, "\"" + texto + "\" não é um número."};
}
