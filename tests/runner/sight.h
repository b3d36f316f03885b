// What a person sees of a control. All throw Failure where the control is nothing of the kind.
#pragma once

#include "lookup.h"

#include <QModelIndex>

class QAbstractItemView;

namespace Sight {

QString text(const Target& target);

bool holds(const Target& target, const QString& state);    // "enabled", "visible" ...
bool formHolds(const QString& name, const QString& state); // "loaded", "shown" ...
bool isLocked(const QWidget* control);
bool isHidden(const QWidget* control, const QWidget* upTo); // by the program; a page behind doesn't count

// Combos and lists: entries from 0.
int entries(const Target& target);
QString entry(const Target& target, int index);
int itemData(const Target& target, int index);
int chosen(const Target& target);

// Grids, with the heading as row 0, and list views, with the first item as row 1.
int rows(const Target& target);
QStringList cells(const Target& target, int row);
int currentRow(const Target& target);
QModelIndex rowIndex(const Target& target, int row); // of a row that can be clicked

QAbstractItemView* view(const Target& target);
QStringList nodes(const Target& target); // a node a line, two blanks of indent a level

} // namespace Sight
