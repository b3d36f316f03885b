// The card of one person: the navigation list, the person shown, and the three modes.
#pragma once

#include "common/campos.h"
#include "common/dataAoEntrar.h"
#include "common/ficha.h"
#include "common/locais.h"
#include "common/registoVisto.h"
#include "common/valores.h"
#include "individuals/pedido.h"

#include "ui_frmInd.h"

#include <QList>
#include <QString>
#include <QVariant>

#include <optional>
#include <utility>

class Filtro;
enum class OrigemLoc;

// Other cards show a person on it, and call it up to have one chosen.
class FrmInd : public Ficha, private Ui::FrmInd
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmInd";

    FrmInd();

    void LimpaCampos() override;
    // Shows the individual whose number is in the field `Nind` of the current row. An error is shown, and leaves the
    // fields not yet filled cleared.
    void ActualizaCampos(jet::Recordset& rs);
    // Moves the list to the person with that number, to its first row for an empty text, and shows the person. A card
    // in the middle of an edit or a search stays as it is.
    void mostra(const QString& nind);
    // Deletes the references of the person shown, then the person, and shows the one before. An error on a reference
    // leaves everything as it was; a person who then can't be deleted silently stays.
    void eliminaIndividuo();

    // Brings the card up, behind the splash if it has to be loaded first, so that a person is chosen. It shows the
    // person with the number `primeiro`, the first one for an empty text, and stays as it is without one. The newer
    // request takes the place of the older, whose asker is enabled when the card closes.
    static void pede(PedidoDeIndividuo pedido, const std::optional<QString>& primeiro);
    // Brings the card up to look at a person; any request for one ends.
    static void consulta(const QString& nind);
    static void abrePeloMenu();
    // Brings it up, behind the splash if it has to be loaded first, with "a&Tribuir" as the Chamada says.
    static void FrmIndLoaded();
    // The form that may have asked closes: its request ends, and the card can be used.
    void desiste(const Form& quem);
    // The window of a baptism closes: the card comes to the front, on the person baptized.
    void voltaDoBaptismo(const QString& nind);
    // The list, not the card, goes to its first row, unless an edit or a search is under way.
    void vaiAoPrincipio();

    // What the card shows
    QString numero() const override { return txtNind->text(); } // "" if nobody is shown
    QString nome() const { return txtNome->text(); }
    QString sexo() const; // "m", "f" or "d"; "" if none is chosen

    Dono dono() override;

    void escolheAchado(int linha, const QString& numero) override;
    void mostraAchado() override;
    void aceitaAchado(const QString& numero) override;
    void terminaNoAchado() override;
    void terminaOutraLista() override;

    // Puts the family of origin on the row of the person shown.
    void poeFamiliaDeOrigem(const QString& nfam);

protected:
    bool eventFilter(QObject* objecto, QEvent* evento) override;
    const QList<ModeRow>& modos() const override;
    jet::DataControl& ficheiro() override { return adoInd; }
    void mostraRegistoDoFicheiro() override { ActualizaCampos(adoInd.recordset()); }
    void Form_Load() override;
    bool Form_QueryUnload(UnloadMode mode) override;
    void Form_Unload() override;
    QWidget* primeiroCampo() override { return txtNind; }

private:
    using Valores = Colunas; // of `individuo`

    void connectEvents();

    // Showing a record
    void mostraRegisto(jet::Recordset& rs, TabelaDosSitios sitios);
    void mostraGuardado(const QString& nind);
    QList<std::pair<QString, ComboBox*>> listasDeCodigos() const;
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
    void abreAlteracaoDe(const QString& nind);
    void confirmaAlteracao() override;
    bool gravaAlteracao();
    void cancelaAlteracao() override;
    void elimina() override;
    void propoeIndividuo();
    bool temObrigatorios(const QString& accao);
    void contaIndividuoGravado() const; // in the status bar
    void poeListaNoNumero(const QString& nind);
    Valores valoresDaInsercao() const;
    Valores valoresDaAlteracao();

    // Dates and ages
    void mskDtNasc_GotFocus();
    void mskDtNasc_LostFocus();
    void mskDtObito_GotFocus();
    void mskDtObito_LostFocus();
    void recusaData(MaskedEdit* campo, DataAoEntrar& antiga, const QString& motivo);
    bool alterando() const { return passo() == Passo::Alteracao; }
    void mostraIdadeCalculada();
    void propoeTipo(const QString& tipo);
    void VerificaIdade(TextBox* campo);

    // Search
    void cmdLocDat_Click();
    void iniciaPesquisa() override;
    void confirmaPesquisa() override;
    void cancelaPesquisa() override;
    QString instrucaoDaPesquisa() const; // "" if nothing is searched for
    Filtro condicoesDosCampos() const;

    // Handing an individual over, and closing
    void atendeActo(const std::optional<QString>& primeiro);
    void permiteAtribuirAoSubir();
    void dizParaQuem();     // in the tool tip of "a&Tribuir"
    void permiteAtribuir(); // after an edit or a search, if somebody waits for a person
    void cmdAtribuir_Click();
    void cmdTest_Click();
    void atribuiTestamenteiro();
    static void libertaDaEntrega();
    void acabaEscolhaDoTestamenteiro();
    void desisteDoTestamenteiro();
    void cmdFechar_Click();
    // Enables whoever waits for this card: the card of families and all who have asked for a person.
    void FrmLoaded();
    void devolveAoChamador();
    void termina();
    void voltaA(const PedidoDeIndividuo& pedido);

    // Links
    void cmdDirFam_Click(int indice);
    void cmdConsRel_Click();
    void Command1_Click();
    void cmdInterv_Click();
    void cmdRP_Click(int indice);
    void escolheLocal(OrigemLoc origem, ComboBox& lista);
    void mostraArvore();

    jet::DataControl adoInd{cnBDP};  // the numbers of all individuals: what the movement buttons run through
    jet::DataControl adoNind{cnBDP}; // the whole row of the individual shown, which an alteration writes back
    jet::DataControl adoRel{cnBDP};  // the families in which the individual is a spouse

    RegistoVisto visto_;         // the row as the alteration found it
    Valores mostrados_;          // what the fields said of the columns when the alteration began
    QString Tipo;                // the type code as the date fields have worked it out while editing
    Nind NindCorrente;           // shown last, or looked for last
    Nind testador;               // whose executor is being chosen
    DataAoEntrar DataNascAntiga; // what mskDtNasc and mskDtObito held when they were entered
    DataAoEntrar DataObitoAntiga;
};

// The one card, loaded at first touch.
FrmInd& frmInd();
