#include "inputs/round.h"

#include "failure.h"
#include "inputs/texts.h"
#include "sight.h"

#include "platform/forms/controls.h"
#include "platform/forms/forms.h"

#include <algorithm>

using namespace Inputs;

namespace {

bool canBeUsed(const QString& form, const QString& control)
{
    return isOpen(Window{{}, form, {}, {}, {}, {}, {}, {}, {}, {}}, control);
}

bool shown(const QString& form)
{
    const QWidget* window = Lookup::form(form);
    return window && window->isVisible();
}

int rowsOf(const Target& target)
{
    return Sight::rows(target) - (qobject_cast<Grid*>(target.widget) ? 1 : 0);
}

// The button that leads out of a form, by what it says or by its name.
QString wayOut(const QWidget* form)
{
    const auto usable = [form](const QAbstractButton* button) {
        return button->isEnabledTo(form) && !Sight::isHidden(button, form);
    };
    const auto buttons = form->findChildren<CommandButton*>();
    for (const char* caption : {"cance&Lar", "&Conf./Canc."})
        for (const CommandButton* button : buttons)
            if (button->text() == caption && usable(button)) return button->objectName();
    for (const char* name : {"cmdSair", "cmdF", "cmdT", "cmdFechar", "cmdC", "cmdG_1", "cmdB_1"})
        for (const CommandButton* button : buttons)
            if (button->objectName() == QLatin1String(name) && usable(button)) return button->objectName();
    return {};
}

} // namespace

Round::Round(StepPlayer& player, Journal& journal, const Store& store, Dice dice, const Window& window, Tally& tally)
    : player_(player), journal_(journal), store_(store), dice_(dice), window_(window), tally_(tally),
      wildness_(dice_.among(QList<int>{1, 3, 12, 1000}))
{
}

void Round::play()
{
    ++tally_.rounds;
    before_ = store_.dump();
    if (!open() || !chooseRow() || !begin()) {
        ++tally_.skipped;
        finish();
        return;
    }
    ++tally_.begun;
    for (int attempts = 1 + dice_.below(3); attempts > 0; --attempts) {
        fill();
        if (dice_.oneIn(4)) break;
        if (confirm()) return finish();
    }
    giveUp();
    finish();
}

bool Round::closeAll(StepPlayer& player)
{
    for (int time = 0; time < 25; ++time) {
        // A form of dates that was confirmed waits disabled for the search that reads it, perhaps for good.
        const auto waits = [](const QWidget* form) { return !form->isEnabled() && form->objectName() == "frmDatas"; };
        QList<QWidget*> open;
        for (QWidget* form : Forms::loaded())
            if (form != Forms::mainWindow() && form->isVisible() && !waits(form)) open.prepend(form);
        if (open.isEmpty()) return true;
        const auto enabled = std::ranges::find_if(open, [](const QWidget* form) { return form->isEnabled(); });
        const QWidget* form = enabled == open.end() ? open.first() : *enabled;
        const QString name = form->objectName(), button = wayOut(form);
        if (time % 5 == 4) emptyField(player, form); // it may be one that is refused
        player.play(button.isEmpty() ? "close " + name : "click " + name + '.' + button);
    }
    return false;
}

void Round::emptyField(StepPlayer& player, const QWidget* form)
{
    const QWidget* field = form->window()->focusWidget();
    if (!field || !form->isAncestorOf(field) || Sight::isLocked(field)) return;
    if (qobject_cast<const QLineEdit*>(field) || qobject_cast<const MemoBox*>(field))
        player.play("type " + form->objectName() + '.' + field->objectName() + " \"\"");
}

// On some record of the card, where the window has one.
bool Round::open()
{
    for (qsizetype i = 0; i < window_.way.size(); ++i) {
        if (!step(window_.way[i]).done) return false;
        if (i > 0 || window_.card.isEmpty()) continue;
        for (int times = dice_.below(5); times > 0; --times)
            if (canBeUsed(window_.card, "cmdSeg")) step("click " + window_.card + ".cmdSeg");
        record_ = number();
    }
    return isShown(window_.form);
}

