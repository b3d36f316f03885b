// What has to hold after a confirmation.
#include "inputs/round.h"

#include "failure.h"
#include "sight.h"

#include "platform/forms/controls.h"

#include <algorithm>

using namespace Inputs;

namespace {

QString told(const QList<Change>& changed)
{
    QStringList texts;
    for (const Change& change : changed)
        texts << change.told();
    return texts.join("; ");
}

const Row& any(const Change& change)
{
    return change.after ? *change.after : *change.before;
}

qsizetype letters(const QString& text)
{
    return std::ranges::count_if(text, [](QChar each) { return each.isLetterOrNumber() || each.isHighSurrogate(); });
}

} // namespace

void Round::checkUnchanged(const QString& after) const
{
    const Dump now = store_.dump();
    if (now.schema != before_.schema) fail("the schema has changed: " + after);
    if (const QList<Change> changed = changes(before_, now); !changed.isEmpty())
        fail("the store has changed though only " + after + ": " + told(changed));
}

// What a field of text doesn't take of a paste is told in a box.
void Round::checkPaste(const Field& field, const QString& text, const Outcome& outcome) const
{
    const bool takesText = field.kind == Kind::Text || field.kind == Kind::Name || field.kind == Kind::Path;
    if (!takesText || !outcome.done || !outcome.boxes.isEmpty() || !isShown(window_.form)) return;
    const QString shown = see(window_).value(field.control).text;
    if (letters(shown) < letters(text))
        fail(QStringLiteral("a paste of %1 characters was cut to %2 without a word: %3")
                 .arg(text.size())
                 .arg(shown.size())
                 .arg(field.control));
}

void Round::checkOutcome(const Dump& now, const QList<Change>& changed, const Outcome& outcome, bool closed)
{
    if (outcome.refusedByUser) {
        if (!changed.isEmpty()) fail("stored, though the user said no: " + told(changed));
        return;
    }
    checkReach(changed);
    const bool rowAlone = window_.rowStays && !edit_.adds &&
                          std::ranges::all_of(changed, [&](const Change& c) { return c.table == window_.table; });
    if (outcome.error() && !changed.isEmpty() && !rowAlone)
        fail("half is stored beside the error " + quoted(outcome.boxes.last()) + ": " + told(changed));
    const bool blank = window_.silentWhenBlank && seen_.value(window_.fields.first().control).text.isEmpty();
    if (changed.isEmpty() && outcome.boxes.isEmpty() && !blank) {
        if (!closed) fail("the confirmation neither stores nor says why not");
        if (edit_.adds) fail("the confirmation is over, and no row was added");
    }
    if (changed.isEmpty() && !closed) {
        ++tally_.refused;
        return;
    }
    if (seen_.isEmpty() || outcome.error()) return;

    const Change* own = ownChange(changed);
    const auto rows = now.tables.constFind(window_.table);
    const Row* row = own                                                          ? own->after
                     : row_ && rows != now.tables.cend() && rows->contains(*row_) ? &rows->constFind(*row_).value()
                                                                                  : nullptr;
    if (!row) return;
    const QStringList wrong = disagreements(window_, seen_, *row, true, edit_.adds);
    if (!wrong.isEmpty()) fail("not stored as it was shown: " + wrong.join("; "));
    if (window_.form == "frmFam" && edit_.adds) checkMembers(now);
}

// Only rows of the record that is edited, and of it no more than an edit is about.
void Round::checkReach(const QList<Change>& changed) const
{
    int added = 0, altered = 0;
    for (const Change& change : changed) {
        const Row& row = any(change);
        if (change.table == window_.table) {
            ++(change.before ? altered : added);
            if (!change.after) fail("a row has gone: " + change.told());
            for (const Key& key : window_.owner)
                if (const Value value = row.columns.value(key.column); value.text != owner_.value(key.column))
                    fail("a row of another record has changed: " + change.told());
        } else {
            const QString number = owner_.isEmpty() ? QString() : owner_.first();
            const bool mine =
                std::ranges::any_of(QStringList{"nind", "nfamilia", "entidade", "numero"}, [&](const QString& column) {
                    const Value value = row.columns.value(column);
                    return !value.null && value.text == number;
                });
            if (!window_.others.contains(change.table) || !mine)
                fail("a row has changed that isn't edited: " + change.told());
        }
    }
    if (added > (edit_.adds ? 1 : 0)) fail("rows were added: " + told(changed));
    if (altered > (edit_.adds ? 0 : 1) && !window_.several) fail("other rows were altered: " + told(changed));
    if (!edit_.adds && row_)
        for (const Change& change : changed)
            if (change.table == window_.table && change.rowid != *row_ && !window_.several)
                fail("another row was altered than the one shown: " + change.told());
}

