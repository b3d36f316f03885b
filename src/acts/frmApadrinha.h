// At which acts a person assisted, as godparent or witness. The form only reads.
#pragma once

#include "acts/fichaDoAssistente.h"
#include "common/dono.h"
#include "platform/forms/controls.h"
#include "platform/jet/recordset.h"
#include "store/session.h"

#include "ui_frmApadrinha.h"

#include <QString>

// The card of the person is disabled while this is open, and enabled again when it closes.
class FrmApadrinha : public JanelaDoDono, private Ui::FrmApadrinha
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmApadrinha";

    FrmApadrinha();

protected:
    void Form_Load() override;
    bool podeMudarDeDono() const override { return true; }
    void volta() override;

private:
    void LimpaCampos();
    void ActualizaCampos(jet::Recordset& actos);
    void mostraBaptismo(const jet::Recordset& acto);
    void mostraCasamento(const jet::Recordset& acto);
    void PreencheFG();
    void PreencheLinha(int linha);
    void dtgAp_Click();
    void cmdSair_Click();

    jet::DataControl adoAp{cnBDP}; // the acts, by their dates
};
