#include "study/windows/frmContradicoes.h"
#include "study/windows/pauses.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/longwork.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "platform/time/clock.h"
#include "study/acts/register.h"
#include "study/checks/check.h"
#include "study/checks/settings.h"
#include "study/windows/cards.h"
#include "study/windows/frmActo.h"

#include <QDateTime>

#include <chrono>
#include <utility>

using namespace study;

namespace {

constexpr auto outdated = " A BDP mudou desde a verificação.";
constexpr auto otherRules = " As regras ou os limites mudaram desde a verificação.";

} // namespace

FrmContradicoes::FrmContradicoes() : Form(Name)
{
    setupUi(this);
    sides_ = {Side{cmbFicha_0, cmdFicha_0, txtFicha_0}, Side{cmbFicha_1, cmdFicha_1, txtFicha_1}};
    QSizePolicy keepsItsRoom = barra->sizePolicy();
    keepsItsRoom.setRetainSizeWhenHidden(true);
    barra->setSizePolicy(keepsItsRoom);
    barra->hide(); // an empty bar looks like a field to be filled in
    for (const QString which : {"Por ver", "Vistos"})
        cmbMostrar->add(which);
    for (const QString which : {"Todas", "Impossível", "Aviso", "Informação"})
        cmbGravidade->add(which);
    cmbMostrar->setListIndex(0);
    cmbGravidade->setListIndex(0);
    setLastFocus(cmdVerificar);
    connectLists();
    connect(cmdVerificar, &CommandButton::clicked, this, &FrmContradicoes::cmdVerificar_Click);
    connect(cmdCancelar, &CommandButton::clicked, this, &FrmContradicoes::cmdCancelar_Click);
    connect(cmdVisto, &CommandButton::clicked, this, &FrmContradicoes::cmdVisto_Click);
    connect(cmdRepor, &CommandButton::clicked, this, &FrmContradicoes::cmdRepor_Click);
    connect(cmdImprimir, &CommandButton::clicked, this, &FrmContradicoes::cmdImprimir_Click);
    connect(cmdExportar, &CommandButton::clicked, this, &FrmContradicoes::cmdExportar_Click);
    connect(cmdLimites, &CommandButton::clicked, this, [this] { guarded([] { Forms::show("frmLimites"); }); });
    connect(cmdTipos, &CommandButton::clicked, this, [this] { guarded([] { Forms::show("frmTipos"); }); });
    connect(cmdFechar, &CommandButton::clicked, this, [this] { unload(); });
    watching_.setInterval(betweenQuestions);
    connect(&watching_, &QTimer::timeout, this, &FrmContradicoes::tellState);
}

FrmContradicoes::~FrmContradicoes() = default;

void FrmContradicoes::connectLists()
{
    connect(cmbMostrar, &ComboBox::clicked, this, [this] { guarded([this] { showAll(); }); });
    connect(cmbGravidade, &ComboBox::clicked, this, [this] { guarded([this] { showAll(); }); });
    connect(txtTexto, &TextBox::textChanged, this, [this] { guarded([this] { showAll(); }); });
    connect(dtgRegras->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { guarded([this] { showCases(); }); });
    connect(dtgCasos->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { guarded([this] { showCase(); }); });
    for (const size_t side : {0, 1}) {
        connect(sides_[side].list, &ComboBox::clicked, this,
                [this, side] { guarded([this, side] { showRecord(side); }); });
        connect(sides_[side].card, &CommandButton::clicked, this, [this, side] { cmdFicha_Click(side); });
    }
}

void FrmContradicoes::Form_Load()
{
    guarded([&] { readSeen(); });
}

void FrmContradicoes::settingsChanged()
{
    auto* open = qobject_cast<FrmContradicoes*>(Forms::find(Name));
    if (!open) return;
    open->otherSettings_ = open->next_.otherSettings = true;
    open->tellState();
}

void FrmContradicoes::cmdVerificar_Click()
{
    guarded([&] {
        if (run_) return;
        setAtWork(true);
        try {
            read();
        } catch (const parish::Snapshot::Interrupted&) {
            fail("A verificação foi cancelada.");
        } catch (...) {
            fail("A BDP não foi verificada.");
            throw;
        }
    });
}

// Settings and records are of one state, as nothing else runs meanwhile.
void FrmContradicoes::read()
{
    next_ = {.watch = newWatch()};
    next_.watch->begin();
    const checks::Settings settings = checks::keptSettings(cnBDP);
    next_.parish = std::make_shared<const parish::Snapshot>(
        parish::Snapshot::read(cnBDP, [this](double done) { return goesOn(done); }));
    LongWork::ended();
    next_.when = Clock::moment().toString("dd/MM/yyyy HH:mm");
    lblEstado->setText("A verificar…");
    checks::rules(); // made here, so that no two threads make them
    next_.found = std::make_shared<std::vector<checks::Case>>();
    run_ = std::make_unique<Background>(
        [parish = next_.parish, found = next_.found, settings](const Background::GoesOn& goesOn) {
            *found = checks::Check::run(*parish, settings, goesOn);
        });
    connect(run_.get(), &Background::progressed, barra, &QProgressBar::setValue);
    connect(run_.get(), &Background::ended, this, &FrmContradicoes::ended);
}

