// Whose acts or dated rows a window shows.
#pragma once

#include "common/ficha.h"
#include "platform/forms/form.h"
#include "platform/jet/recordset.h"

#include <QList>
#include <QPointer>
#include <QString>

// A family or a person, by the system's numbers.
enum class TipoDeDono
{
    Familia = 1,
    Individuo = 2
};
using OrigemInterv = TipoDeDono; // whose act frmIntervenientes serves
using OrigemResid = TipoDeDono;  // whose residences frmResid serves

// What a card passes on about its record when it opens a window for it. They are copies, as the card may move on.
struct Dono
{
    TipoDeDono tipo = TipoDeDono::Individuo;
    QString numero; // "" on a card that shows nobody
    QString nome;   // of a person
    QString data;   // of the birth or the marriage, as its field holds it
    QPointer<Ficha> ficha;
    const jet::Recordset* registo = nullptr; // the row at the card's cursor; only while the window is being loaded

    bool familia() const { return tipo == TipoDeDono::Familia; }
    // Whether the store has the record.
    // Precondition: there is a number.
    bool guardado() const;
    QString designacao() const;   // "o indivíduo nº 2", "a família nº 3"
    QString avisoDaFalta() const; // what the user is told where nothing is stored, as there is no such record
};

// A window on the acts or the dated rows of one owner, for as long as it is loaded.
class JanelaDoDono : public Form
{
    Q_OBJECT

public:
    using Form::Form;

    // Brings the window with that name up for the owner. One that is open for another owner is loaded anew, if it may
    // change (podeMudarDeDono()); else it comes to the front as it is. A name that no form has does nothing.
    // If the card waits, it is disabled until the window goes, whoever the owner is; but not for a window that itself
    // waits, perhaps for the card.
    // Precondition: a form with that name is a JanelaDoDono.
    static void abre(const QString& nome, const Dono& dono, bool fichaEspera = false);

    // Whether the card waits for one of these windows.
    static bool temAEspera(Ficha& ficha);

    // The record was deleted: unloads the windows that stand open for it.
    static void fechaAsDe(TipoDeDono tipo, const QString& numero);

protected:
    const Dono& donoDaJanela() const { return dono_; } // known from Form_Load() on

    // Whether nothing is being edited that another owner would take off the screen.
    virtual bool podeMudarDeDono() const { return false; }

    // Whether what the window stores goes with the card's insert, if that is given up.
    virtual bool serveInsercao() const { return false; }

    // Asked before anything is stored for the owner: whether its record is still there or, where the window serves an
    // insert, is being inserted on its card. Tells the user if it isn't.
    bool donoGuardado() const;

    // Enables the cards that wait. One that overrides it calls it first.
    void Form_Unload() override;
    // The window was closed, and makes room for no other owner, nor has its own gone: back to the card.
    virtual void volta() {}

private:
    bool eDe(TipoDeDono tipo, const QString& numero) const { return dono_.tipo == tipo && dono_.numero == numero; }
    void larga(); // unloads it, without going back

    Dono dono_;
    QList<QPointer<Ficha>> esperam_;
    bool semVolta_ = false;
};
