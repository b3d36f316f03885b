// What a screen reader is told of every form that is made known, by the toolkit's own interfaces.
#include "help/manualFolder.h"
#include "shell/everyForm.h"

#include "help/frmManual.h"
#include "shell/frmORV.h"
#include "shell/startPanel.h"

#include <QAccessible>
#include <QGraphicsView>
#include <QGroupBox>
#include <QHash>
#include <QMenu>
#include <QTabBar>

#include <algorithm>

namespace {

QString told(QAccessible::Text kind, const QAccessibleInterface& of)
{
    return of.text(kind).simplified();
}

// A drop-down list is named by the labels beside it: its own name is what it shows.
QString nameOf(const QAccessibleInterface& item)
{
    if (item.role() != QAccessible::ComboBox) return told(QAccessible::Name, item);
    QStringList names;
    for (const auto& [label, relation] : item.relations(QAccessible::Label))
        if (label->role() == QAccessible::StaticText) names << told(QAccessible::Name, *label);
    return names.join(' ');
}

QString nameOf(QObject* control)
{
    return nameOf(*QAccessible::queryAccessibleInterface(control));
}

// What a user works with. All else is read on the way to it.
bool isControl(const QAccessibleInterface& item)
{
    switch (item.role()) {
    case QAccessible::PushButton:
    case QAccessible::ButtonMenu:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::SpinBox:
    case QAccessible::Slider:
    case QAccessible::List:
    case QAccessible::Table:
    case QAccessible::Tree:
    case QAccessible::PageTab:
    case QAccessible::Graphic:
    case QAccessible::Chart:
        return true;
    default: {
        const auto* widget = qobject_cast<const QWidget*>(item.object());
        if (!widget || widget->focusProxy() || qobject_cast<const QTabBar*>(widget)) return false;
        return (widget->focusPolicy() & Qt::TabFocus) || qobject_cast<const QGraphicsView*>(widget);
    }
    }
}

struct Told
{
    QAccessibleInterface* item;
    QString name;
    QString groups; // the frames around it, which are told before it
    QString place;  // for the message of a test
};

// Everything below a window that a user works with, on pages behind, too. The rows of a list are its own.
class Tour
{
public:
    explicit Tour(QWidget& window) : window_(window.objectName())
    {
        visit(*QAccessible::queryAccessibleInterface(&window), {}, {});
    }

    QList<Told> controls;

private:
    void visit(QAccessibleInterface& item, const QString& groups, const QString& around)
    {
        const QString own = item.object() ? item.object()->objectName() : QString();
        const QString place = own.isEmpty() ? around : own;
        QString within = groups;
        if (const auto* frame = qobject_cast<QGroupBox*>(item.object()); frame && !frame->title().isEmpty())
            within += told(QAccessible::Name, item) + " / ";
        if (isControl(item)) {
            controls << Told{&item, nameOf(item), groups, window_ + '.' + place};
            return;
        }
        for (int child = 0; child < item.childCount(); ++child)
            if (QAccessibleInterface* next = item.child(child)) visit(*next, within, place);
    }

    QString window_;
};

// Letters and digits, which are all that is read aloud.
qsizetype spoken(const QString& name)
{
    return std::ranges::count_if(name, [](QChar c) { return c.isLetterOrNumber(); });
}

void expectNames(QWidget& window)
{
    QHash<QString, QString> met;
    for (const Told& control : Tour(window).controls) {
        EXPECT_GE(spoken(control.name), 2)
            << qPrintable(control.place + ": " + control.name) << ' ' << control.item->role();
        const QObject* object = control.item->object();
        EXPECT_TRUE(!object || control.name != object->objectName()) << qPrintable(control.place);
        QString& before = met[control.groups + control.name + QString::number(control.item->role())];
        EXPECT_EQ(before, "") << qPrintable(control.place + ": " + control.groups + control.name);
        before = control.place;
    }
}

class BoxRead : public House
{
};

// What is on no list of forms.
class BesideTheForms : public ManualFolder
{
};

} // namespace

TEST_F(EveryForm, AScreenReaderMeetsANameOnEveryControlAndNoneTwice)
{
    forEach([](Form& form) { expectNames(form); });
}

TEST_F(BesideTheForms, AScreenReaderMeetsANameOnEveryWayToBegin)
{
    FrmORV frame;
    frame.show();
    QCoreApplication::processEvents();
    auto* panel = frame.findChild<StartPanel*>();
    ASSERT_TRUE(panel && panel->isVisible());
    EXPECT_EQ(Tour(*panel).controls.size(), 6); // five ways and the picture
    expectNames(*panel);
}

