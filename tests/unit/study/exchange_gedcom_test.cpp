// What the cards tell, as GEDCOM has it.
#include "study/gedcomOfAParish.h"

#include "platform/jet/error.h"

#include <QDir>
#include <QFile>

using namespace study;
using namespace study::exchange;
using gedcom::Structure;

namespace {

class GedcomOfAParish : public gedcom::OfAParish
{
};

} // namespace

TEST_F(GedcomOfAParish, HasADateAsABaptismAndTheBirthAboutIt)
{
    const Structure eva = record("@I3@");
    EXPECT_EQ(below(eva, "CHR").text("DATE"), "10 MAR 1750");
    EXPECT_EQ(below(eva, "BIRT").text("DATE"), "ABT 10 MAR 1750");
    EXPECT_EQ(below(eva, "DEAT").text("DATE"), "7 JUN 1790");
    options_.birthDates = BirthDates::Baptisms;
    EXPECT_EQ(below(record("@I3@"), "BAPM").text("DATE"), "10 MAR 1750");
    options_.birthDates = BirthDates::Births;
    const Structure born = record("@I3@");
    EXPECT_EQ(below(born, "BIRT").text("DATE"), "10 MAR 1750");
    EXPECT_FALSE(born.first("CHR"));
    EXPECT_FALSE(born.first("BAPM"));
}

TEST_F(GedcomOfAParish, HasBothDaysWhereBothAreKnown)
{
    options_.days = [](parish::PersonNumber who, const parish::Date&, const QString&) {
        const KnownDays days{QDate(1750, 3, 8), QDate(1750, 3, 10)};
        return value(who) == 3 ? std::optional<KnownDays>(days) : std::nullopt;
    };
    const Structure eva = record("@I3@");
    EXPECT_EQ(below(eva, "BIRT").text("DATE"), "8 MAR 1750");
    EXPECT_EQ(below(eva, "CHR").text("DATE"), "10 MAR 1750");
    EXPECT_EQ(below(record("@I1@"), "BIRT").text("DATE"), "ABT 4 MAY 1720");
}

TEST_F(GedcomOfAParish, KeepsAboutAsAbout)
{
    run("update individuo set DnascFixa = 0 where nind in (1, 2)");
    EXPECT_EQ(below(record("@I1@"), "CHR").text("DATE"), "ABT 4 MAY 1720");
    EXPECT_EQ(below(record("@I2@"), "CHR").text("DATE"), "ABT 1722");
}

TEST_F(GedcomOfAParish, HasGodparentsAtTheBaptismAndIn551WithTheChild)
{
    assists(child_, person({"Gil", 'm', "1700-01-02"}), 'b', 'p');
    assists(child_, person({"Inês", 'f', "1700-01-02"}), 'b', 'p');
    assists(child_, person({"Ivo", 'm', "1700-01-02"}), 'b', 't');
    const QList<Structure> all = below(record("@I3@"), "CHR").all("ASSO");
    ASSERT_EQ(all.size(), 3);
    EXPECT_EQ(all[0].pointer, "@I4@");
    EXPECT_EQ(all[0].text("ROLE"), "GODP");
    EXPECT_EQ(below(all[0], "ROLE").text("PHRASE"), "Padrinho");
    EXPECT_EQ(below(all[1], "ROLE").text("PHRASE"), "Madrinha");
    EXPECT_EQ(all[1].text("NOTE"), "Parentesco: Tio paterno");
    EXPECT_EQ(all[2].text("ROLE"), "WITN");
    options_.version = GedcomVersion::V551;
    const Structure eva = record("@I3@");
    ASSERT_EQ(eva.all("ASSO").size(), 3);
    EXPECT_EQ(eva.all("ASSO")[1].text("RELA"), "Godparent");
    EXPECT_EQ(eva.all("ASSO")[1].text("NOTE"), "Madrinha do baptismo\nParentesco: Tio paterno");
    EXPECT_FALSE(below(eva, "CHR").first("_ASSO"));
    options_.associationsTwice = true;
    EXPECT_EQ(below(record("@I3@"), "CHR").all("_ASSO").size(), 3);
}

