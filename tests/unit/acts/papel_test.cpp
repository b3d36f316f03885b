// For whom the card of a person hands over at an act, as its tool tip tells.
#include "acts/frmIntervenientes.h"
#include "individuals/individual_card.h"

TEST_F(IndividualCard, AtAnActTheToolTipTellsThePartAndTheAct)
{
    Forms::add(FrmIntervenientes::Name, [] { return new FrmIntervenientes; });
    control<MaskedEdit>(frmInd(), "mskDtNasc").showPlain("09/03/1750");
    click("cmdInterv");
    Form* act = Forms::find(FrmIntervenientes::Name);
    ASSERT_TRUE(act);
    control<CommandButton>(*act, "cmdIns").click();
    const auto pick = [act](const char* button) {
        control<CommandButton>(*act, button).click();
        const QString tip = command("cmdAtribuir").toolTip();
        click("cmdFechar");
        return tip;
    };
    EXPECT_EQ(pick("cmdIndAss"), "Atribuir como assistente do baptismo nº 7");
    control<OptionButton>(*act, "optassistente_0").setValue(true);
    EXPECT_EQ(pick("cmdIndAss"), "Atribuir como madrinha do baptismo nº 7");
    control<OptionButton>(*act, "optassistente_1").setValue(true);
    EXPECT_EQ(pick("cmdIndAss"), "Atribuir como testemunha do baptismo nº 7");
}
