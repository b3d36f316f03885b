#include "study/windows/frmIndicadores.h"
#include "study/windows/pauses.h"

#include "common/modGeral.h"
#include "platform/forms/forms.h"
#include "platform/forms/statusline.h"
#include "study/report/chartTable.h"
#include "study/report/origin.h"
#include "study/report/sheet.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QShortcut>
#include <QTabBar>

#include <utility>

using namespace study;
using indicators::Subject;

namespace {

constexpr int treeWidth = 270, figureWidth = 690; // of the usual font; the user may move what is between them
constexpr int figureHeight = 370, peopleHeight = 120;

} // namespace

FrmIndicadores::FrmIndicadores() : Form(Name)
{
    setupUi(this);
    opensOn(tvwTemas, cmdFechar);
    QSizePolicy keepsItsRoom = barra->sizePolicy();
    keepsItsRoom.setRetainSizeWhenHidden(true);
    barra->setSizePolicy(keepsItsRoom);
    barra->hide(); // an empty bar looks like a field to be filled in
    divisao->setSizes({treeWidth, figureWidth});
    divisaoQuem->setSizes({figureHeight, peopleHeight});
    for (const QString what : {"Família", "Indivíduo"})
        cmbRegisto->add(what);
    cmbRegisto->setListIndex(0);
    fillSubjects();
    connectAll();
    setTabOrder(tvwTemas, tabPaginas->tabBar()); // all of the pages in the order of the form would break it in two
    watching_.setInterval(betweenQuestions);
    connect(&watching_, &QTimer::timeout, this, &FrmIndicadores::tellState);
}

FrmIndicadores::~FrmIndicadores() = default;

void FrmIndicadores::Form_Load()
{
    showSubject();
    setAtWork(false);
}

