// What holds of every check, whatever the parish: each case has a key of its own, and it ends.
#include "data/demobdp.h"
#include "study/checkedActs.h"

#include <QRegularExpression>
#include <QSet>

#include <random>

using namespace study;
using checks::Case;
using checks::Check;

namespace {

// Words that Portuguese draws together.
bool isStilted(const QString& text)
{
    static const QRegularExpression apart(
        " (de|em|por) (o|a) (indivíduo|família)| a o indivíduo| a a família|\\b(de|em) (o|a|os|as) (pai|mãe|casamento|"
        "baptismo|acto)\\b|  |\\.\\.$|,\\.| ,");
    return text.contains(apart);
}

// The keys that two cases share, and the cases that tell nothing, or in no Portuguese.
QStringList faultsOf(const std::vector<Case>& cases)
{
    QStringList faults;
    QSet<QString> keys;
    for (const Case& one : cases) {
        if (keys.contains(one.key())) faults << "twice: " + one.key();
        keys.insert(one.key());
        if (one.text.isEmpty() || !one.text.endsWith('.') || one.text.contains(QChar(u'\0'))) faults << one.text;
        if (isStilted(one.text)) faults << "stilted: " + one.text;
        if (one.people.empty() && one.families.empty() && one.about.isEmpty()) faults << "of nothing: " + one.text;
        if (one.state.isEmpty()) faults << "without a state: " + one.text;
    }
    return faults;
}

// The same BDP gives the same cases, in the same order.
void expectSound(const jet::Connection& bdp)
{
    const auto parish = parish::Snapshot::read(bdp);
    checks::Settings settings;
    for (const checks::Rule& rule : checks::rules())
        settings.asked.insert(rule.id, true);
    const auto nothingOnDisk = [](const QString&) { return std::optional<QStringList>(); };
    const std::vector<Case> cases = Check::run(parish, settings, {}, nothingOnDisk);
    const QStringList faults = faultsOf(cases);
    EXPECT_TRUE(faults.isEmpty()) << qUtf8Printable(faults.mid(0, 5).join('\n'));
    EXPECT_EQ(Check::run(parish::Snapshot::read(bdp), settings, {}, nothingOnDisk), cases);
}

} // namespace

class TheChecksOfTheDemonstration : public DemoBdp
{
};

TEST_F(TheChecksOfTheDemonstration, TellEachCaseOnceUnderAKeyOfItsOwn)
{
    expectSound(bdp_->connection);
}

class TheChecksOfAnyParish : public CheckedActs
{
protected:
    explicit TheChecksOfAnyParish(unsigned seed = 1) : dice(seed) {}

    int pick(int below) { return int(dice() % unsigned(below)); }
    QVariant number(int below) { return pick(8) == 0 ? QVariant() : QVariant(pick(below)); }
    QVariant code(int below) { return pick(3) == 0 ? QVariant() : QVariant(pick(below)); }
    QVariant date()
    {
        static const QStringList odd{"0100-01-01", "9999-12-31", "1582-10-10", "1704-02-29", "1700-01-01"};
        if (pick(5) == 0) return {};
        if (pick(20) == 0) return odd[pick(int(odd.size()))];
        return QDate(1690, 1, 1).addDays(pick(20) * 365 + pick(40)).toString(Qt::ISODate);
    }
    QVariant text()
    {
        static const QStringList odd{"",      "Maria", "Rui d'Ávila",      "\"o 🐟\"",          "M.a",
                                     "%1 %2", "-",     "José Maria Lopes", QString(10000, 'x')};
        return pick(9) == 0 ? QVariant() : QVariant(odd[pick(int(odd.size()))]);
    }
    QVariant one(const QStringList& of) { return pick(9) == 0 ? QVariant() : QVariant(of[pick(int(of.size()))]); }

    // Tables without keys: every row may stand twice, and lead anywhere.
    void loosen()
    {
        for (const char* table : {"individuo", "familia", "familias", "assistente", "residencia", "profissoes",
                                  "assinatura", "legadosprofanos", "rituaismorte", "passaporte"})
        {
            const QString name = table;
            elsewhere(qUtf8Printable("create table copia as select * from " + name + "; drop table " + name +
                                     "; alter table copia rename to " + name + ';'));
        }
    }
    void fill(int people);
    void fillActs(int people);
    void fillLists(int people);

    std::mt19937 dice;
};

void TheChecksOfAnyParish::fill(int people)
{
    for (int i = 1; i <= people; ++i)
        run("insert into individuo (nind, nome, tipo, sexo, famorig, datanasc, DnascFixa, dataobito, dobitofixa, "
            "inicioobs, fimobs, filiacao, idadeobito, estadoobito, menor, primpadrebapt, testamenteiro, altura, "
            "rpBapt) "
            "values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
            {i, text(), one({"0", "1", "2", "3", "4", "T", "*9"}), one({"m", "f", "d", "M", "x"}), number(people / 2),
             date(), number(2), date(), number(2), date(), date(), code(19), code(120), code(9), number(2),
             number(people + 5), number(people + 5), code(400), text()});
    for (int i = 0; i < people / 2; ++i) {
        run("insert into familia (nfamilia, sfamilia, tipocasal, datacasam, dcasamfixa, inicioobs, fimobs, localcasam, "
            "tipolocalcasam, primpadrecasam) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
            {i, one({"1", "2", "3", "5", "9", "11", "*x"}), code(9), date(), number(2), date(), date(), text(),
             one({"F", "L", "Z", "?"}), number(people)});
        for (int member = pick(5); member > 0; --member)
            run("insert into familias (nfamilia, nind, idade, estadocivil, numcasam) values (?, ?, ?, ?, ?)",
                {i, number(people + 2), code(90), code(9), code(4)});
    }
}

