#include "sight.h"

#include "failure.h"

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "platform/forms/forms.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QTextEdit>

namespace {

[[noreturn]] void unfit(const Target& target, const QString& what)
{
    fail(target.name + " has no " + what);
}

QString cell(const QModelIndex& index)
{
    return index.data(Qt::DisplayRole).toString();
}

int columns(const QAbstractItemView* view)
{
    return view->model()->columnCount(view->rootIndex());
}

void addNodes(QAbstractItemModel* model, const QModelIndex& parent, qsizetype level, QStringList& lines)
{
    while (model->canFetchMore(parent))
        model->fetchMore(parent);
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex node = model->index(row, 0, parent);
        lines.append(QString(2 * level, ' ') + cell(node));
        addNodes(model, node, level + 1, lines);
    }
}

} // namespace

QString Sight::text(const Target& target)
{
    if (target.item) return target.item->text();
    QWidget* widget = target.widget;
    if (const auto* masked = qobject_cast<MaskedEdit*>(widget)) return masked->text();
    if (const auto* line = qobject_cast<QLineEdit*>(widget)) return line->text();
    if (const auto* memo = qobject_cast<MemoBox*>(widget)) return memo->text();
    if (const auto* rich = qobject_cast<QTextEdit*>(widget)) return rich->toPlainText();
    if (const auto* combo = qobject_cast<QComboBox*>(widget)) return combo->currentText();
    if (const auto* list = qobject_cast<QAbstractItemView*>(widget))
        return cell(list->currentIndex().siblingAtColumn(0));
    if (const auto* label = qobject_cast<QLabel*>(widget)) return label->text();
    if (const auto* button = qobject_cast<QAbstractButton*>(widget)) return button->text();
    if (const auto* frame = qobject_cast<QGroupBox*>(widget)) return frame->title();
    if (const auto* bar = qobject_cast<QStatusBar*>(widget)) {
        const auto* label = bar->findChild<QLabel*>();
        return bar->currentMessage().isEmpty() && label ? label->text() : bar->currentMessage();
    }
    if (const QTabWidget* tabs = Lookup::tabsOf(widget)) return tabs->tabText(tabs->indexOf(widget));
    unfit(target, "text");
}

bool Sight::isLocked(const QWidget* control)
{
    return control->property("locked").toBool() || control->property("readOnly").toBool();
}

bool Sight::isHidden(const QWidget* control, const QWidget* upTo)
{
    for (const QWidget* widget = control; widget && widget != upTo; widget = widget->parentWidget()) {
        const bool page = qobject_cast<const QStackedWidget*>(widget->parentWidget()) != nullptr;
        if (!page && widget->isHidden() && widget->testAttribute(Qt::WA_WState_ExplicitShowHide)) return true;
        if (const QTabWidget* tabs = page ? Lookup::tabsOf(widget) : nullptr)
            if (!tabs->isTabVisible(tabs->indexOf(const_cast<QWidget*>(widget)))) return true;
    }
    return false;
}

bool Sight::holds(const Target& target, const QString& state)
{
    const QWidget* widget = target.widget;
    const bool enabled = widget ? widget->isEnabledTo(target.form) : target.item->isEnabled();
    const bool visible = widget ? !isHidden(widget, target.form) : target.item->isVisible();
    if (state == "enabled") return enabled;
    if (state == "disabled") return !enabled;
    if (state == "visible") return visible;
    if (state == "hidden") return !visible;
    if (state == "checked" || state == "unchecked") {
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        if (!(button && button->isCheckable()) && !(target.item && target.item->isCheckable()))
            unfit(target, "check mark");
        return (button ? button->isChecked() : target.item->isChecked()) == (state == "checked");
    }
    if (!widget) unfit(target, "state " + state);
    if (state == "locked") return isLocked(widget);
    if (state == "open") return enabled && !isLocked(widget);
    const QWidget* focused = QApplication::focusWidget();
    if (!focused) focused = widget->window()->focusWidget(); // no window is the active one, behind a box that went
    return focused && (focused == widget || focused == widget->focusProxy() || widget->isAncestorOf(focused));
}

bool Sight::formHolds(const QString& name, const QString& state)
{
    const QWidget* form = Lookup::form(name);
    if (state == "loaded") return form != nullptr;
    if (state == "unloaded") return form == nullptr;
    if (!form) fail(name + (Forms::exists(name) ? " isn't loaded" : " is no form of the program"));
    if (state == "shown") return form->isVisible();
    if (state == "hidden") return !form->isVisible();
    if (state == "enabled") return form->isEnabled();
    if (state == "disabled") return !form->isEnabled();
    const auto* child = qobject_cast<const Form*>(form);
    return child ? child->isActive() : form->isActiveWindow();
}

QAbstractItemView* Sight::view(const Target& target)
{
    auto* found = qobject_cast<QAbstractItemView*>(target.widget);
    if (!found) unfit(target, "rows or entries");
    return found;
}

int Sight::entries(const Target& target)
{
    if (const auto* combo = qobject_cast<QComboBox*>(target.widget)) return combo->count();
    return view(target)->model()->rowCount(view(target)->rootIndex());
}

QString Sight::entry(const Target& target, int index)
{
    if (index < 0 || index >= entries(target)) unfit(target, QStringLiteral("entry %1").arg(index));
    if (const auto* combo = qobject_cast<QComboBox*>(target.widget)) return combo->itemText(index);
    return cell(view(target)->model()->index(index, 0, view(target)->rootIndex()));
}

int Sight::itemData(const Target& target, int index)
{
    entry(target, index);
    if (const auto* combo = qobject_cast<QComboBox*>(target.widget)) return combo->itemData(index).toInt();
    return view(target)->model()->index(index, 0, view(target)->rootIndex()).data(Qt::UserRole).toInt();
}

int Sight::chosen(const Target& target)
{
    if (const auto* combo = qobject_cast<QComboBox*>(target.widget)) return combo->currentIndex();
    return view(target)->currentIndex().row();
}

int Sight::rows(const Target& target)
{
    if (const auto* grid = qobject_cast<Grid*>(target.widget)) return grid->rows();
    return entries(target);
}

QStringList Sight::cells(const Target& target, int row)
{
    QStringList texts;
    if (const auto* grid = qobject_cast<Grid*>(target.widget)) {
        if (row < 0 || row >= grid->rows()) unfit(target, QStringLiteral("row %1").arg(row));
        for (int column = 0; column < grid->cols(); ++column)
            texts.append(grid->textMatrix(row, column));
        return texts;
    }
    const QAbstractItemView* items = view(target);
    const bool heading = row == 0;
    if (!heading) rowIndex(target, row);
    for (int column = 0; column < columns(items); ++column)
        texts.append(heading ? items->model()->headerData(column, Qt::Horizontal).toString()
                             : cell(items->model()->index(row - 1, column, items->rootIndex())));
    return texts;
}

int Sight::currentRow(const Target& target)
{
    if (const auto* grid = qobject_cast<Grid*>(target.widget)) return grid->row();
    return view(target)->currentIndex().row() + 1;
}

QModelIndex Sight::rowIndex(const Target& target, int row)
{
    const QAbstractItemView* items = view(target);
    const QModelIndex index = items->model()->index(row - 1, 0, items->rootIndex());
    if (row < 1 || !index.isValid()) unfit(target, QStringLiteral("row %1 that could be chosen").arg(row));
    return index;
}

QStringList Sight::nodes(const Target& target)
{
    QStringList lines;
    addNodes(view(target)->model(), view(target)->rootIndex(), 0, lines);
    return lines;
}
