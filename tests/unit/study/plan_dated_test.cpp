// Places, residences and professions.
#include "study/tellings.h"

using namespace study;

namespace {

class PlanOfDatedRows : public SmallParish
{
protected:
    PlanOfDatedRows()
    {
        told.isNew(Role::Child, "Maria");
        rui = person("Rui", "m");
        godfather = told.known(Role::Godfather, rui);
        told.conclusions.places["outeiro"] = {.code = "03030101", .level = 'L'};
        told.conclusions.places["ribeira"] = {.code = "03030102", .level = 'L'};
        told.conclusions.professions["moleiro"] = 2;
    }

    static void lived(qint64 nind, const QDate& since, const char* code)
    {
        run("insert into residencia (numero, tiporesid, dataref, localresid, tipolocal) values (?, 'i', ?, ?, 'L')",
            {nind, since, code});
    }
    QList<RowChange> residences() const { return changesOf(told.plan(), "residencia"); }
    QList<RowChange> professions() const { return changesOf(told.plan(), "profissoes"); }

    Telling told = Telling::of(ActKind::Baptism, actDay);
    qint64 rui = 0;
    int godfather = -1;
};

} // namespace

TEST_F(PlanOfDatedRows, WritesAResidenceWithItsSource)
{
    told.tell(godfather, attribute::residence, "outeiro");
    EXPECT_EQ(residences(), (QList{RowChange{.table = "residencia",
                                             .key = {{"numero", double(rui)}, {"tiporesid", "i"}, {"dataref", actDay}},
                                             .values = {{"datafixa", true},
                                                        {"localresid", "03030101"},
                                                        {"tipolocal", "L"},
                                                        {"fonte", "Baptismos 1, fl. 3v, n.º 7"}}}}));
    EXPECT_TRUE(told.plan().sentences.contains("Residência de nº 1 Rui em Outeiro."));
}

TEST_F(PlanOfDatedRows, AddsNothingWhereSomebodyLivesStill)
{
    told.tell(godfather, attribute::residence, "outeiro");
    lived(rui, actDay.addYears(-3), "03030101");
    EXPECT_TRUE(residences().isEmpty());
    EXPECT_EQ(told.plan().leftOut, QStringList());
    lived(rui, actDay.addYears(-1), "03030102");
    EXPECT_EQ(residences().size(), 1) << "lived elsewhere between";
    lived(rui, actDay.addYears(1), "03030101");
    EXPECT_EQ(residences().size(), 1) << "what comes later says nothing";
}

TEST_F(PlanOfDatedRows, GivesOneResidenceADay)
{
    lived(rui, actDay, "03030102");
    told.tell(godfather, attribute::residence, "outeiro");
    EXPECT_TRUE(residences().isEmpty());
    EXPECT_EQ(told.plan().leftOut, QStringList("Residência de nº 1 Rui em Outeiro: nesse dia já tem outra."));
    run("delete from residencia");
    told.tell(godfather, attribute::residence, "ribeira");
    EXPECT_EQ(residences().size(), 1);
    EXPECT_EQ(told.plan().leftOut, QStringList("Residência de nº 1 Rui em Ribeira: nesse dia já tem outra."));
    told.act.people[godfather].attributes[1].told.value = "outeiro";
    EXPECT_EQ(residences().size(), 1);
    EXPECT_EQ(told.plan().leftOut, QStringList());
}

TEST_F(PlanOfDatedRows, TakesTheDateOfAnAttributeThatHasOne)
{
    told.tell(godfather, attribute::residence, "outeiro", "17010300");
    EXPECT_EQ(residences().first().key.last().second, QDate(1701, 3, 1));
    EXPECT_EQ(residences().first().values.first().second, false);
    told.act.people[godfather].attributes[0].date = "3/4/1701";
    EXPECT_EQ(residences().first().key.last().second, QDate(1701, 4, 3));
    told.act.people[godfather].attributes[0].date = "há dias";
    EXPECT_EQ(residences().first().key.last().second, actDay);
}

TEST_F(PlanOfDatedRows, WritesAProfessionOnce)
{
    told.tell(godfather, attribute::profession, "moleiro");
    told.tell(godfather, attribute::profession, "moleiro");
    EXPECT_EQ(professions(), (QList{RowChange{.table = "profissoes",
                                              .key = {{"nind", double(rui)}, {"idprofissao", 1.0}},
                                              .values = {{"dataref", actDay},
                                                         {"datafixa", true},
                                                         {"codprof", 2.0},
                                                         {"fonte", "Baptismos 1, fl. 3v, n.º 7"}}}}));
    run("insert into profissoes (nind, idprofissao, dataref, codprof) values (1, 3, ?, 2)", {actDay.addYears(-1)});
    EXPECT_TRUE(professions().isEmpty());
    run("insert into profissoes (nind, idprofissao, dataref, codprof) values (1, 4, ?, 3)", {actDay.addYears(-1)});
    EXPECT_TRUE(professions().isEmpty()) << "has both since that day";
    run("update profissoes set dataref = ? where idprofissao = 4", {actDay.addMonths(-1)});
    ASSERT_EQ(professions().size(), 1) << "was something else between";
    EXPECT_EQ(professions().first().key.last().second, 5.0);
}

