// The editor of countries. Nothing shows it: it stands as the head of the editors.
#pragma once

#include "places/editorDeLocais.h"

#include "ui_frmPais.h"

class FrmPais : public EditorDeLocais, private Ui::FrmPais
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmPais";

    FrmPais();

protected:
    jet::NativeSql fonte() const override;
    bool nomeRepetido(const QString& nome, Passo passo) const override;
    QString codigoNovo() override;
    std::optional<jet::NativeSql> eliminacaoDosDescendentes(const QString& codigo) const override;

private:
    void cmdZonas_Click();
    void cmdDist_Click();

    jet::DataControl adoPais{cnBDP};
};
