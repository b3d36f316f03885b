#include "common/instrucao.h"

#include "common/numeros.h"
#include "common/text.h"
#include "platform/jet/date.h"
#include "platform/jet/errors.h"

#include <QRegularExpression>

QString citado(const QString& guardado)
{
    return "'" + QString(guardado).replace("'", "''") + "'";
}

QString digitado(const QString& texto)
{
    return "'" + semPlica(texto) + "'";
}

QString semPlica(const QString& texto)
{
    if (!texto.contains('\'')) return texto;
    throw jet::invalidStatement("Há uma plica (') dentro de um texto. Escreva o nome sem plica.");
}

QString dataDigitada(const QString& texto)
{
    if (jet::readDateLiteral(texto)) return "#" + texto + "#";
    throw jet::invalidStatement(QString("Erro de sintaxe: #%1# não é uma data.").arg(texto));
}

QString registoEmSQL(const QString& texto)
{
    return textoDoNumero(registoDoTexto(texto));
}

QString inteiroEmSQL(const QString& texto)
{
    return Trim(texto).isEmpty() ? QString() : QString::number(inteiroDoTexto(texto));
}

QString chaveEmSQL(const QVariant& chave)
{
    static const QRegularExpression numero("^-?[0-9]+(\\.[0-9]+)?\\z");
    const QString texto = textoDoNumero(chave);
    if (texto.isEmpty() || numero.match(texto).hasMatch()) return texto;
    throw jet::Error{jet::number::typeMismatch, "\"" + texto + "\" não é um número."};
}

jet::NativeSql comChave(const char* instrucao, const QVariant& chave)
{
    const QString texto = QString::fromUtf8(instrucao), numero = chaveEmSQL(chave);
    if (numero.isEmpty()) return jet::NativeSql(QString(texto).remove('?'));
    return jet::NativeSql(texto, {numero.toDouble()});
}
