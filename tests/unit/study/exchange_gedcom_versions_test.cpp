// What each version of GEDCOM has its own way for, and who stays out.
#include "study/gedcomOfAParish.h"

using namespace study::exchange;
using gedcom::Structure;

namespace {

class GedcomOfEachVersion : public gedcom::OfAParish
{
};

} // namespace

TEST_F(GedcomOfEachVersion, HasFactsWithADayAsEventsIn551)
{
    run("update individuo set inicioobs = '1750-03-10', estadoobito = 3, filiacao = 6 where nind = 3");
    run("insert into assinatura (nind, idassinatura, dataref, datafixa, idade, nivelassinatura, assinatura) "
        "values (3, 1, '1770-03-10', 1, 20, 3, 'a.jpg'), (3, 2, null, null, null, 1, null)");
    EXPECT_EQ(factOf(record("@I3@"), "Observação"), "Em observação");
    EXPECT_TRUE(record("@I3@").all("EVEN").isEmpty());
    options_.version = GedcomVersion::V551;
    const Structure eva = record("@I3@");
    EXPECT_EQ(factOf(eva, "Assinatura", "EVEN"), "Assina, nível 3");
    EXPECT_EQ(factOf(eva, "Assinatura"), "Assina, nível 1") << "of no day";
    EXPECT_EQ(factOf(eva, "Observação", "EVEN"), "Em observação");
    EXPECT_EQ(factOf(eva, "Estado civil ao óbito"), "Viúvo");
    EXPECT_EQ(factOf(eva, "Filiação"), "Exposto");
    for (const Structure& fact : eva.all("FACT"))
        EXPECT_TRUE(!fact.first("DATE") && !fact.first("AGE") && !fact.first("OBJE")) << fact.line;
}

TEST_F(GedcomOfEachVersion, HasTheCodeOfAPlaceOnceIn551)
{
    options_.version = GedcomVersion::V551;
    run("update individuo set localnasc = '010102', tipolocalnasc = 'F'");
    run("update familia set localcasam = '0203', tipolocalcasam = 'C'");
    const Structure place = below(below(record("@I3@"), "CHR"), "PLAC");
    EXPECT_EQ(below(place, "NOTE").pointer, "@N1@");
    EXPECT_EQ(record("@N1@").value, "Código do lugar no ORV: F010102");
    EXPECT_EQ(below(below(below(record("@F1@"), "MARR"), "PLAC"), "NOTE").pointer, "@N2@");
    EXPECT_EQ(record("@N2@").value, "Código do lugar no ORV: C0203");
    EXPECT_EQ(file().all("NOTE").size(), 2);
}

TEST_F(GedcomOfEachVersion, HasAssociationsTwiceWhereThatWasAsked)
{
    assists(child_, person({"Inês", 'f', "1700-01-02"}), 'b', 'p');
    EXPECT_TRUE(record("@I3@").all("ASSO").isEmpty());
    options_.associationsTwice = true;
    const Structure eva = record("@I3@");
    EXPECT_EQ(below(eva, "CHR").all("ASSO").size(), 1);
    const Structure godmother = below(eva, "ASSO");
    EXPECT_EQ(godmother.pointer, "@I4@");
    EXPECT_EQ(godmother.text("ROLE"), "GODP");
    EXPECT_EQ(godmother.text("NOTE"), "Madrinha do baptismo\nParentesco: Tio paterno");
}

TEST_F(GedcomOfEachVersion, HasItsSourcesBeforeWhoCitesThem)
{
    for (const GedcomVersion version : {GedcomVersion::V70, GedcomVersion::V551}) {
        options_.version = version;
        const gedcom::File all = file();
        for (const char* const source : {"@S1@", "@S2@", "@S3@"})
            EXPECT_LT(all.places.value(source), all.places.value("@I1@"));
    }
}