TEST_F(GedcomOfAParish, HasWitnessesAndPriestsAtTheMarriageAndIn551WithTheWife)
{
    assists(family_, person({"Ivo", 'm', "1700-01-02"}), 'c', 't');
    assists(family_, person({"Gil", 'm', "1700-01-02"}), 'c', 'p');
    run("update familia set primpadrecasam = 5, funcprimpcasam = 9");
    const QList<Structure> all = below(record("@F1@"), "MARR").all("ASSO");
    ASSERT_EQ(all.size(), 3);
    EXPECT_EQ(all[0].text("ROLE"), "WITN");
    EXPECT_EQ(below(all[1], "ROLE").text("PHRASE"), "Padrinho") << "of a marriage he is a witness, too";
    EXPECT_EQ(all[2].text("ROLE"), "CLERGY");
    EXPECT_EQ(below(all[2], "ROLE").text("PHRASE"), "Vigário");
    options_.version = GedcomVersion::V551;
    const QList<Structure> ofWife = record("@I2@").all("ASSO");
    ASSERT_EQ(ofWife.size(), 3);
    EXPECT_EQ(ofWife[0].pointer, "@I4@");
    EXPECT_TRUE(ofWife[0].text("NOTE").startsWith("Testemunha do casamento da família 1"));
    EXPECT_EQ(ofWife[2].text("RELA"), "Officiator");
    EXPECT_TRUE(record("@I1@").all("ASSO").isEmpty());
    run("delete from familias");
    EXPECT_EQ(below(record("@F1@"), "MARR").text("NOTE"), "Testemunha: pessoa 4\nPadrinho: pessoa 5\nVigário: pessoa 5")
        << "nobody is there to bear them";
}

TEST_F(GedcomOfAParish, HasTheCoupleByItsSexAndTellsWhereItCannot)
{
    run("update individuo set sexo = 'm' where nind = 2");
    person({"Luís", 'm', "1725-01-02"}); // 4
    run("insert into familias (nfamilia, nind) values (1, 4)");
    const Structure family = record("@F1@");
    EXPECT_EQ(below(family, "HUSB").pointer, "@I1@");
    EXPECT_EQ(below(family, "WIFE").pointer, "@I2@");
    EXPECT_EQ(below(family, "CHIL").pointer, "@I3@");
    EXPECT_TRUE(family.text("NOTE").contains("A pessoa 2 está no lugar da mulher"));
    EXPECT_TRUE(family.text("NOTE").contains("a pessoa 4"));
    EXPECT_FALSE(record("@I4@").first("FAMS"));
}

TEST_F(GedcomOfAParish, HasAUnionThatIsNoMarriageAsAnEvent)
{
    run("update familia set sfamilia = '6'");
    const Structure family = record("@F1@");
    EXPECT_FALSE(family.first("MARR"));
    EXPECT_EQ(below(family, "EVEN").value, "União");
    EXPECT_EQ(below(family, "EVEN").text("DATE"), "ABT 1745");
    EXPECT_EQ(factOf(family, "Situação da família"), "União não matrimonial");
    run("update familia set sfamilia = '1', datacasam = null");
    EXPECT_EQ(below(record("@F1@"), "MARR").value, "Y") << "they are married, whenever it was";
    run("update familia set sfamilia = null");
    EXPECT_FALSE(record("@F1@").first("MARR"));
}

TEST_F(GedcomOfAParish, SaysThatACoupleNeverMarriedWhereOneOfItDiedSingle)
{
    run("update familia set sfamilia = '6'");
    EXPECT_FALSE(record("@F1@").first("NO")) << "they may have married later";
    run("update individuo set estadoobito = 1, dataobito = '1780-01-01' where nind = 2");
    EXPECT_EQ(below(record("@F1@"), "NO").value, "MARR");
    run("update familia set sfamilia = '11'");
    EXPECT_FALSE(record("@F1@").first("NO")) << "nothing tells of the union";
}

TEST_F(GedcomOfAParish, HasAgesStatesAndOrdersAtTheMarriage)
{
    run("update familias set idade = 25, estadocivil = 3, numcasam = 2 where nind = 1");
    const Structure marriage = below(record("@F1@"), "MARR");
    EXPECT_EQ(below(marriage, "HUSB").text("AGE"), "25y");
    EXPECT_FALSE(marriage.first("WIFE"));
    EXPECT_EQ(marriage.text("NOTE"), "Estado civil do marido: Viúvo\nCasamento n.º do marido: 2");
}

