// Dates: how they are read and shown, ages, and the observation window.
#pragma once

#include "common/valores.h"

#include <QDate>
#include <QString>
#include <QVariant>

class MaskedEdit;

// True for exactly dd/mm/yyyy that the calendar has (1582 and before included).
bool eData(const QString& texto);

// The date of such a text.
// Precondition: eData(texto); Error 13 otherwise.
QDate dataDoTexto(const QString& texto);

// dd/mm/yyyy; "" for null.
QString textoDaData(const QVariant& data);

// Both empty forms of a date field.
bool semData(const QString& texto);

// For SQL: #mm/dd/yyyy#, from the text of a field.
// Precondition: eData(texto); Error 13 otherwise.
QString literalDaData(const QString& texto);

// The check of a date field that is left, as frmFam, frmProf, frmAssinatura and frmResid make it: true where the field
// is empty or holds a date. Otherwise tells the user, clears the field and gives it the focus again.
bool VerificaData(MaskedEdit& campo);

// Whole years of 365 days, rounded to nearest, ties to the even number.
int CalculaIdade(const QDate& primeira, const QDate& segunda);

// Whether the individual can have been at an act of that date, dd/mm/yyyy. An error is shown by MostraErro and answers
// true.
bool DentroObservacao(Nind nind, const QString& dataActo);
