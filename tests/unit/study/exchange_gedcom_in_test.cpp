// What becomes of a GEDCOM file in a BDP.
#include "study/gedcomInto.h"

#include "platform/jet/error.h"
#include "platform/jet/transaction.h"
#include "study/indicators/settingsJson.h"
#include "study/linkage/decisions.h"

#include <QDir>

#include <random>

using namespace study;
using namespace study::exchange;

TEST_F(GedcomInto, TakesANameWithTitleAndNicknameAndTheSex)
{
    read(person("1 NAME Dr. João/Silva/Júnior\n2 NPFX Dr.\n2 GIVN João\n2 SURN Silva\n2 NICK o Moço\n1 SEX M\n"
                "1 TITL Conde de Basto\n"));
    EXPECT_EQ(value("select nome, titulo, alcunha, sexo, tipo, obs from individuo"),
              "Dr. João Silva Júnior|Conde de Basto|o Moço|m|3|null");
}

TEST_F(GedcomInto, MakesANameOfItsPartsWhereThereIsNoOther)
{
    read(person("1 NAME\n2 GIVN Ana\n2 SURN Dias\n1 SEX X\n"));
    EXPECT_EQ(value("select nome, sexo, obs from individuo"), "Ana Dias|d|SEX: X");
}

TEST_F(GedcomInto, HasTheBaptismOnTheCardAndBothDaysInTheList)
{
    const GedcomReport report = read(person("1 BIRT\n2 DATE 8 MAR 1750\n1 CHR\n2 DATE 10 MAR 1750\n"));
    EXPECT_EQ(value("select date(datanasc), DnascFixa, tipo, obs from individuo"), "1750-03-10|true|1|null");
    const indicators::BaptismDays days{QDate(1750, 3, 8), QDate(1750, 3, 10)};
    EXPECT_EQ(indicators::keptSettings(bdp).baptisms,
              (std::map<parish::PersonNumber, indicators::BaptismDays>{{parish::PersonNumber(1), days}}));
    EXPECT_EQ(report.baptisms, 1);
}

TEST_F(GedcomInto, HasTheBirthOnTheCardWhereTheBaptismIsLessSure)
{
    read(person("1 BIRT\n2 DATE 8 MAR 1750\n1 BAPM\n2 DATE ABT 1750\n"));
    EXPECT_EQ(value("select date(datanasc), DnascFixa, obs from individuo"), "1750-03-08|true|BAPM.DATE: ABT 1750");
}

TEST_F(GedcomInto, TellsInTheNotesWhatADateSaysMore)
{
    const GedcomReport report = read(person("1 DEAT\n2 DATE BET 1700 AND 1710\n2 AGE 46y 3m\n2 CAUS febre\n"));
    EXPECT_EQ(value("select date(dataobito), dobitofixa, idadeobito, causa, tipo from individuo"),
              "1700-01-01|false|46|febre|2");
    EXPECT_NE(notes().find("DEAT.DATE: BET 1700 AND 1710"), std::string::npos) << notes();
    EXPECT_NE(notes().find("DEAT.AGE: 46y 3m"), std::string::npos) << notes();
    EXPECT_EQ(report.toNotes, (QMap<QString, qint64>{{"INDI.DEAT.DATE", 1}, {"INDI.DEAT.AGE", 1}}));
}

TEST_F(GedcomInto, TakesSuffragesAsAnExportTellsThemAndTheOthersForNotes)
{
    run("insert into infocomplementar (categoria, codigo, descricao) values ('TipMi', '1', 'Rezada')");
    read(person("1 DEAT Y\n2 NOTE Missas: tipo: Rezada; quantidade: 5; valor de cada: 2,50; moeda: réis; notas: a; b\n"
                "3 CONT Missas: padres: 2,5\n3 CONT Um ofício\n"));
    EXPECT_EQ(value("select tipolegpio, tipo, quantidade, valorunit, tipomoeda, obs from rituaismorte"),
              "missa|1|5|2.5|Re|a; b");
    EXPECT_EQ(notes(), "DEAT.NOTE: Missas: padres: 2,5\nUm ofício");
}

