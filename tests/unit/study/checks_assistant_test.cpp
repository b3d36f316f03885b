// Rules of those who assist at acts: each with a case that must fire and a near miss that must not.
#include "study/checkedActs.h"

class AnAssistant : public CheckedActs
{
protected:
    AnAssistant()
    {
        rui = person({"Rui", 'm', "1700-02-14"});
        ana = person({"Ana", 'f', "1730-02-14"});
    }
    void dies(qint64 who, const char* day) { run("update individuo set dataobito = ? where nind = ?", {day, who}); }
    void approximate() { run("update individuo set DnascFixa = 0, dobitofixa = 0"); }

    qint64 rui = 0, ana = 0;
};

TEST_F(AnAssistant, IsAlive)
{
    assists("b", ana, "1730-02-14", rui);
    dies(rui, "1730-02-14");
    EXPECT_EQ(cases("T-02"), QStringList());
    dies(rui, "1730-02-13");
    assists("c", 9, "1731-01-01", rui, "t");
    EXPECT_EQ(cases("T-02"), QStringList("impossível: Rui (nº 1) morreu em 13/02/1730, mas assistiu depois a: baptismo "
                                         "de Ana (nº 2) em 14/02/1730; casamento da família nº 9 em 01/01/1731."));
    run("delete from assistente where tipoacto = 'c'");
    approximate();
    EXPECT_EQ(cases("T-02").first().section(':', 0, 0), "aviso");
}

TEST_F(AnAssistant, IsAliveOnTheDayOfTheCard)
{
    assists("b", ana, "1740-01-01", rui); // a copy that was never corrected
    dies(rui, "1735-01-01");
    EXPECT_EQ(cases("T-02"), QStringList());
}

TEST_F(AnAssistant, IsNoSmallChild)
{
    assists("b", ana, "1730-02-14", rui);
    const auto isBorn = [this](const char* day) { run("update individuo set datanasc = ? where nind = 1", {day}); };
    isBorn("1723-02-14");
    EXPECT_EQ(cases("T-03"), QStringList());
    isBorn("1723-02-15");
    EXPECT_EQ(cases("T-03"), QStringList("aviso: Rui (nº 1) assistiu ao baptismo de Ana (nº 2) em 14/02/1730 com 6 "
                                         "anos: nasceu em 15/02/1723."));
    isBorn("1730-02-15");
    EXPECT_EQ(cases("T-03"),
              QStringList("impossível: Rui (nº 1) assistiu ao baptismo de Ana (nº 2) em 14/02/1730 antes "
                          "de nascer em 15/02/1730."));
    isBorn("1723-02-15");
    run("update assistente set tipoassistente = 't'");
    EXPECT_EQ(cases("T-03").size(), 1);
    EXPECT_EQ(cases("T-03", {.limits = {{"T-03.testemunha", 6}}}), QStringList());
    run("update assistente set tipoassistente = 'p'");
    approximate();
    EXPECT_EQ(cases("T-03"), QStringList());
}

TEST_F(AnAssistant, IsNoneOfThoseOfTheAct)
{
    const qint64 eva = person({"Eva", 'f'});
    const qint64 family = couple(rui, eva, "1725-01-10");
    assists("b", ana, "1730-02-14", rui);
    assists("c", family, "1725-01-10", person({"Gil"}), "t");
    EXPECT_EQ(cases("T-04"), QStringList());
    assists("b", ana, "1730-02-14", ana);
    assists("c", family, "1725-01-10", eva, "t");
    run("update individuo set famorig = ? where nind = ?", {family, ana});
    EXPECT_EQ(
        cases("T-04"),
        QStringList({"impossível: Rui (nº 1) consta como padrinho no baptismo de Ana (nº 2) em 14/02/1730, mas é o "
                     "pai da criança.",
                     "impossível: Ana (nº 2) consta como madrinha no baptismo de Ana (nº 2) em 14/02/1730, mas é "
                     "a própria pessoa que se baptiza.",
                     "impossível: Eva (nº 3) consta como testemunha no casamento da família nº 1 de Rui e Eva em "
                     "cerca de 10/01/1725, mas é a noiva."}));
}

TEST_F(AnAssistant, IsNoSpouseOfAParent)
{
    const qint64 eva = person({"Eva", 'f'});
    const qint64 parents = couple(person({"Gil"}), eva, "1725-01-10");
    assists("b", ana, "1730-02-14", rui);
    couple(rui, eva, "1740-01-10");
    EXPECT_EQ(cases("T-06"), QStringList());
    run("update individuo set famorig = ? where nind = ?", {parents, ana});
    EXPECT_EQ(cases("T-06"),
              QStringList("aviso: Rui (nº 1) é padrinho no baptismo de Ana (nº 2) em 14/02/1730, e casou "
                          "com a mãe da criança, Eva (nº 3)."));
    run("update assistente set tipoassistente = 't'");
    EXPECT_EQ(cases("T-06"), QStringList());
}

