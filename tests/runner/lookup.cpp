#include "lookup.h"

#include "failure.h"

#include "platform/forms/forms.h"

#include <QApplication>
#include <QMenu>
#include <QTabWidget>

namespace {

const QWidget* formOf(const QWidget* widget)
{
    while (widget && widget->windowType() != Qt::Window && !qobject_cast<const Form*>(widget))
        widget = widget->parentWidget();
    return widget;
}

QObject* find(const QWidget* form, const QString& name, Qt::CaseSensitivity sensitivity)
{
    const auto objects = form->findChildren<QObject*>();
    for (QObject* object : objects) {
        if (object->objectName().compare(name, sensitivity) != 0) continue;
        if (qobject_cast<QAction*>(object)) return object;
        if (object->isWidgetType() && formOf(static_cast<QWidget*>(object)) == form) return object;
    }
    return nullptr;
}

QObject* find(const QWidget* form, const QString& name)
{
    QObject* found = find(form, name, Qt::CaseSensitive);
    return found ? found : find(form, name, Qt::CaseInsensitive);
}

} // namespace

QWidget* Lookup::form(const QString& name)
{
    for (const auto sensitivity : {Qt::CaseSensitive, Qt::CaseInsensitive})
        for (QWidget* form : Forms::loaded())
            if (form->objectName().compare(name, sensitivity) == 0) return form;
    // What stands beside the main window and is on no list.
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
        if (window->objectName() == name && window->isVisible()) return window;
    return nullptr;
}

Target Lookup::target(const QString& name)
{
    Target target{name};
    const QString formName = name.section('.', 0, 0);
    target.form = form(formName);
    if (!target.form) fail(formName + (Forms::exists(formName) ? " isn't loaded" : " is no form of the program"));

    // A member of a control array is named "optSexo_1"; a page of a tab control can be named by its number.
    const QString base = name.section('.', 1).section('(', 0, 0);
    const QString index = name.contains('(') ? name.section('(', 1).chopped(1) : QString();
    QObject* found = find(target.form, index.isEmpty() ? base : base + '_' + index);
    if (!found && !index.isEmpty())
        if (auto* tabs = qobject_cast<QTabWidget*>(find(target.form, base))) found = tabs->widget(index.toInt());
    if (!found) fail(QStringLiteral("%1 has no control %2").arg(formName, name.section('.', 1)));

    if (auto* menu = qobject_cast<QMenu*>(found))
        target.item = menu->menuAction();
    else if (auto* item = qobject_cast<QAction*>(found))
        target.item = item;
    else
        target.widget = static_cast<QWidget*>(found);
    return target;
}

Target Lookup::item(const QString& name)
{
    const Target found = target(name.contains('.') ? name : "frmORV." + name);
    if (!found.item) fail(name + " is no menu item");
    return found;
}

QTabWidget* Lookup::tabsOf(const QWidget* page)
{
    for (QWidget* above = page->parentWidget(); above; above = above->parentWidget())
        if (auto* tabs = qobject_cast<QTabWidget*>(above); tabs && tabs->indexOf(const_cast<QWidget*>(page)) >= 0)
            return tabs;
    return nullptr;
}
