// Plans of acts that stand on the cards already, in whole or in part, and what the plan tells of them.
#include "store/modBD.h"
#include "study/tellings.h"

using namespace study;

namespace {

class PlanOfAnActThatIsThere : public SmallParish
{
};

using WhatAPlanTells = PlanOfAnActThatIsThere;
using UndoOfAnAct = PlanOfAnActThatIsThere;

void overruleAll(Telling& told)
{
    for (const Objection& objection : told.plan().objections)
        told.overrule(objection.id);
}

} // namespace

TEST_F(PlanOfAnActThatIsThere, DoesNotWriteAssistantsAgain)
{
    const qint64 maria = person("Maria", "f"), rui = person("Rui", "m");
    Telling told = Telling::of(ActKind::Baptism, actDay);
    told.known(Role::Child, maria);
    told.known(Role::Godfather, rui);
    storeAct(cnBDP, told.act, told.conclusions);
    told.isNew(Role::Godmother, "Eva");
    overruleAll(told);
    const Plan plan = told.plan();
    ASSERT_EQ(objectionsOf(plan), QStringList());
    ASSERT_EQ(changesOf(plan, "assistente").size(), 1);
    EXPECT_EQ(changesOf(plan, "assistente")[0].key.last().second, 3.0);
    EXPECT_TRUE(plan.sentences.contains("nº 2 Rui já está na ficha como assistente deste acto."));
}

TEST_F(PlanOfAnActThatIsThere, DoesNotWriteMassesAndHeirsAgain)
{
    const qint64 eva = person("Eva", "f"), rui = person("Rui", "m");
    Telling told = Telling::of(ActKind::Burial, actDay);
    told.known(Role::Deceased, eva);
    const int heir = told.known(Role::Mentioned, rui);
    told.tell(heir, "herdeiro", "");
    told.fact(attribute::masses, "20 rezadas");
    told.fact(attribute::offices, "de 9 lições");
    storeAct(cnBDP, told.act, told.conclusions);
    EXPECT_EQ(value("select count(*) from rituaismorte").toInt(), 2);
    told.fact(attribute::alms, "aos pobres");
    overruleAll(told);
    const Plan plan = told.plan();
    ASSERT_EQ(objectionsOf(plan), QStringList());
    EXPECT_EQ(changesOf(plan, "rituaismorte").size(), 1) << "the alms";
    EXPECT_EQ(changesOf(plan, "legadosprofanos").size(), 0);
    for (const char* sentence : {"Missas «20 rezadas»: já está na ficha.", "nº 2 Rui já está na ficha como herdeiro."})
        EXPECT_TRUE(plan.sentences.contains(sentence)) << sentence;
}

TEST_F(PlanOfAnActThatIsThere, LeavesThePlaceOfThePriestWhoIsKeptInTheAct)
{
    const qint64 gil = person("Gil", "m");
    Telling told = Telling::of(ActKind::Baptism, actDay);
    told.isNew(Role::Child, "Maria");
    told.kept(Role::Celebrant, "o vigário");
    told.known(Role::Celebrant, gil);
    EXPECT_TRUE(setTo(told.plan(), "individuo", 2, "primpadrebapt").isNull());
    EXPECT_EQ(setTo(told.plan(), "individuo", 2, "segpadrebapt"), double(gil));
}

TEST_F(PlanOfAnActThatIsThere, AddsTheFunctionOfThePriestWhoStandsThere)
{
    const qint64 gil = person("Gil", "m");
    const qint64 maria = person("Maria", "f", {{"primpadrebapt", gil}});
    Telling told = Telling::of(ActKind::Baptism, actDay);
    told.known(Role::Child, maria);
    told.tell(told.known(Role::Celebrant, gil), attribute::office, "pároco");
    EXPECT_EQ(setTo(told.plan(), "individuo", maria, "funcprimpbapt"), 1);
    run("update individuo set funcprimpbapt = 4 where nind = ?", {maria});
    const Plan plan = told.plan();
    EXPECT_TRUE(setTo(plan, "individuo", maria, "funcprimpbapt").isNull());
    EXPECT_TRUE(plan.leftOut.contains("nº 1 Gil: cargo «pároco».")) << qPrintable(plan.leftOut.join('|'));
}

