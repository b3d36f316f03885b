// The parish record of a person or of a family: the path of a file, which the desktop shows.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"

#include "ui_frmRP.h"

#include <QString>

class Ficha;

class FrmRP : public Form, public Ui::frmRP
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmRP";

    FrmRP();

    // Takes the place of the card, which is hidden until the form goes: of frmInd for the record of the baptism ("b")
    // or the death ("o") of the person on it, of frmFam for that of the marriage ("c").
    void mostraPara(const QString& tipo);

protected:
    void Form_Load() override;
    bool Form_QueryUnload(UnloadMode mode) override;

private:
    Ficha& ficha() const;
    void cmdLoc_Click();
    void cmdG_0_Click();
    void cmdG_1_Click();
    void cmdG_2_Click();
    void voltaAFicha();
};

// Loaded at first touch.
FrmRP& frmRP();
