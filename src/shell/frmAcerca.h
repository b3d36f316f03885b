// The about box.
#pragma once

#include "platform/forms/form.h"

#include <memory>

namespace Ui {
class FrmAcerca;
}

class FrmAcerca : public Form
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmAcerca";

    FrmAcerca();
    ~FrmAcerca() override;

protected:
    void Form_Load() override;

private:
    void Command1_Click();
    void cmdFechar_Click();

    std::unique_ptr<Ui::FrmAcerca> ui;
};
