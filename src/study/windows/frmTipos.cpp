#include "study/windows/frmTipos.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "store/session.h"
#include "study/linkage/decisions.h"
#include "study/linkage/recalculate.h"
#include "study/windows/cards.h"

#include <QMdiSubWindow>
#include <QShortcut>
#include <QSignalBlocker>

#include <algorithm>
#include <map>
#include <utility>

using namespace study;
using checks::TypeDifference;

namespace {

QString counted(qsizetype count, const char* one, const char* more)
{
    return QString::number(count) + ' ' + (count == 1 ? one : more);
}

} // namespace

FrmTipos::FrmTipos() : Form(Name)
{
    setupUi(this);
    opensOn(dtgTipos, cmdFechar);
    connect(cmbQuais, &ComboBox::clicked, this, [this] { guarded([this] { fillGrid(); }); });
    connect(dtgTipos->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &FrmTipos::offerCommands);
    connect(dtgTipos, &Grid::doubleClicked, this, &FrmTipos::cmdTrocar_Click);
    connect(new QShortcut(Qt::Key_Space, dtgTipos, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
            &FrmTipos::cmdTrocar_Click);
    connect(cmdTrocar, &CommandButton::clicked, this, &FrmTipos::cmdTrocar_Click);
    connect(cmdTodos, &CommandButton::clicked, this, [this] { guarded([this] { chooseShown(true); }); });
    connect(cmdNenhum, &CommandButton::clicked, this, [this] { guarded([this] { chooseShown(false); }); });
    connect(cmdGravar, &CommandButton::clicked, this, &FrmTipos::cmdGravar_Click);
    connect(cmdDesfazer, &CommandButton::clicked, this, &FrmTipos::cmdDesfazer_Click);
    connect(cmdFechar, &CommandButton::clicked, this, [this] { unload(); });
}

void FrmTipos::Form_Load()
{
    guarded([&] { read(); });
    if (const auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget()))
        connect(frame, &QMdiSubWindow::aboutToActivate, this, &FrmTipos::keepUpToDate);
}

// It is read anew only where somebody has written: that takes a while. It was a moment ago where the window comes up
// for the first time. An error was told then: a box for it would bring the window to the front again and again.
void FrmTipos::keepUpToDate()
{
    if (!std::exchange(wasInFront_, true) || !watch_.hasChanged()) return;
    try {
        read();
    } catch (const jet::Error&) {
    }
}

bool FrmTipos::Kind::operator<(const Kind& other) const
{
    if (isFamily != other.isFamily) return other.isFamily;
    if (stored != other.stored) return stored < other.stored;
    return byDates < other.byDates;
}

FrmTipos::Kind FrmTipos::kindOf(const Line& line)
{
    return {line.difference.isFamily, line.difference.stored, line.difference.byDates};
}

void FrmTipos::read()
{
    const Hourglass hourglass;
    watch_.begin();
    std::map<std::pair<bool, qint64>, TypeDifference> chosen;
    for (const Line& line : all_)
        if (line.chosen) chosen[{line.difference.isFamily, line.difference.number}] = line.difference;
    const auto parish = parish::Snapshot::read(cnBDP);
    catalogue_ = parish.catalogue();
    all_.clear();
    for (TypeDifference& difference : checks::typeDifferences(parish)) {
        const auto before = chosen.find({difference.isFamily, difference.number});
        const bool same = before != chosen.end() && before->second == difference;
        all_.push_back({std::move(difference), same});
    }
    last_ = linkage::lastTypesWritten(cnBDP);
    fillKinds();
    fillGrid();
}

// "2 – Óbito conhecido", "nenhum".
QString FrmTipos::described(const Kind& kind, const QString& code) const
{
    if (code.isEmpty()) return "nenhum";
    const QString text = catalogue_.description(kind.isFamily ? "TipFa" : "TipIn", code).trimmed();
    return text.isEmpty() ? code : code + " – " + text;
}

// The kind chosen stays so, where it still is one.
void FrmTipos::fillKinds()
{
    const int entry = cmbQuais->listIndex();
    const bool hadKind = entry > 0 && entry <= int(kinds_.size());
    const Kind before = hadKind ? kinds_[size_t(entry) - 1] : Kind();
    std::map<Kind, int> counts;
    for (const Line& line : all_)
        ++counts[kindOf(line)];
    kinds_.clear();
    const QSignalBlocker quiet(cmbQuais);
    cmbQuais->clear();
    cmbQuais->add("Todas as diferenças (" + QString::number(all_.size()) + ')');
    int chosen = 0;
    for (const auto& [kind, count] : counts) {
        kinds_.push_back(kind);
        cmbQuais->add(QString("%1: de %2 para %3 (%4)")
                          .arg(kind.isFamily ? "Famílias" : "Indivíduos", described(kind, kind.stored),
                               described(kind, kind.byDates), QString::number(count)));
        if (hadKind && kind == before) chosen = int(kinds_.size());
    }
    cmbQuais->setListIndex(chosen);
}

