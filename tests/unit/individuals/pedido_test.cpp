// Who calls the card of a person up, and when that ends.
#include "individuals/pedido.h"

#include "forms/house.h"

namespace {

class Request : public House
{
protected:
    static PedidoDeIndividuo by(Form* form, OrigemInd origin = OrigemInd::Assistente)
    {
        return {.origem = origin, .quem = form, .IndChamado = true};
    }

    void begin(const PedidoDeIndividuo& request)
    {
        call.comeca(request);
        call.espera();
    }

    Form* first = make("frmA", [](TestForm&) {});
    Form* second = make("frmB", [](TestForm&) {});
    Chamada call;
};

} // namespace

TEST_F(Request, NobodyAsksAtFirst)
{
    EXPECT_FALSE(call.existe());
    EXPECT_FALSE(call.IndChamado());
    EXPECT_FALSE(call.ofereceAtribuir());
}

TEST_F(Request, ANewerOneTakesThePlaceOfTheOlderWhoGoesOnWaiting)
{
    begin(by(first));
    begin(by(second, OrigemInd::Herdeiro));
    EXPECT_EQ(call.origem(), OrigemInd::Herdeiro);
    EXPECT_FALSE(first->isEnabled() || second->isEnabled());
    call.desiste();
    EXPECT_FALSE(first->isEnabled() || second->isEnabled());
    call.libertaQuemEspera();
    EXPECT_TRUE(first->isEnabled() && second->isEnabled());
}

TEST_F(Request, WhoDoesntWaitStaysEnabledAndWhoWasFreedIsFreedOnce)
{
    PedidoDeIndividuo child = by(first, OrigemInd::Filho);
    child.espera = false;
    begin(child);
    EXPECT_TRUE(first->isEnabled());
    begin(by(second));
    call.libertaQuemEspera();
    second->setEnabled(false); // by somebody else
    call.libertaQuemEspera();
    EXPECT_FALSE(second->isEnabled());
}

TEST_F(Request, EndsWithTheFormThatMadeIt)
{
    begin(by(first));
    EXPECT_TRUE(call.existe());
    first->unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(call.existe());
    EXPECT_FALSE(call.ofereceAtribuir());
    call.libertaQuemEspera(); // nobody to free
}

TEST_F(Request, OfAnActIsOfferedAPersonAsLongAsItsFormWaits)
{
    PedidoDeIndividuo heir = by(first, OrigemInd::Herdeiro);
    heir.IndChamado = false;
    begin(heir);
    EXPECT_FALSE(call.ofereceAtribuir());
    heir.deActo = true;
    begin(heir);
    EXPECT_TRUE(call.ofereceAtribuir());
    first->setEnabled(true);
    EXPECT_FALSE(call.ofereceAtribuir());
}

TEST_F(Request, AttributingIsOfferedOnlyWhileBothStand)
{
    call.chama();
    EXPECT_FALSE(call.ofereceAtribuir());
    begin(by(first));
    EXPECT_TRUE(call.ofereceAtribuir());
    call.terminaIndChamado();
    EXPECT_FALSE(call.ofereceAtribuir());
}

TEST_F(Request, ThatLeavesIndChamadoAsItWasDoesntTurnItOff)
{
    PedidoDeIndividuo quiet = by(first);
    quiet.IndChamado = false;
    begin(quiet);
    EXPECT_FALSE(call.IndChamado());
    call.chama();
    begin(quiet);
    EXPECT_TRUE(call.IndChamado());
}

TEST_F(Request, ThatTheCardAloneEndsLeavesIndChamadoOn)
{
    begin(by(first));
    call.desiste();
    EXPECT_FALSE(call.existe());
    EXPECT_TRUE(call.IndChamado());
}

TEST_F(Request, ThatEndsLeavesAFamilyInItsEditCalling)
{
    call.familiaMudaDeModo(true);
    EXPECT_TRUE(call.IndChamado());
    begin(by(first, OrigemInd::Marido));
    call.acaba();
    EXPECT_FALSE(call.existe());
    EXPECT_TRUE(call.IndChamado()); // the other spouse may come next
    call.familiaMudaDeModo(false);
    EXPECT_FALSE(call.IndChamado());
    begin(by(first, OrigemInd::Marido));
    call.acaba();
    EXPECT_FALSE(call.IndChamado());
}

TEST_F(Request, IsOfferedByTheStateOfTheAskerWhoKnowsOne)
{
    bool editing = false;
    PedidoDeIndividuo spouse = by(first, OrigemInd::Marido);
    spouse.oferece = [&] { return editing; };
    begin(spouse);
    EXPECT_TRUE(call.IndChamado());
    EXPECT_FALSE(call.ofereceAtribuir());
    editing = true;
    EXPECT_TRUE(call.ofereceAtribuir());
    call.terminaIndChamado();
    EXPECT_TRUE(call.ofereceAtribuir());
    call.desiste();
    EXPECT_FALSE(call.ofereceAtribuir());
}

TEST_F(Request, ThatIsInterruptedTakesOnlyItsOwnCallWithIt)
{
    begin(by(first, OrigemInd::Filho));
    call.interrompe();
    EXPECT_FALSE(call.existe());
    EXPECT_FALSE(call.IndChamado());
    call.chama();
    PedidoDeIndividuo quiet = by(first);
    quiet.IndChamado = false;
    begin(quiet);
    call.interrompe();
    EXPECT_FALSE(call.existe());
    EXPECT_TRUE(call.IndChamado());
    call.familiaMudaDeModo(true);
    begin(by(first, OrigemInd::Marido));
    call.interrompe();
    EXPECT_TRUE(call.IndChamado()); // the other spouse may come next
}