bool Round::chooseRow()
{
    if (window_.form == "frmInfo") {
        const Target list = Lookup::target(of("cmbCat"));
        step("choose " + of("cmbCat") + ' ' + QString::number(dice_.below(std::max(1, Sight::entries(list)))));
    }
    if (window_.grid.isEmpty() || !isOpen(window_, window_.grid)) return true;
    const int rows = rowsOf(Lookup::target(of(window_.grid)));
    if (rows > 0) step("row " + of(window_.grid) + ' ' + QString::number(1 + dice_.below(rows)));
    return true;
}

// Where there is nothing to alter, a row is added.
bool Round::begin()
{
    return begin(dice_.among(window_.edits)) || begin(window_.edits.first());
}

bool Round::begin(const Edit& edit)
{
    if (!isShown(window_.form) || !isOpen(window_, edit.begin)) return false;
    edit_ = edit;
    captionBefore_ = caption();
    const bool button = qobject_cast<const QAbstractButton*>(Lookup::target(of(edit_.begin)).widget);
    step((button ? "click " : "focus ") + of(edit_.begin));
    checkUnchanged("an edit was begun");
    if (!isShown(window_.form)) return false;
    captionBegun_ = caption();
    if (edit_.begin == edit_.confirm && captionBegun_ == captionBefore_) return false;
    if (edit_.searches || edit_.adds) return true;
    for (const Key& key : window_.owner)
        owner_[key.column] = keySeen(window_, key.seen);
    row_ = rowShown(before_);
    return true;
}

void Round::fill()
{
    QList<Field> fields;
    const int chance = dice_.among(QList<int>{1, 1, 2, 4});
    for (const Field& field : window_.fields)
        if (dice_.oneIn(chance)) fields << field;
    for (qsizetype i = fields.size() - 1; i > 0 && chance > 1; --i)
        fields.swapItemsAt(i, dice_.below(int(i) + 1));
    for (const Field& field : std::as_const(fields)) {
        if (isOpen(window_, field.control)) fillField(field);
        if (dice_.oneIn(5)) moveFocus();
    }
    for (const QString& button : window_.pickers)
        if (dice_.oneIn(3) && isOpen(window_, button)) pick(button);
    checkUnchanged("fields were filled");
}

void Round::fillField(const Field& field)
{
    const Target target = Lookup::target(of(field.control));
    if (qobject_cast<const ComboBox*>(target.widget)) {
        const int entries = Sight::entries(target);
        if (entries > 0) step("choose " + of(field.control) + ' ' + QString::number(dice_.below(entries)));
    } else if (qobject_cast<const QAbstractButton*>(target.widget)) {
        step("click " + of(field.control));
    } else {
        typeInto(field);
    }
}

void Round::typeInto(const Field& field)
{
    const Texts::Manner manner{dice_.oneIn(3), !dice_.oneIn(wildness_)};
    const auto text = [&] {
        switch (field.kind) {
        case Kind::Whole:
        case Kind::Amount:
            return Texts::number(dice_, manner);
        case Kind::Date:
            return Texts::date(dice_, manner);
        case Kind::Path:
            return Texts::path(dice_);
        default:
            return Texts::any(dice_, manner);
        }
    };
    const QString how = manner.pasted ? "paste " : dice_.oneIn(3) ? "enter " : "type ";
    const QString typed = text();
    const Outcome outcome = step(how + of(field.control) + ' ' + quoted(typed));
    if (manner.pasted) checkPaste(field, typed, outcome);
}

void Round::pick(const QString& button)
{
    step("click " + of(button));
    if (shown("frmLocalizacao"))
        pickPlace();
    else if (window_.form != "frmInd" && shown("frmInd") && canBeUsed("frmInd", "cmdFechar"))
        pickPerson();
}

