// The settings of a study as JSON, and in the BDP.
#include "study/indicators_random.h"
#include "study/people.h"

#include "platform/jet/rows.h"
#include "study/indicators/settingEntries.h"
#include "study/indicators/settingsJson.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <set>

using namespace study::indicators;

namespace {

void expectRefused(const QByteArray& json, const QString& told)
{
    try {
        settingsFrom(json);
        ADD_FAILURE() << "taken: " << json.constData();
    } catch (const jet::Error& error) {
        EXPECT_TRUE(error.description.contains(told)) << qPrintable(error.description);
    }
}

} // namespace

TEST(SettingsOfAStudy, ComeBackAsTheyWereWritten)
{
    EXPECT_EQ(settingsFrom(jsonOf(Settings())), Settings());
    QRandomGenerator dice(1702);
    for (int round = 0; round < 500; ++round) {
        const Settings settings = randomSettings(dice);
        const QByteArray json = jsonOf(settings);
        EXPECT_EQ(settingsFrom(json), settings) << json.constData();
        EXPECT_EQ(jsonOf(settingsFrom(json)), json);
    }
}

TEST(SettingsOfAStudy, AreAllWritten)
{
    // A setting that isn't written comes back as standard: each one, changed alone, changes the text.
    const QByteArray standard = jsonOf(Settings());
    std::set<QByteArray> texts{standard};
    const std::vector<void (*)(Settings&)> changes{
        [](Settings& s) { s.period.first = 1700; },
        [](Settings& s) { s.period.last = 1700; },
        [](Settings& s) { s.cohortYears = 25; },
        [](Settings& s) { s.byMarriageCohort = false; },
        [](Settings& s) { s.books[3].first = 1750; },
        [](Settings& s) {
            s.gaps[1] = {{1810, 1811}};
        },
        [](Settings& s) { s.which = Which::Illegitimate; },
        [](Settings& s) { s.gender = study::parish::Gender::Female; },
        [](Settings& s) { s.localOnly = false; },
        [](Settings& s) { s.unions.approximateMarriages = true; },
        [](Settings& s) { s.unions.marriedAtDeath = false; },
        [](Settings& s) { s.unions.leaveOutContradictory = true; },
        [](Settings& s) { s.openFamilies = true; },
        [](Settings& s) { s.derivedBirths = true; },
        [](Settings& s) { s.completeAge = 45; },
        [](Settings& s) { s.missingBirths = 0.05; },
        [](Settings& s) { s.movingAverage = 11; },
        [](Settings& s) { s.signsFrom = 3; },
        [](Settings& s) { s.skipCrises = true; },
        [](Settings& s) { s.neighbours = {"030301"}; },
        [](Settings& s) {
            s.filiations = {{17, Legitimacy::Foundling}};
        },
        [](Settings& s) { s.marksFrom = 0; },
        [](Settings& s) { s.indexBase = 1750; },
        [](Settings& s) { s.birthWords = "n."; },
        [](Settings& s) { s.baptismWords = "n."; },
        [](Settings& s) {
            s.baptisms[study::parish::PersonNumber(7)] = {QDate(1750, 3, 1), QDate(1750, 3, 4)};
        },
        [](Settings& s) {
            s.causes = {{"tiro", "acidente"}};
        }};
    for (const auto change : changes) {
        Settings settings;
        change(settings);
        EXPECT_TRUE(texts.insert(jsonOf(settings)).second) << texts.size();
    }
    EXPECT_EQ(settingEntries().size(), 26U);
}

TEST(SettingsOfAStudy, AreWrittenInWords)
{
    Settings settings;
    settings.which = Which::Legitimate;
    settings.gender = study::parish::Gender::Male;
    settings.gaps[2] = {{1810, 1811}};
    settings.neighbours = {"030301"};
    settings.filiations = {{13, Legitimacy::Legitimised}};
    const QJsonObject json = QJsonDocument::fromJson(jsonOf(settings)).object();
    EXPECT_EQ(json["nascimentos"].toString(), "legitimos");
    EXPECT_EQ(json["sexo"].toString(), "homens");
    EXPECT_EQ(json["lacunas"]["obitos"], (QJsonArray{QJsonArray{1810, 1811}}));
    EXPECT_EQ(json["freguesias_vizinhas"], QJsonArray{"030301"});
    EXPECT_EQ(json["filiacoes"]["13"].toString(), "legitimada");
}

TEST(SettingsOfAStudy, ThatAreNotWrittenAreAsStandard)
{
    EXPECT_EQ(settingsFrom("{}"), Settings());
    EXPECT_EQ(settingsFrom(R"({"de_outra_versao": [1, 2]})"), Settings());
    Settings books;
    books.books[1] = {1700, 0};
    EXPECT_EQ(settingsFrom(R"({"livros": {"casamentos": [1700, 0]}})"), books);
}

