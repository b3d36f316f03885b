// The rows of those whom an act names.
#include "study/tellings.h"

#include "store/session.h"
#include "study/acts/work.h"
#include "study/linkage/decisions.h"
#include "study/linkage/merge.h"

using namespace study;

namespace {

class PlanOfPeople : public SmallParish
{
protected:
    Telling told = Telling::of(ActKind::Baptism, QDate(1702, 2, 14));
};

struct Type
{
    const char* before;
    KnownDates then;
    KnownDates now;
    const char* after;
};

} // namespace

TEST(TypeOfAPerson, FollowsTheDatesUnlessSomebodyChoseAnother)
{
    const KnownDates none, birth{.birth = true}, death{.death = true}, both{.birth = true, .death = true};
    for (const Type& one : std::initializer_list<Type>{
             {"", none, none, "3"},   {"", none, birth, "1"},  {"T", none, birth, "1"}, {"0", none, birth, "1"},
             {"3", none, birth, "1"}, {"T", none, death, "2"}, {"0", none, death, "2"}, {"3", none, death, "2"},
             {"1", birth, both, "4"}, {"T", birth, both, "4"}, {"2", death, both, "4"}, {"T", death, both, "4"},
             {"1", none, birth, "1"}, {"T", none, none, "T"},  {"0", none, none, "0"},  {"2", none, birth, "2"},
             {"3", birth, both, "3"}, {"0", death, both, "0"}, {"4", none, death, "4"}, {"x", none, birth, "x"},
         })
        EXPECT_EQ(typeAfter(one.before, one.then, one.now).toStdString(), one.after)
            << one.before << one.then.birth << one.then.death << one.now.birth << one.now.death;
}

TEST_F(PlanOfPeople, TakeTitleAndNicknameWhereNothingStandsThere)
{
    const qint64 rui = person("Rui", "m", {{"alcunha", "o Velho"}});
    told.isNew(Role::Child, "Maria");
    const int godfather = told.known(Role::Godfather, rui);
    told.tell(godfather, attribute::title, "Capitão");
    told.tell(godfather, attribute::nickname, "o Ruivo");
    const int godmother = told.isNew(Role::Godmother, "Ana");
    told.tell(godmother, attribute::nickname, "a Ruiva");
    const Plan plan = told.plan();
    EXPECT_EQ(changeOf(plan, "individuo", rui)->values, (RowChange::Columns{{"titulo", "Capitão"}}));
    EXPECT_EQ(setTo(plan, "individuo", plan.people[godmother], "alcunha"), "a Ruiva");
    EXPECT_EQ(plan.leftOut, QStringList("alcunha de nº 1 Rui: na BDP está outro valor, que não se altera."));
    EXPECT_TRUE(plan.sentences.contains("nº 1 Rui: título «Capitão»."));
}

TEST_F(PlanOfPeople, GetTheStandardNameAndNoSexWhereNobodyTellsIt)
{
    told.isNew(Role::Child, "Maria");
    const int witness = told.isNew(Role::Witness, "joam gliz");
    told.act.people[witness].standardName = "João Gonçalves";
    const Plan plan = told.plan();
    EXPECT_EQ(setTo(plan, "individuo", 2, "nome"), "João Gonçalves");
    EXPECT_EQ(setTo(plan, "individuo", 2, "sexo"), "d");
    EXPECT_EQ(setTo(plan, "individuo", 2, "tipo"), "3");
}

TEST_F(PlanOfPeople, GetNoNumberThatComesBackWithAMerge)
{
    const qint64 ana = person("Ana", "f", {}), again = person("Ana", "f", {});
    const qint64 merge = linkage::mergePeople(cnBDP, ana, again);
    told.isNew(Role::Child, "Maria");
    EXPECT_EQ(setTo(told.plan(), "individuo", again + 1, "nome"), "Maria");
    EXPECT_EQ(linkage::takeBack(cnBDP, merge), "");
    run("delete from individuo where nind = ?", {double(again)});
    EXPECT_EQ(setTo(told.plan(), "individuo", again, "nome"), "Maria") << "the decision stands no more";
}

TEST_F(PlanOfPeople, AreSpelledAsTodayWhereNobodyHasSettledIt)
{
    told.isNew(Role::Child, "ana dias, exposta");
    EXPECT_EQ(setTo(told.plan(), "individuo", 1, "nome"), "Ana Dias");
}

