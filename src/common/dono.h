// Whose acts or dated rows a window shows.
#pragma once

#include "common/ficha.h"
#include "platform/forms/form.h"
#include "platform/jet/recordset.h"

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
};

// A window on the acts or the dated rows of one owner, for as long as it is loaded.
class JanelaDoDono : public Form
{
    Q_OBJECT

public:
    using Form::Form;

    // Loads the window with that name for the owner and brings it up. One that is already open keeps its owner and only
    // comes to the front; a name that no form has does nothing.
    // Precondition: a form with that name is a JanelaDoDono.
    static void abre(const QString& nome, const Dono& dono);

protected:
    const Dono& donoDaJanela() const { return dono_; } // known from Form_Load() on

private:
    Dono dono_;
};
