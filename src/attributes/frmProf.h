// What a person did for a living, at which dates.
#pragma once

#include "attributes/listaDatada.h"

#include "ui_frmProf.h"

class FrmProf : public ListaDatada, private Ui::FrmProf
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmProf";

    FrmProf();

    void LimpaCampos() override;

protected:
    jet::DataControl& registos() override { return adoProfInd; }
    const QList<ModeRow>& modos() const override;
    QStringList PreencheLinha(const jet::Recordset& linha) const override;
    void mostraLinha(const jet::Recordset& linha) override;
    bool VerificaCampos(Passo passo) override;
    QString acrescenta() override;
    QString altera() override;
    void Form_Load() override;

private:
    void PreencheProfissoes();

    jet::DataControl adoProfInd{cnBDP};
};
