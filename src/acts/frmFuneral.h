// The funeral of a person: the priest and his function, the shroud, the church, the grave.
#pragma once

#include "common/dono.h"
#include "common/passo.h"
#include "common/registoVisto.h"
#include "platform/forms/controls.h"
#include "platform/forms/modes.h"
#include "platform/jet/recordset.h"

#include "ui_frmFuneral.h"

#include <QString>

// All of these are columns of the person's own row. The card of the person is disabled while the form is open, except
// while a priest is chosen, and shows the person again when the form closes.
class FrmFuneral : public JanelaDoDono, private Ui::FrmFuneral
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmFuneral";

    FrmFuneral();

protected:
    void Form_Load() override;
    bool Form_QueryUnload(UnloadMode mode) override;
    void Form_Unload() override;
    bool podeMudarDeDono() const override { return comandos_.passo() == Passo::Repouso; }
    void volta() override;

private:
    void AplicarModo(Modo modo);
    void LimpaCampos();
    void ActualizaCampos(const jet::Recordset& individuo);
    jet::Recordset guardado() const;
    void cmdIrpara_Click();
    void cmdE_Click();
    void cmdF_Click();
    void grava();
    void terminaEdicao();

    Comandos comandos_;
    RegistoVisto visto_; // the row as the edit found it
    QString DataActo;    // taken when the form opens, as the card moves away in a pick
};
