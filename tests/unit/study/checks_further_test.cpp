// Rules by what they once told wrongly, told twice, or did not tell: of unions, assistants, lists and codes.
#include "study/checkedActs.h"

#include <algorithm>

using study::checks::Case;

class ARuleFurther : public CheckedActs
{
protected:
    void isOfKind(qint64 family, const char* situation)
    {
        run("update familia set sfamilia = ? where nfamilia = ?", {situation, family});
    }
    std::vector<Case> ofRule(const char* rule) const
    {
        std::vector<Case> found = all();
        std::erase_if(found, [&](const Case& one) { return one.rule != rule; });
        return found;
    }
    // As another program may have written it.
    void standsTwice(qint64 family, qint64 who)
    {
        elsewhere("drop table familias; create table familias (nfamilia double, nind double, idade long, estadocivil "
                  "long, numcasam long);");
        run("insert into familias (nfamilia, nind, numcasam) values (?, ?, 1), (?, ?, 1)", {family, who, family, who});
    }
};

TEST_F(ARuleFurther, HoldsKinWhoNeverMarriedForUnlikelyAlone)
{
    run("insert into familia (nfamilia) values (?)", {++lastFamily});
    const qint64 rui = person({"Rui", 'm', "", "", 1}), ana = person({"Ana", 'f', "", "", 1});
    const qint64 family = couple(rui, ana);
    const qint64 gil = person({"Gil", 'm', "", "", family});
    EXPECT_TRUE(cases("M-13").value(0).startsWith("impossível: "));
    isOfKind(family, "6");
    EXPECT_EQ(cases("M-13"), QStringList("aviso: Rui (nº 1) e Ana (nº 2), que não casaram (a família nº 2 de Rui e "
                                         "Ana), são parentes muito próximos: são irmãos, filhos da família nº 1."));
    run("update individuo set filiacao = 9 where nind = ?", {gil}); // the register says it
    EXPECT_EQ(cases("M-13"), QStringList());
}

TEST_F(ARuleFurther, MissesTheFamilyOfOneWhoDiedMarried)
{
    const qint64 rui = person({"Rui", 'm', "", "1760-05-01"});
    const qint64 family = couple(rui, person({"Ana", 'f'}));
    run("update individuo set estadoobito = 2 where nind = ?", {rui});
    for (const char* situation : {"1", "2", "9", "10", "11"}) {
        isOfKind(family, situation);
        EXPECT_EQ(cases("P-06"), QStringList()) << situation;
    }
    for (const char* situation : {"3", "4", "5", "6", "7", "8"}) {
        isOfKind(family, situation);
        EXPECT_EQ(cases("P-06").size(), 1) << situation;
    }
    EXPECT_EQ(cases("P-06"), QStringList("aviso: Rui (nº 1) morreu casado em 01/05/1760, e só é cônjuge onde não houve "
                                         "casamento: na família nº 1 de Rui e Ana."));
    run("insert into familias (nfamilia, nind) values (77, ?)", {rui}); // F-03
    EXPECT_EQ(cases("P-06"), QStringList());
}

TEST_F(ARuleFurther, TellsTheSeparatedAndDivorcedWithoutAFamily)
{
    const qint64 rui = person({"Rui", 'm', "", "1760-05-01"});
    for (const auto& [state, told] : {std::pair(4, "separado"), std::pair(5, "divorciado")}) {
        run("update individuo set estadoobito = ? where nind = ?", {state, rui});
        EXPECT_EQ(cases("P-06"), QStringList(QString("aviso: Rui (nº 1) morreu %1 em 01/05/1760, e não é cônjuge em "
                                                     "nenhuma família.")
                                                 .arg(told)));
    }
    for (const int state : {1, 6, 7, 8}) {
        run("update individuo set estadoobito = ? where nind = ?", {state, rui});
        EXPECT_EQ(cases("P-06"), QStringList()) << state;
    }
}

