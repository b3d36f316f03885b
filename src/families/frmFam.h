// The card of one family: the couple, the marriage, the children, and the movement through all families.
#pragma once

#include "common/campos.h"
#include "common/dataAoEntrar.h"
#include "common/dono.h"
#include "common/ficha.h"
#include "common/filtro.h"
#include "common/registoVisto.h"
#include "common/valores.h"
#include "individuals/pedido.h"
#include "platform/forms/controls.h"
#include "platform/jet/recordset.h"
#include "store/session.h"
#include "views/achado.h"

#include "ui_frmFam.h"

#include <QHash>
#include <QString>
#include <QVariant>

#include <optional>

// Who has brought the card up, by the system's numbers.
enum class OrigemFam
{
    Menu = 0,
    FamiliaOrigem,     // cmdDirFam of frmInd
    FamiliaConstituida // cmdConsRel of frmInd
};

class FrmFam : public Ficha, private Ui::FrmFam
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmFam";

    FrmFam();

    // Editing calls people up: the Chamada follows the mode.
    void AplicarModo(Modo modo) override;
    void LimpaCampos() override;
    // Shows the family with the number nf, or for 0 and none the one of the current row of rs, and puts the file on it.
    // An error is shown, and leaves the fields not yet filled cleared.
    void ActualizaCampos(jet::Recordset& rs, Nfam nf);
    // The card of a person brings the card up on a family: if that card was called up for a person, cmdFechar leads
    // back to it. The card comes up before the family is looked up: a number that leads nowhere leaves it where it was,
    // and so does an edit or a search on it.
    void mostraPara(OrigemFam origem, const QString& nfam);
    void abrePeloMenu();
    QString numero() const override { return txtNFam->text(); }
    Dono dono() override;
    void escolheAchado(int linha, const QString& numero) override;
    void mostraAchado() override;
    void aceitaAchado(const QString& numero) override;
    void terminaNoAchado() override;
    void terminaOutraLista() override;
    // Deletes the family shown, with all references but its people, and shows the one before. On an error everything
    // stays.
    void eliminaFamilia();

    // The type of a family, "1" to "7", by what is known of its people; an error is shown, and gives "7". No command
    // calls it: the type is the user's choice.
    QString CalculaTipoFamilia(Nfam nfamilia);

protected:
    const QList<ModeRow>& modos() const override;
    jet::DataControl& ficheiro() override { return adoFam; }
    void mostraRegistoDoFicheiro() override;
    void Form_Load() override;
    bool Form_QueryUnload(UnloadMode mode) override;
    QWidget* primeiroCampo() override { return txtNFam; }

private:
    // One of the two halves of the card.
    struct Metade
    {
        TextBox *nind, *nome, *idade, *numCasam;
        ComboBox* estadoCivil;
        QLabel* idCalc;
    };
    // What a half showed of its member when the alteration began.
    struct MetadeAberta
    {
        Nind nind;
        QString idade, numCasam;
        int estadoCivil = -1;
    };
    // The columns of a member's row.
    struct Membro
    {
        QVariant idade, estadoCivil, numCasam;
        bool operator==(const Membro&) const = default;
    };
    using Membros = QHash<Nind, Membro>;
    const Metade& metade(int indice) const { return metades_[indice]; } // 0 the father's, 1 the mother's

    void connectEvents();

    // frmFam_card.cpp: showing a family, and moving
    void PreencheListas();
    void cmbTipoFam_Click();
    void mostraFicheiroVazio();
    void mostraRegisto(jet::Recordset& rs, Nfam nf); // ActualizaCampos(), with the error for the caller
    void mostraMembro(const jet::Recordset& membro);
    void mostraFamilia();
    void esvaziaContagens(); // no family is shown: neither its place nor its children are counted
    // Puts adoFam back on the family of the card, as a refresh may have moved it away; at EOF for a family that has no
    // row yet. To be called before the row of adoFam is written to.
    void poeFicheiroNaFicha();
    void cmdAnt_Click();
    void cmdSeg_Click();

    // frmFam_children.cpp
    void ActualizaFilhos();
    void PreencheFG();
    void PreencheLinhaFilho(int linha);
    void cmdConsultar_Click();
    void cmdInsF_Click();
    std::optional<RecusaDeIndividuo> recusaDeFilho() const;
    void recebeFilho(FrmInd& filho);
    void cmdElimF_Click();

    // frmFam_links.cpp: the ways out
    void cmdDirInd_Click(int indice);
    void cmdEncLoc_Click();
    void cmdRP_Click();
    void cmdInt_Click();
    void cmdFechar_Click();
    PedidoDeIndividuo pedidoDeConjuge(int indice);

    // frmFam_edit.cpp: insert and alteration
    void iniciaInsercao() override;
    void confirmaInsercao() override;
    void cancelaInsercao() override;
    void iniciaAlteracao() override;
    void confirmaAlteracao() override;
    void cancelaAlteracao() override;
    void elimina() override;
    void insereFamilia();
    void insereMembro(const Metade& membro);
    void gravaFamiliaEMembros();
    void alteraFamilia();
    Colunas colunasDaFicha() const;
    void notaMostradas();
    Colunas colunasAlteradas() const;
    Membros membrosGuardados() const;
    bool mostrado(Nind nind) const; // when the alteration began
    void reescreveMembros();
    void reescreveMembro(int indice, Membros& guardados, bool noLugar);
    bool mantemNumCasam(int indice) const;

    // frmFam_checks.cpp: before a family is written
    bool temObrigatorios();
    void verificaNumeros() const;
    bool membrosPresentes();
    bool podeGravarFamilia();
    bool conjugesExistem();
    bool datasValidas();

    // frmFam_people.cpp: the two members, and what follows from their dates
    void txtNind_Change(int indice);
    void mskData_GotFocus();
    void mskData_Change();
    void mskData_LostFocus();
    void mostraIdades();
    void txtIdade_Validate(int indice);
    void txtNC_Validate(int indice);

    // frmFam_search.cpp
    void cmdLocDat_Click();
    void iniciaPesquisa() override;
    void confirmaPesquisa() override;
    void desistePorFaltaDeCriterio();
    void cancelaPesquisa() override;
    Filtro filtroDosCampos() const;
    void contaDias(const QString& dias);
    Achado achado(const jet::Recordset& linha) const;

    jet::DataControl adoFam{cnBDP};    // all families: what the movement buttons run through
    jet::DataControl adonFam{cnBDP};   // the members of the family shown
    jet::DataControl adoFilhos{cnBDP}; // its children

    Metade metades_[2];
    MetadeAberta abertas_[2];
    Colunas mostradas_;     // what the card said then of the columns of the family, or says since they were written
    RegistoVisto vista_;    // the row as the alteration found it
    Membros membrosVistos_; // and those of the members
    // Where a search that is cancelled comes back to; in an insert, the number proposed. Kept: it outlives the card,
    // and a search cancelled first thing in another BDP goes to the family with the number of the last.
    inline static Nfam NfamCorrente;
    OrigemFam OrigemFam_ = OrigemFam::Menu;
    DataAoEntrar dtCasamAnterior; // what mskData held when it was entered
    bool diasContados_ = false;   // the status bar tells the days of a search
};

// The one card, loaded at first touch.
FrmFam& frmFam();
