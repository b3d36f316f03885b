#include "study/transcripts/kleio.h"

#include <gtest/gtest.h>

using namespace study;

namespace {

const QByteArray headOf1702 = "kleio$gacto2.str/translations=3\n fonte$b1702/1702/paroquiais/obs=folhas soltas\n";

Act only(const QByteArray& text)
{
    const Transcript read = readKleio(headOf1702 + text);
    EXPECT_FALSE(read.isDamaged());
    EXPECT_EQ(read.acts.size(), 1);
    return read.acts.value(0).act;
}

std::string namesByRole(const Act& act)
{
    QStringList all;
    for (int person = 0; person < act.people.size(); ++person)
        all << roleTitle(act, person) + ' ' + act.people[person].name.value;
    return all.join(", ").toStdString();
}

const QByteArray baptismOf1702 = R"(   bap$b1702.7/14/2/1702/fol.9v/igreja matriz/padre antonio dias
         n$josefa/f/id=b1702.7-per1
            pai$bento alvares%Bento Alvez/m/id=b1702.7-per2
               ls$residencia/outeiro#abaixo da fonte
               ls$profissao/moleiro
            mae$catarina/f/id=b1702.7-per3
            pad$luis/m/id=b1702.7-per4
               ls$ec/solteiro
               rel$parentesco/irmao/catarina/b1702.7-per3
               ppad$gregorio simoes/m/id=b1702.7-per5
            mad$maria da cruz/f/id=b1702.7-per6
               mrmad$domingos pires/m/id=b1702.7-per7
)";

TEST(KleioGroups, MakeABaptismOfItsHeadAndPeople)
{
    const Act act = only(baptismOf1702);
    EXPECT_EQ(act.kind, ActKind::Baptism);
    EXPECT_EQ(act.date, (PartialDate{.year = 1702, .month = 2, .day = 14}));
    EXPECT_EQ(act.book, "b1702");
    EXPECT_EQ(act.folio, "9v");
    EXPECT_EQ(act.place.value, "igreja matriz");
    EXPECT_EQ(act.id, "b1702.7");
    EXPECT_EQ(namesByRole(act),
              "celebrante padre antonio dias, baptizada josefa, pai bento alvares, mãe catarina, padrinho luis, "
              "pai do padrinho gregorio simoes, madrinha maria da cruz, marido da madrinha domingos pires");
    EXPECT_EQ(act.people[2].name.source, "Bento Alvez");
    EXPECT_EQ(act.people[2].attributes.size(), 2);
    const Attribute residence{.type = attribute::residence, .told = {.value = "outeiro", .comment = "abaixo da fonte"}};
    EXPECT_EQ(act.people[2].attributes[0], residence);
    ASSERT_EQ(act.relations.size(), 1);
    const Relation brother{.type = "parentesco",
                           .told = {.value = "irmao"},
                           .person = 4,
                           .other = 3,
                           .otherName = "catarina",
                           .otherId = "b1702.7-per3"};
    EXPECT_EQ(act.relations[0], brother);
}

TEST(KleioGroups, AreMatchedWhateverTheirCaseAndAccents)
{
    QByteArray shouted = baptismOf1702;
    for (const char* name : {"bap$", "n$", "pai$", "mae$", "pad$", "ls$", "rel$", "ppad$", "mad$", "mrmad$"})
        shouted.replace(QByteArray(" ") + name, " " + QByteArray(name).toUpper());
    shouted.replace("LS$residencia", "LS$Residência")
        .replace("LS$profissao", "LS$PROFISSÃO")
        .replace("MAE$", "Mãe$")
        .replace("id=", "ID=");
    EXPECT_EQ(only(shouted), only(baptismOf1702));
}

