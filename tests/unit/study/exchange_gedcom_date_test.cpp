// Dates of GEDCOM as those of a BDP, and what goes to the notes.
#include "study/exchange/gedcomDate.h"
#include "study/exchange/gedcomValues.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>

using namespace study;
using namespace study::exchange;

namespace {

// "14/02/1702", "cerca de 1702", and behind "|" what goes to the notes.
QString read(const char* value, const char* phrase = "")
{
    const GedcomDateRead all = readGedcomDate(QString::fromUtf8(value), QString::fromUtf8(phrase));
    const QString date = parish::shown(all.date);
    return all.rest.isEmpty() ? date : date + " | " + all.rest;
}

QString problem(const char* value)
{
    return readGedcomDate(QString::fromUtf8(value)).problem;
}

QString period(const char* value)
{
    const GedcomPeriodRead all = readGedcomPeriod(QString::fromUtf8(value));
    const QString days = all.from.toString(Qt::ISODate) + '/' + all.until.toString(Qt::ISODate);
    return all.rest.isEmpty() ? days : days + " | " + all.rest;
}

} // namespace

TEST(GedcomDates, ThatTellADayAreExact)
{
    EXPECT_EQ(read("14 FEB 1702"), "14/02/1702");
    EXPECT_EQ(read("1 JAN 1702"), "01/01/1702");
    EXPECT_EQ(read("31 DEC 987"), "31/12/0987");
    EXPECT_EQ(read("@#DGREGORIAN@ 14 FEB 1702"), "14/02/1702");
    EXPECT_EQ(read("GREGORIAN 14 FEB 1702"), "14/02/1702") << "7.0";
    EXPECT_EQ(read(""), "");
    EXPECT_EQ(problem(""), "");
}

TEST(GedcomDates, ThatAreAboutADayAreApproximate)
{
    EXPECT_EQ(read("ABT 14 FEB 1702"), "cerca de 14/02/1702");
    EXPECT_EQ(read("ABT 1702"), "cerca de 1702");
    EXPECT_EQ(read("CAL 14 FEB 1702"), "cerca de 14/02/1702 | CAL 14 FEB 1702");
    EXPECT_EQ(read("EST 1702"), "cerca de 1702 | EST 1702");
    EXPECT_EQ(read("INT 14 FEB 1702 (dia de São Valentim)"),
              "cerca de 14/02/1702 | INT 14 FEB 1702 (dia de São Valentim)");
    EXPECT_EQ(read("ABT 1 JAN 1702"), "cerca de 1702 | ABT 1 JAN 1702") << "the BDP keeps the year alone";
}

TEST(GedcomDates, OfAMonthOrAYearAreAboutItsFirstDayAndGoToTheNotes)
{
    EXPECT_EQ(read("FEB 1702"), "cerca de 01/02/1702 | FEB 1702");
    EXPECT_EQ(read("JAN 1702"), "cerca de 1702 | JAN 1702");
    EXPECT_EQ(read("1702"), "cerca de 1702 | 1702");
    EXPECT_EQ(read("ABT FEB 1702"), "cerca de 01/02/1702 | ABT FEB 1702");
    EXPECT_EQ(read("00 FEB 1702"), "cerca de 01/02/1702 | 00 FEB 1702") << "a habit";
    EXPECT_EQ(read("?? FEB 1702"), "cerca de 01/02/1702 | ?? FEB 1702");
}

TEST(GedcomDates, OfARangeAreAboutItsFirstDay)
{
    EXPECT_EQ(read("FROM 1 JAN 1700 TO 2 FEB 1750"), "cerca de 1700 | FROM 1 JAN 1700 TO 2 FEB 1750");
    EXPECT_EQ(read("BET 3 MAR 1700 AND 1705"), "cerca de 03/03/1700 | BET 3 MAR 1700 AND 1705");
    EXPECT_EQ(read("BEF 3 MAR 1700"), "cerca de 03/03/1700 | BEF 3 MAR 1700");
    EXPECT_EQ(read("AFT 1700"), "cerca de 1700 | AFT 1700");
    EXPECT_EQ(read("TO 3 MAR 1700"), "cerca de 03/03/1700 | TO 3 MAR 1700");
    EXPECT_EQ(read("FROM ABT 1700 TO ABT 1710"), "cerca de 1700 | FROM ABT 1700 TO ABT 1710");
    EXPECT_EQ(read("1700-1710"), "cerca de 1700 | 1700-1710") << "a habit";
    EXPECT_EQ(read("BET 1700 - 1710"), "cerca de 1700 | BET 1700 - 1710");
}

