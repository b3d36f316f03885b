// The editor of the localities of a parish.
#pragma once

#include "places/EditorProvisorio.h"

#include "ui_frmLugares.h"

class FrmLugares : public EditorProvisorio, public Ui::FrmLugares
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmLugares";

    FrmLugares();

    jet::DataControl adoLug{cnBDP};

protected:
    QString instrucao() const override;
    QString instrucaoDoNome(const QString& nome) const override;
    QString codigoNovo() override;
    bool podeAlterar() override;
};
