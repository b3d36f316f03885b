// Where a person or a family lived, at most one place at a date.
#pragma once

#include "attributes/ListaDatada.h"

#include "ui_frmResid.h"

// OrigemResid says whose residences it shows; it stays as it is while the window is loaded.
class FrmResid : public ListaDatada, public Ui::FrmResid
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmResid";

    FrmResid();

    jet::DataControl adoResid{cnBDP};

    void LimpaCampos() override;

protected:
    jet::DataControl& registos() override { return adoResid; }
    const QList<ModeRow>& modos() const override;
    QStringList PreencheLinha(const jet::Recordset& linha) const override;
    void mostraLinha(const jet::Recordset& linha) override;
    bool VerificaCampos(Passo passo) override;
    QString acrescenta() override;
    QString altera() override;
    QString cartao() const override;
    void Form_Load() override;

private:
    void cmdLoc_Click();
    QString instrucao() const;
    Valores valores() const;
};
