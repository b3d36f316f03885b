// Who may be alive stays out of the Intermediate Data Structure, and so does what tells of them.
#include "study/idsTables.h"
#include "study/people.h"

using namespace study;
using namespace study::exchange;

namespace {

// Rui has died, Ana may be alive, and so may their children Eva and Ivo; Gil has died.
class IdsOfTheLiving : public People
{
protected:
    IdsOfTheLiving()
    {
        options_.today = QDate(2026, 1, 1);
        rui_ = person({"Rui", 'm', "1900-05-04", "1990-02-03"});
        ana_ = person({"Ana", 'f', "1925-01-02"});
        family_ = couple(rui_, ana_, "1945-06-07");
        eva_ = person({"Eva", 'f', "1950-03-10", "", family_});
        ivo_ = person({"Ivo", 'm', "1952-08-09", "1953-01-02", family_});
        gil_ = person({"Gil", 'm', "1890-01-02", "1960-05-06"});
        run("update familia set sfamilia = '1'");
        run("update familias set idade = 45, estadocivil = 1 where nind = ?", {rui_});
        run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente, estadocivil, parentbapt) "
            "values "
            "('b', ?, '1950-03-10', ?, 'p', 1, 19), ('c', ?, '1945-06-07', ?, 't', 1, null)",
            {eva_, gil_, family_, gil_});
        run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal) values (?, 'f', "
            "'1951-02-03', 1, '010102', 'F')",
            {family_});
    }
    ids::Tables tables() const { return ids::written(bdp, options_); }
    static bool names(const ids::Tables& tables, qint64 who)
    {
        const QString number = QString::number(who);
        for (const QList<ids::Row>& rows : tables.rows)
            for (const ids::Row& row : rows)
                if (row["Id_I"] == number || row["Id_I_1"] == number || row["Id_I_2"] == number) return true;
        return false;
    }

    IdsOptions options_;
    qint64 rui_ = 0, ana_ = 0, eva_ = 0, ivo_ = 0, gil_ = 0, family_ = 0;
};

} // namespace

TEST_F(IdsOfTheLiving, IsOfTheOthersAndOfTheLinksBetweenThem)
{
    const ids::Tables all = tables();
    EXPECT_EQ(all.counts.withheldPeople, 2);
    EXPECT_EQ(all.counts.withheldFamilies, 1);
    EXPECT_EQ(all.counts.people, 3);
    EXPECT_TRUE(names(all, gil_));
    EXPECT_FALSE(names(all, ana_));
    EXPECT_FALSE(names(all, eva_));
    EXPECT_EQ(all.relations(rui_, ivo_), QStringList("Father"));
    EXPECT_TRUE(ids::faultsOf(all).isEmpty()) << qPrintable(ids::faultsOf(all).join('\n'));
    bool isTold = false;
    for (const ids::Row& row : all.rows["METADATA"])
        isTold =
            isTold || (row["Type"] == "Privacy" && row["Explanation"].startsWith("People who may be alive are left "
                                                                                 "out: 2 (born less than 110"));
    EXPECT_TRUE(isTold);
}

TEST_F(IdsOfTheLiving, TellsNothingOfTheirMarriageNorOfTheirHome)
{
    const ids::Tables all = tables();
    for (const char* const type : {"Marriage", "Age_at_marriage", "Civil_status", "Kinship_to_child"})
        for (const qint64 who : {rui_, gil_})
            EXPECT_TRUE(all.of(who, type).isEmpty()) << type;
    QStringList roles, told;
    for (const ids::Row& row : all.rows["INDIV_CONTEXT"])
        roles << row["Relation"] + ids::date(row);
    for (const ids::Row& row : all.rows["CONTEXT"])
        told << row["Type"] + '=' + row["Value"] + ids::date(row);
    EXPECT_EQ(roles, (QStringList{"Husband", "Child"}));
    EXPECT_EQ(told, QStringList("Level=Union"));
    for (auto file = all.files.begin(); file != all.files.end(); ++file)
        for (const char* const date : {"10,3,1950", "7,6,1945", "3,2,1951"})
            EXPECT_FALSE(file->contains(date)) << qPrintable(file.key()) << date;
}

TEST_F(IdsOfTheLiving, EndsATimeOfObservationThatOnlyTheirActsProve)
{
    // Who died elsewhere is seen here until a child's baptism, and the child may be alive.
    run("insert into infopar (cod, nome, pais) values ('010102', 'Aguada', 'PT')");
    run("update individuo set localobito = '020202', tipolocalobito = 'F' where nind = ?", {rui_});
    run("update individuo set dataobito = null where nind = ?", {ivo_});
    const ids::Tables all = tables();
    ASSERT_EQ(all.of(rui_, "End_observation").size(), 1);
    EXPECT_EQ(all.value(rui_, "End_observation"), "Limit");
    EXPECT_EQ(ids::date(all.of(rui_, "End_observation").first()), "1/1/1916");
    options_.limitYears = 0;
    EXPECT_EQ(tables().value(rui_, "End_observation"), "Last_act");
}

TEST_F(IdsOfTheLiving, IsWholeWhereTheUserWantsNoLimit)
{
    options_.limitYears = 0;
    const ids::Tables all = tables();
    EXPECT_EQ(all.counts.people, 5);
    EXPECT_EQ(all.counts.withheldPeople, 0);
    EXPECT_EQ(all.relations(gil_, eva_), QStringList("Godfather"));
    for (const ids::Row& row : all.rows["METADATA"])
        EXPECT_NE(row["Type"], "Privacy");
}
