// What the translation adds to a search, so that it looks up few rows, changes neither its rows nor their order. The
// plain statement, which the engine gets as it stands, tells what they are.
#include "platform/jet/beginning.h"
#include "platform/jet/dialect.h"
#include "platform/jet/functions.h"

#include "inputs/dice.h"
#include "jet/testbdp.h"

#include <sqlite3.h>

namespace jet::test {

namespace {

// Names that differ by the case of some letter, begin with signs, or hold letters that are another one in capitals: the
// Kelvin sign is a K, the long s an S.
const QStringList oddNames{"Maria",
                           "MARIA",
                           "maria",
                           "mária",
                           "MÁRIA",
                           "Ávila",
                           "ÁVILA",
                           "ávila",
                           "ŠĆ",
                           "šć",
                           "Sousa",
                           "ſousa",
                           "SOUSA",
                           "soUſa",
                           "Kátia",
                           "kátia",
                           "\u212A\u00C1tia",
                           "K",
                           "",
                           " Ana",
                           "Ana ",
                           "ana",
                           "@ na",
                           "Zé",
                           "z",
                           "{",
                           "`a",
                           "[a",
                           "0123",
                           "12",
                           "1e3",
                           "100% a",
                           "a_b",
                           "d'Além",
                           "ÿ",
                           "Ÿ",
                           "Å",
                           "\u212B",
                           "å",
                           "x\u0001y",
                           "\u007Fa",
                           "\uD7FFa"};

// Like doesn't see the mark of the byte order before a text; the others stand behind it.
const QStringList lastNames{"\uFEFFMaria", "Ｍａ", "ｍａ", "𐐀x", "𐐨x", "\uFFFFa"};

// One that is asked for in both ways of writing.
struct Search
{
    QString dialect;
    QString plain;

    void add(const QString& both) { dialect += both, plain += both; }
    void addDates(const QDate& from, const QDate& to)
    {
        const auto literal = [](const QDate& date) { return date.toString("'#'MM/dd/yyyy'#'"); };
        const auto stored = [](const QDate& date) { return date.toString("''yyyy-MM-dd''"); };
        dialect += from == to ? " = " + literal(from) : " between " + literal(from) + " and " + literal(to);
        plain += from == to ? " = " + stored(from) : " between " + stored(from) + " and " + stored(to);
    }
    void orderByName(const QString& name)
    {
        dialect += " order by " + name;
        plain += " order by " + name + " collate orv_alphabetical";
    }
};

QString asText(const QString& text)
{
    return u'\'' + QString(text).replace(u'\'', "''") + u'\'';
}

} // namespace

class ASearch : public ParishBdp
{
protected:
    // A file of people and families out of order, with all that a file may hold.
    void fill(quint64 seed)
    {
        dice = Dice(seed);
        bdp.beginTrans();
        for (const char* table : {"individuo", "familia", "familias"})
            run((std::string("delete from ") + table).c_str());
        for (int n : shuffled(allPeople))
            bdp.execute(NativeSql("insert into individuo (nind, nome, sexo, famorig, datanasc, dataobito, localnasc, "
                                  "tipolocalnasc) values (?, ?, ?, ?, ?, ?, ?, 'F')",
                                  {keyOf(n), name(), dice.oneIn(2) ? "m" : "f", some(keyOf(dice.below(allFamilies))),
                                   some(date()), some(date()), some(dice.oneIn(20) ? "01" : "02")}));
        for (int f : shuffled(allFamilies))
            bdp.execute(NativeSql("insert into familia (nfamilia, tipocasal, datacasam) values (?, ?, ?)",
                                  {keyOf(f), dice.below(8), some(date())}));
        for (int i = 0; i < 2 * allFamilies; ++i) // families and people that aren't there among them; a few marry often
            execute("insert or ignore into familias (nind, nfamilia) values (?, ?)",
                    {keyOf(dice.oneIn(3) ? dice.below(5) : dice.below(allPeople + 20)),
                     keyOf(dice.below(allFamilies + 10))});
        execute("update individuo set nome = x'4d61726961' where nind = ?", {keyOf(7)}); // no text
        bdp.commitTrans();
    }
    void execute(const char* sql, const QVariantList& values) { bdp.execute(NativeSql(sql, values)); }

    // The same rows in the same order under the same names.
    void expectSame(const Search& search)
    {
        Recordset told(bdp, search.dialect);
        Recordset plain(bdp, NativeSql(search.plain));
        ASSERT_EQ(told.fieldCount(), plain.fieldCount());
        for (int i = 0; i < told.fieldCount(); ++i)
            EXPECT_EQ(told.fieldName(i), plain.fieldName(i));
        found += told.recordCount();
        ASSERT_EQ(rows(told), rows(plain)) << search.dialect.toStdString();
        const QString sql = translate(search.dialect, bdp.handle());
        (sql.contains("in (select") ? narrowed : (sql.contains("x'ff'") ? ranged : left)) += 1;
    }

