// The editor of the parishes of a municipality. Only the editor of municipalities shows it.
#pragma once

#include "places/editorComCodigo.h"

#include "ui_frmFreguesias.h"

class FrmFreguesias : public EditorComCodigo, private Ui::FrmFreguesias
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmFreguesias";

    FrmFreguesias();

protected:
    jet::NativeSql fonte() const override;
    QString instrucaoDoCodigo(const QString& codigo) const override;
    bool nomeRepetido(const QString& nome, Passo passo) const override;
    std::optional<jet::NativeSql> eliminacaoDosDescendentes(const QString& codigo) const override;
    void carrega() override;

private:
    void cmdLug_Click();

    jet::DataControl adoFreg{cnBDP};
};
