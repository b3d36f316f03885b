// The one couple that the parents of a child can be, and dates that aren't whole ones.
#include "study/people.h"

#include <algorithm>
#include <random>

using namespace study;

namespace {

struct Baptised
{
    const char* child = "Maria";
    PartialDate date = {.year = 1700, .month = 3, .day = 5};
};

class TheOnlyCouple : public People
{
protected:
    // 0: none.
    qint64 only(const QString& father, const QString& mother, const Baptised& baptised = {})
    {
        Act act{.kind = ActKind::Baptism, .date = baptised.date};
        act.people << ActPerson{.role = Role::Child, .name = {QString::fromUtf8(baptised.child)}}
                   << ActPerson{.role = Role::Father, .of = 0, .name = {father}}
                   << ActPerson{.role = Role::Mother, .of = 0, .name = {mother}};
        const Conclusions conclusions{.people = {{}, {}, {}}};
        const auto found = finder.onlyCouple(act, 0, conclusions);
        return found ? found->nfamilia : 0;
    }
    qint64 parents(const char* father, const char* mother) { return couple(person({father}), person({mother, 'f'})); }

    Finder finder{bdp};
};

TEST_F(TheOnlyCouple, AgreesInAllElementsThatBothNamesTell)
{
    const qint64 family = parents("Manuel Joaquim Salgado", "Custódia Joaquina da Cruz");
    EXPECT_EQ(only("manoel joaquim salgado", "custodia da cruz"), family);
    EXPECT_EQ(only("manuel salgado", "custodia"), family) << "what isn't told disagrees with nothing";
    EXPECT_EQ(only("manuel de abreu", "custodia pinto"), 0) << "both surnames are others";
    EXPECT_EQ(only("manuel salgado", "custodia pinto"), 0) << "hers is";
    EXPECT_EQ(only("manuel de abreu", "custodia da cruz"), 0) << "his is";
    EXPECT_EQ(only("manuel salgado lopes", "custodia da cruz"), 0) << "one of his is";
    EXPECT_EQ(only("manuel", "custodia"), 0) << "by first names alone";
    EXPECT_EQ(only("joaquim salgado", "custodia da cruz"), 0) << "a second name isn't the first one";
    EXPECT_EQ(only("manuel sal", "custodia da cruz"), 0) << "a beginning isn't a name";
}

TEST_F(TheOnlyCouple, IsntToldByDevotionalNames)
{
    const qint64 family = parents("Bento", "Maria de Jesus");
    EXPECT_EQ(only("bento", "maria de jesus"), 0);
    EXPECT_EQ(only("bento dias", "maria de jesus"), 0);
    run("update individuo set nome = 'Bento Dias' where nome = 'Bento'");
    EXPECT_EQ(only("bento dias", "maria de jesus"), family);
}

TEST_F(TheOnlyCouple, IsOneOfAllThatThereAreAndNotOfTheFirstTen)
{
    // Ten whose children close them stand before two that are open.
    for (int i = 0; i < 10; ++i)
        person({"Rui", 'm', "1700-01-01", "", parents("Manuel Dias", "Maria Gomes")});
    const qint64 open = parents("Manuel Dias", "Maria Gomes");
    EXPECT_EQ(only("Manuel Dias", "Maria Gomes"), open);
    parents("Manuel Dias", "Maria Gomes");
    EXPECT_EQ(only("Manuel Dias", "Maria Gomes"), 0);
}

TEST_F(TheOnlyCouple, HasARivalInAnotherOfWhomLessIsTold)
{
    parents("Manuel Dias", "Maria Gomes");
    parents("Manuel", "Maria");
    EXPECT_EQ(only("Manuel Dias", "Maria Gomes"), 0);
}

TEST_F(TheOnlyCouple, StaysOpenToTwins)
{
    const qint64 family = parents("Manuel Dias", "Maria Gomes");
    person({"Rui", 'm', "1700-03-05", "", family});
    EXPECT_EQ(only("Manuel Dias", "Maria Gomes", {.child = "Ana"}), family);
    EXPECT_EQ(only("Manuel Dias", "Maria Gomes", {.child = "Ana", .date = {1700, 3, 10}}), family);
    EXPECT_EQ(only("Manuel Dias", "Maria Gomes", {.child = "Ana", .date = {1700, 2, 28}}), family);
    EXPECT_EQ(only("Manuel Dias", "Maria Gomes", {.child = "Ana", .date = {1700, 3, 25}}), 0);
    EXPECT_EQ(only("Manuel Dias", "Maria Gomes", {.child = "Rui"}), 0) << "he may be the very one";
}

TEST_F(TheOnlyCouple, IsOpenOnEachDayThatTheDateMayMean)
{
    const qint64 family = parents("Manuel Dias", "Maria Gomes");
    person({"Rui", 'm', "1700-12-26", "", family});
    const auto in = [&](const PartialDate& date) {
        return only("Manuel Dias", "Maria Gomes", {.child = "Ana", .date = date});
    };
    EXPECT_EQ(in({1700, 1, 1}), family);
    EXPECT_EQ(in({1700, 1, 0}), family) << "the 31st is eleven months before";
    EXPECT_EQ(in({1700, 0, 0}), 0);
    EXPECT_EQ(in({1700, 12, 0}), 0);
    EXPECT_EQ(in({1702, 0, 0}), family);
    EXPECT_EQ(in({.year = 1702, .about = true}), 0);
}

// Of 60 couples and 400 acts of names drawn at random; no date closes any couple.
TEST_F(TheOnlyCouple, NeverHasASurnameThatSharesNothingWithTheOneTold)
{
    std::mt19937 random(20);
    const auto oneOf = [&](const QStringList& all) { return all[qsizetype(random() % size_t(all.size()))]; };
    const QStringList surnames{"Dias", "Gomes", "Pinto", "Lobo", "Salgado", "Abreu", ""};
    const auto man = [&] { return (oneOf({"Manuel", "Pedro"}) + ' ' + oneOf(surnames)).trimmed(); };
    const auto woman = [&] { return (oneOf({"Ana", "Rita"}) + ' ' + oneOf(surnames)).trimmed(); };
    QList<std::pair<QString, QString>> couples;
    for (int i = 0; i < 60; ++i) {
        couples << std::pair(man(), woman());
        parents(couples.last().first.toUtf8().constData(), couples.last().second.toUtf8().constData());
    }
    const auto mayBe = [](const QString& told, const QString& known) {
        return told.section(' ', 0, 0) == known.section(' ', 0, 0) &&
               (told == known || !told.contains(' ') || !known.contains(' '));
    };
    int linked = 0;
    for (int i = 0; i < 400; ++i) {
        const QString father = man(), mother = woman();
        const qint64 found = only(father, mother);
        if (found == 0) continue;
        ++linked;
        const auto& [husband, wife] = couples[found - 1];
        EXPECT_TRUE(mayBe(father, husband) && mayBe(mother, wife))
            << qPrintable(father + " e " + mother + ": " + husband + " e " + wife);
        EXPECT_EQ(
            std::ranges::count_if(
                couples, [&](const auto& each) { return mayBe(father, each.first) && mayBe(mother, each.second); }),
            1);
    }
    EXPECT_GT(linked, 10);
}

class UncertainDates : public People
{
protected:
    QStringList against(ActKind kind, Role role, const PartialDate& date, qint64 nind)
    {
        Act act{.kind = kind, .date = date};
        const bool isMain = role == Role::Child || role == Role::Deceased;
        if (!isMain) act.people << ActPerson{.role = Role::Child, .name = {"Rui"}};
        act.people << ActPerson{.role = role, .of = isMain ? -1 : 0, .name = {"Ana Gomes"}};
        Conclusions conclusions;
        conclusions.people.resize(act.people.size());
        for (const Candidate& each : finder.find(act, int(act.people.size()) - 1, conclusions, 100))
            if (each.nind == nind) return each.against;
        return {"not found"};
    }

