// The search of places by a piece of their name.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"

#include "ui_frmPesq.h"

// Opened by frmLocalizacao, which waits disabled. The place chosen from the list is set on its combos, level by level;
// it is enabled when this form is unloaded.
class FrmPesq : public Form, private Ui::FrmPesq
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmPesq";

    FrmPesq();

protected:
    void Form_Unload() override;
    void keyPressEvent(QKeyEvent* event) override; // Return searches

private:
    void cmdLoc_Click();
    void chkLoc_Click(); // chkLoc(0), "Todos"
    void LV_DblClick();

    QList<QCheckBox*> caixas; // of the levels, from countries to sites
};