TEST(KleioGroups, OfAMarriageNameTheCoupleTheirParentsAndEarlierSpouses)
{
    const Act act = only(R"(   c$c1/1/12/1711/fol. 3
      noivo$joao/m
         pnoivo$pedro
         mnoivo$ana
         mulher1$rita
            pmulher1$rui
         mulher2$eva
      noiva$maria
         pnoiva$jose
         mnoiva$luisa
         marido$tome
      test$gil/m
      test$nuno/m
)");
    EXPECT_EQ(namesByRole(act),
              "noivo joao, pai do noivo pedro, mãe do noivo ana, mulher anterior do noivo rita, pai da mulher "
              "anterior do noivo rui, mulher anterior do noivo eva, noiva maria, pai da noiva jose, mãe da noiva "
              "luisa, marido anterior da noiva tome, testemunha gil, testemunha nuno");
    EXPECT_EQ(act.people[3].ordinal, 1);
    EXPECT_EQ(act.people[5].ordinal, 2);
    EXPECT_EQ(act.people[9].ordinal, 0);
}

TEST(KleioGroups, OfABurialTellWhatWasDone)
{
    const Act act = only(R"(   obito$o1/?/0/1698
      celebrante$padre rui
      n$ana
         ls$idade/70
         marido$gil
         pn$bento
         mn$eva
         referido$tome
      locs$adro
      locf$fonte de cima
      sacr$todos
      oficios$"3 de 9 lições"
      testamento$n
      causa$de repente
)");
    EXPECT_EQ(act.kind, ActKind::Burial);
    EXPECT_EQ(act.date, (PartialDate{.year = 1698}));
    EXPECT_EQ(namesByRole(act),
              "celebrante padre rui, defunto ana, marido gil, pai bento, mãe eva, referido do defunto tome");
    EXPECT_EQ(toldValue(act.facts, attribute::grave), "adro");
    EXPECT_EQ(toldValue(act.facts, attribute::deathPlace), "fonte de cima");
    EXPECT_EQ(toldValue(act.facts, attribute::sacraments), "todos");
    EXPECT_EQ(toldValue(act.facts, attribute::offices), "3 de 9 lições");
    EXPECT_EQ(toldValue(act.facts, attribute::will), "n");
    EXPECT_EQ(toldValue(act.facts, attribute::cause), "de repente");
    EXPECT_EQ(toldValue(act.people[1].attributes, attribute::age), "70");
}

TEST(KleioGroups, PlaceRelativesAtAnyDepth)
{
    const Act act = only("   b$x/1/1/1700\n n$a/m\n pai$b\n ppai$c\n mppai$d\n pad$e\n mpad$f\n mrmpad$g\n mad$h\n"
                         " procurador-mad$i\n pprocurador-mad$j\n");
    EXPECT_EQ(namesByRole(act),
              "baptizado a, pai b, avô paterno c, mãe do avô paterno d, padrinho e, mãe do padrinho f, marido da "
              "mãe do padrinho g, madrinha h, procurador da madrinha i, pai do procurador da madrinha j");
}

TEST(KleioGroups, BelongByTheirNameFirst)
{
    // Indented without care: by the columns, the godmother's husband would be hers who stands above.
    const Act act = only("   b$x/1/1/1700\n      n$a/f\n mad$b\n            pad$c\n mrmad$d\n         ppad$e\n");
    EXPECT_EQ(namesByRole(act), "baptizada a, madrinha b, padrinho c, marido da madrinha d, pai do padrinho e");
}

TEST(KleioGroups, BelongByTheIndentationWhereSeveralArePossible)
{
    const Act act =
        only("   b$x/1/1/1700\n      n$a/f\n      pad$b\n         referido$c\n      pad$d\n      referido$e\n"
             "         referida$f\n");
    EXPECT_EQ(namesByRole(act),
              "baptizada a, padrinho b, referido do padrinho c, padrinho d, referido e, referida do referido f");
}

