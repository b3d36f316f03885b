// A case is decided, and a decision taken back.
#include "study/windows/frmLigacoes.h"

#include "common/dono.h"
#include "common/modGeral.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "study/linkage/verdicts.h"
#include "study/windows/cards.h"
#include "study/windows/decisionNews.h"
#include "study/windows/frmJuntar.h"

#include <algorithm>
#include <utility>

using namespace study;
using linkage::Link;
using linkage::LinkKind;
using linkage::Record;

namespace {

MergeSubject subjectOf(const Link& link)
{
    return link.one.isPerson() ? MergeSubject::People : MergeSubject::Families;
}

QString keyOf(const Record& record)
{
    return QString::number(record.number);
}

// With all couples joined that can be.
linkage::MergePlan planOf(const Link& link)
{
    const QString kept = keyOf(link.one), other = keyOf(link.other);
    const linkage::MergePlan plan = planned(cnBDP, subjectOf(link), kept, other);
    return plan.isPossible() ? planned(cnBDP, subjectOf(link), kept, other, {.join = possibleJoins(plan)}) : plan;
}

} // namespace

void FrmLigacoes::cmdJuntar_Click()
{
    guarded([&] {
        if (const auto line = chosen(); line && !atWork_ && canMerge(line->link)) openMerge(line->link, {});
    });
}

void FrmLigacoes::openMerge(const Link& link, const QString& why)
{
    auto& window = theForm<FrmJuntar>();
    window.mostra(subjectOf(link), keyOf(link.one), keyOf(link.other));
    window.display();
    if (!why.isEmpty()) showStatus(why);
}

void FrmLigacoes::cmdMesmo_Click()
{
    guarded([&] {
        const auto line = chosen();
        if (!line || atWork_) return;
        const Link link = line->link;
        if (link.kind == LinkKind::Doubtful) {
            DecisionNews::all().during([&] { return linkage::confirm(cnBDP, link, txtRazao->text()); });
            txtRazao->clear();
            return showStatus("Dado por certo: " + labelOf(*parish_, link.one) + '.');
        }
        if (const QString busy = whyRowsAreInUse(); !busy.isEmpty()) return showMessage(busy);
        if (link.kind == LinkKind::NamedCouple) return setOrigin(link);
        sayTheSame(link);
    });
}

// Joined at once where there is nothing to ask; the plan is made anew, as the records may be others by now.
void FrmLigacoes::sayTheSame(const Link& link)
{
    const linkage::MergePlan plan = planOf(link);
    const linkage::MergePlan alone = // a spouse of both families isn't a double to look at
        planned(cnBDP, subjectOf(link), keyOf(link.one), keyOf(link.other));
    if (!plan.isPossible()) return showMessage("Não se pode juntar. " + plan.refusals.join(' '));
    const auto differs = [](const linkage::SameCouple& couple) {
        return !couple.differences.isEmpty() || !couple.refusals.isEmpty();
    };
    if (watch_->hasChanged()) return openMerge(link, "A BDP mudou desde a procura: veja os dois outra vez.");
    if (!plan.differences.isEmpty() || !alone.doubles.isEmpty() || std::ranges::any_of(plan.couples, differs))
        return openMerge(link, "Os dois diferem: decida o que vale.");
    if (isCopiedForToday()) merge(link);
}

void FrmLigacoes::merge(const Link& link)
{
    const QString kept = keyOf(link.one), other = keyOf(link.other);
    const QString told = labelOf(*parish_, link.other) + " é agora " + labelOf(*parish_, link.one) + '.';
    const linkage::MergePlan plan = planOf(link);
    const linkage::MergeChoices choices{
        .join = linkage::possibleJoins(plan), .reason = txtRazao->text(), .expected = plan.mark};
    try {
        const Hourglass hourglass;
        DecisionNews::all().during([&] { return merged(cnBDP, subjectOf(link), kept, other, choices); });
    } catch (const linkage::MergeRefused& refused) {
        return showMessage("Nada foi junto. " + refused.text);
    }
    txtRazao->clear();
    JanelaDoDono::fechaAsDe(link.one.isPerson() ? TipoDeDono::Individuo : TipoDeDono::Familia, other);
    for (const auto& couple : choices.join)
        JanelaDoDono::fechaAsDe(TipoDeDono::Familia, QString::number(couple.second));
    evenIfItFails([&] { showOnCards(); });
    QString joined = "Junto: " + told;
    for (const auto& [stays, gone] : choices.join)
        joined += QString(" A família nº %1 é agora a nº %2.").arg(gone).arg(stays);
    showStatus(joined);
}

void FrmLigacoes::setOrigin(const Link& link)
{
    const auto child = parish::PersonNumber(link.one.number);
    const auto family = parish::FamilyNumber(link.other.number);
    const QString told = labelOf(*parish_, link.one) + " é da " + labelOf(*parish_, link.other) + '.';
    try {
        DecisionNews::all().during([&] { return linkage::setOrigin(cnBDP, child, family, txtRazao->text()); });
    } catch (const linkage::MergeRefused& refused) {
        return showMessage("Nada foi escrito. " + refused.text);
    }
    txtRazao->clear();
    evenIfItFails([&] { showOnCards(); });
    showStatus(told);
}

void FrmLigacoes::cmdDistinto_Click()
{
    guarded([&] {
        const auto line = chosen();
        if (!line || atWork_ || !linkage::canTellApart(line->link)) return;
        const Link link = line->link;
        const QString one = labelOf(*parish_, link.one), other = labelOf(*parish_, link.other);
        DecisionNews::all().during([&] { return linkage::tellApart(cnBDP, link, txtRazao->text()); });
        txtRazao->clear();
        const char* const what = link.kind == LinkKind::NamedCouple  ? "Não são os pais: "
                                 : link.kind == LinkKind::SameFamily ? "Não são a mesma família: "
                                                                     : "Não são a mesma pessoa: ";
        showStatus(what + one + " e " + other + '.');
    });
}

// Until the next search of all, or until it is taken out from there.
void FrmLigacoes::cmdDepois_Click()
{
    guarded([&] {
        const auto line = chosen();
        if (!line || atWork_) return;
        list_.postpone(line->link, shown() != LinkList::Shown::Later);
        showLines();
    });
}

// The last decision that stands. One of another day is asked about: nobody may remember it.
void FrmLigacoes::cmdVoltar_Click()
{
    guarded([&] {
        const auto last = std::ranges::find_if(decisions_, &linkage::Decision::stands);
        if (atWork_ || last == decisions_.end()) return;
        const linkage::Decision decision = *last;
        const qint64 id = decision.id;
        if (const QString busy = whyRowsAreInUse(); !busy.isEmpty()) return showMessage(busy);
        QString reason = linkage::whyNotTakenBack(cnBDP, id);
        if (reason.isEmpty()) {
            if (id <= lastBefore_ && !ask("Deseja desfazer esta decisão de " +
                                          decision.when.toString("dd/MM/yyyy HH:mm") + "?\n" + decision.what.title))
                return;
            const Hourglass hourglass;
            reason = DecisionNews::all().during([&] { return linkage::takeBack(cnBDP, id); });
        }
        if (!reason.isEmpty()) return showMessage("A decisão não foi desfeita. " + reason);
        evenIfItFails([&] { showOnCards(); });
        showStatus("Desfeita: " + decision.what.title + '.');
    });
}
