// What a person left by will to the heirs: one row for each heir or bequest.
#pragma once

#include "attributes/listaDatada.h"

#include "ui_frmLegados.h"

// The heir is chosen on the card of a person, which hands the number over.
class FrmLegados : public ListaDatada, private Ui::FrmLegados
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmLegados";

    FrmLegados();

    void LimpaCampos() override;

protected:
    jet::DataControl& registos() override { return adoLeg; }
    const QList<ModeRow>& modos() const override;
    QStringList PreencheLinha(const jet::Recordset& linha) const override;
    void mostraLinha(const jet::Recordset& linha) override;
    bool VerificaCampos(Passo passo) override;
    QString acrescenta() override;
    QString altera() override;
    void Form_Load() override;
    void Form_Unload() override;
    void volta() override;

private:
    void cmdIrpara_Click();
    Valores valores() const;

    jet::DataControl adoLeg{cnBDP};
};