TEST_F(GedcomInto, TakesAWillWithExecutorAndHeirs)
{
    read("0 @I1@ INDI\n1 WILL\n2 NOTE Testamento escrito\n3 CONT Herdeiro por dizer\n3 CONT Bens móveis: Tudo\n"
         "3 CONT e mais\n2 ASSO @I2@\n3 ROLE OTHER\n4 PHRASE Testamenteiro\n2 ASSO @I2@\n3 ROLE OTHER\n4 PHRASE "
         "Herdeiro\n"
         "3 NOTE Parentesco: Tio paterno\n0 @I2@ INDI\n");
    EXPECT_EQ(value("select testam, escrit, testamenteiro, obs from individuo where nind = 1"), "true|true|2|null");
    EXPECT_EQ(value("select nindherd, bensmoveis from legadosprofanos where idlegprof = 1"), "null|Tudo\ne mais");
    EXPECT_EQ(value("select nindherd, parentesco from legadosprofanos where idlegprof = 2"), "2|19");
}

TEST_F(GedcomInto, TakesABurialForADeathOfWhichNothingElseIsTold)
{
    read(person("1 BURI\n2 DATE 3 MAY 1760\n2 PLAC Igreja da Borralha\n"));
    EXPECT_EQ(value("select date(dataobito), enterro from individuo"), "1760-05-03|Igreja da Borralha");
    EXPECT_EQ(notes(), "BURI.DATE: 3 MAY 1760");
}

TEST_F(GedcomInto, LosesNothingThatItHasNoColumnFor)
{
    const GedcomReport report =
        read(person("1 NAME Ana /Dias/\n2 TYPE MAIDEN\n1 NAME Ana /Lopes/\n1 _COLOR blue\n2 _SHADE dark\n"
                    "1 CHAN\n2 DATE 1 JAN 2020\n1 BIRT\n2 AGNC Paróquia\n1 NOTE Primeira\n2 CONT linha\n"
                    "1 SNOTE @N1@\n1 ASSO @VOID@\n2 PHRASE Rui\n2 ROLE OTHER\n3 PHRASE tutor\n") +
             "0 @N1@ SNOTE Partilhada\n0 @N2@ SNOTE De ninguém\n0 @S1@ SUBM\n1 NAME Eu\n");
    EXPECT_EQ(notes(), "Primeira\nlinha\nPartilhada\nNAME.TYPE: MAIDEN\nNAME: Ana /Lopes/\n_COLOR: blue\n"
                       "_COLOR._SHADE: dark\nBIRT.AGNC: Paróquia\nASSO\nASSO.PHRASE: Rui\nASSO.ROLE: OTHER\n"
                       "ASSO.ROLE.PHRASE: tutor");
    EXPECT_EQ(report.left, (QMap<QString, qint64>{{"INDI.CHAN", 1}, {"SNOTE", 1}, {"SUBM", 1}}));
    EXPECT_EQ(report.toNotes.value("INDI._COLOR._SHADE"), 1);
}

TEST_F(GedcomInto, HasLongTextsWholeInTheNotes)
{
    const QString longName = QString("Á").repeated(300);
    const GedcomReport report = read(person("1 NAME " + longName.toUtf8() + "\n"));
    EXPECT_EQ(value("select length(nome) from individuo"), "255");
    EXPECT_EQ(notes(), "NAME: " + longName.toStdString());
    EXPECT_EQ(report.shortened, 1);
}

TEST_F(GedcomInto, KeepsLettersOfEveryScriptAndTellsOfThoseThatNoBdpHolds)
{
    const QString name = QString::fromUtf8("Žofie Ångström Ελένη 𝔄 Œ € ẽ");
    const GedcomReport report = read(person("1 NAME " + name.toUtf8() + "\n1 NOTE a\n"));
    EXPECT_EQ(value("select nome from individuo"), name.toStdString());
    EXPECT_EQ(report.lostLetters, 0);
}

