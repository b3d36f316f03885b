// Which acts and people a study is about.
#include "study/natal.h"

#include "study/indicators/births.h"
#include "study/indicators/childhood.h"
#include "study/indicators/scope.h"

#include <gtest/gtest.h>

using namespace study::indicators;

namespace {

using TheScopeOfAStudy = Natal;

} // namespace

TEST_F(TheScopeOfAStudy, HoldsEveryActWhereTheParishIsNotMadeKnownToItself)
{
    const qint64 born = person({"Rui", 'm', "1720-02-14"});
    run("update individuo set localnasc = '030301', tipolocalnasc = 'F' where nind = ?", {born});
    count(sexRatio);
    EXPECT_EQ(leftOut("nascimentos noutra paróquia"), 0);
    run("insert into infopar (cod, nome) values ('030899', 'Aqui')");
    count(sexRatio);
    EXPECT_EQ(leftOut("nascimentos noutra paróquia"), 1);
    Settings everywhere;
    everywhere.localOnly = false;
    count(sexRatio, everywhere);
    EXPECT_EQ(leftOut("nascimentos noutra paróquia"), 0);
}

TEST_F(TheScopeOfAStudy, HoldsFoundlingsNeitherForLegitimateNorForIllegitimate)
{
    const qint64 family =
        married({.marriage = "1741-06-10", .wifeBirth = "1720-03-12", .wifeDeath = "1790-01-01", .husbandDeath = ""});
    const qint64 found = child(family, "1742-05-03");
    const qint64 natural = child(family, "1744-05-03");
    run("update individuo set filiacao = 6 where nind = ?", {found});
    run("update individuo set filiacao = 2 where nind = ?", {natural});
    const auto parish = study::parish::Snapshot::read(bdp);
    const auto why = [&](qint64 number, Which which) {
        Settings settings;
        settings.which = which;
        return childhoodOf(*parish.person(study::parish::PersonNumber(number)), studyOf(parish, settings)).why;
    };
    EXPECT_EQ(why(found, Which::All), Unwatched::Watched);
    EXPECT_EQ(why(found, Which::Legitimate), Unwatched::NotAsked);
    EXPECT_EQ(why(found, Which::Illegitimate), Unwatched::NotAsked);
    EXPECT_EQ(why(natural, Which::Illegitimate), Unwatched::Watched);
}
