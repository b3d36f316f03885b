// Who took part in one act, a baptism or a marriage: its two priests, who are columns of the act's own row, and its
// assistants, godparents and witnesses, each a row of `assistente`.
#pragma once

#include "acts/fichaDoAssistente.h"
#include "common/campos.h"
#include "common/dono.h"
#include "common/passo.h"
#include "common/registoVisto.h"
#include "individuals/pedido.h"
#include "platform/forms/controls.h"
#include "platform/forms/modes.h"
#include "platform/jet/recordset.h"
#include "store/session.h"

#include "ui_frmIntervenientes.h"

#include <QString>

// The cards stay enabled beside it: the number of the act is a copy, and the date is read from the card at the load and
// at every addition.
class FrmIntervenientes : public JanelaDoDono, private Ui::FrmIntervenientes
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmIntervenientes";

    FrmIntervenientes();

protected:
    void Form_Load() override;
    bool Form_QueryUnload(UnloadMode mode) override;
    void Form_Unload() override;
    bool podeMudarDeDono() const override;
    bool serveInsercao() const override { return true; }
    void volta() override;

private:
    // One of the two places for a priest.
    struct LugarDoPadre
    {
        OrigemInd origem; // of the request for one
        TextBox* numero;
        ComboBox* funcao;
        CommandButton *escolher, *retirar;
        QString antes = {}; // the number that its edit began with
    };

    void connectEvents();

    // The act, and the way back to its card
    bool casamento() const { return donoDaJanela().tipo == OrigemInterv::Familia; }
    QString letraDoActo() const { return casamento() ? "c" : "b"; }
    void preencheListas();
    void abreActo();
    void voltaAoIndividuo();
    void voltaAFamilia();
    QString papel(OrigemInd origem, const FrmInd& ficha) const; // what the person would be at the act
    QString acto() const;
    void chamaIndividuo(OrigemInd origem, TextBox* campo);
    void cmdSair_Click();

    // frmIntervenientes_priests.cpp
    void mostraPadres(const jet::Recordset& acto);
    void txtIndP_Change(int indice);
    void cmdX_Click(int indice);
    void cmdE_Click();
    void iniciaPadres();
    void confirmaPadres();
    void gravaPadres();
    jet::Recordset padresGuardados() const; // where they are written
    void relePadres();
    void pintaPadres(const QColor& cor);

    // frmIntervenientes_assistants.cpp
    void AplicarModo(Modo modo);
    void LimpaCampos();
    void ActualizaCampos();
    void mostraLinha();
    void releLinha();
    void PreencheFG();
    void PreencheLinha(int linha);
    void dtInterv_Click();
    void cmdIns_Click();
    void releData();
    void confirmaData();
    void cmdAlt_Click();
    void cmdElim_Click();
    void confirmaAdicao();
    void confirmaAlteracao();
    void terminaEdicao();
    void eliminaAssistente();
    bool temObrigatorios();
    Colunas valoresDoParentesco() const;
    Colunas valoresDoAssistente() const;
    void gravaLinha(const Colunas& valores);

    jet::DataControl adoInterv{cnBDP}; // the assistants of the act
    QString Chave;                     // `nind` of the row of the grid chosen last; "" for none
    bool dataPorConfirmar_ = false;    // the date was read from a card that was being edited
    LugarDoPadre lugares_[2];
    RegistoVisto padresVistos_, assistenteVisto_; // the rows as the two edits have found them
    Comandos padres_, assistentes_;               // the two edits of the window, each with its step
};
