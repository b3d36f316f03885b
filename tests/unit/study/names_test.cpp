// How names of the registers were spelled, and which are the same.
#include "study/names/names.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

namespace study {

namespace {

const QString shippedPath = ORV_DATA_DIR "/nomes.csv";

const NameTable& table()
{
    static const NameTable shipped = NameTable::load(shippedPath);
    return shipped;
}

QStringList standards(const QList<Reading>& readings)
{
    QStringList names;
    for (const Reading& reading : readings)
        names << reading.standard;
    names.sort();
    return names;
}

QStringList keysOf(const QString& name)
{
    QStringList keys;
    for (const NameParts::Word& word : partsOf(name, table()).words)
        if (!word.particle) keys << word.key;
    return keys;
}

QString modern(const char* written)
{
    return standardName(QString::fromUtf8(written), table());
}

// Whether two words may be the same name: one key, or one class in any of their readings.
bool shareKeyOrClass(const QString& a, const QString& b)
{
    if (nameKey(a) == nameKey(b)) return true;
    for (const Reading& ours : table().readings(a))
        for (const Reading& theirs : table().readings(b))
            if (ours.klass == theirs.klass) return true;
    return false;
}

struct Row
{
    QString form, standard, klass;
};

QList<Row> shippedRows()
{
    QFile file(shippedPath);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QList<Row> rows;
    for (const QString& line : QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts).mid(1)) {
        const QStringList cells = line.split(';');
        EXPECT_EQ(cells.size(), 5) << qPrintable(line);
        rows << Row{cells[0], cells[1], cells[2]};
    }
    return rows;
}

QString chanceWord(unsigned seed)
{
    static const QString letters = QStringLiteral("aeiouãõáçhlnmrstzxgqcpbyvjuñ");
    QString word;
    for (unsigned i = 0; i < 3 + seed % 9; ++i) {
        seed = seed * 1664525U + 1013904223U;
        word += letters[int((seed >> 16) % unsigned(letters.size()))];
    }
    return word;
}

} // namespace

TEST(Names, OldSpellingsShareAKeyOrAClassWithThoseOfToday)
{
    const QList<std::pair<const char*, const char*>> same{{"Manoel", "Manuel"},
                                                          {"Luiz", "Luís"},
                                                          {"Souza", "Sousa"},
                                                          {"Izabel", "Isabel"},
                                                          {"Correa", "Correia"},
                                                          {"Conceiçam", "Conceição"},
                                                          {"Siluua", "Silva"},
                                                          {"Ioam", "João"},
                                                          {"Joaõ", "João"},
                                                          {"Alvarez", "Álvares"},
                                                          {"Alves", "Álvares"},
                                                          {"Bastião", "Sebastião"},
                                                          {"Brites", "Beatriz"},
                                                          {"Cardozo", "Cardoso"},
                                                          {"Paes", "Pais"},
                                                          {"Abreo", "Abreu"},
                                                          {"Magalhaens", "Magalhães"},
                                                          {"Simoens", "Simões"},
                                                          {"Esteuão", "Estêvão"},
                                                          {"Oliueira", "Oliveira"},
                                                          {"Carualho", "Carvalho"},
                                                          {"Annunciaçam", "Anunciação"},
                                                          {"Vrsula", "Úrsula"},
                                                          {"Jzabel", "Isabel"},
                                                          {"Phelippe", "Filipe"},
                                                          {"Thereza", "Teresa"},
                                                          {"Ruy", "Rui"},
                                                          {"Guimaraens", "Guimarães"},
                                                          {"Froes", "Fróis"},
                                                          {"Cuña", "Cunha"},
                                                          {"Nassimento", "Nascimento"},
                                                          {"Hieronimo", "Jerónimo"},
                                                          {"Nicolao", "Nicolau"},
                                                          {"Queyros", "Queirós"},
                                                          {"Fontoura", "Fontoura"},
                                                          {"Barboza", "Barbosa"},
                                                          {"MANUEL", "manuel"},
                                                          {"Cezilia", "Cecília"},
                                                          {"Xavier", "Chavier"},
                                                          {"Canpos", "Campos"}};
    for (const auto& [old, today] : same)
        EXPECT_TRUE(shareKeyOrClass(QString::fromUtf8(old), QString::fromUtf8(today))) << old << " " << today;
}