void Round::pickPerson()
{
    for (int times = dice_.below(4); times > 0; --times)
        if (canBeUsed("frmInd", "cmdSeg")) step("click frmInd.cmdSeg");
    const bool takes = !dice_.oneIn(4) && canBeUsed("frmInd", "cmdAtribuir");
    step(takes ? "click frmInd.cmdAtribuir" : "click frmInd.cmdFechar");
    if (!Lookup::form(window_.form)->isEnabled() && canBeUsed("frmInd", "cmdFechar")) step("click frmInd.cmdFechar");
}

void Round::pickPlace()
{
    for (const char* list : {"cmbPais", "cmbDistrito", "cmbConcelho", "cmbParoquia", "cmbLugar"}) {
        if (!dice_.oneIn(2) || !canBeUsed("frmLocalizacao", list)) continue;
        const QString name = QString("frmLocalizacao.") + list;
        if (const int entries = Sight::entries(Lookup::target(name)); entries > 0)
            step("choose " + name + ' ' + QString::number(dice_.below(entries)));
    }
    const bool takes = !dice_.oneIn(4) && canBeUsed("frmLocalizacao", "cmdAtribuir");
    step(takes ? "click frmLocalizacao.cmdAtribuir" : "click frmLocalizacao.cmdSair");
    if (shown("frmLocalizacao") && canBeUsed("frmLocalizacao", "cmdSair")) step("click frmLocalizacao.cmdSair");
}

void Round::moveFocus()
{
    if (!dice_.oneIn(3)) {
        step(dice_.oneIn(3) ? "key Shift+Tab" : "key Tab");
        return;
    }
    const Field& field = dice_.among(window_.fields);
    if (isOpen(window_, field.control)) step("focus " + of(field.control));
}

bool Round::confirm()
{
    if (!isOpen(window_, edit_.confirm)) return false;
    Outcome outcome;
    const bool atOnce = dice_.oneIn(3); // the click itself takes the focus away from the last field
    if (!atOnce) outcome.add(step("focus " + of(edit_.confirm)));
    if (!isShown(window_.form) || !isOpen(window_, edit_.confirm)) return false;
    seen_ = see(window_);
    if (edit_.adds)
        for (const Key& key : window_.owner)
            owner_[key.column] = keySeen(window_, key.seen);
    outcome.add(step("click " + of(edit_.confirm)));
    if (atOnce) seen_.clear(); // leaving the last field may have changed it, and others with it
    const Dump now = store_.dump();
    if (now.schema != before_.schema) fail("the schema has changed");
    const QList<Change> changed = changes(before_, now);
    if (edit_.searches) {
        checkSearch();
        return dice_.oneIn(2);
    }
    const bool closed = !isShown(window_.form) || caption() != captionBegun_;
    checkOutcome(now, changed, outcome, closed);
    if (changed.isEmpty()) return closed;

    ++tally_.stored;
    if (const Change* own = ownChange(changed); own && !outcome.error()) {
        const qint64 row = own->rowid;
        const Row stored = *own->after;
        before_ = now;
        showAgain(row, stored);
    }
    before_ = now;
    return true;
}

void Round::checkSearch()
{
    checkUnchanged("a search");
    ++tally_.givenUp;
    if (shown("frmResult")) step("click frmResult.cmdT");
}

void Round::giveUp()
{
    ++tally_.givenUp;
    if (!edit_.cancel.isEmpty() && isShown(window_.form) && isOpen(window_, edit_.cancel))
        step("click " + of(edit_.cancel));
    checkUnchanged("an edit was given up");
}

void Round::finish()
{
    // A command that asks whether to store may do so on the way out.
    const bool asks = window_.edits.first().cancel.isEmpty();
    if (!closeAll(player_)) fail("the windows can't be closed any more");
    if (!asks) checkUnchanged("all windows were closed");
}

QString Round::caption() const
{
    return isShown(window_.form) ? Sight::text(Lookup::target(of(edit_.confirm))) : QString();
}

bool Round::isShown(const QString& form) const
{
    return shown(form);
}

QString Round::number() const
{
    return Sight::text(Lookup::target(window_.card + (window_.card == "frmFam" ? ".txtNFam" : ".txtNind")));
}
