// What becomes of strange files, and of what an export has nowhere else to say.
#include "study/gedcomInto.h"

#include "platform/jet/error.h"

using namespace study::exchange;

namespace {

class GedcomOfOurs : public GedcomInto
{
protected:
    GedcomReport readOurs(const QByteArray& records, const char* version = "5.5.1")
    {
        return read(records, version, "1 SOUR ORV\n");
    }
};

class StrangeGedcom : public GedcomInto
{
protected:
    static std::vector<int> linesOf(const GedcomReport& report)
    {
        std::vector<int> lines;
        for (const GedcomProblem& one : report.problems)
            lines.push_back(one.line);
        return lines;
    }
    std::string notesOfFamily(int family = 1) { return value("select obs from familia where nfamilia = ?", {family}); }
};

} // namespace

TEST_F(GedcomOfOurs, FindsAPlaceByTheCodeInItsNote)
{
    run("insert into lugar (codlugar, nomelugar, codparoquia) values ('01010102', 'Outeiro', '010101')");
    const GedcomReport report =
        readOurs(person("1 CHR\n2 PLAC , Outeiro, Borralha, Águeda, Aveiro, Portugal\n3 NOTE @N1@\n1 DEAT\n"
                        "2 PLAC , Fonte, Borralha, Águeda, Aveiro, Portugal\n3 NOTE @N2@\n") +
                 "0 @N1@ NOTE Código do lugar no ORV: L01010102\n0 @N2@ NOTE Código do lugar no ORV: L01010101\n");
    EXPECT_EQ(value("select localnasc, tipolocalnasc, obs from individuo"), "01010102|L|null");
    EXPECT_EQ(value("select nomelugar from individuo, lugar where codlugar = localobito"), "*Fonte")
        << "the code is of a place with another name";
    EXPECT_TRUE(report.toNotes.isEmpty());
    EXPECT_TRUE(report.left.isEmpty());
}

TEST_F(GedcomOfOurs, HasTheSuffragesOfAWillAndOfADeath)
{
    run("insert into infocomplementar (categoria, codigo, descricao) values ('TipMi', '1', 'Rezada')");
    readOurs("0 @I1@ INDI\n1 WILL\n2 NOTE Testamento escrito\n3 CONT Herdeiro por dizer\n3 CONT Bens móveis: Tudo\n"
             "3 CONT Missas: tipo: Rezada; quantidade: 5\n3 CONT Esmolas: destino: Pobres\n"
             "0 @I2@ INDI\n1 DEAT\n2 NOTE Missas: tipo: (77); quantidade: 3\n");
    EXPECT_EQ(value("select group_concat(r) from (select nind || tipolegpio || coalesce(tipo, '') || "
                    "coalesce(quantidade, '') as r from rituaismorte order by nind, idlegpio)"),
              "1missa15,1esmola,2missa773");
    EXPECT_EQ(value("select bensmoveis, obs from legadosprofanos"), "Tudo|null");
    EXPECT_EQ(notes(1) + notes(2), "nullnull");
}

TEST_F(GedcomOfOurs, HasACodeInBracketsWhereNothingIsToldOfIt)
{
    readOurs("0 @I1@ INDI\n1 FACT (77)\n2 TYPE Filiação\n1 FACT (a b)\n2 TYPE Sacramentos\n0 @F1@ FAM\n"
             "1 EVEN (9)\n2 TYPE Situação da família\n1 EVEN (8)\n2 TYPE Situação da família\n"
             "1 EVEN (7)\n2 TYPE Situação da família\n");
    EXPECT_EQ(value("select filiacao, sacramentos, obs from individuo"), "77|null|FACT: (a b)\nFACT.TYPE: Sacramentos");
    EXPECT_EQ(value("select sfamilia, obs from familia"),
              "9|EVEN: (8)\nEVEN.TYPE: Situação da família\nEVEN: (7)\nEVEN.TYPE: Situação da família");
}

TEST_F(GedcomOfOurs, KeepsNoNoteOfAMarriageThatNeverWas)
{
    readOurs("0 @I1@ INDI\n1 SEX F\n0 @F1@ FAM\n1 WIFE @I1@\n1 NO MARR\n1 NO DIV\n");
    EXPECT_EQ(value("select obs from familia"), "NO: DIV");
}

