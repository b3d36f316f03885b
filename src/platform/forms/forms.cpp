#include "platform/forms/forms.h"

#include <QHash>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QScopeGuard>

namespace {

QHash<QString, std::function<Form*()>> makers;
QList<QWidget*> loadedForms;
QPointer<QWidget> theMainWindow;
QPointer<QMdiArea> theArea;
bool unloadingAll = false;

} // namespace

void Forms::setMainWindow(QWidget* window, QMdiArea* area)
{
    theMainWindow = window;
    theArea = area;
    if (area) {
        area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        area->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    }
    loadedForms.prepend(window);
    QObject::connect(window, &QObject::destroyed, [window] { loadedForms.removeAll(window); });
}

QWidget* Forms::mainWindow()
{
    return theMainWindow;
}

void Forms::add(const QString& name, const std::function<Form*()>& make)
{
    makers.insert(name, make);
}

bool Forms::exists(const QString& name)
{
    return makers.contains(name);
}

QStringList Forms::names()
{
    return makers.keys();
}

Form* Forms::load(const QString& name, const std::function<void(Form&)>& prepare)
{
    if (Form* form = find(name)) return form;
    const auto make = makers.constFind(name);
    if (make == makers.constEnd()) return nullptr;
    Form* form = (*make)();
    loadedForms.append(form);
    form->dress(theMainWindow, theArea);
    auto undo = qScopeGuard([form] {
        forget(form);
        form->unloading_ = true;
        form->hide();
        form->frame()->deleteLater();
    });
    if (prepare) prepare(*form);
    form->Form_Load();
    undo.dismiss();
    return form;
}

Form* Forms::find(const QString& name)
{
    for (QWidget* window : std::as_const(loadedForms))
        if (auto* form = qobject_cast<Form*>(window); form && form->name() == name) return form;
    return nullptr;
}

Form* Forms::show(const QString& name)
{
    Form* form = load(name);
    if (form) form->display();
    return form;
}

const QList<QWidget*>& Forms::loaded()
{
    return loadedForms;
}

void Forms::unloadAll(Form::UnloadMode mode)
{
    const bool before = std::exchange(unloadingAll, true);
    const auto restore = qScopeGuard([before] { unloadingAll = before; });
    // An unload may load or unload others: so the list is read anew after each.
    QList<QWidget*> refused;
    for (qsizetype i = 0; i < loadedForms.size();) {
        auto* form = qobject_cast<Form*>(loadedForms.at(i));
        if (!form || refused.contains(form)) {
            ++i;
            continue;
        }
        if (!form->unload(mode)) refused.append(form);
        i = 0;
    }
}

bool Forms::isUnloadingAll()
{
    return unloadingAll;
}

void Forms::clear()
{
    const QList<QWidget*> all = std::exchange(loadedForms, {});
    for (QWidget* window : all)
        if (auto* form = qobject_cast<Form*>(window)) delete form->frame();
    makers.clear();
    theMainWindow = nullptr;
    theArea = nullptr;
}

void Forms::forget(Form* form)
{
    loadedForms.removeAll(form);
}
