// "Transcrever acto": one act, as the register tells it, on one sheet.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "platform/time/clock.h"
#include "study/acts/plan.h"
#include "study/acts/register.h"
#include "study/acts/sheet.h"
#include "study/people/finder.h"
#include "study/windows/actChoices.h"
#include "study/windows/actRows.h"

#include "ui_frmActo.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <memory>
#include <optional>

class QKeyEvent;

// Holds a sheet and shows it; every field writes into it as it is typed. The act in work is kept as the draft of the
// BDP after each field that is left, and offered when the window opens again.
//
// Keys: Return goes on, taking what the list beside the sheet has chosen; Down, Up and Alt with a number choose there,
// Alt+0 what is new and Alt+- what stays in the act. Tab goes from row to row; F7 leads from a row to its details and
// back. F4 adds a row, Ctrl+- takes an empty one away, F6 repeats, F8 overrules an objection, F3 opens a card,
// Ctrl+Return stores.
class FrmActo : public Form, private Ui::FrmActo
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmActo";

    FrmActo();
    ~FrmActo() override;

    // Shows a stored act, to be read; the act in work stays its draft meanwhile. An act that has gone is told.
    void mostra(qint64 act);

protected:
    void Form_Load() override;
    bool Form_QueryUnload(UnloadMode mode) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void cmbActo_Click();
    void lstQuem_Click(int entry);
    void cmbFreguesia_Click();
    void cmdJuntar_Click();
    void cmdFicha_Click();
    void cmdDesfazer_Click();
    void cmdCorrigir_Click();
    void cmdNovo_Click();
    void cmdGravar_Click();
    void cmdFechar_Click();

    // frmActo.cpp: the fields
    void connectFields();
    void connectField(QWidget* field);
    void connectRows(int first);
    std::optional<study::Spot> spotOf(const QObject* field) const;
    QWidget* widgetFor(const study::Spot& spot) const;
    QWidget* goTo(const study::Spot& spot);
    void fieldEntered(QWidget* field);
    void expectWhoWas(const study::Spot& spot);
    void fieldTyped(const study::Spot& spot, const QString& typed);
    void fieldLeft(QWidget* field);
    bool reads() const { return viewed_.has_value(); } // a stored act is shown

    // frmActo_show.cpp: from the sheet to the screen
    void showSheet();
    void showField(QWidget* field, const study::Spot& spot);
    void showRows();
    void showAfterTyping(const study::Spot& spot);
    void showPerson();
    void showCommands();
    void fillParishes();

    // frmActo_keys.cpp
    bool key(QObject* object, const QKeyEvent& event);
    bool plainKey(QObject* object, int key);
    bool keyWithControl(int key);
    bool enter(QObject* object);
    bool chooseKind(int key);
    void goOn(const study::Spot& from);
    void repeat();
    void openDetails();
    void removeTheRow();
    void openMenuOfRows();
    void addRowOf(const study::NewRow& row);

    // frmActo_choices.cpp: the list beside the sheet
    void fillSoon();
    void fillNow(); // what is still to be filled
    void fillChoices();
    void prepareFinder(); // while the program is idle, as long as anything of it is left
    bool finderIsReady(); // false: its list comes when it is
    study::Choices peopleFor(const study::Spot& spot);
    study::Choices placesFor(const study::Spot& spot);
    study::Choices choicesFor(const study::Spot& spot);
    void showChoices();
    bool moveChoice(int by);
    bool takeNumber(int number);
    bool takeKept();
    void takeEntry(int entry);
    void takeChoice(const study::Spot& spot, const study::Choice& choice);
    bool isSettled(const study::Spot& spot) const;
    void takeWithoutReturn();
    bool takeWhatIsChosen(); // false where the user has to choose first

    // frmActo_plan.cpp: what will be written, and what speaks against it
    void settle();
    void plan();
    void showPlan();
    bool isEarlyToAsk(const study::Objection& objection) const;
    void chooseWhatCanBeOverruled();
    void goToWhatIsObjected(const study::Objection& objection);
    void askForReason();
    void overrule();

    // frmActo_draft.cpp
    void begin(const study::Sheet& sheet);
    void beginNext(study::ActKind kind);
    bool isTyped() const;
    bool keepDraft(); // false where it can't be saved
    void offerDraft();
    void goOnWith(const study::ActDraft& draft);

    // frmActo_store.cpp
    void store();
    void showStored(const study::Act& act, const study::Plan& plan);
    void undo(qint64 act);
    qint64 personInFocus() const;

    jet::Connection& bdp_;
    std::unique_ptr<study::Finder> finder_;
    Alarm preparing_;
    bool listWaits_ = false;                 // for the finder
    std::optional<study::ActRecord> before_; // the act stored last
    study::Sheet sheet_;
    study::Sheet untouched_; // as it was when it was begun
    study::Sheet settled_;   // as it was planned last
    study::Sheet saved_;     // as the draft has it
    std::optional<qint64> viewed_;
    std::optional<qint64> stored_; // by this window, last: what "Abrir ficha" opens
    study::Plan plan_;
    study::Trimmed given_; // what was planned

    QHash<const QObject*, study::Field> fields_; // of the act, and of the person whose details are shown
    std::optional<study::Spot> spot_;            // that has the focus, or had it last
    int person_ = 0;                             // whose details are shown
    study::Choices choices_;
    std::optional<study::Spot> choicesOf_;
    bool chosen_ = false;     // the user has moved in the list
    bool decided_ = false;    // the list has been taken from
    int expectedIn_ = -1;     // the row whose name is typed again, or repeated
    qint64 expected_ = 0;     // whom it had before
    QSet<QString> unplaced_;  // places that the user has left to the act
    bool wasRefused_ = false; // this act, when it was to be stored
    bool searched_ = false;
    bool fills_ = false; // the list is to be filled
    bool draftFails_ = false;
    QString parish_; // in which new places are made
};