    void whatIsFoundIsTheSame(const std::function<Search()>& make)
    {
        for (quint64 seed : {1, 2, 3}) {
            fill(seed);
            for (int i = 0; i < 200 && !HasFailure(); ++i)
                expectSame(make());
        }
        EXPECT_GT(found, 1000);
        EXPECT_GT(narrowed, 100); // both ways are taken
        EXPECT_GT(left, 100);
    }

    // A beginning of a name, or all of it, in any case, and what may follow.
    QString pattern()
    {
        QString text = dice.among(dice.oneIn(20) ? lastNames : oddNames);
        text.truncate(dice.below(int(text.size()) + 1));
        if (dice.oneIn(3)) text = dice.oneIn(2) ? text.toUpper() : text.toLower();
        return asText(text + dice.among(QStringList{"%", "%", "", "%a", "_%", "%a%"}));
    }
    QString like(const QString& column) { return column + " like " + pattern(); }
    std::pair<QDate, QDate> dates()
    {
        const QDate from = date(), to = dice.oneIn(3) ? from : from.addDays(dice.oneIn(2) ? dice.below(4000) : 20);
        return {from, to};
    }
    QDate date() { return QDate(1700, 1, 1).addDays(dice.below(3000)); }

    Dice dice{0};
    qint64 found = 0;
    int narrowed = 0, ranged = 0, left = 0;

private:
    static constexpr int allPeople = 500, allFamilies = 200;

