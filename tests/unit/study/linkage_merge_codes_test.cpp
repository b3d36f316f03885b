// Places, professions and codes that are one.
#include "study/aMerge.h"

using namespace study::linkage;

TEST_F(AMerge, OfPlacesMovesWhatIsThereAndWhatLiesBelow)
{
    run("insert into lugar (codlugar, nomelugar, codparoquia, prioridade) values ('03', '*Poucapena', '01', 0), ('04', "
        "'*Pouca Pena', '01', 1)");
    run("insert into sitio (codsitio, nomesitio, codlugar) values ('0401', 'Fonte', '04')");
    const qint64 ana = person({"Ana", 'f'});
    run("update individuo set localnasc = '04', tipolocalnasc = 'L', localobito = '04', tipolocalobito = 'S' where "
        "nind "
        "= ?",
        {ana});
    run("insert into residencia (numero, tiporesid, dataref, localresid, tipolocal) values (1, 'i', '1730-01-01', "
        "'04', "
        "'l')");
    note();
    const MergePlan plan = planPlaces(bdp, "L", "03", "04");
    EXPECT_EQ(plan.sentences.first(), "1 lugar que fica dentro passa para Poucapena (03).");
    const qint64 id = mergePlaces(bdp, "L", "03", "04");
    EXPECT_EQ(one("select localnasc from individuo"), "03");
    EXPECT_EQ(one("select localobito from individuo"), "04") << "a site with that code is another place";
    EXPECT_EQ(one("select localresid from residencia"), "03");
    EXPECT_EQ(one("select codlugar from sitio"), "03");
    EXPECT_EQ(one("select count(*) from lugar where codlugar = '04'"), "0");
    EXPECT_EQ(one("select prioridade from lugar where codlugar = '03'"), "1");
    EXPECT_TRUE(one("select obs from lugar where codlugar = '03'").contains("nome Pouca Pena"));
    EXPECT_EQ(decisions(bdp).first().what.other, "L04");
    expectWayBack(id);
    EXPECT_EQ(refused([&] { mergePlaces(bdp, "X", "03", "04"); }), "Não há lugares desse nível.");
    run("insert into paroquia (codparoquia) values ('01'), ('02')");
    run("insert into infopar (cod) values ('01')");
    EXPECT_TRUE(refused([&] { mergePlaces(bdp, "F", "02", "01"); }).contains("tem de ficar"));
}

TEST_F(AMerge, OfProfessionsMovesThoseWhoHaveIt)
{
    run("insert into profissao (codprof, profissao) values (901, '*pedreiro'), (902, '*mestre pedreiro')");
    run("insert into profissoes (nind, idprofissao, codprof) values (1, 1, 902)");
    note();
    const qint64 id = mergeProfessions(bdp, 901, 902);
    EXPECT_EQ(one("select codprof from profissoes"), "901");
    EXPECT_EQ(one("select count(*) from profissao where codprof = 902"), "0");
    expectWayBack(id);
}

TEST_F(AMerge, OfCodesTakesThoseOfTheResearcherAlone)
{
    run("delete from infocomplementar where categoria in ('Paren', 'Sacra', 'TipMi')");
    run("insert into infocomplementar (categoria, codigo, descricao) values ('Paren', '1', 'tio'), ('Paren', '90', "
        "'*tio paterno'), ('Sacra', '90', '*outro'), ('TipMi', '1', 'missa rezada'), ('TipMi', '90', '*missa baixa')");
    run("insert into assistente (tipoacto, entidade, nind, parentbapt, estadocivil) values ('b', 1, 2, 90, 90)");
    run("insert into rituaismorte (nind, idlegpio, tipolegpio, tipo) values (1, 1, 'missa', 90), (1, 2, 'oficio', 90)");
    note();
    const qint64 id = mergeCodes(bdp, "Paren", "1", "90");
    EXPECT_EQ(one("select parentbapt from assistente"), "1");
    EXPECT_EQ(one("select estadocivil from assistente"), "90") << "of another category";
    EXPECT_EQ(one("select count(*) from infocomplementar where codigo = '90'"), "2");
    expectWayBack(id);
    const qint64 masses = mergeCodes(bdp, "TipMi", "1", "90");
    EXPECT_EQ(one("select tipo from rituaismorte where idlegpio = 1"), "1");
    EXPECT_EQ(one("select tipo from rituaismorte where idlegpio = 2"), "90");
    expectWayBack(masses);
    EXPECT_TRUE(refused([&] { mergeCodes(bdp, "Paren", "90", "1"); }).contains("código do programa"));
}