TEST_F(PlanOfAnActThatIsThere, TakesAPairOfColumnsForOneValue)
{
    const qint64 eva = person("Eva", "f", {{"localobito", "03030101"}, {"tipolocalobito", "S"}});
    Telling told = Telling::of(ActKind::Burial, actDay);
    told.known(Role::Deceased, eva);
    told.fact(attribute::deathPlace, "outeiro");
    told.conclusions.places["outeiro"] = {.code = "03030101", .level = 'L'};
    const QString left = "local do óbito de nº 1 Eva: na BDP está outro valor, que não se altera.";
    EXPECT_TRUE(told.plan().leftOut.contains(left));
    run("update individuo set localobito = null");
    EXPECT_TRUE(told.plan().leftOut.contains(left)) << "a level that stands there isn't overwritten";
    run("update individuo set tipolocalobito = null");
    EXPECT_FALSE(told.plan().leftOut.contains(left));
}

TEST_F(PlanOfAnActThatIsThere, LetsTheObservationFollowTheDateAsTheCardDoes)
{
    const qint64 eva = person("Eva", "f", {{"fimobs", QDate(1699, 1, 1)}, {"inicioobs", QDate(1650, 1, 1)}});
    Telling burial = Telling::of(ActKind::Burial, actDay);
    burial.known(Role::Deceased, eva);
    EXPECT_EQ(setTo(burial.plan(), "individuo", eva, "fimobs"), actDay);
    EXPECT_TRUE(burial.plan().sentences.contains("nº 1 Eva: fim de observação em 14/02/1702 (era 01/01/1699)."));
    Telling baptism = Telling::of(ActKind::Baptism, actDay);
    baptism.known(Role::Child, eva);
    EXPECT_EQ(setTo(baptism.plan(), "individuo", eva, "inicioobs"), actDay);
    const qint64 rui = person("Rui", "m"), theirs = family({rui, eva}, {{"inicioobs", QDate(1690, 1, 1)}});
    Telling marriage = Telling::of(ActKind::Marriage, actDay);
    marriage.known(Role::Groom, rui);
    marriage.known(Role::Bride, eva);
    EXPECT_EQ(setTo(marriage.plan(), "familia", theirs, "inicioobs"), actDay);
    EXPECT_TRUE(marriage.plan().sentences.contains("Família 1: início de observação em 14/02/1702 (era 01/01/1690)."));
}

TEST_F(PlanOfAnActThatIsThere, ReadsAQuantityOnlyWhereThereIsOne)
{
    struct Case
    {
        const char* text;
        QVariant quantity;
    };
    for (const auto& [text, quantity] : {Case{"20 rezadas", 20.0},
                                         {"20", 20.0},
                                         {"3 de 9 lições", 3.0},
                                         {"1 alqueire", 1.0},
                                         {"1/2 alqueire", {}},
                                         {"200 réis", {}},
                                         {"200 reis", {}},
                                         {"3.º ofício", {}},
                                         {"7º dia", {}},
                                         {"2 mil réis", {}},
                                         {"5 tostões", {}},
                                         {"1.000", {}},
                                         {"2$400", {}},
                                         {"muitas", {}}})
    {
        Telling told = Telling::of(ActKind::Burial, actDay);
        told.isNew(Role::Deceased, "Eva");
        told.fact(attribute::alms, text);
        QVariant found;
        for (const RowChange& row : changesOf(told.plan(), "rituaismorte"))
            found = valueIn(row.values, "quantidade");
        EXPECT_EQ(found, quantity) << text;
    }
}

TEST_F(PlanOfAnActThatIsThere, TakesNoOtherPlaceForTheOwnParish)
{
    Telling told = Telling::of(ActKind::Burial, actDay);
    told.isNew(Role::Deceased, "Eva");
    EXPECT_EQ(setTo(told.plan(), "individuo", 1, "localobito"), "030301");
    told.fact(attribute::deathPlace, "Lisboa");
    EXPECT_TRUE(setTo(told.plan(), "individuo", 1, "localobito").isNull());
    EXPECT_TRUE(told.plan().leftOut.contains("Acto: lugar do óbito «Lisboa»."));
    told.act.facts[0].told.value = "desta freguesia";
    EXPECT_EQ(setTo(told.plan(), "individuo", 1, "localobito"), "030301");
}

