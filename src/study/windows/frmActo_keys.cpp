// Keys: where they lead, and what they do to the rows.
#include "study/windows/frmActo.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"

#include <QKeyEvent>
#include <QMenu>

#include <algorithm>
#include <iterator>

using study::Field;
using study::Spot;

namespace {

// Each title with a letter of its own to choose it by, as far as there are any.
QStringList withLetters(const QList<study::NewRow>& rows)
{
    QString taken;
    QStringList captions;
    captions.reserve(rows.size());
    for (const study::NewRow& row : rows) {
        const auto isFree = [&taken](QChar letter) { return letter.isLetter() && !taken.contains(letter.toLower()); };
        const auto letter = std::ranges::find_if(row.title, isFree);
        QString caption = row.title;
        if (letter != row.title.end()) {
            taken += letter->toLower();
            caption.insert(letter - row.title.begin(), '&');
        }
        captions << caption;
    }
    return captions;
}

} // namespace

bool FrmActo::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) return Form::eventFilter(object, event);
    bool used = false;
    guarded([&] { used = key(object, *static_cast<const QKeyEvent*>(event)); });
    return used || Form::eventFilter(object, event);
}

bool FrmActo::key(QObject* object, const QKeyEvent& event)
{
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::ControlModifier) return keyWithControl(event.key());
    if (modifiers == Qt::AltModifier && event.key() >= Qt::Key_0 && event.key() <= Qt::Key_9)
        return takeNumber(event.key() - Qt::Key_0);
    if (modifiers == Qt::AltModifier && event.key() == Qt::Key_Minus) return takeKept();
    return modifiers == Qt::NoModifier && plainKey(object, event.key());
}

bool FrmActo::keyWithControl(int key)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!reads()) store();
        return true;
    case Qt::Key_Plus:
        openMenuOfRows();
        return true;
    case Qt::Key_Minus:
        removeTheRow();
        return true;
    default:
        return false;
    }
}

bool FrmActo::plainKey(QObject* object, int key)
{
    switch (key) {
    case Qt::Key_F3:
        cmdFicha_Click();
        return true;
    case Qt::Key_F4:
        openMenuOfRows();
        return true;
    case Qt::Key_F6:
        repeat();
        return true;
    case Qt::Key_F7:
        openDetails();
        return true;
    case Qt::Key_F8:
        askForReason();
        return true;
    default:
        break;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) return enter(object);
    if (object == cmbActo && chooseKind(key)) return true;
    if (!spotOf(object)) return false;
    if (key == Qt::Key_Down || key == Qt::Key_Up) return moveChoice(key == Qt::Key_Down ? 1 : -1);
    if (key == Qt::Key_Escape && chosen_) {
        chosen_ = false;
        showChoices();
        return true;
    }
    return false;
}

bool FrmActo::enter(QObject* object)
{
    const auto spot = spotOf(object);
    if (object == txtRazao)
        overrule();
    else if (object == lstQuem)
        takeEntry(lstQuem->listIndex());
    else if (spot && takeWhatIsChosen())
        goOn(*spot);
    return spot || object == txtRazao || object == lstQuem;
}

// By the first letter, which the list itself would not take for "Ó".
bool FrmActo::chooseKind(int key)
{
    static constexpr Qt::Key letters[] = {Qt::Key_B, Qt::Key_C, Qt::Key_O};
    const auto letter = std::ranges::find(letters, key);
    if (letter == std::end(letters) || reads()) return false;
    cmbActo->setListIndex(int(letter - std::begin(letters)));
    cmbActo_Click();
    return true;
}

// Behind the last field stands the command that stores.
void FrmActo::goOn(const Spot& from)
{
    if (reads()) return;
    const qsizetype rows = sheet_.act.people.size();
    study::addWhatFollows(sheet_);
    if (sheet_.act.people.size() != rows) expectedIn_ = -1, showSheet();
    const auto next = study::nextSpot(sheet_, from, before_);
    if (!next) return Focus::setTo(cmdGravar);
    goTo(*next);
}

bool FrmActo::focusNextPrevChild(bool next)
{
    const auto spot = spotOf(window()->focusWidget());
    if (!spot) return Form::focusNextPrevChild(next);
    for (auto there = study::neighbour(sheet_, *spot, next); there; there = study::neighbour(sheet_, *there, next))
        if (goTo(*there)) return true;
    QWidget* edge = next ? static_cast<QWidget*>(lstQuem) : cmbActo;
    edge->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void FrmActo::repeat()
{
    if (!spot_ || reads()) return;
    const QString last = study::lastText(sheet_, *spot_, before_);
    if (last.isEmpty()) return showStatus("Este campo ainda não tem um valor anterior.");
    if (study::text(sheet_, *spot_) == last) return;
    study::setText(sheet_, *spot_, last);
    if (spot_->field == Field::Name && spot_->person >= 0) {
        expectedIn_ = spot_->person;
        expected_ = study::lastPerson(sheet_, spot_->person, before_);
    }
    if (QWidget* field = widgetFor(*spot_)) showField(field, *spot_);
    showAfterTyping(*spot_);
    fillSoon();
}

// From a row, or from the celebrant, to what else is told of the person, and back.
void FrmActo::openDetails()
{
    if (!spot_ || spot_->person < 0)
        return showStatus("Os pormenores são de uma pessoa: escolha primeiro a linha dela.");
    const bool there = fraPessoa->isAncestorOf(window()->focusWidget());
    goTo({spot_->person, there ? Field::Name : Field::StandardName});
}

void FrmActo::openMenuOfRows()
{
    if (reads() || !takeWhatIsChosen()) return;
    const int person = spot_ ? spot_->person : -1;
    const QList<study::NewRow> rows = study::addable(sheet_.act, person);
    const QStringList captions = withLetters(rows);
    auto* menu = new QMenu(this);
    menu->setObjectName("mnuJuntar");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const auto* item = menu->addAction(captions[i]);
        connect(item, &QAction::triggered, this, [this, row = rows[i]] { guarded([&] { addRowOf(row); }); });
    }
    menu->setActiveAction(menu->actions().constFirst());
    menu->popup(cmdJuntar->mapToGlobal(QPoint(0, 0)));
}

// The sheet may have lost the owner of the row while the menu was open.
void FrmActo::addRowOf(const study::NewRow& row)
{
    if (reads() || row.of >= sheet_.act.people.size()) return;
    const int person = study::addRow(sheet_, row.role, row.of);
    expectedIn_ = -1;
    showSheet();
    goTo({person, Field::Name});
}

void FrmActo::removeTheRow()
{
    if (reads() || !spot_ || spot_->person < 0) return;
    const int person = spot_->person;
    if (study::subjects(sheet_.act).contains(person))
        return showStatus("Esta linha não se tira: é de quem o acto trata.");
    const QString title = study::roleTitle(sheet_, person);
    if (!study::isEmptyRow(sheet_.act, person) && !ask("Tirar do acto a linha \"" + title + "\" com o que ela tem?"))
        return;
    study::removeRow(sheet_, person);
    expectedIn_ = -1;
    showSheet();
    settle();
    goTo({std::clamp(person, 0, int(sheet_.act.people.size()) - 1), Field::Name});
}

void FrmActo::cmdJuntar_Click()
{
    guarded([&] { openMenuOfRows(); });
}