TEST_F(GedcomInto, JoinsFamiliesFromEitherEnd)
{
    read("0 @I1@ INDI\n1 SEX M\n1 FAMS @F1@\n0 @I2@ INDI\n1 SEX F\n0 @I3@ INDI\n1 FAMC @F1@\n2 PEDI ADOPTED\n"
         "0 @I4@ INDI\n0 @F1@ FAM\n1 WIFE @I2@\n1 CHIL @I4@\n1 MARR\n2 DATE 1 FEB 1740\n2 HUSB\n3 AGE 25y\n2 WIFE\n3 "
         "AGE 20y\n");
    EXPECT_EQ(value("select group_concat(nind) from (select nind from familias order by rowid)"), "2,1");
    EXPECT_EQ(value("select idade from familias where nind = 2"), "20");
    EXPECT_EQ(value("select group_concat(nind || ':' || famorig || ':' || coalesce(filiacao, '')) from individuo where "
                    "famorig is not null"),
              "3:1:14,4:1:");
    EXPECT_EQ(value("select sfamilia, date(datacasam), dcasamfixa, tipocasal from familia"), "1|1740-02-01|true|7");
    EXPECT_NE(value("select obs from familia").find("MARR.HUSB.AGE: 25y"), std::string::npos)
        << "he isn't told to be the husband";
}

TEST_F(GedcomInto, PutsAThirdMemberAndASecondFamilyOfOriginIntoTheNotes)
{
    const GedcomReport report =
        read("0 @I1@ INDI\n0 @I2@ INDI\n0 @I3@ INDI\n1 FAMC @F1@\n1 FAMC @F2@\n1 FAMC @F9@\n"
             "0 @F1@ FAM\n1 HUSB @I1@\n1 WIFE @I2@\n1 HUSB @I3@\n1 CHIL @I8@\n0 @F2@ FAM\n1 CHIL @I3@\n");
    EXPECT_EQ(value("select group_concat(nind) from (select nind from familias order by rowid)"), "1,2");
    EXPECT_EQ(value("select famorig, obs from individuo where nind = 3"), "1|FAMC: família 2\nFAMC: @F9@");
    EXPECT_EQ(value("select obs from familia where nfamilia = 1"), "HUSB: pessoa 3\nCHIL: @I8@");
    EXPECT_EQ(value("select obs from familia where nfamilia = 2"), "CHIL: pessoa 3");
    EXPECT_EQ(report.lostLinks, 2);
    ASSERT_EQ(report.problems.size(), 2U);
    EXPECT_EQ(report.problems[0].line, 9);
}

TEST_F(GedcomInto, HasGodparentsAndPriestsOfEventsWithTheirKinship)
{
    read("0 @I1@ INDI\n1 CHR\n2 DATE 10 MAR 1750\n2 ASSO @I2@\n3 ROLE GODP\n4 PHRASE Padrinho\n3 NOTE Parentesco: Tio "
         "paterno\n4 CONT Pai falecido\n4 CONT por procuração\n2 ASSO @I3@\n3 ROLE CLERGY\n4 PHRASE Vigário\n2 ASSO "
         "@I9@\n3 ROLE GODP\n"
         "0 @I2@ INDI\n0 @I3@ INDI\n");
    EXPECT_EQ(
        value(
            "select tipoacto, entidade, date(dataref), nind, tipoassistente, parentbapt, falecidopai, falecidomae, obs "
            "from assistente"),
        "b|1|1750-03-10|2|p|19|true|false|por procuração");
    EXPECT_EQ(value("select primpadrebapt, funcprimpbapt from individuo where nind = 1"), "3|9");
    EXPECT_EQ(notes(), "CHR.ASSO: @I9@\nCHR.ASSO.ROLE: GODP");
}

TEST_F(GedcomInto, HasGodparentsAndWitnessesThat551TellsWithAPerson)
{
    read("0 @I1@ INDI\n1 BIRT\n2 DATE 1 MAR 1750\n1 ASSO @I2@\n2 RELA godmother\n1 ASSO @I2@\n2 RELA Witness\n1 ASSO "
         "@I3@\n2 RELA Tutor\n"
         "0 @I2@ INDI\n0 @I3@ INDI\n0 @F1@ FAM\n1 WIFE @I1@\n1 MARR\n2 DATE 1775\n",
         "5.5.1");
    EXPECT_EQ(value("select entidade, nind, tipoassistente from assistente where tipoacto = 'b'"), "1|2|p");
    EXPECT_EQ(value("select entidade, nind, tipoassistente, date(dataref) from assistente where tipoacto = 'c'"),
              "1|2|t|1775-01-01");
    EXPECT_EQ(notes(), "ASSO: pessoa 3\nASSO.RELA: Tutor");
}