void FrmIndicadores::connectAll()
{
    const auto on = [this](CommandButton* button, void (FrmIndicadores::*handler)()) {
        connect(button, &CommandButton::clicked, this, [this, handler] { guarded([&] { (this->*handler)(); }); });
    };
    on(cmdContar, &FrmIndicadores::cmdContar_Click);
    on(cmdCancelar, &FrmIndicadores::cmdCancelar_Click);
    on(cmdCopiar, &FrmIndicadores::cmdCopiar_Click);
    on(cmdGravar, &FrmIndicadores::cmdGravar_Click);
    on(cmdFicha, &FrmIndicadores::cmdFicha_Click);
    on(cmdFamilia, &FrmIndicadores::cmdFamilia_Click);
    on(cmdPorque, &FrmIndicadores::cmdPorque_Click);
    connect(cmdDefinicoes, &CommandButton::clicked, this, [] { guarded(cmdDefinicoes_Click); });
    connect(cmdFechar, &CommandButton::clicked, this, [this] { unload(); });
    connect(tvwTemas, &QTreeWidget::currentItemChanged, this, [this] { guarded([this] { tvwTemas_Change(); }); });
    connect(cmbQuadro, &ComboBox::clicked, this, [this] { guarded([this] { showTable(); }); });
    connect(cmbGrafico, &ComboBox::clicked, this, [this] { guarded([this] { showChart(); }); });
    connect(tabPaginas, &QTabWidget::currentChanged, this, &FrmIndicadores::tabPaginas_Change);
    connect(txtNumero, &TextBox::returnPressed, this, [this] { guarded([this] { cmdPorque_Click(); }); });
    using TableOf = const report::Table* (FrmIndicadores::*)() const;
    const auto follow = [this](Grid* grid, TableOf table) {
        const auto open = [=, this] { guarded([=, this] { openCell((this->*table)(), grid->currentIndex()); }); };
        connect(grid, &Grid::clicked, this, open);
        for (const int key : {Qt::Key_Return, Qt::Key_Enter})
            connect(new QShortcut(key, grid, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this, open);
    };
    connect(dtgQuadro->selectionModel(), &QItemSelectionModel::currentChanged, this, &FrmIndicadores::tellCell);
    follow(dtgQuadro, &FrmIndicadores::shownTable);
    follow(dtgNaoContados, &FrmIndicadores::leftOutTable);
    const auto toCard = [this] { guarded([this] { cmdFicha_Click(); }); };
    connect(dtgQuem, &Grid::doubleClicked, this, toCard);
    for (const int key : {Qt::Key_Return, Qt::Key_Enter})
        connect(new QShortcut(key, dtgQuem, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this, toCard);
    connect(dtgQuem->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &FrmIndicadores::offerCommands);
}

// A branch for each group, in the order of a report.
void FrmIndicadores::fillSubjects()
{
    QTreeWidgetItem* group = nullptr;
    for (const Subject* subject : indicators::subjects()) {
        const QString name = QString::fromUtf8(subject->group);
        if (!group || group->text(0) != name) group = new QTreeWidgetItem(tvwTemas, QStringList(name));
        auto* item = new QTreeWidgetItem(group, QStringList(QString::fromUtf8(subject->title)));
        item->setData(0, Qt::UserRole, QString::fromUtf8(subject->id));
        item->setToolTip(0, item->text(0));
    }
    tvwTemas->expandAll();
}

// The figures that are shown stay where a group is chosen: it has none of its own.
void FrmIndicadores::tvwTemas_Change()
{
    const QTreeWidgetItem* item = tvwTemas->currentItem();
    const Subject* chosen = item ? indicators::subjectOf(item->data(0, Qt::UserRole).toString()) : nullptr;
    if (!chosen || chosen == subject_) return;
    subject_ = chosen;
    question_ = {};
    stopped_ = false;
    if (!work_ && watch_ && watch_->hasChanged()) forget();
    showSubject();
    goOn();
}

// Nobody stands behind a chart or a method: these have the room for themselves.
void FrmIndicadores::tabPaginas_Change()
{
    const QWidget* page = tabPaginas->currentWidget();
    ladoDosRegistos->setVisible(page == pagQuadros || page == pagNaoContados);
    offerCommands();
}

void FrmIndicadores::cmdContar_Click()
{
    if (work_ || !subject_) return;
    forget();
    stopped_ = false;
    showSubject();
    goOn();
}

void FrmIndicadores::cmdCancelar_Click()
{
    if (work_) work_->cancel();
}

void FrmIndicadores::cmdDefinicoes_Click()
{
    Forms::show("frmDefinicoes");
}

void FrmIndicadores::settingsChanged()
{
    auto* open = qobject_cast<FrmIndicadores*>(Forms::find(Name));
    if (!open) return;
    open->work_.reset();
    open->forget();
    open->stopped_ = false;
    open->setAtWork(false);
    open->showSubject();
    open->goOn();
}

void FrmIndicadores::changeEvent(QEvent* event)
{
    Form::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && sheetOf_) drawChart();
}

void FrmIndicadores::cmdCopiar_Click()
{
    if (!hasTableInFront()) return;
    const bool isChart = tabPaginas->currentWidget() == pagGraficos;
    const report::Table numbers = isChart ? report::tableOf(*shownChart()) : report::Table();
    const report::Table& table = isChart ? numbers : *tableInFront();
    QGuiApplication::clipboard()->setText(report::tabSeparated(table) + '\n' + report::originText(base_->source) +
                                          '\n');
    showStatus((isChart ? "Números do gráfico copiados: " : "Tabela copiada: ") + table.title);
}

// A chart's own numbers are a table, too; a method has none.
bool FrmIndicadores::hasTableInFront() const
{
    if (tabPaginas->currentWidget() == pagGraficos) return shownChart() && !shownChart()->isEmpty();
    const report::Table* table = tableInFront();
    return table && !table->isEmpty();
}

void FrmIndicadores::offerCommands()
{
    const report::Chart* chart = shownChart();
    const indicators::Who* who = chosenRecord();
    cmdContar->setEnabled(subject_ && !work_);
    cmdCopiar->setEnabled(hasTableInFront());
    cmdGravar->setEnabled(chart && !chart->isEmpty());
    cmdFicha->setEnabled(who);
    cmdFamilia->setEnabled(who && who->person && who->family);
    cmdPorque->setEnabled(sheetOf_);
}
