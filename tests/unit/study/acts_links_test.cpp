// What becomes of an act when a card deletes those who stand in it.
#include "families/frmFam.h"
#include "individuals/frmInd.h"
#include "platform/jet/recordset.h"
#include "shell/startup.h"
#include "store/lixo.h"
#include "store/parish.h"
#include "study/acts/register.h"

#include <gtest/gtest.h>

using namespace study;

namespace {

class ActOfDeletedPeople : public Parish
{
protected:
    ActOfDeletedPeople()
    {
        registerForms();
        Forms::show(FrmInd::Name);
        Forms::show(FrmFam::Name);
        cnBDP.beginTrans(); // given up at the close: nothing goes to the disk
        insertPerson("7");
        run("insert into individuo (nind, nome) values (8, 'Rui')");
        run("insert into familia (nfamilia) values (3)");
        run("insert into familias (nfamilia, nind) values (3, 8)");
        act_ = addAct(cnBDP, {.people = {{.role = Role::Child}, {.role = Role::Father, .of = 0}}},
                      {.people = {{.kind = Identity::Kind::New}, {.kind = Identity::Kind::Known, .nind = 8}}},
                      {.people = {7, 8}, .families = {3}});
    }

    static void run(const char* sql) { cnBDP.execute(jet::NativeSql(sql)); }
    static void insertPerson(const QString& nind)
    {
        cnBDP.execute(jet::NativeSql("insert into individuo (nind, nome) values (?, 'Ana')", {nind.toDouble()}));
    }

    static qint64 deletePerson(const QString& nind)
    {
        frmInd().releFicheiro({});
        frmFam().releFicheiro({});
        frmInd().mostra(nind);
        frmInd().eliminaIndividuo();
        const jet::Recordset newest(cnBDP, lixo::consulta());
        return lixo::eliminacao(newest).id;
    }

    ActRecord record() { return *readAct(cnBDP, act_); }

    qint64 act_ = 0;
};

} // namespace

TEST_F(ActOfDeletedPeople, KeepsWhatItTellsAndLosesTheLink)
{
    const ActRecord before = record();
    deletePerson("7");
    const ActRecord after = record();
    EXPECT_TRUE(after.act == before.act);
    EXPECT_TRUE(after.conclusions == before.conclusions);
    EXPECT_EQ(after.people, (QList<qint64>{0, 8}));
    EXPECT_TRUE(appearances(cnBDP, 7).isEmpty());
}

TEST_F(ActOfDeletedPeople, RemembersWhomTheKnownPersonWasTakenFor)
{
    deletePerson("8");
    EXPECT_EQ(record().people, (QList<qint64>{7, 0}));
    EXPECT_EQ(record().families, QList<qint64>{0});
    EXPECT_EQ(record().conclusions.people[1].nind, 8);
}

TEST_F(ActOfDeletedPeople, IsLinkedAgainWhenTheyComeBack)
{
    const ActRecord before = record();
    const qint64 first = deletePerson("8"), second = deletePerson("7");
    ASSERT_EQ(lixo::repoe(cnBDP, first), "");
    ASSERT_EQ(lixo::repoe(cnBDP, second), "");
    EXPECT_TRUE(record() == before);
    EXPECT_EQ(appearances(cnBDP, 8).size(), 1);
}

// The number of the last person that was deleted is given to the next one.
TEST_F(ActOfDeletedPeople, IsNeverTakenForThatOfWhoeverGetsTheirNumber)
{
    const qint64 deletion = deletePerson("7");
    insertPerson("7");
    EXPECT_EQ(record().people, (QList<qint64>{0, 8}));
    const qint64 later = deletePerson("7");
    EXPECT_EQ(lixo::repoe(cnBDP, later), "");
    EXPECT_EQ(record().people, (QList<qint64>{0, 8}));
    deletePerson("7");
    ASSERT_EQ(lixo::repoe(cnBDP, deletion), "");
    EXPECT_EQ(record().people, (QList<qint64>{7, 8}));
}

TEST_F(ActOfDeletedPeople, IsNotLinkedByADeletionThatGotTheNumberOfAnother)
{
    deletePerson("7");
    run("delete from estudo_lixo");
    const qint64 other = deletePerson("8");
    ASSERT_EQ(lixo::repoe(cnBDP, other), "");
    EXPECT_EQ(record().people, (QList<qint64>{0, 8}));
}

TEST_F(ActOfDeletedPeople, LeavesTablesOfAnotherProgramAlone)
{
    run("alter table estudo_pessoa rename column eliminacao to outra");
    deletePerson("7");
    const jet::Recordset rows(cnBDP, jet::NativeSql("select nind from estudo_pessoa order by ordem"));
    EXPECT_EQ(rows["nind"].toInt(), 7);
}