// While the BDP is read.
bool FrmContradicoes::goesOn(double done)
{
    if (Clock::now() - shownAt_ < betweenLooks) return true;
    shownAt_ = Clock::now();
    static constexpr double whole = 100;
    barra->setValue(static_cast<int>(done * whole));
    lblEstado->setText("A ler a BDP…");
    return !LongWork::cancelled(*this, *cmdCancelar);
}

void FrmContradicoes::cmdCancelar_Click()
{
    if (run_) run_->cancel();
}

void FrmContradicoes::ended()
{
    guarded([&] {
        if (!run_) return;
        const Outcome outcome = takeOutcome(run_);
        if (outcome.cancelled) return fail("A verificação foi cancelada.");
        if (!outcome.isResult()) return fail("A BDP não foi verificada: " + outcome.failure);
        take();
    });
}

// The records that are shown are those of the check before until the lists are filled.
void FrmContradicoes::take()
{
    const auto before = std::exchange(parish_, std::move(next_.parish));
    cases_ = std::move(*next_.found);
    watch_ = std::move(next_.watch);
    when_ = next_.when;
    otherSettings_ = next_.otherSettings;
    showAll();
    finish("Verificada em " + when_ + ": " + countText(cases_) + '.');
    watching_.start();
    readSeen();
    tellState();
}

// The cases are still those of the check before.
void FrmContradicoes::fail(const QString& state)
{
    finish(parish_ ? state + " A lista é a de " + when_ + '.' : state);
    tellState();
}

void FrmContradicoes::finish(const QString& state)
{
    LongWork::ended();
    next_ = {};
    setAtWork(false);
    state_ = state;
    lblEstado->setText(state);
    showStatus(state);
}

void FrmContradicoes::setAtWork(bool atWork)
{
    setProperty("atWork", atWork); // for who waits for it
    const bool hadFocus = cmdVerificar->hasFocus() || cmdCancelar->hasFocus();
    cmdVerificar->setEnabled(!atWork);
    cmdCancelar->setEnabled(atWork);
    if (hadFocus) (atWork ? cmdCancelar : cmdVerificar)->setFocus();
    barra->setValue(0);
    barra->setVisible(atWork);
}

void FrmContradicoes::tellState()
{
    if (run_ || !parish_ || state_.isEmpty()) return;
    lblEstado->setText(state_ + (watch_->hasChanged() ? outdated : "") + (otherSettings_ ? otherRules : ""));
}

void FrmContradicoes::cmdVisto_Click()
{
    guarded([&] {
        const Line* line = chosenLine();
        if (!line || line->seen) return;
        const QString reason = txtRazao->text().trimmed();
        if (reason.isEmpty()) {
            showMessage("Escreva primeiro a razão por que o caso é dado por visto!");
            return Focus::setTo(txtRazao);
        }
        const checks::Case one = line->one;
        const Hourglass hourglass;
        watch_->without([&] { checks::putAside(cnBDP, {one}, reason); });
        txtRazao->clear();
        readSeen();
        tellState();
        showStatus("Visto: " + one.text);
        Focus::setTo(dtgCasos->rows() > 0 ? dtgCasos : static_cast<QWidget*>(cmbMostrar));
    });
}

void FrmContradicoes::cmdRepor_Click()
{
    guarded([&] {
        const Line* line = chosenLine();
        if (!line || !line->seen) return;
        const checks::Seen one = *line->seen;
        const Hourglass hourglass;
        watch_->without([&] { checks::takeBack(cnBDP, {one.key}); });
        readSeen();
        tellState();
        showStatus("Volta a ser mostrado: " + one.text);
        Focus::setTo(dtgCasos->rows() > 0 ? dtgCasos : static_cast<QWidget*>(cmbMostrar));
    });
}

void FrmContradicoes::readSeen()
{
    try {
        seen_ = checks::seenCases(cnBDP);
    } catch (const jet::Error&) {
        showAll();
        throw;
    }
    showAll();
}

void FrmContradicoes::showAct(qint64 number)
{
    const auto act = readAct(cnBDP, number);
    if (!act) return showStatus("O acto nº " + QString::number(number) + " já não está na BDP.");
    auto& window = theForm<FrmActo>();
    window.mostra(number);
    window.display();
}

// The record as the BDP has it by now; one that has gone since is told.
void FrmContradicoes::cmdFicha_Click(size_t side)
{
    guarded([&] {
        const std::optional<Record> record = chosenRecord(side);
        if (!record) return;
        if (const auto* person = std::get_if<const parish::Person*>(&*record))
            showOnCard("frmInd", parish::value((*person)->number));
        else if (const auto* family = std::get_if<const parish::Family*>(&*record))
            showOnCard("frmFam", parish::value((*family)->number));
        else
            showAct(std::get<StoredAct>(*record).number);
    });
}