TEST_F(ARuleFurther, TakesARowThatStandsTwiceForOneUnion)
{
    const qint64 ana = person({"Ana", 'f', "", "1760-05-01"});
    const qint64 family = couple(ana, 0, "1720-02-03");
    for (int i = 0; i < 8; ++i)
        person({"Gil", 'm', qUtf8Printable(QString("%1-03-01").arg(1722 + 2 * i)), "", family});
    run("update individuo set estadoobito = 1 where nind = ?", {ana});
    isOfKind(family, "1");
    standsTwice(family, ana);
    EXPECT_EQ(cases("M-15").size(), 1);
    EXPECT_EQ(cases("F-15"), QStringList());
    EXPECT_EQ(cases("M-09"), QStringList());
    EXPECT_EQ(cases("P-07"), QStringList("impossível: Ana (nº 1) morreu solteira em 01/05/1760, e é cônjuge na família "
                                         "nº 1 de Ana, casamento em cerca de 03/02/1720."));
}

TEST_F(ARuleFurther, TellsTheYearsOfOneCoupleOnce)
{
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'});
    const qint64 family = couple(rui, ana);
    person({"Gil", 'm', "1700-02-03", "", family});
    person({"Ivo", 'm', "1751-02-03", "", family});
    EXPECT_EQ(cases("F-14").size(), 1);
    EXPECT_TRUE(cases("F-14").value(0).startsWith("aviso: Ana (nº 2) tem filhos durante 51 anos"));
    run("delete from familias where nind = ?", {ana});
    EXPECT_TRUE(cases("F-14").value(0).startsWith("aviso: Rui (nº 1) tem filhos durante 51 anos"));
}

TEST_F(ARuleFurther, KnowsPresenceByAProfessionOrASignature)
{
    const qint64 rui = person({"Rui"});
    run("update individuo set fimobs = '1740-01-01' where nind = ?", {rui});
    run("insert into profissoes (nind, idprofissao, dataref, datafixa) values (?, 1, '1740-01-01', 1)", {rui});
    EXPECT_EQ(cases("P-18"), QStringList());
    run("update profissoes set dataref = '1740-01-02'");
    EXPECT_EQ(cases("P-18"), QStringList("aviso: Rui (nº 1) está em observação até 01/01/1740, e tem um acto posterior "
                                         "na freguesia: profissão em 02/01/1740."));
    run("insert into assinatura (nind, idassinatura, dataref, datafixa) values (?, 1, '1740-01-03', 1)", {rui});
    EXPECT_TRUE(cases("P-18").value(0).endsWith(": assinatura em 03/01/1740."));
    run("delete from profissoes");
    run("delete from assinatura");
    run("insert into passaporte (nind, nPass, dataref) values (?, 1, '1741-01-01')", {rui}); // from elsewhere
    EXPECT_EQ(cases("P-18"), QStringList());
}

TEST_F(ARuleFurther, LooksAtEveryDateOfARecord)
{
    const qint64 rui = person({"Rui"}), family = couple(rui, person({"Ana", 'f'}));
    run("update individuo set inicioobs = '2902-01-01', fimobs = '2903-01-01' where nind = ?", {rui});
    run("update familia set fimobs = '2904-01-01'");
    run("insert into residencia (numero, tiporesid, dataref, datafixa) values (?, 'f', '2905-01-01', 1), (?, 'i', "
        "'2906-01-01', 1)",
        {family, rui});
    run("insert into assinatura (nind, idassinatura, dataref, datafixa) values (?, 1, '2907-01-01', 1)", {rui});
    run("insert into passaporte (nind, nPass, dataref) values (?, 1, '2908-01-01')", {rui});
    assists("b", rui, "2909-01-01", 2);
    assists("c", family, "2910-01-01", rui, "t");
    assists("c", family, "2910-01-01", 2, "t");
    EXPECT_EQ(
        cases("P-13"),
        QStringList({"impossível: A família nº 1 de Rui e Ana tem datas depois do dia de hoje: residência em "
                     "01/01/2905, fim da observação em 01/01/2904 e assistentes em 01/01/2910.",
                     "impossível: Rui (nº 1) tem datas depois do dia de hoje: residência em 01/01/2906, assinatura "
                     "em 01/01/2907, passaporte em 01/01/2908, início da observação em 01/01/2902, fim da "
                     "observação em 01/01/2903 e assistentes em 01/01/2909."}));
    EXPECT_EQ(cases("P-14", {.limits = {{"P-14.inicio", 3100}}}).size(), 2);
    run("update individuo set datanasc = '1700-02-14', inicioobs = null, fimobs = null");
    run("update familia set datacasam = '1720-02-14', fimobs = null");
    run("delete from residencia");
    run("delete from assinatura");
    run("delete from passaporte");
    EXPECT_EQ(cases("P-13"), QStringList()); // T-01 tells the assistants beside the card
    EXPECT_EQ(cases("T-01").size(), 2);
}

