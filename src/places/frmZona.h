// The editor of the zones of a country.
#pragma once

#include "places/editorProvisorio.h"

#include "ui_frmZona.h"

class FrmZona : public EditorProvisorio, private Ui::FrmZona
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmZona";

    FrmZona();

protected:
    jet::NativeSql fonte() const override;
    bool nomeRepetido(const QString& nome, Passo passo) const override;
    QString codigoNovo() override;
    bool VerificaCampos(Passo passo) override;
    void abreAlteracao() override;
    const QList<ModeRow>& modos() const override;
    void limpaOutros() override;
    void mostraOutros(const jet::Recordset& linha) override;
    void escreveOutros(jet::Recordset& linha) const override;
    void carrega() override;

private:
    bool codigoDoPais() const;

    jet::DataControl adoZona{cnBDP};
};
