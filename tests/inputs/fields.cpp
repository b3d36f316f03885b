#include "inputs/fields.h"

#include "failure.h"
#include "sight.h"

#include "common/datas.h"
#include "common/locais.h"
#include "common/numeros.h"
#include "platform/forms/controls.h"

#include <QAbstractButton>

namespace {

using namespace Inputs;

QString unified(QString text)
{
    return text.replace("\r\n", "\n");
}

bool isBlank(const Value& value)
{
    return value.null || value.text.trimmed().isEmpty();
}

QString textSeen(const Target& target)
{
    // What the program takes out of it, which keeps what the toolkit's own plain text replaces.
    if (const auto* memo = qobject_cast<MemoBox*>(target.widget)) return memo->text();
    return Sight::text(target);
}

QString stored(QString name)
{
    while (name.startsWith('*'))
        name.remove(0, 1);
    return name;
}

// What the column should hold, or nothing where that is as good as any.
QString dateOf(const QString& text)
{
    return eData(text) ? dataDoTexto(text).toString("yyyy-MM-dd") : "a date out of " + quoted(text);
}

bool holdsNumber(const QString& text, const Value& value)
{
    if (!eNumero(text)) return false;
    bool ok = false;
    const double number = value.text.toDouble(&ok);
    return ok && number == numeroDoTexto(text);
}

bool agrees(const Field& field, const Shown& shown, const Row& row)
{
    const Value value = row.columns.value(field.column);
    switch (field.kind) {
    case Kind::Text:
    case Kind::Path:
        return unified(value.text) == unified(shown.text);
    case Kind::Name:
        return stored(value.text).remove('*') == stored(shown.text).remove('*');
    case Kind::Whole:
    case Kind::Amount:
        return holdsNumber(shown.text, value);
    case Kind::Date:
        return value.text == dateOf(shown.text);
    case Kind::Flag:
        return (value.text == "1") == shown.checked;
    case Kind::Code:
        return value.text == QString::number(shown.item);
    case Kind::Word:
        return value.text == shown.text.trimmed() || value.text == shown.text;
    case Kind::Currency:
        return value.text.compare(shown.text.left(2), Qt::CaseInsensitive) == 0;
    case Kind::Place: {
        const Local local = localDoTexto(shown.text);
        return value.text == local.codigo && row.columns.value(field.letter).text == local.nivel;
    }
    case Kind::Option:
        return true;
    }
    return true;
}

bool isList(Kind kind)
{
    return kind == Kind::Code || kind == Kind::Word || kind == Kind::Currency || kind == Kind::Place;
}

} // namespace

bool Inputs::isOpen(const Window& window, const QString& control)
{
    try {
        const Target target = Lookup::target(window.form + '.' + control);
        if (!target.widget || !target.form->isEnabled() || !target.form->isVisible()) return false;
        return target.widget->isEnabledTo(target.form) && !Sight::isLocked(target.widget) &&
               !Sight::isHidden(target.widget, target.form);
    } catch (const Failure&) {
        return false;
    }
}

Seen Inputs::see(const Window& window)
{
    Seen seen;
    for (const Field& field : window.fields) {
        const Target target = Lookup::target(window.form + '.' + field.control);
        Shown& shown = seen[field.control];
        shown.text = textSeen(target);
        if (const auto* button = qobject_cast<const QAbstractButton*>(target.widget))
            shown.checked = button->isChecked();
        if (const auto* list = qobject_cast<const ComboBox*>(target.widget)) {
            shown.index = list->listIndex();
            shown.item = list->itemData(shown.index);
        }
    }
    return seen;
}

QString Inputs::disagreement(const Field& field, const Shown& shown, const Row& row, bool confirmed, bool added)
{
    const Value value = row.columns.value(field.column);
    if (field.oddities & NotStored) return {};
    if (confirmed && field.oddities & NotAsTyped) return {};
    if (field.oddities & WithDate && row.columns.value(field.letter).null) return {};
    const bool date = field.kind == Kind::Date;
    const bool blank = date ? semData(shown.text)
                            : field.kind != Kind::Flag && field.kind != Kind::Name && shown.text.trimmed().isEmpty();
    if (blank && isBlank(value)) return {};
    if (blank && confirmed && field.oddities & (KeptWhenBlank | Lingers)) return {};
    if (confirmed && !added && isList(field.kind) && shown.index < 0) return {}; // nobody has chosen
    if (!confirmed && field.oddities & Lingers && isBlank(value)) return {};
    if (!blank && agrees(field, shown, row)) return {};
    const QString seen =
        field.kind == Kind::Flag ? QString(shown.checked ? "on" : "off") : quoted(shown.text.left(200));
    return field.control + " shows " + seen + ", and " + field.column + " is " + value.told() +
           (field.kind == Kind::Place ? " with " + row.columns.value(field.letter).told() : QString());
}

QStringList Inputs::disagreements(const Window& window, const Seen& seen, const Row& row, bool confirmed, bool added)
{
    QStringList all;
    for (const Field& field : window.fields)
        if (const QString one = disagreement(field, seen[field.control], row, confirmed, added); !one.isEmpty())
            all << one;
    return all;
}

QString Inputs::keySeen(const Window& window, const QString& key)
{
    const QString control = key.section(':', 0, 0), column = key.section(':', 1);
    const Target target = Lookup::target(control.contains('.') ? control : window.form + '.' + control);
    if (column.isEmpty()) {
        const QString text = Sight::text(target);
        bool isNumber = false;
        const qlonglong number = text.toLongLong(&isNumber);
        return isNumber ? QString::number(number) : text; // 007 is the record 7
    }
    const int row = Sight::currentRow(target);
    return row > 0 ? Sight::cells(target, row).value(column.toInt()) : QString();
}
