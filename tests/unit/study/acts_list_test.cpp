// The list of acts, with what is missing in it.
#include "study/acts/register.h"

#include "common/emptybdp.h"
#include "platform/jet/recordset.h"

#include <gtest/gtest.h>

using namespace study;

namespace {

qint64 add(ActKind kind, const QString& book, const QString& number, const PartialDate& date = {})
{
    const Act act{.kind = kind, .date = date, .book = book, .number = number};
    return addAct(cnBDP, act, {}, {});
}

qint64 addBaptism(const QString& book, const QString& number)
{
    return add(ActKind::Baptism, book, number);
}

// "1 3" with a gap between as "1 2(1) 3".
QString shownNumbers()
{
    QStringList shown;
    for (const ActLine& line : listActs(cnBDP))
        shown << (line.id == 0 ? QString("%1(%2)").arg(line.number).arg(line.missing) : line.number);
    return shown.join(' ');
}

class ListOfActs : public testing::Test
{
    EmptyBdp bdp_;
};

} // namespace

TEST_F(ListOfActs, IsEmptyInABdpWithoutActs)
{
    EXPECT_TRUE(listActs(cnBDP).isEmpty());
    EXPECT_FALSE(hasActs(cnBDP));
    EXPECT_FALSE(readAct(cnBDP, 1));
    EXPECT_FALSE(lastAct(cnBDP));
    EXPECT_FALSE(actWith(cnBDP, ActKind::Baptism, "1", "1"));
    EXPECT_TRUE(appearances(cnBDP, 1).isEmpty());
    removeAct(cnBDP, 1);
    dropDraft(cnBDP);
    EXPECT_TRUE(cnBDP.tables().isEmpty());
}

TEST_F(ListOfActs, TellsTheNumbersThatAreMissingInABook)
{
    for (const char* number : {"9", "3", "10", "1"})
        addBaptism("1", number);
    EXPECT_EQ(shownNumbers(), "1 2(1) 3 4(5) 9 10");
}

TEST_F(ListOfActs, CountsEachBookAndEachKindByItself)
{
    addBaptism("1", "1");
    addBaptism("2", "3");
    add(ActKind::Marriage, "1", "5");
    add(ActKind::Burial, "1", "9");
    addBaptism("", "12");
    EXPECT_EQ(shownNumbers(), "12 1 3 5 9");
}

TEST_F(ListOfActs, TakesATextForANumberWhereItBeginsWithOne)
{
    for (const char* number : {"7A", "9 bis", "7", "", "s/n", "8", "12", "99999999999999999999"})
        addBaptism("1", number);
    EXPECT_EQ(shownNumbers(), "7 7A 8 9 bis 10(2) 12  99999999999999999999 s/n");
}

TEST_F(ListOfActs, KeepsTheBooksInTheOrderOfTheirNumbers)
{
    for (const char* book : {"Livro 10", "livro 2", "Livro 1", "B", "Livro 02"})
        addBaptism(book, "1");
    QStringList books;
    for (const ActLine& line : listActs(cnBDP))
        books << line.book;
    EXPECT_EQ(books, (QStringList{"B", "Livro 1", "Livro 02", "livro 2", "Livro 10"}));
}

TEST_F(ListOfActs, OrdersActsOfOneNumberByTheirDate)
{
    const qint64 late = add(ActKind::Baptism, "1", "4", {.year = 1702, .month = 2, .day = 14});
    const qint64 early = add(ActKind::Baptism, "1", "4", {.year = 1702, .month = 2});
    QList<qint64> ids;
    for (const ActLine& line : listActs(cnBDP))
        ids << line.id;
    EXPECT_EQ(ids, (QList<qint64>{early, late}));
}

TEST_F(ListOfActs, NamesWhomAnActIsAbout)
{
    const auto named = [](Role role, const QString& name, const QString& standard = {}) {
        return ActPerson{.role = role, .name = {.value = name}, .standardName = standard};
    };
    const Act act{.kind = ActKind::Marriage,
                  .date = {.year = 1702, .text = "no Entrudo"},
                  .book = "1",
                  .folio = "3v",
                  .number = "7",
                  .people = {named(Role::Groom, "Joze Dias", "José Dias"), named(Role::Father, "Rui"),
                             named(Role::Bride, "Ana Lopes")}};
    const qint64 id = addAct(cnBDP, act, {.people = QList<Identity>(3)}, {});
    EXPECT_EQ(listActs(cnBDP), (QList<ActLine>{{.id = id,
                                                .kind = ActKind::Marriage,
                                                .book = "1",
                                                .folio = "3v",
                                                .number = "7",
                                                .date = act.date,
                                                .subjects = "José Dias e Ana Lopes"}}));
}

