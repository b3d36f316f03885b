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

// The background of the fields shows the mode.
namespace corDoModo {
inline constexpr QColor edi(192, 192, 255), cons(255, 255, 255), loc(255, 192, 128);
}

struct Dono;

// A card shows one row of a file of records (its file). A search leaves its rows in adoFiltro; frmResult then drives
// the card through them until one of its three buttons ends that.
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
    virtual Dono dono() = 0;            // of the windows that are opened for the record shown

    // Shows the first record of the file that meets the criterion of a find(), or else, as for an empty criterion, the
    // first of all. A card in the middle of an edit or a search stays as it is.
    void procuraRegisto(const QString& criterio);

    // Whether no edit, no search and no list of results is under way on the card.
    bool emRepouso() const { return passo() == Passo::Repouso; }
    // Records have come into the file, or gone, from outside the card: reads it anew, and shows as procuraRegisto(); an
    // empty file as nobody, with the commands shut.
    // Precondition: emRepouso(). Throws as a refresh.
    void releFicheiro(const QString& criterio);

    // Whether the record on the card has a row, as far as the card knows: not in an insert, in a search, nor on a
    // cleared card.
    bool temRegisto() const { return !numero().isEmpty() && !inserindo() && modo_ != Modo::Loc; }
    // Whether the record with that number is being inserted.
    bool insere(const QString& numero) const { return inserindo() && this->numero() == numero; }

    // What a list of results does to the card. The number is that of the hit.
    virtual void escolheAchado(int linha, const QString& numero) = 0; // the row of adoFiltro to be shown
    virtual void mostraAchado() = 0;                                  // shows it
    virtual void aceitaAchado(const QString& numero) = 0;             // the whole file again, on the hit
    virtual void terminaNoAchado() = 0;                               // the search ends on what is shown

    // A list of results is open: the frame of the movement buttons is red, and the card's commands are off.
    void entregaAosResultados();
    // The search is over: the frame is blue, the commands have their captions, and EmPesquisa is off.
    void retomaFicheiro();
    // The results are dropped: an empty form for a new search, on its first field.
    void retomaPesquisa();

protected:
    // Takes the commands from the card's own controls.
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
    bool inserindo() const { return passo() == Passo::Insercao; }

    virtual const QList<ModeRow>& modos() const = 0;
    virtual jet::DataControl& ficheiro() = 0;   // all records, in the order of the movement buttons
    virtual void mostraRegistoDoFicheiro() = 0; // puts its current row on the card, or that it is empty

    // What a click on a command means, by the step. The four that begin something aren't called while EmPesquisa is on.
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

    // A search begins: the one of the other card ends, if its list of results stands, as that list's "&Terminar" does.
    virtual void terminaOutraLista() = 0;
    virtual QWidget* primeiroCampo() = 0; // of a new search

    // Set mode and step at the beginning and the end of an edit.
    void abreInsercao(); // on cleared fields
    void abreAlteracao();
    void fechaEdicao();

    // Deletes the current row of the file, which is that of the record shown, and shows the row before it, or the new
    // first one; the windows of the record go. If the row can't be deleted, it silently stays.
    void eliminaDoFicheiro();

    // Opens the window with that name for the record shown, as JanelaDoDono::abre(). The card is disabled until the
    // window closes.
    void abreJanela(const QString& nome);
    // An insert that goes with the card leaves nothing behind.
    void Form_Unload() override;
    // Opens the window of those who took part in the act of the record shown; in an insert, too, unless somebody has
    // the number already. Returns whether it did.
    bool abreIntervenientes();
    // The insert is given up: that window goes, and what was written there for the number that nobody has.
    void largaActoPorGuardar();
    // The record was stored: others who took part in its act than those whom the insert has written, left over from
    // a record that had the number before or an insert that was cut off, are no longer there.
    void guardouInsercao();

    void abrePesquisa(); // turns the card into a search form
    // Goes back to the step that the search interrupted: an alteration may be waiting for the person.
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
    Passo interrompido_ = Passo::Repouso; // by the search under way
    QString actoPorGuardar_;              // the number for which an insert has opened the window of its act
    CommandButton *prim_ = nullptr, *ant_ = nullptr, *seg_ = nullptr, *ult_ = nullptr;
};
