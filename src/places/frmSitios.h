// The editor of the sites of a locality.
#pragma once

#include "places/EditorProvisorio.h"

#include "ui_frmSitios.h"

class FrmSitios : public EditorProvisorio, public Ui::FrmSitios
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmSitios";

    FrmSitios();

    jet::DataControl adoSit{cnBDP};

protected:
    QString instrucao() const override;
    QString instrucaoDoNome(const QString& nome) const override;
    QString codigoNovo() override;
};
