// Two records that were one, and are two again.
#include "study/aMerge.h"

#include "store/lixo.h"
#include "study/linkage/verdicts.h"

using namespace study::linkage;

TEST_F(AMerge, IsNotTakenBackWhereSomebodyHasAlteredARow)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f', "1702-02-14"});
    const qint64 child = person({"Gil"});
    run("update individuo set testamenteiro = ? where nind = ?", {again, child});
    const qint64 id = mergePeople(bdp, ana, again);
    run("update individuo set testamenteiro = 7 where nind = ?", {child});
    EXPECT_EQ(whyNotTakenBack(bdp, id), "A ficha do indivíduo nº 3 foi alterada depois.");
    note();
    EXPECT_EQ(takeBack(bdp, id), "A ficha do indivíduo nº 3 foi alterada depois.");
    EXPECT_EQ(merged::contents(bdp), before_);
    run("update individuo set testamenteiro = ?, alcunha = 'o Novo' where nind = ?", {ana, child});
    EXPECT_EQ(takeBack(bdp, id), "") << "what the decision hadn't written may be another";
    EXPECT_EQ(one("select alcunha from individuo where nind = ?", {child}), "o Novo");
    EXPECT_EQ(takeBack(bdp, id), "Esta decisão já foi desfeita.");
}

TEST_F(AMerge, IsNotTakenBackWhereARowThatMovedIsAnotherByNow)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    run("insert into profissoes (nind, idprofissao, codprof) values (?, 1, 7), (?, 1, 8)", {ana, again});
    note();
    const qint64 id = mergePeople(bdp, ana, again);
    const QString why = "Uma linha da tabela «profissoes» do indivíduo nº 1 foi alterada depois.";
    run("update profissoes set codprof = 9 where nind = ? and idprofissao = 2", {ana});
    EXPECT_EQ(takeBack(bdp, id), why);
    run("delete from profissoes where idprofissao = 2");
    run("insert into profissoes (nind, idprofissao, codprof, obs) values (?, 2, 8, 'outra')", {ana});
    EXPECT_EQ(takeBack(bdp, id), why);
    run("update profissoes set obs = null");
    expectWayBack(id);
}

TEST_F(AMerge, IsNotTakenBackWhereTheRecordThatStayedWasAltered)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f', "1702-02-14"});
    const qint64 id = mergePeople(bdp, ana, again);
    run("update individuo set alcunha = 'a Nova'");
    run("update individuo set titulo = 'Dona'");
    EXPECT_EQ(takeBack(bdp, id), "A ficha do indivíduo nº 1 foi alterada depois.");
    run("update individuo set alcunha = null, titulo = null");
    EXPECT_EQ(takeBack(bdp, id), "");
}

TEST_F(AMerge, TellsAllThatStandsInTheWayBack)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f', "1702-02-14"}), child = person({"Gil"});
    run("update individuo set testamenteiro = ? where nind = ?", {again, child});
    const qint64 id = mergePeople(bdp, ana, again);
    run("update individuo set alcunha = 'a Nova', testamenteiro = 7");
    run("insert into individuo (nind, nome) values (?, 'Outro')", {again});
    EXPECT_EQ(takeBack(bdp, id),
              "A ficha do indivíduo nº 1 foi alterada depois. A ficha do indivíduo nº 3 foi alterada "
              "depois. O número 2 já é de outro indivíduo.");
}

TEST_F(AMerge, IsNotTakenBackToRecordsThatHaveGone)
{
    const qint64 rui = person({"Rui"}), eva = person({"Eva", 'f'}), family = couple(rui, eva);
    const qint64 ana = person({"Ana", 'f', "", "", family}), again = person({"Ana", 'f', "1702-02-14", "", family});
    run("update individuo set primpadrebapt = 0, testamenteiro = 77 where nind = ?", {again});
    note();
    const qint64 id = mergePeople(bdp, ana, again);
    run("delete from familia");
    EXPECT_EQ(takeBack(bdp, id), "A família nº 1, a que uma linha voltaria a ligar-se, já não está na BDP.");
    run("insert into familia (nfamilia) values (1)");
    expectWayBack(id);
    const qint64 second = mergePeople(bdp, ana, again);
    lixo::Recolha deletion(bdp, lixo::Tipo::Familia, "1");
    run("delete from familia");
    deletion.guarda();
    run("insert into familia (nfamilia) values (1)");
    EXPECT_EQ(takeBack(bdp, second), "A família nº 1, a que uma linha voltaria a ligar-se, já não está na BDP.");
}

TEST_F(AMerge, IsTakenBackBeforeADeletionThatNamesWhoHasGone)
{
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    const QString family = QString::number(couple(rui, again)), gil = QString::number(person({"Gil"}));
    run("update individuo set testamenteiro = ? where nome = 'Gil'", {ana});
    lixo::Recolha person(bdp, lixo::Tipo::Individuo, gil);
    run("delete from individuo where nome = 'Gil'");
    person.guarda();
    lixo::Recolha deletion(bdp, lixo::Tipo::Familia, family);
    run("delete from familias");
    run("delete from familia");
    deletion.guarda();
    const qint64 id = mergePeople(bdp, ana, again);
    note();
    EXPECT_EQ(lixo::repoe(bdp, 2), "Foi decidido depois, e tem de ser desfeito primeiro:\r\nAna (nº 3) é Ana (nº 2)");
    run("insert into individuo (nind, nome) values (?, 'Eva')", {again}); // the number is somebody else's
    EXPECT_NE(lixo::repoe(bdp, 2), "");
    EXPECT_EQ(one("select count(*) from familias"), "0");
    EXPECT_EQ(lixo::repoe(bdp, 1), "") << "who stayed is there";
    run("delete from individuo where nome = 'Eva'");
    EXPECT_EQ(takeBack(bdp, id), "");
    EXPECT_EQ(lixo::repoe(bdp, 2), "");
    EXPECT_EQ(one("select count(*) from familias where nind = ?", {again}), "1");
}

