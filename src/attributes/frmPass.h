// The passports issued to a person, and the description of the person that they give.
#pragma once

#include "attributes/listaDatada.h"

#include "ui_frmPass.h"

// Chave is the number of the passport shown. The description belongs to the person: it has its own edit (cmdE) and is
// stored in `individuo`. The card of the person stays in use beside this window.
class FrmPass : public ListaDatada, private Ui::FrmPass
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmPass";

    FrmPass();

    // Adds an entry to choose the destination from. Kept: even if the list has it already.
    void acrescentaDestino(const QString& local) { cmbDados_1->add(local); }

    void LimpaCampos() override;

protected:
    jet::DataControl& registos() override { return rsPass; }
    const QList<ModeRow>& modos() const override;
    QStringList PreencheLinha(const jet::Recordset& linha) const override;
    void mostraLinha(const jet::Recordset& linha) override;
    bool VerificaCampos(Passo passo) override;
    QString acrescenta() override;
    QString altera() override;
    void elimina() override;
    QString chaveNoCriterio() const override;
    void Form_Load() override;
    bool podeMudarDeDono() const override { return emRepouso() && descricao_.passo() == Passo::Repouso; }
    bool Form_QueryUnload(UnloadMode modo) override { return modo != UnloadMode::ControlMenu; }
    void volta() override {}

private:
    void cmdLoc_Click();
    void cmdE_Click();

    void gravaDestinoEObs();
    QString chaveEscrita() const;
    bool passaporteGuardado();

    void aplicaModoDaDescricao(Modo modo);
    jet::Recordset individuo() const;
    void limpaDescricao();
    void mostraDescricao();
    void gravaDescricao();
    bool podeGravarDescricao() const;

    Comandos descricao_; // the edit of the description
    RegistoVisto descricaoVista_;

    jet::DataControl rsPass{cnBDP};
};
