// What a burial writes.
#include "study/tellings.h"

using namespace study;

namespace {

class PlanOfABurial : public SmallParish
{
protected:
    QVariant column(const char* name) const { return setTo(told.plan(), "individuo", 1, name); }

    Telling told = Telling::of(ActKind::Burial, actDay);
};

} // namespace

TEST_F(PlanOfABurial, WritesTheDeathOfSomebodyNew)
{
    const int dead = told.isNew(Role::Deceased, "Rui Dias");
    told.act.people[dead].toldSex = Sex::Male;
    told.tell(dead, attribute::age, "60 anos");
    told.tell(dead, attribute::civilState, "viúvo");
    told.fact(attribute::sacraments, "todos");
    told.fact(attribute::cause, "febres");
    told.fact(attribute::will, "s");
    told.fact(attribute::shroud, "hábito de São Francisco");
    told.fact(attribute::church, "matriz");
    told.fact(attribute::grave, "cova 3");
    const Plan plan = told.plan();
    EXPECT_EQ(objectionsOf(plan), QStringList());
    EXPECT_EQ(plan.leftOut, QStringList());
    EXPECT_EQ(plan.rows, (QList<RowChange>{{.table = "individuo",
                                            .key = {{"nind", 1.0}},
                                            .values = {{"nome", "Rui Dias"},
                                                       {"sexo", "m"},
                                                       {"DnascFixa", false},
                                                       {"dataobito", actDay},
                                                       {"dobitofixa", true},
                                                       {"fimobs", actDay},
                                                       {"tipo", "2"},
                                                       {"localobito", "030301"},
                                                       {"tipolocalobito", "F"},
                                                       {"idadeobito", 60.0},
                                                       {"estadoobito", 3},
                                                       {"sacramentos", 1},
                                                       {"testam", true},
                                                       {"causa", "febres"},
                                                       {"mortalha", "hábito de São Francisco"},
                                                       {"igreja", "matriz"},
                                                       {"enterro", "cova 3"}}}}));
    EXPECT_EQ(plan.sentences,
              (QStringList{"Óbito de Rui Dias (nº 1, nova ficha) em 14/02/1702.",
                           "Na ficha de nº 1 Rui Dias: óbito em Santa Maria; idade ao óbito 60; estado civil ao óbito "
                           "Viúvo; sacramentos Todos (confissão, viático e extrema-unção); com testamento; causa da "
                           "morte febres; mortalha hábito de São Francisco; igreja matriz; sepultura cova 3."}));
}

TEST_F(PlanOfABurial, TakesAnInfantForAMinorOfNoYears)
{
    const int dead = told.isNew(Role::Deceased, "Rui");
    told.tell(dead, attribute::age, "4 meses");
    EXPECT_EQ(column("idadeobito"), 0.0);
    EXPECT_EQ(column("menor"), true);
    told.act.people[dead].attributes[0].told.value = "6 anos";
    EXPECT_EQ(column("menor"), true);
    told.act.people[dead].attributes[0].told.value = "7 anos";
    EXPECT_TRUE(column("menor").isNull());
    told.tell(dead, attribute::minor, "s");
    EXPECT_EQ(column("menor"), true);
}

TEST_F(PlanOfABurial, TakesTheParishClassAndThePoor)
{
    const int dead = told.isNew(Role::Deceased, "Rui");
    told.tell(dead, attribute::poor, "s");
    EXPECT_EQ(column("classparoquial"), 8.0);
    told.tell(dead, attribute::parishClass, "inocente");
    EXPECT_EQ(column("classparoquial"), 1);
    EXPECT_EQ(column("menor"), true) << "it says so";
}

TEST_F(PlanOfABurial, FillsTheBoxesThatAnAlterationOnTheCardLeavesOff)
{
    const qint64 rui = person("Rui", "m", {{"menor", false}, {"testam", false}});
    const int dead = told.known(Role::Deceased, rui);
    told.fact(attribute::will, "s");
    told.tell(dead, attribute::minor, "s");
    EXPECT_EQ(column("testam"), true);
    EXPECT_EQ(column("menor"), true);
    EXPECT_EQ(told.plan().leftOut, QStringList());
}

TEST_F(PlanOfABurial, SaysThatThereWasNoWillOnlyInTheAct)
{
    told.isNew(Role::Deceased, "Rui");
    told.fact(attribute::will, "não");
    EXPECT_TRUE(column("testam").isNull());
    EXPECT_EQ(told.plan().leftOut, QStringList("Sem testamento: a ficha não o diz, e fica só no acto."));
    told.act.facts[0].told.value = "fez em 1701";
    EXPECT_EQ(column("testam"), true);
    EXPECT_EQ(told.plan().leftOut, QStringList("Testamento: «fez em 1701»."));
}

