// The editor of the municipalities of a district. No command that a user reaches shows it.
#pragma once

#include "places/editorComCodigo.h"

#include "ui_frmConcelhos.h"

class FrmConcelhos : public EditorComCodigo, private Ui::FrmConcelhos
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmConcelhos";

    FrmConcelhos();

    jet::DataControl adoConc{cnBDP};

protected:
    jet::NativeSql fonte() const override;
    QString instrucaoDoCodigo(const QString& codigo) const override;
    bool nomeRepetido(const QString& nome, Passo passo) const override;
    std::optional<jet::NativeSql> eliminacaoDosDescendentes(const QString& codigo) const override;
    void carrega() override;

private:
    void cmdFreg_Click();
};

FrmConcelhos& frmConcelhos();
