#include "common/numeros.h"

#include "platform/jet/error.h"

#include <QLocale>
#include <QRegularExpression>

#include <cmath>
#include <optional>

namespace {

constexpr double maiorInteiro = std::numeric_limits<qint32>::max();

std::optional<double> lido(const QString& texto)
{
    static const QRegularExpression milhares("^[+-]?[1-9][0-9]{0,2}(\\.[0-9]{3})+(,[0-9]*)?$");
    static const QRegularExpression simples("^[+-]?([0-9]+[.,]?[0-9]*|[.,][0-9]+)$");
    QString digitos = texto.trimmed();
    if (milhares.match(digitos).hasMatch())
        digitos.remove(u'.');
    else if (!simples.match(digitos).hasMatch())
        return std::nullopt;
    const double numero = digitos.replace(u',', u'.').toDouble();
    if (std::isfinite(numero)) return numero;
    return std::nullopt;
}

bool eInteiro(double numero)
{
    return std::nearbyint(numero) == numero && std::abs(numero) <= maiorInteiro;
}

jet::Error recusado(const QString& texto, const char* porque)
{
    return {jet::number::typeMismatch, "\"" + texto + "\" " + QString::fromUtf8(porque)};
}

} // namespace

QString textoDoNumero(const QVariant& numero)
{
    if (numero.metaType() != QMetaType::fromType<double>()) return numero.toString();
    return QString::number(numero.toDouble(), 'f', QLocale::FloatingPointShortest);
}

QString textoDaQuantidade(const QVariant& quantidade)
{
    const bool texto = quantidade.metaType() == QMetaType::fromType<QString>();
    return texto ? quantidade.toString() : textoDoNumero(quantidade).replace(u'.', u',');
}

double numeroDoTexto(const QString& texto)
{
    if (const auto numero = lido(texto)) return *numero;
    throw recusado(texto, "não é um número.");
}

bool eNumero(const QString& texto)
{
    return lido(texto).has_value();
}

qint32 inteiroDoTexto(const QString& texto)
{
    const double numero = numeroDoTexto(texto);
    if (eInteiro(numero)) return static_cast<qint32>(numero);
    throw recusado(texto, "não é um número inteiro, ou é demasiado grande.");
}

bool eInteiro(const QString& texto)
{
    const auto numero = lido(texto);
    return numero && eInteiro(*numero);
}

qint32 codigoDoTexto(const QString& texto)
{
    const auto codigo = lido(texto);
    if (codigo && eInteiro(*codigo)) return static_cast<qint32>(*codigo);
    throw jet::Error{jet::number::typeMismatch, "O código \"" + texto + "\" não é um número."};
}

double registoDoTexto(const QString& texto)
{
    const auto numero = lido(texto);
    if (numero && eInteiro(*numero) && *numero >= 1) return *numero;
    throw recusado(texto, "não serve de número a um registo: tem de ser inteiro, de 1 a 2147483647.");
}

QString numeroEmSQL(const QString& texto)
{
    return textoDoNumero(numeroDoTexto(texto));
}
