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
    jet::NativeSql fonte() const override;
    bool nomeRepetido(const QString& nome, Passo passo) const override;
    QString codigoNovo() override;
    bool podeAlterar() override;
};
