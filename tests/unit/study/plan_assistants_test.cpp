// Godparents, witnesses and priests.
#include "study/tellings.h"

using namespace study;

namespace {

class PlanOfAssistants : public SmallParish
{
protected:
    PlanOfAssistants()
    {
        child = told.isNew(Role::Child, "Maria");
        father = told.isNew(Role::Father, "Manuel", child);
        mother = told.isNew(Role::Mother, "Joana", child);
    }

    QVariant kinship(int assistant) const
    {
        for (const RowChange& row : changesOf(told.plan(), "assistente"))
            if (row.key.last().second == double(told.plan().people[assistant]))
                for (const auto& [column, value] : row.values)
                    if (column == "parentbapt") return value;
        return {};
    }

    Telling told = Telling::of(ActKind::Baptism, actDay);
    int child, father, mother;
};

} // namespace

TEST_F(PlanOfAssistants, WritesEachAsItsWindowWould)
{
    const int godfather = told.isNew(Role::Godfather, "Rui");
    told.tell(godfather, attribute::civilState, "casado");
    told.isNew(Role::Proxy, "António Dias", godfather);
    told.act.people[godfather].notes = "ausente";
    const int dead = told.isNew(Role::Father, "Gil", godfather);
    told.tell(dead, attribute::dead, "antes");
    told.isNew(Role::Witness, "José");
    told.kept(Role::Witness, "outro");
    const QList<RowChange> rows = changesOf(told.plan(), "assistente");
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0].key,
              (RowChange::Columns{{"tipoacto", "b"}, {"entidade", 1.0}, {"dataref", actDay}, {"nind", 4.0}}));
    EXPECT_EQ(rows[0].values, (RowChange::Columns{{"tipoassistente", "p"},
                                                  {"estadocivil", 2},
                                                  {"falecidopai", true},
                                                  {"falecidomae", false},
                                                  {"obs", "por procuração a António Dias; ausente"}}));
    EXPECT_EQ(rows[1].values,
              (RowChange::Columns{{"tipoassistente", "t"}, {"falecidopai", false}, {"falecidomae", false}}));
    EXPECT_EQ(told.plan().leftOut, QStringList());
}

TEST_F(PlanOfAssistants, TellsTheKinshipThatIsCertain)
{
    const int he = told.isNew(Role::Godfather, "Rui"), she = told.isNew(Role::Godmother, "Ana");
    const struct
    {
        int person;
        const char* relation;
        int other;
        QVariant code;
    } cases[] = {
        {he, "irmão", mother, 21.0},      {she, "irmã", mother, 22.0}, {he, "irmao", father, 19.0},
        {she, "irmã", father, 20.0},      {she, "mãe", father, 6.0},   {he, "pai", mother, 7.0},
        {he, "tio", mother, 29.0},        {she, "avó", child, 74.0},   {he, "avô", child, 73.0},
        {he, "tio materno", child, 21.0}, {mother, "irmã", he, 21.0},  {he, "irmã gémea", child, 12.0},
        {he, "primo", mother, {}},        {he, "cunhado", father, {}}, {he, "compadre", mother, {}},
        {mother, "tia", he, {}},
    };
    for (const auto& one : cases) {
        told.act.relations.clear();
        told.relate(one.person, one.relation, one.other);
        const int assistant = one.person == mother ? he : one.person;
        EXPECT_EQ(kinship(assistant), one.code) << one.relation << one.person << one.other;
        EXPECT_EQ(told.plan().leftOut.isEmpty(), !one.code.isNull()) << one.relation;
    }
}

TEST_F(PlanOfAssistants, TellsOfAWitnessToAMarriageWhoseKinItIs)
{
    Telling marriage = Telling::of(ActKind::Marriage, actDay);
    const int groom = marriage.isNew(Role::Groom, "Rui"), bride = marriage.isNew(Role::Bride, "Ana");
    const int hisFather = marriage.isNew(Role::Father, "Gil", groom), witness = marriage.isNew(Role::Witness, "José");
    marriage.act.people[witness].toldSex = Sex::Male;
    marriage.relate(witness, "irmão", hisFather);
    marriage.relate(witness, "cunhado", bride);
    const QList<RowChange> rows = changesOf(marriage.plan(), "assistente");
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0].key,
              (RowChange::Columns{{"tipoacto", "c"}, {"entidade", 1.0}, {"dataref", actDay}, {"nind", 4.0}}));
    EXPECT_EQ(rows[0].values, (RowChange::Columns{{"tipoassistente", "t"},
                                                  {"falecidopai", false},
                                                  {"falecidomae", false},
                                                  {"parentnoivo", 19.0},
                                                  {"parentnoiva", 49.0}}));
}

TEST_F(PlanOfAssistants, PutsThePriestsIntoTheRowOfTheActItself)
{
    const int first = told.isNew(Role::Celebrant, "padre João"), second = told.isNew(Role::Celebrant, "padre José");
    told.tell(first, attribute::office, "padre cura desta igreja");
    told.tell(second, attribute::office, "com licença do pároco");
    const Plan baptism = told.plan();
    EXPECT_EQ(setTo(baptism, "individuo", 1, "primpadrebapt"), double(baptism.people[first]));
    EXPECT_EQ(setTo(baptism, "individuo", 1, "funcprimpbapt"), 6);
    EXPECT_EQ(setTo(baptism, "individuo", 1, "segpadrebapt"), double(baptism.people[second]));
    EXPECT_EQ(setTo(baptism, "individuo", 1, "funcsegpbapt"), 15);

    Telling marriage = Telling::of(ActKind::Marriage, actDay);
    marriage.isNew(Role::Groom, "Rui");
    marriage.isNew(Role::Bride, "Ana");
    marriage.isNew(Role::Celebrant, "padre João");
    EXPECT_EQ(setTo(marriage.plan(), "familia", 1, "primpadrecasam"), 3.0);
    EXPECT_TRUE(setTo(marriage.plan(), "familia", 1, "funcprimpcasam").isNull());
}

TEST_F(PlanOfAssistants, TurnsAKinshipThatIsToldTheOtherWayRound)
{
    const int godfather = told.isNew(Role::Godfather, "Rui");
    told.relate(child, "irmã", godfather);
    EXPECT_EQ(kinship(godfather), 11.0);
}

TEST_F(PlanOfAssistants, NamesAProxyWhoIsKnownAsTheBdpDoes)
{
    const qint64 gil = person("Gil Dias", "m");
    const int godfather = told.isNew(Role::Godfather, "Rui");
    told.act.people[told.known(Role::Proxy, gil, godfather)].name = {};
    EXPECT_EQ(changesOf(told.plan(), "assistente")[0].values.last(),
              (QPair<QString, QVariant>{"obs", "por procuração a Gil Dias"}));
}

TEST_F(PlanOfAssistants, TellsWhatIsWrittenOfEach)
{
    const int godmother = told.isNew(Role::Godmother, "Ana");
    told.tell(told.kept(Role::Father, "Gil", godmother), attribute::dead, "antes");
    told.tell(godmother, attribute::civilState, "viúva");
    told.relate(godmother, "irmã", mother);
    EXPECT_TRUE(told.plan().sentences.contains("Na ficha de nº 4 Ana: estado civil Viúvo; pai já falecido; parentesco "
                                               "com quem foi baptizado Tia materna."));
}
