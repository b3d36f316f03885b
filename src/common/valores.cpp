#include "common/valores.h"

#include "common/datas.h"
#include "common/numeros.h"
#include "common/text.h"
#include "platform/jet/error.h"

template <class Tag>
Numero<Tag> Numero<Tag>::daColuna(const QVariant& coluna)
{
    if (coluna.isNull()) return {};
    if (coluna.metaType() == QMetaType::fromType<QString>()) return doCampo(coluna.toString());
    bool valido = false;
    const Numero numero(coluna.toDouble(&valido));
    if (valido) return numero;
    throw jet::Error{jet::number::typeMismatch, "\"" + coluna.toString() + "\" não é um número."};
}

template <class Tag>
Numero<Tag> Numero<Tag>::doCampo(const QString& texto)
{
    return Numero(numeroDoTexto(texto));
}

template <class Tag>
Numero<Tag> Numero<Tag>::doCampoOuNenhum(const QString& texto)
{
    return Trim(texto).isEmpty() ? Numero() : doCampo(texto);
}

template <class Tag>
double Numero<Tag>::valor() const
{
    if (valor_) return *valor_;
    throw jet::Error{jet::number::invalidNull, "Falta o número."};
}

template <class Tag>
QString Numero<Tag>::texto() const
{
    return textoDoNumero(paraColuna());
}

template <class Tag>
QString Numero<Tag>::paraSQL() const
{
    return valor_ ? texto() : QStringLiteral("null");
}

template <class Tag>
QVariant Numero<Tag>::paraColuna() const
{
    return valor_ ? QVariant(*valor_) : QVariant();
}

template class Numero<DoIndividuo>;
template class Numero<DaFamilia>;

Local Local::daLinha(const QVariant& codigo, const QVariant& nivel)
{
    return {codigo.toString(), nivel.toString()};
}

DataRegistada DataRegistada::daLinha(const QVariant& data, const QVariant& fixa)
{
    if (data.isNull()) return {{}, fixa.toBool()};
    if (data.metaType() == QMetaType::fromType<QDate>()) return {data.toDate(), fixa.toBool()};
    return {dataDoTexto(data.toString()), fixa.toBool()};
}
