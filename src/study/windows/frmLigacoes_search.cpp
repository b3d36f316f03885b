// A search of candidates, on a thread of its own.
#include "study/windows/frmLigacoes.h"

#include "common/modGeral.h"
#include "platform/forms/statusline.h"
#include "study/linkage/verdicts.h"
#include "study/windows/parishCopy.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace study;
using linkage::Record;

namespace {

constexpr double parishReadBy = 0.15, weighedBy = 0.3; // shares of the time of a search

std::unique_ptr<ParishWatch> newWatch()
{
    static const QStringList decisions{"estudo_decisao"};
    auto watch = std::make_unique<ParishWatch>(cnBDP, decisions);
    watch->begin();
    return watch;
}

} // namespace

void FrmLigacoes::cmdProcurar_Click()
{
    guarded([&] { search({}); });
}

// What is asked for while another search is under way follows it.
void FrmLigacoes::search(const std::vector<Record>& only)
{
    if (work_) {
        waiting_.insert(waiting_.end(), only.begin(), only.end());
        return;
    }
    isPart_ = !only.empty();
    found_ = std::make_shared<Found>();
    found_->only = only;
    found_->model = model_;
    setAtWork(true);
    try {
        nextWatch_ = newWatch();
        if (isPart_ && watch_->hasChanged()) nextWatch_->outdate(); // the other lines aren't read anew
        auto copy = std::make_shared<ParishCopy>(cnBDP);
        work_ = std::make_unique<Background>(
            [copy = std::move(copy), found = found_, isPart = isPart_](const Background::GoesOn& goesOn) {
                run(*found, copy->open(), isPart, goesOn);
                copy->close();
            });
    } catch (...) {
        if (isPart_) watch_->outdate();
        finish("As ligações não foram procuradas.");
        throw;
    }
    lblEstado->setText("A procurar…");
    connect(work_.get(), &Background::progressed, barra, &QProgressBar::setValue);
    connect(work_.get(), &Background::ended, this, &FrmLigacoes::ended);
}

// On the thread. A part has the weights of the whole, or the lines of both couldn't stand side by side; whom the
// records are beside by now is concerned, too.
void FrmLigacoes::run(Found& found, jet::Connection& copy, bool isPart, const Background::GoesOn& goesOn)
{
    found.parish =
        std::make_shared<const parish::Snapshot>(parish::Snapshot::read(copy, partOf(goesOn, 0, parishReadBy)));
    const linkage::Verdicts said = linkage::verdicts(copy);
    linkage::Question question{.decided = said.apart, .right = said.right};
    question.named = linkage::namedParents(copy);
    question.spouses = linkage::namedSpouses(copy);
    question.inActs = linkage::namesInActs(copy);
    if (isPart) {
        for (const Record& record : std::vector(found.only))
            std::ranges::copy(around(*found.parish, record), std::back_inserter(found.only));
        std::sort(found.only.begin(), found.only.end());
        found.only.erase(std::unique(found.only.begin(), found.only.end()), found.only.end());
        question.only = found.only;
    } else if (const auto kept = linkage::storedModel(copy)) {
        found.model = *kept;
    } else {
        found.model = linkage::estimated(*found.parish, linkage::startModel(), partOf(goesOn, parishReadBy, weighedBy));
    }
    found.links = linkage::links(*found.parish, found.model, question, partOf(goesOn, weighedBy, 1));
}

void FrmLigacoes::cmdCancelar_Click()
{
    if (work_) work_->cancel();
}

void FrmLigacoes::ended()
{
    guarded([&] {
        if (!work_) return;
        const Outcome outcome = takeOutcome(work_);
        if (outcome.isResult()) return take();
        std::vector<Record> waiting = std::exchange(waiting_, {});
        if (isPart_) watch_->outdate(); // whom the decision concerned stands there as before it
        const QString kept = list_.lines().empty() ? QString() : QString(" A lista é a de antes.");
        finish(outcome.cancelled ? "A procura foi cancelada." + kept
                                 : "As ligações não foram procuradas: " + outcome.failure + kept);
        if (parish_ && !isPart_ && !waiting.empty()) search(waiting);
    });
}

void FrmLigacoes::take()
{
    parish_ = std::move(found_->parish);
    model_ = found_->model;
    watch_ = std::move(nextWatch_);
    if (isPart_) {
        list_.takeFor(*parish_, model_, found_->only, found_->links);
    } else {
        list_.take(*parish_, model_, std::move(found_->links));
        otherWeights_ = false;
    }
    const auto count = list_.lines().size();
    finish(count == 0   ? QString("Não há candidatos.")
           : count == 1 ? QString("1 candidato.")
                        : QString::number(count) + " candidatos.");
    if (!waiting_.empty()) search(std::exchange(waiting_, {}));
}

void FrmLigacoes::finish(const QString& state)
{
    found_.reset();
    nextWatch_.reset();
    setAtWork(false);
    state_ = state;
    showLines();
    showState();
    if (!isPart_) showStatus(state); // of a part the decision is told
}
