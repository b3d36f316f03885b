// Rows of two records that are one.
#include "study/aMerge.h"

using namespace study::linkage;

TEST_F(AMerge, MakesOneOfRowsThatWouldHaveTheSameKey)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'}), child = person({"Gil"});
    run("insert into residencia (numero, tiporesid, dataref, localresid, tipolocal) values (?, 'i', '1730-01-01', "
        "'0301', 'L')",
        {ana});
    run("insert into residencia (numero, tiporesid, dataref, localresid, tipolocal, fonte) values (?, 'i', "
        "'1730-01-01', '0302', 'L', 'rol')",
        {again});
    for (const qint64 who : {ana, again})
        run("insert into assistente (tipoacto, entidade, dataref, nind) values ('b', ?, '1730-01-01', ?)",
            {child, who});
    for (const qint64 who : {ana, again})
        run("insert into profissoes (nind, idprofissao, dataref, codprof) values (?, 1, '1730-01-01', 3)", {who});
    const MergePlan plan = planMerge(bdp, ana, again);
    EXPECT_EQ(plan.doubles.size(), 3) << qUtf8Printable(told(plan));
    note();
    const qint64 id = mergePeople(bdp, ana, again);
    EXPECT_EQ(one("select count(*) from residencia"), "1");
    EXPECT_EQ(one("select localresid from residencia"), "0301");
    EXPECT_EQ(one("select fonte from residencia"), "rol");
    EXPECT_TRUE(one("select obs from residencia").contains("residência em 0302"));
    EXPECT_EQ(one("select count(*) from assistente"), "1");
    EXPECT_EQ(one("select count(*) from profissoes"), "1");
    expectWayBack(id);
}

TEST_F(AMerge, LeavesAPassportItsNumber)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    run("insert into passaporte (nind, nPass, dataref) values (?, 4711, '1870-01-01'), (?, 8822, '1870-01-01')",
        {ana, again});
    run("insert into passaporte (nind, nPass, localdestino, tipolocaldest) values (?1, 5, '0301', 'L'), (?2, 5, "
        "'0302', 'L')",
        {ana, again});
    const MergePlan plan = planMerge(bdp, ana, again);
    ASSERT_EQ(plan.doubles.size(), 1) << qUtf8Printable(told(plan));
    EXPECT_TRUE(plan.doubles[0].startsWith("O passaporte nº 5: está nos dois, fica uma linha"))
        << qUtf8Printable(plan.doubles[0]);
    note();
    const qint64 id = mergePeople(bdp, ana, again);
    EXPECT_EQ(
        one("select group_concat(nPass) from (select nPass from passaporte where nind = ? order by nPass)", {ana}),
        "5,4711,8822");
    EXPECT_EQ(one("select localdestino from passaporte where nPass = 5"), "0301");
    EXPECT_TRUE(one("select obs from passaporte where nPass = 5").contains("destino 0302"));
    expectWayBack(id);
}

TEST_F(AMerge, KeepsEqualRowsOfOnePerson)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    run("insert into rituaismorte (nind, idlegpio, tipolegpio, quantidade) values (?1, 1, 'missa', 10), (?1, 2, "
        "'missa', 10)",
        {again});
    run("insert into assinatura (nind, idassinatura) values (?1, 1), (?2, 1), (?2, 2)", {ana, again});
    const MergePlan plan = planMerge(bdp, ana, again);
    EXPECT_EQ(plan.doubles.size(), 1) << qUtf8Printable(told(plan));
    note();
    const qint64 id = mergePeople(bdp, ana, again);
    EXPECT_EQ(one("select sum(quantidade) from rituaismorte where nind = ?", {ana}).toDouble(), 20);
    EXPECT_EQ(one("select count(*) from assinatura where nind = ?", {ana}), "2") << "one stands for one";
    expectWayBack(id);
    const qint64 turned = mergePeople(bdp, again, ana);
    EXPECT_EQ(one("select sum(quantidade) from rituaismorte where nind = ?", {again}).toDouble(), 20);
    EXPECT_EQ(one("select count(*) from assinatura where nind = ?", {again}), "2");
    expectWayBack(turned);
}

TEST_F(AMerge, AsksWhichValueOfRowsThatAreOneStays)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    run("insert into residencia (numero, tiporesid, dataref, localresid, tipolocal) values (?1, 'i', '1730-01-01', "
        "'0301', 'L'), (?2, 'i', '1730-01-01', '0302', 'L')",
        {ana, again});
    const MergePlan plan = planMerge(bdp, ana, again);
    ASSERT_EQ(plan.differences.size(), 1);
    EXPECT_EQ(plan.differences[0].title, "residência de 01/01/1730: residência em");
    EXPECT_EQ(plan.differences[0].kept, "0301");
    EXPECT_EQ(plan.differences[0].other, "0302");
    note();
    const qint64 id = mergePeople(bdp, ana, again, {.sides = {{plan.differences[0].column, Side::Other}}});
    EXPECT_EQ(one("select localresid from residencia"), "0302");
    EXPECT_TRUE(one("select obs from residencia").startsWith("Do nº 1, junto em "));
    EXPECT_TRUE(one("select obs from residencia").endsWith(": residência em 0301"));
    expectWayBack(id);
}