TEST_F(PlanOfABurial, WritesASuffrageForEachThatIsTold)
{
    const qint64 rui = person("Rui", "m");
    run("insert into rituaismorte (nind, idlegpio) values (1, 4)");
    told.known(Role::Deceased, rui);
    told.fact(attribute::offices, "3 de 9 lições");
    told.fact(attribute::masses, "20");
    told.fact(attribute::masses, "missas rezadas por sua alma");
    told.fact(attribute::alms, "não");
    const QList<RowChange> rows = changesOf(told.plan(), "rituaismorte");
    const auto row = [](double number, const RowChange::Columns& values) {
        return RowChange{.table = "rituaismorte", .key = {{"nind", 1.0}, {"idlegpio", number}}, .values = values};
    };
    EXPECT_EQ(rows, (QList{row(5, {{"tipolegpio", "oficio"},
                                   {"tipo", 7.0},
                                   {"quantidade", 3.0},
                                   {"tipoMoeda", "Es"},
                                   {"obs", "3 de 9 lições"}}),
                           row(6, {{"tipolegpio", "missa"}, {"quantidade", 20.0}, {"tipoMoeda", "Es"}, {"obs", "20"}}),
                           row(7, {{"tipolegpio", "missa"},
                                   {"tipo", 1.0},
                                   {"tipoMoeda", "Es"},
                                   {"obs", "missas rezadas por sua alma"}})}));
    EXPECT_EQ(told.plan().leftOut, QStringList("Acto: esmolas «não»."));
}

TEST_F(PlanOfABurial, NamesTheHeirs)
{
    const int dead = told.isNew(Role::Deceased, "Rui");
    const int heir = told.isNew(Role::Mentioned, "Ana", dead);
    told.act.people[heir].toldSex = Sex::Female;
    told.tell(heir, "herdeira", "s");
    told.relate(heir, "filha", dead);
    told.isNew(Role::Mentioned, "outro", dead);
    const Plan plan = told.plan();
    EXPECT_EQ(changesOf(plan, "legadosprofanos"),
              (QList{RowChange{.table = "legadosprofanos",
                               .key = {{"nind", 1.0}, {"idlegprof", 1.0}},
                               .values = {{"nindherd", 2.0}, {"parentesco", 4.0}}}}));
    EXPECT_TRUE(plan.sentences.contains("Herdeira: nº 2 Ana."));
}

TEST_F(PlanOfABurial, MakesTheFamilyOfTheDeceasedAndTheSpouse)
{
    const int dead = told.isNew(Role::Deceased, "Ana");
    told.act.people[dead].toldSex = Sex::Female;
    told.isNew(Role::Spouse, "Rui", dead);
    told.isNew(Role::Father, "Gil", dead);
    const Plan plan = told.plan();
    EXPECT_EQ(setTo(plan, "individuo", 1, "famorig"), 1.0);
    EXPECT_EQ(setTo(plan, "familia", 1, "sfamilia"), "2");
    EXPECT_EQ(changesOf(plan, "familias")[1].key, (RowChange::Columns{{"nfamilia", 2.0}, {"nind", 2.0}}));
    EXPECT_EQ(changesOf(plan, "familias")[2].key, (RowChange::Columns{{"nfamilia", 2.0}, {"nind", 1.0}}));
}

TEST_F(PlanOfABurial, TellsHusbandAndWifeByTheSexOfEither)
{
    told.isNew(Role::Deceased, "Trindade");
    told.known(Role::Spouse, person("Ana", "f"), 0);
    const QList<RowChange> members = changesOf(told.plan(), "familias");
    EXPECT_EQ(members[0].key.last().second, 2.0) << "the deceased, whose sex isn't told, is the husband";
    EXPECT_EQ(members[1].key.last().second, 1.0);
}

TEST_F(PlanOfABurial, LeavesADeathThatIsKnownAsItIs)
{
    const qint64 rui = person("Rui", "m", {{"dataobito", actDay.addDays(-3)}, {"dobitofixa", true}, {"tipo", "2"}});
    told.known(Role::Deceased, rui);
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("ja-sepultado:0"));
    told.overrule("ja-sepultado:0");
    EXPECT_EQ(changeOf(told.plan(), "individuo", rui)->values,
              (RowChange::Columns{{"localobito", "030301"}, {"tipolocalobito", "F"}}));
    EXPECT_EQ(told.plan().leftOut,
              QStringList("data do óbito de nº 1 Rui: na BDP está outro valor, que não se altera."));
}