// Indentation is often careless, so it never takes an attribute from the person before it.
TEST(KleioGroups, OfAttributesBelongToThePersonBeforeThem)
{
    const Act act = only("   obito$a/1/1/1702\n n$ana/f\n  marido$gil/m\n ls$idade/40\n rel$parentesco/prima/eva\n");
    ASSERT_EQ(act.people.size(), 2);
    EXPECT_TRUE(act.people[0].attributes.isEmpty());
    EXPECT_EQ(toldValue(act.people[1].attributes, attribute::age), "40");
    EXPECT_EQ(act.relations.value(0).person, 1);
}

TEST(KleioGroups, OfRelativesBelongToTheLastOneAroundThem)
{
    const Act act = only("   b$x/1/1/1700\n n$a/f\n pad$b\n     pad$c\n   ppad$d\n       mpad$e\n");
    ASSERT_EQ(act.people.size(), 5);
    EXPECT_EQ(act.people[3].of, 1) << "the first godfather is less indented than it, the second isn't";
    EXPECT_EQ(act.people[4].of, 2);
}

TEST(KleioGroups, MayNameTheirElementsInTwoWays)
{
    const Act act =
        only("   bap$x/1/1/1700/local__igreja/celebrante=padre rui;cura gil/folio=12\n n$nome=ana/sexo=f/obs=a; b\n");
    EXPECT_EQ(act.place.value, "igreja");
    EXPECT_EQ(act.folio, "12");
    EXPECT_EQ(namesByRole(act), "celebrante padre rui, celebrante cura gil, baptizada ana");
    EXPECT_EQ(act.people[2].notes, "a; b");
}

TEST(KleioGroups, TakeFolioPlaceAndPriestInAnyOrder)
{
    for (const char* order :
         {"fl. 9v/igreja/padre rui", "padre rui/f. 9v/igreja", "igreja/padre rui/fol.9v", "vila/padre rui/Fol 9v"})
    {
        const Act act = only("   bap$x/1/1/1700/" + QByteArray(order) + "\n n$a/m\n");
        EXPECT_EQ(act.folio, "9v") << order;
        EXPECT_TRUE(act.place.value == "igreja" || act.place.value == "vila") << order;
        EXPECT_EQ(namesByRole(act), "celebrante padre rui, baptizado a") << order;
    }
}

TEST(KleioGroups, TakeFoliosHoweverTheyAreMarked)
{
    for (const char* folio : {"fólio 9v", "FÓL. 9v", "fol9v", "f.9v", "folha 9v"})
        EXPECT_EQ(only("   bap$x/1/1/1700/" + QByteArray(folio) + "\n n$a/m\n").folio, "9v") << folio;
    const Act torn = only("   bap$x/1/1/1700/fol. 3#rasgado/f.4\n n$a/m\n");
    EXPECT_EQ(torn.folio, "3");
    EXPECT_EQ(torn.notes, "fol. 3#rasgado\nf.4");
    EXPECT_TRUE(torn.place.isEmpty());
    const Act two = only("   bap$x/1/1/1700/fol.3;4v\n n$a/m\n");
    EXPECT_EQ(two.folio, "3");
    EXPECT_EQ(two.notes, "fol.3;4v");
    EXPECT_EQ(namesByRole(two), "baptizado a");
    EXPECT_EQ(only("   bap$x/1/1/1700/fonte\n n$a/m\n").place.value, "fonte");
}

TEST(KleioGroups, TakeAChurchForThePlaceAndWhoIsBesideItForThePriest)
{
    for (const char* order : {"antonio dias/igreja matriz", "igreja matriz/antonio dias", "antonio dias/Sé",
                              "o vigario antonio/capela de s. joao", "rev. antonio/ermida", "R.do antonio/oratório"})
    {
        const Act act = only("   bap$x/1/1/1700/" + QByteArray(order) + "\n n$a/m\n");
        EXPECT_FALSE(act.place.value.contains("antonio")) << order;
        EXPECT_FALSE(act.place.isEmpty()) << order;
        EXPECT_NE(namesByRole(act).find("antonio"), std::string::npos) << order;
    }
}