TEST_F(PlanOfPeople, TellWhatWasWrittenWithANameAndStaysInTheAct)
{
    told.isNew(Role::Child, "Maria");
    told.isNew(Role::Godfather, "Pedro Dias, filho de Rui");
    EXPECT_EQ(told.plan().leftOut, QStringList("nº 2 Pedro Dias: junto do nome «filho de Rui»."));
}

TEST_F(PlanOfPeople, OfKnownSexHaveTheirRolesAndGiveThemToOthers)
{
    Telling burial = Telling::of(ActKind::Burial, QDate(1702, 2, 14));
    const int deceased = burial.known(Role::Deceased, person("Rui", "m"));
    const int wife = burial.isNew(Role::Spouse, "Ana", deceased);
    const Plan plan = burial.plan();
    EXPECT_EQ(setTo(plan, "individuo", plan.people[wife], "sexo"), "f");
    EXPECT_TRUE(plan.sentences.contains("Mulher: nº 2 Ana, nova ficha.")) << plan.sentences.join('\n').toStdString();
    told.known(Role::Child, person("Eva", "f", {{"dataobito", QDate(1700, 1, 1)}}));
    ASSERT_FALSE(told.plan().objections.isEmpty());
    EXPECT_TRUE(told.plan().objections.first().text.contains("(baptizada)"));
}

TEST_F(PlanOfPeople, KeepAPlaceOfBirthWithoutAWordWhereTheActTellsNone)
{
    told.known(Role::Child, person("Eva", "f", {{"localnasc", "03030101"}, {"tipolocalnasc", "L"}}));
    const Plan plan = told.plan();
    EXPECT_EQ(plan.leftOut, QStringList());
    EXPECT_TRUE(setTo(plan, "individuo", plan.people[0], "localnasc").isNull());
}

TEST_F(PlanOfPeople, AreNumberedBehindTheHighest)
{
    person("Rui", "m");
    run("insert into individuo (nind, nome) values (1000, 'Longe')");
    run("insert into individuo (nind, nome) values (7, 'Perto')");
    told.isNew(Role::Child, "Maria");
    told.isNew(Role::Godfather, "José");
    EXPECT_EQ(told.plan().people, (QList<qint64>{1001, 1002}));
}

TEST_F(PlanOfPeople, LoseNothingWithoutAWord)
{
    const int child = told.isNew(Role::Child, "Maria");
    const int godfather = told.isNew(Role::Godfather, "Rui");
    told.tell(child, "signo", "Leão");
    told.tell(godfather, attribute::age, "30");
    told.tell(godfather, attribute::residence, "Poucapena");
    told.fact("esmola da pia", "20 réis");
    told.relate(godfather, "protector", child);
    told.act.place.value = "capela";
    const int father = told.isNew(Role::Father, "José", child);
    told.act.people[father].notes = "ausente";
    EXPECT_EQ(told.plan().leftOut,
              (QStringList{"nº 1 Maria: signo «Leão».", "nº 2 Rui: idade «30».", "nº 2 Rui: residência «Poucapena».",
                           "nº 3 José: notas.", "Acto: esmola da pia «20 réis».", "nº 2 Rui: relação «protector».",
                           "Lugar da cerimónia: capela."}));
}

TEST_F(PlanOfPeople, AreStoredWithoutNoughtsInTheirTexts)
{
    const int child = told.isNew(Role::Child, QString("Ma") + QChar(0) + "ria");
    told.tell(child, attribute::nickname, QString("a") + QChar(0));
    const Plan plan = told.plan();
    EXPECT_EQ(setTo(plan, "individuo", 1, "nome"), "Maria");
    EXPECT_EQ(setTo(plan, "individuo", 1, "alcunha"), "a");
}

TEST_F(PlanOfPeople, KeepATextThatNoColumnTakesInTheAct)
{
    const int child = told.isNew(Role::Child, "Maria");
    told.tell(child, attribute::nickname, QString(300, 'x'));
    const Plan plan = told.plan();
    EXPECT_TRUE(setTo(plan, "individuo", 1, "alcunha").isNull());
    EXPECT_EQ(plan.leftOut, QStringList("alcunha de nº 1 Maria: o texto é longo de mais para a ficha, e fica só no "
                                        "acto."));
}
