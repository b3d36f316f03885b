#include "help/frmManual.h"

#include "common/modGeral.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/lastchoices.h"
#include "ui_frmManual.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QShortcut>
#include <QTreeWidgetItemIterator>

using help::Entry;
using help::Kind;

namespace {

// By which the choices are kept.
constexpr auto keptPlace = "ajuda/janela", keptZoom = "ajuda/letras";

constexpr int entryRole = Qt::UserRole; // the place of the entry in the manual

QString kindName(Kind kind)
{
    switch (kind) {
    case Kind::Chapter:
        return "Capítulo";
    case Kind::Window:
        return "Janela";
    case Kind::Command:
        return "Comando";
    case Kind::Message:
        return "Mensagem";
    case Kind::Section:
        break;
    }
    return "Página";
}

} // namespace

FrmManual::FrmManual(const help::Manual& manual, QWidget* over)
    : QWidget(over, Qt::Window), ui(std::make_unique<Ui::FrmManual>()), manual_(manual)
{
    ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    resize(size().boundedTo(screen()->availableSize() - QSize(40, 60)));
    ui->meio->setSizes({260, width() - 260});
    ui->meio->setStretchFactor(1, 1);
    restoreGeometry(Desktop::lastChoice(keptPlace).toByteArray());
    ui->txtPagina->setZoom(Desktop::lastChoice(keptZoom, 0).toInt());
    connectAll();
    fillContents();
}

FrmManual::~FrmManual() = default;

void FrmManual::connectAll()
{
    PageView* page = ui->txtPagina;
    connect(ui->cmdAnterior, &QPushButton::clicked, page, &QTextBrowser::backward);
    connect(ui->cmdSeguinte, &QPushButton::clicked, page, &QTextBrowser::forward);
    connect(page, &QTextBrowser::backwardAvailable, ui->cmdAnterior, &QWidget::setEnabled);
    connect(page, &QTextBrowser::forwardAvailable, ui->cmdSeguinte, &QWidget::setEnabled);
    connect(page, &QTextBrowser::sourceChanged, this, &FrmManual::pageChanged);
    connect(page, &PageView::zoomed, this, &FrmManual::zoomed);
    connect(ui->cmdMenor, &QPushButton::clicked, page, [page] { page->setZoom(page->zoom() - 1); });
    connect(ui->cmdMaior, &QPushButton::clicked, page, [page] { page->setZoom(page->zoom() + 1); });
    connect(ui->cmdPDF, &QPushButton::clicked, this, &FrmManual::cmdPDF_Click);
    connect(ui->cmdFechar, &QPushButton::clicked, this, &QWidget::close);
    connect(ui->txtProcura, &QLineEdit::textChanged, this, &FrmManual::txtProcura_Change);
    connect(ui->txtProcura, &QLineEdit::returnPressed, ui->tvwIndice, [this] { ui->tvwIndice->setFocus(); });
    connect(ui->tvwIndice, &QTreeWidget::currentItemChanged, this, &FrmManual::tvwIndice_Click);
    addKey(QKeySequence::ZoomIn, [page] { page->setZoom(page->zoom() + 1); });
    addKey(Qt::CTRL | Qt::Key_Equal, [page] { page->setZoom(page->zoom() + 1); }); // the plus of most keyboards
    addKey(QKeySequence::ZoomOut, [page] { page->setZoom(page->zoom() - 1); });
    addKey(Qt::CTRL | Qt::Key_0, [page] { page->setZoom(0); });
    addKey(QKeySequence::Find, [this] {
        ui->txtProcura->setFocus();
        ui->txtProcura->selectAll();
    });
    addKey(Qt::ALT | Qt::Key_Left, [page] { page->backward(); });
    addKey(Qt::ALT | Qt::Key_Right, [page] { page->forward(); });
}

void FrmManual::addKey(const QKeySequence& keys, const std::function<void()>& run)
{
    connect(new QShortcut(keys, this), &QShortcut::activated, this, run);
}

