// The index of the names, which follows the people of the BDP however they are written.
#include "study/linkage/decisions.h"
#include "study/linkage/merge.h"
#include "study/people/index.h"

#include "platform/jet/jsonrow.h"
#include "platform/jet/transaction.h"
#include "study/people.h"

#include <QJsonDocument>
#include <QSet>
#include <QtEndian>

#include <sqlite3.h>

#include <algorithm>
#include <map>
#include <random>

using namespace study;

namespace {

class TheIndex : public People
{
protected:
    QStringList rowsOf(const char* select)
    {
        QStringList rows;
        for (const QJsonObject& row : jet::jsonRows(bdp, jet::NativeSql(select)))
            rows << QString::fromUtf8(QJsonDocument(row).toJson(QJsonDocument::Compact));
        return rows;
    }
    QStringList entries() { return rowsOf("select id from estudo_nome order by id"); }
    QStringList indexed() { return rowsOf("select * from estudo_nome_individuo order by registo"); }
    QStringList words() { return rowsOf("select palavra, chave from estudo_nome_palavra order by palavra, chave"); }

    // What stands in it is what would stand there if it were made now; words that nobody has any more do no harm.
    void expectToBeAsNew(const char* after)
    {
        const QStringList entriesNow = entries(), indexedNow = indexed(), wordsNow = words();
        index.rebuild();
        EXPECT_EQ(entriesNow, entries()) << after;
        EXPECT_EQ(indexedNow, indexed()) << after;
        const QSet<QString> kept(wordsNow.begin(), wordsNow.end());
        for (const QString& word : words())
            EXPECT_TRUE(kept.contains(word)) << after << ": " << qPrintable(word);
    }
    // How many pages the file has been written in since.
    qint64 changesOfTheFile()
    {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        file.seek(24);
        return qint64(qFromBigEndian<quint32>(file.read(4).constData()));
    }
    QList<qint64> called(const char* name)
    {
        index.update();
        std::vector<qint64> rows;
        const CodedName words = codedName(name);
        for (const WordCode code : words.front().classes) {
            index.born(code, {}, 1000, rows);
            index.withoutBirth(code, 1000, rows);
        }
        QList<qint64> people;
        for (const qint64 row : rows) {
            const auto person = index.person(row);
            EXPECT_TRUE(person) << row;
            if (person) people << person->nind;
        }
        return people;
    }

    NameIndex index{bdp};
};

const char* const writtenNames[]{"Manuel Rodrigues",
                                 "Maria",
                                 "Joam Gliz",
                                 "Ana da Conceição",
                                 "José António de Carvalho",
                                 "Cª Bra Mel",
                                 "?",
                                 "",
                                 "D'Eça",
                                 "Zebedeu Xis",
                                 "M.el Roiz",
                                 "Rui",
                                 "exposto",
                                 "Padre Luís Vaz",
                                 "João o Velho"};

class Chance
{
public:
    explicit Chance(unsigned seed) : engine_(seed) {}
    int below(int count) { return int(engine_() % unsigned(count)); }
    QString name() { return QString::fromUtf8(writtenNames[below(std::size(writtenNames))]); }
    QVariant date()
    {
        return below(3) == 0 ? QVariant() : QVariant(QDate(1550 + below(300), 1 + below(12), 1 + below(28)));
    }

private:
    std::mt19937 engine_;
};

} // namespace

