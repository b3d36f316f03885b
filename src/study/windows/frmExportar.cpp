#include "study/windows/frmExportar.h"

#include "common/modGeral.h"
#include "platform/desktop/lastchoices.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "platform/time/clock.h"
#include "store/session.h"
#include "study/windows/exchangeText.h"
#include "study/windows/fileInWork.h"
#include "study/windows/parishCopy.h"

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

#include <utility>

using namespace study;
using Desktop::keepChoice;
using Desktop::lastChoice;
using Desktop::lastFolder;
using exchange::BirthDates;
using exchange::OutOptions;
using exchange::OutOrder;
using exchange::Place;
using exchange::WayOut;

namespace {

constexpr int mostYears = 1000;

// By which the choices are kept.
constexpr auto keptWayOut = "exportar/formato", keptLimit = "exportar/limite", keptDates = "exportar/datas";

// Nothing for what is no number of years.
std::optional<int> yearsIn(const QString& text)
{
    bool isNumber = false;
    const int years = text.trimmed().toInt(&isNumber);
    if (!isNumber || years < 0 || years > mostYears) return {};
    return years;
}

} // namespace

FrmExportar::FrmExportar() : Form(Name)
{
    setupUi(this);
    flags_ = {{chkAssoc, exchange::Choice::AssociationsTwice, "exportar/associacoes", &OutOptions::associationsTwice},
              {chkOrfas, exchange::Choice::EmptyOrphans, "exportar/orfas", &OutOptions::emptyOrphans},
              {chkMaiusculas, exchange::Choice::UpperCase, "exportar/maiusculas", &OutOptions::upperCase},
              {chkInversa, exchange::Choice::ReversedRelations, "exportar/inversa", &OutOptions::reversedRelations},
              {chkFilhos, exchange::Choice::ChildrenAtHome, "exportar/filhos", &OutOptions::childrenAtHome}};
    opensOn(lstFormato, cmdFechar);
    QSizePolicy keepsItsRoom = barra->sizePolicy();
    keepsItsRoom.setRetainSizeWhenHidden(true);
    barra->setSizePolicy(keepsItsRoom);
    barra->hide(); // an empty bar looks like a field to be filled in
    for (const WayOut& one : exchange::waysOut())
        lstFormato->add(QString::fromUtf8(one.title));
    const std::pair<const char*, BirthDates> dates[] = {{"baptismo de criança (CHR)", BirthDates::Christenings},
                                                        {"baptismo de qualquer idade (BAPM)", BirthDates::Baptisms},
                                                        {"nascimento (BIRT)", BirthDates::Births}};
    for (const auto& [title, as] : dates)
        cmbDatas->add(QString::fromUtf8(title), static_cast<qint32>(as));
    connectAll();
}

FrmExportar::~FrmExportar() = default;

void FrmExportar::connectAll()
{
    const auto on = [this](CommandButton* button, void (FrmExportar::*handler)()) {
        connect(button, &CommandButton::clicked, this, [this, handler] { guarded([&] { (this->*handler)(); }); });
    };
    on(cmdAlvo, &FrmExportar::cmdAlvo_Click);
    on(cmdExportar, &FrmExportar::cmdExportar_Click);
    on(cmdCancelar, &FrmExportar::cmdCancelar_Click);
    on(cmdCopiar, &FrmExportar::cmdCopiar_Click);
    connect(cmdFechar, &CommandButton::clicked, this, [this] { unload(); });
    connect(lstFormato, &ListBox::currentRowChanged, this, [this] { guarded([this] { lstFormato_Click(); }); });
}

void FrmExportar::Form_Load()
{
    guarded([&] {
        showLastChoices();
        showWay();
        setAtWork(false);
    });
}

void FrmExportar::showLastChoices()
{
    const OutOptions usual;
    txtLimite->setText(QString::number(yearsIn(lastChoice(keptLimit).toString()).value_or(usual.limitYears)));
    cmbDatas->setListIndex(0);
    ProcuraItemData(*cmbDatas, lastChoice(keptDates, 0).toInt());
    for (const Flag& flag : flags_)
        flag.box->setChecked(lastChoice(flag.kept, usual.*flag.option).toBool());
    const WayOut* last = exchange::wayOut(lastChoice(keptWayOut).toString());
    lstFormato->setListIndex(last ? static_cast<int>(last - exchange::waysOut().data()) : 0);
}

void FrmExportar::keepChoices(const OutOrder& order) const
{
    keepChoice(keptWayOut, QString::fromUtf8(way().name));
    Desktop::keepFolder(QFileInfo(order.target).absolutePath());
    if (way().offers(exchange::Choice::LimitYears)) keepChoice(keptLimit, order.options.limitYears);
    if (way().offers(exchange::Choice::BirthDates)) keepChoice(keptDates, static_cast<int>(order.options.birthDates));
    for (const Flag& flag : flags_)
        if (way().offers(flag.choice)) keepChoice(flag.kept, order.options.*flag.option);
}

const WayOut& FrmExportar::way() const
{
    return exchange::waysOut()[static_cast<std::size_t>(lstFormato->listIndex())];
}

void FrmExportar::lstFormato_Click()
{
    if (lstFormato->listIndex() >= 0) showWay();
}

