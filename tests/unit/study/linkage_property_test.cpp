// What holds of any two people who become one: they can be two again, nothing is lost, and it doesn't matter which of
// them stays.
#include "data/demobdp.h"
#include "parish/parish.h"
#include "rounds.h"
#include "study/merged.h"

#include "platform/jet/jsonrow.h"
#include "platform/jet/recordset.h"
#include "study/acts/register_tables.h"
#include "study/linkage/columns.h"
#include "study/linkage/decisions.h"
#include "study/linkage/merge.h"
#include "study/linkage/references.h"
#include "study/linkage/verdicts.h"

#include <QJsonDocument>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <sqlite3.h>
#include <tuple>
#include <utility>

using namespace study::linkage;

namespace {

using Pair = std::pair<qint64, qint64>;

// Chooses pairs of one BDP, and what is chosen of them. Every third pair has the same spouse, or the same parents.
class Pairs
{
public:
    Pairs(jet::Connection& bdp, unsigned seed) : bdp_(bdp), random_(seed)
    {
        for (jet::Recordset row(bdp, jet::NativeSql("select nind from individuo order by nind")); !row.eof();
             row.moveNext())
            people_ << qint64(row[0].toDouble());
        take("select a.nind, b.nind from familias a, familias x, familias y, familias b where a.nfamilia = x.nfamilia "
             "and a.nind <> x.nind and y.nind = x.nind and y.nfamilia <> x.nfamilia and b.nfamilia = y.nfamilia and "
             "b.nind <> y.nind and a.nind <> b.nind order by a.nind, b.nind");
        take("select a.nind, b.nind from individuo a, individuo b where a.famorig = b.famorig and a.nind < b.nind and "
             "a.sexo = b.sexo order by a.nind, b.nind limit 300");
    }

    Pair next()
    {
        if (!near_.isEmpty() && pick(3) == 0) return near_[pick(int(near_.size()))];
        return {people_[pick(int(people_.size()))], people_[pick(int(people_.size()))]};
    }

    MergeChoices choices(const MergePlan& plan)
    {
        MergeChoices chosen;
        const auto choose = [&](const QList<Difference>& differences) {
            for (const Difference& one : differences)
                chosen.sides << std::pair(one.column, pick(2) == 0 ? Side::Kept : Side::Other);
        };
        choose(plan.differences);
        for (const SameCouple& one : plan.couples) {
            if (!one.refusals.isEmpty() || pick(4) == 0) continue;
            chosen.join << std::pair(one.kept, one.other);
            choose(one.differences);
        }
        return chosen;
    }

    int pick(int below) { return std::uniform_int_distribution(0, below - 1)(random_); }

private:
    void take(const char* select)
    {
        for (jet::Recordset row(bdp_, jet::NativeSql(select)); !row.eof(); row.moveNext())
            near_ << Pair(qint64(row[0].toDouble()), qint64(row[1].toDouble()));
    }