TEST_F(PlanOfABurial, LeavesWitnessesAndTheSecondPriestInTheAct)
{
    told.isNew(Role::Deceased, "Rui");
    const int first = told.isNew(Role::Celebrant, "padre João"), second = told.isNew(Role::Celebrant, "padre José");
    told.isNew(Role::Witness, "Gil");
    told.tell(first, attribute::office, "vigário");
    const Plan plan = told.plan();
    EXPECT_EQ(column("primpadreobito"), double(plan.people[first]));
    EXPECT_EQ(column("funcprimpobito"), 4);
    EXPECT_EQ(plan.leftOut, (QStringList{"Celebrante nº 3 Padre José: a ficha não tem lugar para mais um.",
                                         "Testemunha nº 4 Gil: a ficha de um óbito não as tem."}));
    EXPECT_NE(plan.people[second], 0);
}

TEST_F(PlanOfABurial, MakesNoWillOfOneThatIsDenied)
{
    told.isNew(Role::Deceased, "Rui");
    told.fact(attribute::will, "");
    for (const char* text : {"não fez testamento", "sem testamento", "não testou", "faleceu abintestado"}) {
        told.act.facts[0].told.value = text;
        EXPECT_TRUE(column("testam").isNull()) << text;
        EXPECT_EQ(told.plan().leftOut, QStringList("Sem testamento: a ficha não o diz, e fica só no acto.")) << text;
    }
    told.act.facts[0].told.value = "morreu sem o fazer";
    EXPECT_TRUE(column("testam").isNull());
    EXPECT_EQ(told.plan().leftOut, QStringList("Acto: testamento «morreu sem o fazer»."));
}

TEST_F(PlanOfABurial, MakesNoSuffrageOfOneThatIsDenied)
{
    told.isNew(Role::Deceased, "Rui");
    told.fact(attribute::masses, "não deixou");
    told.fact(attribute::masses, "sem missas");
    told.fact(attribute::alms, "nenhumas esmolas");
    EXPECT_TRUE(changesOf(told.plan(), "rituaismorte").isEmpty());
    EXPECT_EQ(told.plan().leftOut.size(), 3);
}

TEST_F(PlanOfABurial, TakesTheKinshipOfAnHeirWithTheDeceasedAlone)
{
    const int dead = told.isNew(Role::Deceased, "Rui"), widow = told.isNew(Role::Spouse, "Eva", dead);
    const int heir = told.isNew(Role::Mentioned, "Ana", dead);
    told.act.people[heir].toldSex = Sex::Female;
    told.act.people[heir].notes = "ausente";
    told.tell(heir, "herdeira", "");
    told.relate(heir, "irmã", widow);
    EXPECT_EQ(changesOf(told.plan(), "legadosprofanos")[0].values,
              (RowChange::Columns{{"nindherd", 3.0}, {"obs", "ausente"}}));
    EXPECT_EQ(told.plan().leftOut, QStringList("nº 3 Ana: relação «irmã»."));
    told.act.people[heir].attributes[0].told.value = "não";
    EXPECT_TRUE(changesOf(told.plan(), "legadosprofanos").isEmpty());
    told.act.people[heir].attributes.clear();
    told.relate(heir, "herdeira", dead);
    EXPECT_EQ(changesOf(told.plan(), "legadosprofanos").size(), 1);
    EXPECT_EQ(told.plan().leftOut, QStringList("nº 3 Ana: relação «irmã»."));
    told.act.relations[1].other = widow;
    EXPECT_TRUE(changesOf(told.plan(), "legadosprofanos").isEmpty()) << "of somebody else";
}

TEST_F(PlanOfABurial, TellsTheSexOfANewSpouseByThatOfTheOther)
{
    const int dead = told.known(Role::Deceased, person("Rui", "m"));
    told.isNew(Role::Spouse, "Ana", dead);
    EXPECT_EQ(setTo(told.plan(), "individuo", 2, "sexo"), "f");
}

TEST_F(PlanOfABurial, TakesTheRoughAgeWhereTheOtherCanNotBeRead)
{
    const int dead = told.isNew(Role::Deceased, "Rui");
    told.tell(dead, attribute::age, "maior");
    told.tell(dead, attribute::roughAge, "60");
    EXPECT_EQ(column("idadeobito"), 60.0);
}
