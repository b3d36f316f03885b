// Cases that were put aside, and the settings of the checks, as the BDP keeps them.
#include "study/checked.h"

#include "study/checks/seen.h"
#include "study/checks/settings.h"

using namespace study::checks;

namespace {

class WhatTheBdpKeepsOfItsChecks : public Checked
{
protected:
    std::vector<Case> ofRule(const char* rule, const Settings& settings = {}) const
    {
        std::vector<Case> cases = all(settings);
        std::erase_if(cases, [&](const Case& one) { return one.rule != rule; });
        return cases;
    }
    bool isAside(const Case& one) const { return Aside(seenCases(bdp))(one); }
    bool hasTable(const QString& name) const { return bdp.tables().contains(name); }
};

TEST_F(WhatTheBdpKeepsOfItsChecks, IsNothingUntilSomethingIsSet)
{
    EXPECT_TRUE(seenCases(bdp).empty());
    EXPECT_EQ(keptSettings(bdp), Settings{});
    takeBack(bdp, {"P-01 i1"});
    keepSettings(bdp, {});
    EXPECT_FALSE(hasTable("estudo_visto"));
    EXPECT_FALSE(hasTable("estudo_regra"));
}

TEST_F(WhatTheBdpKeepsOfItsChecks, IsACasePutAsideUntilItsRecordIsChanged)
{
    const qint64 rui = person({"Rui", 'm', "1702-02-14", "1702-02-13"});
    putAside(bdp, ofRule("P-01"), "visto no livro");
    EXPECT_TRUE(isAside(ofRule("P-01").at(0)));
    run("update individuo set titulo = 'Dom' where nind = ?", {rui});
    EXPECT_FALSE(isAside(ofRule("P-01").at(0))) << "it comes back";
    EXPECT_EQ(seenCases(bdp).at(0).reason, "visto no livro") << "and its reason is still known";
    putAside(bdp, ofRule("P-01"), "visto outra vez");
    EXPECT_TRUE(isAside(ofRule("P-01").at(0)));
    EXPECT_EQ(seenCases(bdp).size(), 1U);
    takeBack(bdp, {ofRule("P-01").at(0).key()});
    EXPECT_FALSE(isAside(ofRule("P-01").at(0)));
    EXPECT_TRUE(seenCases(bdp).empty());
}

TEST_F(WhatTheBdpKeepsOfItsChecks, IsAReasonToTheLetter)
{
    person({"Rui d'Ávila \"o 🐟\"", 'm', "1702-02-14", "1702-02-13"});
    const QString odd = "d'Ávila; \"🐟\"\n" + QString(10000, 'x');
    putAside(bdp, ofRule("P-01"), odd);
    const Seen seen = seenCases(bdp).at(0);
    EXPECT_EQ(seen.reason, odd);
    EXPECT_EQ(seen.text, ofRule("P-01").at(0).text);
    EXPECT_EQ(seen.key, "P-01 i1");
    EXPECT_EQ(seen.rule, "P-01");
}

TEST_F(WhatTheBdpKeepsOfItsChecks, IsAllThatIsPutAsideOrNone)
{
    person({"Rui", 'm', "1702-02-14", "1702-02-13"});
    person({"Gil", 'm', "1702-02-14", "1702-02-13"});
    run("create table estudo_visto (chave varchar primary key not null check (chave <> 'P-01 i2'), regra varchar, "
        "estado varchar, texto text, razao text, quando varchar)");
    EXPECT_THROW(putAside(bdp, ofRule("P-01"), "visto"), jet::Error);
    EXPECT_TRUE(seenCases(bdp).empty());
    EXPECT_EQ(bdp.transactionLevel(), 0);
}

TEST_F(WhatTheBdpKeepsOfItsChecks, IsLeftAloneWhereItIsATableOfOthers)
{
    run("create table estudo_visto (nome varchar)");
    run("create table estudo_regra (nome varchar)");
    person({"Rui", 'm', "1702-02-14", "1702-02-13"});
    EXPECT_THROW(seenCases(bdp), jet::Error);
    EXPECT_THROW(putAside(bdp, ofRule("P-01"), ""), jet::Error);
    EXPECT_THROW(keptSettings(bdp), jet::Error);
}

TEST_F(WhatTheBdpKeepsOfItsChecks, AreTheSettingsThatAreNotStandard)
{
    Settings settings{.limits = {{"P-02.idade", 110.5}}, .asked = {{"P-01", false}}, .tolerance = 2.5};
    keepSettings(bdp, settings);
    EXPECT_EQ(keptSettings(bdp), settings);
    person({"Rui", 'm', "1702-02-14", "1702-02-13"});
    EXPECT_TRUE(ofRule("P-01", keptSettings(bdp)).empty());
    settings = {};
    keepSettings(bdp, settings);
    EXPECT_EQ(keptSettings(bdp), settings);
    EXPECT_EQ(run("delete from estudo_regra"), 0) << "what is standard isn't kept";
}

TEST_F(WhatTheBdpKeepsOfItsChecks, IsPassedOverWhereItMakesNoSense)
{
    keepSettings(bdp, {.tolerance = 2});
    run("insert into estudo_regra values ('P-02.idade', -1), ('P-01', 7), ('tolerancia_ano', 9e999), ('X-99', 3), "
        "('P-02.impossivel', 'cem')");
    EXPECT_EQ(keptSettings(bdp), (Settings{.tolerance = 2}));
    keepSettings(bdp, {});
    EXPECT_EQ(run("delete from estudo_regra where chave = 'X-99'"), 1) << "of a rule that isn't known here";
}

TEST(TheSettingsOfAllRules, CanBeSetAndGoBackToTheStandard)
{
    for (const Setting& setting : allSettings()) {
        Settings settings;
        EXPECT_EQ(valueOf(settings, setting), setting.standard) << qPrintable(setting.key);
        const double other = setting.standard == 0 ? 1 : 0;
        setValue(settings, setting, other);
        EXPECT_EQ(valueOf(settings, setting), other) << qPrintable(setting.key);
        EXPECT_NE(settings, Settings{}) << qPrintable(setting.key);
        setValue(settings, setting, setting.standard);
        EXPECT_EQ(settings, Settings{}) << qPrintable(setting.key);
        EXPECT_FALSE(setting.title.isEmpty()) << qPrintable(setting.key);
    }
}

TEST(ALimit, IsReadAsItIsTyped)
{
    EXPECT_EQ(numberFrom(" 2,5 "), 2.5);
    EXPECT_EQ(numberFrom("2.5"), 2.5);
    EXPECT_EQ(numberFrom("0"), 0.0);
    for (const char* typed : {"", "-1", "abc", "inf", "nan", "1e9", "2;5", "1 000"})
        EXPECT_FALSE(numberFrom(typed)) << typed;
    EXPECT_EQ(inWords(Setting{.key = "x"}, 2.5), "2,5");
    EXPECT_EQ(inWords(Setting{.key = "x"}, 10), "10");
}

} // namespace
