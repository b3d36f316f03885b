// Rules at their edges: the limits, the codes and the branches that the other tests leave out.
#include "study/checkedActs.h"

#include <QDate>

class TheEdges : public CheckedActs
{
protected:
    void isOfKind(const char* situation) { run("update familia set sfamilia = ?", {situation}); }
    qint64 child(const char* name, const char* birth, qint64 family, char sex = 'm')
    {
        return person({name, sex, birth, "", family});
    }
};

TEST_F(TheEdges, OfAnIntervalAreTheLivesAndWindowsOfBothParents)
{
    const qint64 rui = person({"Rui"}), eva = person({"Eva", 'f'});
    const qint64 family = couple(rui, eva);
    child("Gil", "1730-01-01", family);
    child("Ivo", "1738-01-02", family);
    for (const qint64 parent : {rui, eva}) {
        EXPECT_EQ(cases("C-09").size(), 1);
        run("update individuo set dataobito = '1738-01-01' where nind = ?", {parent}); // a posthumous child
        EXPECT_EQ(cases("C-09"), QStringList()) << parent;
        run("update individuo set dataobito = '1738-01-02' where nind = ?", {parent});
        EXPECT_EQ(cases("C-09").size(), 1);
        run("update individuo set dataobito = null, inicioobs = '1730-01-02' where nind = ?", {parent});
        EXPECT_EQ(cases("C-09"), QStringList()) << parent;
        run("update individuo set inicioobs = '1730-01-01', fimobs = '1738-01-02' where nind = ?", {parent});
    }
    for (const char* window : {"inicioobs = '1730-01-02'", "fimobs = '1738-01-01'"}) {
        EXPECT_EQ(cases("C-09").size(), 1);
        run(qUtf8Printable(QString("update familia set ") + window));
        EXPECT_EQ(cases("C-09"), QStringList()) << window;
        run("update familia set inicioobs = null, fimobs = null");
    }
}

TEST_F(TheEdges, OfTheAgesOfAssistants)
{
    const qint64 rui = person({"Rui", 'm', "1716-02-14"}), ana = person({"Ana", 'f', "1730-02-14"});
    assists("b", ana, "1730-02-14", rui, "t");
    EXPECT_EQ(cases("T-03"), QStringList()); // 14
    run("update individuo set datanasc = '1716-02-15' where nind = ?", {rui});
    EXPECT_EQ(cases("T-03").size(), 1); // 13
    run("update assistente set tipoassistente = 'p'");
    EXPECT_EQ(cases("T-03"), QStringList()); // a godfather of 13
    run("update assistente set tipoacto = 'c', entidade = ?", {wedding(0, ana, "1730-02-14")});
    EXPECT_EQ(cases("T-03").size(), 1); // but none at a marriage
}

TEST_F(TheEdges, OfTheAgesAtMarriage)
{
    const qint64 rui = person({"Rui", 'm', "1702-02-15"}), ana = person({"Ana", 'f'});
    wedding(rui, ana, "1720-02-14");
    EXPECT_EQ(cases("M-04"), QStringList("aviso: Rui (nº 1), nascido em 15/02/1702, casou em 14/02/1720 com 17 anos."));
    run("update familia set datacasam = '1720-02-15'");
    EXPECT_EQ(cases("M-04"), QStringList());
}

TEST_F(TheEdges, OfTheLongestLives)
{
    person({"Rui", 'm', "1600-02-14", "1700-02-14"}); // 100
    EXPECT_EQ(cases("P-02"), QStringList());
    run("update individuo set dataobito = '1701-02-14'");
    EXPECT_TRUE(cases("P-02").value(0).startsWith("aviso: "));
    run("update individuo set dataobito = '1716-02-13'"); // 115
    EXPECT_TRUE(cases("P-02").value(0).startsWith("aviso: "));
    run("update individuo set dataobito = '1716-02-14'"); // 116
    EXPECT_TRUE(cases("P-02").value(0).startsWith("impossível: "));
}

