// What is written in the Intermediate Data Structure keeps its rules, and tells the same families as the BDP.
#include "data/datafolder.h"
#include "data/demobdp.h"
#include "study/idsTables.h"
#include "truth/truth.h"

#include "study/observation/presence.h"

#include <algorithm>

using namespace study;
using exchange::IdsOptions;

namespace {

IdsOptions optionsOf(bool reversed = false)
{
    IdsOptions options;
    options.today = QDate(2026, 1, 1);
    options.version = QDate(2025, 12, 24);
    options.reversedRelations = reversed;
    return options;
}

void expectNoFaults(const ids::Tables& tables)
{
    const QStringList faults = ids::faultsOf(tables);
    EXPECT_TRUE(faults.isEmpty()) << faults.size() << '\n' << qPrintable(faults.mid(0, 10).join('\n'));
}

// Of the tables of the cards: who stands alone and has no children is told by no relation.
ids::Families familiesOf(const parish::Snapshot& parish)
{
    ids::Families families;
    for (const parish::Family& family : parish.families()) {
        QList<qint64> couple;
        for (const parish::Membership& row : family.members)
            couple << value(row.member.number);
        std::sort(couple.begin(), couple.end());
        if (couple.isEmpty() || (couple.size() == 1 && family.children.empty())) continue;
        for (const parish::Person* child : family.children)
            families[couple] << value(child->number);
        families[couple];
    }
    return families;
}

void expectTheSameFamilies(const jet::Connection& bdp)
{
    const ids::Families wanted = familiesOf(parish::Snapshot::read(bdp));
    ASSERT_FALSE(wanted.isEmpty());
    for (const bool reversed : {false, true}) {
        const ids::Families found = ids::familiesOf(ids::written(bdp, optionsOf(reversed)), reversed);
        EXPECT_EQ(found.size(), wanted.size());
        EXPECT_EQ(found, wanted) << reversed;
    }
}

class IdsOfTheDemonstration : public DemoBdp
{
};

} // namespace

TEST_F(IdsOfTheDemonstration, IsByTheRules)
{
    expectNoFaults(ids::written(bdp_->connection, optionsOf()));
    IdsOptions options = optionsOf(true);
    options.upperCase = true;
    options.childrenAtHome = true;
    const ids::Tables other = ids::written(bdp_->connection, options);
    expectNoFaults(other);
    for (const ids::Row& row : other.rows["INDIVIDUAL"])
        ASSERT_EQ(row["Type"], row["Type"].toUpper());
}

TEST_F(IdsOfTheDemonstration, TellsItsFamiliesByRelationsAlone)
{
    expectTheSameFamilies(bdp_->connection);
}

TEST_F(IdsOfTheDemonstration, HasAsManyOfEachAsTheBdp)
{
    const ids::Tables tables = ids::written(bdp_->connection, optionsOf());
    QMap<QString, int> types, relations;
    QSet<QString> people;
    for (const ids::Row& row : tables.rows["INDIVIDUAL"]) {
        ++types[row["Type"]];
        people << row["Id_I"];
    }
    for (const ids::Row& row : tables.rows["INDIV_INDIV"])
        ++relations[row["Relation"]];
    for (const ids::Row& row : tables.rows["CONTEXT"])
        ++types[row["Type"] + '=' + row["Value"]];
    const auto rowsOf = [](const char* select) { return bdp_->rows(select).value(0).toInt(); };
    EXPECT_EQ(people.size(), rowsOf("select count(*) from individuo"));
    EXPECT_EQ(tables.counts.people, people.size());
    EXPECT_EQ(tables.counts.lostLinks, 0);
    EXPECT_EQ(tables.counts.withheldPeople, 0) << "the books end long ago";
    EXPECT_EQ(types["Birth_date"], rowsOf("select count(datanasc) from individuo"));
    EXPECT_EQ(types["Birth_location"], rowsOf("select count(*) from individuo where localnasc <> ''"));
    EXPECT_EQ(types["Death_date"], rowsOf("select count(dataobito) from individuo"));
    EXPECT_EQ(types["Occupation"], rowsOf("select count(codprof) from profissoes"));
    EXPECT_EQ(types["Signature_level"], rowsOf("select count(nivelassinatura) from assinatura"));
    EXPECT_EQ(types["Passport"], rowsOf("select count(*) from passaporte"));
    EXPECT_EQ(types["Mass"] + types["Office"] + types["Alms"] + types["Other_suffrage"],
              rowsOf("select count(*) from rituaismorte"));
    EXPECT_EQ(types["Level=Union"], rowsOf("select count(*) from familia"));
    EXPECT_EQ(relations["Child"], rowsOf("select count(*) from individuo i join familias m on m.nfamilia = i.famorig"));
    EXPECT_EQ(relations["Godchild"],
              rowsOf("select count(*) from assistente where tipoacto = 'b' and tipoassistente = 'p'"));
    EXPECT_EQ(relations["Marriage_witness"],
              rowsOf("select count(*) from assistente s join familias m on m.nfamilia = s.entidade "
                     "where s.tipoacto = 'c'"));
    EXPECT_EQ(relations["Heir"], rowsOf("select count(*) from (select distinct nind, nindherd from legadosprofanos "
                                        "where nindherd is not null)"));
}

