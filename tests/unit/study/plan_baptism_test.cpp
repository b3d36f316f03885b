// What a baptism writes.
#include "study/tellings.h"

#include "study/acts/act.h"

using namespace study;

namespace {

Telling toldBaptism()
{
    return Telling::of(ActKind::Baptism, actDay);
}

using Columns = RowChange::Columns;

class PlanOfABaptism : public SmallParish
{
};

} // namespace

TEST_F(PlanOfABaptism, MakesAChildAndTheFamilyOfItsParents)
{
    Telling told = toldBaptism();
    const int child = told.isNew(Role::Child, "Maria");
    told.act.people[child].toldSex = Sex::Female;
    told.isNew(Role::Father, "Manuel de Abreu", child);
    told.isNew(Role::Mother, "Joana", child);
    const Plan plan = told.plan();
    EXPECT_EQ(objectionsOf(plan), QStringList());
    EXPECT_EQ(plan.people, (QList<qint64>{1, 2, 3}));
    EXPECT_EQ(plan.families, QList<qint64>{1});
    const QList<RowChange> rows{
        {.table = "individuo",
         .key = {{"nind", 1.0}},
         .values = {{"nome", "Maria"},
                    {"sexo", "f"},
                    {"dobitofixa", false},
                    {"famorig", 1.0},
                    {"datanasc", actDay},
                    {"DnascFixa", true},
                    {"inicioobs", actDay},
                    {"tipo", "1"},
                    {"localnasc", "030301"},
                    {"tipolocalnasc", "F"},
                    {"filiacao", 1.0}}},
        {.table = "individuo",
         .key = {{"nind", 2.0}},
         .values =
             {{"nome", "Manuel de Abreu"}, {"tipo", "3"}, {"sexo", "m"}, {"DnascFixa", false}, {"dobitofixa", false}}},
        {.table = "individuo",
         .key = {{"nind", 3.0}},
         .values = {{"nome", "Joana"}, {"tipo", "3"}, {"sexo", "f"}, {"DnascFixa", false}, {"dobitofixa", false}}},
        {.table = "familia",
         .key = {{"nfamilia", 1.0}},
         .values = {{"sfamilia", "2"}, {"dcasamfixa", false}, {"tipocasal", 7.0}}},
        {.table = "familias", .key = {{"nfamilia", 1.0}, {"nind", 2.0}}},
        {.table = "familias", .key = {{"nfamilia", 1.0}, {"nind", 3.0}}},
    };
    EXPECT_EQ(plan.rows, rows);
    const QString first = "Nova criança Maria (nº 1), filha da família 1 de Manuel de Abreu e Joana, baptismo em "
                          "14/02/1702.";
    EXPECT_EQ(plan.sentences,
              (QStringList{first, "Pai: nº 2 Manuel de Abreu, nova ficha.", "Mãe: nº 3 Joana, nova ficha.",
                           "Nova família 1: Manuel de Abreu e Joana (presumida legítima, sem registo do casamento).",
                           "Na ficha de nº 1 Maria: nascimento em Santa Maria; filiação Legítima."}));
    EXPECT_EQ(plan.leftOut, QStringList());
}

TEST_F(PlanOfABaptism, StoresWhatItPlans)
{
    Telling told = toldBaptism();
    const int child = told.isNew(Role::Child, "Maria");
    told.isNew(Role::Father, "Manuel de Abreu", child);
    const Plan plan = told.plan();
    const Stored stored = storeAct(cnBDP, told.act, told.conclusions);
    EXPECT_EQ(stored.plan, plan);
    EXPECT_EQ(value("select nome from individuo where nind = 2"), "Manuel de Abreu");
}

TEST_F(PlanOfABaptism, FindsTheFamilyThatBothParentsAreIn)
{
    const qint64 father = person("Manuel", "m"), mother = person("Joana", "f"), other = person("Ana", "f");
    family({father, other});
    const qint64 theirs = family({father, mother}, {{"datacasam", QDate(1700, 1, 1)}, {"tipocasal", 4}});
    Telling told = toldBaptism();
    const int child = told.isNew(Role::Child, "Maria");
    told.known(Role::Father, father, child);
    told.known(Role::Mother, mother, child);
    const Plan plan = told.plan();
    EXPECT_EQ(setTo(plan, "individuo", plan.people[child], "famorig"), double(theirs));
    EXPECT_TRUE(changesOf(plan, "familia").isEmpty());
    EXPECT_EQ(plan.families, QList<qint64>{theirs});
}

TEST_F(PlanOfABaptism, MakesAFamilyOfAnUnmarriedMotherAndFindsItAgain)
{
    const qint64 mother = person("Joana", "f");
    Telling told = toldBaptism();
    const int child = told.isNew(Role::Child, "Maria");
    told.known(Role::Mother, mother, child);
    const Stored first = storeAct(cnBDP, told.act, told.conclusions);
    EXPECT_EQ(setTo(first.plan, "familia", 1, "sfamilia"), "3");
    EXPECT_EQ(setTo(first.plan, "individuo", first.plan.people[child], "filiacao"), 3.0);
    told.act.date = partialDate(actDay.addYears(2));
    told.act.number = "8";
    const Plan second = told.plan();
    EXPECT_TRUE(changesOf(second, "familia").isEmpty());
    EXPECT_EQ(second.families, QList<qint64>{1});
}