TEST(Names, NamesThatOnlyLookAlikeStayApart)
{
    const QList<std::pair<const char*, const char*>> apart{
        {"Maria", "Mariana"},      {"Pires", "Peres"},         {"Vaz", "Vasco"},
        {"Ana", "Anes"},           {"Francisco", "Francisca"}, {"Luís", "Luísa"},
        {"Domingos", "Domingues"}, {"Pais", "Pires"},          {"Rui", "Rita"},
        {"Manuel", "Miguel"},      {"Filha", "Fila"},          {"Tomás", "Tomé"},
        {"João", "Joana"},         {"Luís", "Alves"}};
    for (const auto& [one, other] : apart)
        EXPECT_FALSE(shareKeyOrClass(QString::fromUtf8(one), QString::fromUtf8(other))) << one << " " << other;
}

TEST(Names, TheKeyOfAKeyIsTheKey)
{
    for (const Row& row : shippedRows())
        for (const QString& word : {row.form, row.standard, row.klass})
            EXPECT_EQ(nameKey(nameKey(word)), nameKey(word)) << qPrintable(word);
    for (unsigned seed = 1; seed < 20000; ++seed) {
        const QString word = chanceWord(seed * 2654435761U);
        ASSERT_EQ(nameKey(nameKey(word)), nameKey(word)) << qPrintable(word);
    }
}

TEST(Names, AKeyHasNoCaseNoAccentsAndNothingButLetters)
{
    EXPECT_EQ(nameKey(" Inês, "), nameKey("INES"));
    EXPECT_EQ(nameKey("S.to"), "sto");
    EXPECT_EQ(nameKey("O'Neill"), nameKey("oneil"));
    EXPECT_EQ(nameKey("?"), "");
    EXPECT_EQ(nameKey(QString::fromUtf8("👶")), "");
    EXPECT_EQ(nameKey(QString(QChar(0)) + "Rui"), "rui");
}

TEST(Names, TheDigraphsAndTheLastLetterCount)
{
    EXPECT_NE(nameKey("Cunha"), nameKey("Cuna"));
    EXPECT_NE(nameKey("Filho"), nameKey("Filo"));
    EXPECT_EQ(nameKey("Lourençanhb"), nameKey("Lourensanhb"));
    EXPECT_EQ(nameKey("Vaz"), nameKey("Vas"));
    EXPECT_EQ(nameKey("Luiz").back(), 's');
}

TEST(NameTable, EveryLineOfTheShippedOneIsReadAndLeadsToItsStandard)
{
    EXPECT_TRUE(table().problems().isEmpty()) << qPrintable(table().problems().join('\n'));
    EXPECT_GT(shippedRows().size(), 450);
    for (const Row& row : shippedRows()) {
        EXPECT_TRUE(standards(table().readings(row.form)).contains(row.standard)) << qPrintable(row.form);
        EXPECT_TRUE(standards(table().readings(row.standard)).contains(row.standard)) << qPrintable(row.standard);
    }
}

TEST(NameTable, GivesAllReadingsOfAnAbbreviation)
{
    EXPECT_EQ(standards(table().readings("Cª")), QStringList({"Catarina", "Costa", "Cunha"}));
    EXPECT_EQ(standards(table().readings("Bra")), QStringList({"Beira", "Bárbara"}));
    EXPECT_EQ(standards(table().readings("S.ª")), QStringList({"Silva"}));
    EXPECT_EQ(standards(table().readings("M^el")), QStringList({"Manuel"}));
    EXPECT_EQ(standards(table().readings("M.el")), QStringList({"Manuel"}));
    EXPECT_EQ(standards(table().readings("mel")), QStringList({"Manuel", "Miguel"}));
    EXPECT_EQ(standards(table().readings("Franco")), QStringList({"Francisco", "Franco"}));
    EXPECT_EQ(table().readings("Sá").first().standard, "Sá");
    EXPECT_EQ(table().readings("Sá").size(), 1);
    EXPECT_EQ(standards(table().readings("sa")), QStringList({"Silva", "Sá"}));
    EXPECT_TRUE(table().readings("Zebedeu").isEmpty());
}

