// Where a person or a family lived, at most one place for each date.
#pragma once

#include "attributes/listaDatada.h"

#include "ui_frmResid.h"

class FrmResid : public ListaDatada, private Ui::FrmResid
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmResid";

    FrmResid();

    bool doIndividuo() const { return donoDaJanela().tipo == OrigemResid::Individuo; }
    QString localNaFicha() const { return cmbLoc->text(); } // "" if none is chosen

    void LimpaCampos() override;

protected:
    jet::DataControl& registos() override { return adoResid; }
    const QList<ModeRow>& modos() const override;
    QStringList PreencheLinha(const jet::Recordset& linha) const override;
    void mostraLinha(const jet::Recordset& linha) override;
    bool VerificaCampos(Passo passo) override;
    QString acrescenta() override;
    QString altera() override;
    QString chaveNoCriterio() const override;
    void Form_Load() override;

private:
    void cmdLoc_Click();
    QString instrucao() const;
    Valores valores() const;

    jet::DataControl adoResid{cnBDP};
};
