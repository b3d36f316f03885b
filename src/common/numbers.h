// Numbers as the fields show and take them.
#pragma once

#include <QString>
#include <QVariant>

#include <limits>

class TextBox;

// Without a point where it is whole; "" for null. A text comes back as it is.
QString textoDoNumero(const QVariant& numero);

// The decimal sign is a comma or a point.
// Precondition: eNumero(texto), which an empty text isn't; Error 13 otherwise.
double numeroDoTexto(const QString& texto);
bool eNumero(const QString& texto); // whether numeroDoTexto() takes it

// The number of a code, as the entries of the lists hold it.
// Precondition: a whole number of 32 bits; Error 13 otherwise.
qint32 codigoDoTexto(const QString& texto);

// The check of a number field that is left: it is blank, or holds a number within the bounds. Otherwise the user is
// told `recusa`, and the field is cleared and gets the focus again.
// Kept: the conversion comes first, so that a text which is no number is told as an error and stays.
void VerificaNumero(TextBox& campo, const QString& recusa, double minimo,
                    double maximo = std::numeric_limits<double>::max());
