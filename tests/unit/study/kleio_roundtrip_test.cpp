#include "study/transcripts/kleio.h"

#include "study/randomacts.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace study;

namespace {

// Texts made of the signs of the notation itself.
QString ticklish(RandomActs& chance)
{
    static const QStringList parts{"/",
                                   ";",
                                   "%",
                                   "#",
                                   "=",
                                   "__",
                                   "$",
                                   "\"",
                                   "\"\"\"",
                                   "?",
                                   "\\",
                                   "\\\"",
                                   "\n",
                                   "\r",
                                   "\t",
                                   " ",
                                   "a",
                                   "n$x/f",
                                   "obs=",
                                   "nome__",
                                   "\u00a0",
                                   "é",
                                   QString(QChar(0xd83d)),
                                   "\ufeff",
                                   QString(QChar(0xffff)),
                                   "''",
                                   "\\u0041",
                                   "fol.3",
                                   "padre",
                                   "0",
                                   "-"};
    QString text;
    for (int left = chance.any(0, 6); left > 0; --left)
        text += parts[chance.any(0, int(parts.size()) - 1)];
    return text;
}

void makeTicklish(RandomActs& chance, Told& told)
{
    for (QString* text : {&told.value, &told.source, &told.comment})
        if (chance.maybe()) *text = ticklish(chance);
}

void makeTicklish(RandomActs& chance, QList<Attribute>& attributes)
{
    static const QStringList types{"Residencia", "profissão", "morta", "locs", "testamento", "sacr", "x/y"};
    for (Attribute& one : attributes) {
        makeTicklish(chance, one.told);
        one.date = ticklish(chance);
        if (chance.maybe()) one.type = types[chance.any(0, int(types.size()) - 1)];
    }
}

void makeTicklish(RandomActs& chance, Act& act)
{
    for (QString* text : {&act.book, &act.folio, &act.number, &act.notes, &act.id, &act.date.text})
        if (chance.maybe()) *text = ticklish(chance);
    if (chance.any(0, 9) == 0) act.date.day = chance.any(-5000, 5000);
    if (chance.any(0, 9) == 0) act.date.year = chance.any(-5000, 500000);
    makeTicklish(chance, act.place);
    makeTicklish(chance, act.facts);
    for (ActPerson& one : act.people) {
        makeTicklish(chance, one.name);
        makeTicklish(chance, one.attributes);
        for (QString* text : {&one.standardName, &one.notes, &one.id})
            if (chance.maybe()) *text = ticklish(chance);
    }
    for (Relation& one : act.relations) {
        makeTicklish(chance, one.told);
        for (QString* text : {&one.type, &one.otherName, &one.otherId})
            *text = ticklish(chance);
        if (chance.maybe() && !act.people.isEmpty())
            one.otherId = act.people[chance.any(0, int(act.people.size()) - 1)].id;
    }
}

QList<Act> actsIn(const Transcript& transcript)
{
    QList<Act> acts;
    for (const TranscribedAct& one : transcript.acts)
        acts << one.act;
    return acts;
}

// What differs first, as it stands in the file.
std::string told(const Act& act)
{
    return toKleio({act}).toStdString();
}

TEST(KleioRoundTrip, GivesEveryActBack)
{
    RandomActs chance(1);
    for (int round = 0; round < 600; ++round) {
        Act act = chance.act();
        if (round % 3 != 0) makeTicklish(chance, act);
        const Transcript read = readKleio(toKleio({act}));
        ASSERT_FALSE(read.isDamaged()) << told(act);
        ASSERT_EQ(read.acts.size(), 1) << told(act);
        ASSERT_TRUE(read.acts.first().act == act) << round << '\n'
                                                  << told(act) << "\nread as\n"
                                                  << told(read.acts.first().act);
    }
}

TEST(KleioRoundTrip, TellsWhoStandsInAnotherFileApart)
{
    const QByteArray file = "kleio$x\nfonte$b\nbap$a/1/1/1702\n n$ana/f/id=p1\nbap$c/1/1/1703\n"
                            " n$eva/f/id=p2/mesmo_que=p1/xmesmo_que=q8;q9/mesmo_que=p1\n";
    const Transcript read = readKleio(file);
    ASSERT_TRUE(read.problems.isEmpty());
    const QByteArray written = toKleio(actsIn(read));
    EXPECT_TRUE(written.contains("mesmo_que=p1/xmesmo_que=q8;q9/mesmo_que=p1")) << written.toStdString();
    const Transcript again = readKleio(written);
    EXPECT_TRUE(again.problems.isEmpty()) << "nobody is missing";
    EXPECT_TRUE(actsIn(again) == actsIn(read));
}

TEST(KleioRoundTrip, KeepsWhatIsToldOfTheBooks)
{
    const Transcript read = readKleio("kleio$x\nfonte$b1/1702/paroquiais/torre/obs=\"\"\"folhas/soltas\nno fim\"\"\"\n"
                                      "bap$a/1/1/1702\n n$ana/f\nfonte$b2/1703\nfonte$b3/1704/paroquiais\n"
                                      "bap$c/1/1/1704\n n$eva/f\n");
    const auto told = [](Transcript transcript) {
        std::ranges::sort(transcript.sources, {}, &Source::id);
        for (Source& source : transcript.sources)
            source.line = 0;
        return transcript.sources;
    };
    ASSERT_EQ(read.sources.size(), 3);
    const Transcript again = readKleio(toKleio(actsIn(read), read.sources));
    EXPECT_EQ(told(again), told(read));
    EXPECT_TRUE(actsIn(again) == actsIn(read));
}

TEST(KleioRoundTrip, KeepsTheOrderOfManyActsAndTheirBooks)
{
    RandomActs chance(2);
    QList<Act> acts;
    for (int left = 60; left > 0; --left) {
        acts << chance.act();
        makeTicklish(chance, acts.last());
        if (chance.maybe() && acts.size() > 1) acts.last().book = acts[acts.size() - 2].book;
    }
    EXPECT_TRUE(actsIn(readKleio(toKleio(acts))) == acts);
}

// What a person may have typed, in groups that fit or don't.
QByteArray scribbled(RandomActs& chance)
{
    static const QStringList groups{"bap",    "cas",      "o",     "n",        "pai",        "mn",
                                    "pad",    "ppad",     "mrmad", "noivo",    "noiva",      "mulher1",
                                    "marido", "pmulher1", "test",  "referido", "celebrante", "ls",
                                    "atr",    "rel",      "locs",  "sacr",     "xpto",       "procurador-pad",
                                    "fonte",  "crisma"};
    static const QStringList elements{"josefa",
                                      "f",
                                      "m",
                                      "id=p1",
                                      "id=p2",
                                      "?",
                                      "bento%Bẽto#assim",
                                      "a;b;c",
                                      "\"a/b\"",
                                      "obs=\"\"\"x\ny\"\"\"",
                                      "14",
                                      "2",
                                      "1702",
                                      "fol. 3v",
                                      "igreja matriz",
                                      "padre joao",
                                      "mesmo_que=p2",
                                      "data=17020231",
                                      "residencia",
                                      "ec",
                                      "viuva?",
                                      "\"aberta",
                                      "cor=azul",
                                      "papel=padrinho",
                                      "de=1",
                                      "com=9",
                                      "sexo=\"\"",
                                      "joao \"o moço\"",
                                      ""};
    QString text = "kleio$x\n";
    for (int left = chance.any(1, 40); left > 0; --left) {
        text += QString("   ").repeated(chance.any(0, 4)) + groups[chance.any(0, int(groups.size()) - 1)] + '$';
        for (int more = chance.any(0, 6); more > 0; --more)
            text += elements[chance.any(0, int(elements.size()) - 1)] + '/';
        text += chance.maybe() ? "\r\n" : "\n";
        if (chance.any(0, 9) == 0) text += "   e mais texto\n";
    }
    return text.toUtf8();
}

TEST(KleioRoundTrip, ReadsWhatItHasWrittenAsItReadThatBefore)
{
    RandomActs chance(3);
    int damaged = 0;
    for (int round = 0; round < 2000; ++round) {
        const QByteArray file = scribbled(chance);
        const Transcript first = readKleio(file);
        if (first.isDamaged()) ++damaged;
        for (const TranscribedAct& one : first.acts) {
            const QList<Act> again = actsIn(readKleio(toKleio({one.act})));
            ASSERT_TRUE(again == QList{one.act}) << file.toStdString() << told(one.act) << told(again.value(0));
        }
    }
    EXPECT_LT(damaged, 1900); // most of the time there is something to compare
}

} // namespace
