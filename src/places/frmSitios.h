// The editor of the sites of a locality.
#pragma once

#include "places/editorProvisorio.h"

#include "ui_frmSitios.h"

class FrmSitios : public EditorProvisorio, private Ui::FrmSitios
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmSitios";

    FrmSitios();

protected:
    jet::NativeSql fonte() const override;
    bool nomeRepetido(const QString& nome, Passo passo) const override;
    QString codigoNovo() override;

private:
    jet::DataControl adoSit{cnBDP};
};
