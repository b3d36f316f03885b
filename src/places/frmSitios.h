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
    jet::NativeSql fonte() const override;
    bool nomeRepetido(const QString& nome, Passo passo) const override;
    QString codigoNovo() override;
};
