// Two people who are one.
#include "study/aMerge.h"

#include "platform/jet/jsonrow.h"
#include "study/acts/register.h"
#include "study/acts/register_tables.h"
#include "study/linkage/decisions.h"
#include "study/linkage/merge.h"
#include "study/linkage/verdicts.h"

#include <functional>
#include <sqlite3.h>

using namespace study::linkage;

TEST_F(AMerge, MovesAllThatNamesThePersonAndFillsWhatWasEmpty)
{
    study::tables::make(bdp, study::tables::ofActs());
    const qint64 ana = person({"Ana", 'f', "1702-02-14"}), again = person({"Ana", 'f', "", "1760-05-01"});
    const qint64 rui = person({"Rui"}), child = person({"Gil", 'm', "1730-01-01"}), eva = person({"Eva", 'f'});
    const qint64 family = couple(rui, again, "1725-01-01");
    run("update individuo set famorig = ?, testamenteiro = ?, primpadrebapt = ?, segpadrebapt = ?, primpadreobito = ? "
        "where nind = ?",
        {family, again, again, again, again, child});
    run("update familia set primpadrecasam = ?, segpadrecasam = ? where nfamilia = ?", {again, again, family});
    run("insert into assistente (tipoacto, entidade, nind) values ('b', ?, ?)", {again, eva});
    run("insert into assistente (tipoacto, entidade, nind) values ('b', ?, ?)", {child, again});
    run("insert into residencia (numero, tiporesid, dataref) values (?, 'i', '1730-01-01')", {again});
    run("insert into profissoes (nind, idprofissao, codprof) values (?, 1, 3)", {ana});
    run("insert into profissoes (nind, idprofissao, codprof) values (?, 1, 4)", {again});
    run("insert into assinatura (nind, idassinatura) values (?, 1)", {again});
    run("insert into legadosprofanos (nind, idlegprof, nindherd) values (?, 1, ?)", {again, child});
    run("insert into legadosprofanos (nind, idlegprof, nindherd) values (?, 1, ?)", {child, again});
    run("insert into rituaismorte (nind, idlegpio) values (?, 1)", {again});
    run("insert into passaporte (nind, nPass) values (?, 4711)", {again});
    run("insert into estudo_pessoa (acto, ordem, papel, ordinal, nome_duvida, identidade, nind) values (1, 0, "
        "'madrinha', 0, 0, 'conhecida', ?)",
        {again});
    run("insert into estudo_escrita (acto, ordem, tabela, nind, chave, valores) values (1, 0, 'individuo', ?, '[]', "
        "'[]')",
        {again});
    note();
    const qint64 id = mergePeople(bdp, ana, again);
    EXPECT_EQ(one("select nome from individuo where nind = ?", {again}), "none");
    EXPECT_EQ(one("select datanasc from individuo where nind = ?", {ana}), "1702-02-14");
    EXPECT_EQ(one("select dataobito from individuo where nind = ?", {ana}), "1760-05-01");
    EXPECT_EQ(one("select tipo from individuo where nind = ?", {ana}), "4") << "both dates are known now";
    EXPECT_EQ(one("select count(*) from individuo where testamenteiro = ?1 and primpadrebapt = ?1 and segpadrebapt = "
                  "?1 and primpadreobito = ?1",
                  {ana}),
              "1");
    EXPECT_EQ(one("select count(*) from familia where primpadrecasam = ?1 and segpadrecasam = ?1", {ana}), "1");
    EXPECT_EQ(one("select count(*) from familias where nind = ?", {ana}), "1");
    EXPECT_EQ(one("select count(*) from assistente where entidade = ?", {ana}), "1");
    EXPECT_EQ(one("select count(*) from assistente where nind = ?", {ana}), "1");
    for (const char* select :
         {"select count(*) from residencia where tiporesid = 'i' and numero = ?",
          "select count(*) from assinatura where nind = ?", "select count(*) from legadosprofanos where nind = ?",
          "select count(*) from legadosprofanos where nindherd = ?", "select count(*) from rituaismorte where nind = ?",
          "select count(*) from passaporte where nind = ?", "select count(*) from estudo_pessoa where nind = ?",
          "select count(*) from estudo_escrita where nind = ?"})
        EXPECT_EQ(one(select, {ana}), "1") << select;
    EXPECT_EQ(one("select max(idprofissao) from profissoes where nind = ?", {ana}), "2");
    expectWayBack(id);
    EXPECT_FALSE(decisions(bdp).first().stands());
}