TEST_F(PlanOfAnActThatIsThere, MakesAProfessionAsItsEditorDoes)
{
    Telling told = Telling::of(ActKind::Baptism, actDay);
    const int child = told.isNew(Role::Child, "Maria");
    told.tell(told.isNew(Role::Father, "Rui", child), attribute::profession, "tamanqueiro");
    told.conclusions.professions["tamanqueiro"] = 0;
    const auto before = cardRows();
    const qint64 act = storeAct(cnBDP, told.act, told.conclusions).act;
    EXPECT_EQ(value("select obs from profissao where codprof = 4"), "");
    EXPECT_FALSE(value("select obs from profissao where codprof = 4").isNull());
    EXPECT_EQ(undoAct(cnBDP, act), "");
    EXPECT_EQ(cardRows(), before);
}

TEST_F(WhatAPlanTells, OfTheFamilyIsThatOfWhomTheActIsAbout)
{
    Telling foundling = Telling::of(ActKind::Baptism, actDay);
    foundling.isNew(Role::Child, "Maria");
    const int godmother = foundling.isNew(Role::Godmother, "Ana");
    foundling.isNew(Role::Spouse, "Rui", godmother);
    EXPECT_EQ(foundling.plan().families, QList<qint64>{1});
    EXPECT_EQ(foundling.plan().family, 0);
    const int child = 0;
    foundling.isNew(Role::Mother, "Eva", child);
    const Plan plan = foundling.plan();
    EXPECT_EQ(plan.family, plan.families.first());
    EXPECT_EQ(setTo(plan, "individuo", 1, "famorig"), double(plan.family));
    Telling burial = Telling::of(ActKind::Burial, actDay);
    burial.isNew(Role::Spouse, "Rui", burial.isNew(Role::Deceased, "Eva"));
    EXPECT_EQ(burial.plan().family, 1);
}

TEST_F(WhatAPlanTells, ShowsWhatFollowsWhereOneParentIsTold)
{
    Telling told = Telling::of(ActKind::Baptism, actDay);
    const int child = told.isNew(Role::Child, "Maria");
    told.isNew(Role::Mother, "Eva", child);
    EXPECT_TRUE(told.plan().sentences.contains("O acto não diz o pai de Maria: toma-se por incógnito."));
    told.tell(child, attribute::filiation, "legítima");
    EXPECT_FALSE(told.plan().sentences.contains("O acto não diz o pai de Maria: toma-se por incógnito."));

    Telling kept = Telling::of(ActKind::Baptism, actDay);
    kept.isNew(Role::Child, "Maria");
    kept.isNew(Role::Mother, "Eva", kept.kept(Role::Godmother, "Ana"));
    EXPECT_TRUE(kept.plan().leftOut.contains("nº 2 Eva (mãe): nada liga esta ficha, porque Ana fica só no acto."))
        << qPrintable(kept.plan().leftOut.join('|'));
}

TEST_F(UndoOfAnAct, IsRefusedWhereACardHasGivenTheFamilyAChildSince)
{
    const qint64 rui = person("Rui", "m"), theirs = family({rui});
    const qint64 gil = person("Gil", "m", {{"famorig", theirs}});
    Telling told = Telling::of(ActKind::Burial, actDay);
    const int deceased = told.known(Role::Deceased, gil);
    told.known(Role::Father, rui, deceased);
    told.isNew(Role::Mother, "Ana", deceased);
    const auto before = cardRows();
    const qint64 act = storeAct(cnBDP, told.act, told.conclusions).act;
    ASSERT_EQ(value("select count(*) from familias where nfamilia = ?", {theirs}).toInt(), 2);
    EXPECT_EQ(whyNotUndone(cnBDP, act), "") << "the child who was there before";
    const qint64 later = person("Zé", "m", {{"famorig", theirs}});
    EXPECT_EQ(whyNotUndone(cnBDP, act),
              "A família nº 1, em que este acto fez entrar o indivíduo nº 3, tem desde então outro filho: nº 4.");
    run("delete from individuo where nind = ?", {later});
    EXPECT_EQ(undoAct(cnBDP, act), "");
    EXPECT_EQ(cardRows(), before);
}

