// "Exportar": a BDP for other programs, by one of the ways of study/exchange.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "study/exchange/ways.h"
#include "study/windows/background.h"

#include "ui_frmExportar.h"

#include <QCheckBox>
#include <QProgressBar>

#include <memory>
#include <optional>
#include <vector>

// The ways with what each is for, the options of the one chosen, and where it goes. The work runs on a thread over a
// copy of the BDP, so that everything else goes on, and ends with a list of what was written. Nothing is written over
// without a question. Closing the window ends the work. What was chosen is kept for the next time.
class FrmExportar : public Form, private Ui::FrmExportar
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmExportar";

    FrmExportar();
    ~FrmExportar() override;

    bool isAtWork() const { return work_ != nullptr; }

protected:
    void Form_Load() override;

private:
    // An option that is a yes or a no.
    struct Flag
    {
        QCheckBox* box;
        study::exchange::Choice choice;
        const char* kept; // by which it is kept
        bool study::exchange::OutOptions::*option;
    };

    void connectAll();
    void lstFormato_Click();
    void cmdAlvo_Click();
    void cmdExportar_Click();
    void cmdCancelar_Click();
    void cmdCopiar_Click();

    void showLastChoices();
    void keepChoices(const study::exchange::OutOrder& order) const;
    const study::exchange::WayOut& way() const; // the one chosen
    void showWay();
    QString whyNotReady(); // "", or what the user has to do first, with the focus where
    study::exchange::OutOptions options() const;

    void begin(const study::exchange::WayOut& way, study::exchange::OutOrder order); // throws jet::Error
    void ended();
    void tell(const QString& state, const QString& report);
    void setAtWork(bool atWork);

    std::vector<Flag> flags_;
    QString proposed_; // the target, as long as the user has none of their own
    QString target_;   // of what is under way
    std::unique_ptr<study::Background> work_;
    std::shared_ptr<std::optional<study::exchange::Exchanged>> told_; // of it, written when it is done
};
