// Storing an act and taking it back.
#include "study/acts/writer.h"

#include "study/acts/register.h"
#include "study/tellings.h"

#include <random>

using namespace study;

namespace {

Telling numberedBaptism(const QString& number = "7")
{
    Telling told = Telling::of(ActKind::Baptism, actDay);
    told.act.number = number;
    const int child = told.isNew(Role::Child, "Maria d'Além \"a Nova\" \U0001F600");
    told.isNew(Role::Father, "Manuel", child);
    told.isNew(Role::Mother, "Joana", child);
    const int godfather = told.isNew(Role::Godfather, "Rui");
    told.tell(godfather, attribute::residence, "Poucapena");
    told.tell(godfather, attribute::profession, "tamanqueiro");
    told.isNew(Role::Celebrant, "padre João");
    told.conclusions.places["Poucapena"] = {.name = "Poucapena"};
    told.conclusions.professions["tamanqueiro"] = 0;
    return told;
}

class Writer : public SmallParish
{
protected:
    static Stored store(const Telling& told) { return storeAct(cnBDP, told.act, told.conclusions); }
};

using Undo = Writer;

} // namespace

TEST_F(Writer, StoresExactlyWhatWasPlanned)
{
    const Telling told = numberedBaptism();
    const Plan plan = told.plan();
    EXPECT_EQ(plan, told.plan()) << "the same each time";
    const Stored stored = store(told);
    EXPECT_EQ(stored.plan, plan);
    const auto record = readAct(cnBDP, stored.act);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->act, told.act);
    EXPECT_EQ(record->conclusions, told.conclusions);
    EXPECT_EQ(record->written, plan.rows);
    EXPECT_EQ(record->people, plan.people);
    EXPECT_EQ(value("select nome from individuo where nind = 1"), "Maria d'Além \U0001F600");
    EXPECT_EQ(value("select famorig from individuo where nind = 1"), 1.0);
    EXPECT_EQ(value("select count(*) from familias"), 2.0);
    EXPECT_EQ(value("select nind from assistente where tipoacto = 'b' and entidade = 1"), 4.0);
    EXPECT_EQ(value("select localresid from residencia where numero = 4"), "03030103");
    EXPECT_EQ(value("select prioridade from lugar where nomelugar = '*Poucapena'"), 1.0);
}

TEST_F(Writer, ChangesNothingByPlanning)
{
    const auto before = cardRows();
    (void)numberedBaptism().plan();
    EXPECT_EQ(cardRows(), before);
    EXPECT_FALSE(hasActs(cnBDP));
}

TEST_F(Writer, RefusesWithTheReasonsAndWritesNothing)
{
    Telling told = numberedBaptism();
    told.open(Role::Witness, "José");
    const auto before = cardRows();
    try {
        store(told);
        FAIL();
    } catch (const Refused& refused) {
        ASSERT_EQ(refused.objections.size(), 1);
        EXPECT_EQ(refused.objections.first().id, "sem-decisao:5");
        EXPECT_STREQ(refused.what(), "Falta decidir quem é José (testemunha).");
    }
    EXPECT_EQ(cardRows(), before);
    EXPECT_FALSE(hasActs(cnBDP));
}

TEST_F(Writer, LeavesNothingHalfWhereAStatementFails)
{
    run("insert into profissoes (nind, idprofissao, codprof) values (99, 1, 4)");
    run("create unique index one_each on profissoes (codprof)"); // the last row of the act is refused
    const auto before = cardRows();
    EXPECT_THROW(store(numberedBaptism()), jet::Error);
    EXPECT_EQ(cardRows(), before);
    EXPECT_FALSE(hasActs(cnBDP));
    EXPECT_EQ(cnBDP.transactionLevel(), 1);
}

TEST_F(Writer, GoesOnBehindAnActThatWasRefused)
{
    Telling wrong = numberedBaptism();
    wrong.act.date = {};
    EXPECT_THROW(store(wrong), Refused);
    EXPECT_EQ(store(numberedBaptism()).plan.people.first(), 1);
    EXPECT_EQ(store(numberedBaptism("8")).plan.people.first(), 6);
    EXPECT_EQ(value("select count(*) from lugar where nomelugar = '*Poucapena'"), 1.0) << "made once";
    EXPECT_EQ(value("select count(*) from profissao where profissao = '*Tamanqueiro'"), 1.0);
}

