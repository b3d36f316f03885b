// The offer of a backup copy of the BDP.
#pragma once

#include "platform/forms/form.h"

#include <memory>

namespace Ui {
class FrmBack;
}

class FrmBack : public Form
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmBack";

    FrmBack();
    ~FrmBack() override;

    // Shows the dialog, then notes the occasion, which decides what unloading it does, with or without a copy:
    // "a" shows frmIni, "f" ends the program, "b" nothing.
    void mostraPara(const QString& ocasiao);

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void cmdLoc_Click();
    void cmdB_0_Click();
    void cmdB_1_Click();

    std::unique_ptr<Ui::FrmBack> ui;
    QString ocasiao_; // "" until it is told
};

FrmBack& frmBack();