TEST_F(ListOfActs, FindsAnActByItsBookAndNumber)
{
    const qint64 id = addBaptism("d'Além", "7");
    addBaptism("d'Além", "7");
    EXPECT_EQ(actWith(cnBDP, ActKind::Baptism, "d'Além", "7"), id);
    EXPECT_FALSE(actWith(cnBDP, ActKind::Burial, "d'Além", "7"));
    EXPECT_FALSE(actWith(cnBDP, ActKind::Baptism, "d'Além", "8"));
}

TEST_F(ListOfActs, LosesAnActWholeWhereItIsRemoved)
{
    const Act act{.number = "1",
                  .people = {{.role = Role::Child,
                              .attributes = {{.type = attribute::age, .told = {.value = "1"}}},
                              .sameAs = {"x"}}},
                  .facts = {{.type = attribute::masses, .told = {.value = "20"}}},
                  .relations = {{.type = "parentesco", .person = 0}}};
    const Conclusions conclusions{.people = {{.kind = Identity::Kind::New}},
                                  .places = {{"Pouca Pena", {.code = "1"}}},
                                  .professions = {{"oleiro", 3}},
                                  .overruled = {{"a", "b"}}};
    const Plan plan{.rows = {{.table = "individuo", .key = {{"nind", 7}}}}, .people = {7}, .families = {2}};
    const qint64 id = addAct(cnBDP, act, conclusions, plan);
    removeAct(cnBDP, id);
    for (const QString& table : cnBDP.tables()) {
        const jet::Recordset rows(cnBDP, jet::NativeSql("select count(*) as n from " + table));
        EXPECT_EQ(rows["n"].toInt(), 0) << qPrintable(table);
    }
    EXPECT_FALSE(readAct(cnBDP, id));
}

TEST_F(ListOfActs, TellsInWhichActsAPersonStands)
{
    const auto burial = [](int year, Role role) {
        const Act act{.kind = ActKind::Burial, .date = {.year = year}, .people = {{.role = role}}};
        return addAct(cnBDP, act, {.people = {{.kind = Identity::Kind::Known, .nind = 7}}}, {.people = {7}});
    };
    const qint64 second = burial(1710, Role::Deceased), first = burial(1702, Role::Spouse);
    const auto appearance = [](qint64 act, int year, Role role) {
        return Appearance{.act = act, .kind = ActKind::Burial, .date = {.year = year}, .role = role};
    };
    EXPECT_EQ(appearances(cnBDP, 7),
              (QList{appearance(first, 1702, Role::Spouse), appearance(second, 1710, Role::Deceased)}));
    EXPECT_TRUE(appearances(cnBDP, 8).isEmpty());
}

TEST_F(ListOfActs, LeavesATableOfAnotherProgramAlone)
{
    cnBDP.execute(jet::NativeSql("create table estudo_pessoa (nome varchar)"));
    EXPECT_THROW(hasActs(cnBDP), jet::Error);
    EXPECT_THROW(addBaptism("1", "1"), jet::Error);
    EXPECT_EQ(cnBDP.tables(), QStringList("estudo_pessoa"));
    cnBDP.execute(jet::NativeSql("create table estudo_rascunho (nome varchar)"));
    EXPECT_THROW(saveDraft(cnBDP, {}, {}), jet::Error);
    EXPECT_THROW(savedDraft(cnBDP), jet::Error);
}

TEST_F(ListOfActs, TakesATableToWhichSomebodyHasAddedAColumn)
{
    const qint64 id = addBaptism("1", "1");
    cnBDP.execute(jet::NativeSql("alter table estudo_acto add column visto varchar"));
    EXPECT_TRUE(hasActs(cnBDP));
    EXPECT_TRUE(readAct(cnBDP, id));
    EXPECT_EQ(addBaptism("1", "2"), id + 1);
}

TEST_F(ListOfActs, ReadsAnActWhoseRowsWereTouchedByHandAsFarAsItCan)
{
    const Act act{.people = {{.role = Role::Child}, {.role = Role::Father, .of = 0}}};
    const qint64 id = addAct(cnBDP, act, {.people = QList<Identity>(2)}, {});
    cnBDP.execute(jet::NativeSql("update estudo_pessoa set de = 17, papel = 'rei', sexo = 'x' where ordem = 1"));
    cnBDP.execute(jet::NativeSql("update estudo_acto set tipo = 'x', quando = 'ontem'"));
    const std::optional<ActRecord> record = readAct(cnBDP, id);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->act.people[1].of, -1);
    EXPECT_EQ(record->act.people[1].role, Role::Mentioned);
    EXPECT_FALSE(record->stored.isValid());
}
