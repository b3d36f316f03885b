// Numbers as the fields show and take them: the one reader of all that is typed as a number.
#pragma once

#include <QString>
#include <QVariant>

#include <limits>

class TextBox;

// The number of a record, as it stands in statements and in the fields and grids that keep keys. A whole number has no
// decimal point; "" for null. A text comes back unchanged.
QString textoDoNumero(const QVariant& numero);

// An amount, an age or a level as a field shows it, with a decimal comma; "" for null. A text comes back unchanged.
QString textoDaQuantidade(const QVariant& quantidade);

// Reads digits with a decimal comma. A point before groups of exactly three digits groups thousands ("12.000" is twelve
// thousand), a single other one is a decimal point. A sign in front and blanks around are allowed, an exponent isn't.
// Precondition: eNumero(texto), which an empty text isn't; Error 13 otherwise.
double numeroDoTexto(const QString& texto);
bool eNumero(const QString& texto); // whether numeroDoTexto() takes it

// What a column of whole numbers takes.
// Precondition: eInteiro(texto), a whole number of 32 bits; Error 13 otherwise.
qint32 inteiroDoTexto(const QString& texto);
bool eInteiro(const QString& texto);

// The number of a code, as the entries of the lists hold it. Precondition as above.
qint32 codigoDoTexto(const QString& texto);

// The number that is typed for a new person or family.
// Precondition: a whole number from 1 to 2,147,483,647; Error 13 otherwise.
double registoDoTexto(const QString& texto);

// What was typed, as it stands in a statement.
// Precondition: eNumero(texto); Error 13 otherwise, so that no expression reaches the store.
QString numeroEmSQL(const QString& texto);

// Checks a number field when it is left: it may be blank, hold a number within the bounds, or what the program has
// shown there. Otherwise the user is shown `recusa`, and the field is cleared and gets the focus back. Kept: the
// conversion comes first, so a text that is no number is shown as an error and stays.
void VerificaNumero(TextBox& campo, const QString& recusa, double minimo,
                    double maximo = std::numeric_limits<double>::max());

// The same for a column of whole numbers: a fraction is refused, too.
void VerificaInteiro(TextBox& campo, const QString& recusa, qint32 minimo = std::numeric_limits<qint32>::min(),
                     qint32 maximo = std::numeric_limits<qint32>::max());
