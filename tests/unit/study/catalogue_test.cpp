// What the words of an act mean in the codes, places and professions of a BDP.
#include "study/acts/catalogue.h"

#include "study/tellings.h"

using namespace study;

namespace {

class CatalogueOfABdp : public SmallParish
{
protected:
    Catalogue catalogue{cnBDP};
};

std::string meant(const char* category, const char* text)
{
    return meaningOf(category, text).value_or("").toStdString();
}

} // namespace

TEST_F(CatalogueOfABdp, HasACodeForEachWordOfTheTable)
{
    for (const CodeWord& word : codeWords()) {
        EXPECT_EQ(word.words, plainWords(word.words)) << qPrintable(word.words);
        EXPECT_EQ(meaningOf(word.category, word.words), word.description) << qPrintable(word.category + word.words);
        EXPECT_TRUE(catalogue.codeOf(word.category, word.description)) << qPrintable(word.description);
    }
}

TEST_F(CatalogueOfABdp, TakesADescriptionForItself)
{
    EXPECT_EQ(catalogue.codeFor("EstCi", "VIUVO"), 3);
    EXPECT_EQ(catalogue.codeFor("Paren", "Avó"), 74);
    EXPECT_EQ(catalogue.codeFor("Paren", "avô"), 73);
    EXPECT_EQ(catalogue.codeFor("Paren", "bisavó"), 16);
    run("insert into infocomplementar (categoria, codigo, descricao) values ('EstCi', '20', '*Ermitão')");
    EXPECT_EQ(Catalogue(cnBDP).codeFor("EstCi", "ermitao"), 20);
    run("update infocomplementar set codigo = 'x' where codigo = '20'");
    EXPECT_FALSE(Catalogue(cnBDP).codeFor("EstCi", "ermitao"));
    EXPECT_FALSE(catalogue.codeFor("EstCi", "?"));
    EXPECT_FALSE(catalogue.codeFor("EstCi", ""));
    EXPECT_FALSE(catalogue.codeFor("Nenhu", "solteiro"));
}

TEST(WordsOfARegister, MeanNothingWhereTheyMeanTwoThings)
{
    EXPECT_EQ(meant("EstCi", "viúva de João Dias, casado"), "");
    EXPECT_EQ(meant("EstCi", "Viúva que ficou de João"), "Viúvo");
    EXPECT_EQ(meant("EstCi", "solteirão"), "") << "a part of a word";
    EXPECT_EQ(meant("TipMi", "trintário de São Gregório"), "Trintário de São Gregório");
    EXPECT_EQ(meant("TipMi", "um trintário"), "Trintário");
    EXPECT_EQ(meant("TipMi", "rezadas e cantadas"), "");
    EXPECT_EQ(meant("TipOf", "de nove lições"), "De nove lições");
    EXPECT_EQ(meant("TipOf", "19 lições"), "");
    EXPECT_EQ(meant("FunPa", "o reverendo cura encomendado"), "Encomendado");
    EXPECT_EQ(meant("FunPa", "padre"), "");
    EXPECT_EQ(meant("FunPa", "com licença do reverendo pároco"), "Padre com licença do pároco");
    EXPECT_EQ(meant("FunPa", "de licença do Rev.do Vigário"), "Padre com licença do pároco");
    EXPECT_EQ(meant("FunPa", "o cura, com licença do bispo"), "");
    EXPECT_EQ(meant("Filia", "filho legítimo póstumo"), "Legítima, póstuma");
    EXPECT_EQ(meant("Filia", "não legítimo"), "");
    EXPECT_EQ(meant("Filia", "de pai não sabido"), "Ilegítima, de pai incógnito");
}

TEST_F(CatalogueOfABdp, ReadsTheSacramentsByWhatEachWordStandsFor)
{
    const struct
    {
        const char* text;
        int code; // 0: uncertain
    } cases[] = {
        {"todos", 1},
        {"sim", 1},
        {"recebeu todos os sacramentos", 1},
        {"confissão, viático e extrema-unção", 1},
        {"penitência, eucaristia e unção", 1},
        {"não", 2},
        {"nenhum", 2},
        {"confissão", 3},
        {"só a confissão", 3},
        {"confissão e viático", 4},
        {"confessada e ungida", 5},
        {"comunhão", 6},
        {"viático e unção", 7},
        {"extrema-unção", 8},
        {"absolvição", 9},
        {"absolvido e ungido", 10},
        {"não, por morrer de repente", 11},
        {"morte súbita", 11},
        {"não, por ser menor", 12},
        {"por falta de juízo", 13},
        {"não foi chamado o pároco", 14},
        {"morreu fora da freguesia", 15},
        {"não recebeu o viático", 0},
        {"confissão sem viático", 0},
        {"absolvição e viático", 0},
        {"os que pôde", 0},
        {"só a extrema-unção, por morrer de repente", 0},
        {"confessado, morte repentina", 0},
        {"todos os sacramentos, sem juízo algum no fim", 0},
        {"todos menos o viático", 0},
        {"", 0},
    };
    for (const auto& [text, code] : cases) {
        EXPECT_EQ(sacramentsMeant(text).has_value(), code != 0) << text;
        EXPECT_EQ(catalogue.codeFor("Sacra", text).value_or(0), code) << text;
    }
}

