// An act begins, and is kept as the draft of the BDP until it is stored.
#include "study/windows/frmActo.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "store/session.h"
#include "study/windows/actList.h"

#include <QTimer>

#include <utility>

void FrmActo::Form_Load()
{
    finder_ = std::make_unique<study::Finder>(bdp_);
    connect(&preparing_, &Alarm::rings, this, &FrmActo::prepareFinder);
    fillParishes();
    before_ = study::lastAct(bdp_);
    beginNext(before_ ? before_->act.kind : study::ActKind::Baptism);
    // Behind the event: the list of acts may have opened it to show one.
    QTimer::singleShot(0, this, [this] {
        guarded([&] {
            if (!reads()) offerDraft();
        });
    });
}

// Puts the sheet on the screen, with the focus on the first field to fill.
void FrmActo::begin(const study::Sheet& sheet)
{
    sheet_ = sheet;
    settled_ = sheet;
    spot_.reset();
    person_ = 0;
    fills_ = false;
    expectedIn_ = -1;
    unplaced_.clear();
    wasRefused_ = false;
    lblGravado->clear();
    fillChoices();
    showSheet();
    plan();
    goTo(reads() ? study::Spot{} : study::firstSpot(sheet_, before_));
}

void FrmActo::beginNext(study::ActKind kind)
{
    viewed_.reset();
    untouched_ = study::newSheet(kind, before_);
    saved_ = untouched_;
    begin(untouched_);
}

bool FrmActo::isTyped() const
{
    return !reads() && sheet_ != untouched_;
}

void FrmActo::offerDraft()
{
    const auto draft = study::savedDraft(bdp_);
    if (!draft) return;
    const QString title = study::kindTitle(draft->act.kind);
    const bool goesOn = askWhetherToStore("Há um acto por acabar (" + study::titleOf(draft->act) + "). Continuar?") ||
                        !ask("O acto por acabar (" + title + ") perde-se. Deitar fora o que está escrito?");
    if (!goesOn) return study::dropDraft(bdp_);
    goOnWith(*draft);
}

void FrmActo::goOnWith(const study::ActDraft& draft)
{
    viewed_.reset();
    untouched_ = study::newSheet(draft.act.kind, before_);
    saved_ = study::sheetOf(draft.act, draft.conclusions);
    begin(saved_);
}

// A failure is told once, until one is saved again.
bool FrmActo::keepDraft()
{
    if (reads() || sheet_ == saved_) return true;
    try {
        if (isTyped()) {
            study::saveDraft(bdp_, sheet_.act, sheet_.conclusions);
            prepareFinder();
        } else {
            study::dropDraft(bdp_);
        }
        saved_ = sheet_;
        draftFails_ = false;
        return true;
    } catch (const jet::Error& error) {
        if (!std::exchange(draftFails_, true))
            showMessage("O rascunho do acto não pôde ser guardado: " + error.description +
                        "\nO que está escrito continua nesta janela.");
        return false;
    }
}

bool FrmActo::Form_QueryUnload(UnloadMode)
{
    if (reads() || programEnding()) return true;
    const bool kept = keepDraft();
    if (!kept) return ask("O rascunho do acto não pode ser guardado. Fechar e perder o que está escrito?");
    if (isTyped()) showStatus("O acto por acabar fica guardado como rascunho.");
    return true;
}

// A box has come up, or another program: it may be the end of this one.
bool FrmActo::event(QEvent* event)
{
    if (event->type() == QEvent::WindowDeactivate && cnBDP.state() == jet::Connection::Open) keepDraft();
    return Form::event(event);
}

void FrmActo::cmbActo_Click()
{
    guarded([&] {
        const auto kind = study::ActKind(cmbActo->itemData(cmbActo->listIndex()));
        if (reads() || kind == sheet_.act.kind) return;
        if (!isTyped()) return beginNext(kind);
        untouched_ = study::newSheet(kind, before_);
        begin(study::withKind(sheet_, kind, before_));
        settled_ = {};
        settle();
    });
}

// Gives the act in work up, or goes from a stored one to the act in work.
void FrmActo::cmdNovo_Click()
{
    guarded([&] {
        const auto kind = sheet_.act.kind;
        if (reads()) {
            const auto draft = study::savedDraft(bdp_);
            return draft ? goOnWith(*draft) : beginNext(before_ ? before_->act.kind : kind);
        }
        if (isTyped() && !ask("O que está escrito deste acto perde-se. Começar outro?")) return;
        study::dropDraft(bdp_);
        beginNext(kind);
    });
}
