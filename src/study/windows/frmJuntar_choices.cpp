// Whom the two fields mean.
#include "study/windows/frmJuntar.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/statusline.h"
#include "study/windows/actChoices.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <utility>

using study::MergeSubject;
using study::Pick;

bool FrmJuntar::eventFilter(QObject* object, QEvent* event)
{
    for (int side = 0; side < 2; ++side) {
        if (object != sides_.at(size_t(side)).box) continue;
        if (event->type() == QEvent::FocusIn && active_ != side) {
            active_ = side;
            clearPicks();
        }
        const auto* pressed = event->type() == QEvent::KeyPress ? static_cast<const QKeyEvent*>(event) : nullptr;
        if (pressed && pressed->modifiers() == Qt::NoModifier && key(side, pressed->key())) return true;
    }
    return Form::eventFilter(object, event);
}

// False for a key that the field has its own use for.
bool FrmJuntar::key(int side, int key)
{
    if (key == Qt::Key_Down || key == Qt::Key_Up) {
        if (picks_.isEmpty()) return false;
        const int row = lstQuem->listIndex() + (key == Qt::Key_Down ? 1 : -1);
        lstQuem->setListIndex(std::clamp(row, 0, int(picks_.size()) - 1));
        lstQuem->scrollToItem(lstQuem->currentItem());
        return true;
    }
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    guarded([&] {
        fillPicks();
        if (!sides_.at(size_t(side)).pick && !takeFromList())
            return showStatus("Escolha na lista quem é (↓ e Return), ou escreva o número.");
        Focus::setTo(side == 0 ? static_cast<QWidget*>(txtOutro) : txtRazao);
    });
    return true;
}

// A number names somebody at once; a name has the list filled.
void FrmJuntar::typed(int side)
{
    active_ = side;
    Side& one = sides_.at(size_t(side));
    const QString text = one.box->text();
    one.pick = study::pickNumbered(bdp_, subject(), text);
    bool isNumber = false;
    (void)text.trimmed().toLongLong(&isNumber);
    const bool names = !isNumber && !text.trimmed().isEmpty();
    one.label->setText(one.pick                                   ? one.pick->shown
                       : isNumber && study::isNumbered(subject()) ? QString("(não existe)")
                                                                  : QString());
    clearPicks();
    if (names) fillSoon();
    const bool wasShown = plan_.has_value();
    if (one.pick || wasShown) {
        const QSignalBlocker quiet(one.box);
        const int cursor = one.box->cursorPosition();
        showPair();
        one.box->setText(text);
        one.box->setCursorPosition(cursor);
    }
}

// Once for all letters that are typed in one go.
void FrmJuntar::fillSoon()
{
    if (std::exchange(fills_, true)) return;
    QTimer::singleShot(0, this, [this] { guarded([&] { fillPicks(); }); });
}

// The index of the names is made in pieces, between which the user can go on.
void FrmJuntar::prepareFinder()
{
    static constexpr std::chrono::milliseconds forTheUser{20};
    if (cnBDP.state() != jet::Connection::Open) return;
    if (finder_->prepare()) {
        showStatus("O índice dos nomes está pronto.");
        return fillSoon();
    }
    showStatus(QString("A preparar o índice dos nomes: %1 %.").arg(finder_->prepared()));
    preparing_.set(forTheUser);
}

void FrmJuntar::fillPicks()
{
    if (!std::exchange(fills_, false)) return;
    const Side& side = sides_.at(size_t(active_));
    if (side.pick) return;
    const QString text = side.box->text();
    picks_ = subject() == MergeSubject::People ? peopleNamed(text) : study::picks(bdp_, subject(), text);
    const QSignalBlocker quiet(lstQuem);
    lstQuem->clear();
    for (const Pick& pick : picks_)
        lstQuem->add(pick.shown);
    lstQuem->setListIndex(-1);
}

// Those whom an act would mean that tells nothing but the name.
QList<Pick> FrmJuntar::peopleNamed(const QString& name)
{
    QList<Pick> found;
    if (name.trimmed().isEmpty()) return found;
    if (!finder_->prepare()) {
        prepareFinder();
        return found;
    }
    study::Act act;
    act.people << study::ActPerson{.role = study::Role::Mentioned, .name = {.value = name}};
    const study::Conclusions open{.people = {study::Identity{}}};
    for (const study::Choice& choice : study::choicesOfPerson(act, 0, finder_->find(act, 0, open), {}).entries)
        if (choice.kind == study::Choice::Kind::Person) found << Pick{QString::number(choice.nind), choice.shown};
    return found;
}

bool FrmJuntar::takeFromList()
{
    const int row = lstQuem->listIndex();
    if (row < 0 || row >= picks_.size()) return false;
    const std::optional<Pick> pick = study::pickWithKey(bdp_, subject(), picks_[row].key);
    if (!pick) {
        showStatus("Já não está na BDP.");
        return false;
    }
    take(active_, pick);
    return true;
}

void FrmJuntar::take(int side, const std::optional<Pick>& pick)
{
    sides_.at(size_t(side)).pick = pick;
    clearPicks();
    showPair();
}

void FrmJuntar::clearPicks()
{
    const QSignalBlocker quiet(lstQuem);
    picks_.clear();
    lstQuem->clear();
}