TEST_F(PlanOfAnActThatIsThere, LeavesAMarriageThatHasItsDateButAddsWhatItLacks)
{
    const qint64 rui = person("Rui", "m"), eva = person("Eva", "f"), gil = person("Gil", "m");
    const QDate known(1700, 5, 1);
    const qint64 theirs = family({rui, eva}, {{"datacasam", known}, {"dcasamfixa", true}, {"inicioobs", known}});
    Telling told = Telling::of(ActKind::Marriage, actDay);
    told.known(Role::Groom, rui);
    told.known(Role::Bride, eva);
    told.known(Role::Celebrant, gil);
    told.isNew(Role::Witness, "Simão");
    overruleAll(told);
    const Plan plan = told.plan();
    ASSERT_EQ(objectionsOf(plan), QStringList());
    EXPECT_TRUE(setTo(plan, "familia", theirs, "datacasam").isNull());
    EXPECT_TRUE(setTo(plan, "familia", theirs, "inicioobs").isNull());
    EXPECT_EQ(setTo(plan, "familia", theirs, "localcasam"), "030301");
    EXPECT_EQ(setTo(plan, "familia", theirs, "primpadrecasam"), double(gil));
    EXPECT_EQ(changesOf(plan, "assistente").size(), 1);
    EXPECT_TRUE(plan.leftOut.contains("data do casamento: na BDP está outro valor, que não se altera."));
}

TEST_F(PlanOfAnActThatIsThere, NamesTheProxyWhoIsKnown)
{
    const qint64 gil = person("Gil Dias", "m");
    Telling told = Telling::of(ActKind::Baptism, actDay);
    told.isNew(Role::Child, "Maria");
    const int godfather = told.isNew(Role::Godfather, "Rui");
    told.act.people[told.known(Role::Proxy, gil, godfather)].name = {};
    const QList<RowChange> rows = changesOf(told.plan(), "assistente");
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(valueIn(rows[0].values, "obs"), "por procuração a Gil Dias");
}

TEST_F(UndoOfAnAct, LeavesAPlaceAndAProfessionThatOthersUse)
{
    Telling told = Telling::of(ActKind::Baptism, actDay);
    const int father = told.isNew(Role::Father, "Rui", told.isNew(Role::Child, "Maria"));
    told.tell(father, attribute::profession, "tamanqueiro");
    told.tell(father, attribute::residence, "Poucapena");
    told.conclusions.professions["tamanqueiro"] = 0;
    told.conclusions.places["Poucapena"] = {.name = "Poucapena"};
    struct Use
    {
        const char* statement;
        int places, professions; // that stay
    };
    for (const auto& [statement, places, professions] :
         {Use{"update individuo set localnasc = '03030103', tipolocalnasc = 'L' where nind = 1", 3, 3},
          {"update individuo set localobito = '03030103', tipolocalobito = 'L' where nind = 1", 3, 3},
          {"insert into sitio (codsitio, nomesitio, codlugar) values ('0303010301', 'Eira', '03030103')", 3, 3},
          {"insert into profissoes (nind, idprofissao, codprof) values (1, 1, 4)", 2, 4}})
    {
        run("delete from individuo");
        run("delete from profissoes");
        run("delete from sitio");
        run("delete from lugar where codlugar = '03030103'");
        run("delete from profissao where codprof = 4");
        person("Gil", "m");
        const qint64 act = storeAct(cnBDP, told.act, told.conclusions).act;
        run(statement);
        EXPECT_EQ(undoAct(cnBDP, act), "") << statement;
        EXPECT_EQ(value("select count(*) from lugar").toInt(), places) << statement;
        EXPECT_EQ(value("select count(*) from profissao").toInt(), professions) << statement;
    }
}
