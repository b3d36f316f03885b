#include "study/windows/frmImportar.h"

#include "common/modGeral.h"
#include "platform/desktop/lastchoices.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "store/session.h"
#include "study/windows/cards.h"
#include "study/windows/exchangeText.h"

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

#include <utility>

using namespace study;
using Desktop::keepChoice;
using Desktop::lastChoice;
using Desktop::lastFolder;
using exchange::InChoice;
using exchange::InOrder;
using exchange::Into;
using exchange::Place;
using exchange::WayIn;

namespace {

constexpr auto keptWayIn = "importar/formato", keptPlaces = "importar/lugares", keptProfessions = "importar/profissoes",
               bdpSuffix = "orv";

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
    on(cmdDesfazer, &FrmImportar::cmdDesfazer_Click);
    on(cmdCancelar, &FrmImportar::cmdCancelar_Click);
    on(cmdCopiar, &FrmImportar::cmdCopiar_Click);
    connect(cmdFechar, &CommandButton::clicked, this, [this] { unload(); });
    connect(lstFormato, &ListBox::currentRowChanged, this, [this] { guarded([this] { lstFormato_Click(); }); });
    for (TextBox* field : {txtOrigem, txtAlvo})
        connect(field, &TextBox::textChanged, this, &FrmImportar::offerCommands);
    for (QCheckBox* choice : {chkLocais, chkProf})
        connect(choice, &QCheckBox::toggled, this, &FrmImportar::offerCommands);
}

void FrmImportar::Form_Load()
{
    guarded([&] {
        chkLocais->setChecked(lastChoice(keptPlaces, true).toBool());
        chkProf->setChecked(lastChoice(keptProfessions, true).toBool());
        const WayIn* last = exchange::wayIn(lastChoice(keptWayIn).toString());
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
    const bool makesBdp = way().into == Into::NewBdp;
    lblOrigem->setText(way().source == Place::File ? "&Do ficheiro" : "&Da pasta");
    lblAlvo->setText(makesBdp ? "&Para a BDP nova" : "&Para a BDP aberta");
    if (makesBdp == txtAlvo->isLocked()) {
        if (!makesBdp) newBdp_ = txtAlvo->text();
        txtAlvo->setLocked(!makesBdp);
        txtAlvo->setText(makesBdp ? newBdp_ : QDir::toNativeSeparators(cnBDP.dataSource()));
    }
    cmdAlvo->setVisible(makesBdp);
    chkLocais->setVisible(way().offers(InChoice::NewPlaces));
    chkProf->setVisible(way().offers(InChoice::NewProfessions));
    cmdDesfazer->setVisible(!makesBdp);
    fraOpcoes->setVisible(!way().choices.empty());
    lookForImport();
    offerCommands();
}

void FrmImportar::cmdOrigem_Click()
{
    const QString title = QString("Importar: ") + QString::fromUtf8(way().title);
    const QString source =
        way().source == Place::File ? openFileName(QString::fromUtf8(way().filter), title) : folderName(title);
    if (!source.isEmpty()) txtOrigem->setText(QDir::toNativeSeparators(source));
}

void FrmImportar::cmdAlvo_Click()
{
    const QString target = saveFileName(bdpFilter, "BDP a criar");
    if (!target.isEmpty()) txtAlvo->setText(QDir::toNativeSeparators(target));
}

QString FrmImportar::whyNotReady()
{
    if (way().into == Into::OpenBdp && cnBDP.state() != jet::Connection::Open)
        return "Deve abrir primeiro a BDP para onde se importa!";
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
    const bool makesBdp = way().into == Into::NewBdp;
    InOrder order{.source = wholePath(txtOrigem->text(), lastFolder(), {}),
                  .bdp = makesBdp ? wholePath(txtAlvo->text(), lastFolder(), bdpSuffix) : cnBDP.dataSource()};
    if (way().offers(InChoice::NewPlaces)) order.options.newPlaces = chkLocais->isChecked();
    if (way().offers(InChoice::NewProfessions)) order.options.newProfessions = chkProf->isChecked();
    return {&way(), order, {}};
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
    keepChoice(keptWayIn, QString::fromUtf8(way().name));
    Desktop::keepFolder(QFileInfo(txtOrigem->text()).absolutePath());
    if (way().offers(InChoice::NewPlaces)) keepChoice(keptPlaces, chkLocais->isChecked());
    if (way().offers(InChoice::NewProfessions)) keepChoice(keptProfessions, chkProf->isChecked());
}

void FrmImportar::cmdImportar_Click()
{
    if (work_ || !rehearsed_) return;
    if (rehearsed_->stamp != stampOf(rehearsed_->order.source)) {
        rehearsed_.reset();
        offerCommands();
        return showMessage("Os ficheiros mudaram depois do ensaio: ensaie outra vez!");
    }
    if (way().into == Into::NewBdp) return begin(*rehearsed_);
    if (const QString busy = whyCardsAreBusy(); !busy.isEmpty()) return showMessage(busy);
    if (askWhetherToStore("Deseja importar este ficheiro para a BDP? Antes é guardada uma cópia de segurança."))
        importIntoOpen();
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