    jet::Connection& bdp_;
    std::mt19937 random_;
    QList<qint64> people_;
    QList<Pair> near_;
};

struct Outcome
{
    int merged = 0, joined = 0, refused = 0;
};

bool isNamed(const Recording& recording, qint64 nind)
{
    return std::ranges::any_of(references(), [&](const Reference& one) {
        return !rowsNaming(recording, one, {Target::Person, QJsonValue(nind), {}}).isEmpty();
    });
}

// Each row that has gone is told: the person, a family for each that was joined, the doubles.
void expectAllTold(const MergePlan& plan, const MergeChoices& choices, int gone, const QMap<QString, int>& removed)
{
    EXPECT_EQ(removed["individuo"], 1);
    EXPECT_EQ(removed["familia"], choices.join.size());
    EXPECT_EQ(gone, 1 + choices.join.size() + plan.doubles.size());
}

QMap<QString, int> rowCounts(jet::Connection& bdp)
{
    QMap<QString, int> counts;
    for (const QString& table : merged::contentsOfPeople(bdp).keys())
        counts[table] = int(jet::Recordset(bdp, jet::NativeSql("select count(*) from " + table))[0].toDouble());
    return counts;
}

// What the person who goes had is on the card that stays, or in its notes.
void expectNothingLost(const QJsonObject& gone, const Recording& recording, qint64 kept)
{
    const QList<Row> rows = recording.rows("individuo", {{"nind", kept}});
    ASSERT_EQ(rows.size(), 1);
    const QJsonObject& row = rows.first().values;
    for (const char* column : {"nome", "alcunha", "titulo", "causa", "obs", "mortalha", "igreja", "enterro", "rpbapt"})
    {
        const QString text = gone[QLatin1String(column)].toString().trimmed();
        EXPECT_TRUE(text.isEmpty() || row[QLatin1String(column)].toString().contains(text) ||
                    row["obs"].toString().contains(text))
            << column << ": " << qUtf8Printable(text);
    }
}

// Merges in small heaps, and takes each heap back again.
Outcome mergeAndTakeBack(jet::Connection& bdp, int wanted, unsigned seed)
{
    study::tables::make(bdp, study::tables::ofActs());
    decideNotTheSame(bdp, 1, 2);
    const auto first = merged::contents(bdp);
    Pairs pairs(bdp, seed);
    Outcome outcome;
    while (outcome.merged < wanted && !testing::Test::HasFailure()) {
        std::vector<std::pair<qint64, QMap<QString, QByteArray>>> done;
        for (int i = pairs.pick(4); i >= 0; --i) {
            const auto [kept, other] = pairs.next();
            MergePlan plan = planMerge(bdp, kept, other);
            MergeChoices choices = pairs.choices(plan);
            if (plan.isPossible()) plan = planMerge(bdp, kept, other, choices);
            if (!plan.isPossible()) {
                ++outcome.refused;
                continue;
            }
            choices.expected = plan.mark;
            const auto before = merged::contentsOfPeople(bdp);
            const QMap<QString, int> counts = rowCounts(bdp);
            const QJsonObject gone = Recording(bdp).rows("individuo", {{"nind", other}}).first().values;
            const qint64 id = mergePeople(bdp, kept, other, choices);
            QMap<QString, int> removed = counts;
            const QMap<QString, int> now = rowCounts(bdp);
            int all = 0;
            for (const QString& table : counts.keys())
                all += removed[table] -= now[table];
            expectAllTold(plan, choices, all, removed);
            EXPECT_FALSE(isNamed(Recording(bdp), other)) << other;
            expectNothingLost(gone, Recording(bdp), kept);
            done.emplace_back(id, before);
            ++outcome.merged;
            outcome.joined += int(choices.join.size());
        }
        for (; !done.empty(); done.pop_back()) {
            EXPECT_EQ(takeBack(bdp, done.back().first).toStdString(), "");
            EXPECT_EQ(merged::contentsOfPeople(bdp), done.back().second) << "decision " << done.back().first;
        }
    }
    EXPECT_EQ(merged::contents(bdp), first);
    return outcome;
}

// What may tell of people, and is asked whoever stays.
const QStringList& tablesOfPeople()
{
    static const QStringList tables{"individuo",  "familia",    "familias",        "assistente",   "residencia",
                                    "profissoes", "assinatura", "legadosprofanos", "rituaismorte", "passaporte"};
    return tables;
}

using Stored = std::map<merged::Place, QByteArray>;

std::set<merged::Place> differing(const Stored& one, const Stored& other)
{
    std::set<merged::Place> places;
    for (const auto& [from, to] : {std::tie(one, other), std::tie(other, one)})
        for (const auto& [place, row] : from)
            if (const auto same = to.find(place); same == to.end() || same->second != row) places.insert(place);
    return places;
}

// A row, blind to which of the two numbers stays, to its own place and to the order of the notes.
QString withoutNumbers(const QString& table, QJsonObject row, const Pair& pair)
{
    const auto same = [&](const char* column) {
        if (row[QLatin1String(column)] == QJsonValue(pair.second)) row[QLatin1String(column)] = QJsonValue(pair.first);
    };
    for (const Reference& one : references()) {
        if (table != QLatin1String(one.table) || one.target != Target::Person) continue;
        if (*one.with == 0 || row[QLatin1String(one.with)] == QLatin1String(one.word)) same(one.column);
        row.remove(QLatin1String(one.number));
    }
    if (table == QLatin1String("individuo")) same("nind");
    QStringList notes = row["obs"].toString().split("\r\n");
    static const QRegularExpression whose("^(Do|Das?) .* junt[oa]s? em [0-9/]+: ");
    notes.replaceInStrings(whose, {});
    notes.sort();
    row["obs"] = notes.join("\n");
    return table + QString::fromUtf8(QJsonDocument(row).toJson(QJsonDocument::Compact));
}

// Of those places that hold a row.
std::multiset<QString> withoutNumbers(jet::Connection& bdp, const std::set<merged::Place>& places, const Pair& pair)
{
    std::multiset<QString> rows;
    const Recording recording(bdp);
    for (const auto& [table, place] : places)
        if (const auto row = recording.row(table, place)) rows.insert(withoutNumbers(table, *row, pair));
    return rows;
}

// The families of a couple are told in one order, whoever of the two stays, and their member by his number.
MergeChoices turned(const MergeChoices& choices, const Pair& pair)
{
    MergeChoices other = choices;
    for (auto& [column, side] : other.sides)
        if (column.startsWith("familia."))
            column.replace(QString("familias.nfamilia.%1.").arg(pair.first),
                           QString("familias.nfamilia.%1.").arg(pair.second));
        else
            side = side == Side::Kept ? Side::Other : Side::Kept;
    return other;
}

struct Way
{
    std::set<merged::Place> touched = {};
    std::multiset<QString> rows = {}; // at those places, merged
};

// Merges, and takes it back.
Way thereAndBack(jet::Connection& bdp, const Stored& before, const Pair& pair, const Pair& numbers,
                 const MergeChoices& choices)
{
    const qint64 id = mergePeople(bdp, pair.first, pair.second, choices);
    Way way{differing(before, merged::rows(bdp, tablesOfPeople()))};
    way.rows = withoutNumbers(bdp, way.touched, numbers);
    EXPECT_EQ(takeBack(bdp, id).toStdString(), "");
    return way;
}

// What one way left as it was and the other didn't, is there, too.
std::multiset<QString> allRows(jet::Connection& bdp, const Way& way, const Way& other, const Pair& pair)
{
    std::set<merged::Place> left;
    std::ranges::set_difference(other.touched, way.touched, std::inserter(left, left.end()));
    std::multiset<QString> rows = withoutNumbers(bdp, left, pair);
    rows.insert(way.rows.begin(), way.rows.end());
    return rows;
}

// Merges both ways round; how many pairs.
int mergeEitherWay(jet::Connection& bdp, int wanted, unsigned seed)
{
    Pairs pairs(bdp, seed);
    int done = 0;
    while (done < wanted && !testing::Test::HasFailure()) {
        const Pair pair = pairs.next();
        const MergePlan plan = planMerge(bdp, pair.first, pair.second);
        EXPECT_EQ(plan.isPossible(), planMerge(bdp, pair.second, pair.first).isPossible());
        const MergeChoices choices = pairs.choices(plan);
        if (!planMerge(bdp, pair.first, pair.second, choices).isPossible()) continue;
        ++done;
        const Stored before = merged::rows(bdp, tablesOfPeople());
        const Way one = thereAndBack(bdp, before, pair, pair, choices);
        const Way other = thereAndBack(bdp, before, {pair.second, pair.first}, pair, turned(choices, pair));
        EXPECT_FALSE(one.rows.empty());
        std::vector<QString> apart;
        std::ranges::set_symmetric_difference(allRows(bdp, one, other, pair), allRows(bdp, other, one, pair),
                                              std::back_inserter(apart));
        for (const QString& row : apart)
            ADD_FAILURE() << pair.first << " and " << pair.second << ": " << qUtf8Printable(row);
    }
    return done;
}

// What no generator of parishes gives: rows of one person that are equal, passports, types that somebody chose, priests
// without a number, dates about a day, marriages with numbers, and two more families of the wife's double.
void crowd(jet::Connection& bdp, unsigned seed)
{
    std::mt19937 random(seed);
    const auto run = [&](const char* statement, const QVariantList& values) {
        bdp.execute(jet::NativeSql(statement, values));
    };
    const auto pick = [&](int below) { return std::uniform_int_distribution(0, below - 1)(random); };
    QList<qint64> people;
    for (jet::Recordset row(bdp, jet::NativeSql("select nind from individuo")); !row.eof(); row.moveNext())
        people << qint64(row[0].toDouble());
    bdp.beginTrans();
    for (const qint64 nind : people) {
        for (int row = 10; row < 10 + pick(4); ++row) {
            run("insert into rituaismorte (nind, idlegpio, tipolegpio, quantidade) values (?, ?, 'missa', ?)",
                {nind, row, 10 * pick(2)});
            run("insert into profissoes (nind, idprofissao, codprof) values (?, ?, ?)", {nind, row, 1 + pick(2)});
            run("insert into assinatura (nind, idassinatura) values (?, ?)", {nind, row});
        }
        run("insert into passaporte (nind, npass, localdestino) values (?, ?, ?)", {nind, 100 + pick(3), pick(2)});
        run("insert into residencia (numero, tiporesid, dataref, fonte) values (?, 'i', ?, ?)",
            {nind, QString("1900-01-0%1").arg(1 + pick(3)), QString(pick(2), 'x')});
        run("update individuo set dnascfixa = ?, tipo = ?, funcprimpbapt = ?, primpadrebapt = ? where nind = ?",
            {pick(2), QString::number(1 + pick(8)), pick(3), pick(2) == 0 ? QVariant(0) : QVariant(people.first()),
             nind});
        run("update familias set numcasam = ? where nind = ?", {pick(3), nind});
        run("update familia set tipocasal = ?, obs = ? where nfamilia in (select nfamilia from familias where nind = "
            "?)",
            {pick(3) == 0 ? QVariant() : QVariant(1 + pick(7)), QString(pick(2), 'y'), nind});
    }
    for (const int further : {100000, 200000}) {
        run("insert into familia (nfamilia, tipocasal) select nfamilia + ?, 2 from familia where nfamilia < 100000 and "
            "nfamilia % 3 = 0",
            {further});
        run("insert into familias (nfamilia, nind, idade) select nfamilia + ?, i.nind, 20 from familias f, individuo i "
            "where i.nind = f.nind and nfamilia < 100000 and nfamilia % 3 = 0 and sexo = 'm'",
            {further});
        run("insert into familias (nfamilia, nind, idade) select nfamilia + ?, (select min(o.nind) from individuo o "
            "where "
            "o.sexo = 'f' and o.nind > i.nind), 21 from familias f, individuo i where i.nind = f.nind and nfamilia < "
            "100000 and nfamilia % 3 = 0 and sexo = 'f' and exists (select 1 from individuo o where o.sexo = 'f' and "
            "o.nind > i.nind)",
            {further});
    }
    bdp.commitTrans();
}

class AnyTwoPeople : public DemoBdp
{
};

} // namespace