TEST(NameTable, TheUsersOwnLinesAddToItAndBadOnesAreToldWithTheirLine)
{
    const QTemporaryDir folder;
    const QString own = folder.filePath("nomes.csv");
    QFile file(own);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("forma;padrao;classe;tipo;fonte\r\nPoucapª;Poucapena;Poucapena;apelido;eu\r\nsó;três;colunas\r\n"
               "a;b;b;verbo;eu\n\n;x;x;nome;eu\nx;?;x;nome;eu\n\xff\xfe;x;x;nome;eu\n");
    file.write(QByteArray(100, 'z') + ";x;x;nome;eu\n");
    file.close();
    const NameTable both = NameTable::load(shippedPath, own);
    EXPECT_EQ(standards(both.readings("poucapa")), QStringList("Poucapena"));
    EXPECT_EQ(standards(both.readings("Joam")), QStringList("João"));
    ASSERT_EQ(both.problems().size(), 6) << qPrintable(both.problems().join('\n'));
    EXPECT_EQ(both.problems().first(), "nomes.csv, linha 3: tem 3 colunas em vez de 5.");
    EXPECT_NE(both.version(), table().version());
}

TEST(NameTable, AMissingFileIsToldAndAMissingOwnOneIsNot)
{
    EXPECT_EQ(NameTable::load("/nenhures/nomes.csv").problems().size(), 1);
    EXPECT_TRUE(NameTable::load(shippedPath, "/nenhures/nomes.csv").problems().isEmpty());
    EXPECT_TRUE(NameTable().readings("Joam").isEmpty());
}

TEST(Names, AreSpelledAsTheyAreToday)
{
    EXPECT_EQ(modern("bento alvz"), "Bento Álvares");
    EXPECT_EQ(modern("joam gliz"), "João Gonçalves");
    EXPECT_EQ(modern("M.el Roiz da S.ª"), "Manuel Rodrigues da Silva");
    EXPECT_EQ(modern("MARIA DA CONCEIÇAM"), "Maria da Conceição");
    EXPECT_EQ(modern("Jozefa Roza do Esp. Sto."), "Josefa Rosa do Espírito Santo");
    EXPECT_EQ(modern("anna d'almeyda"), "Ana d'Almeida");
    EXPECT_EQ(modern("Dos. Frco La Cerda"), "Domingos Francisco Lacerda");
    EXPECT_EQ(modern("P.e Bento Fr."), "Padre Bento Ferreira");
    EXPECT_EQ(modern("  Zebedeu   xilofonte "), "Zebedeu Xilofonte");
    EXPECT_EQ(modern("?"), "?");
    EXPECT_EQ(modern(""), "");
}

TEST(Names, AWordThatMayBeSeveralStaysAsItIsWritten)
{
    EXPECT_EQ(modern("Maria Cª"), "Maria Cª");
    EXPECT_EQ(modern("João Franco"), "João Franco");
    EXPECT_EQ(modern("Franco Dias"), "Francisco Dias"); // a first word is a given name where it can be one
    EXPECT_EQ(modern("Cª Dias"), "Catarina Dias");
}

TEST(Names, ANameOfTodayStaysAsItIs)
{
    for (const char* name :
         {"Manuel de Abreu", "Joana do Espírito Santo", "José António de Carvalho", "Inês de São José",
          "Maria dos Santos", "Rui d'Eça", "António Fonseca e Sousa", "Padre Luís Vaz", "João Vasco"})
        EXPECT_EQ(modern(name), QString::fromUtf8(name));
    for (const Row& row : shippedRows()) {
        const QString once = standardName(row.form + " Zebedeu", table());
        EXPECT_EQ(standardName(once, table()), once) << qPrintable(row.form);
    }
}

TEST(Names, TitlesParticlesAndTagsAreInNoKey)
{
    const NameParts parts = partsOf("D. Maria do Ó de Sousa, a Velha", table());
    EXPECT_EQ(parts.titles, QStringList("D."));
    EXPECT_EQ(parts.asides, QStringList("a Velha"));
    EXPECT_EQ(keysOf("D. Maria do Ó de Sousa, a Velha"), QStringList({"maria", "o", "souza"}));
    EXPECT_EQ(keysOf("Fr. António Fr."), QStringList({"antonio", "fr"}));
    EXPECT_EQ(keysOf("João Dias o Ferreiro"), QStringList({"joam", "dias"}));
    EXPECT_EQ(keysOf("João Dias maior"), QStringList({"joam", "dias"}));
    EXPECT_EQ(keysOf("João Novo"), QStringList({"joam", "novo"}));
    EXPECT_EQ(keysOf("Maria exposta"), QStringList({"maria"}));
    EXPECT_EQ(keysOf("António da Roda"), QStringList({"antonio"}));
    EXPECT_EQ(keysOf("Rui d'Eça"), QStringList({"rui", "eza"}));
    EXPECT_EQ(keysOf("Dos Dias"), QStringList({"dos", "dias"})) << "Domingos, not a particle";
}

