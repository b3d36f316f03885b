#include "study/windows/frmActos.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "platform/jet/draft.h"
#include "store/session.h"
#include "study/acts/writer.h"
#include "study/transcripts/importSources.h"
#include "study/transcripts/kleio.h"
#include "study/windows/cards.h"
#include "study/windows/frmActo.h"

#include <QFile>
#include <QFileInfo>
#include <QMdiSubWindow>
#include <QShortcut>
#include <QSignalBlocker>

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>

using namespace study;

namespace {

constexpr std::array kinds{ActKind::Baptism, ActKind::Marriage, ActKind::Burial}; // behind "Todos" in the list

// The file takes its name when it is whole. Throws jet::Error.
void write(const QString& path, const QByteArray& bytes)
{
    const bool over = QFileInfo::exists(path);
    jet::Draft draft(path);
    {
        QFile file(draft.path());
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
            throw jet::writeError(std::make_error_code(std::errc::no_space_on_device), path);
    }
    over ? draft.replace() : draft.place();
}

} // namespace

FrmActos::FrmActos() : Form(Name)
{
    setupUi(this);
    opensOn(dtgActos, cmdFechar);
    for (const QString kind : {"Todos", "Baptismos", "Casamentos", "Óbitos"})
        cmbTipo->add(kind);
    cmbTipo->setListIndex(0);
    connect(cmbTipo, &ComboBox::clicked, this, &FrmActos::cmbTipo_Click);
    connect(cmbLivro, &ComboBox::clicked, this, &FrmActos::cmbLivro_Click);
    connect(txtNome, &TextBox::textChanged, this, &FrmActos::txtNome_Change);
    connect(dtgActos->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &FrmActos::dtgActos_Click);
    connect(dtgActos, &Grid::doubleClicked, this, &FrmActos::cmdAbrir_Click);
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) // the double click of the keyboard
        connect(new QShortcut(key, dtgActos, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
                &FrmActos::cmdAbrir_Click);
    connect(cmdAbrir, &CommandButton::clicked, this, &FrmActos::cmdAbrir_Click);
    connect(cmdDesfazer, &CommandButton::clicked, this, &FrmActos::cmdDesfazer_Click);
    connect(cmdExportar, &CommandButton::clicked, this, &FrmActos::cmdExportar_Click);
    connect(cmdFechar, &CommandButton::clicked, this, &FrmActos::cmdFechar_Click);
}

void FrmActos::Form_Load()
{
    guarded([&] { showStored(); });
    if (const auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget()))
        connect(frame, &QMdiSubWindow::aboutToActivate, this, &FrmActos::keepUpToDate);
}

// It was read a moment ago where the window comes up for the first time. An error was told then: a box for it would
// bring the window to the front again and again.
void FrmActos::keepUpToDate()
{
    if (!std::exchange(wasInFront_, true)) return;
    try {
        showStored();
    } catch (const jet::Error&) {
    }
}

void FrmActos::showStoredIfOpen()
{
    if (auto* open = qobject_cast<FrmActos*>(Forms::find(Name))) open->showStored();
}

void FrmActos::showStored()
{
    QList<ActLine> stored = listActs(cnBDP);
    words_.reset(); // names may be others where the lines are the same
    if (stored == all_ && dtgActos->rows() > 0) return;
    all_ = std::move(stored);
    fillBooks();
    fillGrid();
}

// The book chosen stays so as long as there is an act in it.
void FrmActos::fillBooks()
{
    const std::optional<QString> before = books_.value(cmbLivro->listIndex());
    const QSignalBlocker quiet(cmbLivro);
    cmbLivro->clear();
    books_ = {std::nullopt};
    cmbLivro->add("Todos");
    for (const QString& book : booksOf(all_, filter().kind)) {
        books_ << book;
        cmbLivro->add(book.isEmpty() ? "(sem livro)" : book);
    }
    cmbLivro->setListIndex(static_cast<int>(std::max(books_.indexOf(before), qsizetype(0))));
}

ActFilter FrmActos::filter() const
{
    const int kind = cmbTipo->listIndex() - 1;
    return {.kind = kind < 0 ? std::nullopt : std::optional(kinds.at(size_t(kind))),
            .book = books_.value(cmbLivro->listIndex()),
            .name = txtNome->text()};
}

const QHash<qint64, QStringList>& FrmActos::words()
{
    if (!words_) {
        words_.emplace();
        const QHash<qint64, QStringList> names = namesByAct(cnBDP);
        for (auto each = names.begin(); each != names.end(); ++each)
            words_->insert(each.key(), searchWords(each->join(' ')));
    }
    return *words_;
}