TEST_F(AnyTwoPeople, AreTwoAgainAsTheyWereInTheDemonstration)
{
    const Outcome outcome = mergeAndTakeBack(bdp_->connection, rounds(100), 1);
    EXPECT_GE(outcome.merged, rounds(100));
    EXPECT_GT(outcome.joined, 0);
    EXPECT_GT(outcome.refused, 0);
}

TEST_F(AnyTwoPeople, AreTwoAgainAsTheyWereInGeneratedParishes)
{
    for (const unsigned seed : {2U, 3U, 4U}) {
        const QTemporaryDir folder;
        const QString path = folder.filePath("p.orv");
        bench::makeParish(path, 400, seed);
        jet::Connection bdp;
        bdp.open(path);
        sqlite3_exec(bdp.handle(), "pragma synchronous = off", nullptr, nullptr, nullptr);
        const Outcome outcome = mergeAndTakeBack(bdp, rounds(50), seed);
        EXPECT_GE(outcome.merged, rounds(50));
    }
}

TEST_F(AnyTwoPeople, AreTheSameOneWhicheverOfThemStays)
{
    study::tables::make(bdp_->connection, study::tables::ofActs());
    EXPECT_EQ(mergeEitherWay(bdp_->connection, rounds(80), 5), rounds(80));
}

TEST_F(AnyTwoPeople, AreOneAndTwoAgainWhereTheirRowsAreAlike)
{
    for (const unsigned seed : {6U, 7U}) {
        const QTemporaryDir folder;
        const QString path = folder.filePath("p.orv");
        bench::makeParish(path, 500, seed);
        jet::Connection bdp;
        bdp.open(path);
        sqlite3_exec(bdp.handle(), "pragma synchronous = off", nullptr, nullptr, nullptr);
        crowd(bdp, seed);
        const Outcome outcome = mergeAndTakeBack(bdp, rounds(60), seed);
        EXPECT_GE(outcome.joined, rounds(4));
        EXPECT_EQ(mergeEitherWay(bdp, rounds(40), seed), rounds(40));
    }
}
