// The people and families that were deleted, and the way back.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "platform/jet/recordset.h"
#include "store/lixo.h"
#include "store/session.h"

#include "ui_frmRepor.h"

#include <optional>

// Lists the deletions of the BDP, newest first, and puts the one chosen back, whole or not at all; the cards then show
// what was put back. The list is read anew whenever the window comes to the front. While a card edits or searches,
// nothing is put back: what is typed there was begun without it.
class FrmRepor : public Form, private Ui::FrmRepor
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmRepor";

    FrmRepor();

protected:
    void Form_Load() override;

private:
    void cmdRepor_Click();
    void cmdFechar_Click();

    void fillList();
    void keepUpToDate();
    std::optional<int> rowOf(qint64 id);
    std::optional<lixo::Eliminacao> deletionIn(int row); // none where it was put back elsewhere since the list was read
    void showOnCards(const lixo::Eliminacao& deletion);

    jet::DataControl deletions_{cnBDP};
};
