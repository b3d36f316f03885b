#include "study/windows/frmRepor.h"

#include "common/ficha.h"
#include "common/instrucao.h"
#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "study/windows/cards.h"

#include <QMdiSubWindow>

#include <algorithm>

namespace {

// "", or why nothing was put back.
QString restored(const std::optional<lixo::Eliminacao>& deletion)
{
    const Hourglass hourglass;
    return deletion ? lixo::repoe(cnBDP, deletion->id) : "Esta eliminação já não está guardada na BDP.";
}

QList<Ficha*> loadedCards()
{
    QList<Ficha*> cards;
    for (QWidget* form : Forms::loaded())
        if (auto* card = qobject_cast<Ficha*>(form)) cards << card;
    return cards;
}

} // namespace

FrmRepor::FrmRepor() : Form(Name)
{
    setupUi(this);
    opensOn(dtgElim, cmdFechar);
    connect(cmdRepor, &CommandButton::clicked, this, &FrmRepor::cmdRepor_Click);
    connect(cmdFechar, &CommandButton::clicked, this, &FrmRepor::cmdFechar_Click);
}

void FrmRepor::Form_Load()
{
    guarded([&] { fillList(); });
    if (const auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget()))
        connect(frame, &QMdiSubWindow::aboutToActivate, this, &FrmRepor::keepUpToDate);
}

// An error was told when the window was opened: a box for it would bring the window to the front again and again.
void FrmRepor::keepUpToDate()
{
    try {
        fillList();
    } catch (const jet::Error&) {
    }
}

// A BDP in which nobody was deleted has no table. The deletion chosen stays so, wherever it stands by now.
void FrmRepor::fillList()
{
    const int before = dtgElim->row();
    const auto chosen = before > 0 ? deletionIn(before) : std::nullopt;
    int count = 0;
    if (lixo::temLixo(cnBDP)) {
        deletions_.setRecordSource(lixo::consulta());
        deletions_.refresh();
        count = deletions_.recordset().recordCount();
    }
    cmdRepor->setEnabled(count > 0);
    lblTotal->setText(count == 0   ? QString("Nada foi eliminado.")
                      : count == 1 ? QString("1 eliminação")
                                   : QString::number(count) + " eliminações");
    dtgElim->setRows(count == 0 ? 0 : count + 1);
    if (count == 0) return;
    dtgElim->setColumns({{"Data", 150}, {"Eliminado"}});
    dtgElim->fill(count + 1, [this](int row) -> QStringList {
        const auto deletion = deletionIn(row);
        if (!deletion) return {};
        return {deletion->quando.toString("dd/MM/yyyy HH:mm:ss"), deletion->designacao()};
    });
    const int same = std::clamp(before, 1, count);
    dtgElim->setRow(chosen ? rowOf(chosen->id).value_or(same) : same);
}

std::optional<int> FrmRepor::rowOf(qint64 id)
{
    jet::Recordset& deletions = deletions_.recordset();
    deletions.moveFirst();
    deletions.find("id = " + chaveEmSQL(id));
    if (deletions.eof()) return {};
    return deletions.absolutePosition();
}

std::optional<lixo::Eliminacao> FrmRepor::deletionIn(int row)
{
    try {
        deletions_.recordset().setAbsolutePosition(row);
        return lixo::eliminacao(deletions_.recordset());
    } catch (const jet::Error&) {
        return {};
    }
}

void FrmRepor::cmdRepor_Click()
{
    guarded([&] {
        if (dtgElim->row() == 0) return;
        if (const QString busy = study::whyCardsAreBusy(); !busy.isEmpty()) return showMessage(busy);
        const auto chosen = deletionIn(dtgElim->row());
        const QString reason = restored(chosen);
        if (!reason.isEmpty()) showMessage("Nada foi reposto. " + reason);
        if (!chosen || reason.isEmpty()) fillList();
        if (!cmdRepor->isEnabled()) Focus::setTo(cmdFechar);
        if (!reason.isEmpty()) return;
        showOnCards(*chosen);
        showStatus("Reposto: " + chosen->designacao() + '.');
    });
}

// The card of the other kind stays on its record, whose links may be back.
void FrmRepor::showOnCards(const lixo::Eliminacao& deletion)
{
    for (Ficha* card : loadedCards()) {
        const bool families = card->name() == "frmFam";
        const bool ofItsKind = families == (deletion.tipo == lixo::Tipo::Familia);
        const QString number = ofItsKind ? deletion.numero : card->numero();
        card->releFicheiro(number.isEmpty() ? QString() : (families ? "nfamilia = " : "nind = ") + number);
    }
}

void FrmRepor::cmdFechar_Click()
{
    unload();
}
