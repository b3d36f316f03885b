// The editor of the districts of Portugal. Only the editor of countries shows it.
#pragma once

#include "places/EditorComCodigo.h"

#include "ui_frmDistritos.h"

class FrmDistritos : public EditorComCodigo, public Ui::FrmDistritos
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmDistritos";

    FrmDistritos();

    jet::DataControl adoDist{cnBDP};

protected:
    QString instrucao() const override;
    QString instrucaoDoCodigo(const QString& codigo) const override;
    QString instrucaoDoNome(const QString& nome) const override;
    QString instrucaoDosDescendentes(const QString& codigo) const override;
    QString superior() const override { return "PT"; }

private:
    void cmdConc_Click();
};