TEST_F(GedcomOfAParish, HasFoundlingsAsOtherThanBorn)
{
    run("update individuo set filiacao = 6 where nind = 3");
    const Structure eva = record("@I3@");
    EXPECT_EQ(factOf(eva, "Filiação"), "Exposto");
    const Structure pedigree = below(below(eva, "FAMC"), "PEDI");
    EXPECT_EQ(pedigree.value, "OTHER");
    EXPECT_EQ(pedigree.text("PHRASE"), "Exposto");
    options_.version = GedcomVersion::V551;
    EXPECT_EQ(below(record("@I3@"), "FAMC").text("PEDI"), "foster");
}

TEST_F(GedcomOfAParish, HasWhatHangsOnAPerson)
{
    run("insert into profissao (codprof, profissao) values (7, 'Ferreiro')");
    run("insert into profissoes (nind, idprofissao, dataref, datafixa, codprof, fonte) "
        "values (1, 1, '1750-03-10', 1, 7, 'Rol')");
    run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal, obs) "
        "values (1, 'i', '1750-03-10', 0, '010102', 'F', 'junto à igreja')");
    run("insert into assinatura (nind, idassinatura, dataref, datafixa, nivelassinatura, assinatura) "
        "values (1, 1, '1750-03-10', 1, 3, 'imagens/a b.jpg')");
    run("insert into passaporte (nind, nPass, dataref) values (1, 77, '1760-03-10')");
    run("update individuo set testam = 1, altura = 170, alcunha = 'o Ferreiro', titulo = 'Padre', obs = 'um\ndois' "
        "where nind = 1");
    run("insert into legadosprofanos (nind, idlegprof, nindherd, bensraiz) values (1, 1, 3, 'A eira')");
    run("insert into rituaismorte (nind, idlegpio, tipolegpio, tipo, quantidade, valorunit, tipoMoeda) "
        "values (1, 1, 'missa', 1, 9, 50.5, 'Re')");
    const Structure rui = record("@I1@");
    EXPECT_EQ(below(rui, "OCCU").value, "Ferreiro");
    EXPECT_EQ(below(below(rui, "OCCU"), "SOUR").text("PAGE"), "Rol");
    EXPECT_EQ(below(rui, "RESI").text("DATE"), "ABT 10 MAR 1750");
    EXPECT_EQ(below(rui, "RESI").text("NOTE"), "junto à igreja");
    EXPECT_EQ(factOf(rui, "Assinatura"), "Assina, nível 3");
    EXPECT_EQ(record("@OAI1_1@").text("FILE"), "imagens/a%20b.jpg");
    EXPECT_EQ(below(rui, "EMIG").text("TYPE"), "Passaporte");
    EXPECT_EQ(below(rui, "DSCR").value, "Altura: 170 cm");
    EXPECT_EQ(below(rui, "NAME").text("NICK"), "o Ferreiro");
    EXPECT_EQ(below(rui, "NAME").text("NPFX"), "Padre");
    EXPECT_EQ(rui.text("NOTE"), "um\ndois");
    const Structure heir = below(below(rui, "WILL"), "ASSO");
    EXPECT_EQ(heir.pointer, "@I3@");
    EXPECT_EQ(below(heir, "ROLE").text("PHRASE"), "Herdeiro");
    EXPECT_EQ(heir.text("NOTE"), "Bens de raiz: A eira");
    const QString masses = "Missas: tipo: Rezada; quantidade: 9; valor de cada: 50,50; moeda: réis";
    EXPECT_EQ(below(rui, "WILL").text("NOTE"), masses);
    EXPECT_FALSE(rui.first("DEAT")) << "nothing tells of it";
    EXPECT_EQ(rui.text("REFN"), "1");
    options_.version = GedcomVersion::V551;
    EXPECT_TRUE(record("@I1@").first("_UID"));
    run("update individuo set testam = 0 where nind = 1");
    run("delete from legadosprofanos");
    EXPECT_FALSE(record("@I1@").first("WILL"));
    EXPECT_EQ(below(record("@I1@"), "DEAT").text("NOTE"), masses) << "there is no will to tell of them";
}