TEST_F(TheEdges, OfTheAgesThatAnotherRuleTells)
{
    const qint64 eva = person({"Eva", 'f', "1700-02-14"});
    const qint64 family = wedding(person({"Rui"}), eva, "1740-02-14");
    child("Gil", "1748-12-01", family); // 48
    EXPECT_EQ(cases("M-18").size(), 1);
    EXPECT_EQ(cases("C-05"), QStringList());
    run("update individuo set datanasc = '1749-02-14' where nind = 3"); // 49
    EXPECT_EQ(cases("M-18"), QStringList());
    EXPECT_EQ(cases("C-05").size(), 1);
    const study::checks::Settings later{.limits = {{"C-05.aviso", 49}}};
    EXPECT_EQ(cases("M-18", later).size(), 1);
    EXPECT_EQ(cases("C-05", later), QStringList());
    run("insert into profissoes (nind, idprofissao, codprof, dataref, datafixa) values (?, 1, 4, '1708-02-13', 1)",
        {eva}); // 7
    EXPECT_EQ(cases("L-05").size(), 1);
    EXPECT_EQ(cases("L-01"), QStringList());
    const study::checks::Settings eight{.limits = {{"L-01.profissao", 8}}};
    EXPECT_EQ(cases("L-05", eight), QStringList());
    EXPECT_EQ(cases("L-01", eight).size(), 1);
}

TEST_F(TheEdges, OfWhereAFamilyBelongs)
{
    run("insert into infopar (cod, nome) values ('030899', 'Moinhos')");
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'});
    const qint64 family = wedding(rui, ana, "1730-02-03");
    run("update familia set inicioobs = '1730-02-04', localcasam = '030801', tipolocalcasam = 'F'");
    EXPECT_EQ(cases("F-08"), QStringList());
    for (const qint64 one : {rui, ana}) {
        run("update individuo set localnasc = '03089901', tipolocalnasc = 'L' where nind = ?", {one});
        EXPECT_EQ(cases("F-08").size(), 1) << one;
        run("update individuo set localnasc = '03080101' where nind = ?", {one});
        EXPECT_EQ(cases("F-08"), QStringList()) << one;
    }
    run("insert into residencia (numero, tiporesid, dataref, localresid, tipolocal) values (?, 'f', '1731-01-01', "
        "'03089901', 'L')",
        {family});
    EXPECT_EQ(cases("F-08").size(), 1);
}

TEST_F(TheEdges, OfAFamilyWithoutTheUnknownParent)
{
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'});
    couple(rui, ana);
    isOfKind("3");
    EXPECT_EQ(cases("F-07").size(), 1);
    run("delete from familias where nind = ?", {rui});
    EXPECT_EQ(cases("F-07"), QStringList()); // the mother is known
}

TEST_F(TheEdges, OfTheTypesOfPeople)
{
    const qint64 rui = person({"Rui"});
    run("update individuo set tipo = '4'");
    EXPECT_EQ(cases("P-10"), QStringList("informação: Rui (nº 1) tem o tipo «4», e pelas datas é do tipo «0»."));
    assists("b", person({"Ana", 'f', "1702-02-14"}), "1702-02-14", rui);
    EXPECT_EQ(cases("P-10").value(0), "informação: Rui (nº 1) tem o tipo «4», e pelas datas é do tipo «3».");
    run("update individuo set tipo = '3' where nind = ?", {rui});
    EXPECT_EQ(cases("P-10").filter("Rui"), QStringList());
}

TEST_F(TheEdges, OfTheUnionsThatAreMarriages)
{
    const qint64 rui = person({"Rui", 'm', "", "1760-05-01"});
    couple(rui, person({"Ana", 'f'}));
    run("update individuo set estadoobito = 1 where nind = ?", {rui});
    for (int situation = 1; situation <= 11; ++situation) {
        isOfKind(QByteArray::number(situation));
        const bool isLegitimate = situation == 1 || situation == 2 || situation == 9;
        EXPECT_EQ(cases("P-07").size(), isLegitimate ? 1 : 0) << situation;
    }
}

TEST_F(TheEdges, OfFiliationsBesideTheFamilies)
{
    const qint64 family = couple(person({"Rui"}), person({"Ana", 'f'}));
    const qint64 gil = child("Gil", "1730-02-14", family);
    const auto contradicts = [&](int filiation, int situation) {
        run("update individuo set filiacao = ? where nind = ?", {filiation, gil});
        isOfKind(QByteArray::number(situation));
        return !cases("P-28").isEmpty();
    };
    for (int situation = 1; situation <= 11; ++situation)
        EXPECT_EQ(contradicts(1, situation), situation >= 3 && situation <= 8) << situation;
    for (int filiation = 1; filiation <= 16; ++filiation) {
        const bool outOfWedlock = filiation > 1 && filiation <= 10 && filiation != 6;
        EXPECT_EQ(contradicts(filiation, 1), outOfWedlock) << filiation;
        EXPECT_EQ(contradicts(filiation, 2), outOfWedlock) << filiation;
        EXPECT_FALSE(contradicts(filiation, 9)) << filiation; // the parents married later
    }
}

