// Types of people and families that are recalculated.
#include "study/checked.h"

#include "study/checks/types.h"
#include "study/linkage/decisions.h"
#include "study/linkage/recalculate.h"
#include "study/linkage/types.h"

using namespace study;
using namespace study::linkage;

namespace {

class RecalculatedTypes : public Checked
{
protected:
    RecalculatedTypes()
    {
        const qint64 rui = person({"Rui", 'm', "1700-01-02", "1760-01-02"});
        const qint64 ana = person({"Ana", 'f', "1702-01-02", "1770-01-02"});
        couple(rui, ana, "1725-01-02");
        run("update individuo set tipo = '1'");
        run("update familia set tipocasal = 7");
    }
    QList<NewType> differences() const
    {
        QList<NewType> all;
        for (const checks::TypeDifference& one : checks::typeDifferences(parish::Snapshot::read(bdp)))
            all << NewType{one.isFamily, one.number, one.stored, one.byDates};
        return all;
    }
    QString types()
    {
        const jet::Recordset rows(bdp, jet::NativeSql("select group_concat(tipo, ',') || ';' || (select "
                                                      "group_concat(tipocasal, ',') from familia) from individuo"));
        return rows[0].toString();
    }
};

TEST_F(RecalculatedTypes, AreThoseOfTheDates)
{
    EXPECT_EQ(differences(), (QList<NewType>{{false, 1, "1", "4"}, {false, 2, "1", "4"}, {true, 1, "7", "1"}}));
    const TypesWritten written = writeTypes(bdp, differences());
    EXPECT_EQ(written.people, 2);
    EXPECT_EQ(written.families, 1);
    EXPECT_TRUE(written.left.isEmpty());
    EXPECT_EQ(types(), "4,4;1");
    EXPECT_TRUE(differences().isEmpty());
    EXPECT_TRUE(cases("P-10").isEmpty());
    EXPECT_TRUE(cases("F-16").isEmpty());
}

TEST_F(RecalculatedTypes, OfFamiliesAreTheSameAsThoseOfAMerge)
{
    for (const char* his : {"m", "f", "d"})
        for (const char* hers : {"m", "f", "d"}) {
            run("update individuo set sexo = ? where nind = 1", {his});
            run("update individuo set sexo = ? where nind = 2", {hers});
            const QList<NewType> found = differences();
            const QString type = found.size() == 3 ? found.last().after : QString("7");
            EXPECT_EQ(type, familyType(Recording(bdp), 1)) << his << hers;
        }
}

TEST_F(RecalculatedTypes, AreOneStepThatCanBeTakenBack)
{
    EXPECT_EQ(lastTypesWritten(bdp), 0);
    const QList<NewType> before = differences();
    const qint64 id = writeTypes(bdp, before).decision;
    EXPECT_EQ(lastTypesWritten(bdp), id);
    EXPECT_EQ(decision(bdp, id)->what.title, "Tipos recalculados: 2 indivíduos e 1 família");
    EXPECT_EQ(takeBack(bdp, id), "");
    EXPECT_EQ(types(), "1,1;7");
    EXPECT_EQ(differences(), before);
    EXPECT_EQ(lastTypesWritten(bdp), 0);
}

TEST_F(RecalculatedTypes, LeaveAloneWhatWasAlteredMeanwhile)
{
    const QList<NewType> before = differences();
    run("update individuo set tipo = 'T' where nind = 1");
    run("delete from familia");
    const TypesWritten written = writeTypes(bdp, before);
    EXPECT_EQ(written.people, 1);
    EXPECT_EQ(written.left, (QList<NewType>{before[0], before[2]}));
    EXPECT_EQ(writeTypes(bdp, before), (TypesWritten{.left = before})) << "nothing is left to be written";
    EXPECT_EQ(decisions(bdp).size(), 1);
}

TEST_F(RecalculatedTypes, AreAllWrittenOrNone)
{
    run("create table estudo_decisao (nome varchar)"); // of another program
    EXPECT_THROW(writeTypes(bdp, differences()), jet::Error);
    EXPECT_EQ(types(), "1,1;7");
    EXPECT_EQ(bdp.transactionLevel(), 0);
}

} // namespace