TEST_F(BesideTheForms, AScreenReaderMeetsANameOnEveryControlOfTheManual)
{
    writeAll();
    FrmManual window(help::Manual(path({})), nullptr);
    window.showPage("frmA");
    EXPECT_GE(Tour(window).controls.size(), 4);
    expectNames(window);
    EXPECT_GE(spoken(nameOf(&window)), 2);
}

TEST_F(EveryForm, AScreenReaderIsToldWhatAChoiceIsAbout)
{
    forEach([](Form& form) {
        for (const Told& control : Tour(form).controls) {
            if (control.item->role() != QAccessible::RadioButton) continue;
            const auto* button = qobject_cast<const QAbstractButton*>(control.item->object());
            EXPECT_TRUE(!control.groups.isEmpty() || !button->accessibleName().isEmpty())
                << qPrintable(control.place + ": " + control.name);
        }
    });
}

TEST_F(EveryForm, AScreenReaderIsToldTheTitleOfTheWindow)
{
    forEach([](Form& form) {
        QWidget* frame = form.isChild() ? form.parentWidget() : &form;
        EXPECT_GE(spoken(nameOf(frame)), 2) << qPrintable(form.name());
    });
}

TEST_F(EveryForm, AScreenReaderIsToldWhatAFieldHoldsAndThatItIsShut)
{
    forEach([](Form& form) {
        for (const Told& control : Tour(form).controls) {
            const auto* widget = qobject_cast<const QWidget*>(control.item->object());
            if (!widget) continue;
            const std::string place = control.place.toStdString();
            EXPECT_EQ(control.item->state().disabled != 0, !widget->isEnabled()) << place;
            if (const auto* line = qobject_cast<const QLineEdit*>(widget)) {
                EXPECT_EQ(control.item->state().readOnly != 0, line->isReadOnly()) << place;
                EXPECT_EQ(control.item->text(QAccessible::Value), line->text()) << place;
            }
            if (const auto* memo = qobject_cast<const QPlainTextEdit*>(widget)) {
                EXPECT_EQ(control.item->state().readOnly != 0, memo->isReadOnly()) << place;
                EXPECT_EQ(control.item->text(QAccessible::Value), memo->toPlainText()) << place;
            }
            if (const auto* combo = qobject_cast<const ComboBox*>(widget)) {
                EXPECT_EQ(told(QAccessible::Description, *control.item).contains("só de leitura"), combo->isLocked())
                    << place;
                EXPECT_EQ(control.item->text(QAccessible::Value), combo->currentText()) << place;
            }
            if (const auto* button = qobject_cast<const QAbstractButton*>(widget); button && button->isCheckable()) {
                EXPECT_EQ(control.item->state().checked != 0, button->isChecked()) << place;
            }
        }
    });
}

TEST_F(EveryForm, AScreenReaderMeetsANameOnEveryMenuItem)
{
    const FrmORV frame;
    const auto menus = frame.findChildren<QMenu*>();
    EXPECT_GE(menus.size(), 8);
    for (QMenu* menu : menus) {
        EXPECT_GE(spoken(nameOf(menu)), 2) << qPrintable(menu->objectName());
        QStringList met;
        auto* items = QAccessible::queryAccessibleInterface(menu);
        ASSERT_EQ(items->childCount(), menu->actions().size());
        for (int item = 0; item < items->childCount(); ++item) {
            if (menu->actions().at(item)->isSeparator()) continue;
            const QString name = told(QAccessible::Name, *items->child(item));
            EXPECT_GE(spoken(name), 2) << qPrintable(menu->actions().at(item)->objectName());
            EXPECT_FALSE(met.contains(name)) << qPrintable(menu->title() + ": " + name);
            met << name;
        }
    }
}

TEST_F(BoxRead, TellsAScreenReaderItsTextAndItsButtons)
{
    QStringList met;
    QTimer looker;
    QObject::connect(&looker, &QTimer::timeout, [&met] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !met.isEmpty()) return;
        const std::function<void(QAccessibleInterface&)> read = [&](QAccessibleInterface& item) {
            const bool said = item.role() == QAccessible::StaticText || item.role() == QAccessible::PushButton;
            if (said || item.object() == box) met << told(QAccessible::Name, item);
            for (int child = 0; child < item.childCount(); ++child)
                if (auto* next = item.child(child)) read(*next);
        };
        read(*QAccessible::queryAccessibleInterface(box));
        box->accept();
    });
    looker.start(0);
    ask("Deseja mesmo?", Icon::Question, "Título");
    EXPECT_TRUE(met.contains("Título"));
    EXPECT_TRUE(met.contains("Deseja mesmo?"));
    EXPECT_EQ(met.filter(QRegularExpression("^(Sim|Não)$")).size(), 2) << qPrintable(met.join(", "));
}
