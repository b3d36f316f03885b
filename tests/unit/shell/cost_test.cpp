// What happens all day costs the same in a parish of any size: no confirm and no menu walks over its people.
#include "common/splashForm.h"
#include "control.h"
#include "families/frmFam.h"
#include "individuals/frmInd.h"
#include "jet/walked.h"
#include "store/parish.h"

namespace {

constexpr int peopleThere = 600;
constexpr int familiesThere = 300;
constexpr int lists = 100; // the rows of code lists and of what hangs on one person

class AFullParish : public Parish
{
protected:
    AFullParish()
    {
        Forms::add(FrmInd::Name, [] { return new FrmInd; });
        Forms::add(FrmFam::Name, [] { return new FrmFam; });
        Forms::add(SplashForm::Name, [] { return new SplashForm; });
        cnBDP.execute("insert into infocomplementar (categoria, codigo, descricao) values ('TipIn', 'T', 'Sem datas')");
        cnBDP.execute("insert into infocomplementar (categoria, codigo, descricao) values ('TipFa', '7', 'Outras')");
        cnBDP.execute("insert into infocomplementar (categoria, codigo, descricao) values ('SitFa', '1', 'Legítima')");
    }

    static void fill()
    {
        cnBDP.beginTrans();
        for (int nind = 1; nind <= peopleThere; ++nind)
            cnBDP.execute(jet::NativeSql("insert into individuo (nind, nome, tipo, sexo) values (?, 'Ana', 'T', ?)",
                                         {nind, QString(nind % 2 ? "m" : "f")}));
        for (int nfamilia = 1; nfamilia <= familiesThere; ++nfamilia)
            cnBDP.execute(
                jet::NativeSql("insert into familia (nfamilia, sfamilia, tipocasal) values (?, '1', 7)", {nfamilia}));
        cnBDP.commitTrans();
    }

    static void click(Form& card, const char* name) { control<CommandButton>(card, name).click(); }

    static void insertPerson()
    {
        control<TextBox>(frmInd(), "txtNome").setText("Eva");
        control<OptionButton>(frmInd(), "optSexo_1").setValue(true);
        click(frmInd(), "cmdIns");
    }

    template <class Event>
    static int walkedBy(Event event)
    {
        jet::test::rowsWalked(cnBDP.handle());
        event();
        return jet::test::rowsWalked(cnBDP.handle());
    }
};

TEST_F(AFullParish, IsReadOnceWhereACardIsLoadedByTheMenu)
{
    fill();
    EXPECT_LT(walkedBy([] { FrmInd::abrePeloMenu(); }), peopleThere + lists);
    EXPECT_LT(walkedBy([] { frmFam().abrePeloMenu(); }), familiesThere + lists);
}

TEST_F(AFullParish, IsNotReadAgainByTheMenu)
{
    fill();
    FrmInd::abrePeloMenu();
    frmFam().abrePeloMenu();
    EXPECT_LT(walkedBy([] { FrmInd::abrePeloMenu(); }), lists);
    EXPECT_LT(walkedBy([] { frmFam().abrePeloMenu(); }), lists);
}

TEST_F(AFullParish, TakesANewPersonWithoutBeingRead)
{
    fill();
    FrmInd::abrePeloMenu();
    click(frmInd(), "cmdIns");
    EXPECT_LT(walkedBy(insertPerson), lists);
    EXPECT_EQ(control<QLabel>(frmInd(), "lblTotal").text(), QString::number(peopleThere + 1));
    EXPECT_EQ(control<TextBox>(frmInd(), "txtNind").text(), QString::number(peopleThere + 2));
    control<TextBox>(frmInd(), "txtNind").setText("1");
    const Answer refused("OK");
    insertPerson();
    EXPECT_EQ(refused.text, "Ocorreu o erro -2147217887\nJá existe o indivíduo nº 1.");
    control<TextBox>(frmInd(), "txtNind").setText(QString::number(peopleThere + 10));
    EXPECT_LT(walkedBy(insertPerson), lists);
    EXPECT_EQ(control<TextBox>(frmInd(), "txtNind").text(), QString::number(peopleThere + 11));
}

TEST_F(AFullParish, TakesTheAlterationOfAPersonWithoutBeingRead)
{
    fill();
    FrmInd::abrePeloMenu();
    click(frmInd(), "cmdUlt");
    click(frmInd(), "cmdAlt");
    control<TextBox>(frmInd(), "txtTit").setText("Dona");
    EXPECT_LT(walkedBy([] { click(frmInd(), "cmdAlt"); }), lists);
    EXPECT_EQ(control<TextBox>(frmInd(), "txtTit").text(), "Dona");
    click(frmInd(), "cmdSeg"); // Kept: from the first row on
    EXPECT_EQ(control<TextBox>(frmInd(), "txtNind").text(), "2");
}

TEST_F(AFullParish, TakesAFamilyAndItsAlterationWithoutBeingRead)
{
    fill();
    frmFam().abrePeloMenu();
    click(frmFam(), "cmdIns");
    control<TextBox>(frmFam(), "txtPnind").setText("1");
    control<TextBox>(frmFam(), "txtSnind").setText("2");
    EXPECT_LT(walkedBy([] { click(frmFam(), "cmdIns"); }), lists);
    EXPECT_EQ(control<QLabel>(frmFam(), "lblTotal").text(), QString::number(familiesThere + 1));
    click(frmFam(), "cmdAlt");
    control<TextBox>(frmFam(), "txtIdade1").setText("30");
    EXPECT_LT(walkedBy([] { click(frmFam(), "cmdAlt"); }), lists);
    EXPECT_EQ(control<TextBox>(frmFam(), "txtNFam").text(), QString::number(familiesThere + 1));
}

TEST_F(AFullParish, IsFilledFromNothingWithoutBeingRead)
{
    FrmInd::abrePeloMenu();
    click(frmInd(), "cmdIns");
    for (int i = 0; i < 150; ++i)
        insertPerson();
    EXPECT_EQ(control<QLabel>(frmInd(), "lblTotal").text(), "150");
    EXPECT_LT(walkedBy(insertPerson), lists);
}

} // namespace
