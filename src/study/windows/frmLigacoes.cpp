#include "study/windows/frmLigacoes.h"
#include "study/windows/pauses.h"

#include "common/modGeral.h"
#include "platform/forms/forms.h"
#include "platform/jet/rows.h"
#include "study/linkage/verdicts.h"
#include "study/windows/decisionNews.h"
#include "study/windows/frmPesos.h"

#include <QMdiSubWindow>

#include <algorithm>
#include <array>
#include <iterator>
#include <unordered_set>
#include <utility>

using namespace study;
using linkage::LinkKind;
using linkage::Record;

namespace {

std::unordered_set<qint64> numbers(const jet::NativeSql& select)
{
    std::unordered_set<qint64> all;
    jet::Rows row(cnBDP, select);
    while (row.next())
        all.insert(row.number(0));
    return all;
}

} // namespace

FrmLigacoes::FrmLigacoes() : Form(Name)
{
    setupUi(this);
    opensOn(dtgCasos, cmdProcurar);
    QSizePolicy keepsItsRoom = barra->sizePolicy();
    keepsItsRoom.setRetainSizeWhenHidden(true);
    barra->setSizePolicy(keepsItsRoom);
    barra->hide(); // an empty bar looks like a field to be filled in
    cmbTipo->add("Todas");
    for (const LinkKind kind : linkKinds)
        cmbTipo->add(inWords(kind));
    for (const QString which : {"Propostos", "Todos", "Deixados para depois"})
        cmbFiltro->add(which);
    cmbTipo->setListIndex(0);
    cmbFiltro->setListIndex(0);
    connectAll();
    watching_.setInterval(betweenQuestions);
    setAtWork(false);
    showLine();
}

FrmLigacoes::~FrmLigacoes() = default;

void FrmLigacoes::connectAll()
{
    connect(cmbTipo, &ComboBox::clicked, this, &FrmLigacoes::lists_Click);
    connect(cmbFiltro, &ComboBox::clicked, this, &FrmLigacoes::lists_Click);
    connect(dtgCasos->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { guarded([this] { showLine(); }); });
    connect(cmdProcurar, &CommandButton::clicked, this, &FrmLigacoes::cmdProcurar_Click);
    connect(cmdCancelar, &CommandButton::clicked, this, &FrmLigacoes::cmdCancelar_Click);
    connect(cmdPesos, &CommandButton::clicked, this, &FrmLigacoes::cmdPesos_Click);
    connect(cmdMesmo, &CommandButton::clicked, this, &FrmLigacoes::cmdMesmo_Click);
    connect(cmdDistinto, &CommandButton::clicked, this, &FrmLigacoes::cmdDistinto_Click);
    connect(cmdDepois, &CommandButton::clicked, this, &FrmLigacoes::cmdDepois_Click);
    connect(cmdSeguinte, &CommandButton::clicked, this, &FrmLigacoes::cmdSeguinte_Click);
    connect(cmdVoltar, &CommandButton::clicked, this, &FrmLigacoes::cmdVoltar_Click);
    connect(cmdFicha1, &CommandButton::clicked, this, [this] { cmdFicha_Click(true); });
    connect(cmdFicha2, &CommandButton::clicked, this, [this] { cmdFicha_Click(false); });
    connect(cmdJuntar, &CommandButton::clicked, this, &FrmLigacoes::cmdJuntar_Click);
    connect(cmdFechar, &CommandButton::clicked, this, &FrmLigacoes::cmdFechar_Click);
    connect(&watching_, &QTimer::timeout, this, &FrmLigacoes::lookAround);
    connect(&DecisionNews::all(), &DecisionNews::begins, this, &FrmLigacoes::deciding);
    connect(&DecisionNews::all(), &DecisionNews::over, this, &FrmLigacoes::decided);
}

void FrmLigacoes::Form_Load()
{
    state_ = "Ainda não se procurou.";
    guarded([&] { readDecisions(); });
    lastBefore_ = decisions_.isEmpty() ? 0 : decisions_.first().id;
    showState();
    watching_.start();
    if (const auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget()))
        connect(frame, &QMdiSubWindow::aboutToActivate, this, &FrmLigacoes::lookAround);
}

