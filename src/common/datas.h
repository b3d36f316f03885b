// Dates: how they are read and shown, ages, and the observation window.
#pragma once

#include "common/valores.h"

#include <QDate>
#include <QString>
#include <QVariant>

class MaskedEdit;

// True for a date of the calendar (1582 and before included), written as dd/mm/yyyy, d/m/yyyy or with its eight digits
// alone.
bool eData(const QString& texto);

// The date of such a text.
// Precondition: eData(texto); Error 13 otherwise.
QDate dataDoTexto(const QString& texto);

// dd/mm/yyyy; "" for null.
QString textoDaData(const QVariant& data);

// Whether the text is that of an empty date field, with or without its mask.
bool semData(const QString& texto);

// For SQL: #mm/dd/yyyy#, from the text of a field.
// Precondition: eData(texto); Error 13 otherwise.
QString literalDaData(const QString& texto);

// The day that a statement reads between # signs in words, as "9 de Março de 1750"; "" for a text that is no date.
QString diaDoLiteral(const QString& texto);

// What the user is told of a field that holds no date.
inline constexpr auto dataInvalida = "Deve inserir uma data válida!\r\nUtilize o formato 'DD/MM/YYYY'";

// Checks a date field when it is left, for frmFam, frmProf, frmAssinatura and frmResid: true if the field is empty or
// holds a date. Otherwise tells the user, clears the field and gives it the focus back.
bool VerificaData(MaskedEdit& campo);

// Whole years of 365 days, rounded to nearest, ties to the even number.
int CalculaIdade(const QDate& primeira, const QDate& segunda);

// Whether the individual can have been at an act of that date, dd/mm/yyyy. If that fails, MostraErro shows the error
// and the answer is true.
bool DentroObservacao(Nind nind, const QString& dataActo);