TEST_F(GedcomOfAParish, HasAllOfANameAndItsTitlesInItsPieces)
{
    run("update individuo set nome = 'Padre Domingos Exposto', titulo = 'Dom' where nind = 3");
    const Structure name = below(record("@I3@"), "NAME");
    EXPECT_EQ(name.value, "Padre Domingos Exposto //");
    EXPECT_EQ(name.text("GIVN"), "Domingos Exposto") << "some readers take the pieces alone";
    EXPECT_EQ(name.text("NPFX"), "Padre");
    EXPECT_EQ(record("@I3@").text("TITL"), "Dom") << "two in one piece couldn't be told apart again";
    run("update individuo set titulo = 'padre' where nind = 3");
    EXPECT_EQ(below(record("@I3@"), "NAME").text("NPFX"), "Padre") << "once";
}

TEST_F(GedcomOfAParish, HasThePlaceWithItsHierarchyAndCode)
{
    run("insert into pais (codpais, nomepais) values ('PT', 'Portugal')");
    run("insert into distrito (coddistrito, nomedistrito, codpais) values ('01', 'Aveiro', 'PT')");
    run("insert into concelho (codconcelho, nomeconcelho, coddistrito) values ('0101', 'Águeda', '01')");
    run("insert into paroquia (codparoquia, nomeparoquia, codconcelho) values ('010102', 'Aguada de Baixo', '0101')");
    run("update individuo set localnasc = '010102', tipolocalnasc = 'F' where nind = 3");
    const Structure place = below(below(record("@I3@"), "CHR"), "PLAC");
    EXPECT_EQ(place.value, ", , Aguada de Baixo, Águeda, Aveiro, Portugal");
    EXPECT_EQ(place.text("EXID"), "F010102");
    EXPECT_EQ(below(place, "EXID").text("TYPE"), "urn:orv:lugar");
}

TEST_F(GedcomOfAParish, CitesTheRegistersOfTheParishAlone)
{
    EXPECT_EQ(below(below(record("@I3@"), "CHR"), "SOUR").pointer, "@S1@");
    EXPECT_EQ(below(below(record("@F1@"), "MARR"), "SOUR").pointer, "@S2@");
    EXPECT_EQ(below(below(record("@I3@"), "DEAT"), "SOUR").pointer, "@S3@");
    EXPECT_EQ(record("@S1@").text("TITL"), "Registos de baptismos de Aguada de Baixo");
    run("update individuo set localnasc = '020202', tipolocalnasc = 'F' where nind = 3");
    EXPECT_FALSE(below(record("@I3@"), "CHR").first("SOUR")) << "it is in the books of another one";
}

TEST_F(GedcomOfAParish, CitesTheActWithItsReference)
{
    elsewhere("create table estudo_acto (id integer primary key, tipo text, livro text, folio text, numero text);"
              "create table estudo_pessoa (acto integer, ordem integer, papel text, nind integer);"
              "create table estudo_familia (acto integer, ordem integer, nfamilia integer)");
    run("insert into estudo_acto values (1, 'baptismo', '3', '12v', '4'), (2, 'casamento', '7', '2', '')");
    run("insert into estudo_pessoa values (1, 0, 'baptizado', 3), (1, 1, 'pai', 1)");
    run("insert into estudo_familia values (2, 0, 1)");
    EXPECT_EQ(below(below(record("@I3@"), "CHR"), "SOUR").text("PAGE"), "Livro 3, fl. 12v, n.º 4");
    EXPECT_EQ(below(below(record("@I1@"), "CHR"), "SOUR").text("PAGE"), "") << "he was the father there";
    EXPECT_EQ(below(below(record("@F1@"), "MARR"), "SOUR").text("PAGE"), "Livro 7, fl. 2");
    elsewhere("drop table estudo_familia");
    EXPECT_EQ(below(below(record("@I3@"), "CHR"), "SOUR").text("PAGE"), "") << "these tables are somebody else's";
}