// Those of a new family, as far as they are shown.
void Round::checkMembers(const Dump& now) const
{
    const QStringList halves[] = {{"txtPnind", "txtIdade1", "cmbEC1"}, {"txtSnind", "txtIdade2", "cmbEC2"}};
    for (const QStringList& half : halves) {
        const QString nind = seen_[half[0]].text.trimmed();
        if (nind.isEmpty()) continue;
        const auto& members = now.tables["familias"];
        const auto member = std::ranges::find_if(members, [&](const Row& row) {
            return row.columns["nfamilia"].text == owner_["nfamilia"] &&
                   disagreement({{}, Kind::Whole, "nind", {}, None}, {nind}, row, true, true).isEmpty();
        });
        if (member == members.end()) fail("person " + nind + " is shown in the family and isn't stored in it");
        const QString wrong =
            disagreement({half[1], Kind::Whole, "idade", {}, None}, seen_[half[1]], *member, true, true) +
            disagreement({half[2], Kind::Code, "estadocivil", {}, None}, seen_[half[2]], *member, true, true);
        if (!wrong.isEmpty()) fail("the member of the family isn't stored as it was shown: " + wrong);
    }
}

const Change* Round::ownChange(const QList<Change>& changed) const
{
    for (const Change& change : changed)
        if (change.table == window_.table && change.after) return &change;
    return nullptr;
}

// The row whose numbers are seen, where they tell it from all others.
std::optional<qint64> Round::rowShown(const Dump& dump) const
{
    if (!window_.grid.isEmpty() && window_.row.isEmpty()) return {};
    QMap<QString, QString> keys = owner_;
    for (const Key& key : window_.row)
        keys[key.column] = keySeen(window_, key.seen);
    std::optional<qint64> found;
    const auto rows = dump.tables.value(window_.table);
    for (auto row = rows.cbegin(); row != rows.cend(); ++row) {
        const bool same = std::all_of(keys.keyValueBegin(), keys.keyValueEnd(), [&](const auto& key) {
            return row->columns.value(key.first).text == key.second;
        });
        if (!same) continue;
        if (found) return {};
        found = row.key();
    }
    return found;
}

// The window is closed and opened anew: it shows what is stored.
void Round::showAgain(qint64 row, const Row& stored)
{
    if (!closeAll(player_)) fail("the windows can't be closed any more");
    const Dump now = store_.dump();
    if (now.tables[window_.table].value(row) != stored) fail("the row has changed while its window was closed");
    // Kept: of two rows of one assistant the first is shown for both.
    const auto same = [&](const Row& other) {
        return other.columns["nind"] == stored.columns["nind"] &&
               other.columns["entidade"] == stored.columns["entidade"];
    };
    if (window_.table == "assistente" && std::ranges::count_if(now.tables["assistente"], same) > 1) return;
    const QStringList wrong = seeAgain(stored);
    if (!wrong.isEmpty()) fail("shown otherwise than stored: " + wrong.join("; "));
}

QStringList Round::seeAgain(const Row& stored)
{
    for (qsizetype i = 0; i < window_.way.size(); ++i) {
        if (!step(window_.way[i]).done) return {window_.way[i] + " isn't possible any more"};
        const bool card = window_.form == window_.card;
        if (i == 0 && !window_.card.isEmpty() && !goToRecord(card ? owner_.first() : record_))
            return {"the record can't be reached any more"};
    }
    if (window_.form == "frmInfo") {
        const Target list = Lookup::target(of("cmbCat"));
        for (int i = 0; i < Sight::entries(list); ++i)
            if (Sight::entry(list, i).startsWith(stored.columns["categoria"].text))
                step("choose " + of("cmbCat") + ' ' + QString::number(i));
    }
    if (window_.grid.isEmpty() || window_.form == window_.card)
        return disagreements(window_, see(window_), stored, false, false);

    // Which row of the grid it is the window doesn't always say.
    const Target grid = Lookup::target(of(window_.grid));
    const int rows = Sight::rows(grid) - (qobject_cast<Grid*>(grid.widget) ? 1 : 0);
    QStringList nearest{"it isn't in the grid"};
    for (int row = rows; row > 0; --row) {
        step("row " + of(window_.grid) + ' ' + QString::number(row));
        const QStringList wrong = disagreements(window_, see(window_), stored, false, false);
        if (wrong.isEmpty()) return {};
        if (row == rows || wrong.size() < nearest.size()) nearest = wrong;
    }
    return nearest;
}

bool Round::goToRecord(const QString& wanted)
{
    const QString card = window_.card;
    if (isOpen(Window{{}, card, {}, {}, {}, {}, {}, {}, {}, {}}, "cmdPrim")) step("click " + card + ".cmdPrim");
    for (QString before; number() != wanted; step("click " + card + ".cmdSeg")) {
        if (number() == before) return false;
        before = number();
    }
    return true;
}
