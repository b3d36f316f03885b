// Numbers as the fields show and take them.
#pragma once

#include <QString>
#include <QVariant>

#include <limits>

class TextBox;

// A whole number has no decimal point; "" for null. A text comes back unchanged.
QString textoDoNumero(const QVariant& numero);

// The decimal sign is a comma or a point.
// Precondition: eNumero(texto), which an empty text isn't; Error 13 otherwise.
double numeroDoTexto(const QString& texto);
bool eNumero(const QString& texto); // whether numeroDoTexto() takes it

// The number of a code, as the entries of the lists hold it.
// Precondition: a whole number of 32 bits; Error 13 otherwise.
qint32 codigoDoTexto(const QString& texto);

// Checks a number field when it is left: it may be blank or hold a number within the bounds. Otherwise the user is
// shown `recusa`, and the field is cleared and gets the focus back.
// Kept: the conversion comes first, so a text that is no number is shown as an error and stays.
void VerificaNumero(TextBox& campo, const QString& recusa, double minimo,
                    double maximo = std::numeric_limits<double>::max());
