#include "study/windows/frmDecisoes.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "store/session.h"
#include "study/windows/cards.h"
#include "study/windows/decisionNews.h"

#include <QMdiSubWindow>

#include <algorithm>

using study::linkage::Decision;

namespace {

QStringList cellsOf(const Decision& decision)
{
    const QString state = decision.stands() ? QString() : "desfeita em " + decision.undone.toString("dd/MM/yyyy HH:mm");
    return {decision.when.toString("dd/MM/yyyy HH:mm"), study::linkage::inWords(decision.what.kind),
            decision.what.title, decision.what.reason, state};
}

} // namespace

FrmDecisoes::FrmDecisoes() : Form(Name)
{
    setupUi(this);
    opensOn(dtgDecisoes, cmdFechar);
    connect(dtgDecisoes->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &FrmDecisoes::dtgDecisoes_Click);
    connect(cmdDesfazer, &CommandButton::clicked, this, &FrmDecisoes::cmdDesfazer_Click);
    connect(cmdFechar, &CommandButton::clicked, this, &FrmDecisoes::cmdFechar_Click);
}

void FrmDecisoes::Form_Load()
{
    guarded([&] { fillList(); });
    if (const auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget()))
        connect(frame, &QMdiSubWindow::aboutToActivate, this, &FrmDecisoes::keepUpToDate);
}

// An error was told when the window was opened: a box for it would bring the window to the front again and again.
void FrmDecisoes::keepUpToDate()
{
    try {
        fillList();
    } catch (const jet::Error&) {
    }
}

// The decision chosen stays so, wherever it stands by now.
void FrmDecisoes::fillList()
{
    const int before = dtgDecisoes->row();
    const std::optional<Decision> was = chosen();
    decisions_ = study::linkage::decisions(cnBDP);
    const int count = int(decisions_.size());
    lblTotal->setText(count == 0   ? QString("Ainda não há decisões.")
                      : count == 1 ? QString("1 decisão")
                                   : QString::number(count) + " decisões");
    const bool bare = dtgDecisoes->rows() == 0; // otherwise the widths are the user's
    dtgDecisoes->setRows(count == 0 ? 0 : count + 1);
    if (count > 0) {
        if (bare)
            dtgDecisoes->setColumns({{"Data", 120}, {"Decisão", 130}, {"O quê", 320}, {"Razão", 130}, {"Desfeita"}});
        dtgDecisoes->fill(count + 1, [this](int row) -> QStringList {
            return row < 1 || row > decisions_.size() ? QStringList{} : cellsOf(decisions_[row - 1]);
        });
        const auto same =
            std::ranges::find_if(decisions_, [&](const Decision& one) { return was && one.id == was->id; });
        dtgDecisoes->setRow(same == decisions_.end() ? std::clamp(before, 1, count)
                                                     : int(same - decisions_.begin()) + 1);
    }
    dtgDecisoes_Click();
}

std::optional<Decision> FrmDecisoes::chosen() const
{
    const int row = dtgDecisoes->row();
    if (row < 1 || row > decisions_.size()) return {};
    return decisions_[row - 1];
}

void FrmDecisoes::dtgDecisoes_Click()
{
    const std::optional<Decision> decision = chosen();
    cmdDesfazer->setEnabled(decision && decision->stands());
}

void FrmDecisoes::cmdDesfazer_Click()
{
    guarded([&] {
        const std::optional<Decision> decision = chosen();
        if (!decision || !decision->stands()) return;
        if (const QString busy = study::whyRowsAreInUse(); !busy.isEmpty()) return showMessage(busy);
        QString reason = study::linkage::whyNotTakenBack(cnBDP, decision->id);
        if (reason.isEmpty()) {
            if (!ask("Deseja desfazer esta decisão?\n" + decision->what.title +
                     "\nAs linhas que ela mudou voltam a ser como eram."))
                return;
            const Hourglass hourglass;
            reason = study::DecisionNews::all().during([&] { return study::linkage::takeBack(cnBDP, decision->id); });
        }
        fillList();
        if (!cmdDesfazer->isEnabled())
            Focus::setTo(dtgDecisoes->rows() > 0 ? dtgDecisoes : static_cast<QWidget*>(cmdFechar));
        if (!reason.isEmpty()) return showMessage("A decisão não foi desfeita. " + reason);
        evenIfItFails([&] { study::showOnCards(); });
        showStatus("Desfeita: " + decision->what.title + '.');
    });
}

void FrmDecisoes::cmdFechar_Click()
{
    unload();
}
