// What will be written, and what speaks against it.
#include "study/windows/frmActo.h"

#include "platform/forms/focus.h"
#include "platform/forms/statusline.h"
#include "store/session.h"

#include <QSignalBlocker>

#include <algorithm>
#include <iterator>

using study::Field;
using study::Objection;
using study::Role;
using study::Spot;

namespace {

// "moradores em": told once for both, it is written in the row of the mother.
void shareResidence(study::Sheet& sheet)
{
    const int child = study::personWith(sheet.act, Role::Child);
    if (child < 0) return;
    const int father = study::personWith(sheet.act, Role::Father, child);
    const int mother = study::personWith(sheet.act, Role::Mother, child);
    if (father < 0 || mother < 0 || study::nameOf(sheet.act.people[father]).isEmpty()) return;
    const Spot his{father, Field::Residence};
    if (study::text(sheet, his).isEmpty()) study::setText(sheet, his, study::text(sheet, {mother, Field::Residence}));
}

} // namespace

// A field was left: what follows from it, what will be written, and the draft.
void FrmActo::settle()
{
    if (sheet_ == settled_) return;
    const bool freshResidence = [this] {
        const int child = study::personWith(sheet_.act, Role::Child);
        const int mother = child < 0 ? -1 : study::personWith(sheet_.act, Role::Mother, child);
        const Spot hers{mother, Field::Residence};
        return mother >= 0 && study::text(settled_, hers) != study::text(sheet_, hers);
    }();
    if (freshResidence) shareResidence(sheet_);
    study::addWhatFollows(sheet_);
    settled_ = sheet_;
    showSheet();
    keepDraft();
    plan();
}

void FrmActo::plan()
{
    given_ = study::trimmed(sheet_);
    plan_ = reads() || !isTyped() ? study::Plan{} : study::planned(bdp_, given_.sheet.act, given_.sheet.conclusions);
    showPlan();
}

// Whom the act is about is missed only where the user has gone past them.
bool FrmActo::isEarlyToAsk(const Objection& objection) const
{
    if (wasRefused_ || !objection.id.startsWith("sem-sujeito") || objection.person < 0) return false;
    if (!spot_) return true;
    if (spot_->person < 0) return study::headFields().contains(spot_->field) || spot_->field == Field::ActNotes;
    return spot_->person == study::celebrantOf(sheet_.act) || spot_->person <= given_.from.value(objection.person);
}

// What may surprise stands first. That the cards have no place of a ceremony is so with every act.
void FrmActo::showPlan()
{
    QStringList lines = study::marks(given_.sheet.act), always;
    for (const QString& text : plan_.leftOut)
        (text.startsWith("Lugar da cerimónia") ? always : lines) << "Fica só no acto: " + text;
    lines += plan_.sentences + always;
    txtFrases->setText(isTyped() || reads() ? lines.join('\n') : QString());
    plan_.objections.removeIf([this](const Objection& one) { return isEarlyToAsk(one); });
    const QSignalBlocker quiet(lstObjec);
    lstObjec->clear();
    for (const Objection& objection : std::as_const(plan_.objections))
        lstObjec->add(objection.text);
    const bool any = std::ranges::any_of(plan_.objections, [](const Objection& one) { return !one.hard; });
    chooseWhatCanBeOverruled();
    txtRazao->setEnabled(any);
    cmdAceitar->setEnabled(any);
}

// The objection that is chosen, if it is one of these, or else the first of them.
void FrmActo::chooseWhatCanBeOverruled()
{
    const int chosen = lstObjec->listIndex();
    if (chosen >= 0 && chosen < plan_.objections.size() && !plan_.objections[chosen].hard) return;
    const auto soft = std::ranges::find_if(plan_.objections, [](const Objection& one) { return !one.hard; });
    const QSignalBlocker quiet(lstObjec);
    lstObjec->setCurrentRow(soft == plan_.objections.end() ? -1 : int(soft - plan_.objections.begin()));
}

// The field that an objection speaks of has the focus after this, and the objection is the one that is chosen.
void FrmActo::goToWhatIsObjected(const Objection& objection)
{
    struct Rule
    {
        const char* id;
        Field field;
    };
    static constexpr Rule rules[] = {{"data-impossivel", Field::Date},
                                     {"sem-data", Field::Date},
                                     {"data-futura", Field::Date},
                                     {"ano-improvavel", Field::Date},
                                     {"acto-repetido", Field::Number}};
    const auto rule = std::ranges::find_if(rules, [&](const Rule& one) { return objection.id.startsWith(one.id); });
    if (objection.person >= 0)
        goTo({given_.from.value(objection.person), Field::Name});
    else if (rule != std::end(rules))
        goTo({.field = rule->field});
    const QSignalBlocker quiet(lstObjec);
    lstObjec->setCurrentRow(int(plan_.objections.indexOf(objection)));
}

void FrmActo::askForReason()
{
    if (reads()) return;
    settle();
    if (!txtRazao->isEnabled()) return showStatus("Não há objecções que se possam aceitar.");
    chooseWhatCanBeOverruled();
    Focus::setTo(txtRazao);
}

// Of the objection that is chosen, or else of the first that can be overruled.
void FrmActo::overrule()
{
    const QString reason = txtRazao->text().trimmed();
    const int chosen = lstObjec->listIndex();
    if (chosen < 0 || chosen >= plan_.objections.size()) return;
    const Objection& objection = plan_.objections[chosen];
    if (objection.hard) return showStatus("Esta objecção não se pode aceitar: falta o que o acto tem de ter.");
    if (reason.isEmpty()) return showStatus("Escreva por que razão a objecção não vale.");
    sheet_.conclusions.overruled.insert(study::onWholeSheet(objection.id, given_), reason);
    txtRazao->clear();
    settle();
    Focus::setTo(txtRazao->isEnabled() ? static_cast<QWidget*>(txtRazao) : cmdGravar);
}
