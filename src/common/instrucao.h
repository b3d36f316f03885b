// What a statement of the dialect is put together with, beside its own words. tests/unit/house checks that nothing else
// goes into one: what comes out of the store is bound (jet::NativeSql) or cited here, what was typed goes in by the
// rules below.
#pragma once

#include "platform/jet/nativesql.h"

#include <QString>
#include <QVariant>

// A text of the store between quotes, those in it doubled: whatever it holds, it stays one text.
QString citado(const QString& guardado);

// A text between quotes as the user typed it. Kept: an apostrophe in it ends in the engine's error -2147217900; but
// before the statement, and so before anything is written.
QString digitado(const QString& texto);

// Throws that error where there is an apostrophe. Returns the text.
QString semPlica(const QString& texto);

// Between # signs, as it was typed.
// Precondition: a date, month first or day first; the engine's error for any other literal otherwise.
QString dataDigitada(const QString& texto);

// A number that the user has typed: of a record, as registoDoTexto() reads it, and of a column of whole numbers, "" for
// a blank text. Error 13 for any other text.
QString registoEmSQL(const QString& texto);
QString inteiroEmSQL(const QString& texto);

// The number of a record or of a code, out of a column or as textoDoNumero() has put it into a field or a grid, as it
// stands there; numbers that the user types are read by common/numeros.h.
// Precondition: digits, with a sign or a decimal point; Error 13 otherwise, so that no expression reaches the store.
// Kept: "" for none, which leaves the statement to the engine as one that lacks a value.
QString chaveEmSQL(const QVariant& chave);

// A statement in the engine's own SQL with the number of a record, as chaveEmSQL() takes it, for its one ?; without a
// value for none. It is the same text for all records, and so the connection has it prepared.
jet::NativeSql comChave(const char* instrucao, const QVariant& chave);