TEST_F(Writer, KeepsTheCodesOfThePlacesAndProfessionsThatWereTakenForTheWordsOfTheAct)
{
    for (const QString number : {"7", "8"}) { // made with the act; found
        Telling told = numberedBaptism(number);
        told.act.place.value = "Poucapena";
        told.tell(3, attribute::birthplace, "Sítio Novo");
        const qint64 act = store(told).act;
        const auto codeOf = [&](const char* column, const char* type) {
            return value(QString("select %1 from estudo_atributo where acto = ? and tipo = ?").arg(column),
                         {act, type});
        };
        EXPECT_EQ(codeOf("local", attribute::residence), "03030103") << qPrintable(number);
        EXPECT_EQ(codeOf("nivel", attribute::residence), "L") << qPrintable(number);
        EXPECT_EQ(codeOf("codprof", attribute::profession), 4) << qPrintable(number);
        EXPECT_TRUE(codeOf("local", attribute::birthplace).isNull()) << "not concluded";
        EXPECT_EQ(value("select local from estudo_acto where id = ?", {act}), "03030103") << qPrintable(number);
    }
}

TEST_F(Undo, LeavesTheBdpAsItWas)
{
    person("outro", "m");
    const auto before = cardRows();
    const Stored stored = store(numberedBaptism());
    EXPECT_EQ(whyNotUndone(cnBDP, stored.act), "");
    EXPECT_EQ(undoAct(cnBDP, stored.act), "");
    EXPECT_EQ(cardRows(), before);
    EXPECT_FALSE(readAct(cnBDP, stored.act));
    EXPECT_EQ(undoAct(cnBDP, stored.act), "Este acto já não está na BDP.");
}

TEST_F(Undo, PutsAlteredColumnsBack)
{
    const qint64 maria = person("Maria", "d", {{"tipo", "2"}, {"dataobito", actDay.addYears(3)}});
    const auto before = cardRows();
    Telling told = Telling::of(ActKind::Baptism, actDay);
    told.act.people << ActPerson{.role = Role::Child, .toldSex = Sex::Female};
    told.conclusions.people << Identity{.kind = Identity::Kind::Known, .nind = maria};
    told.isNew(Role::Father, "Manuel", 0);
    const Stored stored = store(told);
    EXPECT_NE(cardRows(), before);
    EXPECT_EQ(undoAct(cnBDP, stored.act), "");
    EXPECT_EQ(cardRows(), before);
}

TEST_F(Undo, IsRefusedWhereARowWasTouched)
{
    const Stored stored = store(numberedBaptism());
    const struct
    {
        const char* touch;
        const char* back;
        const char* why;
    } cases[] = {
        {"update individuo set obs = 'x' where nind = 1", "update individuo set obs = null where nind = 1",
         "A ficha do indivíduo nº 1 foi alterada depois."},
        {"update individuo set rpBapt = 'x' where nind = 1", "update individuo set rpBapt = null where nind = 1",
         "A ficha do indivíduo nº 1 foi alterada depois."},
        {"update familia set tipocasal = 4", "update familia set tipocasal = 7",
         "A ficha da família nº 1 foi alterada depois."},
        {"update assistente set obs = 'x'", "update assistente set obs = null",
         "Um assistente do acto foi alterado depois."},
        {"update lugar set prioridade = 3", "update lugar set prioridade = case codlugar when '03030103' then 1 end",
         "O lugar 03030103 foi alterado depois."},
        {"update residencia set numero = 99", "update residencia set numero = 4",
         "Uma residência do indivíduo nº 4 já não existe."},
    };
    for (const auto& one : cases) {
        run(one.touch);
        const auto before = cardRows();
        EXPECT_EQ(whyNotUndone(cnBDP, stored.act), one.why) << one.touch;
        EXPECT_EQ(undoAct(cnBDP, stored.act), one.why) << one.touch;
        EXPECT_EQ(cardRows(), before) << one.touch;
        run(one.back);
    }
    EXPECT_EQ(undoAct(cnBDP, stored.act), "");
}

TEST_F(Undo, IsRefusedWhereSomethingHangsOnWhatTheActMade)
{
    const Stored stored = store(numberedBaptism());
    run("insert into individuo (nind, nome) values (100, 'Outro')");
    run("insert into familia (nfamilia) values (50)");
    const struct
    {
        const char* hang;
        const char* off;
    } cases[] = {
        {"update individuo set famorig = 1 where nind = 100", "update individuo set famorig = null where nind = 100"},
        {"update individuo set testamenteiro = 2 where nind = 100",
         "update individuo set testamenteiro = null where nind = 100"},
        {"update individuo set testamenteiro = 2 where nind = 1",
         "update individuo set testamenteiro = null where nind = 1"},
        {"update individuo set primpadreobito = 5 where nind = 100",
         "update individuo set primpadreobito = null where nind = 100"},
        {"update familia set segpadrecasam = 5 where nfamilia = 50",
         "update familia set segpadrecasam = null where nfamilia = 50"},
        {"insert into familias (nfamilia, nind) values (50, 1)", "delete from familias where nfamilia = 50"},
        {"insert into assistente (tipoacto, entidade, nind) values ('c', 1, 100)",
         "delete from assistente where nind = 100"},
        {"insert into assistente (tipoacto, entidade, nind) values ('b', 100, 4)",
         "delete from assistente where entidade = 100"},
        {"insert into passaporte (nind, nPass) values (4, 1)", "delete from passaporte"},
        {"insert into residencia (numero, tiporesid, dataref) values (1, 'f', '1705-01-01')",
         "delete from residencia where tiporesid = 'f'"},
        {"insert into legadosprofanos (nind, idlegprof, nindherd) values (100, 1, 3)", "delete from legadosprofanos"},
    };
    for (const auto& one : cases) {
        run(one.hang);
        const auto before = cardRows();
        EXPECT_NE(undoAct(cnBDP, stored.act), "") << one.hang;
        EXPECT_EQ(cardRows(), before) << one.hang;
        run(one.off);
        EXPECT_EQ(whyNotUndone(cnBDP, stored.act), "") << one.off;
    }
}