TEST(Names, WhatFollowsACommaOrStandsInBracketsIsNoPartOfThem)
{
    const NameParts parts = partsOf("pedro (o Ruivo) \"Bicho\" francisco, solteiro, filho de João", table());
    EXPECT_EQ(parts.asides, QStringList({"o Ruivo", "solteiro", "filho de João"}));
    EXPECT_EQ(parts.quoted, QStringList("Bicho"));
    EXPECT_EQ(keysOf("Pedro Francisco, solteiro"), keysOf("Pedro Francisco"));
    EXPECT_EQ(modern("pedro (o Ruivo) \"Bicho\" francisco, solteiro"), "Pedro Francisco");
    EXPECT_EQ(modern("maria \"a nova\""), "Maria");
    EXPECT_EQ(partsOf("João Coelho, padre", table()).titles, QStringList("Padre"));
    EXPECT_EQ(modern("(Maria)"), "Maria") << "all that there is";
    EXPECT_EQ(modern("[Maria] de Jesus"), "Maria de Jesus") << "what the transcriber adds is the name";
}

TEST(Names, AGapInAWordKeepsItsBrackets)
{
    EXPECT_EQ(modern("N[...] da Costa"), "N[...] da Costa");
}

TEST(Names, AnElidedParticleIsNoTitle)
{
    EXPECT_EQ(partsOf("d'ana", table()).titles, QStringList());
    EXPECT_EQ(modern("d'ana"), "d'Ana");
    EXPECT_EQ(partsOf("D. Ana", table()).titles, QStringList("D."));
}

TEST(Names, OfSaintsAreToldFromThoseOfPeople)
{
    for (const char* saint :
         {"Nossa Senhora do Rosário", "N. Sra. da Graça", "N. S.ra do Ó", "São João", "S. José", "Santo António",
          "Sto. Amaro", "Santa Ana", "Virgem", "Senhora da Saúde", "Senhora Santa Ana", "a gloriosa Santa Luzia"})
        EXPECT_TRUE(isSaint(QString::fromUtf8(saint))) << saint;
    for (const char* person : {"Maria do Rosário", "Santos Dias", "Sancha Pires", "Senhorinha", "José de São Bento",
                               "Senhora", "Samuel", "", "Sr. João", "Nossa"})
        EXPECT_FALSE(isSaint(QString::fromUtf8(person))) << person;
}

TEST(Names, WhoHasNoNameIsTold)
{
    for (const char* none : {"", "?", "  ", "N.", "exposto", "Enjeitada", "pais incógnitos", "Pai incógnito", "da Roda",
                             "...", "ignorado", "👶", "hum pobre que não disse o nome", "uma criança"})
        EXPECT_TRUE(partsOf(QString::fromUtf8(none), table()).unknown) << none;
    for (const char* some : {"Maria", "Maria ?", "Maria exposta", "M.", "D."})
        EXPECT_FALSE(partsOf(QString::fromUtf8(some), table()).unknown) << some;
}

TEST(Names, OddTextsAreNamesLikeAnyOther)
{
    for (const QString& odd : {QString(10000, 'x'), QString("a ").repeated(5000), QString("'; drop table x --"),
                               QString(QChar(0)), QString("\"\"''"), QString("d' d' d'"), QString("de da do"),
                               QString::fromUtf8("Zoë 👶 Ñuño"), QString("\n\tMaria\r\n")})
    {
        const NameParts parts = partsOf(odd, table());
        EXPECT_LE(parts.words.size(), 1000);
        for (const NameParts::Word& word : parts.words)
            EXPECT_TRUE(word.particle || !word.readings.isEmpty());
        EXPECT_EQ(partsOf(odd, table()), parts);
        standardName(odd, table());
    }
    EXPECT_EQ(modern("\n\tMaria\r\n"), "Maria");
}

TEST(Likeness, IsThatOfJaroAndWinkler)
{
    EXPECT_NEAR(likeness("martha", "marhta"), 0.9611, 0.0001);
    EXPECT_NEAR(likeness("dwayne", "duane"), 0.84, 0.0001);
    EXPECT_NEAR(likeness("dixon", "dicksonx"), 0.8133, 0.0001);
    EXPECT_EQ(likeness("abc", "xyz"), 0);
    EXPECT_EQ(likeness("", ""), 1);
    EXPECT_EQ(likeness("a", ""), 0);
}

