// How a person signed, in which documents.
#pragma once

#include "attributes/listaDatada.h"

#include "ui_frmAssinatura.h"

class FrmAssinatura : public ListaDatada, private Ui::FrmAssinatura
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmAssinatura";

    FrmAssinatura();

    void LimpaCampos() override;

protected:
    jet::DataControl& registos() override { return adoAss; }
    const QList<ModeRow>& modos() const override;
    QStringList PreencheLinha(const jet::Recordset& linha) const override;
    void mostraLinha(const jet::Recordset& linha) override;
    void preparaAlteracao() override;
    bool VerificaCampos(Passo passo) override;
    QString acrescenta() override;
    QString altera() override;
    void Form_Load() override;

private:
    void cmdLocalizar_Click();
    void cmdV_Click();
    void mostraFicheiro(const QString& caminho);
    Valores valores() const;

    jet::DataControl adoAss{cnBDP};
};
