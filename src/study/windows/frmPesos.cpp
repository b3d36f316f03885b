#include "study/windows/frmPesos.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "study/windows/decisionNews.h"
#include "study/windows/frmLigacoes.h"
#include "study/windows/parishCopy.h"

#include <QSignalBlocker>

#include <utility>

using namespace study;
using linkage::Model;

FrmPesos::FrmPesos() : Form(Name), draft_(linkage::startModel()), base_(draft_)
{
    setupUi(this);
    opensOn(dtgPesos, cmdFechar);
    barra->hide();
    connect(dtgPesos->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &FrmPesos::dtgPesos_Click);
    for (TextBox* const box : {txtM, txtU}) {
        connect(box, &TextBox::returnPressed, this, &FrmPesos::cmdMudar_Click);
        connect(box, &TextBox::textEdited, this, &FrmPesos::showState);
    }
    connect(cmdMudar, &CommandButton::clicked, this, &FrmPesos::cmdMudar_Click);
    connect(cmdEstimar, &CommandButton::clicked, this, &FrmPesos::cmdEstimar_Click);
    connect(cmdCancelar, &CommandButton::clicked, this, [this] {
        if (work_) work_->cancel();
    });
    connect(cmdIniciais, &CommandButton::clicked, this, &FrmPesos::cmdIniciais_Click);
    connect(cmdGravar, &CommandButton::clicked, this, &FrmPesos::cmdGravar_Click);
    connect(cmdAnular, &CommandButton::clicked, this, &FrmPesos::cmdAnular_Click);
    connect(cmdFechar, &CommandButton::clicked, this, [this] { unload(); });
    setAtWork(false);
}

FrmPesos::~FrmPesos() = default;

void FrmPesos::Form_Load()
{
    guarded([&] { kept_ = linkage::storedModel(cnBDP); });
    origin_ = kept_ ? "São os que estão gravados nesta BDP." : "São os valores iniciais.";
    take(kept_.value_or(linkage::startModel()));
}

void FrmPesos::mostra(const Model& ofSearch)
{
    if (kept_ || work_ || isAltered()) return;
    origin_ = "São os que a última procura estimou.";
    take(ofSearch);
}

bool FrmPesos::Form_QueryUnload(UnloadMode mode)
{
    if (mode == UnloadMode::Application || !isAltered()) return true;
    bool isWanted = false, isStored = false;
    guarded([&] {
        isWanted = askWhetherToStore("Os pesos foram alterados. Deseja gravá-los nesta BDP?");
        if (!isWanted || !takeTyped()) return;
        keep();
        isStored = true;
    });
    // What can't be stored stays in sight, but it is not for the next BDP.
    return !isWanted || isStored || Forms::isUnloadingAll();
}

// Nothing is altered then.
void FrmPesos::take(const Model& model)
{
    draft_ = base_ = model;
    fillGrid();
    showValues();
}

// Another line is chosen: what was typed for the one before is taken over first.
void FrmPesos::dtgPesos_Click()
{
    guarded([&] {
        const int wanted = dtgPesos->row();
        if (wanted == shown_) return;
        const QSignalBlocker quiet(dtgPesos->selectionModel());
        const bool taken = takeTyped();
        dtgPesos->setRow(taken ? wanted : shown_);
        dtgPesos->viewport()->update();
        if (taken) showValues();
    });
}

void FrmPesos::cmdMudar_Click()
{
    guarded([&] {
        if (!takeTyped()) return;
        showValues();
        Focus::setTo(dtgPesos);
    });
}

// From the values that the program brings, and with the limits that are shown.
void FrmPesos::cmdEstimar_Click()
{
    guarded([&] {
        if (work_ || !takeTyped()) return;
        Model start = draft_;
        start.weights = linkage::startModel().weights;
        auto copy = std::make_shared<ParishCopy>(cnBDP);
        found_ = std::make_shared<Model>();
        work_ = std::make_unique<Background>(
            [copy = std::move(copy), found = found_, start = std::move(start)](const Background::GoesOn& goesOn) {
                static constexpr double readOfAll = 0.3; // of the time
                const auto parish = parish::Snapshot::read(copy->open(), partOf(goesOn, 0, readOfAll));
                copy->close();
                *found = linkage::estimated(parish, start, partOf(goesOn, readOfAll, 1));
            });
        connect(work_.get(), &Background::progressed, barra, &QProgressBar::setValue);
        connect(work_.get(), &Background::ended, this, &FrmPesos::ended);
        setAtWork(true);
    });
}

void FrmPesos::ended()
{
    guarded([&] {
        if (!work_) return;
        const Outcome outcome = takeOutcome(work_);
        setAtWork(false);
        if (outcome.cancelled) return showStatus("A estimativa foi cancelada.");
        if (!outcome.isResult()) return showMessage("Os pesos não foram estimados: " + outcome.failure);
        draft_ = *found_;
        origin_ = "Foram estimados agora.";
        fillGrid();
        showValues();
    });
}

void FrmPesos::setAtWork(bool atWork)
{
    setProperty("atWork", atWork); // for who waits for it
    barra->setValue(0);
    barra->setVisible(atWork);
    if (atWork) cmdCancelar->setEnabled(true);
    const bool hadFocus = cmdEstimar->hasFocus() || cmdCancelar->hasFocus();
    showState();
    if (hadFocus) (atWork ? cmdCancelar : cmdEstimar)->setFocus();
}

void FrmPesos::cmdIniciais_Click()
{
    guarded([&] {
        draft_ = linkage::startModel();
        origin_ = "São os valores iniciais.";
        fillGrid();
        showValues();
    });
}

void FrmPesos::cmdGravar_Click()
{
    guarded([&] {
        if (!takeTyped()) return;
        keep();
        Focus::setTo(dtgPesos);
    });
}

void FrmPesos::keep()
{
    DecisionNews::all().during([&] { linkage::store(cnBDP, draft_); }); // a table that is made is no other BDP
    kept_ = base_ = draft_;
    origin_ = "São os que estão gravados nesta BDP.";
    showValues();
    FrmLigacoes::weightsChanged();
    showStatus("Os pesos foram gravados nesta BDP: valem a partir da próxima procura.");
}

void FrmPesos::cmdAnular_Click()
{
    guarded([&] {
        origin_ = kept_ ? "São os que estão gravados nesta BDP." : "São os de antes.";
        take(base_);
        Focus::setTo(dtgPesos);
    });
}

void FrmPesos::showState()
{
    const bool free = !work_;
    dtgPesos->setEnabled(free);
    txtM->setEnabled(free);
    txtU->setEnabled(free);
    cmdMudar->setEnabled(free && isTyped());
    cmdEstimar->setEnabled(free);
    cmdCancelar->setEnabled(!free);
    cmdIniciais->setEnabled(free);
    cmdGravar->setEnabled(free && (isAltered() || kept_ != draft_));
    cmdAnular->setEnabled(free && isAltered());
    lblEstado->setText(free ? origin_ + (isAltered() ? " Ainda não estão gravados." : "") : "A estimar…");
}