TEST_F(PlanOfABaptism, TakesTheFiliationFromTheWordOfTheAct)
{
    const struct
    {
        const char* type;
        const char* value;
        bool father, mother;
        double code;
        const char* situation;
    } cases[] = {
        {attribute::illegitimate, "s", true, true, 2, "5"},
        {attribute::illegitimate, "s", false, true, 3, "3"},
        {attribute::illegitimate, "s", true, false, 4, "4"},
        {attribute::illegitimate, "adulterino", true, true, 7, "5"},
        {attribute::filiation, "legítima", true, true, 1, "2"},
        {attribute::filiation, "póstuma", true, true, 15, "2"},
        {attribute::foundling, "na porta", false, false, 6, ""},
        {attribute::illegitimate, "s", false, false, 5, ""},
        {attribute::filiation, "ilegítima", true, true, 2, "5"},
        {attribute::filiation, "bastardo", false, true, 3, "3"},
        {attribute::filiation, "natural", true, true, 2, "5"},
        {attribute::filiation, "legítima", false, true, 1, "2"},
        {attribute::filiation, "póstuma", false, true, 15, "2"},
        {attribute::illegitimate, "não", true, true, 1, "2"},
        {attribute::foundling, "n", true, true, 1, "2"},
    };
    for (const auto& one : cases) {
        Telling told = toldBaptism();
        const int child = told.isNew(Role::Child, "Maria");
        if (one.father) told.isNew(Role::Father, "Manuel", child);
        if (one.mother) told.isNew(Role::Mother, "Joana", child);
        told.tell(child, one.type, one.value);
        const Plan plan = told.plan();
        EXPECT_EQ(setTo(plan, "individuo", 1, "filiacao"), one.code) << one.type << one.value;
        EXPECT_EQ(setTo(plan, "familia", 1, "sfamilia").toString(), one.situation) << one.type << one.value;
    }
}

TEST_F(PlanOfABaptism, DoesNotCallAChildFatherlessWhoseFatherCanNotBeRead)
{
    Telling told = toldBaptism();
    const int child = told.isNew(Role::Child, "Maria");
    told.kept(Role::Father, "?", child);
    told.isNew(Role::Mother, "Joana", child);
    const Plan plan = told.plan();
    EXPECT_EQ(setTo(plan, "individuo", 1, "filiacao"), 1.0);
    EXPECT_EQ(setTo(plan, "familia", 1, "sfamilia"), "2");
    EXPECT_EQ(plan.people, (QList<qint64>{1, 0, 2}));
    EXPECT_TRUE(plan.sentences.contains("Pai: ?, só no acto."));
}

TEST_F(PlanOfABaptism, KeepsWhatIsToldOfTheParentsWithTheChild)
{
    Telling told = toldBaptism();
    const int child = told.isNew(Role::Child, "Maria");
    const int father = told.isNew(Role::Father, "Manuel", child), mother = told.isNew(Role::Mother, "Joana", child);
    told.tell(father, attribute::age, "40");
    told.tell(father, attribute::civilState, "casado");
    told.tell(mother, attribute::roughAge, "30 anos");
    told.tell(mother, attribute::civilState, "c");
    told.act.people[child].notes = "nasceu a 2";
    told.act.notes = "Baptizada em casa";
    const Plan plan = told.plan();
    EXPECT_EQ(setTo(plan, "individuo", 1, "idadepai"), 40.0);
    EXPECT_EQ(setTo(plan, "individuo", 1, "idademae"), 30.0);
    EXPECT_EQ(setTo(plan, "individuo", 1, "estadocivilpai"), 2);
    EXPECT_EQ(setTo(plan, "individuo", 1, "estadocivilmae"), 2);
    EXPECT_EQ(setTo(plan, "individuo", 1, "obs"), "nasceu a 2\nBaptizada em casa");
    EXPECT_EQ(plan.leftOut, QStringList());
}

TEST_F(PlanOfABaptism, TakesTheBirthplaceThatIsToldInsteadOfTheOwnParish)
{
    Telling told = toldBaptism();
    const int child = told.isNew(Role::Child, "Maria");
    told.tell(child, attribute::birthplace, "outeiro");
    EXPECT_TRUE(setTo(told.plan(), "individuo", 1, "localnasc").isNull()) << "elsewhere, and nobody said where";
    EXPECT_EQ(told.plan().leftOut, QStringList("nº 1 Maria: naturalidade «outeiro»."));
    told.conclusions.places["outeiro"] = {.code = "03030101", .level = 'L'};
    EXPECT_EQ(setTo(told.plan(), "individuo", 1, "localnasc"), "03030101");
    EXPECT_EQ(setTo(told.plan(), "individuo", 1, "tipolocalnasc"), "L");
    EXPECT_EQ(told.plan().leftOut, QStringList());
}

