// Who calls the card of a person up, and what for.
#pragma once

#include "platform/forms/form.h"
#include "platform/forms/msgbox.h"

#include <QList>
#include <QPointer>
#include <QString>

#include <functional>
#include <optional>

class FrmInd;

// Who asks, by the system's numbers.
enum class OrigemInd
{
    Filho = 0, // frmFam: a child
    Marido,    // frmFam: the spouses
    Esposa,
    PrimeiroPadre, // frmIntervenientes
    SegundoPadre,
    Assistente,
    PadreDoFuneral, // frmFuneral
    Herdeiro,       // frmLegados
    Ninguem,
    Testamenteiro // frmInd itself: an executor
};

// Why a person isn't handed over, as the user is told.
struct RecusaDeIndividuo
{
    QString motivo;
    Icon icone = Icon::Information;
};

// What happens to the card when a person was handed over, and when it is closed instead.
enum class DepoisDePedido
{
    Esconde,       // it is hidden, all who wait are enabled, and nobody asks any more
    FicaAberta,    // it waits, disabled, beside the asker, who may ask again; closing it ends the request
    FicaEscondida, // the same, hidden
    ReabreEdicao   // it goes on with the edit that it was called up from; closing it leaves it on its list
};

// A request for a person: all that the card knows of who asks.
struct PedidoDeIndividuo
{
    OrigemInd origem = OrigemInd::Ninguem;
    QPointer<Form> quem = {}; // Precondition: given where `espera`; who waits
    bool espera = true;       // disabled meanwhile

    // The request of an act: the card is enabled for it and comes up as it is; in the middle of an edit or a search it
    // stays on its person, and "a&Tribuir" only opens when that is over.
    bool deActo = false;
    bool IndChamado = false; // sets that of the Chamada; else it stays as it was
    // Whether the asker, as it stands now, takes a person: then "a&Tribuir" is offered. If not given, IndChamado says
    // it.
    std::function<bool()> oferece = {};

    DepoisDePedido depois = DepoisDePedido::Esconde;
    QString DataActo = {}; // when the person must have been observable, dd/mm/yyyy; "" if that isn't known
    // The reason not to hand over the person shown, if there is one.
    std::function<std::optional<RecusaDeIndividuo>(const PedidoDeIndividuo&, const FrmInd&)> recusa = {};
    std::function<void(FrmInd&)> recebe = {};               // takes the person shown
    std::function<void(const FrmInd&)> segueAlteracao = {}; // the person shown was altered during the request
    std::function<QString(const FrmInd&)> comoQue = {}; // what the person shown would be: "padrinho do baptismo nº 5"
};

// The request in force. It outlives the card, which may be called up before it is loaded.
class Chamada
{
public:
    const PedidoDeIndividuo& pedido() const { return pedido_; }
    OrigemInd origem() const { return pedido_.origem; }
    // A request ends with the form that has made it.
    bool existe() const { return origem() != OrigemInd::Ninguem && pedido_.quem; }

    // Whether the card is called up, or the card of families may call it up next: then it doesn't lead to families.
    // Kept: the end of a request by the card alone leaves it on.
    bool IndChamado() const { return IndChamado_; }
    // Whether the card offers "a&Tribuir" when it comes up.
    bool ofereceAoSubir() const { return pedido_.oferece ? pedido_.quem && pedido_.oferece() : IndChamado_; }
    // After an edit or a search: there also where the form of an act waits.
    bool ofereceAtribuir() const
    {
        return existe() && (ofereceAoSubir() || (pedido_.deActo && !pedido_.quem->isEnabled()));
    }

    // Takes the place of the request in force. Its asker gets nobody, and goes on waiting until libertaQuemEspera().
    void comeca(PedidoDeIndividuo pedido);
    // Disables the new asker. Called once the card is on the screen, so that a card that fails to come up leaves nobody
    // waiting.
    void espera();
    // Nobody asks any more. IndChamado stays.
    void desiste() { pedido_ = {}; }
    // The card is wanted for something else: nobody asks any more, and what the request called ends with it.
    void interrompe();
    // Nobody asks or calls any more, except for a family that is being edited: there the other spouse may come next.
    void acaba();
    void terminaIndChamado() { IndChamado_ = familiaEmEdicao_; }
    // Enables all who have waited since the last time.
    void libertaQuemEspera();

    void chama() { IndChamado_ = true; }   // by an assistant who is being altered
    void familiaMudaDeModo(bool emEdicao); // by the card of families
    void recomeca() { *this = {}; }        // another session begins

private:
    PedidoDeIndividuo pedido_;
    QList<QPointer<Form>> aEspera_;
    bool IndChamado_ = false;
    bool familiaEmEdicao_ = false;
};

Chamada& chamada();