TEST_F(TheEdges, OfMarriagesThatAreNone)
{
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'});
    for (const char* day : {"1720-02-03", "1730-02-03", "1740-02-03", "1750-02-03", "1755-02-03"})
        wedding(rui, ana, day);
    run("update familias set estadocivil = 1 where nind = ?", {rui});
    EXPECT_EQ(cases("M-20").filter("Rui").size(), 1);
    EXPECT_EQ(cases("M-10").size(), 4);
    run("update familia set sfamilia = '6' where nfamilia = 1");
    EXPECT_EQ(cases("M-20"), QStringList());
    EXPECT_EQ(cases("M-10").size(), 3); // 1730 is the first marriage by now
}

TEST_F(TheEdges, OfThreeInOneCouple)
{
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'}), eva = person({"Eva", 'f', "1740-02-14"});
    const qint64 family = wedding(rui, ana, "1730-02-14");
    run("insert into familias (nfamilia, nind) values (?, ?)", {family, eva});
    EXPECT_EQ(cases("M-16"), QStringList("impossível: A família nº 1 tem 3 cônjuges: Rui (nº 1), Ana (nº 2) e Eva (nº "
                                         "3)."));
    EXPECT_EQ(cases("M-02").size(), 1) << "the third is looked at, too";
}

TEST_F(TheEdges, OfTheAncestorsAmongAssistants)
{
    const qint64 rui = person({"Rui", 'm', "1700-02-14"}), ana = person({"Ana", 'f', "1800-02-14"});
    assists("b", ana, "1800-02-14", rui);
    struct Line
    {
        int code, years;
        char sex;
    };
    for (const Line& line : {Line{1, 12, 'm'},
                             {2, 12, 'f'},
                             {5, 24, 'm'},
                             {6, 24, 'f'},
                             {7, 24, 'm'},
                             {8, 24, 'f'},
                             {15, 36, 'm'},
                             {16, 36, 'f'},
                             {25, 48, 'm'},
                             {26, 48, 'f'},
                             {73, 24, 'm'},
                             {74, 24, 'f'}})
    {
        run("update assistente set parentbapt = ?", {line.code});
        const auto isBorn = [&](const QDate& day) {
            run("update individuo set sexo = ?, datanasc = ? where nind = ?", {QString(QChar(line.sex)), day, rui});
        };
        isBorn(QDate(1800 - line.years, 2, 14));
        EXPECT_EQ(cases("T-08"), QStringList()) << line.code;
        isBorn(QDate(1800 - line.years, 2, 15));
        EXPECT_EQ(cases("T-08").size(), 1) << line.code;
        isBorn(QDate(1700, 2, 14));
        run("update individuo set sexo = ? where nind = ?", {QString(line.sex == 'm' ? "f" : "m"), rui});
        EXPECT_EQ(cases("T-08").size(), 1) << line.code;
    }
}

TEST_F(TheEdges, OfTheSeries)
{
    bdp.beginTrans();
    const qint64 rui = person({"Rui"});
    for (const int year : {1700, 1703})
        for (int day = 2; day < 7; ++day) {
            const QByteArray date = QDate(year, 2, day).toString(Qt::ISODate).toLatin1();
            wedding(rui, 0, date);
            person({"Ana", 'f', "", date});
        }
    bdp.commitTrans();
    EXPECT_EQ(cases("S-01"), QStringList({"aviso: Não há casamentos de 1701 a 1702: em 1700 há 5 e em 1703 há 5.",
                                          "aviso: Não há óbitos de 1701 a 1702: em 1700 há 5 e em 1703 há 5."}));
}

