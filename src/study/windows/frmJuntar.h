// "Juntar": two people, or two families, places, professions or codes, become one.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "platform/time/clock.h"
#include "study/linkage/merge.h"
#include "study/parish/snapshot.h"
#include "study/people/finder.h"
#include "study/windows/mergeSubjects.h"
#include "study/windows/parishWatch.h"

#include "ui_frmJuntar.h"

#include <QList>

#include <array>
#include <memory>
#include <optional>
#include <vector>

// Two fields take a number or a name, and the list beside them whom it may mean: Down and Up choose there, Return
// takes. Then both records are shown side by side, each difference with a choice, and what would be written. Nothing is
// written before "Juntar", which sees to the copy of the day first, and plans anew: where the plan is another one by
// now it is shown, and nothing is done.
class FrmJuntar : public Form, private Ui::FrmJuntar
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmJuntar";

    FrmJuntar();
    ~FrmJuntar() override;

    // Proposes two, by their keys. What the window had chosen before is dropped; nothing of it is stored.
    void mostra(study::MergeSubject subject, const QString& kept, const QString& other);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void cmbQue_Click();
    void lstQuem_Click();
    void lstCasais_Click();
    void cmdTrocar_Click();
    void cmdFamilia_Click();
    void cmdValor_Click();
    void cmdJuntar_Click();
    void cmdFicha_Click();
    void cmdDecisoes_Click();
    void cmdFechar_Click();

    struct Side
    {
        TextBox* box = nullptr;
        QLabel* label = nullptr;
        std::optional<study::Pick> pick = {};
    };
    // A difference that the user decides: of the two records, or of two of their families.
    struct Choice
    {
        study::linkage::Difference difference;
        QString title;
    };

    // frmJuntar_choices.cpp: whom the fields mean
    study::MergeSubject subject() const;
    void typed(int side);
    bool key(int side, int key);
    void fillSoon();
    void prepareFinder();
    void fillPicks();
    QList<study::Pick> peopleNamed(const QString& name);
    void take(int side, const std::optional<study::Pick>& pick);
    bool takeFromList();
    void clearPicks();

    // frmJuntar_show.cpp
    void showPair();
    void planAnew();
    void showPlan();
    void showRecords();
    void showDifferences();
    void showCouples();
    void showWords();
    void offerCommands();
    bool isJoined(const study::linkage::SameCouple& couple) const;
    void readCouples();
    study::linkage::Side sideOf(const Choice& choice) const;
    study::linkage::MergeChoices choices() const;

    void showMerged(const QString& kept, const QString& other, const QList<QPair<qint64, qint64>>& joined);

    jet::Connection& bdp_;
    std::unique_ptr<study::Finder> finder_;
    Alarm preparing_;
    std::array<Side, 2> sides_;
    int active_ = 0; // the field that the list serves
    QList<study::Pick> picks_;
    bool fills_ = false;
    std::optional<study::linkage::MergePlan> plan_;
    std::vector<Choice> choices_;
    QList<QPair<QString, study::linkage::Side>> decided_; // by the column; what isn't named is proposed
    QList<QPair<qint64, qint64>> joined_;                 // the families that are joined: which stays, which goes
    std::optional<study::parish::Snapshot> parish_;       // as it was when the records were last shown
    study::ParishWatch watch_;
};