TEST_F(GedcomOfOurs, HasTheTitleBeforeTheNameAndBehindATitleOfIts)
{
    readOurs("0 @I1@ INDI\n1 NAME Rui∕Ruy /Sousa/\n2 NPFX Dom\n0 @I2@ INDI\n1 NAME Padre Rui /Sousa/\n2 NPFX Padre\n"
             "1 TITL Dom\n");
    EXPECT_EQ(value("select nome, titulo from individuo where nind = 1"), "Rui/Ruy Sousa|Dom");
    EXPECT_EQ(value("select nome, titulo from individuo where nind = 2"), "Padre Rui Sousa|Dom");
}

TEST_F(GedcomOfOurs, TakesSignaturesAndObservationsThatAreEvents)
{
    readOurs(person("1 EVEN Assina, nível 3\n2 TYPE Assinatura\n2 DATE 1 MAY 1760\n2 AGE 30y\n1 EVEN Em observação\n"
                    "2 TYPE Observação\n2 DATE FROM 1 MAY 1750 TO 3 JUN 1770\n1 EVEN Em observação\n"
                    "2 TYPE Observação\n2 DATE FROM 1 MAY 1780\n"));
    EXPECT_EQ(value("select nivelassinatura, date(dataref), idade from assinatura"), "3|1760-05-01|30");
    EXPECT_EQ(value("select date(inicioobs), date(fimobs), obs from individuo"),
              "1750-05-01|1770-06-03|EVEN: Em observação\nEVEN.TYPE: Observação\nEVEN.DATE: FROM 1 MAY 1780");
}

TEST_F(StrangeGedcom, MakesNobodyTheirOwnParentAndNoneOfTheCoupleTwice)
{
    const GedcomReport report = read("0 @I1@ INDI\n1 FAMC @F1@\n0 @F1@ FAM\n1 HUSB @I1@\n1 WIFE @I1@\n1 CHIL @I1@\n");
    EXPECT_EQ(value("select famorig, obs from individuo"), "null|FAMC: família 1");
    EXPECT_EQ(value("select group_concat(nind) from familias"), "1");
    EXPECT_EQ(notesOfFamily(), "WIFE: pessoa 1\nCHIL: pessoa 1");
    EXPECT_EQ(linesOf(report), std::vector<int>{4});
}

TEST_F(StrangeGedcom, OpensARingOfAncestors)
{
    const GedcomReport report =
        read("0 @I1@ INDI\n1 FAMC @F1@\n0 @I2@ INDI\n1 FAMC @F2@\n0 @I3@ INDI\n1 FAMC @F3@\n0 @I4@ INDI\n"
             "0 @I5@ INDI\n1 FAMC @F2@\n0 @F1@ FAM\n1 HUSB @I2@\n1 WIFE @I4@\n0 @F2@ FAM\n1 HUSB @I4@\n1 WIFE @I3@\n"
             "0 @F3@ FAM\n1 WIFE @I1@\n");
    EXPECT_EQ(value("select group_concat(nind || ':' || famorig) from individuo where famorig is not null"),
              "1:1,2:2,5:2");
    EXPECT_EQ(notes(3), "FAMC: família 3");
    EXPECT_EQ(linesOf(report), std::vector<int>{8});
}

TEST_F(StrangeGedcom, LetsNobodyStandAtTheirOwnAct)
{
    const GedcomReport report =
        read("0 @I1@ INDI\n1 CHR\n2 DATE 1 MAY 1750\n2 ASSO @I1@\n3 ROLE GODP\n0 @F1@ FAM\n1 WIFE @I1@\n1 MARR\n"
             "2 ASSO @I1@\n3 ROLE WITN\n");
    EXPECT_EQ(value("select count(*) from assistente"), "0");
    EXPECT_EQ(notes(), "CHR.ASSO: pessoa 1\nCHR.ASSO.ROLE: GODP");
    EXPECT_EQ(notesOfFamily(), "MARR.ASSO: pessoa 1\nMARR.ASSO.ROLE: WITN");
    EXPECT_EQ(linesOf(report), (std::vector<int>{7, 12}));
}