// The act chosen stays so, wherever it stands by now; where it is no longer seen, the row stays.
void FrmActos::fillGrid()
{
    const int row = dtgActos->row();
    const qint64 before = chosen() ? chosen()->id : 0;
    const ActFilter wanted = filter();
    seen_ = chosenLines(all_, wanted, wanted.name.isEmpty() ? QHash<qint64, QStringList>() : words());
    lblTotal->setText(all_.isEmpty() ? "Ainda não há actos transcritos." : countText(seen_));
    const int count = static_cast<int>(seen_.size());
    const bool bare = dtgActos->rows() == 0; // otherwise the widths are the user's
    dtgActos->setRows(count == 0 ? 0 : count + 1);
    if (count > 0) {
        if (bare)
            dtgActos->setColumns({{"Acto", 90}, {"Livro", 90}, {"Fl.", 60}, {"N.º", 60}, {"Data", 130}, {"De quem"}});
        dtgActos->fill(count + 1, [this](int each) { return cellsOf(seen_.value(each - 1)); });
        const auto same = std::ranges::find_if(seen_, [&](const ActLine& line) { return line.id == before; });
        const bool stays = before != 0 && same != seen_.end();
        dtgActos->setRow(stays ? static_cast<int>(same - seen_.begin()) + 1 : std::clamp(row, 1, count));
    }
    offerCommands();
}

std::optional<ActLine> FrmActos::chosen() const
{
    const int row = dtgActos->row();
    if (row < 1 || row > seen_.size()) return {};
    return seen_[row - 1];
}

void FrmActos::offerCommands()
{
    const bool act = chosen() && chosen()->id != 0;
    cmdAbrir->setEnabled(act);
    cmdDesfazer->setEnabled(act);
    cmdExportar->setEnabled(!listedActs().isEmpty());
}

QList<qint64> FrmActos::listedActs() const
{
    QList<qint64> acts;
    acts.reserve(seen_.size());
    for (const ActLine& line : seen_)
        if (line.id != 0) acts << line.id;
    return acts;
}

void FrmActos::cmbTipo_Click()
{
    guarded([&] {
        fillBooks();
        fillGrid();
    });
}

void FrmActos::cmbLivro_Click()
{
    guarded([&] { fillGrid(); });
}

void FrmActos::txtNome_Change()
{
    guarded([&] { fillGrid(); });
}

void FrmActos::dtgActos_Click()
{
    offerCommands();
}

void FrmActos::cmdAbrir_Click()
{
    guarded([&] {
        const qint64 id = chosen() ? chosen()->id : 0;
        if (id == 0) return;
        if (!readAct(cnBDP, id)) {
            showMessage("Este acto já não está na BDP.");
            return showStored();
        }
        auto& window = theForm<FrmActo>();
        window.mostra(id);
        window.display();
    });
}

void FrmActos::cmdDesfazer_Click()
{
    guarded([&] {
        const std::optional<ActLine> line = chosen();
        if (!line || line->id == 0) return;
        if (const QString busy = whyCardsAreBusy(); !busy.isEmpty()) return showMessage(busy);
        const QString reason = undone(*line);
        if (!reason.isEmpty()) showMessage("O acto não foi desfeito. " + reason);
        showStored();
        if (!cmdDesfazer->isEnabled()) Focus::setTo(dtgActos->rows() > 0 ? dtgActos : static_cast<QWidget*>(cmdFechar));
    });
}

// "", also where the user says no, or why nothing was undone.
QString FrmActos::undone(const ActLine& line)
{
    const qint64 id = line.id;
    const std::optional<ActRecord> record = readAct(cnBDP, id);
    if (!record) return "Este acto já não está na BDP.";
    QString reason = whyNotUndone(cnBDP, id);
    if (!reason.isEmpty()) return reason;
    if (!ask("Deseja desfazer este acto?\n" + titleOf(line) +
             "\nO acto e tudo o que ele escreveu nas fichas são retirados da BDP."))
        return {};
    const Hourglass hourglass;
    reason = undoAct(cnBDP, id);
    if (!reason.isEmpty()) return reason;
    closeWindowsOf(record->written);
    showOnCards();
    showStatus("Desfeito: " + titleOf(line) + '.');
    return {};
}

void FrmActos::cmdExportar_Click()
{
    guarded([&] {
        const QString path = saveFileName("Notação Kleio (*.cli)|*.cli", "Exportar os actos da lista");
        const QString name = '"' + QFileInfo(path).fileName() + '"';
        if (path.isEmpty()) return;
        if (QFileInfo::exists(path) && !ask("O ficheiro " + name + " já existe. Deseja substituí-lo?")) return;
        checkExportTarget(path, cnBDP.dataSource());
        const Hourglass hourglass;
        QList<Act> acts;
        for (const qint64 id : listedActs())
            if (const std::optional<ActRecord> record = readAct(cnBDP, id); record) acts << record->act;
        write(path, toKleio(acts, keptSources(cnBDP)));
        showStatus(QString::number(acts.size()) + (acts.size() == 1 ? " acto escrito em " : " actos escritos em ") +
                   name + '.');
    });
}

void FrmActos::cmdFechar_Click()
{
    unload();
}
