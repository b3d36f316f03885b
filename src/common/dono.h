// Whose acts or dated rows a window holds.
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

// What a card tells of the record that it shows when it opens a window for it. Copies, as the card may move on.
struct Dono
{
    TipoDeDono tipo = TipoDeDono::Individuo;
    QString numero; // "" on a card that shows nobody
    QString nome;   // of a person
    QString data;   // of the birth or the marriage, as its field holds it
    QPointer<Ficha> ficha;
    const jet::Recordset* registo = nullptr; // where the cursor of the card stands; only while the window is loaded

    bool familia() const { return tipo == TipoDeDono::Familia; }
};

// A window on the acts or the dated rows of one owner, for as long as it is loaded.
class JanelaDoDono : public Form
{
    Q_OBJECT

public:
    using Form::Form;

    // Loads the window with that name for the owner and brings it up. One that is open already stays with its own
    // owner, and only comes forward; a name that no form has does nothing.
    // Precondition: a form with that name is a JanelaDoDono.
    static void abre(const QString& nome, const Dono& dono);

protected:
    const Dono& donoDaJanela() const { return dono_; } // known from Form_Load() on

private:
    Dono dono_;
};