TEST_F(GedcomInto, HasOnceWhomAnEventAndThePersonTellOfAndTwiceWhoIsToldTwice)
{
    read("0 @I1@ INDI\n1 CHR\n2 DATE 10 MAR 1750\n2 _ASSO @I2@\n3 RELA Godparent\n1 ASSO @I2@\n2 RELA Godparent\n"
         "0 @I2@ INDI\n0 @F1@ FAM\n1 MARR\n2 ASSO @I2@\n3 ROLE WITN\n2 ASSO @I2@\n3 ROLE WITN\n");
    EXPECT_EQ(value("select count(*) from assistente where tipoacto = 'b'"), "1");
    EXPECT_EQ(value("select count(*) from assistente where tipoacto = 'c'"), "2");
}

TEST_F(GedcomInto, FindsAPlaceByItsNamesFromTheNarrowestToTheWidest)
{
    read(person("1 BIRT\n2 PLAC Outeiro, Fermentelos, Agueda, Portugal\n1 DEAT\n2 PLAC borralha, Águeda\n"));
    EXPECT_EQ(value("select localnasc, tipolocalnasc, localobito, tipolocalobito, obs from individuo"),
              "01010201|L|010101|F|null");
}

TEST_F(GedcomInto, MakesAProvisionalLocalityInItsParish)
{
    const GedcomReport report = read(person("1 BIRT\n2 PLAC Fonte, Fermentelos, Águeda\n1 DEAT\n2 PLAC Ribeira\n"));
    EXPECT_EQ(
        value("select l.nomelugar, l.codparoquia, l.prioridade from individuo, lugar l where codlugar = localnasc"),
        "*Fonte|010102|1");
    EXPECT_EQ(value("select l.nomelugar, l.codparoquia from individuo, lugar l where codlugar = localobito"),
              "*Ribeira|010101")
        << "of one word: in the own parish";
    EXPECT_EQ(report.rows.value("lugar"), 2);
    EXPECT_EQ(notes(), "null");
}

TEST_F(GedcomInto, HasTheWiderPlaceAndTheWholeTextWhereTheParishIsUnknown)
{
    read(person("1 BIRT\n2 PLAC Rua Velha, Vila Nova, Águeda, Portugal\n1 DEAT\n2 PLAC Lyon, Rhône, France\n"));
    EXPECT_EQ(value("select localnasc, tipolocalnasc, localobito from individuo"), "0101|C|null");
    EXPECT_EQ(notes(), "BIRT.PLAC: Rua Velha, Vila Nova, Águeda, Portugal\nDEAT.PLAC: Lyon, Rhône, France");
}

TEST_F(GedcomInto, MakesNoPlacesAndProfessionsWhereNoneAreWanted)
{
    importGedcom(bdp,
                 file(person("1 BIRT\n2 PLAC Fonte, Fermentelos\n1 OCCU Moleiro\n1 OCCU lavrador\n2 DATE ABT 1700\n"),
                      "7.0", ""),
                 {.newPlaces = false, .newProfessions = false, .copyBefore = false});
    EXPECT_EQ(value("select localnasc, tipolocalnasc, obs from individuo"), "010102|F|BIRT.PLAC: Fonte, Fermentelos");
    EXPECT_EQ(value("select count(*) from profissao"), "1");
    EXPECT_EQ(value("select codprof, obs from profissoes where idprofissao = 1"), "null|Moleiro");
    EXPECT_EQ(value("select codprof, date(dataref) from profissoes where idprofissao = 2"), "4|1700-01-01");
}

TEST_F(GedcomInto, HasResidencesWithADayAndTheOthersInTheNotes)
{
    read(person("1 RESI\n2 DATE 1 MAY 1760\n2 PLAC Outeiro, Borralha\n2 SOUR @S1@\n3 PAGE fl. 3\n1 RESI\n2 PLAC "
                "Fermentelos\n") +
         "0 @S1@ SOUR\n1 TITL Rol de confessados\n");
    EXPECT_EQ(value("select numero, tiporesid, date(dataref), datafixa, localresid, tipolocal, fonte from residencia"),
              "1|i|1760-05-01|true|01010101|L|Rol de confessados, fl. 3");
    EXPECT_EQ(notes(), "RESI: Fermentelos");
}

