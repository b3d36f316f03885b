// The parish record of a person or of a family: the path of a file, which the desktop shows.
#pragma once

#include "common/dono.h"
#include "platform/forms/controls.h"

#include "ui_frmRP.h"

#include <QString>

class FrmRP : public JanelaDoDono, private Ui::FrmRP
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmRP";

    FrmRP();

    // The records, by the letters of the system: of the baptism ("b") or the death ("o") of a person, of the marriage
    // ("c") of a family.
    struct Registo;

    // Takes the place of the card, which is hidden until the form closes, for a record of the person or family that it
    // shows; does nothing if that isn't stored. A path that was typed and not stored keeps its record: the form only
    // comes to the front then.
    // Precondition: `tipo` is one of the three letters.
    static void mostraPara(Ficha& ficha, const QString& tipo);

protected:
    bool Form_QueryUnload(UnloadMode mode) override;
    bool podeMudarDeDono() const override { return !porGuardar(); }

private:
    void mostra(const Registo& registo, const QString& caminho);
    bool porGuardar() const; // whether the path differs from the one stored
    void cmdLoc_Click();
    void cmdG_0_Click();
    void cmdG_1_Click();
    void cmdG_2_Click();
    void voltaAFicha();

    const Registo* registo_ = nullptr; // null until a card has said which
    QString guardado_;                 // the path as it is stored
};

// Loaded at first touch.
FrmRP& frmRP();
