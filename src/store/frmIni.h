// The dialog that opens or creates a BDP and sets its parish.
#pragma once

#include "platform/forms/form.h"
#include "platform/forms/statusline.h"

#include <memory>

namespace Ui {
class FrmIni;
}

// Carries out the operation that OperacaoBDP names when it is loaded. Only "OK" and "Cancelar" close it.
class FrmIni : public Form
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmIni";

    FrmIni();
    ~FrmIni() override;

protected:
    void Form_Load() override;
    bool Form_QueryUnload(UnloadMode mode) override;

private:
    void txtLoc_Change();
    void cmdLoc_Click();
    void txtParoquia_Change();
    void Command1_Click();
    void cmdOk_Click();
    void cmdC_Click();

    void escolheBDP();
    void escolheNovaBDP();
    void limpaSessao();
    void deixaBDP();
    void esqueceParoquia();
    void dizOQueSeSegue();

    std::unique_ptr<Ui::FrmIni> ui;
    StatusHint dica_;
    bool fica_ = false; // while all other forms are unloaded
};