TEST_F(GedcomOfEachVersion, LeavesOutWhoMayBeAlive)
{
    person({"Nova", 'f', "1950-01-01", "", family_});            // 4
    person({"Morta", 'f', "1950-01-01", "1999-01-01", family_}); // 5
    person({"Sem data", 'm'});                                   // 6
    person({"Velho sem data", 'm'});                             // 7
    assists(child_, 7, 'b', 'p');
    assists(child_, 4, 'b', 'p');
    const qint64 recent = couple(4, 5, "1980-01-01");
    const gedcom::File all = file();
    EXPECT_FALSE(all.record("@I4@"));
    EXPECT_TRUE(all.record("@I5@")) << "dead";
    EXPECT_FALSE(all.record("@I6@")) << "of whom nothing says how old he is";
    EXPECT_TRUE(all.record("@I7@")) << "he stood by in 1750";
    EXPECT_EQ(below(*all.record("@I3@"), "CHR").all("ASSO").size(), 1);
    EXPECT_EQ(all.record("@F1@")->all("CHIL").size(), 2);
    const Structure* const couple = all.record("@F2@");
    ASSERT_TRUE(couple) << recent;
    EXPECT_FALSE(couple->first("MARR")) << "of who may be alive";
    EXPECT_FALSE(couple->first("WIFE"));
    EXPECT_EQ(below(*couple, "HUSB").pointer, "@I5@");
    EXPECT_EQ(counts_.withheldPeople, 2);
    EXPECT_EQ(counts_.withheldFamilies, 1);
    EXPECT_EQ(counts_.people, 5);
    EXPECT_FALSE(written().contains("Nova"));
    options_.limitYears = 60;
    EXPECT_TRUE(file().record("@I4@")) << "born 76 years ago";
    options_.limitYears = 0;
    EXPECT_TRUE(file().record("@I6@")) << "nobody stays out";
}

TEST_F(GedcomOfEachVersion, TellsNothingOfTheMarriageOfWhoMayBeAlive)
{
    const qint64 wife = person({"Morta", 'f', "1950-01-01", "1999-01-01"}),
                 husband = person({"Novo", 'm', "1948-01-01"});
    const qint64 family = couple(husband, wife, "1980-01-01");
    assists(family, 1, 'c', 't');
    run("update familia set primpadrecasam = 1 where nfamilia = ?", {family});
    options_.version = GedcomVersion::V551;
    EXPECT_TRUE(record("@I4@").all("ASSO").isEmpty());
    EXPECT_EQ(counts_.withheldFamilies, 1);
    options_.limitYears = 0;
    EXPECT_EQ(record("@I4@").all("ASSO").size(), 2);
}

TEST_F(GedcomOfEachVersion, KeepsTheWholeOfWhat551HasNoRoomFor)
{
    options_.version = GedcomVersion::V551;
    const QString name = "Ana " + QString(150, u'a') + " da Silva@";
    run("update individuo set nome = ?, causa = ?, rpObi = ? where nind = 3",
        {name, QString(200, u'c'), QString("imagens/") + QString(40, u'i') + ".jpg"});
    const Structure eva = record("@I3@");
    EXPECT_EQ(below(eva, "NAME").text("NOTE"), "Nome completo: " + name);
    EXPECT_TRUE(below(eva, "DEAT").text("NOTE").contains("Causa: " + QString(200, u'c')));
    EXPECT_TRUE(below(eva, "DEAT").text("NOTE").contains("Ficheiro: imagens/"));
    EXPECT_EQ(counts_.shortened, 2);
    run("update individuo set nome = ? where nind = 3", {QString(50, QChar(0x6F22)) + " da " + QString(40, u'@')});
    EXPECT_EQ(below(record("@I3@"), "NAME").value.count(u'/'), 2) << "each @ is two";
    run("update individuo set rpObi = 'imagens/b.JPG' where nind = 3");
    const Structure picture = below(below(below(record("@I3@"), "DEAT"), "SOUR"), "OBJE");
    EXPECT_EQ(picture.text("FILE"), "imagens/b.JPG");
    EXPECT_EQ(below(picture, "FILE").text("FORM"), "jpg");
}

TEST_F(GedcomOfEachVersion, TakesNamesOfEveryLetter)
{
    for (int code = 0x20; code < 0x500; ++code)
        run("insert into individuo (nind, nome, sexo) values (?, ?, 'd')",
            {code + 1000, QString("Ana ") + QChar(code) + "b Dias"});
    for (const GedcomVersion version : {GedcomVersion::V70, GedcomVersion::V551}) {
        options_.version = version;
        const gedcom::File all = file();
        for (int code = 0xA1; code < 0x500; ++code)
            EXPECT_TRUE(all.record("@I" + QByteArray::number(code + 1000) + '@')->text("NAME").contains(QChar(code)))
                << code;
    }
}
