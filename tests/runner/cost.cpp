#include "cost.h"

#include "failure.h"
#include "language.h"
#include "sight.h"

#include "platform/forms/controls.h"
#include "platform/forms/forms.h"

#include <QHash>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>

#include <algorithm>
#include <utility>

namespace {

constexpr double secondsOfClick = 1.3;
constexpr double secondsOfKey = 0.28;
constexpr double secondsOfBox = 0.9;

int pagesToTurn(const Target& target)
{
    int pages = 0;
    for (QWidget* widget = target.widget; widget && widget != target.form; widget = widget->parentWidget())
        if (const QTabWidget* tabs = Lookup::tabsOf(widget); tabs && tabs->indexOf(widget) != tabs->currentIndex())
            ++pages;
    return pages;
}

Cost clicksOn(const Play& play, int clicks)
{
    return {.clicks = pagesToTurn(Lookup::target(play.word(0))) + clicks};
}

Cost focusOn(const Play& play)
{
    const Target target = Lookup::target(play.word(0));
    const bool has = Sight::formHolds(target.form->objectName(), "active") && Sight::holds(target, "focused");
    return {.clicks = pagesToTurn(target) + (has ? 0 : 1)};
}

// What stands in a field has to be chosen before it is replaced, unless it is.
int keysToChoose(const QWidget* widget)
{
    if (const auto* line = qobject_cast<const QLineEdit*>(widget)) {
        const QString text = line->text(); // under a mask, with what stands between the digits
        const bool masked = qobject_cast<const MaskedEdit*>(line) != nullptr;
        const bool empty =
            masked ? std::none_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); }) : text.isEmpty();
        return empty || line->selectedText() == line->text() ? 0 : 1;
    }
    const auto* memo = qobject_cast<const QPlainTextEdit*>(widget);
    return memo && !memo->toPlainText().isEmpty() ? 1 : 0;
}

// Under a mask what stands between the digits is there already. A line break is one key.
int keysOf(const QWidget* widget, QString text)
{
    const auto* masked = qobject_cast<const MaskedEdit*>(widget);
    if (masked && !masked->mask().isEmpty()) text.remove('/');
    return int(text.replace("\r\n", "\n").toUcs4().size());
}

Cost typing(const Play& play)
{
    Cost cost = focusOn(play);
    const QWidget* widget = Lookup::target(play.word(0)).widget;
    const int choosing = keysToChoose(widget), keys = keysOf(widget, play.text(1));
    const bool emptied = keys == 0 && !Sight::text(Lookup::target(play.word(0))).isEmpty();
    cost.keys = choosing + (emptied ? 1 : keys);
    return cost;
}

Cost pasting(const Play& play)
{
    Cost cost = focusOn(play);
    cost.keys = keysToChoose(Lookup::target(play.word(0)).widget) + 1;
    return cost;
}

Cost checking(const Play& play, bool on)
{
    return Sight::holds(Lookup::target(play.word(0)), on ? "unchecked" : "checked") ? clicksOn(play, 1) : Cost();
}

using Price = Cost (*)(const Play& play);

// By the first word of the step. The other steps prepare, or look.
const QHash<QByteArray, Price>& prices()
{
    static const QHash<QByteArray, Price> all{
        {"menu", [](const Play&) { return Cost{.clicks = 2}; }},
        {"run", [](const Play&) { return Cost{.clicks = 2}; }},
        {"close", [](const Play&) { return Cost{.clicks = 1}; }},
        {"key", [](const Play&) { return Cost{.keys = 1}; }},
        {"click", [](const Play& play) { return clicksOn(play, 1); }},
        {"choose", [](const Play& play) { return clicksOn(play, 1); }},
        {"row", [](const Play& play) { return clicksOn(play, 1); }},
        {"dblclick", [](const Play& play) { return clicksOn(play, 2); }},
        {"focus", focusOn},
        {"enter", typing},
        {"type", typing},
        {"paste", pasting},
        {"check", [](const Play& play) { return checking(play, true); }},
        {"uncheck", [](const Play& play) { return checking(play, false); }},
    };
    return all;
}

QByteArray firstWord(const Play& play)
{
    const QByteArray form = language()[play.step.form].form;
    return form.left(form.indexOf(' '));
}

QString counted(int number, const char* one, const char* several)
{
    return QString::number(number) + ' ' + (number == 1 ? one : several);
}

} // namespace

Cost& Cost::operator+=(const Cost& other)
{
    clicks += other.clicks;
    keys += other.keys;
    boxes += other.boxes;
    windows += other.windows;
    return *this;
}

double Cost::seconds() const
{
    return clicks * secondsOfClick + keys * secondsOfKey + boxes * secondsOfBox;
}

QString Cost::told() const
{
    return QStringList{counted(clicks, "click", "clicks"), counted(keys, "key", "keys"), counted(boxes, "box", "boxes"),
                       counted(windows, "window change", "window changes"), QString::number(seconds(), 'f', 1) + " s"}
        .join(", ");
}

void Accounts::spend(const Cost& cost)
{
    whole += cost;
    if (counting) parts.last().cost += cost;
}

void Accounts::requireOver() const
{
    if (counting) fail("the cost of " + quoted(parts.last().title) + " is still counted");
}

void Accounts::begin(const QString& title)
{
    requireOver();
    parts.append({title});
    counting = true;
}

const Account& Accounts::end()
{
    if (!std::exchange(counting, false)) fail("no cost is counted");
    return parts.last();
}

QList<Account> Accounts::report() const
{
    return parts.isEmpty() ? QList<Account>{{{}, whole}} : parts;
}

Cost costOf(const Play& play)
{
    const auto price = prices().constFind(firstWord(play));
    if (price == prices().cend() || !play.stage.runs()) return {};
    try {
        return (*price)(play);
    } catch (const Failure&) { // it will be told by the step itself
        return {};
    }
}

QString formOf(const Play& play)
{
    const QByteArray word = firstWord(play);
    if (!prices().contains(word) || word == "menu" || word == "run" || word == "key") return {};
    const QWidget* form = Lookup::form(play.word(0).section('.', 0, 0));
    return form && form != Forms::mainWindow() ? form->objectName() : QString();
}

QString activeForm()
{
    for (QWidget* form : Forms::loaded())
        if (const auto* child = qobject_cast<const Form*>(form); child && child->isVisible() && child->isActive())
            return child->objectName();
    return {};
}
