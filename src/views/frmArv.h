// The window with the tree of one individual.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"

#include "ui_frmArv.h"

// The caller shows it, writes lblTipo ("Indivíduo": the person on frmInd, three generations; "Conjuge": the person of
// txtNind, two), txtNind and txtNome, disables frmInd, and calls PreencheArv(). Closing the window enables frmInd
// again.
class FrmArv : public Form, public Ui::FrmArv
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmArv";

    FrmArv();

    void PreencheArv();

protected:
    void Form_Unload() override;
};

FrmArv& frmArv();