TEST_F(ARuleFurther, SpeaksOfAResidenceWithoutAPlace)
{
    const qint64 rui = person({"Rui", 'm', "1700-02-14"});
    run("insert into residencia (numero, tiporesid, dataref, datafixa) values (?, 'i', '1699-01-01', 1)", {rui});
    EXPECT_EQ(cases("L-01"),
              QStringList("impossível: Rui (nº 1) nasceu em 14/02/1700; não cabe na sua vida a residência "
                          "em local desconhecido em 01/01/1699."));
}

TEST_F(ARuleFurther, NamesThoseWhoContradictTheStateOfAnAssistant)
{
    const qint64 rui = person({"Rui"}), eva = person({"Eva", 'f', "", "1730-02-13"});
    const qint64 ana = person({"Ana", 'f', "1730-02-14"});
    marriesExactly(rui, eva, "1725-01-10");
    assists("b", ana, "1730-02-14", rui);
    run("update assistente set estadocivil = 2");
    const Case before = ofRule("T-09").at(0);
    EXPECT_EQ(before.key(), "T-09 i1 i3 i2 f1");
    run("update individuo set dataobito = '1730-02-12' where nind = ?", {eva});
    EXPECT_NE(ofRule("T-09").at(0).state, before.state) << "it comes back";
}

TEST_F(ARuleFurther, NamesTheActsOfAPriestThatAreTooFarApart)
{
    const qint64 father = person({"Padre António"});
    person({"Ana", 'f', "1700-02-14"});
    person({"Eva", 'f', "1730-02-14"});
    const qint64 family = couple(person({"Rui"}), 2, "1761-02-14");
    run("update individuo set primpadrebapt = ? where nind in (2, 3)", {father});
    run("update familia set primpadrecasam = ?, dcasamfixa = 1 where nfamilia = ?", {father, family});
    EXPECT_EQ(ofRule("T-10").at(0).key(), "T-10 i1 i2 f1");
}

TEST_F(ARuleFurther, ComesBackWhenARecordBesideIsChanged)
{
    const qint64 rui = person({"Rui", 'm', "", "1760-05-01"}), ana = person({"Ana", 'f', "", "1765-05-01"});
    const qint64 family = couple(rui, ana);
    run("update familia set fimobs = '1765-05-02'");
    const Case before = ofRule("F-09").at(0);
    EXPECT_EQ(before.key(), "F-09 i1 i2 f1");
    run("update individuo set dataobito = '1765-04-30' where nind = ?", {ana});
    EXPECT_NE(ofRule("F-09").at(0).state, before.state);
    // A baptism behind the end of an observation changes what is told of the parent.
    run("insert into infopar (cod, nome) values ('030899', 'Moinhos')");
    run("update familia set localcasam = '030899', tipolocalcasam = 'F', datacasam = '1730-02-03', dcasamfixa = 1");
    run("update individuo set fimobs = '1729-01-01' where nind = ?", {ana});
    const Case seen = ofRule("P-18").at(0);
    const qint64 gil = person({"Gil", 'm', "1740-02-03", "", family});
    run("update individuo set localnasc = '030899', tipolocalnasc = 'F' where nind = ?", {gil});
    EXPECT_EQ(ofRule("P-18").at(0).key(), seen.key());
    EXPECT_NE(ofRule("P-18").at(0).state, seen.state);
}

TEST_F(ARuleFurther, IsOfTheDecadeOfWhatItTells)
{
    const qint64 rui = person({"Rui", 'm', "1700-02-14", "1760-02-14"});
    run("update individuo set primpadrebapt = 97, testamenteiro = 98 where nind = ?", {rui});
    EXPECT_EQ(ofRule("K-06").at(0).when.year(), 1700);
    EXPECT_EQ(ofRule("K-06").at(1).when.year(), 1760);
    run("insert into profissao (codprof, profissao) values (4, 'Vendedor')");
    run("insert into profissoes (nind, idprofissao, codprof, dataref, datafixa) values (?, 1, 4, '1702-01-01', 1), (?, "
        "2, 4, '1709-01-01', 1)",
        {rui, rui});
    EXPECT_EQ(ofRule("L-05").at(0).when.year(), 1709); // the other one is told by L-01
    const qint64 ana = person({"Ana", 'f'}), family = couple(0, ana, "1690-01-02");
    for (int i = 0; i < 16; ++i)
        person({"Gil", 'm', qUtf8Printable(QString("%1-03-01").arg(1691 + i)), "", family});
    EXPECT_EQ(ofRule("F-15").at(0).when.year(), 1706);
}

