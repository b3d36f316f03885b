#include "study/windows/frmImportar.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "store/session.h"
#include "store/sessionChange.h"
#include "study/windows/cards.h"
#include "study/windows/exchangeText.h"
#include "study/windows/lastChoices.h"

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

#include <utility>

using namespace study;
using exchange::Exchanged;
using exchange::InOrder;
using exchange::Place;
using exchange::WayIn;

namespace {

constexpr auto keptWay = "importar/formato", bdpSuffix = "orv";

} // namespace

FrmImportar::FrmImportar() : Form(Name)
{
    setupUi(this);
    opensOn(lstFormato, cmdFechar);
    QSizePolicy keepsItsRoom = barra->sizePolicy();
    keepsItsRoom.setRetainSizeWhenHidden(true);
    barra->setSizePolicy(keepsItsRoom);
    barra->hide(); // an empty bar looks like a field to be filled in
    for (const WayIn& one : exchange::waysIn())
        lstFormato->add(QString::fromUtf8(one.title));
    connectAll();
}

FrmImportar::~FrmImportar() = default;

void FrmImportar::connectAll()
{
    const auto on = [this](CommandButton* button, void (FrmImportar::*handler)()) {
        connect(button, &CommandButton::clicked, this, [this, handler] { guarded([&] { (this->*handler)(); }); });
    };
    on(cmdOrigem, &FrmImportar::cmdOrigem_Click);
    on(cmdAlvo, &FrmImportar::cmdAlvo_Click);
    on(cmdEnsaio, &FrmImportar::cmdEnsaio_Click);
    on(cmdImportar, &FrmImportar::cmdImportar_Click);
    on(cmdCancelar, &FrmImportar::cmdCancelar_Click);
    on(cmdCopiar, &FrmImportar::cmdCopiar_Click);
    connect(cmdFechar, &CommandButton::clicked, this, [this] { unload(); });
    connect(lstFormato, &ListBox::currentRowChanged, this, [this] { guarded([this] { lstFormato_Click(); }); });
    for (TextBox* field : {txtOrigem, txtAlvo})
        connect(field, &TextBox::textChanged, this, &FrmImportar::offerCommands);
}

void FrmImportar::Form_Load()
{
    guarded([&] {
        const WayIn* last = exchange::wayIn(lastChoice(keptWay).toString());
        lstFormato->setListIndex(last ? static_cast<int>(last - exchange::waysIn().data()) : 0);
        showWay();
        setAtWork(false);
    });
}

const WayIn& FrmImportar::way() const
{
    return exchange::waysIn()[static_cast<std::size_t>(lstFormato->listIndex())];
}

void FrmImportar::lstFormato_Click()
{
    if (lstFormato->listIndex() >= 0) showWay();
}

void FrmImportar::showWay()
{
    lblExplica->setText(QString::fromUtf8(way().explanation));
    lblOrigem->setText(way().source == Place::File ? "&Do ficheiro" : "&Da pasta");
    offerCommands();
}

void FrmImportar::cmdOrigem_Click()
{
    const QString title = QString("Importar: ") + QString::fromUtf8(way().title);
    const QString source = way().source == Place::File
                               ? openFileName(QString::fromUtf8(way().filter), title, lastFolder())
                               : folderName(title, lastFolder());
    if (!source.isEmpty()) txtOrigem->setText(QDir::toNativeSeparators(source));
}

void FrmImportar::cmdAlvo_Click()
{
    const QString target = saveFileName(bdpFilter, "BDP a criar", lastFolder());
    if (!target.isEmpty()) txtAlvo->setText(QDir::toNativeSeparators(target));
}

QString FrmImportar::whyNotReady()
{
    if (txtOrigem->text().trimmed().isEmpty()) {
        Focus::setTo(txtOrigem);
        return way().source == Place::File ? "Deve indicar o ficheiro a importar!" : "Deve indicar a pasta a importar!";
    }
    if (txtAlvo->text().trimmed().isEmpty()) {
        Focus::setTo(txtAlvo);
        return "Deve indicar o ficheiro da BDP a criar!";
    }
    return {};
}

FrmImportar::Asked FrmImportar::asked() const
{
    return {&way(),
            {.source = wholePath(txtOrigem->text(), lastFolder(), {}),
             .bdp = wholePath(txtAlvo->text(), lastFolder(), bdpSuffix)},
            {}};
}

void FrmImportar::cmdEnsaio_Click()
{
    if (work_) return;
    if (const QString missing = whyNotReady(); !missing.isEmpty()) return showMessage(missing);
    Asked now = asked();
    txtOrigem->setText(QDir::toNativeSeparators(now.order.source));
    txtAlvo->setText(QDir::toNativeSeparators(now.order.bdp));
    rehearsed_.reset();
    now.order.rehearse = true;
    begin(std::move(now));
    keepChoice(keptWay, QString::fromUtf8(way().name));
    keepFolder(QFileInfo(txtOrigem->text()).absolutePath());
}

