// What a field shows, and whether a column holds just that.
#pragma once

#include "dump.h"
#include "inputs/windows.h"

namespace Inputs {

// Of one control, as it was seen.
struct Shown
{
    QString text;
    bool checked = false;
    int index = -1; // of a list
    int item = 0;   // of its entry
};

using Seen = QMap<QString, Shown>; // by the names of the controls

bool isOpen(const Window& window, const QString& control); // can be changed by the user now
Seen see(const Window& window);

// Why a column doesn't hold what its field shows; empty where it does. `confirmed` tells that it was seen at the
// confirmation, and not later, when the row was shown again. Of a row that is new a list without a choice is null.
QString disagreement(const Field& field, const Shown& shown, const Row& row, bool confirmed, bool added);
// The same of all fields of a window.
QStringList disagreements(const Window& window, const Seen& seen, const Row& row, bool confirmed, bool added);

// What a key shows: "txtNind", "frmInd.txtNind", "dtgProf:0". Throws Failure where there is no such control.
QString keySeen(const Window& window, const QString& key);

} // namespace Inputs
