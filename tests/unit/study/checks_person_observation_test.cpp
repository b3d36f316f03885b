// Rules of the window of observation: each with a case that must fire and a near miss that must not.
#include "study/checked.h"

class TheObservedPeople : public Checked
{
protected:
    TheObservedPeople() { run("insert into infopar (cod, nome) values ('030899', 'Moinhos')"); }
};

TEST_F(TheObservedPeople, AreSeenBeforeTheyAreSeenNoMore)
{
    person({"Rui"});
    person({"Gil"});
    run("update individuo set inicioobs = '1702-02-14', fimobs = case nind when 1 then '1702-02-13' else '1702-02-14' "
        "end");
    EXPECT_EQ(cases("P-16"), QStringList("impossível: Rui (nº 1) está em observação desde 14/02/1702, e só até "
                                         "13/02/1702."));
}

TEST_F(TheObservedPeople, AreSeenWhileTheyLive)
{
    person({"Rui", 'm', "1702-02-14", "1760-05-01"});
    person({"Gil", 'm', "1702-02-13", "1760-05-02"});
    run("update individuo set inicioobs = '1702-02-13', fimobs = '1760-05-02'");
    EXPECT_EQ(cases("P-17"), QStringList("aviso: Rui (nº 1) está em observação desde 13/02/1702, antes de nascer em "
                                         "14/02/1702, e até 02/05/1760, depois de morrer em 01/05/1760."));
    EXPECT_EQ(cases("P-17", {.limits = {{"P-17.dias", 1}}}), QStringList());
    run("update individuo set DnascFixa = 0, dobitofixa = 0");
    EXPECT_EQ(cases("P-17"), QStringList());
}

TEST_F(TheObservedPeople, HaveNoActHereAfterwards)
{
    person({"Rui", 'm', "", "1760-05-01"});
    person({"Ana", 'f'});
    wedding(1, 2, "1730-02-04");
    run("update familia set localcasam = '030899', tipolocalcasam = 'F'");
    run("update individuo set fimobs = '1730-02-03' where nind = 2");
    EXPECT_EQ(cases("P-18"), QStringList("aviso: Ana (nº 2) está em observação até 03/02/1730, e tem um acto posterior "
                                         "na freguesia: casamento em 04/02/1730."));
    run("update familia set localcasam = '030801'"); // of a neighbour
    EXPECT_EQ(cases("P-18"), QStringList());
    // Who died here, and was then a father.
    person({"Eva", 'f', "1760-09-01", "", 1});
    run("update individuo set localnasc = '03089901', tipolocalnasc = 'L', fimobs = '1760-05-01' where nind <> 2");
    EXPECT_EQ(cases("P-18"), QStringList("aviso: Ana (nº 2) está em observação até 03/02/1730, e tem um acto posterior "
                                         "na freguesia: baptismo de Eva (nº 3) em 01/09/1760."));
}

TEST_F(TheObservedPeople, AreSeenFromTheirBirthHere)
{
    person({"Rui", 'm', "1702-02-14"});
    person({"Gil", 'm', "1702-02-15"});
    person({"Ivo", 'm', "1702-02-14"});
    run("update individuo set inicioobs = '1702-02-15', tipolocalnasc = 'F', "
        "localnasc = case nind when 3 then '030801' else '030899' end");
    EXPECT_EQ(cases("P-19"), QStringList("informação: Rui (nº 1) nasceu na freguesia em 14/02/1702, e só está em "
                                         "observação desde 15/02/1702."));
    run("insert into residencia (numero, tiporesid, dataref, localresid, tipolocal) "
        "values (1, 'i', '1702-02-15', '030801', 'F')");
    EXPECT_EQ(cases("P-19"), QStringList());
}

TEST_F(TheObservedPeople, AreTiedToSomething)
{
    for (const char* name : {"Rui", "Gil", "Ivo", "Zé", "Ana", "Eva"})
        person({name});
    couple(5, 6);
    run("update individuo set primpadrebapt = 2 where nind = 5");
    run("insert into assistente (tipoacto, entidade, nind) values ('b', 5, 3)");
    run("insert into profissoes (nind, idprofissao) values (4, 1)");
    EXPECT_EQ(cases("P-20"), QStringList("informação: Rui (nº 1) não tem datas, família nem actos."));
    run("create table estudo_pessoa (acto integer, ordem integer, nome varchar, nind double)");
    run("insert into estudo_pessoa (acto, ordem, nome, nind) values (5, 0, 'Rui', 1)");
    EXPECT_EQ(cases("P-20"), QStringList());
}