TEST(GedcomDates, ThatAreJulianAreOfTheCalendarOfTheRegisters)
{
    EXPECT_EQ(read("@#DJULIAN@ 4 OCT 1582"), "04/10/1582") << "the last one that was written so in Portugal";
    EXPECT_EQ(read("@#DJULIAN@ 5 OCT 1582"), "15/10/1582 | @#DJULIAN@ 5 OCT 1582");
    EXPECT_EQ(read("@#DJULIAN@ 11 FEB 1731"), "22/02/1731 | @#DJULIAN@ 11 FEB 1731");
    EXPECT_EQ(read("JULIAN 29 FEB 1700"), "11/03/1700 | JULIAN 29 FEB 1700") << "7.0; no day of the other calendar";
    EXPECT_EQ(read("ABT @#DJULIAN@ 11 FEB 1731"), "cerca de 22/02/1731 | ABT @#DJULIAN@ 11 FEB 1731");
    EXPECT_EQ(read("@#DJULIAN@ 29 FEB 1500"), "cerca de 28/02/1500 | @#DJULIAN@ 29 FEB 1500") << "no BDP can hold it";
    EXPECT_NE(problem("@#DJULIAN@ 29 FEB 1500"), "");
}

TEST(GedcomDates, OfOtherCalendarsStayInTheNotesAndAreTold)
{
    EXPECT_EQ(read("@#DFRENCH R@ 12 VEND 11"), " | @#DFRENCH R@ 12 VEND 11");
    EXPECT_TRUE(problem("@#DFRENCH R@ 12 VEND 11").contains("republicano")) << qPrintable(problem("FRENCH_R 11"));
    EXPECT_TRUE(problem("FRENCH_R 12 VEND 11").contains("republicano"));
    EXPECT_EQ(read("@#DHEBREW@ 2 TVT 5758"), " | @#DHEBREW@ 2 TVT 5758");
    EXPECT_TRUE(problem("@#DHEBREW@ 2 TVT 5758").contains("hebraico"));
    EXPECT_EQ(read("@#DUNKNOWN@ 2 FEB 1702"), " | @#DUNKNOWN@ 2 FEB 1702");
    EXPECT_EQ(read("@#DMARTE@ 2 FEB 1702"), " | @#DMARTE@ 2 FEB 1702");
}

TEST(GedcomDates, OfADualYearAreOfTheSecondUntilMarch)
{
    EXPECT_EQ(read("11 FEB 1731/32"), "11/02/1732 | 11 FEB 1731/32");
    EXPECT_EQ(read("11 FEB 1731/2"), "11/02/1732 | 11 FEB 1731/2");
    EXPECT_EQ(read("11 FEB 1699/00"), "11/02/1700 | 11 FEB 1699/00");
    EXPECT_EQ(read("11 FEB 1731/1732"), "11/02/1732 | 11 FEB 1731/1732");
    EXPECT_EQ(read("FEB 1731/32"), "cerca de 01/02/1732 | FEB 1731/32");
    EXPECT_EQ(read("1731/32"), "cerca de 1731 | 1731/32") << "two years";
    EXPECT_EQ(read("11 AUG 1731/32"), "cerca de 11/08/1731 | 11 AUG 1731/32") << "nobody counted so in August";
    EXPECT_EQ(read("11 FEB 1731/45"), "cerca de 11/02/1731 | 11 FEB 1731/45");
    EXPECT_EQ(read("@#DJULIAN@ 11 FEB 1731/32"), "22/02/1732 | @#DJULIAN@ 11 FEB 1731/32");
}

TEST(GedcomDates, BeforeChristAreNone)
{
    for (const char* value : {"14 FEB 150 BC", "150 B.C.", "150 BCE", "150 a.C.", "150 a. C."}) {
        EXPECT_EQ(read(value), " | " + QString(value));
        EXPECT_NE(problem(value), "");
    }
    EXPECT_EQ(read("14 FEB 1702 AD"), "14/02/1702");
}

TEST(GedcomDates, ThatNobodyCanReadStayInTheNotesAndAreTold)
{
    for (const char* value : {"no dia de Reis", "31", "FEB", "14 FEB", "14 FEB 87", "FEB FEB 1702", "1702 1703 1704",
                              "14 XYZ 1702", "FROM", "9999999 FEB 12345", "14/13/1702", "@#D", "@", "ABT"})
    {
        EXPECT_EQ(read(value), " | " + QString(value));
        EXPECT_NE(problem(value), "") << value;
    }
    EXPECT_EQ(read("30 FEB 1702"), "cerca de 28/02/1702 | 30 FEB 1702");
    EXPECT_NE(problem("30 FEB 1702"), "");
}

