// Numbers as the fields show and take them.
#pragma once

#include <QString>
#include <QVariant>

// Without a point where it is whole; "" for null. A text comes back as it is.
QString textoDoNumero(const QVariant& numero);

// Throws Error 13 for a text that is no number, an empty one included.
double numeroDoTexto(const QString& texto);
