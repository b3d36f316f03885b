// The editor of the zones of a country.
#pragma once

#include "places/EditorProvisorio.h"

#include "ui_frmZona.h"

class FrmZona : public EditorProvisorio, public Ui::FrmZona
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmZona";

    FrmZona();

    jet::DataControl adoZona{cnBDP};

protected:
    jet::NativeSql fonte() const override;
    bool nomeRepetido(const QString& nome, Passo passo) const override;
    QString codigoNovo() override;
    bool VerificaCampos(Passo passo) override;
    const QList<ModeRow>& modos() const override;
    void limpaOutros() override;
    void mostraOutros(const jet::Recordset& linha) override;
    void escreveOutros(jet::Recordset& linha) const override;
    void carrega() override;
};
