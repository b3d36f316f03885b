#include "study/windows/frmJuntar.h"

#include "common/dono.h"
#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "store/session.h"
#include "study/windows/cards.h"
#include "study/windows/decisionNews.h"

#include <QShortcut>

#include <algorithm>
#include <utility>

using study::MergeSubject;
using study::linkage::SameCouple;

namespace {

constexpr std::array mergeSubjects{MergeSubject::People, MergeSubject::Families, MergeSubject::Places,
                                   MergeSubject::Professions, MergeSubject::Codes};

} // namespace

FrmJuntar::FrmJuntar() : Form(Name), bdp_(cnBDP), finder_(std::make_unique<study::Finder>(cnBDP)), watch_(cnBDP)
{
    setupUi(this);
    sides_ = {Side{txtFica, lblNomeFica}, Side{txtOutro, lblNomeOutro}};
    for (const MergeSubject each : mergeSubjects)
        cmbQue->add(study::title(each));
    cmbQue->setListIndex(0);
    for (int side = 0; side < 2; ++side) {
        connect(sides_.at(size_t(side)).box, &TextBox::textEdited, this,
                [this, side] { guarded([&] { typed(side); }); });
        sides_.at(size_t(side)).box->installEventFilter(this);
    }
    connect(&preparing_, &Alarm::rings, this, [this] { guarded([&] { prepareFinder(); }); });
    connect(cmbQue, &ComboBox::clicked, this, &FrmJuntar::cmbQue_Click);
    connect(lstQuem, &QListWidget::itemClicked, this, &FrmJuntar::lstQuem_Click);
    connect(lstQuem, &QListWidget::itemActivated, this, &FrmJuntar::lstQuem_Click);
    connect(lstCasais, &QListWidget::itemChanged, this, &FrmJuntar::lstCasais_Click);
    connect(dtgDif, &Grid::doubleClicked, this, &FrmJuntar::cmdValor_Click);
    connect(new QShortcut(Qt::Key_Space, dtgDif, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
            &FrmJuntar::cmdValor_Click);
    connect(cmdTrocar, &CommandButton::clicked, this, &FrmJuntar::cmdTrocar_Click);
    connect(cmdFamilia, &CommandButton::clicked, this, &FrmJuntar::cmdFamilia_Click);
    connect(cmdValor, &CommandButton::clicked, this, &FrmJuntar::cmdValor_Click);
    connect(cmdJuntar, &CommandButton::clicked, this, &FrmJuntar::cmdJuntar_Click);
    connect(cmdFicha, &CommandButton::clicked, this, &FrmJuntar::cmdFicha_Click);
    connect(cmdDecisoes, &CommandButton::clicked, this, &FrmJuntar::cmdDecisoes_Click);
    connect(cmdFechar, &CommandButton::clicked, this, &FrmJuntar::cmdFechar_Click);
    setLastFocus(txtFica);
    offerCommands();
}

FrmJuntar::~FrmJuntar() = default;

MergeSubject FrmJuntar::subject() const
{
    return mergeSubjects.at(size_t(std::max(cmbQue->listIndex(), 0)));
}

void FrmJuntar::mostra(MergeSubject wanted, const QString& kept, const QString& other)
{
    guarded([&] {
        cmbQue->setListIndex(int(std::ranges::find(mergeSubjects, wanted) - mergeSubjects.begin()));
        sides_[0].pick = study::pickWithKey(bdp_, wanted, kept);
        sides_[1].pick = study::pickWithKey(bdp_, wanted, other);
        for (const Side& side : sides_) {
            if (side.pick) continue;
            side.box->clear();
            side.label->setText("(não existe)");
        }
        txtRazao->clear();
        showPair();
    });
}

// What was typed for one kind is no name of another.
void FrmJuntar::cmbQue_Click()
{
    guarded([&] {
        for (Side& side : sides_) {
            side.pick.reset();
            side.box->clear();
            side.label->clear();
        }
        clearPicks();
        showPair();
    });
}

void FrmJuntar::lstQuem_Click()
{
    guarded([&] { takeFromList(); });
}

void FrmJuntar::lstCasais_Click()
{
    guarded([&] {
        readCouples();
        planAnew();
        showDifferences();
        showWords();
        offerCommands();
    });
}

// The other family of the couple stays.
void FrmJuntar::cmdFamilia_Click()
{
    guarded([&] {
        const int row = lstCasais->listIndex();
        if (!plan_ || row < 0 || row >= plan_->couples.size()) return;
        const SameCouple& couple = plan_->couples[row];
        for (auto& pair : joined_)
            if (pair == std::pair(couple.kept, couple.other)) std::swap(pair.first, pair.second);
        planAnew();
        showPlan();
        lstCasais->setListIndex(row);
    });
}

void FrmJuntar::cmdTrocar_Click()
{
    guarded([&] {
        std::swap(sides_[0].pick, sides_[1].pick);
        showPair();
    });
}

// The value of the other record, or the first one again.
void FrmJuntar::cmdValor_Click()
{
    using enum study::linkage::Side;
    guarded([&] {
        const int row = dtgDif->row();
        if (row < 1 || row > int(choices_.size())) return;
        const Choice choice = choices_[size_t(row - 1)];
        const auto now = sideOf(choice) == Kept ? Other : Kept;
        decided_.removeIf([&](const auto& one) { return one.first == choice.difference.column; });
        decided_ << std::pair(choice.difference.column, now);
        planAnew();
        showDifferences();
        showWords();
        offerCommands();
        dtgDif->setRow(row);
    });
}

void FrmJuntar::cmdJuntar_Click()
{
    guarded([&] {
        if (!plan_ || !plan_->isPossible()) return;
        if (const QString reason = study::whyRowsAreInUse(); !reason.isEmpty()) return showMessage(reason);
        const QString kept = sides_[0].pick->key, other = sides_[1].pick->key;
        const study::linkage::MergeChoices chosen = choices();
        if (study::planned(bdp_, subject(), kept, other, chosen) != *plan_) {
            showPair();
            return showMessage(study::linkage::changedSince);
        }
        if (!study::isCopiedForToday()) return;
        try {
            const Hourglass hourglass;
            study::DecisionNews::all().during([&] { return study::merged(bdp_, subject(), kept, other, chosen); });
        } catch (const study::linkage::MergeRefused& refused) {
            return showMessage("Nada foi junto. " + refused.text);
        }
        showMerged(kept, other, chosen.join);
    });
}

// The one that has gone leaves its field, where the next one can be named.
void FrmJuntar::showMerged(const QString& kept, const QString& other, const QList<QPair<qint64, qint64>>& joined)
{
    const QString told = "Junto: " + plan_->other + " é agora " + plan_->kept + '.';
    if (subject() == MergeSubject::People) JanelaDoDono::fechaAsDe(TipoDeDono::Individuo, other);
    if (subject() == MergeSubject::Families) JanelaDoDono::fechaAsDe(TipoDeDono::Familia, other);
    for (const auto& families : joined)
        JanelaDoDono::fechaAsDe(TipoDeDono::Familia, QString::number(families.second));
    evenIfItFails([&] { study::DecisionNews::all().during([&] { finder_->update(); }); }); // its index is no record
    evenIfItFails([&] { study::showOnCards(); });
    sides_[0].pick = study::pickWithKey(bdp_, subject(), kept);
    sides_[1].pick.reset();
    txtOutro->clear();
    lblNomeOutro->clear();
    txtRazao->clear();
    showPair();
    Focus::setTo(txtOutro);
    showStatus(told);
}

void FrmJuntar::cmdFicha_Click()
{
    guarded([&] {
        const auto& pick = sides_.at(size_t(active_)).pick ? sides_.at(size_t(active_)).pick : sides_[0].pick;
        if (!pick || !study::isNumbered(subject())) return;
        study::showOnCard(subject() == MergeSubject::People ? "frmInd" : "frmFam", pick->key.toLongLong());
    });
}

// One that is open is loaded anew, as more may have been decided since.
void FrmJuntar::cmdDecisoes_Click()
{
    guarded([&] {
        if (Form* open = Forms::find("frmDecisoes")) open->unload();
        Forms::show("frmDecisoes");
    });
}

void FrmJuntar::cmdFechar_Click()
{
    unload(UnloadMode::ControlMenu);
}
