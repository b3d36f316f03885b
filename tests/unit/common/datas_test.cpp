#include "common/datas.h"

#include "common/emptybdp.h"
#include "forms/house.h"
#include "platform/jet/error.h"

#include <gtest/gtest.h>

namespace {

TEST(DateText, IsADateWhereTheCalendarHasItDayFirst)
{
    for (const char* texto : {"09/03/1750", "29/02/1752", "31/12/0999", "15/10/1582", "10/10/1582", "13/02/1800",
                              "1/3/1750", "9/12/1750", "09031750"})
        EXPECT_TRUE(eData(texto)) << texto;
    for (const char* texto :
         {"31/02/1750", "29/02/1700", "02/13/1800", "1/13/1750", "09/03/50", "31021700", "1/3/150", "9031750",
          "09-03-1750", "__/__/____", "1_/__/____", "", "abc", "00/01/1800", "09/03/1750 "})
        EXPECT_FALSE(eData(texto)) << texto;
}

TEST(DateText, IsEmptyInTwoForms)
{
    EXPECT_TRUE(semData("__/__/____"));
    EXPECT_TRUE(semData(""));
    EXPECT_FALSE(semData("1_/__/____"));
    EXPECT_FALSE(semData("09/03/1750"));
}

TEST(DateText, ShowsAStoredDateDayFirst)
{
    EXPECT_EQ(textoDaData(QDate(1699, 2, 3)), "03/02/1699");
    EXPECT_EQ(textoDaData(QVariant()), "");
}

TEST(DateText, OfAStatementIsTheDayThatTheStoreReadsInWords)
{
    EXPECT_EQ(diaDoLiteral("09/03/1750"), "3 de Setembro de 1750");
    EXPECT_EQ(diaDoLiteral("25/03/1699"), "25 de Março de 1699");
    EXPECT_EQ(diaDoLiteral("31/02/1750"), "");
    EXPECT_EQ(diaDoLiteral("__/__/____"), "");
}

TEST(DateText, GoesIntoStatementsMonthFirst)
{
    EXPECT_EQ(literalDaData("9/3/1750"), "#03/09/1750#");
    EXPECT_EQ(literalDaData("09031750"), "#03/09/1750#");
    EXPECT_EQ(literalDaData("09/03/1750"), "#03/09/1750#");
    EXPECT_EQ(literalDaData("25/12/1699"), "#12/25/1699#");
    EXPECT_THROW(literalDaData("31/02/1750"), jet::Error);
    EXPECT_THROW(literalDaData(""), jet::Error);
}

class DateField : public House
{
protected:
    TestForm* form = make("frmProf", [](TestForm& f) {
        f.put<MaskedEdit>("mskData");
        f.put<QPushButton>("cmdOk");
    });
    MaskedEdit* data = form->findChild<MaskedEdit*>("mskData");
};

TEST_F(DateField, MayHoldADateOrNothing)
{
    EXPECT_TRUE(VerificaData(*data)); // with its mask
    data->showPlain("");
    EXPECT_TRUE(VerificaData(*data));
    data->showPlain("09/03/1750");
    EXPECT_TRUE(VerificaData(*data));
    EXPECT_EQ(data->text(), "09/03/1750");
}

TEST_F(DateField, IsClearedAndGetsTheFocusWhereItHoldsNoDate)
{
    form->display();
    form->findChild<QPushButton*>("cmdOk")->setFocus();
    data->showPlain("31/02/1750");
    Answer ok("OK");
    EXPECT_FALSE(VerificaData(*data));
    EXPECT_EQ(ok.text.remove('\r'), "Deve inserir uma data válida!\nUtilize o formato 'DD/MM/YYYY'");
    EXPECT_EQ(ok.title, "NUBE - ORV");
    EXPECT_EQ(ok.icon, QMessageBox::Information);
    EXPECT_EQ(data->text(), "__/__/____");
    QCoreApplication::processEvents();
    EXPECT_TRUE(data->hasFocus());
}

TEST(Age, IsCountedInYearsOf365DaysRoundedToTheNearest)
{
    const QDate nasc(1750, 1, 1);
    const std::pair<int, int> idades[] = {{0, 0},    {182, 0},   {183, 1},   {364, 1},    {547, 1},    {548, 2},
                                          {-182, 0}, {-183, -1}, {-548, -2}, {29200, 80}, {29382, 80}, {29383, 81}};
    for (const auto& [dias, anos] : idades)
        EXPECT_EQ(CalculaIdade(nasc, nasc.addDays(dias)), anos) << dias;
}

// One person, known by the dates given, tested against an act.
class ObservationWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        cnBDP.execute("create table individuo (nind double not null, datanasc date, dataobito date, inicioobs date, "
                      "fimobs date)");
    }

    static bool dentro(const QString& colunas, const QString& dataActo = "09/03/1800")
    {
        cnBDP.execute("delete from individuo");
        cnBDP.execute("insert into individuo (nind) values (1)");
        if (!colunas.isEmpty()) cnBDP.execute("update individuo set " + colunas + " where nind = 1");
        return DentroObservacao(Nind(1), dataActo);
    }

    EmptyBdp bdp;
};