TEST_F(AnAssistant, HasParentsWhoLiveOrAreDead)
{
    const qint64 bento = person({"Bento", 'm', "", "1730-02-15"});
    const qint64 ines = person({"Inês", 'f', "", "1730-02-13"});
    run("update individuo set famorig = ? where nind = ?", {couple(bento, ines), rui});
    assists("b", ana, "1730-02-14", rui);
    EXPECT_EQ(cases("T-07"), QStringList()); // the act says nothing
    run("update assistente set falecidopai = 0, falecidomae = 1");
    EXPECT_EQ(cases("T-07"), QStringList());
    run("update assistente set falecidopai = 1, falecidomae = 0");
    EXPECT_EQ(cases("T-07"),
              QStringList({"aviso: No baptismo de Ana (nº 2) em 14/02/1730, o pai de Rui (nº 1), Bento (nº 3), consta "
                           "como falecido, mas morreu em 15/02/1730.",
                           "aviso: No baptismo de Ana (nº 2) em 14/02/1730, a mãe de Rui (nº 1), Inês (nº 4), "
                           "consta como viva, mas morreu em 13/02/1730."}));
    approximate();
    EXPECT_EQ(cases("T-07"), QStringList());
}

TEST_F(AnAssistant, IsKinByThePedigree)
{
    names("Paren", 5, "Avô paterno");
    names("Paren", 6, "Avó paterna");
    assists("b", ana, "1730-02-14", rui);
    const auto is = [this](int code) { run("update assistente set parentbapt = ?", {code}); };
    is(5);
    EXPECT_EQ(cases("T-08"), QStringList());
    is(6);
    EXPECT_EQ(cases("T-08"), QStringList("aviso: Rui (nº 1) consta no baptismo de Ana (nº 2) em 14/02/1730 como «Avó "
                                         "paterna» de Ana (nº 2), mas é homem."));
    is(5);
    run("update individuo set datanasc = '1706-02-14' where nind = 1");
    EXPECT_EQ(cases("T-08"), QStringList()); // two generations to the day
    run("update individuo set datanasc = '1706-02-15' where nind = 1");
    EXPECT_EQ(cases("T-08"), QStringList("aviso: Rui (nº 1) consta no baptismo de Ana (nº 2) em 14/02/1730 como «Avô "
                                         "paterno» de Ana (nº 2), mas nasceu em 15/02/1706, e Ana (nº 2) em "
                                         "14/02/1730."));
    run("update individuo set DnascFixa = 0 where nind = 1");
    EXPECT_EQ(cases("T-08"), QStringList());
}

TEST_F(AnAssistant, IsTheGrandfatherWhoStandsInThePedigree)
{
    names("Paren", 5, "Avô paterno");
    assists("b", ana, "1770-02-14", rui);
    run("update assistente set parentbapt = 5");
    const qint64 gil = person({"Gil"});
    const qint64 bento = person({"Bento"});
    run("update individuo set datanasc = '1770-02-14', famorig = ? where nind = ?",
        {couple(gil, person({"Eva", 'f'})), ana});
    EXPECT_EQ(cases("T-08"), QStringList());
    run("update individuo set famorig = ? where nind = ?", {couple(bento, person({"Inês", 'f'})), gil});
    EXPECT_EQ(cases("T-08"), QStringList("aviso: Rui (nº 1) consta no baptismo de Ana (nº 2) em 14/02/1770 como «Avô "
                                         "paterno» de Ana (nº 2), mas nas fichas é Bento (nº 4)."));
}

TEST_F(AnAssistant, IsAnUncleByTheParents)
{
    names("Paren", 19, "Tio paterno");
    assists("b", ana, "1770-02-14", rui);
    run("update assistente set parentbapt = 19");
    const qint64 gil = person({"Gil"});
    run("update individuo set datanasc = '1770-02-14', famorig = ? where nind = ?",
        {couple(gil, person({"Eva", 'f'})), ana});
    const qint64 grandparents = couple(person({"Bento"}), person({"Inês", 'f'}));
    run("update individuo set famorig = ? where nind in (?, ?)", {grandparents, gil, rui});
    EXPECT_EQ(cases("T-08"), QStringList());
    run("update individuo set famorig = ? where nind = ?", {couple(person({"Ivo"}), 0), rui});
    EXPECT_EQ(cases("T-08"), QStringList()); // the mother isn't known: it may be the same one
    run("update individuo set famorig = ? where nind = ?", {couple(person({"Ivo"}), person({"Rosa", 'f'})), rui});
    EXPECT_EQ(cases("T-08"), QStringList("aviso: Rui (nº 1) consta no baptismo de Ana (nº 2) em 14/02/1770 como «Tio "
                                         "paterno» de Ana (nº 2), mas nas fichas tem outros pais."));
}

