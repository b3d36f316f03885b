// What the window of indicators has under way: the BDP is read, a subject counted, a question answered.
#include "study/windows/frmIndicadores.h"

#include "common/modGeral.h"
#include "platform/forms/statusline.h"
#include "study/indicators/settingsJson.h"
#include "study/windows/fileInWork.h"
#include "study/windows/parishCopy.h"
#include "study/windows/subjectCount.h"

#include <utility>

using namespace study;
using indicators::Subject;
using parish::Snapshot;

namespace {

constexpr double readBy = 0.6, readyBy = 0.7; // shares of the time of a first count
constexpr auto searching = "A procurar…";
constexpr auto outdated = " A BDP mudou desde a contagem.";

// On the thread: the figures are values, and of many cells they take their time, too.
SubjectSheet madeOf(const Subject& subject, const indicators::Study& study, const Background::GoesOn& goesOn)
{
    const indicators::Tally tally = countedInPieces(subject, study, goesOn);
    if (!goesOn(1)) throw Snapshot::Interrupted{};
    const auto figures = subject.figures(tally, study.settings);
    if (!goesOn(1)) throw Snapshot::Interrupted{};
    return sheetOf(figures);
}

} // namespace

const SubjectSheet* FrmIndicadores::sheet() const
{
    if (!subject_) return nullptr;
    const QString id = QString::fromUtf8(subject_->id);
    const auto found = sheets_.find(id);
    return found == sheets_.end() ? nullptr : &found->second;
}

void FrmIndicadores::goOn()
{
    if (work_ || !subject_ || stopped_) return;
    if (!base_)
        readAndCount();
    else if (!sheet())
        count();
    else if (question_)
        answer();
}

// Settings and records are of one copy of the file.
void FrmIndicadores::readAndCount()
{
    struct Found
    {
        std::shared_ptr<Base> base;
        SubjectSheet sheet;
    };
    try {
        nextWatch_ = std::make_unique<ParishWatch>(cnBDP);
        nextWatch_->begin();
        auto copy = std::make_shared<ParishCopy>(cnBDP);
        auto found = std::make_shared<Found>();
        const FileInWork file(cnBDP.dataSource());
        const Subject* subject = subject_;
        begin(
            [copy, found, subject, file](const Background::GoesOn& goesOn) {
                const parish::Source source = file.source();
                const indicators::Settings settings = indicators::keptSettings(copy->open());
                auto parish = std::make_shared<const Snapshot>(Snapshot::read(copy->open(), partOf(goesOn, 0, readBy)));
                copy->close();
                auto study = std::make_shared<const indicators::Study>(
                    indicators::studyOf(*parish, settings, partOf(goesOn, readBy, readyBy)));
                found->sheet = madeOf(*subject, *study, partOf(goesOn, readyBy, 1));
                found->base = std::make_shared<Base>(Base{std::move(parish), std::move(study), source});
            },
            [this, found, subject, file] {
                if (!file.isAsItWas()) found->base->source.sha256.clear();
                base_ = std::move(found->base);
                watch_ = std::move(nextWatch_);
                watching_.start();
                sheets_[QString::fromUtf8(subject->id)] = std::move(found->sheet);
            },
            "A ler a BDP e a contar…");
    } catch (...) {
        stopped_ = true;
        state_ = "A BDP não foi lida.";
        tellState();
        throw;
    }
}

void FrmIndicadores::count()
{
    auto found = std::make_shared<SubjectSheet>();
    begin([base = base_, found,
           subject = subject_](const Background::GoesOn& goesOn) { *found = madeOf(*subject, *base->study, goesOn); },
          [this, found, subject = subject_] { sheets_[QString::fromUtf8(subject->id)] = std::move(*found); },
          "A contar…");
}

void FrmIndicadores::answer()
{
    Question question = std::exchange(question_, {});
    begin([base = base_, subject = subject_,
           find = std::move(question.find)](const Background::GoesOn& goesOn) { find(*subject, *base->study, goesOn); },
          [show = std::move(question.show), this, subject = subject_] {
              if (subject == subject_) show();
          },
          searching);
}

void FrmIndicadores::begin(std::function<void(const Background::GoesOn&)> compute, std::function<void()> take,
                           const QString& state)
{
    take_ = std::move(take);
    work_ = std::make_unique<Background>(std::move(compute));
    connect(work_.get(), &Background::progressed, this, &FrmIndicadores::tellProgress);
    connect(work_.get(), &Background::ended, this, &FrmIndicadores::ended);
    setAtWork(true);
    lblEstado->setText(state);
}

// Some searches don't know how far they are: the bar moves without an end then.
void FrmIndicadores::tellProgress(int percent)
{
    barra->setRange(0, percent == 0 && lblEstado->text() == searching ? 0 : 100);
    barra->setValue(percent);
}

// What is shown stays where nothing came of it.
void FrmIndicadores::ended()
{
    guarded([&] {
        if (!work_) return;
        const Outcome outcome = takeOutcome(work_);
        const auto take = std::exchange(take_, {});
        const bool wasSearch = lblEstado->text() == searching;
        setAtWork(false);
        if (outcome.isResult()) {
            state_ = {};
            take();
        } else {
            stopped_ = true;
            question_ = {};
            const QString told =
                outcome.cancelled
                    ? QString(wasSearch ? "A procura foi cancelada." : "A contagem foi cancelada.")
                    : (wasSearch ? "Não foi possível procurar: " : "Não foi possível contar: ") + outcome.failure;
            state_ = wasSearch ? QString() : told; // the figures are as they were
            showStatus(told);
        }
        if (subject_ != sheetOf_ && sheet()) showSubject();
        tellState();
        offerCommands();
        goOn();
    });
}

// Nobody is shown any more of what is forgotten: who is listed points into it.
void FrmIndicadores::forget()
{
    clearBehind();
    question_ = {};
    take_ = {};
    sheets_.clear();
    base_.reset();
    watch_.reset();
    watching_.stop();
    sheetOf_ = nullptr;
    state_ = {};
}

void FrmIndicadores::setAtWork(bool atWork)
{
    setProperty("atWork", atWork); // for who waits for it
    const bool hadFocus = cmdContar->hasFocus() || cmdCancelar->hasFocus();
    cmdContar->setEnabled(!atWork && subject_);
    cmdCancelar->setEnabled(atWork);
    if (hadFocus) (atWork ? cmdCancelar : cmdContar)->setFocus();
    barra->setRange(0, 100);
    barra->setValue(0);
    barra->setVisible(atWork);
}

void FrmIndicadores::tellState()
{
    if (work_) return;
    QString state = state_;
    if (state.isEmpty())
        state = base_ ? "Contado na BDP de " + base_->source.readAt.toString("dd/MM/yyyy HH:mm") + '.'
                      : QString("Escolha um tema.");
    lblEstado->setText(state + (watch_ && watch_->hasChanged() ? outdated : ""));
}