TEST_F(AMerge, AsksWhereBothDifferAndPutsTheOtherValueIntoTheNotes)
{
    const qint64 ana = person({"Ana", 'f', "1702-02-14"}), again = person({"Ana Lopes", 'f', "1702-02-03"});
    run("update individuo set obs = 'da casa grande' where nind = ?", {ana});
    const MergePlan plan = planMerge(bdp, ana, again);
    ASSERT_EQ(plan.differences.size(), 2);
    EXPECT_EQ(plan.differences[0].title, "nome");
    EXPECT_EQ(plan.differences[1].column, "datanasc");
    EXPECT_EQ(plan.differences[1].kept, "14/02/1702");
    EXPECT_EQ(plan.differences[1].other, "03/02/1702");
    note();
    const qint64 id = mergePeople(bdp, ana, again, {.sides = {{"nome", Side::Other}}, .reason = "mesmos pais"});
    EXPECT_EQ(one("select nome from individuo where nind = ?", {ana}), "Ana Lopes");
    EXPECT_EQ(one("select datanasc from individuo where nind = ?", {ana}), "1702-02-14");
    const QString day = QDate::currentDate().toString("dd/MM/yyyy");
    EXPECT_EQ(one("select obs from individuo where nind = ?", {ana}), "da casa grande\r\nDo nº 1, junto em " + day +
                                                                          ": nome Ana\r\nDo nº 2, junto em " + day +
                                                                          ": data de nascimento 03/02/1702");
    EXPECT_EQ(decisions(bdp).first().what.reason, "mesmos pais");
    EXPECT_EQ(decisions(bdp).first().what.title, "Ana Lopes (nº 2) é Ana (nº 1)");
    expectWayBack(id);
}

TEST_F(AMerge, RefusesACoupleAndDescendants)
{
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'});
    const qint64 child = person({"Ana", 'f', "", "", couple(rui, ana)});
    EXPECT_EQ(refused([&] { mergePeople(bdp, rui, ana); }), "São marido e mulher na família nº 1.");
    EXPECT_EQ(refused([&] { mergePeople(bdp, ana, child); }), "Ana (nº 3) descende de Ana (nº 2).");
    EXPECT_EQ(refused([&] { mergePeople(bdp, child, ana); }), "Ana (nº 3) descende de Ana (nº 2).");
    EXPECT_EQ(refused([&] { mergePeople(bdp, ana, ana); }), "É a mesma pessoa.");
    EXPECT_EQ(refused([&] { mergePeople(bdp, ana, 99); }), "O indivíduo nº 99 não existe.");
    EXPECT_FALSE(hasDecisions(bdp));
}

TEST_F(AMerge, RefusesToLoseAValueThatNobodyCanRead)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    run("update individuo set alcunha = 'a Nova' where nind = ?", {ana});
    run("update individuo set alcunha = cast(x'41ff42' as text) where nind = ?", {again});
    EXPECT_EQ(refused([&] { mergePeople(bdp, ana, again); }),
              "Um dos dois valores de «alcunha» não se consegue ler, e perdia-se.");
}

TEST_F(AMerge, KeepsTheFunctionOfAPriestWithoutAName)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'}), priest = person({"Padre"});
    run("update individuo set primpadrebapt = 0, funcprimpbapt = 2, segpadrebapt = ?, primpadreobito = 0, "
        "funcprimpobito = 2 where nind = ?",
        {priest, ana});
    run("update individuo set primpadrebapt = ?1, segpadrebapt = 0, funcsegpbapt = 2, primpadreobito = ?1, "
        "funcprimpobito = 3 where nind = ?2",
        {priest, again});
    const MergePlan plan = planMerge(bdp, ana, again);
    ASSERT_EQ(plan.differences.size(), 1);
    EXPECT_EQ(plan.differences[0].column, "primpadreobito");
    EXPECT_EQ(plan.differences[0].proposed, Side::Other);
    note();
    const qint64 id = mergePeople(bdp, ana, again);
    const char* select = "select primpadrebapt || ' ' || funcprimpbapt || ' ' || segpadrebapt || ' ' || funcsegpbapt "
                         "|| ' ' || primpadreobito || ' ' || funcprimpobito from individuo where nind = ?";
    EXPECT_EQ(one(select, {ana}), "3 2 3 2 3 3");
    EXPECT_TRUE(one("select obs from individuo where nind = ?", {ana}).contains("padre do óbito nº sem número ("));
    expectWayBack(id);
}

TEST_F(AMerge, AsksWhetherADayIsExact)
{
    const qint64 ana = person({"Ana", 'f', "1702-02-03"}), again = person({"Ana", 'f', "1702-02-03"});
    run("update individuo set dnascfixa = 0 where nind = ?", {ana});
    const MergePlan plan = planMerge(bdp, ana, again);
    ASSERT_EQ(plan.differences.size(), 1);
    EXPECT_EQ(plan.differences[0].kept, "cerca de 03/02/1702");
    EXPECT_EQ(plan.differences[0].other, "03/02/1702");
    EXPECT_EQ(plan.differences[0].proposed, Side::Other);
    mergePeople(bdp, ana, again);
    EXPECT_EQ(one("select dnascfixa from individuo where nind = ?", {ana}), "true");
    EXPECT_TRUE(one("select obs from individuo where nind = ?", {ana}).contains("cerca de 03/02/1702"));
}

