// What the cards tell in the status bar, without asking anything.
#pragma once

#include <QList>
#include <QString>

class MaskedEdit;

// Tells of a date whose year is hardly one of a register: before 1400, or after this one. It is stored as it was typed.
// Says nothing of another date, nor of a text that is none.
void contaAnoImprovavel(const MaskedEdit* campo);

// Tells that a record was stored ("indivíduo nº 5, Maria"), and which of its dates are improbable.
void contaGravado(const QString& registo, const QList<const MaskedEdit*>& datas);
