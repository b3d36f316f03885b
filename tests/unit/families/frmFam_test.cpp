// The card of a family where no command and no scenario looks: the type that is worked out, and the tool tips.
#include "families/frmFam.h"

#include "control.h"
#include "store/diary.h"
#include "store/parish.h"

namespace {

class FamilyCard : public Parish
{
protected:
    FamilyCard()
    {
        cnBDP.execute("insert into paroquia (codparoquia, nomeparoquia) values ('030101', 'Esporões')");
        cnBDP.execute("insert into familia (nfamilia) values (1)");
        person(1, "m", "'1720-05-10'", "'1790-01-02'");
        person(2, "f", "'1725-02-03'", "'1801-12-31'");
        cnBDP.execute("insert into familias (nfamilia, nind) values (1, 1)");
        cnBDP.execute("insert into familias (nfamilia, nind) values (1, 2)");
        Forms::add(FrmFam::Name, [] { return new FrmFam; });
        Forms::show(FrmFam::Name);
    }

    static void person(int nind, const QString& sex, const QString& birth, const QString& death, int origin = 0)
    {
        cnBDP.execute(QString("insert into individuo (nind, nome, sexo, datanasc, dataobito, famorig, localnasc, "
                              "tipolocalnasc) values (%1, 'Ana', '%2', %3, %4, %5, '030101', 'F')")
                          .arg(nind)
                          .arg(sex, birth, death)
                          .arg(origin));
    }

    static void forget(const QString& column, int nind)
    {
        cnBDP.execute(QString("update individuo set %1 = null where nind = %2").arg(column).arg(nind));
    }
};

} // namespace

TEST_F(FamilyCard, WorksOutTheTypeFromThePeopleOnTheCard)
{
    EXPECT_EQ(frmFam().CalculaTipoFamilia(Nfam(1)), "1");
    forget("datanasc", 2);
    EXPECT_EQ(frmFam().CalculaTipoFamilia(Nfam(1)), "2");
    forget("dataobito", 1);
    EXPECT_EQ(frmFam().CalculaTipoFamilia(Nfam(1)), "4");
    cnBDP.execute("update individuo set datanasc = '1725-02-03', dataobito = null where nind = 2");
    EXPECT_EQ(frmFam().CalculaTipoFamilia(Nfam(1)), "3");
}

TEST_F(FamilyCard, NeedsTheBirthsOfAllChildrenForAType)
{
    person(3, "m", "'1750-01-01'", "null", 1);
    EXPECT_EQ(frmFam().CalculaTipoFamilia(Nfam(1)), "1");
    person(4, "m", "null", "null", 1);
    EXPECT_EQ(frmFam().CalculaTipoFamilia(Nfam(1)), "7");
    EXPECT_EQ(frmFam().CalculaTipoFamilia(Nfam(2)), "1"); // a family without children
}

TEST_F(FamilyCard, TellsAnErrorWhereAHalfIsEmptyAndAnswersSeven)
{
    control<TextBox>(frmFam(), "txtSnind").clear();
    const Answer box("OK");
    EXPECT_EQ(frmFam().CalculaTipoFamilia(Nfam(1)), "7");
    EXPECT_TRUE(box.text.startsWith("Ocorreu o erro "));
}

TEST_F(FamilyCard, TellsTheLifeOfAMemberInTheToolTip)
{
    EXPECT_EQ(control<TextBox>(frmFam(), "txtPnome").toolTip(), "DN: 10/05/1720 (Esporões)  -  DO: 02/01/1790");
    EXPECT_EQ(control<TextBox>(frmFam(), "txtSnome").toolTip(), "DN: 03/02/1725 (Esporões)  -  DO: 31/12/1801");
    control<TextBox>(frmFam(), "txtPnind").setText("9");
    EXPECT_EQ(control<TextBox>(frmFam(), "txtPnome").text(), "");
    EXPECT_EQ(control<TextBox>(frmFam(), "txtPnome").toolTip(), "");
    control<TextBox>(frmFam(), "txtSnind").clear();
    EXPECT_EQ(control<TextBox>(frmFam(), "txtSnome").toolTip(), "");
}

TEST_F(FamilyCard, GivesTheNamesOfTheChildrenTwiceTheRoomOfADate)
{
    person(3, "m", "'1750-01-01'", "null", 1);
    frmFam().procuraRegisto({});
    const auto& children = control<Grid>(frmFam(), "dtgFilho");
    ASSERT_EQ(children.rows(), 2);
    EXPECT_EQ(children.columnWidth(0), 67);
    EXPECT_EQ(children.columnWidth(1), 167);
    for (int date = 2; date < 5; ++date)
        EXPECT_EQ(children.columnWidth(date), 80);
}

TEST_F(FamilyCard, DeletesWhatHangsOnAFamilyInItsOrder)
{
    const Diary diary;
    const Answer yes("&Sim");
    control<CommandButton>(frmFam(), "cmdElim").click();
    EXPECT_EQ(yes.given, 1);
    EXPECT_EQ(diary.entries.join(' '), "famorig residencia assistente familias familia");
}
