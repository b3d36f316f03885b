// Each data package of the program, by the published rules, and what those find.
#include "data/demobdp.h"
#include "study/exchange_tables.h"
#include "study/packageRules.h"
#include "study/sampleReport.h"

#include "study/report/files.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace study;
using exchange::Dialect;

namespace {

class PackagesOfTheDemonstration : public DemoBdp
{
};

class PackagesOfABdp : public ExchangedTables
{
};

constexpr auto sound = R"({"profile": "tabular-data-package", "name": "a", "created": "2026-11-22T09:31:30Z",
  "sources": [{"title": "BDP"}],
  "resources": [{"profile": "tabular-data-resource", "name": "gente", "path": "gente.csv", "mediatype": "text/csv",
    "encoding": "utf-8", "bytes": 12, "hash": "sha256:00ff",
    "dialect": {"delimiter": ",", "lineTerminator": "\n", "quoteChar": "\"", "doubleQuote": true, "header": true},
    "schema": {"fields": [{"name": "nind", "type": "integer", "constraints": {"required": true, "unique": true}},
                          {"name": "mae", "type": "integer"},
                          {"name": "vivo", "type": "boolean", "trueValues": ["1"], "falseValues": ["0"]},
                          {"name": "nasc", "type": "date", "format": "default"},
                          {"name": "peso", "type": "number", "decimalChar": ","},
                          {"name": "sexo", "type": "string", "constraints": {"enum": ["m", "f"]}}],
               "missingValues": [""], "primaryKey": "nind",
               "foreignKeys": [{"fields": "mae", "reference": {"resource": "", "fields": "nind"}}]}}]})";

} // namespace

TEST_F(PackagesOfTheDemonstration, AreSoundInBothDialects)
{
    for (const Dialect dialect : {Dialect::Standard, Dialect::Spreadsheet}) {
        const QTemporaryDir folder;
        exchange::exportTables(bdp_->connection, folder.path(), {.dialect = dialect});
        EXPECT_EQ(exchanged::faultsOf(folder.path()).join('\n'), "");
    }
}

TEST_F(PackagesOfABdp, AreSoundWithKeysThatLeadNowhereInBothDialects)
{
    run("insert into individuo (nind, nome, famorig, datanasc, testamenteiro) values (1, 'Ana', 77, '1702-02-14', 1)");
    run("insert into familias (nfamilia, nind, idade) values (3, 88, 20)");
    run("insert into rituaismorte (nind, idlegpio, tipolegpio, quantidade) values (1, 1, 'missa', 2.5)");
    for (const Dialect dialect : {Dialect::Standard, Dialect::Spreadsheet}) {
        write({.dialect = dialect});
        EXPECT_EQ(exchanged::faultsOf(tables()).join('\n'), "");
    }
    const QJsonArray keys = resource("individuo").value("schema")["foreignKeys"].toArray();
    EXPECT_TRUE(std::any_of(keys.begin(), keys.end(), [](const QJsonValue key) {
        return key["fields"] == "testamenteiro" && key["reference"]["resource"] == "";
    })) << "of the table itself";
}

TEST(ThePackageOfAReport, IsSound)
{
    const QTemporaryDir folder;
    writeFiles(filesOf(sample::report()), folder.path());
    EXPECT_EQ(exchanged::faultsOfAny(folder.path()).join('\n'), "");
}

// What the rules find, so that their silence tells something.
TEST(TheRulesOfAPackage, FindWhatIsAgainstThem)
{
    EXPECT_EQ(package::faultsOf(sound).join('\n'), "");
    const std::pair<const char*, const char*> broken[] = {
        {R"("profile": "tabular-data-package")", R"("profile": "pacote")"},
        {R"("name": "a")", R"("name": "A b")"},
        {R"("2026-11-22T09:31:30Z")", R"("22/11/2026")"},
        {R"({"title": "BDP"})", R"({"path": "a.orv"})"},
        {R"("profile": "tabular-data-resource", )", ""},
        {R"("name": "gente")", R"("name": "Gente")"},
        {R"("path": "gente.csv")", R"("path": "../gente.csv")"},
        {R"("path": "gente.csv")", R"("path": "/gente.csv")"},
        {R"("path": "gente.csv")", R"("caminho": "gente.csv")"},
        {R"("text/csv")", R"("csv")"},
        {R"("bytes": 12)", R"("bytes": "12")"},
        {R"("sha256:00ff")", R"("sha256:xyz")"},
        {R"("delimiter": ",")", R"("delimiter": "::")"},
        {R"("doubleQuote": true)", R"("doubleQuote": "sim")"},
        {R"("header": true)", R"("cabecalho": true)"},
        {R"("fields": [)", R"("campos": [)"},
        {R"("type": "integer", "constraints")", R"("type": "inteiro", "constraints")"},
        {R"("name": "mae")", R"("name": "nind")"},
        {R"("required": true)", R"("required": 1)"},
        {R"("unique": true)", R"("unico": true)"},
        {R"(["1"])", R"([1])"},
        {R"(["0"])", R"([])"},
        {R"("format": "default")", R"("format": "dd/mm/aaaa")"},
        {R"("type": "number", "decimalChar")", R"("type": "integer", "decimalChar")"},
        {R"(["m", "f"])", R"(["m", "m"])"},
        {R"(["m", "f"])", R"([])"},
        {R"([""])", R"("")"},
        {R"("primaryKey": "nind")", R"("primaryKey": "numero")"},
        {R"("fields": "mae")", R"("fields": "pai")"},
        {R"("fields": "mae")", R"("fields": ["mae"])"},
        {R"("resource": "")", R"("resource": "gente")"},
        {R"("resource": "")", R"("resource": "outra")"},
        {R"("fields": "nind"})", R"("fields": "numero"})"},
    };
    for (const auto& [is, becomes] : broken) {
        const QByteArray changed = QByteArray(sound).replace(is, becomes);
        EXPECT_NE(changed, sound) << is;
        EXPECT_FALSE(package::faultsOf(changed).isEmpty()) << becomes;
    }
    EXPECT_FALSE(package::faultsOf(R"({"profile": "tabular-data-package", "name": "a", "resources": []})").isEmpty());
    EXPECT_FALSE(package::faultsOf("[]").isEmpty());
    EXPECT_FALSE(package::faultsOf("{").isEmpty());
}