TEST(SettingsOfAStudy, ThatCannotBeMeantAreRefusedByName)
{
    for (const char* none : {"", "[]", "17", "{", R"({"sexo": })", "{\"sexo\": \"\xff\"}"})
        expectRefused(none, "não são os ajustes");
    expectRefused(R"({"periodo": [1800, 1700]})", "\"periodo\" (período dos acontecimentos)");
    for (const char* value : {"1800", "[1800]", "[1800, 1850, 1900]", "[-1, 0]", "[0, 10000]", "[1800.5, 0]", "null"})
        expectRefused(QByteArray(R"({"periodo": )") + value + '}', "periodo");
    expectRefused(R"({"anos_da_coorte": 20})", "anos_da_coorte");
    expectRefused(R"({"idade_da_familia_completa": 18446744073709551615})", "idade_da_familia_completa");
    expectRefused(R"({"media_movel": 4})", "media_movel");
    expectRefused(R"({"sexo": "todos"})", "sexo");
    expectRefused(R"({"so_da_freguesia": 1})", "so_da_freguesia");
    expectRefused(R"({"nascimentos_em_falta": 0.21})", "nascimentos_em_falta");
    expectRefused(R"({"nascimentos_em_falta": -0.01})", "nascimentos_em_falta");
    expectRefused(R"({"assina_desde": "2"})", "assina_desde");
    expectRefused(R"({"lacunas": {"obitos": [1810]}})", "lacunas");
    expectRefused(R"({"livros": [1700, 1800]})", "livros");
    expectRefused(R"({"freguesias_vizinhas": [30301]})", "freguesias_vizinhas");
    expectRefused(R"({"filiacoes": {"x": "exposto"}})", "filiacoes");
    expectRefused(R"({"filiacoes": {"6": "natural"}})", "filiacoes");
    expectRefused(R"({"base_do_indice": 10000})", "base_do_indice");
    expectRefused(R"({"sinal_desde": 1.5})", "sinal_desde");
    expectRefused(R"({"palavras_do_nascimento": ["n."]})", "palavras_do_nascimento");
    expectRefused(R"({"causas_de_morte": {"tiro": "morte"}})", "causas_de_morte");
    for (const char* value : {"7", "[7]", "[[7, \"1750-03-01\"]]", "[[0, \"1750-03-01\", \"1750-03-04\"]]",
                              "[[7, \"1750-02-30\", \"1750-03-04\"]]", "[[7, 1750, 1751]]"})
        expectRefused(QByteArray(R"({"lista_de_baptismos": )") + value + '}', "lista_de_baptismos");
}

using TheBDPOfAStudy = People;

TEST_F(TheBDPOfAStudy, KeepsItsSettings)
{
    EXPECT_EQ(keptSettings(bdp), Settings());
    QRandomGenerator dice(1755);
    for (int round = 0; round < 20; ++round) {
        const Settings settings = randomSettings(dice);
        keepSettings(bdp, settings);
        EXPECT_EQ(keptSettings(bdp), settings) << jsonOf(settings).constData();
    }
}

TEST_F(TheBDPOfAStudy, KeepsWhatIsOtherwiseThanStandardAlone)
{
    const auto keys = [this] {
        QStringList kept;
        for (jet::Rows rows(bdp, jet::NativeSql("select chave || '=' || valor from estudo_ajuste order by chave"));
             rows.next();)
            kept << rows.text(0);
        return kept;
    };
    Settings settings;
    settings.completeAge = 45;
    settings.period = {1700, 1850};
    keepSettings(bdp, settings);
    EXPECT_EQ(keys(), (QStringList{"idade_da_familia_completa=45", "periodo=[1700,1850]"}));
    run("insert into estudo_ajuste (chave, valor) values ('de_outra_versao', '1')");
    keepSettings(bdp, {});
    EXPECT_EQ(keys(), QStringList{"de_outra_versao=1"});
    EXPECT_EQ(keptSettings(bdp), Settings());
}

TEST_F(TheBDPOfAStudy, MakesNoTableForTheStandard)
{
    keepSettings(bdp, {});
    jet::Rows tables(bdp, jet::NativeSql("select 1 from sqlite_master where name = 'estudo_ajuste'"));
    EXPECT_FALSE(tables.next());
}

TEST_F(TheBDPOfAStudy, TakesNoSettingThatCannotBeMeant)
{
    Settings settings;
    settings.completeAge = 45;
    keepSettings(bdp, settings);
    run("insert into estudo_ajuste (chave, valor) values ('periodo', '[1800,1700]'), ('sexo', 'homens'), "
        "('media_movel', '')");
    EXPECT_EQ(keptSettings(bdp), settings);
    run("update estudo_ajuste set valor = '44'");
    EXPECT_EQ(keptSettings(bdp), Settings());
}

TEST_F(TheBDPOfAStudy, WithAnotherTableOfThatNameIsLeftAlone)
{
    run("create table estudo_ajuste (nome text)");
    EXPECT_THROW(keptSettings(bdp), jet::Error);
    Settings settings;
    settings.completeAge = 45;
    EXPECT_THROW(keepSettings(bdp, settings), jet::Error);
    EXPECT_EQ(run("insert into estudo_ajuste (nome) values ('a')"), 1);
}