TEST(GedcomDates, HaveTheirPhraseInTheNotes)
{
    EXPECT_EQ(read("(no dia de Reis)"), " | no dia de Reis");
    EXPECT_EQ(problem("(no dia de Reis)"), "") << "nobody said that it is a date";
    EXPECT_EQ(read("", "no dia de Reis"), " | no dia de Reis") << "7.0";
    EXPECT_EQ(read("6 JAN 1702", "no dia de Reis"), "06/01/1702 | 6 JAN 1702 (no dia de Reis)");
}

TEST(GedcomDates, AreReadAsProgramsAndPeopleWriteThem)
{
    EXPECT_EQ(read("14 feb 1702"), "14/02/1702");
    EXPECT_EQ(read(" 14  Feb.\t1702 "), "14/02/1702");
    EXPECT_EQ(read("14 February 1702"), "14/02/1702");
    EXPECT_EQ(read("1 Sept 1702"), "01/09/1702");
    EXPECT_EQ(read("14 fev 1702"), "14/02/1702");
    EXPECT_EQ(read("1.º de Março de 1702"), "01/03/1702");
    EXPECT_EQ(read("14 Dezembro 1702"), "14/12/1702");
    EXPECT_EQ(read("February 14, 1702"), "14/02/1702");
    EXPECT_EQ(read("14-FEV-1702"), "14/02/1702");
    EXPECT_EQ(read("14/02/1702"), "14/02/1702");
    EXPECT_EQ(read("14.02.1702"), "14/02/1702");
    EXPECT_EQ(read("1702-02-14"), "14/02/1702");
    EXPECT_EQ(read("02/03/1702"), "cerca de 02/03/1702 | 02/03/1702") << "of February or of March";
    EXPECT_EQ(read("cerca de 1702"), "cerca de 1702");
    EXPECT_EQ(read("c. 1702"), "cerca de 1702");
    EXPECT_EQ(read("c.1702"), "cerca de 1702");
    EXPECT_EQ(read("antes de 1702"), "cerca de 1702 | antes de 1702");
    EXPECT_EQ(read("entre 1702 e 1705"), "cerca de 1702 | entre 1702 e 1705");
    EXPECT_EQ(read("14 FEB 1702?"), "cerca de 14/02/1702 | 14 FEB 1702?");
    EXPECT_EQ(read("14 FEB 1702 (?)"), "cerca de 14/02/1702 | 14 FEB 1702 (?)");
    EXPECT_EQ(read("00/00/1702"), "cerca de 1702 | 00/00/1702");
}

TEST(GedcomDates, GiveBackWhatIsWritten)
{
    QRandomGenerator dice(1702);
    for (int round = 0; round < 3000; ++round) {
        const QDate day(100 + dice.bounded(2000), 1 + dice.bounded(12), 1 + dice.bounded(28));
        const QDate put = dice.bounded(10) == 0 ? QDate(day.year(), 1, 1) : day;
        const parish::Date date = parish::dateOf(put, dice.bounded(2) == 0);
        const GedcomDateRead again = readGedcomDate(QString::fromUtf8(gedcomDate(date)));
        EXPECT_EQ(again, (GedcomDateRead{date, {}, {}})) << gedcomDate(date).constData();
        const QDate until = dice.bounded(3) == 0 ? QDate() : put.addDays(dice.bounded(9000));
        const QDate from = until.isValid() && dice.bounded(3) == 0 ? QDate() : put;
        EXPECT_EQ(readGedcomPeriod(QString::fromUtf8(gedcomPeriod(from, until))),
                  (GedcomPeriodRead{from, until, {}, {}}))
            << gedcomPeriod(from, until).constData();
    }
}

TEST(GedcomDates, ArePeriodsWithOneEndOrBoth)
{
    EXPECT_EQ(period("FROM 1 JAN 1700 TO 2 FEB 1750"), "1700-01-01/1750-02-02");
    EXPECT_EQ(period("TO 2 FEB 1750"), "/1750-02-02");
    EXPECT_EQ(period("FROM 1700 TO 1750"), "1700-01-01/1750-01-01 | FROM 1700 TO 1750");
    EXPECT_EQ(period("14 FEB 1702"), "1702-02-14/1702-02-14");
    EXPECT_EQ(period("BEF 14 FEB 1702"), "/1702-02-14 | BEF 14 FEB 1702");
    EXPECT_EQ(period("AFT 14 FEB 1702"), "1702-02-14/ | AFT 14 FEB 1702");
    EXPECT_EQ(period("no tempo dele"), "/ | no tempo dele");
    EXPECT_NE(readGedcomPeriod("no tempo dele").problem, "");
    EXPECT_EQ(period(""), "/");
}
