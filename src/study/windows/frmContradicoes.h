// What contradicts in the BDP: the cases that a check finds, by rules.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "platform/time/clock.h"
#include "store/session.h"
#include "study/checks/listing.h"
#include "study/checks/seen.h"
#include "study/parish/snapshot.h"
#include "study/windows/background.h"
#include "study/windows/parishWatch.h"

#include "ui_frmContradicoes.h"

#include <QProgressBar>
#include <QTimer>

#include <array>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

// A check reads the BDP in one look, while the window is painted and takes its cancel alone; then the rules are asked
// on a thread of its own, which holds no lock and knows no connection, while everything else goes on. The cases are
// those of that moment: as soon as a record is touched, the window says so. Those of the check before stay until then,
// also where it is cancelled or fails.
// A case is shown with its records, brought up on their cards, or put aside with a reason, until its records change or
// it is taken back. Closing the window ends a check under way.
class FrmContradicoes : public Form, private Ui::FrmContradicoes
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmContradicoes";

    FrmContradicoes();
    ~FrmContradicoes() override;

    // Whether a check is under way.
    bool isAtWork() const { return run_ != nullptr; }

    // What was set for the rules has changed: tells so beside the cases. Where the window isn't loaded, nothing.
    static void settingsChanged();

protected:
    void Form_Load() override;

private:
    // A line of the list: a case, or one that was put aside, which may be none any more.
    struct Line
    {
        study::checks::Case one;
        std::optional<study::checks::Seen> seen = {};
    };
    struct StoredAct
    {
        qint64 number = 0;
        QString title = {}; // as the BDP has it by now
    };
    using Record = std::variant<const study::parish::Person*, const study::parish::Family*, StoredAct>;

    void cmdVerificar_Click();
    void cmdCancelar_Click();
    void cmdFicha_Click(size_t side);
    static void showAct(qint64 number);
    void cmdVisto_Click();
    void cmdRepor_Click();
    void cmdImprimir_Click();
    void cmdExportar_Click();

    void connectLists();
    void read(); // the BDP, and begins the run; throws jet::Error, parish::Snapshot::Interrupted
    void take(); // what it has left
    bool goesOn(double done);
    void ended();
    void fail(const QString& state);
    void finish(const QString& state);
    void setAtWork(bool atWork);
    void tellState();

    bool showsSeen() const { return cmbMostrar->listIndex() == 1; }
    std::vector<Line> allLines() const; // of what is to be seen, or was
    void readSeen();                    // and shows all anew; throws jet::Error
    void showAll();
    void showCases();
    void fillDecades();
    QStringList cellsOf(const Line& line) const;
    void showCase();
    static QString textOf(const Line& line);
    void showRecord(size_t side);
    void offerCommands();
    const Line* chosenLine() const;
    std::optional<Record> chosenRecord(size_t side) const;
    QString write(const QString& filter, const QString& title, const QByteArray& bytes); // "", or the path

    struct Side
    {
        ComboBox* list = nullptr;
        CommandButton* card = nullptr;
        MemoBox* sheet = nullptr;
    };
    std::array<Side, 2> sides_;

    std::shared_ptr<const study::parish::Snapshot> parish_;  // of the cases
    std::unique_ptr<study::ParishWatch> watch_ = newWatch(); // since they were read
    QString when_;
    bool otherSettings_ = false;

    // Of a check under way, what becomes that of the cases.
    struct Next
    {
        std::shared_ptr<const study::parish::Snapshot> parish = {};
        std::unique_ptr<study::ParishWatch> watch = {};
        QString when = {};
        bool otherSettings = false;
        std::shared_ptr<std::vector<study::checks::Case>> found = {}; // what the run leaves
    };
    static std::unique_ptr<study::ParishWatch> newWatch() { return std::make_unique<study::ParishWatch>(cnBDP); }
    Next next_;
    std::unique_ptr<study::Background> run_;
    QTimer watching_;
    QString state_;

    std::vector<study::checks::Case> cases_; // all that the last check has found
    std::vector<study::checks::Seen> seen_;
    std::vector<Line> filtered_; // of all rules
    std::vector<study::checks::RuleCount> rules_;
    std::vector<Line> lines_;     // of the rule chosen
    std::vector<Record> records_; // of the case chosen
    Clock::Time shownAt_;
};