    static double keyOf(int n) { return n % 11 == 0 ? n + 0.5 : n; }
    QVariant some(const QVariant& value) { return dice.oneIn(6) ? QVariant() : value; }
    QVariant name()
    {
        if (dice.oneIn(30)) return {};
        if (dice.oneIn(50)) return dice.among(lastNames);
        return dice.among(oddNames) + (dice.oneIn(2) ? "" : " " + dice.among(oddNames));
    }
    QList<int> shuffled(int count)
    {
        QList<int> numbers;
        for (int i = 0; i < count; ++i)
            numbers.insert(dice.below(i + 1), i);
        return numbers;
    }
};

namespace {
const QString people = "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where ";
const QString marriages =
    "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig, first(datacasam) from individuo, familias, "
    "familia where  individuo.nind =  familias.nind and familia.nfamilia = familias.nfamilia ";
const QString parents =
    "select individuo.nind as Nind, individuo.nome as nome,  individuo.datanasc as DataNasc,individuo.dataobito as "
    "DataObito, individuo.famorig as Famorig, min(filho.datanasc) from individuo, individuo as filho, familias where "
    "individuo.nind = familias.nind and  filho.famorig = familias.nfamilia ";
const QString couples =
    "select familia.nfamilia as nfamilia, tipocasal,  datacasam,  min(filho.datanasc) from individuo, individuo as "
    "filho, familias, familia where familia.nfamilia =  familias.nfamilia and  individuo.nind = familias.nind and  "
    "filho.famorig = familias.nfamilia ";
} // namespace

TEST_F(ASearch, ByANameFindsWhatTheWholeTableHas)
{
    whatIsFoundIsTheSame([&] {
        Search search;
        search.add(people + like("individuo.nome"));
        const int more = dice.below(6);
        if (more == 0) search.add(" and individuo.sexo = 'f'");
        if (more == 1) search.add(" and individuo.localnasc = '01' and individuo.tipolocalnasc = 'F'");
        if (more == 2) search.add(" and " + like("individuo.obs"));
        if (more == 3) search.add(" and individuo.nind=" + QString::number(dice.below(500)));
        if (more < 3 && dice.oneIn(3)) {
            const auto [from, to] = dates();
            search.add(" and datanasc");
            search.addDates(from, to);
        }
        search.orderByName("nome");
        return search;
    });
    EXPECT_GT(ranged, 100);
}

TEST_F(ASearch, ByAMarriageFindsThoseWhoseFirstItIs)
{
    whatIsFoundIsTheSame([&] {
        Search search;
        search.add(marriages);
        const int more = dice.below(6);
        if (more == 0) search.add("and individuo.sexo = 'f'");
        if (more == 1) search.add("and " + like(" individuo.nome"));
        if (more == 2) search.add("and individuo.localnasc = '01' and individuo.tipolocalnasc = 'F'");
        if (more == 3) search.add("and individuo.nind=" + QString::number(dice.below(5)));
        search.add(" group by individuo.nind, nome, datanasc, dataobito,  famorig having first(datacasam) ");
        const auto [from, to] = dates();
        search.addDates(from, to);
        search.orderByName("nome");
        return search;
    });
}

TEST_F(ASearch, ByTheFirstChildFindsThoseWithoutAnElderOne)
{
    whatIsFoundIsTheSame([&] {
        Search search;
        search.add(parents);
        const int more = dice.below(5);
        if (more == 0) search.add("and individuo.sexo = 'm'");
        if (more == 1) search.add("and " + like(" individuo.nome"));
        if (more == 2) search.add("and individuo.nind=" + QString::number(dice.below(5)));
        search.add(" group by individuo.nind, individuo.nome, individuo.datanasc, individuo.dataobito,  "
                   "individuo.famorig having min(filho.datanasc) ");
        const auto [from, to] = dates();
        search.addDates(from, to);
        search.orderByName("individuo.nome");
        return search;
    });
}

TEST_F(ASearch, ForFamiliesByTheFirstChildFindsThoseWithoutAnElderOne)
{
    whatIsFoundIsTheSame([&] {
        Search search;
        search.add(couples);
        if (dice.oneIn(3)) search.add("and tipocasal = " + QString::number(dice.below(8)));
        search.add(" group by familia.nfamilia , tipocasal, datacasam  having min(filho.datanasc) ");
        const auto [from, to] = dates();
        search.addDates(from, to);
        search.add(" order by familia.nfamilia");
        return search;
    });
}

TEST_F(ASearch, IsLeftAsItIsWhereALikeSaysSomethingElse)
{
    fill(1);
    for (const char* condition :
         {"sexo = 'm' and not (nome like 'zz%')", "not nome like 'zz%'", "nome not like 'zz%'",
          "nome like 'zz%' or sexo = 'm'", "(nome like 'zz%') = 0", "sexo = 'm' and not nome like 'zz%'",
          "nind like '1%'", "nome like nome", "nome like '%'", "nome like '_a'"})
    {
        Search search;
        search.add(people + condition + " order by nind");
        expectSame(search);
        EXPECT_EQ(left, 1) << condition;
        left = 0;
    }
    Search search;
    search.add(people + "sexo = 'm' and nome like 'zz%' order by nind");
    expectSame(search);
    EXPECT_EQ(narrowed, 1); // it is what they say
}

// Those who are in no family are one group, too, and null, which stands for it, is in no list.
TEST_F(ASearch, ByGroupsOfAKeyThatMayBeNullIsLeftAsItIs)
{
    fill(1);
    const std::pair<const char*, const char*> groups[]{
        {"individuo left join familias on individuo.nind = familias.nind where individuo.nind > 0", "familias.nind"},
        {"individuo where nind > 0", "famorig"}};
    for (const auto& [from, key] : groups) {
        const QString all = QString("select max(datanasc) from ") + from;
        const QDate last = Recordset(bdp, NativeSql(all + " and " + key + " is null"))[0].toDate();
        Search search;
        search.add(all + " group by " + key + " having max(datanasc)");
        search.addDates(last, last);
        expectSame(search);
        EXPECT_GT(found, 0) << key;
        EXPECT_EQ(left, 1) << key;
        found = left = 0;
    }
}

TEST_F(ASearch, HasTheErrorsOfTheStatementThatWasTold)
{
    fill(1);
    const QString having = " group by familia.nfamilia, tipocasal, datacasam having min(filho.datanasc) = #01/01/1600#";
    EXPECT_EQ(errorOf([&] { Recordset(bdp, couples + "and nfamilia=1" + having); }).description,
              errorOf([&] {
                  Recordset(bdp, NativeSql(couples + "and nfamilia=1" + QString(having).replace('#', '\'')));
              }).description);
    EXPECT_EQ(numberOf([&] { Recordset(bdp, couples + "and nfamilia=1" + having); }), number::invalidStatement);
    EXPECT_EQ(numberOf([&] { Recordset(bdp, people + "nome like 'Maria%' and sex = 'm' order by nome"); }),
              number::invalidStatement);
}

// The pattern of a letter finds every text that begins with a letter of the same kind, by its range alone.
TEST_F(ASearch, KnowsEveryLetterThatCountsAsAnother)
{
    run("create table t (a varchar(255))");
    bdp.beginTrans();
    QStringList letters;
    for (char32_t letter = 1; letter <= 0x10ffff; ++letter)
        if (QChar::toCaseFolded(letter) != letter) letters << QString::fromUcs4(&letter, 1);
    for (const QString& letter : letters)
        bdp.execute(NativeSql("insert into t values (?)", {letter + "x"}));
    bdp.commitTrans();
    EXPECT_GT(letters.size(), 1400);
    for (const QString& letter : letters)
        for (const QString& typed : {letter, letter.toCaseFolded()}) {
            const QString pattern = asText(typed + "X%");
            const auto count = [&](const QString& condition) {
                return Recordset(bdp, NativeSql("select count(*) from t where " + condition))[0].toInt();
            };
            const QString range = beginningCondition("a", typed + "X%");
            const int all = count("a like " + pattern);
            EXPECT_GE(all, 1);
            EXPECT_EQ(range.isEmpty() ? all : count("a like " + pattern + " and (" + range + ")"), all)
                << typed.toStdString();
        }
}

TEST_F(ASearch, TakesABeginningOfAnyLength)
{
    fill(1);
    for (const char* letter : {"s", "k", "a", "'"}) {
        Search search;
        search.add(people + "nome like " + asText(QString(255, letter[0]) + '%'));
        search.orderByName("nome");
        expectSame(search);
    }
    EXPECT_EQ(ranged, 4);
}

// How many steps the engine takes among four thousand people. To go through them takes several for each.
class TheCostOfASearch : public ParishBdp
{
protected:
    TheCostOfASearch()
    {
        bdp.beginTrans();
        for (int i = 1; i <= inhabitants; ++i)
            bdp.execute(NativeSql(
                "insert into individuo (nind, nome, sexo, famorig, datanasc) values (?, ?, ?, ?, ?)",
                {100 + i, QString("Ana %1").arg(i), i % 2 ? "m" : "f", 100 + i / 4, QDate(1600, 1, 1).addDays(i)}));
        for (int i = 1; i <= inhabitants / 4; ++i) {
            bdp.execute(NativeSql("insert into familia (nfamilia, datacasam) values (?, ?)",
                                  {100 + i, QDate(1600, 1, 1).addDays(i)}));
            for (int spouse : {2 * i - 1, 2 * i})
                bdp.execute(NativeSql("insert into familias (nfamilia, nind) values (?, ?)", {100 + i, 100 + spouse}));
        }
        bdp.commitTrans();
    }