TEST_F(AMerge, TellsInTheNotesOfARowWhereTheOtherNotesComeFrom)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    run("insert into residencia (numero, tiporesid, dataref, obs) values (?1, 'i', '1730-01-01', 'casa'), (?2, 'i', "
        "'1730-01-01', 'de sobrado')",
        {ana, again});
    const qint64 id = mergePeople(bdp, ana, again);
    EXPECT_EQ(one("select obs from residencia"),
              "casa\r\nDo nº 2, junto em " + QDate::currentDate().toString("dd/MM/yyyy") + ": de sobrado");
    EXPECT_EQ(takeBack(bdp, id), "");
    run("update residencia set obs = cast(x'41ff42' as text) where numero = ?", {again});
    EXPECT_EQ(refused([&] { mergePeople(bdp, ana, again); }), "As notas de um dos dois não se conseguem ler.");
    run("update residencia set obs = ?", {QString(40000, 'x')});
    run("update residencia set obs = ? where numero = ?", {QString(40000, 'y'), again});
    EXPECT_EQ(refused([&] { mergePeople(bdp, ana, again); }), "As notas dos dois juntas ficariam demasiado longas.");
}

TEST_F(AMerge, TellsOfAWitnessWhoIsInOneActTwice)
{
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'}), gil = person({"Gil"});
    const qint64 first = couple(rui, ana, "1725-02-03"), second = couple(rui, ana, "1725-02-10");
    run("insert into assistente (tipoacto, entidade, nind, dataref) values ('c', ?1, ?3, '1725-02-03'), ('c', ?2, ?3, "
        "'1725-02-11')",
        {first, second, gil});
    EXPECT_TRUE(
        planJoin(bdp, first, second)
            .sentences.contains("O nº 3 fica duas vezes no acto: uma linha de 03/02/1725 e outra de 11/02/1725."))
        << qUtf8Printable(told(planJoin(bdp, first, second)));
}

TEST_F(AMerge, HasTheWitnessesFollowTheDayOfTheMarriageThatStays)
{
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'}), gil = person({"Gil"}), ivo = person({"Ivo"});
    const qint64 first = couple(rui, ana, "1725-02-03"), second = couple(rui, ana, "1725-02-10");
    run("insert into assistente (tipoacto, entidade, nind, dataref) values ('c', ?1, ?3, '1725-02-03'), ('c', ?2, ?3, "
        "'1725-02-10'), ('c', ?2, ?4, '1725-02-10'), ('c', ?1, ?4, '1724-01-01')",
        {first, second, gil, ivo});
    const char* days = "select group_concat(nind || ' ' || dataref, ', ') from (select * from assistente where "
                       "entidade = ? order by nind, dataref)";
    const MergePlan plan = planJoin(bdp, first, second);
    EXPECT_TRUE(plan.sentences.contains("2 intervenientes passam a ter a data do acto que fica, 03/02/1725."))
        << qUtf8Printable(told(plan));
    EXPECT_EQ(plan.doubles.filter("no acto"),
              QStringList("O nº 3 no acto de 03/02/1725: está nos dois, fica uma linha."));
    note();
    const qint64 id = joinFamilies(bdp, first, second);
    EXPECT_EQ(one(days, {first}), "3 1725-02-03, 4 1724-01-01, 4 1725-02-03") << "a day of its own stays";
    expectWayBack(id);
    const qint64 turned = joinFamilies(bdp, first, second, {.sides = {{"datacasam", Side::Other}}});
    EXPECT_EQ(one(days, {first}), "3 1725-02-10, 4 1724-01-01, 4 1725-02-10");
    expectWayBack(turned);
}

TEST_F(AMerge, HasTheGodparentsFollowTheDayOfTheBaptismThatStays)
{
    const qint64 ana = person({"Ana", 'f', "1702-02-14"}), again = person({"Ana", 'f', "1702-02-16"});
    const qint64 open = person({"Ana", 'f'}), gil = person({"Gil"});
    run("insert into assistente (tipoacto, entidade, nind, dataref) values ('b', ?1, ?3, '1702-02-16'), ('B', ?2, ?3, "
        "null)",
        {again, open, gil});
    note();
    qint64 id = mergePeople(bdp, ana, again);
    EXPECT_EQ(one("select dataref from assistente where entidade = ?", {ana}), "1702-02-14");
    expectWayBack(id);
    id = mergePeople(bdp, ana, open);
    EXPECT_EQ(one("select dataref from assistente where entidade = ?", {ana}), "1702-02-14") << "it had none";
    expectWayBack(id);
}

TEST_F(AMerge, KeepsAWitnessWhomOneActHasTwiceAlready)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'}), child = person({"Gil"});
    for (const qint64 who : {ana, again, again})
        run("insert into assistente (tipoacto, entidade, dataref, nind) values ('b', ?, '1730-01-01', ?)",
            {child, who});
    note();
    const qint64 id = mergePeople(bdp, ana, again);
    EXPECT_EQ(one("select count(*) from assistente"), "2");
    expectWayBack(id);
    const qint64 turned = mergePeople(bdp, again, ana);
    EXPECT_EQ(one("select count(*) from assistente"), "2");
    expectWayBack(turned);
}