TEST_F(AMerge, OfCodesFollowsEveryColumnOfARow)
{
    run("insert into infocomplementar (categoria, codigo, descricao) values ('EstCi', '97', 'amancebado'), ('EstCi', "
        "'99', '*amancebada')");
    const qint64 ana = person({"Ana", 'f'});
    run("update individuo set estadocivilpai = 99, estadocivilmae = 99, estadoobito = 99 where nind = ?", {ana});
    note();
    const MergePlan plan = planCodes(bdp, "EstCi", "97", "99");
    EXPECT_EQ(plan.sentences.filter("1 linha das fichas passa").size(), 3) << qUtf8Printable(told(plan));
    const qint64 id = mergeCodes(bdp, "EstCi", "97", "99");
    EXPECT_EQ(one("select count(*) from individuo where estadocivilpai = 97 and estadocivilmae = 97 and estadoobito = "
                  "97"),
              "1");
    expectWayBack(id);
}

TEST_F(AMerge, OfPlacesAsksWhereTheyDiffer)
{
    run("insert into paroquia (codparoquia, nomeparoquia) values ('01', 'Vila'), ('02', 'Pinhal')");
    run("insert into lugar (codlugar, nomelugar, codparoquia) values ('0101', '*Poucapena', '01'), ('0201', '*Pouca "
        "Pena', '02')");
    run("insert into sitio (codsitio, nomesitio, codlugar) values ('020101', 'Fonte', '0201')");
    const MergePlan plan = planPlaces(bdp, "L", "0101", "0201");
    ASSERT_EQ(plan.differences.size(), 2) << qUtf8Printable(told(plan));
    EXPECT_EQ(plan.differences[0],
              (Difference{.column = "nomelugar", .title = "nome", .kept = "Poucapena", .other = "Pouca Pena"}));
    EXPECT_EQ(plan.differences[1],
              (Difference{.column = "codparoquia", .title = "fica em", .kept = "Vila (01)", .other = "Pinhal (02)"}));
    EXPECT_EQ(plan.sentences.filter("continuam a começar por 0201").size(), 1) << qUtf8Printable(told(plan));
    note();
    const qint64 id = mergePlaces(bdp, "L", "0101", "0201", {.sides = {{"codparoquia", Side::Other}}});
    EXPECT_EQ(one("select codparoquia from lugar"), "02");
    EXPECT_EQ(one("select nomelugar from lugar"), "*Poucapena");
    EXPECT_TRUE(one("select obs from lugar").contains("fica em Vila (01)"));
    EXPECT_TRUE(one("select obs from lugar").contains("nome Pouca Pena"));
    expectWayBack(id);
}

TEST_F(AMerge, OfProfessionsMakesOneOfRowsThatAreTheSameThen)
{
    run("insert into profissao (codprof, profissao) values (901, '*pedreiro'), (902, '*mestre pedreiro')");
    run("insert into profissoes (nind, idprofissao, codprof, dataref) values (1, 1, 902, '1730-01-01'), (1, 2, 901, "
        "'1730-01-01'), (2, 1, 902, '1730-01-01'), (1, 3, 902, '1740-01-01')");
    note();
    EXPECT_EQ(planProfessions(bdp, 901, 902).doubles.size(), 1);
    const qint64 id = mergeProfessions(bdp, 901, 902);
    EXPECT_EQ(one("select group_concat(nind || ' ' || idprofissao) from (select * from profissoes order by nind, "
                  "idprofissao)"),
              "1 2,1 3,2 1")
        << "the other rows have the numbers that they had";
    expectWayBack(id);
}

TEST_F(AMerge, OfCodesTellsOfTheNameThatIsLost)
{
    run("insert into infocomplementar (categoria, codigo, descricao) values ('EstCi', '97', 'amancebado'), ('EstCi', "
        "'99', '*amancebada')");
    const MergePlan plan = planCodes(bdp, "EstCi", "97", "99");
    EXPECT_TRUE(plan.differences.isEmpty()) << "the program's own name stays";
    EXPECT_TRUE(plan.sentences.contains("Perde-se, porque esta tabela não tem notas: nome amancebada."))
        << qUtf8Printable(told(plan));
}