QTreeWidgetItem* FrmManual::add(const Entry& entry, QTreeWidgetItem* above)
{
    auto* item = above ? new QTreeWidgetItem(above) : new QTreeWidgetItem(ui->tvwIndice);
    item->setText(0, entry.title);
    item->setToolTip(0, kindName(entry.kind) + ": " + entry.title);
    item->setData(0, entryRole, int(&entry - manual_.entries().constData()));
    return item;
}

// The chapters with what each holds.
void FrmManual::fillContents()
{
    const QSignalBlocker quiet(ui->tvwIndice);
    ui->tvwIndice->clear();
    ui->lblIndice->setText("&Índice");
    QTreeWidgetItem* chapter = nullptr;
    for (const Entry& entry : manual_.entries()) {
        QTreeWidgetItem* item = add(entry, entry.kind == Kind::Chapter ? nullptr : chapter);
        if (entry.kind == Kind::Chapter) chapter = item;
    }
}

void FrmManual::fillHits(const QString& sought)
{
    const QSignalBlocker quiet(ui->tvwIndice);
    ui->tvwIndice->clear();
    const QList<const Entry*> hits = manual_.search(sought);
    for (const Entry* hit : hits)
        add(*hit, nullptr);
    ui->lblIndice->setText(hits.isEmpty() ? QString("Nada foi encontrado")
                                          : QString("&Índice: %1 encontrados").arg(hits.size()));
}

void FrmManual::txtProcura_Change()
{
    const QString sought = ui->txtProcura->text();
    if (sought.trimmed().isEmpty()) {
        fillContents();
        return choose(manual_.at(ui->txtPagina->source()));
    }
    fillHits(sought);
    ui->tvwIndice->setCurrentItem(ui->tvwIndice->topLevelItem(0)); // and shows its page
}

void FrmManual::tvwIndice_Click(const QTreeWidgetItem* item)
{
    if (item) showEntry(manual_.entries()[item->data(0, entryRole).toInt()]);
}

void FrmManual::showEntry(const Entry& entry)
{
    if (const QUrl page = manual_.url(entry); page != ui->txtPagina->source()) ui->txtPagina->setSource(page);
}

void FrmManual::showPage(const QString& id)
{
    const Entry* entry = manual_.find(id);
    ui->txtProcura->clear();
    showEntry(entry ? *entry : manual_.entries().first());
    if (isMinimized()) showNormal();
    show();
    raise();
    activateWindow();
    ui->txtPagina->setFocus();
}

void FrmManual::pageChanged()
{
    const Entry* entry = manual_.at(ui->txtPagina->source());
    choose(entry);
    ui->lblEstado->setText(entry && entry->page > 0 ? QString("No manual em PDF, é a página %1.").arg(entry->page)
                                                    : QString());
}

void FrmManual::choose(const Entry* entry)
{
    if (!entry) return;
    const QSignalBlocker quiet(ui->tvwIndice);
    const int place = int(entry - manual_.entries().constData());
    for (QTreeWidgetItemIterator item(ui->tvwIndice); *item; ++item) {
        if ((*item)->data(0, entryRole).toInt() != place) continue;
        ui->tvwIndice->setCurrentItem(*item);
        return ui->tvwIndice->scrollToItem(*item);
    }
}

// Programs for PDF agree on no way to be told a page: it is named below.
void FrmManual::cmdPDF_Click()
{
    guarded([] { AbreFicheiro(Desktop::programFolder() + "/mnlORV.pdf"); });
}

void FrmManual::zoomed()
{
    Desktop::keepChoice(keptZoom, ui->txtPagina->zoom());
}

void FrmManual::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) close();
    QWidget::keyPressEvent(event);
}

void FrmManual::closeEvent(QCloseEvent* event)
{
    Desktop::keepChoice(keptPlace, saveGeometry());
    QWidget::closeEvent(event);
}
