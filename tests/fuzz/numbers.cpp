#include "fuzz/targets.h"

#include "common/numeros.h"
#include "platform/jet/error.h"

#include <QRegularExpression>

#include <cmath>

void Fuzz::numbers(const QByteArray& bytes)
{
    static const QRegularExpression inStatement("^-?[0-9]+(\\.[0-9]+)?$");
    const QString text = QString::fromUtf8(bytes);
    if (!eNumero(text)) {
        try {
            numeroEmSQL(text);
        } catch (const jet::Error&) {
            return;
        }
        throw Broken{"what is no number reaches a statement: " + text};
    }
    const double number = numeroDoTexto(text);
    require(std::isfinite(number), "not finite: " + text);
    const QString shown = textoDaQuantidade(number);
    require(eNumero(shown) && numeroDoTexto(shown) == number, "shown as another number: " + text + " as " + shown);
    require(inStatement.match(numeroEmSQL(text)).hasMatch(), "no plain number in a statement: " + numeroEmSQL(text));
    if (eInteiro(text)) require(inteiroDoTexto(text) == number, "read as another whole number: " + text);
    try {
        require(registoDoTexto(text) >= 1, "the number of a record is 1 or more: " + text);
    } catch (const jet::Error&) {
    }
}