TEST_F(Undo, IsRefusedWhereAnotherColumnOfARowThatItAlteredNamesSomebodyItMade)
{
    const qint64 maria = person("Maria", "f");
    Telling told = Telling::of(ActKind::Baptism, actDay);
    told.known(Role::Child, maria);
    told.isNew(Role::Celebrant, "padre João");
    const Stored stored = store(told);
    EXPECT_EQ(whyNotUndone(cnBDP, stored.act), "") << "the priest of the baptism is the act's own";
    run("update individuo set testamenteiro = 2 where nind = 1");
    EXPECT_EQ(whyNotUndone(cnBDP, stored.act), "Alguém que veio com o acto já é padre, testamenteiro ou herdeiro.");
}

TEST_F(Undo, TakesBothRowsOfSomebodyWhoAssistsTwice)
{
    const qint64 rui = person("Rui", "m");
    const auto before = cardRows();
    Telling told = Telling::of(ActKind::Baptism, actDay);
    told.isNew(Role::Child, "Maria");
    told.known(Role::Witness, rui);
    told.known(Role::Witness, rui);
    told.overrule("mesma-pessoa:2");
    const Stored stored = store(told);
    EXPECT_EQ(value("select count(*) from assistente"), 2.0);
    EXPECT_EQ(undoAct(cnBDP, stored.act), "");
    EXPECT_EQ(cardRows(), before);
}

TEST_F(Undo, IsRefusedWhereALaterActNamesSomebody)
{
    const Stored first = store(numberedBaptism());
    Telling later = Telling::of(ActKind::Burial, actDay.addYears(1));
    later.isNew(Role::Deceased, "Gil");
    later.known(Role::Mentioned, first.plan.people[3]);
    const Stored second = store(later);
    EXPECT_EQ(whyNotUndone(cnBDP, first.act), "O indivíduo nº 4, que veio com o acto, está também noutro acto.");
    EXPECT_EQ(undoAct(cnBDP, second.act), "");
    EXPECT_EQ(undoAct(cnBDP, first.act), "");
}

TEST_F(Undo, IsRefusedWhereALaterActUsesTheFamilyAlone)
{
    const qint64 he = person("Rui", "m"), she = person("Ana", "f");
    const auto couple = [&](const QString& number) {
        Telling told = Telling::of(ActKind::Burial, actDay);
        told.act.number = number;
        told.isNew(Role::Deceased, "Gil");
        const int mentioned = told.known(Role::Mentioned, she);
        told.known(Role::Spouse, he, mentioned);
        return told;
    };
    const Stored first = store(couple("1")), second = store(couple("2"));
    EXPECT_EQ(whyNotUndone(cnBDP, first.act), "A família nº 1, que veio com o acto, está também noutro acto.");
    EXPECT_EQ(undoAct(cnBDP, second.act), "");
    EXPECT_EQ(undoAct(cnBDP, first.act), "");
}

TEST_F(Undo, LeavesAPlaceInWhichOthersLiveByNow)
{
    const Stored stored = store(numberedBaptism());
    run("insert into residencia (numero, tiporesid, dataref, localresid, tipolocal) values (99, 'i', '1705-01-01', "
        "'03030103', 'L')");
    EXPECT_EQ(undoAct(cnBDP, stored.act), "");
    EXPECT_EQ(value("select count(*) from lugar where codlugar = '03030103'"), 1.0);
    EXPECT_EQ(value("select count(*) from profissao where codprof = 4"), 0.0);
}

TEST_F(Undo, TakesNothingOnTrustThatStandsInTheTablesOfTheActs)
{
    const Stored stored = store(numberedBaptism());
    const auto before = cardRows();
    run("update estudo_escrita set tabela = 'infopar' where tabela = 'lugar'");
    EXPECT_EQ(undoAct(cnBDP, stored.act), "O que ficou guardado deste acto não se consegue ler.");
    EXPECT_EQ(cardRows(), before);
}
