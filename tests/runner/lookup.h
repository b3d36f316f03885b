// Finds what a scenario names: forms, their controls, menu items.
#pragma once

#include <QAction>
#include <QString>
#include <QWidget>

class QTabWidget;

// A control or a menu item; one of the two pointers is null.
struct Target
{
    QString name; // as the scenario has it
    QWidget* form = nullptr;
    QWidget* widget = nullptr;
    QAction* item = nullptr;
};

namespace Lookup {

// Names are compared as they stand, then case-blind. The controls of other forms don't count as a form's own.
QWidget* form(const QString& name); // null where it isn't loaded
Target target(const QString& name); // "frmInd.optSexo(1)"; throws Failure where there is none
Target item(const QString& name);   // "mnuAbrir" or "frmORV.mnuAbrir"

// The tab control that has this widget as one of its pages; null where it is none.
QTabWidget* tabsOf(const QWidget* page);

} // namespace Lookup
