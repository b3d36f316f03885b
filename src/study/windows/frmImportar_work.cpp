// The rehearsal, the import and its way back, and what came of them.
#include "study/windows/frmImportar.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/longwork.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "store/session.h"
#include "store/sessionChange.h"
#include "study/transcripts/import.h"
#include "study/windows/cards.h"
#include "study/windows/exchangeText.h"
#include "study/windows/parishCopy.h"
#include "study/windows/pauses.h"
#include "study/windows/underWay.h"

#include <QDir>

#include <chrono>
#include <utility>

using namespace study;
using exchange::Exchanged;

namespace {

constexpr auto itStays = "A importação não pode ser desfeita: nada foi alterado.";

QString lines(const QStringList& reasons)
{
    return reasons.join("\r\n");
}

QString contentsOf(const exchange::GedcomImported& import)
{
    return QString("Pessoas: %1; famílias: %2.").arg(import.people).arg(import.families);
}

} // namespace

void FrmImportar::begin(Asked asked)
{
    asked.stamp = stampOf(asked.order.source);
    asked_ = std::move(asked);
    told_ = std::make_shared<std::optional<Exchanged>>();
    const bool readsBdp = asked_.way->into == exchange::Into::OpenBdp; // a rehearsal alone
    auto copy = readsBdp ? std::make_shared<ParishCopy>(cnBDP) : nullptr;
    work_ = std::make_unique<Background>(
        [copy, told = told_, way = asked_.way, order = asked_.order](const Background::GoesOn& goesOn) {
            *told = readIn(*way, copy ? &copy->open() : nullptr, order, goesOn);
            if (copy) copy->close();
        });
    connect(work_.get(), &Background::progressed, barra, &QProgressBar::setValue);
    connect(work_.get(), &Background::ended, this, &FrmImportar::ended);
    setAtWork(true);
    tell(asked_.order.rehearse ? "A ensaiar…" : "A importar…", {});
}

void FrmImportar::importIntoOpen()
{
    asked_ = *rehearsed_;
    Exchanged told;
    try {
        const UnderWay underWay(*barra, *cmdCancelar);
        tell("A importar…", {});
        told = readIn(*asked_.way, &cnBDP, asked_.order, [this](double done) { return goesOn(done); });
    } catch (const exchange::Interrupted&) {
        return tell("A importação foi cancelada: nada foi escrito.", {});
    } catch (const jet::Error& error) {
        return tell("Não foi possível fazer a importação: nada foi escrito.", error.description);
    }
    lookForImport();
    tellResult(told);
    showOnCards();
}

void FrmImportar::lookForImport()
{
    const bool isOpen = cnBDP.state() == jet::Connection::Open;
    stands_ = isOpen ? exchange::lastImport(cnBDP) : std::nullopt;
}

// Windows that hold rows of the records that go would show what isn't there.
void FrmImportar::cmdDesfazer_Click()
{
    if (work_) return;
    lookForImport();
    if (!stands_) return offerCommands();
    if (const QString inUse = whyRowsAreInUse(); !inUse.isEmpty()) return showMessage(inUse);
    QStringList why;
    {
        const Hourglass hourglass;
        why = exchange::whyImportStays(cnBDP);
    }
    if (!why.isEmpty()) return tell(itStays, lines(why));
    if (ask(QString("Deseja desfazer a importação de \"%1\", de %2? Tudo o que veio com ela sai da BDP. Antes é "
                    "guardada uma cópia de segurança.\n%3")
                .arg(stands_->file, stands_->when.toString("dd/MM/yyyy HH:mm"), contentsOf(*stands_))))
        takeBack();
}

void FrmImportar::takeBack()
{
    const exchange::GedcomImported last = *stands_;
    QStringList why;
    QString copy;
    try {
        const UnderWay underWay(*barra, *cmdCancelar);
        tell("A desfazer…", {});
        copy = copyBeforeTakingBack(cnBDP);
        why = exchange::takeBackImport(cnBDP, [this](double done) { return goesOn(done); });
    } catch (const exchange::Interrupted&) {
        return tell("Foi cancelado: nada foi desfeito.", {});
    } catch (const jet::Error& error) {
        return tell("Não foi possível desfazer a importação: nada foi alterado.", error.description);
    }
    if (!why.isEmpty()) return tell(itStays, lines(why));
    rehearsed_.reset(); // it told of the records that have gone
    lookForImport();
    offerCommands();
    if (!cmdDesfazer->isEnabled()) Focus::setTo(cmdEnsaio);
    const QString state = "A importação de \"" + last.file + "\" foi desfeita.";
    tell(state, lines({"Cópia da BDP: " + QDir::toNativeSeparators(copy), "Saiu da BDP. " + contentsOf(last)}));
    showStatus(state);
    showOnCards();
}

bool FrmImportar::goesOn(double done)
{
    static constexpr int whole = 100;
    if (Clock::now() - shownAt_ < betweenLooks) return true;
    shownAt_ = Clock::now();
    barra->setValue(static_cast<int>(done * whole));
    return !LongWork::cancelled(*this, *cmdCancelar);
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
        else if (asked_.order.rehearse && (*result)->errors.empty()) {
            rehearsed_ = asked_;
            rehearsed_->order.rehearse = false;
        }
        setAtWork(false);
        if (*result) tellResult(**result);
    });
}

void FrmImportar::tellResult(const Exchanged& told)
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
    if (asked_.way->into == exchange::Into::NewBdp) offerToOpen();
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
    cmdDesfazer->setEnabled(!work_ && stands_);
}
