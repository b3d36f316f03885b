// The generated parishes have what real ones have, and are the same on every machine.
#include "parish/parish.h"

#include "parish/population.h"

#include <QCryptographicHash>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <set>

using namespace bench;

namespace {

class MadeParish
{
public:
    explicit MadeParish(int people, std::uint32_t seed = usualSeed)
    {
        const QString path = folder_.filePath("a.orv");
        makeParish(path, people, seed);
        sqlite3_open(path.toUtf8().constData(), &database_);
    }

    ~MadeParish() { sqlite3_close(database_); }
    MadeParish(const MadeParish&) = delete;
    MadeParish& operator=(const MadeParish&) = delete;

    QByteArray value(const QByteArray& sql) const
    {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(database_, sql.constData(), -1, &statement, nullptr) != SQLITE_OK)
            return sqlite3_errmsg(database_);
        sqlite3_step(statement);
        const QByteArray text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
        sqlite3_finalize(statement);
        return text;
    }

private:
    QTemporaryDir folder_;
    sqlite3* database_ = nullptr;
};

const char* const allPeople =
    "select group_concat(nind || nome || datanasc || coalesce(famorig, ''), ';') from individuo";

} // namespace

TEST(GeneratedParish, HasAsManyPeopleAsAskedForAndTheSameOnesAgain)
{
    const MadeParish one(1000), same(1000), other(1000, 2);
    EXPECT_EQ(one.value("select count(*) from individuo"), "1000");
    EXPECT_EQ(one.value(allPeople), same.value(allPeople));
    EXPECT_NE(one.value(allPeople), other.value(allPeople));
}

TEST(GeneratedParish, IsSound)
{
    const MadeParish parish(3000);
    EXPECT_EQ(parish.value("pragma integrity_check"), "ok");
    EXPECT_EQ(parish.value("select count(*) from familia where nfamilia not in (select nfamilia from familias group by "
                           "nfamilia having count(*) = 2)"),
              "0")
        << "every family has its couple";
    EXPECT_EQ(parish.value("select count(*) from individuo as filho join familias as f on f.nfamilia = filho.famorig "
                           "join individuo as pais on pais.nind = f.nind where filho.datanasc < date(pais.datanasc, "
                           "'+15 years')"),
              "0")
        << "nobody is born to a child";
    EXPECT_EQ(parish.value("select count(*) from assistente where nind not in (select nind from individuo)"), "0");
    EXPECT_EQ(parish.value("select count(*) from individuo where dataobito < datanasc"), "0");
}

TEST(GeneratedParish, HasWhatTheSearchesAreHardBy)
{
    const MadeParish parish(10'000);
    EXPECT_GT(parish.value("select count(*) from familias group by nind having count(*) > 1").toInt(), 0)
        << "people who marry again";
    EXPECT_GT(parish.value("select count(*) from individuo where nome like '%ç%' or nome like '%ã%'").toInt(), 500);
    EXPECT_GT(parish.value("select max(n) from (select count(*) as n from individuo group by nome)").toInt(), 5)
        << "names that many have";
    EXPECT_GT(parish.value("select max(n) from (select count(*) as n from individuo group by famorig)").toInt(), 3);
    EXPECT_GT(parish.value("select count(distinct localnasc) from individuo").toInt(), 300);
    for (const char* table :
         {"residencia", "profissoes", "assinatura", "legadosprofanos", "rituaismorte", "passaporte", "assistente"})
        EXPECT_GT(parish.value(QByteArray("select count(*) from ") + table).toInt(), 10) << table;
}

TEST(GeneratedParish, LastsThreeCenturiesAndNumbersThePeopleByTheirYears)
{
    demo::Random random(1);
    Population population(5000, random);
    int last = 0, year = firstYear - 1;
    std::set<int> wives;
    while (population.nextYear()) {
        ++year;
        for (const Person& person : population.births()) {
            EXPECT_EQ(person.number, ++last);
            EXPECT_EQ(person.birth.year(), year);
        }
        for (const Couple& couple : population.couples())
            EXPECT_TRUE(wives.insert(couple.wife).second) << "a wife marries once";
    }
    EXPECT_EQ(last, 5000);
    EXPECT_EQ(year, firstYear + years - 1);
}
