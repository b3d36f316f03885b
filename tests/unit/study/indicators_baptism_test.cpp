// How long it took to baptise, as a list or the notes of the cards tell it.
#include "study/taking.h"

#include "study/indicators/annual.h"
#include "study/indicators/baptismDays.h"

using namespace study::indicators;
using taking::keyOf;
using taking::Shown;

namespace {

constexpr qint32 listed = 1;

} // namespace

TEST(TheDelayOfABaptism, HasTheQuartilesOfTheWorkedExample)
{
    Tally tally;
    for (const int days : {0, 1, 1, 2, 3, 3, 4, 5, 7, 8, 8, 9, 10, 12, 15, 21, 30})
        tally.add(keyOf(baptismDelay, "demoras", {1750, 1, listed, days}), 1);
    const Shown shown(baptismDelay, tally);
    constexpr auto all = "Todo o período";
    EXPECT_EQ(shown.value("demora", all, "Baptismos"), 17);
    EXPECT_DOUBLE_EQ(shown.value("demora", all, "1.º quartil"), 3);
    EXPECT_DOUBLE_EQ(shown.value("demora", all, "Mediana"), 7);
    EXPECT_DOUBLE_EQ(shown.value("demora", all, "3.º quartil"), 10);
    EXPECT_NEAR(shown.value("demora", all, "Até 8 dias"), 64.7, 0.05);
    EXPECT_NEAR(shown.value("demora", all, "Até 1 dia"), 3 / 0.17, 1e-9);
    EXPECT_NEAR(shown.value("demora", all, "Até 3 dias"), 6 / 0.17, 1e-9);
    EXPECT_NEAR(shown.value("demora", all, "Até 15 dias"), 15 / 0.17, 1e-9);
    EXPECT_DOUBLE_EQ(shown.value("demora", all, "Até 30 dias"), 100);
    EXPECT_EQ(shown.standing("demora", all, "Até 8 dias"), study::report::Standing::Suppressed) << "a base of 17";
    EXPECT_EQ(shown.value("demora-por-fonte", "lista", "Baptismos"), 17);
}

TEST(TheDaysOfNotes, StandBehindTheWordsOfTheResearcher)
{
    const DaysInNotes days("nasceu a; n.");
    const QDate card(1745, 3, 20), twelfth(1745, 3, 12);
    for (const char* notes :
         {"n. 12/03", "N. 12-3-1745", "Filho segundo. Nasceu a 12 de Março.", "nasceu  a 12 de março de 1745",
          "nasceu a: 12.03", "n.12/3 (bapt. em casa)", "nasceu a 12 Março"})
        EXPECT_EQ(days.lastUntil(QString::fromUtf8(notes), card), twelfth) << notes;
    EXPECT_EQ(days.lastUntil("n. 28/12", QDate(1745, 1, 3)), QDate(1744, 12, 28)) << "of the year before";
    EXPECT_EQ(days.firstFrom("n. 3/1", QDate(1744, 12, 28)), QDate(1745, 1, 3)) << "of the next year";
    EXPECT_EQ(days.lastUntil("nasceu a 2 de 8bro", card), QDate(1744, 10, 2));
    EXPECT_EQ(days.lastUntil("nasceu a 2 de Septembro de 1744", card), QDate(1744, 9, 2));
}

TEST(TheDaysOfNotes, AreNotGuessed)
{
    const DaysInNotes days("nasceu a; n.");
    const QDate card(1745, 3, 20);
    for (const char* notes : {"", "12/03", "an. 12/03", "nasceu a doze", "n. 31/02", "n. 12/13", "n. 12 filhos"})
        EXPECT_FALSE(days.lastUntil(QString::fromUtf8(notes), card)) << notes;
    EXPECT_TRUE(days.isIn("nasceu a doze"));
    EXPECT_FALSE(days.isIn("an. 12/03"));
    const DaysInNotes none(" ; ");
    EXPECT_TRUE(none.isEmpty());
    EXPECT_FALSE(none.isIn("n. 12/03"));
    EXPECT_FALSE(none.lastUntil("n. 12/03", card));
    EXPECT_FALSE(DaysInNotes("(").lastUntil("( 31/13", card)) << "words are no pattern of their own";
    EXPECT_EQ(DaysInNotes("(").lastUntil("( 1/3", card), QDate(1745, 3, 1));
}

class Baptised : public Counting
{
protected:
    qint64 baptised(const char* day, const char* notes)
    {
        const qint64 child = person({"Rui", 'm', day});
        run("update individuo set obs = ? where nind = ?", {QString::fromUtf8(notes), child});
        return child;
    }
};

TEST_F(Baptised, AreReadByTheWordsThatTheStudySets)
{
    baptised("1750-03-10", "nasceu a 2 de Março"); // 8 days
    baptised("1750-03-10", "nasceu a tantos");
    run("update individuo set DnascFixa = 0 where nind = ?", {baptised("1750-03-10", "nasceu a 2/3")});
    baptised("1750-03-10", "nasceu a 12/03/1750"); // behind the baptism
    baptised("1750-03-10", "bapt. a 13/3");        // 3 days
    baptised("1750-03-10", "");
    EXPECT_EQ(leftOut(figuresFor(baptismDelay)),
              (QMap<QString, int>{{"sem os dois dias: nem a lista nem as notas os dizem", 6}}))
        << "nothing is read before words are set";
    Settings settings;
    settings.birthWords = "nasceu a";
    settings.baptismWords = "bapt. a";
    const auto figures = figuresFor(baptismDelay, settings);
    const auto tally = tallyFor(baptismDelay, settings);
    EXPECT_EQ((tally[keyOf(baptismDelay, "demoras", {1750, 1, 2, 8})]), 1);
    EXPECT_EQ((tally[keyOf(baptismDelay, "demoras", {1750, 1, 2, 3})]), 1);
    EXPECT_EQ(value(tableOf(figures, "demora"), "Todo o período", "Baptismos"), 2);
    EXPECT_EQ(leftOut(figures),
              (QMap<QString, int>{{"sem os dois dias: nem a lista nem as notas os dizem", 1},
                                  {"notas com as palavras indicadas, mas sem um dia que se leia depois delas", 1},
                                  {"notas com um dia, e data da ficha aproximada", 1},
                                  {"baptismo anterior ao nascimento", 1}}));
}

TEST_F(Baptised, OfAListGoBeforeTheirNotes)
{
    const qint64 child = baptised("1750-03-10", "nasceu a 2/3");
    Settings settings;
    settings.birthWords = "nasceu a";
    settings.baptisms[study::parish::PersonNumber(child)] = {QDate(1750, 3, 9), QDate(1750, 3, 10)};
    const auto tally = tallyFor(baptismDelay, settings);
    EXPECT_EQ((tally[keyOf(baptismDelay, "demoras", {1750, 1, listed, 1})]), 1);
    EXPECT_EQ(tally.sum(keyOf(baptismDelay, "demoras").count), 1);
}