TEST_F(GedcomOfAParish, CountsLinksThatLeadNowhere)
{
    assists(child_, 999, 'b', 'p');
    run("update individuo set famorig = 888 where nind = 1");
    run("insert into familias (nfamilia, nind) values (1, 777)");
    const gedcom::File all = file();
    EXPECT_TRUE(below(*all.record("@I3@"), "CHR").all("ASSO").isEmpty());
    EXPECT_FALSE(all.record("@I1@")->first("FAMC"));
    EXPECT_EQ(counts_.lostLinks, 3);
    options_.version = GedcomVersion::V551;
    file();
    EXPECT_EQ(counts_.lostLinks, 3);
}

TEST_F(GedcomOfAParish, IsAWholeFileOrNone)
{
    const QString target = folder.filePath("a.ged");
    const auto bytes = [&] {
        QFile file(target);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    EXPECT_EQ(exportGedcom(bdp, target, options_).people, 3);
    const QByteArray whole = bytes();
    EXPECT_EQ(whole, written());
    person({"Gil"});
    EXPECT_THROW(exportGedcom(bdp, target, options_, [](double) { return false; }), Interrupted);
    EXPECT_EQ(bytes(), whole) << "the one that was there stays";
    EXPECT_EQ(QDir(folder.path()).entryList({"a.ged*"}, QDir::Files).size(), 1);
    EXPECT_THROW(exportGedcom(bdp, folder.filePath("nada/a.ged"), options_), jet::Error);
    EXPECT_THROW(exportGedcom(bdp, path(), options_), jet::Error) << "over itself";
    QFile other(folder.filePath("b.ged"));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("0 HEAD\n1 SOUR OUTRO\n0 TRLR\n");
    other.close();
    EXPECT_THROW(exportGedcom(bdp, other.fileName(), options_), jet::Error) << "of somebody else";
    EXPECT_EQ(bdp.transactionLevel(), 0);
    EXPECT_NO_THROW(run("delete from individuo where nind = 4")) << "nothing is locked";
}

TEST_F(GedcomOfAParish, TakesNothingForToldThatACardHasLeftBlank)
{
    run("update individuo set idademae = 0, idadepai = 0, estadocivilmae = 0, altura = 0, idadeobito = 0, "
        "estadoobito = 0, filiacao = 0, datanasc = null, dataobito = null");
    run("update familias set idade = 0, estadocivil = 0, numcasam = 0");
    const Structure eva = record("@I3@");
    for (const char* const tag : {"BIRT", "CHR", "DEAT", "FACT", "DSCR"})
        EXPECT_FALSE(eva.first(tag)) << tag;
    const Structure marriage = below(record("@F1@"), "MARR");
    EXPECT_FALSE(marriage.first("HUSB"));
    EXPECT_FALSE(marriage.first("NOTE"));
    run("update individuo set dataobito = '1750-04-01', idadeobito = 0 where nind = 3");
    EXPECT_EQ(below(record("@I3@"), "DEAT").text("AGE"), "0y") << "an infant";
}

TEST_F(GedcomOfAParish, HasACodeOfWhichNothingIsToldAsItStands)
{
    run("update individuo set filiacao = 77, sacramentos = 78, estadocivilmae = 79 where nind = 3");
    run("update familia set sfamilia = 'x'");
    const Structure eva = record("@I3@");
    EXPECT_EQ(factOf(eva, "Filiação"), "(77)");
    EXPECT_EQ(factOf(eva, "Sacramentos"), "(78)");
    EXPECT_EQ(below(eva, "CHR").text("NOTE"), "Estado civil da mãe: (79)");
    EXPECT_EQ(factOf(record("@F1@"), "Situação da família"), "(x)");
}

TEST_F(GedcomOfAParish, TakesAnyNumberOfACard)
{
    run("insert into individuo (nind, nome, sexo, rpBapt) values (-5, 'Ivo Dias', 'm', 'a.jpg')");
    assists(child_, -5, 'b', 'p');
    EXPECT_EQ(below(below(record("@I3@"), "CHR"), "ASSO").pointer, "@I_5@");
    EXPECT_EQ(record("@I_5@").text("REFN"), "-5");
    EXPECT_EQ(record("@OBI_5@").text("FILE"), "a.jpg");
}