TEST_F(StrangeGedcom, TellsOfAWitnessOfOneOfTheCoupleWhoIsNobody)
{
    const GedcomReport report = read("0 @I1@ INDI\n1 FAMS @F1@\n1 ASSO @I9@\n2 RELA Witness\n2 NOTE vizinho\n"
                                     "1 ASSO @I2@\n2 RELA Witness\n2 SOUR livro\n0 @I2@ INDI\n0 @F1@ FAM\n",
                                     "5.5.1");
    EXPECT_EQ(notes(), "null");
    EXPECT_EQ(notesOfFamily(), "ASSO: @I9@\nASSO.RELA: Witness\nASSO.NOTE: vizinho\nASSO.SOUR: livro");
    EXPECT_EQ(value("select nind, tipoassistente from assistente"), "2|t");
    EXPECT_EQ(report.lostLinks, 1);
}

TEST_F(StrangeGedcom, TellsOfRecordsThatHaveOneName)
{
    const GedcomReport report = read("0 @I1@ INDI\n1 FAMC @F1@\n0 @I1@ INDI\n0 @F1@ FAM\n0 @F1@ FAM\n1 CHIL @I1@\n");
    EXPECT_EQ(linesOf(report), (std::vector<int>{6, 8}));
    EXPECT_EQ(value("select group_concat(nind || ':' || coalesce(famorig, '')) from individuo"), "1:1,2:");
    EXPECT_EQ(notesOfFamily(2), "CHIL: pessoa 1");
}

TEST_F(StrangeGedcom, KeepsTheAddressOfAResidenceWithoutADay)
{
    read(person("1 RESI\n2 ADDR Outeiro, Borralha\n"));
    EXPECT_EQ(notes(), "RESI: Outeiro, Borralha");
}

TEST_F(StrangeGedcom, TakesTheBaptismThatHasADay)
{
    read(person("1 CHR Y\n1 BAPM\n2 DATE 4 MAY 1750\n"));
    EXPECT_EQ(value("select date(datanasc), obs from individuo"), "1750-05-04|CHR: Y");
}

TEST_F(StrangeGedcom, TakesNoNumberThatIsNone)
{
    read(person("1 DEAT\n2 NOTE Missas: quantidade: inf\n3 CONT Missas: valor de cada: nan\n"
                "3 CONT Missas: quantidade: 1e308\n1 BURI\n2 DATE BET 1750 AND 1751\n"));
    EXPECT_EQ(value("select count(*) from rituaismorte"), "0");
    EXPECT_EQ(notes(), "DEAT.NOTE: Missas: quantidade: inf\nMissas: valor de cada: nan\nMissas: quantidade: 1e308\n"
                       "BURI.DATE: BET 1750 AND 1751")
        << "the day of the burial once";
}

TEST_F(StrangeGedcom, HasTheFirstOfTwoHusbandsForTheHusband)
{
    read("0 @I1@ INDI\n1 SEX M\n0 @I2@ INDI\n1 SEX M\n0 @F1@ FAM\n1 HUSB @I1@\n1 HUSB @I2@\n1 MARR\n2 HUSB\n"
         "3 AGE 20y\n");
    EXPECT_EQ(value("select group_concat(nind || ':' || coalesce(idade, '')) from familias"), "1:20,2:");
}

TEST_F(StrangeGedcom, CountsWhatAPictureTellsBesideItsFile)
{
    const GedcomReport report =
        read(person("1 BIRT\n2 OBJE @O1@\n") + "0 @O1@ OBJE\n1 FILE a.jpg\n2 FORM jpg\n2 TITL Assento\n1 FILE b.jpg\n");
    EXPECT_EQ(value("select rpbapt from individuo"), "a.jpg");
    EXPECT_EQ(report.left, (QMap<QString, qint64>{{"OBJE.FILE", 1}, {"OBJE.FILE.TITL", 1}}));
}

TEST_F(StrangeGedcom, WritesNothingOfAFileThatIsAnotherOneByNow)
{
    QByteArray records;
    for (int i = 1; i < 2000; ++i)
        records += "0 @I" + QByteArray::number(i) + "@ INDI\n";
    const QByteArray fewer = "0 @I1@ INDI\n1 FAMC @F1@\n", other = "0 @F1@ FAM\n1 CHIL @I1@\n" + records;
    for (const QByteArray& then : {fewer, other}) {
        const QString all = file(records, "7.0", "");
        const auto change = [&](double) { return !file(then, "7.0", "").isEmpty(); };
        EXPECT_THROW(importGedcom(bdp, all, {.copyBefore = false}, change), jet::Error);
        EXPECT_EQ(value("select count(*) from individuo"), "0");
        EXPECT_EQ(bdp.transactionLevel(), 0);
    }
}
