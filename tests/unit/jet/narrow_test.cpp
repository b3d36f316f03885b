// What the translation adds to a search, so that it looks up few rows, changes neither its rows nor their order. The
// plain statement, which the engine gets as it stands, tells what they are.
#include "platform/jet/dialect.h"

#include "inputs/dice.h"
#include "jet/searches.h"
#include "jet/testbdp.h"

namespace jet::test {

namespace {

// Names that differ by the case of some letter, begin with signs, or hold letters that are another one in capitals: the
// Kelvin sign is a K, the long s an S.
const QStringList oddNames =
    QString("Maria|MARIA|maria|mária|MÁRIA|Ávila|ÁVILA|ávila|ŠĆ|šć|Sousa|ſousa|SOUSA|soUſa|Kátia|"
            "kátia|\u212A\u00C1tia|K|| Ana|Ana |ana|@ na|Zé|z|{|`a|[a|0123|12|1e3|100% a|a_b|d'Além|"
            "ÿ|Ÿ|Å|\u212B|å|x\u0001y|\u007Fa|\uD7FFa")
        .split('|');

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

// A person is of several groups then, and each has a first child of its own.
TEST_F(ASearch, ByTheFirstChildOfEachSexFindsThoseWithAnElderOneOfTheOther)
{
    for (const char* groups : {"individuo.nind, filho.sexo", "familias.nind, familias.nfamilia", "familias.nind"})
        whatIsFoundIsTheSame([&] {
            Search search;
            search.add("select familias.nind, min(filho.datanasc) from individuo, individuo as filho, familias where "
                       "individuo.nind = familias.nind and filho.famorig = familias.nfamilia group by ");
            search.add(QString(groups) + " having min(filho.datanasc) ");
            const auto [from, to] = dates();
            search.addDates(from, to);
            search.add(" order by familias.nind, min(filho.datanasc)");
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

} // namespace jet::test