// Whom each relation that a pedigree can tell must lead to, and whom of the same house it must not.
TEST_F(AnAssistant, IsOfTheKinThatThePedigreeTells)
{
    const qint64 fathersFather = person({"Bento"}), fathersMother = person({"Inês", 'f'});
    const qint64 mothersFather = person({"Caetano"}), mothersMother = person({"Rosa", 'f'});
    const qint64 fathersHouse = couple(fathersFather, fathersMother),
                 mothersHouse = couple(mothersFather, mothersMother);
    const qint64 father = person({"Gil", 'm', "", "", fathersHouse}),
                 mother = person({"Eva", 'f', "", "", mothersHouse});
    const qint64 uncle = person({"Ivo", 'm', "", "", fathersHouse}), aunt = person({"Lia", 'f', "", "", mothersHouse});
    const qint64 house = couple(father, mother);
    const qint64 brother = person({"Luís", 'm', "", "", house}), sister = person({"Clara", 'f', "", "", house});
    run("update individuo set famorig = ?, datanasc = '1770-02-14' where nind = ?", {house, ana});
    struct Relation
    {
        int code;
        qint64 right, wrong;
    };
    for (const auto& [code, right, wrong] : {Relation{5, fathersFather, mothersFather},
                                             {6, fathersMother, mothersMother},
                                             {7, mothersFather, fathersFather},
                                             {8, mothersMother, fathersMother},
                                             {11, brother, uncle},
                                             {12, sister, aunt},
                                             {19, uncle, brother},
                                             {22, aunt, sister},
                                             {73, mothersFather, uncle},
                                             {74, fathersMother, aunt},
                                             {75, uncle, brother},
                                             {76, aunt, sister}})
    {
        run("delete from assistente");
        assists("b", ana, "1770-02-14", right);
        run("update assistente set parentbapt = ?", {code});
        EXPECT_EQ(cases("T-08"), QStringList()) << code;
        run("update assistente set nind = ?", {wrong});
        EXPECT_EQ(cases("T-08").size(), 1) << code;
    }
}

TEST_F(AnAssistant, IsSingleBeforeTheMarriage)
{
    names("EstCi", 1, "Solteiro");
    assists("b", ana, "1730-02-14", rui);
    run("update assistente set estadocivil = 1");
    marriesExactly(rui, person({"Eva", 'f'}), "1730-02-14");
    EXPECT_EQ(cases("T-09"), QStringList());
    run("update familia set datacasam = '1730-02-13'");
    EXPECT_EQ(cases("T-09"), QStringList("aviso: Rui (nº 1) consta como «Solteiro» no baptismo de Ana (nº 2) em "
                                         "14/02/1730, mas casou em 13/02/1730."));
    run("update familia set sfamilia = '5'"); // never married
    EXPECT_EQ(cases("T-09"), QStringList());
    run("update familia set sfamilia = '1', dcasamfixa = 0");
    EXPECT_EQ(cases("T-09"), QStringList());
}

TEST_F(AnAssistant, IsMarriedWhileTheSpouseLives)
{
    names("EstCi", 2, "Casado");
    assists("b", ana, "1730-02-14", rui);
    run("update assistente set estadocivil = 2");
    const qint64 eva = person({"Eva", 'f', "", "1730-02-14"});
    marriesExactly(rui, eva, "1725-01-10");
    EXPECT_EQ(cases("T-09"), QStringList());
    dies(eva, "1730-02-13");
    EXPECT_EQ(cases("T-09"), QStringList("aviso: Rui (nº 1) consta como «Casado» no baptismo de Ana (nº 2) em "
                                         "14/02/1730, mas Eva (nº 3), com quem casou, morreu em 13/02/1730."));
    marriesExactly(rui, person({"Rosa", 'f'}), "1730-02-14");
    EXPECT_EQ(cases("T-09"), QStringList());
    run("update familia set datacasam = '1730-02-15' where nfamilia = 2");
    EXPECT_EQ(cases("T-09"), QStringList("aviso: Rui (nº 1) consta como «Casado» no baptismo de Ana (nº 2) em "
                                         "14/02/1730, mas só casou em 15/02/1730."));
}

TEST_F(AnAssistant, IsWidowedAfterTheSpouse)
{
    names("EstCi", 3, "Viúvo");
    assists("b", ana, "1730-02-14", rui);
    run("update assistente set estadocivil = 3");
    const qint64 eva = person({"Eva", 'f', "", "1730-02-14"});
    marriesExactly(rui, eva, "1725-01-10");
    EXPECT_EQ(cases("T-09"), QStringList());
    dies(eva, "1730-02-15");
    EXPECT_EQ(cases("T-09"), QStringList("aviso: Rui (nº 1) consta como «Viúvo» no baptismo de Ana (nº 2) em "
                                         "14/02/1730, mas Eva (nº 3), com quem casou em 10/01/1725, só morreu em "
                                         "15/02/1730."));
    approximate();
    EXPECT_EQ(cases("T-09"), QStringList());
}
