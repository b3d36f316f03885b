// The card of one person: the navigation list, the person shown, and the three modes.
#pragma once

#include "common/ficha.h"

#include "ui_frmInd.h"

#include <QList>
#include <QString>
#include <QVariant>

#include <utility>

class Filtro;
enum class OrigemLoc;

// Other cards read and write its controls by name, move adoInd and call ActualizaCampos(): so they show a person on it,
// and call it up to have one chosen.
class FrmInd : public Ficha, public Ui::FrmInd
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmInd";

    FrmInd();

    jet::DataControl adoInd{cnBDP};  // the numbers of all individuals: what the movement buttons run through
    jet::DataControl adoNind{cnBDP}; // the whole row of the individual shown, which an alteration writes back
    jet::DataControl adoRel{cnBDP};  // the families in which the individual is a spouse

    QString Tipo; // the type code as the date fields have worked it out while editing

    void LimpaCampos() override;
    // Shows the individual whose number stands in the field `Nind` of the current row. An error is shown, and leaves
    // the fields behind it cleared.
    void ActualizaCampos(jet::Recordset& rs);
    // Deletes the references of the person shown, then the person, and shows the one before. An error on a reference
    // leaves everything; a person who can't be deleted afterwards stays, and nothing is said.
    void eliminaIndividuo();
    // Enables whoever waits for this card: the family card, the forms of acts.
    void FrmLoaded();
    // After an edit or a search the individual can be handed over again, where another card waits for one.
    void permiteAtribuir();
    // Calls the card up for the form of a funeral (OrigemInd 6) or of legacies (7), on the person of that number, where
    // there is one. DataActo becomes the birth of the person shown until then, or the death where there is no birth.
    void chamaPara(int origem, const QString& nind);
    // That form goes: the card is nobody's picker any more, and shows the person of that number again.
    void retomaDe(int origem, const QString& nind);

protected:
    const QList<ModeRow>& modos() const override;
    jet::DataControl& ficheiro() override { return adoInd; }
    void mostraRegistoDoFicheiro() override { ActualizaCampos(adoInd.recordset()); }
    QString numeroNaFicha() const override { return txtNind->text(); }
    jet::Recordset& registo() override { return adoNind.recordset(); }
    void Form_Load() override;
    bool Form_QueryUnload(UnloadMode mode) override;
    void Form_Unload() override;

private:
    // A column of `individuo` with its value, in the order in which they are set.
    using Valores = QList<std::pair<QString, QVariant>>;

    void connectEvents();

    // Showing a record
    void PreencheCombos();
    void PreencheFamilias();
    void EscreveLinhaFam(int linha);
    void mostraListaVazia();
    void cmbTipoInd_Click();

    // Movement
    void cmdAnt_Click();
    void cmdSeg_Click();

    // Insert and alteration
    void iniciaInsercao() override;
    void confirmaInsercao() override;
    void cancelaInsercao() override;
    void iniciaAlteracao() override;
    void confirmaAlteracao() override;
    void cancelaAlteracao() override;
    void elimina() override;
    void propoeIndividuo();
    bool temObrigatorios(const QString& accao);
    void poeListaNoNumero(const QString& numero);
    void passaNomeAFamilia();
    Valores valoresDaInsercao() const;
    Valores valoresDaAlteracao();
    QString sexo() const; // "m", "f" or "d"; "" where none is chosen

    // Dates and ages
    void mskDtNasc_GotFocus();
    void mskDtNasc_LostFocus();
    void mskDtObito_GotFocus();
    void mskDtObito_LostFocus();
    void recusaData(MaskedEdit* campo, const QString& motivo);
    void mostraIdadeCalculada();
    void propoeTipo(const QString& tipo);
    void VerificaIdade(TextBox* campo);

    // Search
    void cmdLocDat_Click();
    void iniciaPesquisa() override;
    void confirmaPesquisa() override;
    void cancelaPesquisa() override;
    QString instrucaoDaPesquisa() const; // "" where nothing is sought
    Filtro condicoesDosCampos() const;

    // Handing an individual over, and closing
    void cmdAtribuir_Click();
    void atribuiFilho();
    void atribuiConjuge();
    void atribuiAoActo();
    bool podeEstarNoActo(const Form& acto) const;
    void cmdTest_Click();
    void atribuiTestamenteiro();
    void cmdFechar_Click();
    void devolveAoChamador();
    void voltaAFamilia();
    void voltaA(Form& chamador);

    // Links
    void cmdDirFam_Click(int indice);
    void cmdConsRel_Click();
    void Command1_Click();
    void cmdResid_Click();
    void cmdInterv_Click();
    void cmdRP_Click(int indice);
    void escolheLocal(OrigemLoc origem, ComboBox& lista);
    Form* abre(const QString& nome);
    void abreComIndividuo(const QString& nome);
    void mostraArvore(const QString& tipo, const QString& nind, const QString& nome);

    long testador = 0;      // whose executor is being chosen
    QString DataNascAntiga; // what mskDtNasc and mskDtObito held when they were entered
    QString DataObitoAntiga;
};

// The one card, loaded at first touch.
FrmInd& frmInd();

// Brings up the card, behind the splash where it has to be loaded first.
void FrmIndLoaded();
