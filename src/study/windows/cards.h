// What the windows of the study owe to the cards, whose rows they change.
#pragma once

#include "study/acts/plan.h"

#include <QList>
#include <QString>

namespace study {

// "", or what the user is told where a card is in the middle of an edit or a search: what is typed there was begun
// without the rows that are about to be written, and an insert has proposed a number that they would take.
QString whyCardsAreBusy();

// The same, or whose window stands open on rows that hang on a record, or on a table of places or codes: it shows them
// as they were, and may hold what is typed. Asked before a decision moves rows of any table.
QString whyRowsAreInUse();

// Rows were written or have gone: the loaded cards read theirs anew, each staying on its record where that is still
// there, and the open lists of places and professions are filled anew. Throws jet::Error.
// Precondition: no card is busy.
void showOnCards();

// Brings up the card ("frmInd", "frmFam") on the record with that number, with its row as it is by now. A card in the
// middle of an edit or a search, or that waits for another window, comes up as it is, and a record that has gone is
// told in the status line, without any card. Throws jet::Error.
void showOnCard(const QString& card, qint64 number);

// The records that those changes made have gone: the windows that stand open for one of them go as well.
void closeWindowsOf(const QList<RowChange>& undone);

} // namespace study
