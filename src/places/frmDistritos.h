// The editor of the districts of Portugal. Only the editor of countries shows it.
#pragma once

#include "places/editorComCodigo.h"

#include "ui_frmDistritos.h"

class FrmDistritos : public EditorComCodigo, private Ui::FrmDistritos
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmDistritos";

    FrmDistritos();

protected:
    jet::NativeSql fonte() const override;
    QString instrucaoDoCodigo(const QString& codigo) const override;
    bool nomeRepetido(const QString& nome, Passo passo) const override;
    std::optional<jet::NativeSql> eliminacaoDosDescendentes(const QString& codigo) const override;
    QString superior() const override { return "PT"; }

private:
    void cmdConc_Click();

    jet::DataControl adoDist{cnBDP};
};
