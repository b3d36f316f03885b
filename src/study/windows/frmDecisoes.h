// The decisions about who is who, and the way back.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "study/linkage/decisions.h"

#include "ui_frmDecisoes.h"

#include <optional>

// Lists the decisions of the BDP, the latest first, and takes the one chosen back, whole or not at all, with the reason
// told where it can't be. The list is read anew whenever the window comes to the front. Nothing is taken back while a
// card edits or searches, or while a window on rows of a record stands open.
class FrmDecisoes : public Form, private Ui::FrmDecisoes
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmDecisoes";

    FrmDecisoes();

protected:
    void Form_Load() override;

private:
    void dtgDecisoes_Click();
    void cmdDesfazer_Click();
    void cmdFechar_Click();

    void keepUpToDate();
    void fillList();
    std::optional<study::linkage::Decision> chosen() const;

    QList<study::linkage::Decision> decisions_;
};