TEST_F(AMerge, KeepsTextsOfAnyKind)
{
    const QString odd = QString::fromUtf8("D'Além \"a Nova\" 👩 ") + QString(10000, 'x');
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    run("update individuo set obs = ?, causa = ? where nind = ?", {odd, odd.left(50), again});
    run("update individuo set alcunha = cast(x'41ff42' as text) where nind = ?", {again});
    note();
    const qint64 id = mergePeople(bdp, ana, again);
    EXPECT_EQ(one("select obs from individuo"), odd);
    expectWayBack(id);
}

TEST_F(AMerge, RefusesNotesThatNoFieldTakes)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    run("update individuo set obs = ? where nind = ?", {QString(40000, 'x'), ana});
    run("update individuo set obs = ? where nind = ?", {QString(40000, 'y'), again});
    EXPECT_EQ(refused([&] { mergePeople(bdp, ana, again); }), "As notas dos dois juntas ficariam demasiado longas.");
}

TEST_F(AMerge, WritesNothingButWhatWasSeen)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    const MergePlan plan = planMerge(bdp, ana, again);
    run("update individuo set causa = 'febres' where nind = ?", {again});
    EXPECT_EQ(refused([&] { mergePeople(bdp, ana, again, {.expected = plan.mark}); }), changedSince);
    const MergePlan now = planMerge(bdp, ana, again);
    EXPECT_TRUE(now.sentences.contains("O nº 1 fica com: causa da morte febres.")) << qUtf8Printable(told(now));
    EXPECT_EQ(takeBack(bdp, mergePeople(bdp, ana, again, {.expected = now.mark})), "");
}

TEST_F(AMerge, TellsOfTheActInWorkThatHasWhoGoes)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    study::Act act;
    act.people << study::ActPerson{.role = study::Role::Mentioned, .name = {.value = "Ana"}};
    study::saveDraft(bdp, act, {.people = {{.kind = study::Identity::Kind::Known, .nind = again}}});
    EXPECT_TRUE(
        planMerge(bdp, ana, again).sentences.contains("O acto em trabalho tem o nº 2: escolha lá o nº 1 em vez dele."));
    EXPECT_TRUE(planMerge(bdp, again, ana).sentences.filter("acto em trabalho").isEmpty());
}

TEST_F(AMerge, KeepsColumnsThatTheSchemaDoesNotKnow)
{
    run("alter table individuo add column foto varchar");
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    run("update individuo set foto = 'b.jpg' where nind = ?", {again});
    note();
    const qint64 id = mergePeople(bdp, ana, again);
    EXPECT_EQ(one("select foto from individuo"), "b.jpg");
    expectWayBack(id);
    run("update individuo set foto = 'a.jpg' where nind = ?", {ana});
    mergePeople(bdp, ana, again);
    EXPECT_EQ(one("select foto from individuo"), "a.jpg");
    EXPECT_TRUE(one("select obs from individuo").endsWith(": foto b.jpg"));
}

TEST_F(AMerge, TakesLettersOfAnyCaseForTheSame)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'F'});
    run("update individuo set localnasc = '01', tipolocalnasc = case nind when 1 then 'F' else 'f' end");
    EXPECT_TRUE(planMerge(bdp, ana, again).differences.isEmpty());
}

TEST_F(AMerge, IsOnlyPlannedWithoutAWrite)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f', "1702-02-14"});
    note();
    const int changes = sqlite3_total_changes(bdp.handle());
    EXPECT_TRUE(planMerge(bdp, ana, again).isPossible());
    EXPECT_EQ(sqlite3_total_changes(bdp.handle()), changes);
    EXPECT_FALSE(hasDecisions(bdp));
}

TEST_F(AMerge, IsMadeOnceWhereTwoAreNotTheSame)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    const qint64 id = decideNotTheSame(bdp, again, ana, "pais diferentes");
    EXPECT_EQ(decideNotTheSame(bdp, ana, again), id);
    EXPECT_EQ(notTheSame(bdp), (QList<std::pair<qint64, qint64>>{{ana, again}}));
    EXPECT_EQ(decisions(bdp).first().what.title, "Ana (nº 1) não é Ana (nº 2)");
    EXPECT_TRUE(refused([&] { mergePeople(bdp, ana, again); }).startsWith("Foi decidido que não são"));
    const qint64 third = person({"Ana", 'f'});
    const qint64 later = mergePeople(bdp, third, again);
    EXPECT_EQ(notTheSame(bdp), (QList<std::pair<qint64, qint64>>{{ana, third}})) << "by the number that stayed";
    EXPECT_TRUE(refused([&] { mergePeople(bdp, third, ana); }).startsWith("Foi decidido que não são"));
    EXPECT_EQ(takeBack(bdp, later), "");
    EXPECT_EQ(takeBack(bdp, id), "");
    EXPECT_TRUE(notTheSame(bdp).isEmpty());
}