void FrmLigacoes::weightsChanged()
{
    auto* open = qobject_cast<FrmLigacoes*>(Forms::find(Name));
    if (!open || !open->parish_) return;
    open->otherWeights_ = true;
    open->showState();
}

// A command that goes grey under the focus would leave the keys to nobody.
void FrmLigacoes::setAtWork(bool atWork)
{
    setProperty("atWork", atWork); // for who waits for it
    const bool hadFocus = cmdProcurar->hasFocus() || cmdCancelar->hasFocus();
    const std::array decisive{cmdMesmo, cmdDistinto, cmdDepois, cmdVoltar, cmdJuntar};
    if (std::ranges::any_of(decisive, [](const CommandButton* one) { return one->hasFocus(); })) dtgCasos->setFocus();
    cmdProcurar->setEnabled(!atWork);
    cmdCancelar->setEnabled(atWork);
    if (hadFocus) (atWork ? cmdCancelar : cmdProcurar)->setFocus();
    barra->setValue(0);
    barra->setVisible(atWork);
    atWork_ = atWork;
    offerCommands();
}

// What others have written by now is told as a change; what is decided next isn't.
void FrmLigacoes::deciding()
{
    for (const auto* watch : {&watch_, &nextWatch_})
        if (*watch) (*watch)->hasChanged();
}

void FrmLigacoes::decided()
{
    for (const auto* watch : {&watch_, &nextWatch_})
        if (*watch) (*watch)->passOver();
    guarded([&] {
        const QList<linkage::Decision> before = decisions_;
        readDecisions();
        const std::vector<Record> concerned = follow(before);
        showLines();
        showState();
        if ((parish_ || atWork_) && !concerned.empty()) search(concerned);
    });
}

void FrmLigacoes::readDecisions()
{
    decisions_ = linkage::decisions(cnBDP);
    decisions_.removeIf([](const linkage::Decision& one) { return !linkage::isOfLinks(one.what.kind); });
}

// The decisions that were made, or taken back, since those of before. What they settle leaves the list.
std::vector<Record> FrmLigacoes::follow(QList<linkage::Decision> before)
{
    using enum linkage::DecisionKind;
    std::vector<Record> concerned;
    std::ranges::sort(before, {}, &linkage::Decision::id);
    for (const linkage::Decision& decision : std::as_const(decisions_)) {
        const auto known = std::ranges::lower_bound(before, decision.id, {}, &linkage::Decision::id);
        const bool wasThere = known != before.end() && known->id == decision.id;
        if (wasThere ? known->stands() == decision.stands() : !decision.stands()) continue;
        const std::vector<Record> records = linkage::recordsOf(decision.what);
        std::ranges::copy(records, std::back_inserter(concerned));
        if (!decision.stands()) continue;
        list_.drop(records.front(), records.size() > 1 ? records[1] : Record{});
        if (decision.what.kind == PeopleMerged || decision.what.kind == FamiliesJoined)
            list_.dropGone([&](const Record& record) { return record != records.back(); });
    }
    if (!parish_) return concerned; // the search under way will know whom they are beside
    const std::vector<Record> beside = list_.whoseRunnerUp(concerned);
    for (const Record& record : std::vector(concerned))
        std::ranges::copy(around(*parish_, record), std::back_inserter(concerned));
    std::ranges::copy(beside, std::back_inserter(concerned));
    return concerned;
}

// What others have written: who was deleted is no candidate any more, and a decision counts. A box for an error would
// bring the window to the front again and again.
void FrmLigacoes::lookAround()
{
    if (atWork_ || !watch_ || !watch_->hasChangedAgain()) return;
    try {
        readDecisions();
        const auto people = numbers(jet::NativeSql("select nind from individuo"));
        const auto families = numbers(jet::NativeSql("select nfamilia from familia"));
        list_.dropGone(
            [&](const Record& record) { return (record.isPerson() ? people : families).contains(record.number); });
    } catch (const jet::Error&) {
        watch_->outdate();
        return;
    }
    showLines();
    showState();
}

void FrmLigacoes::cmdPesos_Click()
{
    guarded([&] {
        auto& window = theForm<FrmPesos>();
        if (parish_) window.mostra(model_);
        window.display();
    });
}

void FrmLigacoes::cmdFechar_Click()
{
    unload();
}