TEST_F(TheIndex, KeepsUpWithWhateverIsWritten)
{
    for (unsigned seed = 1; seed <= 5; ++seed) {
        Chance chance(seed);
        for (int i = 0; i < 60; ++i) {
            const qint64 one = 1 + chance.below(int(lastPerson) + 1);
            const bool rolledBack = chance.below(4) == 0;
            bdp.beginTrans();
            switch (chance.below(6)) {
            case 0:
            case 1:
                run("insert into individuo (nind, nome, sexo, datanasc) values (?, ?, 'm', ?)",
                    {++lastPerson, chance.name(), chance.date()});
                break;
            case 2:
                run("update individuo set nome = ? where nind = ?", {chance.name(), one});
                break;
            case 3:
                run("update individuo set datanasc = ?, dataobito = ?, famorig = ? where nind = ?",
                    {chance.date(), chance.date(), chance.below(5), one});
                break;
            case 4:
                run("delete from individuo where nind = ?", {one});
                break;
            default:
                run("update individuo set nind = ? where nind = ?", {++lastPerson, one});
            }
            if (chance.below(3) == 0) index.update();
            rolledBack ? bdp.rollbackTrans() : bdp.commitTrans();
            if (chance.below(9) == 0)
                elsewhere(
                    "update individuo set nome = 'Ana Vaz' where nind % 5 = 0; delete from individuo where nind % 7 "
                    "= 0; insert into individuo (nind, nome) select max(nind) + 1, 'Rui Dias' from individuo");
            lastPerson = std::max(lastPerson, qint64(jet::jsonRows(bdp, jet::NativeSql("select max(nind) as m from "
                                                                                       "individuo"))
                                                         .first()["m"]
                                                         .toDouble()));
            if (chance.below(3) == 0) index.update();
        }
        index.update();
        expectToBeAsNew(qPrintable(QString("seed %1").arg(seed)));
        if (HasFailure()) return;
    }
}

TEST_F(TheIndex, FollowsTheCursorsOfTheCards)
{
    person({"Rui Dias"});
    index.update();
    jet::Recordset people(bdp, "select * from individuo");
    people.addNew();
    people.set("nind", 7);
    people.set("nome", "Ana Vaz");
    people.update();
    EXPECT_EQ(called("Ana"), QList<qint64>{7});
    people.set("nome", "Maria Vaz");
    people.update();
    EXPECT_EQ(called("Ana"), QList<qint64>());
    EXPECT_EQ(called("Maria"), QList<qint64>{7});
    people.deleteRow();
    EXPECT_EQ(called("Maria"), QList<qint64>());
    expectToBeAsNew("the cards");
}

TEST_F(TheIndex, FollowsAMergeAndTheWayBack)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana Lopes", 'f'});
    EXPECT_EQ(called("Ana"), (QList<qint64>{ana, again}));
    const qint64 id = linkage::mergePeople(bdp, ana, again, {.sides = {{"nome", linkage::Side::Other}}});
    EXPECT_EQ(called("Ana"), QList<qint64>{ana});
    EXPECT_EQ(called("Lopes"), QList<qint64>{ana});
    expectToBeAsNew("the merge");
    EXPECT_EQ(linkage::takeBack(bdp, id), "");
    EXPECT_EQ(called("Ana"), (QList<qint64>{ana, again}));
    EXPECT_EQ(called("Lopes"), QList<qint64>{again});
    expectToBeAsNew("the way back");
}

TEST_F(TheIndex, IsLeftAloneWhileNothingChanges)
{
    person({"Rui Dias"});
    index.update();
    const qint64 before = changesOfTheFile();
    index.update();
    NameIndex(bdp).update();
    EXPECT_EQ(called("Rui"), QList<qint64>{1});
    EXPECT_EQ(changesOfTheFile(), before);
    run("insert into familia (nfamilia) values (1)");
    index.update();
    const qint64 written = changesOfTheFile();
    EXPECT_EQ(written, before + 1) << "families aren't in it";
}

TEST_F(TheIndex, IsMarkedOnceItWasComparedSoThatTheNextSessionNeedntDoIt)
{
    person({"Rui Dias"});
    index.update();
    elsewhere("insert into familia (nfamilia) values (2)");
    NameIndex(bdp).update();
    const qint64 marked = changesOfTheFile();
    elsewhere("update estudo_nome_individuo set nome = 'Ana'; update estudo_nome_estado set marca = marca + 1");
    const qint64 before = changesOfTheFile();
    EXPECT_EQ(before, marked + 2);
    run("update estudo_nome_estado set marca = ?", {before + 1});
    NameIndex(bdp).update();
    EXPECT_TRUE(indexed().first().contains("Ana")) << "it wasn't compared again";
    EXPECT_EQ(changesOfTheFile(), before + 1) << "and not written again";
}