TEST_F(CatalogueOfABdp, FindsPlacesThatTheNameMayMean)
{
    run("insert into lugar (codlugar, nomelugar, codparoquia) values ('03030103', '*Pouca Pena', '030301')");
    run("insert into paroquia (codparoquia, nomeparoquia) values ('040101', 'Poucapena')");
    run("insert into lugar (codlugar, nomelugar, codparoquia) values ('04010101', 'Poucapenas', '040101')");
    QStringList shown;
    for (const PlaceFound& found : placesNamed(cnBDP, "Pouca-Pêna"))
        shown << (found.same ? "= " : "~ ") + found.shown;
    EXPECT_EQ(shown, (QStringList{"= Pouca Pena (Santa Maria)", "= Poucapena", "~ Poucapenas (Poucapena)"}));
    EXPECT_EQ(placesNamed(cnBDP, "outeiro").first().place, (PlaceChoice{.code = "03030101", .level = 'L'}));
    EXPECT_EQ(placesNamed(cnBDP, "out").size(), 1) << "typed so far";
    EXPECT_TRUE(placesNamed(cnBDP, "o'\"x").isEmpty());
    EXPECT_TRUE(placesNamed(cnBDP, "").isEmpty());
    EXPECT_EQ(placesNamed(cnBDP, "poucapena", 1).size(), 1);
}

TEST(APlaceInWords, IsTakenApart)
{
    using Told = PlaceTold;
    EXPECT_EQ(placeToldBy("Outeiro"), (Told{.place = "Outeiro"}));
    EXPECT_EQ(placeToldBy("do lugar do Outeiro"), (Told{.place = "Outeiro"}));
    EXPECT_EQ(placeToldBy("aldeia d'Além"), (Told{.place = "Além"}));
    EXPECT_EQ(placeToldBy("freguesia de Azurém"), (Told{.parish = "Azurém"}));
    EXPECT_EQ(placeToldBy("da freguesia de São João"), (Told{.parish = "São João"}));
    EXPECT_EQ(placeToldBy("desta freguesia"), (Told{.own = true}));
    EXPECT_EQ(placeToldBy("lugar do Outeiro, desta mesma freguesia"), (Told{.place = "Outeiro", .own = true}));
    EXPECT_EQ(placeToldBy("Fonte,  freg. de Azurém"), (Told{.place = "Fonte", .parish = "Azurém"}));
    EXPECT_EQ(placeToldBy("Fonte da freguesia de Azurém"), (Told{.place = "Fonte", .parish = "Azurém"}));
    EXPECT_EQ(placeToldBy(""), Told{});
}

TEST_F(CatalogueOfABdp, UnderstandsHowActsTellPlaces)
{
    run("insert into paroquia (codparoquia, nomeparoquia, codconcelho) values ('040101', 'Agadão', '0401')");
    run("insert into lugar (codlugar, nomelugar, codparoquia) values ('04010101', 'Outeiro', '040101')");
    run("insert into lugar (codlugar, nomelugar, codparoquia) values ('04010102', 'Lugar de Baixo', '040101')");
    const auto first = [](const char* text) {
        const QList<PlaceFound> found = placesNamed(cnBDP, text);
        return found.size() == 1 && found.first().same ? found.first().place.code : QString();
    };
    EXPECT_EQ(first("freguesia de Agadão"), "040101");
    EXPECT_EQ(first("desta freguesia"), "030301");
    EXPECT_EQ(first("Outeiro, desta freguesia"), "03030101");
    EXPECT_EQ(first("lugar do Outeiro, freguesia de Agadão"), "04010101");
    EXPECT_EQ(first("lugar da Ribeira"), "03030102");
    EXPECT_EQ(first("Lugar de Baixo"), "04010102") << "a name is a name";
    EXPECT_TRUE(placesNamed(cnBDP, "Outeiro, freguesia de Nenhures").isEmpty());
    EXPECT_EQ(newPlacesFor(cnBDP, "Fonte, freguesia de Agadão", "030301").code, "040101");
    EXPECT_EQ(newPlacesFor(cnBDP, "Fonte", "030301").code, "030301");
    EXPECT_EQ(newPlacesFor(cnBDP, "Fonte, freguesia de Nenhures", "030301"), NewPlacesIn{});
    EXPECT_EQ(newPlacesFor(cnBDP, "freguesia de Nenhures", "030301"), NewPlacesIn{});
}

TEST_F(CatalogueOfABdp, FindsProfessionsThatAWordMayMean)
{
    using Found = QList<QPair<int, QString>>;
    run("insert into profissao (codprof, profissao) values (9, '*Moleira')");
    EXPECT_EQ(professionsNamed(cnBDP, "MOLEIRO"), (Found{{2, "Moleiro"}, {9, "Moleira"}}));
    EXPECT_EQ(professionsNamed(cnBDP, "lav"), (Found{{3, "Lavrador"}}));
    EXPECT_EQ(professionsNamed(cnBDP, "xyz"), Found());
}

TEST_F(CatalogueOfABdp, GivesANewLocalityTheCodeThatItsEditorWould)
{
    EXPECT_EQ(nextLocality(cnBDP, "030301"), "03030103");
    run("insert into lugar (codlugar, nomelugar, codparoquia) values ('03030199', '*Z', '030301')");
    EXPECT_EQ(nextLocality(cnBDP, "030301"), "030301100");
    EXPECT_EQ(nextLocality(cnBDP, "040101"), "04010101");
    run("insert into lugar (codlugar, nomelugar, codparoquia) values ('04010101', '*Outra', '0401010')");
    EXPECT_EQ(nextLocality(cnBDP, "040101"), "04010102") << "that number is another's";
}

TEST(WordsOfARegister, SayThatThereIsNone)
{
    for (const char* text : {"não", "n", "nenhum", "não deixou", "sem missas", "missas nenhumas", "Nem um"})
        EXPECT_TRUE(isDenied(text)) << text;
    for (const char* text : {"", "s", "20", "nove", "20 sem ofício"})
        EXPECT_FALSE(isDenied(text)) << text;
}