void FrmTipos::fillGrid()
{
    const int entry = cmbQuais->listIndex();
    const int row = dtgTipos->row();
    const bool bare = dtgTipos->rows() == 0;
    seen_.clear();
    for (size_t i = 0; i < all_.size(); ++i)
        if (entry <= 0 || kindOf(all_[i]) == kinds_.at(size_t(entry) - 1)) seen_.push_back(i);
    const int count = int(seen_.size());
    {
        const QSignalBlocker quiet(dtgTipos->selectionModel());
        dtgTipos->setRows(count == 0 ? 0 : count + 1);
        if (count > 0) {
            if (bare) dtgTipos->setColumns({{"Mudar", 60}, {"De quem", 330}, {"Tipo", 170}, {"Pelas datas"}});
            dtgTipos->fill(count + 1, [this](int each) -> QStringList {
                const Line& line = all_.at(seen_.at(size_t(each) - 1));
                const Kind kind = kindOf(line);
                return {line.chosen ? "sim" : "não", line.difference.who, described(kind, kind.stored),
                        described(kind, kind.byDates)};
            });
            dtgTipos->setRow(std::clamp(row, 1, count));
        }
    }
    dtgTipos->viewport()->update();
    offerCommands();
}

void FrmTipos::offerCommands()
{
    const auto chosen = std::ranges::count(all_, true, &Line::chosen);
    lblTotal->setText(all_.empty() ? QString("Todos os tipos são os das datas.")
                                   : counted(qsizetype(all_.size()), "diferença, ", "diferenças, ") +
                                         counted(chosen, "escolhida.", "escolhidas."));
    cmdTrocar->setEnabled(dtgTipos->row() > 0);
    cmdTodos->setEnabled(!seen_.empty());
    cmdNenhum->setEnabled(!seen_.empty());
    cmdGravar->setEnabled(chosen > 0);
    cmdDesfazer->setEnabled(last_ != 0);
}

void FrmTipos::cmdTrocar_Click()
{
    guarded([&] {
        const int row = dtgTipos->row();
        if (row < 1 || row > int(seen_.size())) return;
        bool& chosen = all_[seen_[size_t(row) - 1]].chosen;
        chosen = !chosen;
        fillGrid();
    });
}

void FrmTipos::chooseShown(bool chosen)
{
    for (const size_t line : seen_)
        all_[line].chosen = chosen;
    fillGrid();
}

void FrmTipos::cmdGravar_Click()
{
    guarded([&] {
        const auto count = std::ranges::count(all_, true, &Line::chosen);
        if (count == 0) return;
        if (const QString busy = whyCardsAreBusy(); !busy.isEmpty()) return showMessage(busy);
        if (!askWhetherToStore("Deseja mudar o tipo de " + counted(count, "registo?", "registos?"))) return;
        writeChosen();
        Focus::setTo(dtgTipos->rows() > 0 ? dtgTipos : static_cast<QWidget*>(cmdFechar));
    });
}

void FrmTipos::writeChosen()
{
    QList<linkage::NewType> types;
    for (const Line& line : all_)
        if (line.chosen)
            types << linkage::NewType{line.difference.isFamily, line.difference.number, line.difference.stored,
                                      line.difference.byDates};
    const Hourglass hourglass;
    const linkage::TypesWritten written = linkage::writeTypes(cnBDP, types);
    for (Line& line : all_)
        line.chosen = false;
    evenIfItFails([&] { showOnCards(); });
    read();
    QString told = "Tipos mudados: " + counted(written.people, "indivíduo, ", "indivíduos, ") +
                   counted(written.families, "família.", "famílias.");
    if (!written.left.isEmpty())
        told += ' ' + counted(written.left.size(), "registo foi alterado entretanto, e ficou como estava.",
                              "registos foram alterados entretanto, e ficaram como estavam.");
    showStatus(told);
}

void FrmTipos::cmdDesfazer_Click()
{
    guarded([&] {
        if (const QString busy = whyCardsAreBusy(); !busy.isEmpty()) return showMessage(busy);
        const auto last = linkage::decision(cnBDP, last_);
        if (!last || !last->stands()) {
            read();
            return showMessage("Já não há nada que desfazer.");
        }
        if (!ask("Deseja desfazer?\n" + last->what.title + ", em " + last->when.toString("dd/MM/yyyy HH:mm") + '.'))
            return;
        const Hourglass hourglass;
        const QString reason = linkage::takeBack(cnBDP, last->id);
        if (!reason.isEmpty()) return showMessage("Nada foi desfeito. " + reason);
        evenIfItFails([&] { showOnCards(); });
        read();
        showStatus("Desfeito: " + last->what.title + '.');
    });
}
