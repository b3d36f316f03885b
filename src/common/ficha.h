// What the card of a person and the card of a family share: the modes, the ends of the file, the meaning of the
// commands, and the search.
#pragma once

#include "common/passo.h"
#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "platform/forms/modes.h"
#include "platform/jet/recordset.h"
#include "store/session.h"

#include <QColor>
#include <QList>
#include <QString>

// The background of the fields tells the mode.
namespace corDoModo {
inline constexpr QColor edi(192, 192, 255), cons(255, 255, 255), loc(255, 192, 128);
}

struct Dono;

// A card stands on one row of a file of records (its file). A search leaves its rows in adoFiltro, and frmResult then
// drives the card by them until one of its three buttons takes the card out again.
class Ficha : public Form
{
    Q_OBJECT

public:
    explicit Ficha(const QString& name) : Form(name) {}

    jet::DataControl adoFiltro{cnBDP}; // the rows of the last search

    Modo modo() const { return modo_; } // the mode applied last

    virtual void AplicarModo(Modo modo);
    virtual void LimpaCampos() = 0;
    virtual QString numero() const = 0; // of the record shown; "" where there is none

    // Shows the record of the file for which the criterion of a find() holds, else the first one, as for an empty
    // criterion. A card that is being edited or searched by stays as it is.
    void procuraRegisto(const QString& criterio);

    // The row of the record on the card, to be read or written.
    // Precondition: there is one; Error 3021 otherwise: in an insert, in a search, and on a cleared card.
    jet::Recordset& registoNaFicha();

    // What a list of results does to the card. The number is that of the hit.
    virtual void escolheAchado(int linha, const QString& numero) = 0; // the row of adoFiltro to be shown
    virtual void mostraAchado() = 0;                                  // shows it
    virtual void aceitaAchado(const QString& numero) = 0;             // the whole file again, on the hit
    virtual void terminaNoAchado() = 0;                               // the search ends on what is shown

    // A list of results is up: the frame of the movement is red, and the commands are off but for those of the list.
    void entregaAosResultados();
    // The search is over: the frame is blue, the commands have their captions, and EmPesquisa is off.
    void retomaFicheiro();
    // The results are dropped: an empty form to search anew.
    void retomaPesquisa();

protected:
    // Takes the commands out of the card's own controls.
    // Precondition: setupUi() has run, and this hasn't.
    template <class Controls>
    void usaComandos(const Controls& ui)
    {
        filtro_ = ui.fraFiltro;
        ins_ = ui.cmdIns, alt_ = ui.cmdAlt, elim_ = ui.cmdElim, loc_ = ui.cmdLoc, fechar_ = ui.cmdFechar;
        prim_ = ui.cmdPrim, ant_ = ui.cmdAnt, seg_ = ui.cmdSeg, ult_ = ui.cmdUlt;
        ligaComandos();
    }

    Passo passo() const { return comandos_.passo(); }

    virtual const QList<ModeRow>& modos() const = 0;
    virtual jet::DataControl& ficheiro() = 0;   // all records, in the order of the movement
    virtual void mostraRegistoDoFicheiro() = 0; // puts its current row on the card
    virtual jet::Recordset& registo() = 0;      // the cursor on the row of the record shown

    // What a click on a command means, by the step. None of the four openings comes while EmPesquisa is on.
    virtual void iniciaInsercao() = 0;
    virtual void confirmaInsercao() = 0;
    virtual void cancelaInsercao() = 0;
    virtual void iniciaAlteracao() = 0;
    virtual void confirmaAlteracao() = 0;
    virtual void cancelaAlteracao() = 0;
    virtual void elimina() = 0;
    virtual void iniciaPesquisa() = 0;
    virtual void confirmaPesquisa() = 0;
    virtual void cancelaPesquisa() = 0;

    // The modes and steps at the two ends of an edit.
    void abreInsercao(); // on cleared fields
    void abreAlteracao();
    void fechaEdicao();

    // Deletes the current row of the file, and shows the row before it, or the new first one. Where the row can't be
    // deleted, it stays, and nothing is said.
    void eliminaDoFicheiro();

    virtual Dono dono() = 0; // of the windows that are opened for the record shown
    // Opens the window with that name for the record shown. The card is disabled until it goes. One that is open
    // already stays with whoever opened it, and only comes forward.
    void abreJanela(const QString& nome);

    void abrePesquisa(); // the card becomes a form to search by
    // Back at the step that the search has interrupted: an edit may wait for the person sought.
    void fechaPesquisa();
    void permiteRecuar(bool permite);
    void permiteAvancar(bool permite);

private:
    void ligaComandos();
    void cmdIns_Click();
    void cmdAlt_Click();
    void cmdElim_Click();
    void cmdLoc_Click();
    void cmdPrim_Click();
    void cmdUlt_Click();
    void marcaFiltro(bool resultados);

    Modo modo_ = Modo::Cons;

    QWidget* filtro_ = nullptr;
    CommandButton *ins_ = nullptr, *alt_ = nullptr, *elim_ = nullptr, *loc_ = nullptr, *fechar_ = nullptr;
    Comandos comandos_;
    Passo interrompido_ = Passo::Repouso;
    CommandButton *prim_ = nullptr, *ant_ = nullptr, *seg_ = nullptr, *ult_ = nullptr;
};