TEST(Likeness, IsTheSameBothWaysBetweenNothingAndOne)
{
    for (unsigned seed = 1; seed < 3000; ++seed) {
        const QString a = chanceWord(seed * 2654435761U), b = chanceWord(seed * 40503U + 7);
        ASSERT_GE(likeness(a, b), 0);
        ASSERT_LE(likeness(a, b), 1);
        ASSERT_EQ(likeness(a, a), 1);
        const NameParts one = partsOf(a + ' ' + b, table()), other = partsOf(b + ' ' + a, table());
        ASSERT_DOUBLE_EQ(nameLikeness(one, other), nameLikeness(other, one)) << qPrintable(a + ' ' + b);
    }
}

namespace {

double alike(const char* a, const char* b)
{
    return nameLikeness(partsOf(QString::fromUtf8(a), table()), partsOf(QString::fromUtf8(b), table()));
}

} // namespace

TEST(Likeness, OfNamesOfFewerElementsIsWhole)
{
    EXPECT_EQ(alike("José António", "José António de Carvalho"), 1);
    EXPECT_EQ(alike("Josefa Rosa", "Josefa Roza do Espírito Santo"), 1);
    EXPECT_EQ(alike("Maria", "Maria da Conceição"), 1);
    EXPECT_EQ(alike("Manuel Dias Lopes", "Manuel Lopes Dias"), 1);
}

TEST(Likeness, OfOtherNamesIsLess)
{
    EXPECT_LT(alike("Manuel Dias", "Manuel Lopes"), 0.7);
    EXPECT_LT(alike("Manuel Dias", "João Dias"), 0.5);
    EXPECT_EQ(alike("Maria", "Mariana"), 0) << "two names";
    EXPECT_EQ(alike("Zebedeu", "Zebedeo"), 1) << "one key";
    EXPECT_EQ(alike("Zebedeia", "Zebedeua"), 0.7) << "likened alone";
    EXPECT_GT(alike("Manuel Alves", "Manuel Álvares"), 0.9);
    EXPECT_LT(alike("Manuel Alves", "Manuel Álvares"), 1);
    EXPECT_EQ(alike("?", "Maria"), 0);
}

TEST(PlaceKey, KnowsNoCaseNoAccentsNoBlanksNoHyphens)
{
    EXPECT_EQ(placeKey("Poucapena"), placeKey("Pouca Pena"));
    EXPECT_EQ(placeKey("Poucapena"), placeKey("Pouca-Pêna"));
    EXPECT_EQ(placeKey("  POUCA\tPENA "), placeKey("pouca pena"));
    EXPECT_NE(placeKey("Poucapena"), placeKey("Poucapela"));
    EXPECT_EQ(placeKey("Póvoa de El-Rei"), "povoadeelrei");
}

TEST(Bynames, AreTheSameWithAndWithoutTheirArticle)
{
    EXPECT_EQ(study::bynameKeys(QString("o Ferreiro")), QStringList("ferreiro"));
    EXPECT_EQ(study::bynameKeys(QString("Ferreiro")), QStringList("ferreiro"));
    EXPECT_EQ(study::bynameKeys(QString("a Nova, Coxa")), (QStringList{"novo", "coxa"}));
    EXPECT_EQ(study::bynameKeys(QString()), QStringList());
    EXPECT_EQ(study::bynameKeys(QString("o que foi para o Brasil")), QStringList());
}

TEST(Bynames, OfANameAreWhatTellsNamesakesApart)
{
    const auto of = [](const char* name) { return study::bynameKeys(study::partsOf(QString::fromUtf8(name))); };
    EXPECT_EQ(of("João Dias, o Moço"), QStringList("novo"));
    EXPECT_EQ(of("João Dias o Velho"), QStringList("velho"));
    EXPECT_EQ(of("João Dias maior"), QStringList("velho"));
    EXPECT_EQ(of("Maria «a Nova»"), QStringList("novo"));
    for (const char* none : {"João Dias", "João exposto", "João da Roda", "João, solteiro", ""})
        EXPECT_EQ(of(none), QStringList()) << none;
}

TEST(Titles, AreOneHoweverTheyAreSpelled)
{
    EXPECT_EQ(study::titleKeys("P.e"), study::titleKeys("padre"));
    EXPECT_EQ(study::titleKeys("R.do P.e"), (QStringList{"reverendo", "padre"}));
    EXPECT_EQ(study::titleKeys("D."), study::titleKeys("Dona"));
    EXPECT_EQ(study::titleKeys("Conde de Abrantes"), (QStringList{"conde", "abrantes"}));
    EXPECT_EQ(study::titleKeys(" "), QStringList());
}

} // namespace study