TEST_F(AMerge, OfPlacesComesBackAfterThatOfThoseAbove)
{
    run("insert into paroquia (codparoquia, nomeparoquia) values ('01', '*Vila'), ('02', '*Villa')");
    run("insert into lugar (codlugar, nomelugar, codparoquia) values ('0101', '*Poucapena', '02'), ('0102', '*Pouca "
        "Pena', '02')");
    note();
    const qint64 below = mergePlaces(bdp, "L", "0101", "0102");
    const qint64 above = mergePlaces(bdp, "F", "01", "02");
    EXPECT_EQ(takeBack(bdp, below), "Tem de ser desfeita primeiro a decisão que veio depois: Villa (02) é Vila (01).");
    EXPECT_EQ(takeBack(bdp, above), "");
    expectWayBack(below);
}

TEST_F(AMerge, IsTakenBackInAnyOrderWhereOthersHaveSetOtherColumns)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f', "1702-02-14"});
    const qint64 priest = person({"Padre"}), other = person({"Padre"});
    run("update individuo set primpadrebapt = ? where nind = ?", {other, ana});
    note();
    const qint64 first = mergePeople(bdp, ana, again);
    const qint64 priests = mergePeople(bdp, priest, other);
    EXPECT_EQ(takeBack(bdp, first), "");
    expectWayBack(priests);
}

TEST_F(AMerge, IsNotTakenBackWhereTheNumberIsSomebodyElsesOrTheRowHasGone)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f', "1702-02-14"});
    const qint64 id = mergePeople(bdp, ana, again);
    run("insert into individuo (nind, nome) values (?, 'Outro')", {again});
    EXPECT_EQ(whyNotTakenBack(bdp, id), "O número 2 já é de outro indivíduo.");
    run("delete from individuo where nind = ?", {ana});
    EXPECT_EQ(whyNotTakenBack(bdp, id), "A ficha do indivíduo nº 1 já não existe. O número 2 já é de outro indivíduo.");
}

TEST_F(AMerge, IsTakenBackAfterThoseThatCameLaterOnTheSameRows)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f', "1702-02-14"});
    const qint64 third = person({"Ana", 'f', "", "1760-01-01"}), priest = person({"Padre"}), other = person({"Padre"});
    run("update individuo set primpadrebapt = ? where nind = ?", {other, again});
    note();
    const qint64 first = mergePeople(bdp, ana, again);
    const qint64 second = mergePeople(bdp, third, ana);
    EXPECT_EQ(whyNotTakenBack(bdp, first),
              "Tem de ser desfeita primeiro a decisão que veio depois: Ana (nº 1) é Ana (nº 3).");
    EXPECT_EQ(takeBack(bdp, second), "");
    const qint64 priests = mergePeople(bdp, priest, other);
    EXPECT_EQ(whyNotTakenBack(bdp, first),
              "Tem de ser desfeita primeiro a decisão que veio depois: Padre (nº 5) é Padre (nº 4).");
    EXPECT_EQ(takeBack(bdp, priests), "");
    expectWayBack(first);
}

TEST_F(AMerge, FindsItsRowsAfterTheFileWasPackedAnew)
{
    const qint64 gone = person({"Eva", 'f'}), ana = person({"Ana", 'f'}), again = person({"Ana", 'f', "1702-02-14"});
    run("delete from individuo where nind = ?", {gone});
    const qint64 id = mergePeople(bdp, ana, again);
    bdp.close();
    elsewhere("vacuum");
    bdp.open(path());
    EXPECT_EQ(takeBack(bdp, id), "");
    EXPECT_EQ(one("select datanasc from individuo where nind = ?", {again}), "1702-02-14");
    EXPECT_EQ(one("select datanasc is null from individuo where nind = ?", {ana}), "1");
}

TEST_F(AMerge, ReadsNoDecisionThatNamesAnotherTable)
{
    const qint64 id = decideNotTheSame(bdp, person({"Ana"}), person({"Eva"}));
    run("update estudo_decisao set linhas = '[{\"tabela\":\"sqlite_master\",\"lugar\":1,\"antes\":{\"name\":1}}]'");
    EXPECT_EQ(takeBack(bdp, id), "O que ficou guardado desta decisão não se consegue ler.");
    run("update estudo_decisao set linhas = '[{\"tabela\":\"individuo\",\"lugar\":1,\"antes\":{\"x; drop\":1}}]'");
    EXPECT_EQ(takeBack(bdp, id), "O que ficou guardado desta decisão não se consegue ler.");
    run("update estudo_decisao set linhas = 'nada'");
    EXPECT_EQ(takeBack(bdp, id), "O que ficou guardado desta decisão não se consegue ler.");
}