TEST_F(PlanOfABaptism, StoresADateThatIsNotWholeAsOneThatIsNotFixed)
{
    Telling told = toldBaptism();
    told.act.date = {.year = 1702, .month = 2};
    told.isNew(Role::Child, "Maria");
    EXPECT_EQ(setTo(told.plan(), "individuo", 1, "datanasc"), QDate(1702, 2, 1));
    EXPECT_EQ(setTo(told.plan(), "individuo", 1, "DnascFixa"), false);
    told.act.date = {.year = 1702, .month = 2, .day = 14, .about = true};
    EXPECT_EQ(setTo(told.plan(), "individuo", 1, "datanasc"), actDay);
    EXPECT_EQ(setTo(told.plan(), "individuo", 1, "DnascFixa"), false);
}

TEST_F(PlanOfABaptism, FillsOnlyWhatIsEmptyOfAChildWhoIsKnown)
{
    const qint64 maria = person("Maria", "d",
                                {{"tipo", "2"},
                                 {"dataobito", QDate(1705, 3, 1)},
                                 {"dobitofixa", true},
                                 {"localnasc", "03030101"},
                                 {"tipolocalnasc", "L"},
                                 {"obs", "à mão"}});
    Telling told = toldBaptism();
    const int child = told.known(Role::Child, maria);
    told.act.people[child].toldSex = Sex::Female;
    told.act.notes = "outra";
    const Plan plan = told.plan();
    const RowChange change{
        .table = "individuo",
        .key = {{"nind", double(maria)}},
        .values = {{"sexo", "f"}, {"datanasc", actDay}, {"DnascFixa", true}, {"inicioobs", actDay}, {"tipo", "4"}},
        .before = {
            {"sexo", "d"}, {"datanasc", QVariant()}, {"DnascFixa", false}, {"inicioobs", QVariant()}, {"tipo", "2"}}};
    EXPECT_EQ(plan.rows, QList{change});
    EXPECT_EQ(objectionsOf(plan), QStringList());
    EXPECT_EQ(plan.leftOut, QStringList("notas do acto: na BDP está outro valor, que não se altera."));
}

TEST_F(PlanOfABaptism, ObjectsToAnotherWordOnTheChild)
{
    const qint64 maria = person("Maria", "f", {{"filiacao", 6}, {"idadepai", 50}, {"estadocivilmae", 2}});
    Telling told = toldBaptism();
    const int child = told.known(Role::Child, maria);
    const int father = told.isNew(Role::Father, "Manuel", child), mother = told.isNew(Role::Mother, "Joana", child);
    told.tell(father, attribute::age, "50");
    told.tell(mother, attribute::civilState, "casada");
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("difere-filiacao:0"));
    told.overrule("difere-filiacao:0");
    const Plan plan = told.plan();
    EXPECT_EQ(objectionsOf(plan), QStringList());
    EXPECT_TRUE(setTo(plan, "individuo", maria, "filiacao").isNull());
    EXPECT_EQ(plan.leftOut, QStringList("filiação: na BDP está outro valor, que não se altera."));
}

TEST_F(PlanOfABaptism, FillsWhatAnAlterationOnTheCardLeavesEmpty)
{
    const qint64 maria = person("Maria", "f", {{"idademae", 0}, {"alcunha", "  "}});
    Telling told = toldBaptism();
    const int child = told.known(Role::Child, maria);
    const int mother = told.isNew(Role::Mother, "Joana", child);
    told.tell(mother, attribute::age, "30");
    told.tell(child, attribute::nickname, "a Ruiva");
    const Plan plan = told.plan();
    EXPECT_EQ(objectionsOf(plan), QStringList());
    EXPECT_EQ(setTo(plan, "individuo", maria, "idademae"), 30.0);
    EXPECT_EQ(setTo(plan, "individuo", maria, "alcunha"), "a Ruiva");
    EXPECT_EQ(plan.leftOut, QStringList());
}

TEST_F(PlanOfABaptism, ConcludesNothingFromAFiliationThatCanNotBeRead)
{
    for (const char* word : {"?", "não legítima", "filha de Deus"}) {
        Telling told = toldBaptism();
        const int child = told.isNew(Role::Child, "Maria");
        told.isNew(Role::Father, "Manuel", child);
        told.isNew(Role::Mother, "Joana", child);
        told.tell(child, attribute::filiation, word);
        const Plan plan = told.plan();
        EXPECT_TRUE(setTo(plan, "individuo", 1, "filiacao").isNull()) << word;
        EXPECT_EQ(plan.leftOut, QStringList(QString("nº 1 Maria: filiação «%1».").arg(word)));
    }
}

TEST_F(PlanOfABaptism, TellsTheNameOfABirthplaceThatIsMadeWithIt)
{
    Telling told = toldBaptism();
    told.tell(told.isNew(Role::Child, "Maria"), attribute::birthplace, "Cima");
    told.conclusions.places["Cima"] = {.name = "Cima", .parish = "030301"};
    EXPECT_TRUE(told.plan().sentences.contains("Na ficha de nº 1 Maria: nascimento em Cima."));
}