    Finder finder{bdp};
};

TEST_F(UncertainDates, OfAnActExcludeNobodyWhomOneOfItsDaysAllows)
{
    const qint64 born = person({"Ana Gomes", 'f', "1702-03-10"});
    EXPECT_EQ(against(ActKind::Baptism, Role::Child, {1702, 0, 0}, born), QStringList());
    EXPECT_EQ(against(ActKind::Baptism, Role::Child, {1702, 1, 1}, born),
              QStringList("já tem nascimento em 10/03/1702"));
    const qint64 dead = person({"Ana Gomes", 'f', "", "1702-05-20"});
    EXPECT_EQ(against(ActKind::Burial, Role::Deceased, {1702, 0, 0}, dead), QStringList());
    EXPECT_EQ(against(ActKind::Burial, Role::Deceased, {1702, 5, 0}, dead), QStringList());
    EXPECT_EQ(against(ActKind::Burial, Role::Deceased, {1702, 1, 0}, dead), QStringList("já tem óbito em 20/05/1702"));
    const qint64 mother = person({"Ana Gomes", 'f', "1690-06-01"});
    EXPECT_EQ(against(ActKind::Baptism, Role::Mother, {1702, 0, 0}, mother), QStringList());
    EXPECT_EQ(against(ActKind::Baptism, Role::Mother, {1702, 1, 0}, mother), QStringList("tinha 11 anos"));
}

TEST_F(UncertainDates, OfAPersonExcludeThemBeyondTheirToleranceOnly)
{
    const qint64 ana = person({"Ana Gomes", 'f', "1689-01-01"});
    const auto mother = [&] { return against(ActKind::Baptism, Role::Mother, {1700, 3, 5}, ana); };
    EXPECT_EQ(mother(), QStringList("tinha 11 anos"));
    run("update individuo set DnascFixa = 0");
    EXPECT_EQ(mother(), QStringList()) << "she may have been 16";
    run("update individuo set datanasc = null, dataobito = '1698-01-01'");
    EXPECT_EQ(mother(), QStringList("já morta em 01/01/1698"));
    run("update individuo set dobitofixa = 0");
    EXPECT_EQ(mother(), QStringList());
    run("update individuo set dataobito = '1690-01-01'");
    EXPECT_EQ(mother(), QStringList("já morta em 01/01/1690"));
}

TEST_F(UncertainDates, DontLetWhoLivedInOtherTimesHideWhoIsSought)
{
    for (int i = 0; i < 100; ++i)
        couple(person({"Ana Gomes", 'f'}), person({"Rui Vaz"}), "1590-01-02");
    const qint64 now = person({"Ana Gomes", 'f'});
    couple(now, person({"Rui Vaz"}), "1699-01-02");
    Act act{.kind = ActKind::Baptism, .date = {1700, 3, 5}};
    act.people << ActPerson{.role = Role::Child, .name = {"Rui"}}
               << ActPerson{.role = Role::Godmother, .of = 0, .name = {"Ana Gomes"}};
    const QList<Candidate> found = finder.find(act, 1, {.people = {{}, {}}});
    ASSERT_FALSE(found.isEmpty());
    EXPECT_EQ(found.first().nind, now);
    EXPECT_EQ(found.first().against, QStringList());
}

} // namespace
