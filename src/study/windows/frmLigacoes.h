// "Ligações": who may be the same, which links are missing or doubtful, and what the researcher says to each.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "store/session.h"
#include "study/linkage/candidates.h"
#include "study/linkage/decisions.h"
#include "study/windows/background.h"
#include "study/windows/linkList.h"
#include "study/windows/parishWatch.h"

#include "ui_frmLigacoes.h"

#include <QProgressBar>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

// A search copies the file of the BDP, and reads and compares the copy on a thread of its own, while everything else
// goes on. Until it has ended the list stays as it is, and nothing of it can be decided; where it is cancelled or
// fails, nothing has changed. What follows from a decision, made here or in another window, is seen at once: who has
// gone vanishes from all lines, and who is concerned is compared anew, with the weights of the search. Two are joined
// here only where nothing of them differs and nobody else has touched the BDP since it was read; otherwise frmJuntar
// comes up with both, and asks. Every decision counts and can be taken back here, the last one first, also those of
// other days. Closing the window ends a search under way.
class FrmLigacoes : public Form, private Ui::FrmLigacoes
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmLigacoes";

    FrmLigacoes();
    ~FrmLigacoes() override;

    bool isAtWork() const { return atWork_; }

    // The weights that are kept are others by now: tells so beside the candidates. Where the window isn't loaded,
    // nothing.
    static void weightsChanged();

protected:
    void Form_Load() override;

private:
    void connectAll();

    void cmdPesos_Click();
    void cmdFechar_Click();
    void setAtWork(bool atWork);
    void deciding();                                                                    // somebody does, in any window
    void decided();                                                                     // somebody has
    std::vector<study::linkage::Record> follow(QList<study::linkage::Decision> before); // whom it concerns
    void readDecisions();                                                               // throws jet::Error
    void lookAround();

    // frmLigacoes_search.cpp
    void cmdProcurar_Click();
    void cmdCancelar_Click();
    void search(const std::vector<study::linkage::Record>& only); // all where that is empty; throws jet::Error
    void ended();
    void take();
    void finish(const QString& state);

    // frmLigacoes_show.cpp: what is seen
    void lists_Click();
    void cmdSeguinte_Click();
    void cmdFicha_Click(bool ofOne);
    void showLines(); // the line stays
    void fillLines();
    void showLine();
    void showEvidence(const std::vector<study::linkage::Evidence>& evidence);
    void showState();
    void offerCommands();
    study::LinkList::Shown shown() const;
    std::optional<study::LinkList::Line> chosen() const;

    // frmLigacoes_decide.cpp: what is said
    void cmdMesmo_Click();
    void cmdDistinto_Click();
    void cmdDepois_Click();
    void cmdVoltar_Click();
    void cmdJuntar_Click();
    void openMerge(const study::linkage::Link& link, const QString& why);
    void sayTheSame(const study::linkage::Link& link);
    void merge(const study::linkage::Link& link);
    void setOrigin(const study::linkage::Link& link);

    struct Found // what a search leaves, written by its thread and read when it has ended
    {
        std::shared_ptr<const study::parish::Snapshot> parish = {};
        study::linkage::Model model = {};
        std::vector<study::linkage::Record> only = {};
        std::vector<study::linkage::Link> links = {};
    };
    static void run(Found& found, jet::Connection& copy, bool isPart, const study::Background::GoesOn& goesOn);

    std::shared_ptr<const study::parish::Snapshot> parish_; // of the lines
    study::linkage::Model model_;                           // the same
    std::unique_ptr<study::ParishWatch> watch_;             // since the lines were read; null before
    std::unique_ptr<study::ParishWatch> nextWatch_;         // since a search has begun
    std::shared_ptr<Found> found_;
    std::unique_ptr<study::Background> work_;
    bool atWork_ = false, isPart_ = false;        // of the search under way
    std::vector<study::linkage::Record> waiting_; // whom a decision has concerned meanwhile
    QTimer watching_;

    study::LinkList list_;
    std::vector<study::LinkList::Line> lines_;  // that are seen
    QList<study::linkage::Decision> decisions_; // all about links, the latest first
    qint64 lastBefore_ = 0;                     // the latest one when the window was opened
    QString state_;
    bool otherWeights_ = false;
};
