// A form: one window of the program, with its own .ui, one instance, reached by its name.
#pragma once

#include <QPointer>
#include <QWidget>

class QAbstractItemView;
class QMdiArea;
class QMdiSubWindow;

// What every form relies on. A form is loaded when it is first touched, may be hidden and shown any number of times,
// and lives until it is unloaded. Forms are child windows of the document area; the splash and the like are windows of
// their own.
//
// A derived class sets its object name (the form's name, "frmInd") and its controls in the constructor, and does the
// rest of its loading in Form_Load(). A child window takes the size that its .ui gives, or else the one that its
// controls want, as far as the document area has room, and stands beside the window that is active when it is loaded,
// or a step off. Names of controls are object names; members of a control array carry their index
// after an underscore ("optSexo_0").
class Form : public QWidget
{
    Q_OBJECT

public:
    // Why a form is unloaded: by its own close box, by the program, or because the program ends.
    enum class UnloadMode
    {
        ControlMenu = 0,
        Code = 1,
        Application = 2
    };
    enum class Window
    {
        Child, // of the document area
        Own    // one of its own, in the middle of the screen above everything
    };

    explicit Form(const QString& name, Window window = Window::Child);
    ~Form() override;

    QString name() const { return objectName(); }
    QString caption() const { return windowTitle(); }
    void setCaption(const QString& caption); // the beginning of one that is too long for a frame

    // Shows the form, brings it to the front and makes it the active one, with the focus on the control that had it
    // last. A disabled form is shown all the same. Its place and its size survive being hidden.
    void display();
    // Takes it off the screen; it stays loaded, with all its state. As QWidget::hide().
    void conceal() { hide(); }
    bool isShown() const { return isVisible(); }
    bool isActive() const;
    // Brings it to the front with the focus (of its last focused control), if it is shown and enabled.
    void setFocusToForm();

    // Asks Form_QueryUnload(); if that agrees, runs Form_Unload(), takes the form off the list of loaded forms and
    // destroys it once control is back in the event loop. Returns false if it was refused.
    bool unload(UnloadMode mode = UnloadMode::Code);

    // False for a form that is a window of its own: the focus doesn't count as moved when it comes and goes.
    bool isChild() const { return window_ == Window::Child; }
    // The control that gets the focus when the form does.
    void setLastFocus(QWidget* control) { lastFocus_ = control == this ? nullptr : control; }

signals:
    void unloaded();

protected:
    // Run once, after construction, with the form on the list of loaded forms and not yet shown. An exception undoes
    // the load and is passed on to whoever touched the form.
    virtual void Form_Load() {}
    // False refuses the unload.
    virtual bool Form_QueryUnload(UnloadMode) { return true; }
    virtual void Form_Unload() {}

    // The window of a list gets the focus on the list when it opens, or on the command if the list is empty.
    void opensOn(QAbstractItemView* list, QWidget* command);

    // Leads where nextTabStop() says. A control disabled while focused leaves the focus to the form.
    bool focusNextPrevChild(bool next) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    friend class Forms;
    void dress(QWidget* mainWindow, QMdiArea* area); // gives the finished form its names, its window and its place
    void fitIn(QMdiArea* area, const QSize& drawn);
    void stepAside(bool first); // beside the window in front at first, later where it would cover it; within the area
    QWidget* frame();           // the child window, or the form itself
    QWidget* focusTarget();

    Window window_;
    QMdiSubWindow* child_ = nullptr;
    QPointer<QWidget> lastFocus_;
    QPointer<QAbstractItemView> list_; // see opensOn()
    QPointer<QWidget> listCommand_;
    bool unloading_ = false;
};
