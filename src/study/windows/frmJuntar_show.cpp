// The two records, what differs, and what would be written.
#include "study/windows/frmJuntar.h"

#include "platform/forms/msgbox.h"
#include "study/parish/record.h"
#include "study/windows/sideBySide.h"

#include <QSignalBlocker>

#include <algorithm>
#include <utility>

using study::MergeSubject;
using study::linkage::Difference;
using study::linkage::SameCouple;

namespace {

constexpr int titleWidth = 130;
constexpr int valueWidth = 200;
constexpr int sideWidth = 50;

template <class Numbers>
study::parish::ComparedLines linesOf(const study::parish::Snapshot& parish, const Numbers* one, const Numbers* other)
{
    if (!one || !other) return {};
    return study::parish::compared(study::parish::record(parish, *one), study::parish::record(parish, *other));
}

} // namespace

// From both fields on. What was decided was decided for the pair.
void FrmJuntar::showPair()
{
    for (Side& side : sides_) {
        const QSignalBlocker quiet(side.box);
        if (side.pick) side.box->setText(study::isNumbered(subject()) ? side.pick->key : side.pick->shown);
        if (!side.pick && side.label->text() != "(não existe)") side.label->clear();
        if (side.pick) side.label->setText(study::isNumbered(subject()) ? side.pick->shown : QString());
    }
    decided_.clear();
    joined_.clear();
    plan_.reset();
    const bool both = sides_[0].pick && sides_[1].pick;
    if (both && sides_[0].pick->key != sides_[1].pick->key) {
        plan_ = study::planned(bdp_, subject(), sides_[0].pick->key, sides_[1].pick->key);
        joined_ = study::linkage::possibleJoins(*plan_);
        planAnew();
    }
    showPlan();
}

// With what is chosen by now, as the merge would make it.
void FrmJuntar::planAnew()
{
    if (plan_) plan_ = study::planned(bdp_, subject(), sides_[0].pick->key, sides_[1].pick->key, choices());
}

void FrmJuntar::showPlan()
{
    showRecords();
    showCouples();
    showDifferences();
    showWords();
    offerCommands();
}

void FrmJuntar::showRecords()
{
    study::parish::ComparedLines lines;
    if (plan_ && study::isNumbered(subject())) {
        if (!parish_ || watch_.hasChanged()) {
            const Hourglass hourglass;
            watch_.begin();
            parish_ = study::parish::Snapshot::read(bdp_);
        }
        const study::parish::Snapshot& parish = *parish_;
        const qint64 kept = sides_[0].pick->key.toLongLong(), other = sides_[1].pick->key.toLongLong();
        using namespace study::parish;
        lines = subject() == MergeSubject::People
                    ? linesOf(parish, parish.person(PersonNumber(kept)), parish.person(PersonNumber(other)))
                    : linesOf(parish, parish.family(FamilyNumber(kept)), parish.family(FamilyNumber(other)));
    }
    study::showSideBySide(*dtgFichas, lines, plan_ ? plan_->kept : QString(), plan_ ? plan_->other : QString());
}

// Those that can be joined are at first, unless the user takes the mark away.
void FrmJuntar::showCouples()
{
    const QSignalBlocker quiet(lstCasais);
    lstCasais->clear();
    if (!plan_) return;
    for (const SameCouple& couple : plan_->couples) {
        lstCasais->add(couple.text +
                       (couple.refusals.isEmpty() ? "" : "\n     não se juntam: " + couple.refusals.join(' ')));
        QListWidgetItem* entry = lstCasais->item(lstCasais->count() - 1);
        const bool possible = couple.refusals.isEmpty();
        entry->setFlags(possible ? entry->flags() | Qt::ItemIsUserCheckable : entry->flags() & ~Qt::ItemIsEnabled);
        entry->setCheckState(isJoined(couple) ? Qt::Checked : Qt::Unchecked);
    }
    lstCasais->setListIndex(plan_->couples.isEmpty() ? -1 : 0); // where the space bar acts
}

bool FrmJuntar::isJoined(const SameCouple& couple) const
{
    return joined_.contains(std::pair(couple.kept, couple.other));
}

// What is ticked.
void FrmJuntar::readCouples()
{
    if (!plan_) return;
    joined_.clear();
    for (int row = 0; row < lstCasais->count() && row < plan_->couples.size(); ++row)
        if (lstCasais->item(row)->checkState() == Qt::Checked)
            joined_ << std::pair(plan_->couples[row].kept, plan_->couples[row].other);
}

study::linkage::Side FrmJuntar::sideOf(const Choice& choice) const
{
    const auto found =
        std::ranges::find_if(decided_, [&](const auto& one) { return one.first == choice.difference.column; });
    return found == decided_.end() ? choice.difference.proposed : found->second;
}

void FrmJuntar::showDifferences()
{
    choices_.clear();
    if (plan_) {
        for (const Difference& difference : plan_->differences)
            choices_.push_back({difference, difference.title});
        for (const SameCouple& couple : plan_->couples)
            for (const Difference& difference : isJoined(couple) ? couple.differences : QList<Difference>{})
                choices_.push_back({difference, "família " + QString::number(couple.kept) + ": " + difference.title});
    }
    const int count = int(choices_.size());
    dtgDif->setRows(count == 0 ? 0 : count + 1);
    if (count > 0) {
        dtgDif->setColumns({{"Diferença", titleWidth},
                            {"1: " + plan_->kept, valueWidth},
                            {"2: " + plan_->other, valueWidth},
                            {"Vale", sideWidth}});
        dtgDif->fill(count + 1, [this](int row) -> QStringList {
            if (row < 1 || row > int(choices_.size())) return {};
            const Choice& choice = choices_[size_t(row - 1)];
            const bool first = sideOf(choice) == study::linkage::Side::Kept;
            return {choice.title, choice.difference.kept, choice.difference.other, first ? "o 1" : "o 2"};
        });
    }
    cmdValor->setEnabled(count > 0);
}

void FrmJuntar::showWords()
{
    QStringList words;
    if (plan_) {
        for (const QString& refusal : plan_->refusals)
            words << "Não se pode juntar: " + refusal;
        words << plan_->sentences << plan_->doubles;
    } else if (sides_[0].pick && sides_[1].pick) {
        words << "É o mesmo registo.";
    }
    txtFrases->setText(words.join("\r\n"));
}

void FrmJuntar::offerCommands()
{
    cmdJuntar->setEnabled(plan_ && plan_->isPossible());
    cmdTrocar->setEnabled(sides_[0].pick && sides_[1].pick);
    cmdFamilia->setEnabled(plan_ && !joined_.isEmpty());
    cmdFicha->setEnabled(study::isNumbered(subject()) && (sides_[0].pick || sides_[1].pick));
    if (!plan_) cmdValor->setEnabled(false);
}

study::linkage::MergeChoices FrmJuntar::choices() const
{
    study::linkage::MergeChoices chosen;
    chosen.sides = decided_;
    chosen.join = joined_;
    chosen.reason = txtRazao->text();
    chosen.expected = plan_->mark;
    return chosen;
}