TEST(KleioGroups, ReadDatesInEveryForm)
{
    const PartialDate day{.year = 1702, .month = 2, .day = 14};
    for (const char* form : {"14/2/1702", "17020214", "data=17020214", "14/fev/1702", "14 de Fevereiro de 1702",
                             "1702-02-14", "14-2-1702", "dia=14/mes=2/ano=1702"})
    {
        PartialDate read = only("   bap$x/" + QByteArray(form) + "/fol.3\n n$a/m\n").date;
        read.text.clear();
        EXPECT_EQ(read, day) << form;
    }
    EXPECT_EQ(only("   bap$x/data=17020000\n n$a/m\n").date, (PartialDate{.year = 1702}));
    EXPECT_EQ(only("   bap$x/31/9/17021\n n$a/m\n").date, (PartialDate{.year = 17021, .month = 9, .day = 31}));
    EXPECT_EQ(only("   bap$x/14?/2/1702\n n$a/m\n").date,
              (PartialDate{.year = 1702, .month = 2, .day = 14, .text = "14?/2/1702"}));
}

TEST(KleioElements, KeepSpellingNoteDoubtAndSeveralValues)
{
    const Act act =
        only("   bap$x/1/1/1700\n n$ana?%Anna#mal escrito/f\n ls$residencia/fonte;outeiro?#ou perto\n pai$?\n");
    EXPECT_EQ(act.people[0].name, (Told{"ana", "Anna", "mal escrito", true}));
    const Attribute first{.type = attribute::residence, .told = {.value = "fonte"}};
    const Attribute second{.type = attribute::residence,
                           .told = {.value = "outeiro", .comment = "ou perto", .doubtful = true}};
    EXPECT_EQ(act.people[0].attributes, (QList<Attribute>{first, second}));
    EXPECT_EQ(act.people[1].name, Told{});
}

TEST(KleioElements, MayRunOverLines)
{
    const Act act =
        only("   bap$x/1/1/1700\n n$ana\n   maria/f/obs=primeira\n\n      segunda\n pai$rui/obs=\"\"\"um / dois;\n"
             "n$nada = %3 #4\"\"\"/id=p9\n");
    EXPECT_EQ(act.people[0].name.value, "ana maria");
    EXPECT_EQ(act.people[0].notes, "primeira segunda");
    EXPECT_EQ(act.people[1].notes, "um / dois;\nn$nada = %3 #4");
    EXPECT_EQ(act.people[1].id, "p9");
}

TEST(KleioElements, BetweenQuotesHaveNoSigns)
{
    const Act act = only("   bap$x/1/1/1700\n n$\"ana / rita; 50%\"#\"a #1\"/f\n pai$joao \"o velho\" d'avo\n");
    EXPECT_EQ(act.people[0].name, (Told{.value = "ana / rita; 50%", .comment = "a #1"}));
    EXPECT_EQ(act.people[1].name.value, "joao \"o velho\" d'avo");
}

TEST(KleioElements, ThatNobodyKnowsStayAsNotes)
{
    const Act act = only("   bap$x/1/1/1700/fol.3/igreja/padre rui/mais isto/cor=azul\n n$ana/f/e isto/xmesmo_que=a;b\n"
                         " ls$residencia/fonte/17020000/e mais/obs=longe\n");
    EXPECT_EQ(act.notes, "cor=azul\nmais isto");
    EXPECT_EQ(act.people[1].notes, "e isto");
    EXPECT_EQ(act.people[1].sameAs, (QStringList{"a", "b"}));
    const Attribute residence{
        .type = attribute::residence, .told = {.value = "fonte", .comment = "e mais; longe"}, .date = "17020000"};
    EXPECT_EQ(act.people[1].attributes.value(0), residence);
}

} // namespace