void TheChecksOfAnyParish::fillActs(int people)
{
    for (int i = 0; i < people; ++i)
        for (int row = pick(4); row > 0; --row)
            run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente, estadocivil, parentbapt) "
                "values (?, ?, ?, ?, ?, ?, ?)",
                {one({"b", "c", "x"}), number(people + 3), date(), number(people + 3), one({"p", "t"}), code(9),
                 code(80)});
}

void TheChecksOfAnyParish::fillLists(int people)
{
    for (int i = 0; i < people; ++i) {
        const QVariant who = number(people + 3);
        run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal) values (?, ?, ?, ?, "
            "?, "
            "?)",
            {who, one({"i", "f"}), date(), number(2), text(), one({"F", "L"})});
        run("insert into profissoes (nind, idprofissao, codprof, dataref, datafixa) values (?, ?, ?, ?, ?)",
            {who, i, code(3), date(), number(2)});
        run("insert into legadosprofanos (nind, idlegprof, nindherd) values (?, ?, ?)", {who, i, number(people)});
        run("insert into rituaismorte (nind, idlegpio, tipolegpio, tipo, quantidade, valorunit, valortotal, tipoMoeda) "
            "values (?, ?, ?, ?, ?, ?, ?, ?)",
            {who, i, one({"missa", "oficio", "?"}), code(3), code(9), code(9), code(50), one({"Re", "Es", "Eu"})});
        run("insert into passaporte (nind, nPass, dataref) values (?, ?, ?)", {who, i, date()});
    }
}

TEST_F(TheChecksOfAnyParish, TellEachCaseOnceUnderAKeyOfItsOwn)
{
    for (unsigned seed = 1; seed <= 12; ++seed) {
        SCOPED_TRACE(seed);
        dice.seed(seed);
        if (seed == 1) loosen();
        bdp.beginTrans();
        for (const char* table : {"individuo", "familia", "familias", "assistente", "residencia", "profissoes",
                                  "legadosprofanos", "rituaismorte", "passaporte"})
            run(qUtf8Printable(QString("delete from ") + table));
        const int people = 20 + int(seed) * 10;
        fill(people);
        fillActs(people);
        fillLists(people);
        if (seed % 3 == 0) fill(people); // every number twice
        bdp.commitTrans();
        expectSound(bdp);
    }
}

// Each circle closes one place before the last one told: of 400 people a quarter of their square would be named.
TEST_F(TheChecksOfAnyParish, FollowKnotsOfCirclesOverAFewTimesAsManyPeopleAsThereAre)
{
    constexpr int people = 400;
    bdp.beginTrans();
    for (int i = 1; i <= people; ++i)
        person({"Rui", 'm', "", "", i});
    for (int i = 1; i <= people; ++i) {
        run("insert into familia (nfamilia) values (?)", {i});
        run("insert into familias (nfamilia, nind) values (?, ?)", {i, i % people + 1});
        if (i > people / 2 && i < people) run("insert into familias (nfamilia, nind) values (?, ?)", {i, people - i});
    }
    bdp.commitTrans();
    size_t named = 0, told = 0;
    for (const Case& one : all())
        if (one.rule == "F-05") {
            ++told;
            named += one.people.size();
        }
    EXPECT_GT(told, 1U);
    EXPECT_LE(named, 4U * people);
    EXPECT_LE(named, 50U * told);
}

TEST_F(TheChecksOfAnyParish, TakeOneWhoMarriedTooOftenForNobody)
{
    const qint64 rui = person({"Incógnito"});
    for (int i = 0; i < 18; ++i)
        couple(rui, person({qUtf8Printable(QString("Ana Nome%1").arg(i)), 'f'}));
    couple(rui, person({"Eva Lopes", 'f'}));
    couple(rui, person({"Eva Lopes", 'f'}));
    EXPECT_EQ(cases("P-26").size(), 1); // 20 unions
    couple(rui, person({"Ana Dias", 'f'}));
    EXPECT_EQ(cases("P-26"), QStringList());
}

TEST_F(TheChecksOfAnyParish, EndBetweenTheRulesOfTheParishToo)
{
    const qint64 rui = person({"Rui"});
    run("update individuo set rpBapt = '/livros/b1.jpg', rpObi = '/outros/o1.jpg' where nind = ?", {rui});
    const auto parish = parish::Snapshot::read(bdp);
    QStringList looked;
    const auto filesIn = [&](const QString& where) {
        looked << where;
        return std::optional<QStringList>();
    };
    const auto untilTheFirstFolder = [&](double done) {
        EXPECT_GE(done, 0);
        EXPECT_LE(done, 1);
        return looked.isEmpty();
    };
    EXPECT_THROW(Check::run(parish, {}, untilTheFirstFolder, filesIn), parish::Snapshot::Interrupted);
    EXPECT_EQ(looked, QStringList("/livros/"));
}
