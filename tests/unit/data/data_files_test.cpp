// The check of the data files that every BDP is made from.
#include "datafolder.h"

#include "platform/desktop/codepage.h"
#include "platform/jet/alphabet.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QSet>

using namespace datafolder;

namespace {

const QStringList rowFiles{"paises.dat",  "zonas.dat", "distrito.dat", "concelho.dat", "freguesia.dat",
                           "lugares.dat", "sitio.dat", "prof.dat",     "dados.dat"};

QStringList allFiles()
{
    return QStringList{"CriarTab.dat"} + rowFiles;
}

// The values that occur more than once.
QStringList repeated(const QStringList& values)
{
    QSet<QString> seen;
    QStringList twice;
    for (const QString& value : values) {
        if (seen.contains(value)) twice << value;
        seen.insert(value);
    }
    return twice;
}

// The values that a pattern doesn't match from end to end.
QStringList unlike(const QStringList& values, const QString& pattern)
{
    const QRegularExpression whole(QRegularExpression::anchoredPattern(pattern));
    QStringList others;
    for (const QString& value : values)
        if (!whole.match(value).hasMatch()) others << value;
    return others;
}

bool inAlphabeticalOrder(const QStringList& names)
{
    return std::ranges::is_sorted(
        names, [](const QString& a, const QString& b) { return jet::compareAlphabetically(a, b) < 0; });
}

QStringList zipped(const QStringList& first, const QStringList& second)
{
    QStringList pairs;
    for (int i = 0; i < first.size(); ++i)
        pairs << first[i].toCaseFolded() + '/' + second[i].toCaseFolded();
    return pairs;
}

// The names of the categories, in the order of the schema file.
QStringList categories()
{
    const QRegularExpression insert("^insert into categoria \\(codcat, nomecat\\) values \\('(\\w{5})', '[^']+'\\)$");
    QStringList names;
    for (const QString& line : lines("CriarTab.dat"))
        if (const auto match = insert.match(line); match.hasMatch()) names << match.captured(1);
    return names;
}

void expectNone(const QStringList& wrong, const QString& file)
{
    EXPECT_TRUE(wrong.isEmpty()) << qUtf8Printable(file + ": " + wrong.join(" | ").left(300));
}

} // namespace

TEST(DataFiles, AreInTheCodePageAndEndEachLineWithCrLf)
{
    for (const QString& file : allFiles()) {
        const QByteArray raw = bytes(file);
        const auto text = fromCodePage(raw);
        ASSERT_TRUE(text) << qUtf8Printable(file);
        EXPECT_EQ(toCodePage(*text), raw) << qUtf8Printable(file);
        EXPECT_TRUE(raw.endsWith("\r\n")) << qUtf8Printable(file);
        EXPECT_EQ(raw.count('\r'), raw.count("\r\n")) << qUtf8Printable(file);
        EXPECT_EQ(raw.count('\n'), raw.count("\r\n")) << qUtf8Printable(file);
        expectNone(unlike(lines(file), "[^\\x00-\\x1F\\x7F]*\\S"), file); // no empty line, no control character
    }
}

TEST(DataFiles, HaveAsManyValuesInARowAsColumnsInTheHeader)
{
    for (const QString& file : rowFiles) {
        const Content data = content(file);
        ASSERT_GE(data.header.size(), 3) << qUtf8Printable(file);
        for (const QStringList& row : data.rows)
            EXPECT_EQ(row.size(), data.header.size()) << qUtf8Printable(file + ": " + row.join(';'));
    }
}

TEST(DataFiles, HoldNoQuotesAndNoBlanksAtTheEndsOfAValue)
{
    for (const QString& file : rowFiles) {
        expectNone(unlike(lines(file), "[^'\"`]*"), file);
        for (const QStringList& row : content(file).rows)
            expectNone(unlike(row, "|\\S|\\S.*\\S"), file);
    }
}

TEST(DataFiles, NameNoPlaceWithAHyphenOrAMarkOfTheResearcher)
{
    for (const Table& place : places)
        expectNone(unlike(content(place.file).column(place.name), "[^-*]+"), place.file);
    expectNone(unlike(content("prof.dat").column("profissao"), "[^*]+"), "prof.dat");
    expectNone(unlike(content("dados.dat").column("descricao"), "[^*]+"), "dados.dat");
}

TEST(DataFiles, GiveEachCodeOnceAndEachNameOnceWithinItsParent)
{
    for (const Table& place : places) {
        const Content data = content(place.file);
        expectNone(repeated(data.column(place.code)), place.file);
        expectNone(repeated(zipped(data.column(place.parent), data.column(place.name))), place.file);
    }
    const Content professions = content("prof.dat");
    expectNone(repeated(professions.column("codprof")), "prof.dat");
    expectNone(repeated(zipped(professions.column("profissao"), professions.column(""))), "prof.dat");
    const Content values = content("dados.dat");
    expectNone(repeated(zipped(values.column("categoria"), values.column("codigo"))), "dados.dat");
    expectNone(repeated(zipped(values.column("categoria"), values.column("descricao"))), "dados.dat");
}

