// The parish record of a person or of a family: the path of a file, which the desktop shows.
#pragma once

#include "common/ficha.h"
#include "platform/forms/controls.h"
#include "platform/forms/form.h"

#include "ui_frmRP.h"

#include <QPointer>
#include <QString>

class FrmRP : public Form, private Ui::FrmRP
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmRP";

    FrmRP();

    // The records, by the letters of the system: of the baptism ("b") or the death ("o") of a person, of the marriage
    // ("c") of a family.
    struct Registo;

    // Takes the place of the card, which is hidden until the form closes, for a record of the person or family that it
    // shows.
    // Precondition: `tipo` is one of the three letters.
    void mostraPara(Ficha& ficha, const QString& tipo);

protected:
    bool Form_QueryUnload(UnloadMode mode) override;

private:
    void cmdLoc_Click();
    void cmdG_0_Click();
    void cmdG_1_Click();
    void cmdG_2_Click();
    void voltaAFicha();

    QPointer<Ficha> ficha_;
    const Registo* registo_ = nullptr; // null until a card has said which
};

// Loaded at first touch.
FrmRP& frmRP();