TEST_F(TheIndex, IsMarkedBehindTheTransactionInWhichItWasKeptUp)
{
    index.update();
    bdp.beginTrans();
    person({"Rui Dias"});
    index.update();
    bdp.commitTrans();
    index.update();
    const qint64 before = changesOfTheFile();
    NameIndex(bdp).update();
    EXPECT_EQ(changesOfTheFile(), before);
    EXPECT_EQ(rowsOf("select marca from estudo_nome_estado"), QStringList(QString(R"({"marca":%1})").arg(before)));
}

TEST_F(TheIndex, AnswersFromAFileThatCannotBeWritten)
{
    person({"Rui Dias"});
    index.update();
    elsewhere("insert into familia (nfamilia) values (1)");
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path().toUtf8(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "begin immediate", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(called("Rui"), QList<qint64>{1});
    NameIndex another(bdp);
    EXPECT_NO_THROW(another.update());
    sqlite3_close(other);
    EXPECT_EQ(bdp.transactionLevel(), 0);
}

TEST_F(TheIndex, IsMadeInPiecesWhileOthersWrite)
{
    static constexpr int many = 30000;
    bdp.beginTrans();
    for (int i = 0; i < many; ++i)
        person({writtenNames[i % std::size(writtenNames)], 'm', i % 3 == 0 ? "1690-01-01" : ""});
    bdp.commitTrans();
    QList<int> percents;
    for (int pieces = 1; !index.prepare(); ++pieces) {
        percents << index.prepared();
        run("update individuo set nome = 'Urraca Vaz' where nind = ?", {pieces});
        run("update individuo set nome = 'Urraca Vaz' where nind = ?", {many - pieces});
        run("delete from individuo where nind = ?", {many / 2 + pieces});
        person({"Urraca Dias"});
        if (pieces == 2) {
            bdp.beginTrans();
            EXPECT_FALSE(index.prepare()) << "nothing is done within the transaction of somebody else";
            bdp.rollbackTrans();
        }
    }
    EXPECT_GE(percents.size(), 2);
    EXPECT_TRUE(std::ranges::is_sorted(percents));
    EXPECT_EQ(index.prepared(), 100);
    EXPECT_FALSE(called("Urraca").isEmpty());
    expectToBeAsNew("pieces");
}

TEST_F(TheIndex, IsWholeForWhoAsksBeforeItsLastPiece)
{
    bdp.beginTrans();
    for (int i = 0; i < 30000; ++i)
        person({writtenNames[i % std::size(writtenNames)]});
    bdp.commitTrans();
    EXPECT_FALSE(index.prepare());
    NameIndex another(bdp);
    EXPECT_FALSE(another.prepare()) << "what somebody else has begun";
    another.update();
    EXPECT_TRUE(index.prepare()) << "it is whole by now";
    bdp.beginTrans();
    index.update();
    bdp.rollbackTrans();
    EXPECT_FALSE(called("Rui").isEmpty());
    expectToBeAsNew("a rollback");
}

TEST_F(TheIndex, OfAnEarlierSessionIsComparedOnlyWhereTheFileWasWrittenSince)
{
    person({"Rui Dias"});
    index.update();
    // A trick that nothing but a comparison of all rows can see.
    elsewhere("update estudo_nome_individuo set nome = 'Ana'; update estudo_nome_estado set marca = marca + 2");
    NameIndex(bdp).update();
    EXPECT_EQ(indexed().first().contains("Ana"), true);
    elsewhere("insert into familia (nfamilia) values (1)");
    NameIndex(bdp).update();
    EXPECT_EQ(indexed().first().contains("Rui Dias"), true);
}

TEST_F(TheIndex, SeesWhatAnOpenTransactionHasWritten)
{
    index.update();
    bdp.beginTrans();
    person({"Rui Dias"});
    NameIndex another(bdp);
    another.update();
    EXPECT_EQ(indexed().size(), 1);
    bdp.commitTrans();
    bdp.close();
    bdp.open(path());
    NameIndex(bdp).update();
    expectToBeAsNew("the commit");
}

TEST_F(TheIndex, GoesWithTheTransactionThatMadeIt)
{
    bdp.beginTrans();
    person({"Rui Dias"});
    EXPECT_EQ(called("Rui"), QList<qint64>{1});
    bdp.rollbackTrans();
    EXPECT_FALSE(bdp.tables().contains("estudo_nome"));
    EXPECT_EQ(called("Rui"), QList<qint64>());
    EXPECT_TRUE(bdp.tables().contains("estudo_nome"));
}

TEST_F(TheIndex, IsMadeAnewWhereTheTableOfNamesIsAnotherOne)
{
    person({"Rui Dias"});
    index.update();
    run("update estudo_nome_estado set versao = 'old'");
    run("delete from estudo_nome where id > 0");
    NameIndex(bdp).update();
    EXPECT_FALSE(entries().isEmpty());
    EXPECT_EQ(called("Rui"), QList<qint64>{1});
}

TEST_F(TheIndex, TellsOfATableOfThatNameThatIsAnotherOneAndLeavesItAlone)
{
    run("create table estudo_nome_palavra (palavra text, visto integer)");
    run("insert into estudo_nome_palavra values ('x', 1)");
    try {
        index.update();
        FAIL();
    } catch (const jet::Error& error) {
        EXPECT_TRUE(error.description.contains("\"estudo_nome_palavra\" desta BDP não é a do índice"));
    }
    EXPECT_EQ(rowsOf("select * from estudo_nome_palavra"), QStringList(R"({"palavra":"x","visto":1})"));
    EXPECT_FALSE(bdp.tables().contains("estudo_nome"));
    EXPECT_THROW(index.rebuild(), jet::Error);
    EXPECT_EQ(bdp.transactionLevel(), 0);
}

TEST_F(TheIndex, IsWholeOrNotThereWhereTheDiskIsFull)
{
    for (int i = 0; i < 300; ++i)
        person({"Manuel Rodrigues da Conceição Carvalho Dias"});
    pragma("pragma max_page_count = 1"); // no more than there are
    EXPECT_THROW(index.update(), jet::Error);
    EXPECT_EQ(bdp.transactionLevel(), 0);
    pragma("pragma max_page_count = 1000000");
    EXPECT_EQ(called("Manuel").size(), 300);
    expectToBeAsNew("a full disk");
}

TEST_F(TheIndex, FollowsTheFileThatIsOpenedNext)
{
    person({"Rui Dias"});
    EXPECT_EQ(called("Rui"), QList<qint64>{1});
    bdp.close();
    EXPECT_THROW(index.update(), jet::Error);
    const QString other = folder.filePath("b.orv");
    jet::createDatabase(other);
    bdp.open(other);
    CriaTabelas(bdp, ORV_DATA_DIR "/CriarTab.dat");
    EXPECT_EQ(called("Rui"), QList<qint64>());
    bdp.close();
    bdp.open(path());
    EXPECT_EQ(called("Rui"), QList<qint64>{1});
}

TEST_F(TheIndex, LeavesTheListsOfTheCardsTheirPlace)
{
    person({"Rui Dias"});
    index.update();
    jet::Recordset people(bdp, "select * from individuo");
    person({"Ana Vaz"});
    index.update();
    people.open("select * from individuo");
    EXPECT_EQ(people.recordCount(), 2);
}

TEST_F(TheIndex, HasTheEntriesThatTheDescriptionTells)
{
    person({"Rui", 'm', "1702-02-14"});
    index.update();
    // docs/bdp.md: the code of a word, a decade, a row.
    const qint64 decade = 71, row = 1;
    const WordCode rui = codeOf("rui");
    std::vector<qint64> told{qint64(rui) << 39 | decade << 31 | row,
                             qint64(codeOfAlone(rui)) << 39 | decade << 31 | row};
    std::ranges::sort(told);
    EXPECT_EQ(entries(), QStringList({QString(R"({"id":%1})").arg(told[0]), QString(R"({"id":%1})").arg(told[1])}));
}

TEST(TheCodesOfWords, AreTheSameOnEveryMachine)
{
    EXPECT_EQ(codeOf("manuel"), codeOf(QString("manuel")));
    EXPECT_LT(codeOf("manuel"), 1U << bitsOfAWordCode);
    EXPECT_EQ(codeOf(codeOf("a"), codeOf("b")), codeOf(codeOf("b"), codeOf("a")));
    EXPECT_NE(codeOf(codeOf("a"), codeOf("b")), codeOfAlone(codeOf("a")));
}
