// What a person left for the good of the soul: masses, offices and alms. Nothing is computed; the total is typed.
#pragma once

#include "attributes/listaDatada.h"

#include "ui_frmRituais.h"

#include <optional>

class FrmRituais : public ListaDatada, private Ui::FrmRituais
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmRituais";

    FrmRituais();

    void LimpaCampos() override;

protected:
    jet::DataControl& registos() override { return adoRit; }
    const QList<ModeRow>& modos() const override;
    QStringList PreencheLinha(const jet::Recordset& linha) const override;
    void mostraLinha(const jet::Recordset& linha) override;
    bool VerificaCampos(Passo passo) override;
    void preparaAlteracao() override;
    QString acrescenta() override;
    QString altera() override;
    void Form_Load() override;

private:
    // Fills cmbTipo with the codes of a kind and switches its option on. A category without codes leaves the list as it
    // is.
    void PreencheTipo(int sufragio);
    void optLeg_Click(int indice);
    void cmbMoeda_Click(const ComboBox* escolhida, ComboBox* outra);
    std::optional<int> opcao() const; // the kind that is on
    Valores valores() const;

    jet::DataControl adoRit{cnBDP};
};