TEST_F(ARuleFurther, AsksEveryPriestWhetherAnActIsOfTheBooks)
{
    run("insert into infopar (cod, nome) values ('030301', 'Caminha')");
    run("insert into paroquia (codparoquia, nomeparoquia) values ('030302', 'Seixas')");
    const qint64 rui = person({"Rui", 'm', "1700-02-14", "1760-02-14"});
    const qint64 family = couple(rui, 0, "1730-02-03");
    run("update individuo set localnasc = '030302', tipolocalnasc = 'F', localobito = '030302', tipolocalobito = 'F'");
    run("update familia set localcasam = '030302', tipolocalcasam = 'F'");
    EXPECT_EQ(cases("K-04"), QStringList());
    run("update individuo set segpadrebapt = 97, primpadreobito = 97 where nind = ?", {rui});
    run("update familia set segpadrecasam = 97 where nfamilia = ?", {family});
    EXPECT_EQ(
        cases("K-04"),
        QStringList({"informação: O casamento da família nº 1 de Rui tem padre, assistentes ou imagem do registo, "
                     "mas foi em Seixas, e não em Caminha.",
                     "informação: O baptismo de Rui (nº 1) tem padre, assistentes ou imagem do registo, mas foi "
                     "em Seixas, e não em Caminha.",
                     "informação: O enterro de Rui (nº 1) tem padre, assistentes ou imagem do registo, mas foi em "
                     "Seixas, e não em Caminha."}));
}

TEST_F(ARuleFurther, ShowsTheCodesThatItDoesNotKnow)
{
    names("Filia", 1, "Legítima");
    names("Filia", 17, "*Criada na roda");
    const qint64 rui = person({"Rui"});
    run("update individuo set filiacao = 1 where nind = ?", {rui});
    EXPECT_EQ(cases("K-12"), QStringList());
    run("update individuo set filiacao = 17 where nind = ?", {rui});
    EXPECT_EQ(cases("K-12"),
              QStringList("informação: O código 17 de filiação, «*Criada na roda», é próprio desta BDP e "
                          "é usado 1 vez: as regras não o têm em conta."));
    run("update individuo set filiacao = 18 where nind = ?", {rui}); // of no table: K-01
    EXPECT_EQ(cases("K-12"), QStringList());
    EXPECT_EQ(cases("K-01").size(), 1);
}

TEST_F(ARuleFurther, JudgesNoSuffrageOfUnknownKind)
{
    const qint64 rui = person({"Rui", 'm', "", "1760-02-14"});
    run("insert into rituaismorte (nind, idlegpio, tipo) values (?, 1, 7)", {rui});
    EXPECT_EQ(cases("W-05"), QStringList());
    run("update rituaismorte set tipolegpio = 'missa'");
    EXPECT_EQ(cases("W-05").size(), 1);
}

TEST_F(ARuleFurther, AdmitsTheDaysThatAreSet)
{
    const qint64 rui = person({"Rui", 'm', "1702-02-14", "1702-02-12"});
    EXPECT_EQ(cases("P-01", {.limits = {{"P-01.dias", 1}}}).size(), 1);
    EXPECT_EQ(cases("P-01", {.limits = {{"P-01.dias", 2}}}), QStringList());
    wedding(rui, 0, "1702-02-14");
    EXPECT_EQ(cases("M-01", {.limits = {{"M-01.dias", 1}}}).size(), 1);
    EXPECT_EQ(cases("M-01", {.limits = {{"M-01.dias", 2}}}), QStringList());
    assists("b", person({"Ana", 'f', "1702-02-14"}), "1702-02-14", rui);
    EXPECT_EQ(cases("T-02", {.limits = {{"T-02.dias", 1}}}).size(), 1);
    EXPECT_EQ(cases("T-02", {.limits = {{"T-02.dias", 2}}}), QStringList());
}