TEST_F(TheEdges, OfRoundDays)
{
    bdp.beginTrans();
    const qint64 rui = person({"Rui"});
    for (int i = 0; i < 300; ++i) {
        const QDate day = i < 20 ? QDate(1700 + i, 3, 1) : QDate(1700 + i % 90, 1 + i % 12, 2 + i % 13);
        wedding(rui, 0, day.toString(Qt::ISODate).toLatin1());
    }
    bdp.commitTrans();
    EXPECT_EQ(cases("S-03"), QStringList("informação: Dos 300 casamentos com data exacta, 20 são de um dia 1: "
                                         "esperavam-se 9,9."));
    run("update familia set dcasamfixa = 0 where nfamilia = 1");
    EXPECT_EQ(cases("S-03"), QStringList()); // 299 are too few
}

TEST_F(TheEdges, OfTheSexesOfTheBorn)
{
    bdp.beginTrans();
    for (int i = 0; i < 1001; ++i)
        person({"Rui", i < 488 ? 'm' : 'f', "1700-02-14"}); // 488 to 513
    bdp.commitTrans();
    EXPECT_EQ(cases("S-02"), QStringList()); // 95,1
    run("update individuo set sexo = 'f' where nind = 1");
    EXPECT_EQ(cases("S-02"), QStringList("informação: Nasceram 487 rapazes e 514 raparigas: 94,7 por cem."));
}

TEST_F(TheEdges, OfThePlaces)
{
    const qint64 rui = person({"Rui"}), family = couple(rui, 0);
    for (const char* place :
         {"update individuo set localobito = '030399', tipolocalobito = 'F' where nind = 1",
          "update familia set localcasam = '030398', tipolocalcasam = 'F'",
          "insert into passaporte (nind, nPass, localdestino, tipolocaldest) values (1, 1, '030397', 'F')"})
    {
        const auto before = cases("K-02").size();
        run(place);
        EXPECT_EQ(cases("K-02").size(), before + 1) << place;
    }
    run("insert into residencia (numero, tiporesid, dataref, localresid, tipolocal) values (?, 'f', '1720-01-01', "
        "'030396', 'F')",
        {family});
    EXPECT_EQ(cases("K-02").size(), 4);
}

TEST_F(TheEdges, OfSuffragesAndTheirMoney)
{
    const qint64 rui = person({"Rui", 'm', "", "1998-12-31"});
    names("TipMi", 1, "Rezada");
    names("TipOf", 2, "Cantado");
    names("TipEs", 3, "Aos pobres");
    const auto orders = [&](const char* kind, int type) {
        run("delete from rituaismorte");
        run("insert into rituaismorte (nind, idlegpio, tipolegpio, tipo, valortotal, tipoMoeda) values (?, 1, ?, ?, 9, "
            "'Eu')",
            {rui, kind, type});
    };
    for (const auto& [kind, type] : {std::pair("missa", 1), std::pair("oficio", 2), std::pair("esmola", 3)})
        for (int other = 1; other <= 3; ++other) {
            orders(kind, other);
            EXPECT_EQ(cases("W-05").isEmpty(), other == type) << kind << other;
        }
    EXPECT_EQ(cases("W-04").size(), 1);
    run("update individuo set dataobito = '1999-01-01'");
    EXPECT_EQ(cases("W-04"), QStringList());
}

TEST_F(TheEdges, OfWillsThatAreToldOrNot)
{
    const qint64 rui = person({"Rui", 'm', "", "1760-02-14"});
    run("insert into legadosprofanos (nind, idlegprof, nindherd) values (?, 1, ?)", {rui, person({"Eva", 'f'})});
    for (const char* flags : {"testam = 0, escrit = 0", "testam = null, escrit = 0", "testam = 0, escrit = null",
                              "testam = null, escrit = null"})
    {
        run(qUtf8Printable(QString("update individuo set ") + flags));
        EXPECT_EQ(cases("W-01").size(), 1) << flags; // the card leaves a box that nobody ticked empty
    }
    for (const char* flags : {"testam = 1, escrit = null", "testam = null, escrit = 1"}) {
        run(qUtf8Printable(QString("update individuo set ") + flags));
        EXPECT_EQ(cases("W-01"), QStringList()) << flags;
    }
}

TEST_F(TheEdges, OfToday)
{
    person({"Rui"});
    run("update individuo set datanasc = ?, DnascFixa = 1", {QDate::currentDate()});
    EXPECT_EQ(cases("P-13"), QStringList());
    run("update individuo set datanasc = ?", {QDate::currentDate().addDays(2)}); // midnight may pass meanwhile
    EXPECT_EQ(cases("P-13").size(), 1);
}