    int steps(const QString& statement)
    {
        const QByteArray sql = translate(statement, bdp.handle()).toUtf8();
        sqlite3_stmt* prepared = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(bdp.handle(), sql.constData(), -1, &prepared, nullptr), SQLITE_OK);
        int found = 0;
        while (sqlite3_step(prepared) == SQLITE_ROW)
            ++found;
        EXPECT_GT(found, 0) << sql.toStdString();
        const int steps = sqlite3_stmt_status(prepared, SQLITE_STMTSTATUS_VM_STEP, 0);
        sqlite3_finalize(prepared);
        return steps;
    }

    static constexpr int inhabitants = 4000;
};

TEST_F(TheCostOfASearch, IsThatOfTheRowsItFinds)
{
    const auto march = [](const QString& search, const QString& having, const QString& order) {
        return search + " group by " + having + " between #03/01/1600# and #03/31/1600# order by " + order;
    };
    const QString family = "select nfamilia , tipocasal, datacasam  from familia where  nfamilia in (select nfamilia "
                           "from familias where nind in (select nind from individuo where sexo = 'm' and nome like ";
    const QStringList searches{
        people + "individuo.nome like 'Ana 123%' order by nome",
        people + "individuo.nome like 'Ana 1235' order by nome",
        people + "individuo.nome like 'Ana 12%' and individuo.sexo = 'm' order by nome",
        family + "'Ana 123%')) order by datacasam",
        march(marriages, "individuo.nind, nome, datanasc, dataobito,  famorig having first(datacasam)", "nome"),
        march(marriages + "and individuo.sexo = 'f'", "individuo.nind, nome having first(datacasam)", "nome"),
        march(parents, "individuo.nind, individuo.nome having min(filho.datanasc)", "individuo.nome"),
        march(couples, "familia.nfamilia , tipocasal, datacasam  having min(filho.datanasc)", "familia.nfamilia")};
    for (const QString& search : searches)
        EXPECT_LT(steps(search), 2 * inhabitants) << search.toStdString();
}

// A spouse is looked for among the people, once, and not among the spouses of all families.
TEST_F(TheCostOfASearch, ForFamiliesByAnyPartOfANameIsThatOfTheSearchForPeople)
{
    const int ofPeople = steps("select nind from individuo where sexo = 'm' and nome like '%123%'");
    EXPECT_LT(steps("select nfamilia , tipocasal, datacasam  from familia where  nfamilia in (select nfamilia from "
                    "familias where nind in (select nind from individuo where sexo = 'm' and nome like '%123%')) "
                    "order by datacasam"),
              ofPeople * 3 / 2);
}

} // namespace jet::test