// A target of the user's own stays.
void FrmExportar::showWay()
{
    const WayOut& shown = way();
    lblExplica->setText(QString::fromUtf8(shown.explanation));
    linhaLimite->setVisible(shown.offers(exchange::Choice::LimitYears));
    linhaDatas->setVisible(shown.offers(exchange::Choice::BirthDates));
    for (const Flag& flag : flags_)
        flag.box->setVisible(shown.offers(flag.choice));
    fraOpcoes->setVisible(!shown.choices.empty());
    lblAlvo->setText(shown.target == Place::File ? "&Para o ficheiro" : "&Para a pasta");
    if (txtAlvo->text() != proposed_) return;
    proposed_ = proposedTarget(shown, cnBDP.dataSource(), lastFolder());
    txtAlvo->setText(proposed_);
}

void FrmExportar::cmdAlvo_Click()
{
    const WayOut& chosen = way();
    const QString folder = QFileInfo(wholePath(txtAlvo->text(), lastFolder(), {})).absolutePath();
    const QString title = QString("Exportar: ") + QString::fromUtf8(chosen.title);
    const QString suffix = QString::fromUtf8(chosen.suffix);
    const QString target =
        chosen.target == Place::File
            ? saveFileName(QString("%1 (*.%2)|*.%2").arg(QString::fromUtf8(chosen.title), suffix), title, folder)
            : folderName(title, folder);
    if (!target.isEmpty()) txtAlvo->setText(QDir::toNativeSeparators(target));
}

QString FrmExportar::whyNotReady()
{
    if (txtAlvo->text().trimmed().isEmpty()) {
        Focus::setTo(txtAlvo);
        return way().target == Place::File ? "Deve indicar o ficheiro para onde se exporta!"
                                           : "Deve indicar a pasta para onde se exporta!";
    }
    if (way().offers(exchange::Choice::LimitYears) && !yearsIn(txtLimite->text())) {
        Focus::setTo(txtLimite);
        return "O limite tem de ser um número de anos, como 110; com 0, ninguém fica de fora!";
    }
    return {};
}

OutOptions FrmExportar::options() const
{
    OutOptions chosen;
    chosen.limitYears = yearsIn(txtLimite->text()).value_or(chosen.limitYears);
    chosen.birthDates = static_cast<BirthDates>(cmbDatas->itemData(cmbDatas->listIndex()));
    for (const Flag& flag : flags_)
        chosen.*flag.option = flag.box->isChecked();
    return chosen;
}

void FrmExportar::cmdExportar_Click()
{
    if (work_) return;
    if (const QString missing = whyNotReady(); !missing.isEmpty()) return showMessage(missing);
    const QString target = wholePath(txtAlvo->text(), lastFolder(), QString::fromUtf8(way().suffix));
    if (target != QDir::fromNativeSeparators(txtAlvo->text())) txtAlvo->setText(QDir::toNativeSeparators(target));
    if (const QString question = questionBefore(way(), target); !question.isEmpty() && !ask(question)) return;
    const OutOrder order{
        .bdp = cnBDP.dataSource(), .target = target, .options = options(), .today = Clock::moment().date()};
    begin(way(), order);
    keepChoices(order);
}

// The mark of the file is told where nobody has written to it since the copy was made.
void FrmExportar::begin(const WayOut& way, OutOrder order)
{
    const Hourglass hourglass;
    const FileInWork file(order.bdp);
    order.source = [file] {
        parish::Source source = file.source();
        if (!file.isAsItWas()) source.sha256.clear();
        return source;
    };
    auto copy = std::make_shared<ParishCopy>(cnBDP);
    told_ = std::make_shared<std::optional<exchange::Exchanged>>();
    target_ = order.target;
    work_ = std::make_unique<Background>(
        [copy, told = told_, way = &way, order = std::move(order)](const Background::GoesOn& goesOn) {
            *told = writeOut(*way, copy->open(), order, goesOn);
            copy->close();
        });
    connect(work_.get(), &Background::progressed, barra, &QProgressBar::setValue);
    connect(work_.get(), &Background::ended, this, &FrmExportar::ended);
    setAtWork(true);
    tell("A exportar…", {});
}

// What was whole before the cancel has come stays.
void FrmExportar::ended()
{
    guarded([&] {
        if (!work_) return;
        const Outcome outcome = takeOutcome(work_);
        setAtWork(false);
        const auto told = std::exchange(told_, nullptr);
        if (*told) {
            const QString state = "Exportado para " + QDir::toNativeSeparators(target_) + '.';
            tell(state, reportOn(**told));
            showStatus(state);
        } else if (outcome.cancelled) {
            tell("A exportação foi cancelada: nada foi escrito.", {});
        } else {
            tell("Não foi possível exportar: nada foi escrito.", outcome.failure);
        }
    });
}

void FrmExportar::tell(const QString& state, const QString& report)
{
    lblEstado->setText(state);
    txtRel->setText(report);
    cmdCopiar->setEnabled(!report.isEmpty());
}

void FrmExportar::setAtWork(bool atWork)
{
    setProperty("atWork", atWork); // for who waits for it
    const bool hadFocus = cmdExportar->hasFocus() || cmdCancelar->hasFocus();
    cmdExportar->setEnabled(!atWork);
    cmdCancelar->setEnabled(atWork);
    if (hadFocus) (atWork ? cmdCancelar : cmdExportar)->setFocus();
    barra->setValue(0);
    barra->setVisible(atWork);
}

void FrmExportar::cmdCancelar_Click()
{
    if (work_) work_->cancel();
}

void FrmExportar::cmdCopiar_Click()
{
    QGuiApplication::clipboard()->setText(lblEstado->text() + '\n' + txtRel->text().replace("\r\n", "\n") + '\n');
    showStatus("Relatório copiado.");
}
