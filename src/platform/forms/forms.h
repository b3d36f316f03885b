// The forms of the program: which exist, which are loaded.
#pragma once

#include "platform/forms/form.h"

#include <QList>
#include <QString>

#include <functional>

class QMdiArea;

// The list of the loaded forms, in the order of their loading. The main window is at index 0; a hidden form is on the
// list, an unloaded one isn't; showing a loaded form again doesn't move it. Names are case-sensitive.
class Forms
{
public:
    // Sets the main window and its document area. The window is listed by its object name.
    // Precondition: no form is loaded yet.
    static void setMainWindow(QWidget* window, QMdiArea* area);
    static QWidget* mainWindow();

    // Makes a form known by its name. Rooms show each other's forms by name, so that no room has to include a higher
    // one.
    static void add(const QString& name, const std::function<Form*()>& make);
    static bool exists(const QString& name);
    static QStringList names(); // of all forms made known, in no order

    // The form of that name, which is loaded if it isn't yet; null if no such form exists. `prepare` runs on a form
    // that is being loaded, before its Form_Load().
    static Form* load(const QString& name, const std::function<void(Form&)>& prepare = {});
    // The loaded form of that name, or null. Never loads.
    static Form* find(const QString& name);
    // load() and display(). A name that no form has does nothing.
    static Form* show(const QString& name);
    static bool isLoaded(const QString& name) { return find(name) != nullptr; }

    static const QList<QWidget*>& loaded();

    // Unloads every loaded form but the main window, in the order of their loading, until none is left that agrees.
    // While it runs isUnloadingAll() is true: an unload then touches no other form.
    static void unloadAll(Form::UnloadMode mode = Form::UnloadMode::Code);
    static bool isUnloadingAll();

    // Drops everything without any event: for the end of the process and between tests.
    static void clear();

private:
    friend class Form;
    static void forget(Form* form);
};

// The one instance of a form class, loaded at first touch. F::Name is the form's name.
// Precondition: Forms::add() has made that name known.
template <class F>
F& theForm()
{
    return static_cast<F&>(*Forms::load(QString::fromLatin1(F::Name)));
}
