#include "common/tipoInd.h"

#include "common/text.h"

#include <QStringList>

QString tipoPeloNascimento(const QString& tipo, bool temNascimento, bool temObito)
{
    if (!temNascimento) return tipo;
    if (temObito) return QStringList{"1", "2", "T"}.contains(Trim(tipo)) ? "4" : tipo;
    return QStringList{"", "0", "T"}.contains(Trim(tipo)) ? "1" : tipo;
}

// Kept: unlike the birth field, this one leaves "T" alone.
QString tipoPeloObito(const QString& tipo, bool temNascimento, bool temObito)
{
    if (!temNascimento) return tipo;
    if (temObito && QStringList{"1", "2"}.contains(Trim(tipo))) return "4";
    return QStringList{"", "0"}.contains(Trim(tipo)) ? "1" : tipo;
}