TEST_F(PlanOfDatedRows, MakesANewPlaceOnceForAllWhoLiveThere)
{
    const int godmother = told.isNew(Role::Godmother, "Ana");
    told.conclusions.places["Poucapena"] = {.name = "Poucapena", .parish = "030301"};
    told.conclusions.places["pouca pena"] = {.name = "poucapena", .parish = "030301"};
    told.tell(godfather, attribute::residence, "Poucapena");
    told.tell(godmother, attribute::residence, "pouca pena");
    const Plan plan = told.plan();
    EXPECT_EQ(
        changesOf(plan, "lugar"),
        (QList{RowChange{.table = "lugar",
                         .key = {{"codlugar", "03030103"}},
                         .values = {{"nomelugar", "*Poucapena"}, {"codparoquia", "030301"}, {"prioridade", 1.0}}}}));
    for (const RowChange& residence : changesOf(plan, "residencia"))
        EXPECT_EQ(residence.values[1].second, "03030103");
    EXPECT_TRUE(plan.sentences.contains("Novo lugar Poucapena, em Santa Maria."));
}

TEST_F(PlanOfDatedRows, NumbersTwoNewPlacesOneBehindTheOther)
{
    told.conclusions.places["a"] = {.name = "Além"};
    told.conclusions.places["b"] = {.name = "Baixo"};
    told.tell(godfather, attribute::residence, "a");
    told.tell(0, attribute::residence, "b");
    const QList<RowChange> places = changesOf(told.plan(), "lugar");
    ASSERT_EQ(places.size(), 2);
    EXPECT_EQ(places[0].key.first().second, "03030103");
    EXPECT_EQ(places[1].key.first().second, "03030104");
}

TEST_F(PlanOfDatedRows, TakesAPlaceThatBearsTheNameAlready)
{
    told.conclusions.places["a"] = {.name = "OUTEIRO"};
    told.tell(godfather, attribute::residence, "a");
    EXPECT_TRUE(changesOf(told.plan(), "lugar").isEmpty());
    EXPECT_EQ(residences().first().values[1].second, "03030101");
}

TEST_F(PlanOfDatedRows, RefusesAPlaceThatCanNotBe)
{
    told.tell(godfather, attribute::residence, "a");
    told.conclusions.places["a"] = {.name = ""};
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("lugar-impossivel"));
    told.conclusions.places["a"] = {.name = "12"};
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("lugar-impossivel"));
    told.conclusions.places["a"] = {.name = "Além", .parish = "990101"};
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("lugar-impossivel"));
    told.conclusions.places["a"] = {.code = "99", .level = 'L'};
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("lugar-desconhecido"));
    told.conclusions.places["a"] = {.code = "03030101", .level = 'x'};
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("lugar-desconhecido"));
    told.overrule("lugar-desconhecido");
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("lugar-desconhecido"));
}

TEST_F(PlanOfDatedRows, MakesANewProfessionOnce)
{
    const int godmother = told.isNew(Role::Godmother, "Ana");
    told.conclusions.professions["tamanqueiro"] = 0;
    told.conclusions.professions["lavrador"] = 0;
    told.tell(godfather, attribute::profession, "tamanqueiro");
    told.tell(godmother, attribute::profession, "tamanqueiro");
    told.tell(godmother, attribute::profession, "lavrador");
    const Plan plan = told.plan();
    EXPECT_EQ(changesOf(plan, "profissao"), (QList{RowChange{.table = "profissao",
                                                             .key = {{"codprof", 4.0}},
                                                             .values = {{"obs", ""}, {"profissao", "*Tamanqueiro"}}}}));
    const QList<RowChange> rows = changesOf(plan, "profissoes");
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[2].values[2].second, 3.0);
    EXPECT_EQ(rows[2].key.last().second, 2.0);
    told.conclusions.professions["tamanqueiro"] = 99;
    EXPECT_EQ(objectionsOf(told.plan()), (QStringList{"profissao-desconhecida:1", "profissao-desconhecida:2"}));
}

TEST_F(PlanOfDatedRows, GivesANewProfessionTheNextCodeBehindOneThatStandsThere)
{
    told.conclusions.professions = {{"lavrador", 0}, {"tamanqueira", 0}};
    told.tell(godfather, attribute::profession, "lavrador");
    told.tell(godfather, attribute::profession, "tamanqueira");
    EXPECT_EQ(changesOf(told.plan(), "profissao")[0].key, (RowChange::Columns{{"codprof", 4.0}}));
}
