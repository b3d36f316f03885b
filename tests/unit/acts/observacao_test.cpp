// Whether a person can have been at an act, as its form asks.
#include "acts/observacao.h"

#include "individuals/individual_card.h"

namespace {

class Presence : public IndividualCard
{
protected:
    Presence()
    {
        cnBDP.execute("update individuo set datanasc = '1750-03-10' where nind = 7");
        frmInd().mostra("7");
    }

    static PedidoDeIndividuo at(const QString& date) { return {.DataActo = date}; }
};

} // namespace

TEST_F(Presence, WhoWasBornLaterWasntThere)
{
    const auto refusal = recusaNoActo(at("09/03/1750"), frmInd());
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->motivo, "O indivíduo que tenta atribuir não se encontra no espaço temporal permitido!\r\n"
                               "Atribua outro indivíduo.");
    EXPECT_EQ(refusal->icone, Icon::None);
    EXPECT_FALSE(recusaNoActo(at("10/03/1750"), frmInd()));
}

TEST_F(Presence, AFuneralIsHeldAgainstItsDateWhereItHasOne)
{
    const auto refusal = recusaNoFuneral(at("09/03/1750"), frmInd());
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->motivo, "O indivíduo que tenta atribuir não se  encontra no espaço temporal permitido!\r\n"
                               "Atribua outro indivíduo.");
    EXPECT_FALSE(recusaNoFuneral(at(""), frmInd()));
}

TEST_F(Presence, AnActWithoutADateTellsItAndRefusesNobody)
{
    const Answer ok("OK");
    EXPECT_FALSE(recusaNoActo(at(""), frmInd()));
    EXPECT_TRUE(ok.text.startsWith("Ocorreu o erro 13"));
}