void FrmImportar::cmdImportar_Click()
{
    if (work_ || !rehearsed_) return;
    if (rehearsed_->stamp != stampOf(rehearsed_->order.source)) {
        rehearsed_.reset();
        offerCommands();
        return showMessage("Os ficheiros mudaram depois do ensaio: ensaie outra vez!");
    }
    begin(*rehearsed_);
}

void FrmImportar::begin(Asked asked)
{
    asked.stamp = stampOf(asked.order.source);
    asked_ = std::move(asked);
    told_ = std::make_shared<std::optional<Exchanged>>();
    work_ = std::make_unique<Background>(
        [told = told_, way = asked_.way, order = asked_.order](const Background::GoesOn& goesOn) {
            *told = readIn(*way, nullptr, order, goesOn);
        });
    connect(work_.get(), &Background::progressed, barra, &QProgressBar::setValue);
    connect(work_.get(), &Background::ended, this, &FrmImportar::ended);
    setAtWork(true);
    tell(asked_.order.rehearse ? "A ensaiar…" : "A importar…", {});
}

// What was whole before the cancel has come stays.
void FrmImportar::ended()
{
    guarded([&] {
        if (!work_) return;
        const Outcome outcome = takeOutcome(work_);
        const auto result = std::exchange(told_, nullptr);
        const QString what = asked_.order.rehearse ? "o ensaio" : "a importação";
        if (!*result && outcome.cancelled)
            tell(asked_.order.rehearse ? "O ensaio foi cancelado." : "A importação foi cancelada: nada foi escrito.",
                 {});
        else if (!*result)
            tell("Não foi possível fazer " + what + ": nada foi escrito.", outcome.failure);
        else if (asked_.order.rehearse && (*result)->errors.empty())
            rehearsed_ = Asked{asked_.way, {asked_.order.source, asked_.order.bdp}, asked_.stamp};
        setAtWork(false);
        if (*result) told(**result);
    });
}

void FrmImportar::told(const Exchanged& told)
{
    const bool isRehearsal = asked_.order.rehearse;
    const QString bdp = QDir::toNativeSeparators(asked_.order.bdp);
    if (!told.errors.empty())
        return tell(isRehearsal ? "Ensaio: há erros; nada se pode importar." : "Há erros: nada foi escrito.",
                    reportOn(told));
    if (isRehearsal) return tell("Ensaio sem erros: nada foi escrito.", reportOn(told));
    rehearsed_.reset(); // it stands now
    offerCommands();
    tell("Importado para " + bdp + '.', reportOn(told));
    showStatus("Importado para " + bdp + '.');
    offerToOpen();
}

// What is typed on a card isn't lost for it.
void FrmImportar::offerToOpen()
{
    if (!whyCardsAreBusy().isEmpty()) return;
    const QString bdp = asked_.order.bdp;
    const QString leaves = cnBDP.state() == jet::Connection::Open ? " A BDP em tratamento é fechada." : "";
    if (ask(QString("A BDP \"%1\" foi criada. Deseja abri-la?%2").arg(QDir::toNativeSeparators(bdp), leaves)))
        changeSession(bdp);
}

void FrmImportar::tell(const QString& state, const QString& report)
{
    lblEstado->setText(state);
    txtRel->setText(report);
    cmdCopiar->setEnabled(!report.isEmpty());
}

void FrmImportar::setAtWork(bool atWork)
{
    setProperty("atWork", atWork); // for who waits for it
    const bool hadFocus = cmdEnsaio->hasFocus() || cmdImportar->hasFocus() || cmdCancelar->hasFocus();
    cmdEnsaio->setEnabled(!atWork);
    cmdCancelar->setEnabled(atWork);
    offerCommands();
    if (hadFocus) (atWork ? cmdCancelar : cmdImportar->isEnabled() ? cmdImportar : cmdEnsaio)->setFocus();
    barra->setValue(0);
    barra->setVisible(atWork);
}

void FrmImportar::offerCommands()
{
    const auto isRehearsed = [&] { return &way() == rehearsed_->way && asked().order == rehearsed_->order; };
    cmdImportar->setEnabled(!work_ && rehearsed_ && isRehearsed());
}

void FrmImportar::cmdCancelar_Click()
{
    if (work_) work_->cancel();
}

void FrmImportar::cmdCopiar_Click()
{
    QGuiApplication::clipboard()->setText(lblEstado->text() + '\n' + txtRel->text().replace("\r\n", "\n") + '\n');
    showStatus("Relatório copiado.");
}
