// An act is stored, taken back, or shown again.
#include "study/windows/frmActo.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "platform/jet/transaction.h"
#include "store/session.h"
#include "study/acts/writer.h"
#include "study/windows/cards.h"

using study::Role;

namespace {

QString numbered(const QString& what, qint64 number)
{
    return number == 0 ? QString() : what + " nº " + QString::number(number);
}

// "Gravado: baptismo n.º 7, criança nº 143, família 29."
QString storedText(const study::Act& act, const study::Plan& plan)
{
    QStringList parts{study::kindTitle(act.kind).toLower()};
    if (!act.number.isEmpty()) parts[0] += " n.º " + act.number;
    for (const int subject : study::subjects(act)) {
        const QString title = act.people[subject].role == Role::Child ? "criança" : study::roleTitle(act, subject);
        parts << numbered(title, plan.people.value(subject));
    }
    if (plan.family != 0) parts << "família " + QString::number(plan.family);
    parts.removeAll(QString());
    return "Gravado: " + parts.join(", ") + '.';
}

// The store and the end of the draft reach the disk together.
study::Stored storeWithItsDraft(jet::Connection& bdp, const study::Sheet& sheet)
{
    const Hourglass hourglass;
    jet::Transaction transaction(bdp);
    study::Stored stored = study::storeAct(bdp, sheet.act, sheet.conclusions);
    study::dropDraft(bdp);
    transaction.commit();
    return stored;
}

} // namespace

void FrmActo::store()
{
    if (spot_ && window()->focusWidget() == widgetFor(*spot_) && !takeWhatIsChosen()) return;
    if (const QString busy = study::whyCardsAreBusy(); !busy.isEmpty()) return showMessage(busy);
    study::addWhatFollows(sheet_);
    settled_ = sheet_;
    showSheet();
    if (!isTyped()) return showStatus("Ainda não há nada escrito neste acto.");
    wasRefused_ = true; // until it is stored, nothing is too early to be asked
    plan();
    if (!plan_.objections.isEmpty()) {
        keepDraft();
        const study::Objection first = plan_.objections.first();
        goToWhatIsObjected(first);
        return showStatus("O acto não foi gravado: " + first.text);
    }
    try {
        const study::Stored stored = storeWithItsDraft(bdp_, given_.sheet);
        untouched_ = saved_ = sheet_; // whatever fails from here on: it is no act in work any more
        showStored(given_.sheet.act, stored.plan);
    } catch (const jet::Error&) {
        keepDraft();
        throw;
    } catch (const study::Refused& refused) { // another program has written meanwhile
        plan_.objections = refused.objections;
        showPlan();
        if (!plan_.objections.isEmpty()) goToWhatIsObjected(study::Objection(plan_.objections.first()));
        showStatus("O acto não foi gravado: " + refused.objections.value(0).text);
    }
}

void FrmActo::showStored(const study::Act& act, const study::Plan& plan)
{
    const QString told = storedText(act, plan);
    evenIfItFails([&] { finder_->update(); });
    evenIfItFails([&] { study::showOnCards(); });
    before_ = study::lastAct(bdp_);
    if (before_) stored_ = before_->id;
    beginNext(act.kind);
    lblGravado->setText(told);
    showStatus(told);
}

void FrmActo::cmdGravar_Click()
{
    guarded([&] { store(); });
}

// Takes a stored act back, and puts it on the sheet to be corrected.
void FrmActo::undo(qint64 act)
{
    if (const QString busy = study::whyCardsAreBusy(); !busy.isEmpty()) return showMessage(busy);
    const auto record = study::readAct(bdp_, act);
    if (!record) return showMessage("O acto já não está na BDP.");
    if (const QString reason = study::whyNotUndone(bdp_, act); !reason.isEmpty())
        return showMessage("O acto não pode ser desfeito. " + reason);
    const QString title = study::reference(record->act);
    if (!ask("Desfazer o acto (" + title + ")? As linhas que ele escreveu são tiradas, e ele fica aqui por gravar."))
        return;
    const study::Conclusions conclusions = study::withKnownSexes(bdp_, record->act, record->conclusions);
    {
        jet::Transaction transaction(bdp_);
        if (const QString reason = study::undoAct(bdp_, act); !reason.isEmpty())
            return showMessage("O acto não pode ser desfeito. " + reason);
        study::saveDraft(bdp_, record->act, conclusions);
        transaction.commit();
    }
    study::closeWindowsOf(record->written);
    evenIfItFails([&] { finder_->update(); });
    evenIfItFails([&] { study::showOnCards(); });
    before_ = study::lastAct(bdp_);
    viewed_.reset();
    stored_.reset();
    untouched_ = study::newSheet(record->act.kind, before_);
    saved_ = study::sheetOf(record->act, conclusions);
    begin(saved_);
    lblGravado->clear();
    showStatus("Desfeito: " + title + ". Está aqui para ser corrigido.");
}

void FrmActo::cmdDesfazer_Click()
{
    guarded([&] {
        if (isTyped()) return showMessage("Grave ou abandone primeiro o acto que está escrito.");
        before_ = study::lastAct(bdp_);
        if (!before_) return showStatus("Não há actos transcritos.");
        undo(before_->id);
    });
}

void FrmActo::cmdCorrigir_Click()
{
    guarded([&] {
        if (!reads()) return;
        if (study::savedDraft(bdp_)) return showMessage("Há um acto por acabar: acabe-o primeiro.");
        undo(*viewed_);
    });
}

void FrmActo::mostra(qint64 act)
{
    guarded([&] {
        if (!keepDraft()) return showMessage("O acto que está escrito não pôde ser guardado: continua aqui.");
        const auto record = study::readAct(bdp_, act);
        if (!record) return showMessage("O acto já não está na BDP.");
        viewed_ = act;
        begin({.act = record->act, .conclusions = study::withKnownSexes(bdp_, record->act, record->conclusions)});
        lblGravado->setText("Gravado em " + record->stored.toString("dd/MM/yyyy HH:mm") + '.');
    });
}

// Whom the user has chosen in the list, or else who stands in the row; 0 for none.
qint64 FrmActo::personInFocus() const
{
    const int entry = lstQuem->listIndex();
    if (chosen_ && entry >= 0 && entry < choices_.entries.size())
        if (const auto& choice = choices_.entries[entry]; choice.kind == study::Choice::Kind::Person)
            return choice.nind;
    if (!spot_ || spot_->person < 0) return 0;
    return sheet_.conclusions.people.value(spot_->person).nind;
}

// Else that of whom the act is about that is shown or was stored last.
void FrmActo::cmdFicha_Click()
{
    guarded([&] {
        if (const qint64 nind = personInFocus(); nind != 0) return study::showOnCard("frmInd", nind);
        const bool isTyping = !reads() && spot_ && spot_->person >= 0;
        if (isTyping && !study::nameOf(sheet_.act.people[spot_->person]).isEmpty())
            return showStatus("Ainda não há ficha para abrir."); // that of the act before is somebody else's
        const auto id = reads() ? viewed_ : stored_;
        const auto record = id ? study::readAct(bdp_, *id) : std::nullopt;
        if (!record) return showStatus("Ainda não há ficha para abrir.");
        if (record->act.kind == study::ActKind::Marriage && !record->families.isEmpty())
            return study::showOnCard("frmFam", record->families.first());
        const int subject = study::subjects(record->act).value(0, -1);
        const qint64 nind = record->people.value(subject);
        if (nind == 0) return showStatus("O acto não tem ficha.");
        study::showOnCard("frmInd", nind);
    });
}
