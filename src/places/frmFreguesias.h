// The editor of the parishes of a municipality. Only the editor of municipalities shows it.
#pragma once

#include "places/EditorComCodigo.h"

#include "ui_frmFreguesias.h"

class FrmFreguesias : public EditorComCodigo, public Ui::FrmFreguesias
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmFreguesias";

    FrmFreguesias();

    jet::DataControl adoFreg{cnBDP};

protected:
    QString instrucao() const override;
    QString instrucaoDoCodigo(const QString& codigo) const override;
    QString instrucaoDoNome(const QString& nome) const override;
    QString instrucaoDosDescendentes(const QString& codigo) const override;
    void Form_Load() override;

private:
    void cmdLug_Click();
};
