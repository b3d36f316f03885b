// What the list of acts shows of the acts of a BDP.
#include "study/windows/actList.h"

#include "common/emptybdp.h"
#include "store/modBD.h"
#include "study/randomacts.h"

#include <gtest/gtest.h>

namespace study {

namespace {

ActLine act(qint64 id, ActKind kind, const QString& book, const QString& number, const QString& subjects)
{
    return {.id = id, .kind = kind, .book = book, .number = number, .subjects = subjects};
}

ActLine gap(const QString& first, int missing)
{
    return {.book = "3", .number = first, .missing = missing};
}

const QList<ActLine> aParish{act(1, ActKind::Baptism, "3", "7", "Maria"), gap("8", 4),
                             act(2, ActKind::Baptism, "3", "12", "José"), act(3, ActKind::Baptism, "4", "1", "Inês"),
                             act(4, ActKind::Marriage, "3", "2", "João da Cruz e Ana Lopes")};

const QHash<qint64, QStringList> words{{1, searchWords("Maria Bento Álvares Catarina")},
                                       {2, searchWords("José Manuel de Abreu")},
                                       {3, searchWords("Inês Domingos d'Ávila")},
                                       {4, searchWords("João da Cruz Ana Lopes")}};

QList<qint64> found(const ActFilter& filter)
{
    QList<qint64> ids;
    for (const ActLine& line : chosenLines(aParish, filter, words))
        ids << line.id;
    return ids;
}

} // namespace

TEST(TheListOfActs, ShowsAGapInWords)
{
    EXPECT_EQ(gapText(gap("8", 1)), "falta o n.º 8");
    EXPECT_EQ(gapText(gap("8", 2)), "faltam os n.os 8 e 9");
    EXPECT_EQ(gapText(gap("8", 4)), "faltam os n.os 8 a 11");
    EXPECT_EQ(cellsOf(gap("8", 4)), QStringList({"Baptismo", "3", "", "", "", "faltam os n.os 8 a 11"}));
}

TEST(TheListOfActs, ShowsWhatAnActIsAndWhomItIsAbout)
{
    ActLine line = act(1, ActKind::Burial, "2", "7A", "Ana");
    line.folio = "12v";
    line.date = {.year = 1702, .month = 2, .about = true};
    EXPECT_EQ(cellsOf(line), QStringList({"Óbito", "2", "12v", "7A", "cerca de 02/1702", "Ana"}));
    EXPECT_EQ(titleOf(line), "Óbitos 2, fl. 12v, n.º 7A, cerca de 02/1702: Ana");
    EXPECT_EQ(titleOf({.id = 2}), "Baptismos");
}

TEST(TheListOfActs, CountsActsAndTheNumbersThatAreMissing)
{
    EXPECT_EQ(countText({}), "0 actos");
    EXPECT_EQ(countText({act(1, ActKind::Baptism, "3", "7", "")}), "1 acto");
    EXPECT_EQ(countText(aParish), "4 actos, 4 números em falta");
    EXPECT_EQ(countText({gap("8", 1)}), "0 actos, 1 número em falta");
}

TEST(TheListOfActs, IsFilteredByKindAndByBookWithTheGapsOfThese)
{
    EXPECT_EQ(found({}), QList<qint64>({1, 0, 2, 3, 4}));
    EXPECT_EQ(found({.kind = ActKind::Baptism}), QList<qint64>({1, 0, 2, 3}));
    EXPECT_EQ(found({.book = "3"}), QList<qint64>({1, 0, 2, 4}));
    EXPECT_EQ(found({.kind = ActKind::Marriage, .book = "3"}), QList<qint64>({4}));
    EXPECT_EQ(found({.kind = ActKind::Burial}), QList<qint64>());
}

TEST(TheListOfActs, FindsTheBeginningsOfNamesWhateverTheirCaseAndAccents)
{
    EXPECT_EQ(found({.name = "alv"}), QList<qint64>({1}));
    EXPECT_EQ(found({.name = "  LOPES joao "}), QList<qint64>({4}));
    EXPECT_EQ(found({.name = "avila"}), QList<qint64>({3}));
    EXPECT_EQ(found({.name = "d'Ávila"}), QList<qint64>({3}));
    EXPECT_EQ(found({.name = "man abr"}), QList<qint64>({2}));
    EXPECT_EQ(found({.name = "man lop"}), QList<qint64>());
    EXPECT_EQ(found({.name = "ria"}), QList<qint64>());
    EXPECT_EQ(found({.name = "%_'"}), found({})) << "no word, no search";
}

TEST(TheListOfActs, OffersEachBookOnce)
{
    EXPECT_EQ(booksOf(aParish, {}), QStringList({"3", "4"}));
    EXPECT_EQ(booksOf(aParish, ActKind::Marriage), QStringList({"3"}));
    EXPECT_EQ(booksOf({}, {}), QStringList());
}

// Whatever the acts: nothing is seen that isn't there, in its order, and every act is found by its own names.
TEST(TheListOfActs, HasEveryActOnceAndFindsEachByItsNames)
{
    const EmptyBdp bdp;
    CriaTabelas(cnBDP, ORV_DATA_DIR "/CriarTab.dat");
    EXPECT_TRUE(namesByAct(cnBDP).isEmpty());
    for (unsigned seed = 1; seed <= 60; ++seed) {
        RandomActs any(seed);
        const Act one = any.act();
        const Conclusions conclusions = any.conclusionsOf(one);
        addAct(cnBDP, one, conclusions, any.planOf(one, conclusions));
    }
    const QList<ActLine> all = listActs(cnBDP);
    EXPECT_EQ(chosenLines(all, {}), all);
    const QHash<qint64, QStringList> names = namesByAct(cnBDP);
    QHash<qint64, QStringList> known;
    for (auto each = names.begin(); each != names.end(); ++each)
        known[each.key()] = searchWords(each->join(' '));
    qsizetype acts = 0;
    for (const ActLine& line : all) {
        if (line.missing > 0) continue;
        ++acts;
        const std::optional<ActRecord> record = readAct(cnBDP, line.id);
        ASSERT_TRUE(record);
        for (const ActPerson& person : record->act.people) {
            const QList<ActLine> by = chosenLines(all, {.name = person.name.value}, known);
            EXPECT_TRUE(by.contains(line)) << line.id << ' ' << qPrintable(person.name.value);
        }
    }
    EXPECT_EQ(acts, 60);
}

TEST(TheTitleOfAnAct, NamesItsBookItsDateAndWhomItIsAbout)
{
    Act act{.kind = ActKind::Marriage, .date = {.year = 1702, .month = 2, .day = 14}, .book = "3", .number = "7"};
    EXPECT_EQ(titleOf(act), "Casamentos 3, n.º 7, 14/02/1702");
    act.people << ActPerson{.role = Role::Groom, .name = {.value = "José Dias"}} << ActPerson{.role = Role::Bride};
    EXPECT_EQ(titleOf(act), "Casamentos 3, n.º 7, 14/02/1702: José Dias");
    act.people[1].name.value = "Ana Lopes";
    EXPECT_EQ(titleOf(act), "Casamentos 3, n.º 7, 14/02/1702: José Dias e Ana Lopes");
    EXPECT_EQ(titleOf(Act{.kind = ActKind::Baptism}), "Baptismos");
}

} // namespace study