TEST_F(ObservationWindow, OfABirthReachesBackAHundredYearsAndEndsAtTheAct)
{
    EXPECT_TRUE(dentro("datanasc = #01/01/1700#"));
    EXPECT_FALSE(dentro("datanasc = #12/31/1699#"));
    EXPECT_TRUE(dentro("datanasc = #03/09/1800#"));
    EXPECT_FALSE(dentro("datanasc = #03/10/1800#"));
}

TEST_F(ObservationWindow, OfAnObservationBeginsAndEndsStrictlyInside)
{
    for (const QString coluna : {"inicioobs", "fimobs"}) {
        EXPECT_FALSE(dentro(coluna + " = #12/31/1700#"));
        EXPECT_TRUE(dentro(coluna + " = #01/01/1701#"));
        EXPECT_TRUE(dentro(coluna + " = #12/31/1889#"));
        EXPECT_FALSE(dentro(coluna + " = #01/01/1890#"));
    }
}

TEST_F(ObservationWindow, OfADeathBeginsAtTheActAndReachesNinetyYears)
{
    EXPECT_TRUE(dentro("dataobito = #03/09/1800#"));
    EXPECT_FALSE(dentro("dataobito = #03/08/1800#"));
    EXPECT_TRUE(dentro("dataobito = #12/31/1890#"));
    EXPECT_FALSE(dentro("dataobito = #01/01/1891#"));
}

TEST_F(ObservationWindow, IsDecidedByTheFirstDateKnown)
{
    EXPECT_TRUE(dentro("datanasc = #01/01/1750#, dataobito = #01/01/1760#"));
    EXPECT_FALSE(dentro("datanasc = #01/01/1650#, inicioobs = #01/01/1780#"));
    EXPECT_TRUE(dentro("inicioobs = #01/01/1780#, dataobito = #01/01/1790#"));
    EXPECT_FALSE(dentro("dataobito = #01/01/1790#, fimobs = #01/01/1800#"));
}

TEST_F(ObservationWindow, IsOpenWhereItCantBeTested)
{
    Answer ok("OK");
    EXPECT_TRUE(dentro("datanasc = #01/01/1600#", "31/02/1800"));
    EXPECT_EQ(ok.given, 1);
    EXPECT_TRUE(ok.text.startsWith("Ocorreu o erro 13"));
}

TEST_F(ObservationWindow, IsOpenForThoseOfWhomNothingIsKnown)
{
    EXPECT_TRUE(dentro(""));
    EXPECT_TRUE(DentroObservacao(Nind(77), "09/03/1800")); // no such person
}

} // namespace