TEST(DataFiles, HaveTheParentOfEveryPlace)
{
    for (const Table& place : places) {
        if (place.parent.isEmpty()) continue;
        const auto owner = std::ranges::find_if(places, [&](const Table& other) { return other.code == place.parent; });
        const QStringList owners = content(owner->file).column(owner->code);
        for (const QString& code : content(place.file).column(place.parent))
            EXPECT_TRUE(owners.contains(code)) << qUtf8Printable(place.file + ": " + code);
    }
}

TEST(DataFiles, GiveCodesOfTheFormThatThePickerRebuilds)
{
    expectNone(unlike(content("paises.dat").column("codpais"), "PT|[0-9]{2}"), "paises.dat");
    expectNone(unlike(content("zonas.dat").column("codzona"), "[0-9]{2}[1-9][0-9]"), "zonas.dat");
    expectNone(unlike(content("distrito.dat").column("coddistrito"), "[0-9]{2}"), "distrito.dat");
    expectNone(unlike(content("concelho.dat").column("codconcelho"), "[0-9]{4}"), "concelho.dat");
    expectNone(unlike(content("freguesia.dat").column("codparoquia"), "[0-9]{6}"), "freguesia.dat");
    for (const Table& place : places) {
        if (place.parent.isEmpty() || place.table == "distrito") continue;
        for (const QStringList& row : content(place.file).rows)
            EXPECT_TRUE(row[0].startsWith(row[2]))
                << qUtf8Printable(row.join(';')); // the code begins with the parent's
    }
}

// Two digits each: the greatest code of a country is then the same as a text and as a number, and the next one is free.
TEST(DataFiles, NumberTheZonesOfACountryFromTenWithoutAGapInTheOrderOfTheirNames)
{
    QHash<QString, QStringList> names;
    for (const QStringList& row : content("zonas.dat").rows) {
        QStringList& before = names[row[2]];
        EXPECT_EQ(row[0], row[2] + QString::number(10 + before.size()));
        before << row[1];
    }
    for (const QStringList& zones : names)
        EXPECT_TRUE(inAlphabeticalOrder(zones)) << qUtf8Printable(zones.join(" | "));
}

TEST(DataFiles, NumberTheCountriesInTheOrderOfTheirNamesBehindTheOneThatIsNotKnown)
{
    QStringList names = content("paises.dat").column("nomepais");
    ASSERT_EQ(names.size(), 101);
    EXPECT_EQ(names.takeFirst(), "País não identificado");
    EXPECT_EQ(names.takeLast(), "Portugal");
    EXPECT_TRUE(inAlphabeticalOrder(names)) << qUtf8Printable(names.join(" | "));
    for (const char* name : {"Andorra", "Marrocos", "Myanmar", "Omã", "Singapura"})
        EXPECT_TRUE(names.contains(name)) << name;
    const QStringList codes = content("paises.dat").column("codpais");
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(codes[i], QString::number(i).rightJustified(2, '0'));
}

TEST(DataFiles, StandInTheOrderOfTheirCodes)
{
    for (const Table& place : places) {
        const QStringList codes = content(place.file).column(place.code);
        EXPECT_TRUE(std::ranges::is_sorted(codes)) << qUtf8Printable(place.file);
    }
    const QStringList professions = content("prof.dat").column("codprof");
    EXPECT_TRUE(std::ranges::is_sorted(professions, {}, [](const QString& code) { return code.toInt(); }));
    const auto key = [](const QStringList& row) { return std::tuple(row[0], row[1] == "T", row[1].toInt()); };
    EXPECT_TRUE(std::ranges::is_sorted(content("dados.dat").rows, {}, key));
}

TEST(DataFiles, LeaveTheWorkingListEmpty)
{
    for (const Table& place : places)
        expectNone(unlike(content(place.file).column("prioridade"), "0"), place.file);
}

TEST(DataFiles, KnowPortugalItsDistrictsMunicipalitiesAndParishes)
{
    EXPECT_TRUE(content("paises.dat").rows.contains(QStringList{"PT", "Portugal", "0"}));
    expectNone(unlike(content("distrito.dat").column("codpais"), "PT"), "distrito.dat");
    EXPECT_FALSE(content("zonas.dat").column("codpais").contains("PT"));
    EXPECT_EQ(content("distrito.dat").rows.size(), 29);
    EXPECT_EQ(content("concelho.dat").rows.size(), 308);
    EXPECT_EQ(content("freguesia.dat").rows.size(), 4260);
    const QStringList parishes = content("freguesia.dat").column("codconcelho");
    for (const QString& municipality : content("concelho.dat").column("codconcelho"))
        EXPECT_TRUE(parishes.contains(municipality)) << qUtf8Printable(municipality);
}

