// "Indicadores": the tables and charts of a study, by subjects, and the people and families behind each number.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "store/session.h"
#include "study/indicators/subject.h"
#include "study/parish/source.h"
#include "study/windows/background.h"
#include "study/windows/parishWatch.h"
#include "study/windows/subjectSheet.h"

#include "ui_frmIndicadores.h"

#include <QProgressBar>
#include <QTimer>

#include <functional>
#include <map>
#include <memory>
#include <vector>

// The subject that is chosen is counted on a thread of its own, over a copy of the BDP that is read once for all
// subjects; everything else goes on meanwhile. A subject is counted once, and its figures stay until the BDP or the
// settings change: of the BDP the window says so, and what is chosen next is counted anew with all the rest, so that
// all figures are of one state. One step at a time is under way; what is asked for meanwhile follows it, the latest
// question alone. After a cancel nothing is counted until the user asks for it. Closing the window ends the work.
class FrmIndicadores : public Form, private Ui::FrmIndicadores
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmIndicadores";

    FrmIndicadores();
    ~FrmIndicadores() override;

    // Whether something is counted, or somebody looked for.
    bool isAtWork() const { return work_ != nullptr; }

    // What was set for the study has changed: what is shown is counted anew. Where the window isn't loaded, nothing.
    static void settingsChanged();

protected:
    void Form_Load() override;
    void changeEvent(QEvent* event) override;

private:
    // The BDP as it was read, made ready for all subjects.
    struct Base
    {
        std::shared_ptr<const study::parish::Snapshot> parish;
        std::shared_ptr<const study::indicators::Study> study;
        study::parish::Source source; // without its mark where somebody wrote while it was made
    };
    // What is to be found out about the subject shown, beside its counts: writes what it finds, and shows it.
    struct Question
    {
        std::function<void(const study::indicators::Subject& subject, const study::indicators::Study& study,
                           const study::Background::GoesOn& goesOn)>
            find;
        std::function<void()> show;
        explicit operator bool() const { return find != nullptr; }
    };

    void connectAll();
    void fillSubjects();
    void tvwTemas_Change();
    void tabPaginas_Change();
    void cmdContar_Click();
    void cmdCancelar_Click();
    static void cmdDefinicoes_Click();
    void cmdCopiar_Click();
    void cmdGravar_Click();
    void offerCommands();

    // frmIndicadores_count.cpp: what is under way
    void goOn();         // with the next step, where none is under way
    void readAndCount(); // throws jet::Error
    void count();
    void answer();
    void begin(std::function<void(const study::Background::GoesOn&)> compute, std::function<void()> take,
               const QString& state);
    void tellProgress(int percent);
    void ended();
    void forget(); // what was read and counted
    void setAtWork(bool atWork);
    void tellState();
    const study::SubjectSheet* sheet() const; // of the subject chosen; null where it isn't counted

    // frmIndicadores_show.cpp: what is seen
    void showSubject();
    void showTable();
    void showChart();
    void showMethod();
    void tellCell(); // the one chosen
    void drawChart();
    const study::report::Table* shownTable() const;
    const study::report::Table* leftOutTable() const;
    const study::report::Table* tableInFront() const; // null for a page without one
    bool hasTableInFront() const;                     // or a chart, whose numbers are one
    const study::report::Chart* shownChart() const;

    // frmIndicadores_behind.cpp: who stands behind a number
    void openCell(const study::report::Table* table, const QModelIndex& index);
    void showBehind(const QString& what);
    void clearBehind();
    void cmdFicha_Click();
    void cmdFamilia_Click();
    void cmdPorque_Click();
    const study::indicators::Who* chosenRecord() const;

    const study::indicators::Subject* subject_ = nullptr; // chosen; null for a group
    std::shared_ptr<const Base> base_;                    // null until it is read
    std::map<QString, study::SubjectSheet> sheets_;       // of base_, by subject
    study::SubjectSheet sheet_;                           // of the subject chosen
    const study::indicators::Subject* sheetOf_ = nullptr; // what the sheet is of
    std::vector<study::indicators::Who> behind_;          // of base_, as listed

    std::unique_ptr<study::ParishWatch> watch_;     // since base_ was read; null before
    std::unique_ptr<study::ParishWatch> nextWatch_; // since a reading has begun
    std::unique_ptr<study::Background> work_;
    std::function<void()> take_; // of what is under way
    Question question_;          // that waits
    bool stopped_ = false;       // by the user
    QString state_;              // of the last step that has ended
    QTimer watching_;
};
