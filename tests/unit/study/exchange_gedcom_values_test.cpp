// Dates, names and places as values of GEDCOM.
#include "data/datafolder.h"
#include "study/exchange/gedcomTables.h"
#include "study/exchange/gedcomValues.h"

#include <gtest/gtest.h>

#include <QUuid>

namespace study::exchange {

namespace {

const NameTable& table()
{
    static const NameTable all = NameTable::load(ORV_DATA_DIR "/nomes.csv");
    return all;
}

QString payload(const char* name)
{
    return gedcomName(QString::fromUtf8(name), table()).payload;
}

} // namespace

TEST(DatesInGedcom, SayHowSureTheyAre)
{
    const auto date = [](QDate day, bool exact) { return gedcomDate(parish::dateOf(day, exact)); };
    EXPECT_EQ(date({1702, 2, 14}, true), "14 FEB 1702");
    EXPECT_EQ(date({1622, 3, 12}, false), "ABT 12 MAR 1622");
    EXPECT_EQ(date({1622, 1, 1}, false), "ABT 1622") << "the year alone is meant";
    EXPECT_EQ(date({1622, 1, 1}, true), "1 JAN 1622");
    EXPECT_EQ(date({987, 12, 31}, true), "31 DEC 987");
    EXPECT_EQ(date({}, true), "");
}

TEST(DatesInGedcom, ArePeriodsWithOneEndOrBoth)
{
    const QDate from(1700, 1, 1), until(1750, 2, 2);
    EXPECT_EQ(gedcomPeriod(from, until), "FROM 1 JAN 1700 TO 2 FEB 1750");
    EXPECT_EQ(gedcomPeriod(from, {}), "FROM 1 JAN 1700");
    EXPECT_EQ(gedcomPeriod({}, until), "TO 2 FEB 1750");
    EXPECT_EQ(gedcomPeriod({}, {}), "");
    EXPECT_EQ(gedcomAge(46), "46y");
    EXPECT_EQ(gedcomAge(0), "0y");
    EXPECT_EQ(gedcomAge(-1), "");
    EXPECT_EQ(gedcomAge({}), "");
}

TEST(NamesInGedcom, HaveTheSurnameBetweenSlashes)
{
    EXPECT_EQ(payload("Maria da Conceição"), "Maria /da Conceição/");
    EXPECT_EQ(payload("João Dias"), "João /Dias/");
    EXPECT_EQ(payload("Ana Maria de Sousa e Silva"), "Ana Maria /de Sousa e Silva/");
    EXPECT_EQ(payload("João Zurzal"), "João /Zurzal/") << "a word that the table doesn't have";
    EXPECT_EQ(payload("Manuel d'Almeida"), "Manuel /d'Almeida/");
}

TEST(NamesInGedcom, StayGivenWhereNoWordIsSureToBeOfTheSurname)
{
    EXPECT_EQ(payload("Maria Rosa"), "Maria Rosa //");
    EXPECT_EQ(payload("Maria"), "Maria //");
    EXPECT_EQ(payload("exposto"), "exposto //") << "no name";
    EXPECT_EQ(payload(""), "");
    EXPECT_EQ(payload("  "), "");
}

TEST(NamesInGedcom, AreAsTranscribedWithWhatStandsAroundThem)
{
    EXPECT_EQ(payload("Padre Manoel  Roiz, o Moço"), "Padre Manoel  /Roiz/, o Moço");
    EXPECT_EQ(payload("Ana/Joana Dias").count('/'), 2) << "its own slash is another letter";
    const GedcomName name = gedcomName("Dona Ana da Silva e Sousa", table());
    EXPECT_EQ(name.given, "Ana");
    EXPECT_EQ(name.particle, "da");
    EXPECT_EQ(name.surname, "Silva e Sousa") << "one string";
    EXPECT_EQ(name.titles, QStringList{"Dona"});
    EXPECT_EQ(gedcomName("Domingos Exposto", table()).given, "Domingos Exposto");
    EXPECT_EQ(gedcomName("Ana Maria, a Moça", table()).given, "Ana Maria, a Moça");
}

TEST(PlacesInGedcom, HaveAllLevelsTheSmallestFirst)
{
    datafolder::MadeBdp made;
    made.connection.execute(jet::NativeSql("insert into lugar (codlugar, nomelugar, codparoquia) "
                                           "values ('01010201', 'Cimo, de Vila', '010102')"));
    made.connection.execute(
        jet::NativeSql("insert into sitio (codsitio, nomesitio, codlugar) values ('0101020101', 'Eira', '01010201')"));
    const PlaceNames places(made.connection);
    EXPECT_EQ(places.hierarchy({"0101020101", 'S'}), "Eira, Cimo; de Vila, Aguada de Baixo, Águeda, Aveiro, Portugal");
    EXPECT_EQ(places.hierarchy({"010102", 'F'}), ", , Aguada de Baixo, Águeda, Aveiro, Portugal");
    EXPECT_EQ(places.hierarchy({"0210", 'Z'}).section(',', 0, 4), ", , , , Baden Vurtemberga");
    EXPECT_EQ(places.hierarchy({"999999", 'F'}), ", , (999999), , , ") << "not in its table";
    EXPECT_EQ(QString(placeForm).count(','), places.hierarchy({"010102", 'F'}).count(','));
}

TEST(NumbersInGedcom, AreTheSameForTheSameRecordOfTheParish)
{
    const parish::Home home{"030899", "São Mamede"};
    const QByteArray uid = uidOf(home, "nind", 12);
    EXPECT_EQ(uid, uidOf(home, "nind", 12));
    EXPECT_NE(uid, uidOf(home, "nind", 13));
    EXPECT_NE(uid, uidOf(home, "nfamilia", 12));
    EXPECT_NE(uid, uidOf({"030898", "São Mamede"}, "nind", 12));
    EXPECT_EQ(uid, uidOf({"030899", "S. Mamede"}, "nind", 12)) << "a name is written in many ways";
    EXPECT_NE(uidOf({"", "São Mamede"}, "nind", 12), uidOf({"", "Tabuadelo"}, "nind", 12)) << "there is no code";
    EXPECT_EQ(QUuid::fromString(QString(uid)).version(), QUuid::Sha1);
}

TEST(PicturesInGedcom, TellNothingOfTheMachine)
{
    EXPECT_EQ(relativePath("/home/ana/bdp/actos/b1.jpg", "/home/ana/bdp"), "actos/b1.jpg");
    EXPECT_EQ(relativePath("C:\\Users\\Ana\\b1.jpg", "/home/ana/bdp"), "b1.jpg");
    EXPECT_EQ(relativePath("/home/ana/b1.jpg", "/home/ana/bdp"), "b1.jpg");
    EXPECT_EQ(relativePath("../ana/b1.jpg", "/home/ana/bdp"), "b1.jpg");
    EXPECT_EQ(relativePath("actos\\b1.jpg", "/home/ana/bdp"), "actos/b1.jpg");
    EXPECT_EQ(relativePath("", "/home/ana/bdp"), "");
}

TEST(WordsOfGedcom, AreOfItsLengthsAndLists)
{
    for (const Role role : {Role::Godparent, Role::Witness, Role::Clergy, Role::Executor, Role::Heir})
        EXPECT_LE(qstrlen(wordsOf(role).rela551), 25U);
    EXPECT_EQ(QString(wordsOf(Role::Godparent).role70), "GODP");
    EXPECT_EQ(QString(pedigreeOf(14)->pedi70), "ADOPTED");
    EXPECT_EQ(QString(pedigreeOf(6)->pedi551), "foster");
    EXPECT_EQ(pedigreeOf(16), nullptr) << "not known";
    EXPECT_EQ(pedigreeOf(99), nullptr) << "a code of the user's own";
    EXPECT_EQ(marriageOf("1"), MarriageTold::Yes);
    EXPECT_EQ(marriageOf("2"), MarriageTold::Open) << "presumed";
    EXPECT_EQ(marriageOf("6"), MarriageTold::Never);
    EXPECT_EQ(marriageOf(""), MarriageTold::Open);
}

} // namespace study::exchange
