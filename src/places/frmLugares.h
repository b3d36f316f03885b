// The editor of the localities of a parish.
#pragma once

#include "places/editorProvisorio.h"

#include "ui_frmLugares.h"

class FrmLugares : public EditorProvisorio, private Ui::FrmLugares
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmLugares";

    FrmLugares();

protected:
    jet::NativeSql fonte() const override;
    bool nomeRepetido(const QString& nome, Passo passo) const override;
    QString codigoNovo() override;
    bool podeAlterar() override;

private:
    jet::DataControl adoLug{cnBDP};
};