TEST_F(GedcomInto, GivesTheNextNumbersWhereTheBdpHasPeople)
{
    People::person({"Gil"});
    const GedcomReport report =
        read("0 @I1@ INDI\n1 REFN 1\n2 TYPE ORV nind\n0 @F1@ FAM\n1 WIFE @I1@\n1 REFN 7\n2 TYPE ORV nfamilia\n", "7.0",
             "1 SOUR ORV\n");
    EXPECT_EQ(value("select max(nind) from individuo"), "2");
    EXPECT_EQ(value("select nfamilia, nind from familias"), "1|2");
    EXPECT_FALSE(report.keptNumbers);
}

TEST_F(GedcomInto, KeepsTheNumbersOfAnExportInAnEmptyBdp)
{
    EXPECT_TRUE(read("0 @I1@ INDI\n1 REFN 12\n2 TYPE ORV nind\n", "7.0", "1 SOUR ORV\n").keptNumbers);
    EXPECT_EQ(value("select nind, obs from individuo"), "12|null");
}

TEST_F(GedcomInto, GivesNewNumbersWhereTwoHaveTheSame)
{
    EXPECT_FALSE(read("0 @I1@ INDI\n1 REFN 12\n2 TYPE ORV nind\n0 @I2@ INDI\n1 REFN 12\n2 TYPE ORV nind\n", "7.0",
                      "1 SOUR ORV\n")
                     .keptNumbers);
    EXPECT_EQ(value("select group_concat(nind) from individuo"), "1,2");
}

TEST_F(GedcomInto, WritesNothingWhereTheFileBreaksOff)
{
    EXPECT_THROW(importGedcom(bdp, folder.filePath("nada.ged"), {.copyBefore = false}), jet::Error);
    QFile damaged(folder.filePath("b.ged"));
    damaged.open(QIODevice::WriteOnly);
    damaged.write("isto não é GEDCOM\n");
    damaged.close();
    EXPECT_THROW(importGedcom(bdp, damaged.fileName(), {}), jet::Error);
    EXPECT_FALSE(QDir(folder.filePath("copias")).exists()) << "no copy, as nothing would be written";
    EXPECT_FALSE(bdp.tables().contains("estudo_importacao"));
}

TEST_F(GedcomInto, NamesTheLineOfARecordThatTheBdpRefuses)
{
    run("create unique index outro on individuo (sexo)"); // of another program
    try {
        read("0 @I1@ INDI\n1 SEX M\n0 @I2@ INDI\n1 SEX M\n");
        ADD_FAILURE() << "it was written";
    } catch (const jet::Error& error) {
        EXPECT_TRUE(error.description.startsWith("Linha 6: ")) << qPrintable(error.description);
    }
    EXPECT_EQ(value("select count(*) from individuo"), "0");
}

TEST_F(GedcomInto, WritesNothingWhereItIsInterrupted)
{
    QByteArray records;
    for (int i = 1; i < 2000; ++i)
        records += "0 @I" + QByteArray::number(i) + "@ INDI\n";
    const QString all = file(records, "7.0", "");
    for (const double until : {0.2, 0.5, 0.9, 0.99}) {
        EXPECT_THROW(importGedcom(bdp, all, {.copyBefore = false}, [&](double done) { return done < until; }),
                     Interrupted);
        EXPECT_EQ(value("select count(*) from individuo"), "0");
        EXPECT_EQ(bdp.transactionLevel(), 0);
    }
}

TEST_F(GedcomInto, IsRehearsedWithTheSameReportAndNothingWritten)
{
    const QString all = file(person("1 NAME Ana\n1 BIRT\n2 PLAC Fonte, Fermentelos\n"), "7.0", "");
    const GedcomReport rehearsed = rehearseGedcom(bdp, all);
    EXPECT_EQ(value("select count(*) from individuo"), "0");
    GedcomReport report = importGedcom(bdp, all);
    EXPECT_TRUE(QFile::exists(report.copy));
    report.copy.clear();
    report.isRehearsal = true;
    EXPECT_EQ(rehearsed, report);
}

