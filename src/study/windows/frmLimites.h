// The rules of the check of contradictions: which are asked, and with which limits.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "study/checks/settings.h"

#include "ui_frmLimites.h"

// A line for each tolerance, each rule and each of its limits. What is altered is kept in the BDP at once; a number
// that was typed and not stored is asked about when another line is chosen or the window is closed.
class FrmLimites : public Form, private Ui::FrmLimites
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmLimites";

    FrmLimites();

protected:
    void Form_Load() override;
    bool Form_QueryUnload(UnloadMode mode) override;

private:
    void dtgRegras_Click();
    void cmdGravar_Click();
    void cmdPadrao_Click();
    void cmdTodos_Click();

    const study::checks::Setting* shownSetting() const; // whose value the fields show
    bool isTyped() const;
    void backToShown();
    bool leavesTyped();                              // false: the user stays with it
    bool storeTyped();                               // false where it is no number; throws jet::Error
    void store(const study::checks::Settings& next); // throws jet::Error
    void fillGrid();
    void showSetting();

    study::checks::Settings settings_;
    int shown_ = 0; // the row of the fields
};