TEST(DataFiles, NameFourHundredProfessionsAndMore)
{
    const Content professions = content("prof.dat");
    EXPECT_GE(professions.rows.size(), 400);
    expectNone(unlike(professions.column("codprof"), "[1-9][0-9]*"), "prof.dat");
    expectNone(unlike(professions.column("obs"), "|HISCO [0-9]{5}"), "prof.dat");
    const QStringList names = professions.column("profissao");
    EXPECT_TRUE(inAlphabeticalOrder(names)); // codprof is their order
    for (const char* name : {"Lavadeira", "Tecedeira", "Fiandeira", "Costureira", "Padeira", "Regateira",
                             "Criada de servir", "Cabaneiro", "Serviçal", "Moço de soldada", "Freira", "Abadessa",
                             "Mestre-escola", "Fidalgo", "Familiar do Santo Ofício", "Cavaleiro do hábito de Cristo"})
        EXPECT_TRUE(names.contains(name)) << name;
}

// A code once given keeps its meaning: what is new stands behind the last one.
TEST(DataFiles, NameTheKinshipOfASideAndThatOfNone)
{
    const QStringList values = lines("dados.dat").filter(QRegularExpression("^Paren;"));
    for (const char* kin :
         {"Paren;5;Avô paterno", "Paren;19;Tio paterno", "Paren;29;Tio-avô", "Paren;33;Primo direito", "Paren;73;Avô",
          "Paren;74;Avó", "Paren;75;Tio", "Paren;76;Tia", "Paren;77;Primo", "Paren;78;Prima"})
        EXPECT_TRUE(values.contains(kin)) << kin;
}

TEST(DataFiles, FillEveryCategoryOfTheSchemaAndNoOther)
{
    const QStringList known{"ClaPa", "EstCi", "Filia", "FunPa", "Paren", "Sacra", "SitFa",
                            "TipEs", "TipFa", "TipIn", "TipMi", "TipOf", "TipZo"};
    EXPECT_EQ(categories(), known);
    QStringList filled = content("dados.dat").column("categoria");
    filled.removeDuplicates();
    EXPECT_EQ(filled, known);
}

TEST(DataFiles, CodeTheValuesWithNumbersExceptTheTypeOfANewIndividual)
{
    for (const QStringList& row : content("dados.dat").rows) {
        const QString pattern = row[0] == "TipIn" ? "[0-4T]" : row[0] == "TipFa" ? "[1-7]" : "[1-9][0-9]*";
        expectNone(unlike({row[1]}, pattern), row.join(';'));
    }
    const QStringList values = lines("dados.dat");
    for (const char* code : {"T", "0", "1", "2", "4"})
        EXPECT_EQ(values.filter(QRegularExpression(QStringLiteral("^TipIn;%1;").arg(code))).size(), 1) << code;
    EXPECT_EQ(values.filter(QRegularExpression("^TipFa;")).size(), 7);
}

// A new family takes the last situation that begins with this letter, so there has to be just that one.
TEST(DataFiles, HaveOneSituationOfAFamilyThatBeginsWithL)
{
    EXPECT_EQ(lines("dados.dat").filter(QRegularExpression("^SitFa;\\d+;[lL]")), QStringList{"SitFa;1;Legítima"});
}

TEST(DataFiles, GiveEachZoneATypeOfItsCategory)
{
    QStringList types;
    for (const QStringList& row : content("dados.dat").rows)
        if (row[0] == "TipZo") types << row[1];
    for (const QString& type : content("zonas.dat").column("tipo"))
        EXPECT_TRUE(types.contains(type)) << qUtf8Printable(type);
}

TEST(DataFiles, MakeASoundBdpWithEveryRowInItsPlace)
{
    MadeBdp bdp;
    EXPECT_EQ(integrity(bdp.connection), "ok");
    for (const Table& place : places)
        EXPECT_EQ(bdp.rows("select " + place.code + " from " + place.table), content(place.file).column(place.code));
    EXPECT_EQ(bdp.rows("select codprof from profissao"), content("prof.dat").column("codprof"));
    EXPECT_EQ(bdp.rows("select descricao from infocomplementar"), content("dados.dat").column("descricao"));
    EXPECT_EQ(bdp.rows("select codcat from categoria"), categories());
    EXPECT_EQ(bdp.rows("select count(*) from infopar"), QStringList{"0"});
}

TEST(DataFiles, MakeABdpThatNeedsNoUpgrade)
{
    MadeBdp bdp;
    QSet<QString> columns;
    for (const auto& column : bdp.connection.columns())
        columns << (column.table + '.' + column.name).toLower();
    for (const char* column :
         {"infopar.pais", "passaporte.npass", "individuo.cfisicas", "individuo.escrit", "individuo.estatura",
          "individuo.altura", "individuo.rpbapt", "individuo.rpobi", "familia.rpcas"})
        EXPECT_TRUE(columns.contains(column)) << column;
    EXPECT_FALSE(columns.contains("residencia.idresidencia"));
}