TEST_F(GedcomInto, IsTakenBackAsAWhole)
{
    const qint64 gil = People::person({"Gil"});
    const QStringList tables{"individuo", "familia",    "familias",  "assistente",      "residencia",
                             "lugar",     "profissoes", "profissao", "estudo_importado"};
    const auto counts = [&] {
        QStringList all;
        for (const QString& table : tables)
            all << QString::fromStdString(bdp.tables().contains(table)
                                              ? value(("select count(*) from " + table).toUtf8().constData())
                                              : std::string("0"));
        return all;
    };
    const QStringList before = counts();
    read("0 @I1@ INDI\n1 BIRT\n2 DATE 8 MAR 1750\n2 PLAC Fonte, Fermentelos\n1 CHR\n2 DATE 10 MAR 1750\n2 ASSO @I2@\n3 "
         "ROLE GODP\n1 OCCU Moleiro\n1 RESI\n2 DATE 1 MAY 1760\n1 FAMC @F1@\n"
         "0 @I2@ INDI\n0 @F1@ FAM\n1 WIFE @I2@\n");
    ASSERT_TRUE(lastImport(bdp));
    EXPECT_EQ(lastImport(bdp)->people, 2);
    EXPECT_NE(counts(), before);
    EXPECT_EQ(takeBackImport(bdp), QStringList());
    EXPECT_EQ(counts(), before);
    EXPECT_EQ(value("select nind from individuo"), std::to_string(gil));
    EXPECT_TRUE(indicators::keptSettings(bdp).baptisms.empty());
    EXPECT_FALSE(lastImport(bdp));
    EXPECT_EQ(takeBackImport(bdp), QStringList("Não há nenhuma importação para desfazer."));
}

TEST_F(GedcomInto, StaysWhereSomethingOfItWasTouchedSince)
{
    struct Touched
    {
        const char* statement;
        const char* reason;
    };
    People::person({"Gil"});
    run("insert into familia (nfamilia) values (1)");
    for (const Touched& one : std::initializer_list<Touched>{
             {"update individuo set alcunha = 'x' where nind = 2", "A ficha do indivíduo nº 2 foi alterada depois."},
             {"delete from individuo where nind = 2", "A ficha do indivíduo nº 2 já não existe."},
             {"insert into profissoes (nind, idprofissao) values (2, 1)",
              "A ficha do indivíduo nº 2 foi alterada depois."},
             {"insert into familias (nfamilia, nind) values (2, 1)", "A ficha da família nº 2 foi alterada depois."},
             {"update individuo set famorig = 2 where nind = 1",
              "A família nº 2, que veio com a importação, já tem outros dados na BDP."},
             {"update individuo set primpadrebapt = 2 where nind = 1",
              "O indivíduo nº 2, que veio com a importação, já tem outros dados na BDP."},
             {"insert into assistente (tipoacto, entidade, nind) values ('b', 1, 2)",
              "O indivíduo nº 2, que veio com a importação, já tem outros dados na BDP."},
             {"insert into familias (nfamilia, nind) values (1, 2)",
              "O indivíduo nº 2, que veio com a importação, já tem outros dados na BDP."},
         })
    {
        jet::Transaction transaction(bdp);
        read("0 @I1@ INDI\n1 NAME Ana\n0 @I2@ INDI\n0 @F1@ FAM\n1 WIFE @I1@\n1 CHIL @I2@\n");
        EXPECT_EQ(whyImportStays(bdp), QStringList());
        run(one.statement);
        EXPECT_EQ(takeBackImport(bdp), QStringList(one.reason)) << one.statement;
        EXPECT_EQ(value("select count(*) from estudo_importado"), "3");
    }
}

TEST_F(GedcomInto, StaysWhereADecisionNamesSomebodyOfIt)
{
    read("0 @I1@ INDI\n0 @I2@ INDI\n");
    {
        jet::Transaction transaction(bdp);
        linkage::Recording(bdp).keep(
            {.kind = linkage::DecisionKind::NotTheSame, .title = "Não são a mesma", .kept = "1", .other = "2"});
        transaction.commit();
    }
    EXPECT_EQ(takeBackImport(bdp), QStringList("Há uma decisão sobre quem é quem: Não são a mesma."));
}