TEST_F(IdsOfTheDemonstration, ObservesEachPersonByTheRulesOfTheStudy)
{
    const ids::Tables tables = ids::written(bdp_->connection, optionsOf());
    const parish::Snapshot parish = parish::Snapshot::read(bdp_->connection);
    const auto presences = presencesOf(parish, observation::unionsOf(parish, {}));
    QMap<qint64, QMap<QString, ids::Row>> told;
    for (const ids::Row& row : tables.rows["INDIVIDUAL"])
        told[row["Id_I"].toLongLong()][row["Type"]] = row;
    const auto wanted = [](const parish::Date& date) {
        return date.isExact() ? date.date().toString("d/M/yyyy") : QString::number(date.year());
    };
    int observed = 0;
    for (std::size_t i = 0; i < presences.size(); ++i) {
        const QMap<QString, ids::Row> rows = told[value(parish.people()[i].number)];
        ASSERT_EQ(rows.contains("Start_observation"), presences[i].isObserved());
        if (!presences[i].isObserved()) continue;
        ++observed;
        EXPECT_EQ(ids::date(rows["Start_observation"]), wanted(presences[i].from.day));
        EXPECT_EQ(ids::date(rows["End_observation"]), wanted(presences[i].until.day));
        EXPECT_EQ(rows["Start_observation"]["Value"] == "Birth", presences[i].from.by == observation::Proof::Birth);
        EXPECT_EQ(rows["End_observation"]["Value"] == "Death", presences[i].until.by == observation::Proof::Death);
    }
    EXPECT_GT(observed, 100);
}

TEST_F(IdsOfTheDemonstration, IsTheSameBytesEachTime)
{
    const ids::Tables one = ids::written(bdp_->connection, optionsOf());
    IdsOptions later = optionsOf();
    later.today = QDate(2050, 5, 5);
    EXPECT_EQ(ids::written(bdp_->connection, later).files, one.files);
    EXPECT_EQ(one.files.keys(),
              (QStringList{"CONTEXT.csv", "CONTEXT_CONTEXT.csv", "INDIVIDUAL.csv", "INDIV_CONTEXT.csv",
                           "INDIV_INDIV.csv", "METADATA.csv", "datapackage.json"}));
}

TEST(IdsOfGeneratedParishes, AreByTheRulesAndTellTheirFamilies)
{
    for (const std::uint32_t seed : {7U, 8U}) {
        const truth::Parish parish = truth::parish(400, seed, ORV_DATA_DIR);
        datafolder::MadeBdp made;
        truth::write(parish.bdp, parish.world, made.connection);
        IdsOptions options = optionsOf();
        options.childrenAtHome = true;
        expectNoFaults(ids::written(made.connection, options));
        expectTheSameFamilies(made.connection);
    }
}