TEST_F(GedcomInto, LeavesAPlaceThatOthersUseByNow)
{
    const qint64 gil = People::person({"Gil"});
    read(person("1 BIRT\n2 PLAC Fonte, Fermentelos\n1 OCCU Moleiro\n"));
    run("update individuo set localnasc = (select localnasc from individuo where nind = 2), tipolocalnasc = 'L' where "
        "nind = ?",
        {gil});
    EXPECT_EQ(takeBackImport(bdp), QStringList());
    EXPECT_EQ(value("select count(*) from lugar where nomelugar = '*Fonte'"), "1");
    EXPECT_EQ(value("select count(*) from profissao"), "1");
}

TEST_F(GedcomInto, LeavesASoundBdpOrNothingWhateverIsDamaged)
{
    const QByteArray whole = "0 @I1@ INDI\n1 NAME Ana /Dias/\n1 SEX F\n1 BIRT\n2 DATE 8 MAR 1750\n2 PLAC Fonte, "
                             "Fermentelos\n1 CHR\n2 DATE 10 MAR "
                             "1750\n2 ASSO @I2@\n3 ROLE GODP\n3 NOTE Parentesco: Tio paterno\n1 DEAT\n2 AGE 46y\n2 "
                             "NOTE Missas: quantidade: 5\n"
                             "1 OCCU Moleiro\n2 DATE 1760\n1 RESI\n2 DATE 1 MAY 1760\n1 FACT Sim\n2 TYPE Menor\n1 "
                             "EMIG\n2 NOTE Passaporte n.º: "
                             "12\n1 WILL\n2 ASSO @I2@\n3 ROLE OTHER\n4 PHRASE Herdeiro\n1 FAMC @F1@\n0 @I2@ INDI\n1 "
                             "FAMS @F1@\n1 ASSO @I1@\n2 "
                             "RELA Witness\n0 @F1@ FAM\n1 HUSB @I2@\n1 CHIL @I1@\n1 MARR\n2 DATE ABT 1740\n2 HUSB\n3 "
                             "AGE 25y\n1 NOTE @N1@\n0 "
                             "@N1@ NOTE a\n";
    static constexpr const char* unsound[] = {
        "select count(*) from individuo where famorig is not null and famorig not in (select nfamilia from familia)",
        "select count(*) from familias where nind not in (select nind from individuo)",
        "select count(*) from familias where nfamilia not in (select nfamilia from familia)",
        "select count(*) from (select 1 from familias group by nfamilia having count(*) > 2)",
        "select count(*) from assistente where nind not in (select nind from individuo)",
        "select count(*) from assistente where tipoacto = 'b' and entidade not in (select nind from individuo)",
        "select count(*) from profissoes where codprof not in (select codprof from profissao)",
        "select count(*) from individuo where localnasc is not null and tipolocalnasc is null",
    };
    std::mt19937 chance(7);
    const auto upTo = [&](qsizetype most) { return static_cast<qsizetype>(chance() % static_cast<quint32>(most + 1)); };
    int written = 0;
    for (int round = 0; round < 400; ++round) {
        QList<QByteArray> lines = whole.split('\n');
        for (qsizetype i = upTo(4); i >= 0; --i) {
            QByteArray& line = lines[upTo(lines.size() - 1)];
            const qsizetype kind = upTo(4);
            if (kind == 0)
                line = lines[upTo(lines.size() - 1)];
            else if (kind == 1)
                line.truncate(upTo(line.size()));
            else if (kind == 2)
                line.insert(upTo(line.size()), static_cast<char>(upTo(255)));
            else if (kind == 3)
                line += " 99999999999999999999";
            else
                line.replace('1', '3');
        }
        jet::Transaction transaction(bdp);
        try {
            read(lines.join('\n') + '\n');
            ++written;
            EXPECT_EQ(takeBackImport(bdp), QStringList()) << lines.join('\n').toStdString();
            read(lines.join('\n') + '\n');
        } catch (const jet::Error& error) {
            EXPECT_TRUE(error.description.contains("inha")) << qPrintable(error.description);
        }
        for (const char* const select : unsound)
            EXPECT_EQ(value(select), "0") << select << '\n' << lines.join('\n').toStdString();
    }
    EXPECT_GT(written, 200);
}
