// What a deletion takes away, and how it comes back.
#include "store/lixo.h"

#include "families/frmFam.h"
#include "individuals/frmInd.h"
#include "platform/jet/jsonrow.h"
#include "shell/startup.h"
#include "store/parish.h"

#include <QJsonDocument>

#include <sqlite3.h>

#include <algorithm>
#include <random>

namespace {

using Rows = std::map<QString, QList<QJsonObject>>; // by their tables

Rows everything()
{
    Rows all;
    for (const QString& table : cnBDP.tables())
        if (table != "estudo_lixo")
            all[table] = jet::jsonRows(cnBDP, jet::NativeSql("select rowid, * from " + table + " order by rowid"));
    return all;
}

std::string difference(const Rows& expected, const Rows& found)
{
    QStringList lines;
    const auto text = [](const QJsonObject& row) { return QString::fromUtf8(QJsonDocument(row).toJson()); };
    for (const auto& [table, rows] : expected) {
        for (const QJsonObject& row : rows)
            if (!found.at(table).contains(row)) lines << "missing in " + table + text(row);
        for (const QJsonObject& row : found.at(table))
            if (!rows.contains(row)) lines << "new in " + table + text(row);
    }
    return lines.join('\n').toStdString();
}

QList<lixo::Eliminacao> deletions()
{
    QList<lixo::Eliminacao> all;
    if (!lixo::temLixo(cnBDP)) return all;
    for (jet::Recordset rows(cnBDP, lixo::consulta()); !rows.eof(); rows.moveNext())
        all << lixo::eliminacao(rows);
    return all;
}

class Trash : public Parish
{
protected:
    Trash()
    {
        registerForms();
        Forms::show(FrmInd::Name);
        Forms::show(FrmFam::Name);
        cnBDP.beginTrans(); // given up at the close: nothing goes to the disk
    }

    static void run(const char* sql) { cnBDP.execute(jet::NativeSql(QString::fromUtf8(sql))); }

    int any(int first, int last) { return std::uniform_int_distribution(first, last)(random); }
    bool maybe() { return any(0, 1) == 1; }
    // Values as they come, and as no field of the program would let them in.
    QVariant value()
    {
        const QVariantList values{QVariant(),
                                  "",
                                  "São João d'Além",
                                  "dois \"lados\"\r\n--;",
                                  QString::fromUtf8("\xF0\x9F\x98\x80"),
                                  "0012",
                                  "1e3",
                                  "null",
                                  "%_'",
                                  QString(300, 'x')};
        return values[any(0, int(values.size()) - 1)];
    }
    QVariant number() { return maybe() ? QVariant() : QVariant(any(0, 3) == 0 ? any(0, 9) + 0.1 : any(-5, 5)); }
    QVariant person() { return any(1, people); }
    QVariant family() { return any(1, families); }

    void insert(const QString& table, const QString& columns, const QVariantList& values)
    {
        QStringList places(values.size(), "?");
        try {
            cnBDP.execute(jet::NativeSql(
                "insert into " + table + " (" + columns + ") values (" + places.join(',') + ')', values));
        } catch (const jet::Error&) { // the same key once more
        }
    }

    void makeParish()
    {
        for (const QString& table : cnBDP.tables())
            cnBDP.execute(jet::NativeSql("delete from " + table));
        addRows();
    }

    // What has its key already stays as it is.
    void addRows()
    {
        for (int n = 1; n <= people; ++n)
            insert("individuo", "nind, nome, sexo, famorig, obs, altura, testamenteiro",
                   {n, QString("P%1").arg(n), maybe() ? "m" : "f", maybe() ? family() : QVariant(), value(), QVariant(),
                    person()});
        for (int n = 1; n <= families; ++n) {
            insert("familia", "nfamilia, obs, primpadrecasam", {n, value(), number()});
            for (int members = any(0, 3); members > 0; --members)
                insert("familias", "nfamilia, nind", {n, person()});
        }
        for (int i = 0; i < 12; ++i) {
            insert("residencia", "numero, tiporesid, dataref, obs",
                   {any(1, 6), maybe() ? "i" : "f", QDate(1700 + any(0, 9), 1, 1), value()});
            insert("profissoes", "nind, idprofissao, obs", {person(), any(1, 3), value()});
            insert("legadosprofanos", "nind, idlegprof, nindherd, obs", {person(), any(1, 3), person(), value()});
            insert("rituaismorte", "nind, idlegpio, quantidade, obs", {person(), any(1, 3), number(), value()});
            insert("assinatura", "nind, idassinatura, obs", {person(), any(1, 3), value()});
            insert("passaporte", "nind, nPass, obs", {person(), any(1, 3), value()});
            insert("assistente", "tipoacto, entidade, nind, obs",
                   {maybe() ? "b" : "c", any(1, 6), maybe() ? person() : QVariant(), value()});
        }
        refreshCards();
    }

    static void refreshCards()
    {
        frmInd().releFicheiro({});
        frmFam().releFicheiro({});
    }

    void deleteAny()
    {
        const bool aFamily = any(0, 2) == 0;
        const QString table = aFamily ? "familia" : "individuo", key = aFamily ? "nfamilia" : "nind";
        const auto rows = jet::jsonRows(cnBDP, jet::NativeSql("select " + key + " as n from " + table));
        if (rows.isEmpty()) return;
        const QString n = QString::number(rows[any(0, int(rows.size()) - 1)]["n"].toInteger());
        refreshCards();
        if (aFamily) {
            frmFam().procuraRegisto("nfamilia = " + n);
            frmFam().eliminaFamilia();
        } else {
            frmInd().mostra(n);
            frmInd().eliminaIndividuo();
        }
    }

    static constexpr int people = 7, families = 5;
    std::mt19937 random;
};

} // namespace

TEST_F(Trash, AnyDeletionThatIsPutBackLeavesTheBdpRowForRowAsItWas)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        random.seed(seed);
        makeParish();
        const Rows before = everything();
        deleteAny();
        const auto gone = deletions();
        ASSERT_EQ(gone.size(), 1) << seed;
        ASSERT_NE(everything(), before) << seed;
        ASSERT_EQ(lixo::repoe(cnBDP, gone.first().id), "") << seed;
        ASSERT_EQ(difference(before, everything()), "") << seed;
        EXPECT_TRUE(deletions().isEmpty()) << seed;
    }
}

TEST_F(Trash, SeveralDeletionsComeBackInWhicheverOrderTheyAreTried)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        random.seed(seed);
        makeParish();
        const Rows before = everything();
        for (int i = 0; i < 5; ++i)
            deleteAny();
        for (int round = 0; round < 5 && !deletions().isEmpty(); ++round) {
            auto gone = deletions();
            std::shuffle(gone.begin(), gone.end(), random);
            for (const auto& deletion : std::as_const(gone)) {
                const Rows now = everything();
                const QString reason = lixo::repoe(cnBDP, deletion.id);
                if (!reason.isEmpty()) {
                    EXPECT_EQ(everything(), now) << seed; // refused whole
                }
            }
        }
        EXPECT_TRUE(deletions().isEmpty()) << seed;
        ASSERT_EQ(difference(before, everything()), "") << seed;
    }
}

// Numbers and keys are given out again, families get other members: what comes back comes back beside all that.
TEST_F(Trash, NothingThatWasEnteredSinceADeletionIsChangedByItsReturn)
{
    int refused = 0, returned = 0;
    for (unsigned seed = 1; seed <= 60; ++seed) {
        random.seed(seed);
        makeParish();
        for (int i = any(1, 3); i > 0; --i)
            deleteAny();
        if (maybe()) addRows();
        for (const auto& deletion : deletions()) {
            const Rows now = everything();
            if (!lixo::repoe(cnBDP, deletion.id).isEmpty()) {
                ++refused;
                ASSERT_EQ(everything(), now) << seed;
                continue;
            }
            ++returned;
            const Rows after = everything();
            for (const auto& [table, rows] : now)
                for (QJsonObject row : rows) {
                    if (after.at(table).contains(row)) continue;
                    ASSERT_EQ(table, "individuo") << seed;
                    ASSERT_TRUE(row["famorig"].isNull()) << seed;
                    const auto child = std::ranges::find_if(
                        after.at(table), [&](const QJsonObject& other) { return other["nind"] == row["nind"]; });
                    row["famorig"] = (*child)["famorig"];
                    ASSERT_EQ(*child, row) << seed;
                }
        }
        cnBDP.execute(jet::NativeSql("delete from estudo_lixo"));
    }
    EXPECT_GT(refused, 10);
    EXPECT_GT(returned, 10);
}

TEST_F(Trash, KeepsWhatOnlyOtherProgramsWrite)
{
    sqlite3_set_authorizer(cnBDP.handle(), nullptr, nullptr); // the statements of this test are another program's
    run("insert into individuo (nind, nome, obs, causa) values (7, cast(x'41ff42' as text), x'00ff', 'a' || char(0) || "
        "'b')");
    run("insert into individuo (nind, nome, testamenteiro) values (8, null, 9e999)");
    run("insert into rituaismorte (nind, idlegpio, quantidade) values (7, 1, 0.1)");
    const char* exact = "select typeof(nome) || hex(nome), typeof(obs) || hex(obs), hex(causa), testamenteiro from "
                        "individuo order by nind";
    const auto before = jet::jsonRows(cnBDP, jet::NativeSql(exact));
    const Rows all = everything();
    refreshCards();
    for (const char* n : {"7", "8"}) {
        frmInd().mostra(n);
        frmInd().eliminaIndividuo();
    }
    EXPECT_EQ(everything()["individuo"].size(), 0);
    for (const auto& deletion : deletions())
        ASSERT_EQ(lixo::repoe(cnBDP, deletion.id), "");
    EXPECT_EQ(jet::jsonRows(cnBDP, jet::NativeSql(exact)), before);
    EXPECT_EQ(difference(all, everything()), "");
}

TEST_F(Trash, ListsWhatWasDeletedNewestFirst)
{
    run("insert into individuo (nind, nome, sexo) values (7, 'Ana', 'f'), (8, 'Rui', 'm')");
    run("insert into familia (nfamilia) values (3)");
    run("insert into familias (nfamilia, nind) values (3, 7), (3, 8)");
    refreshCards();
    frmFam().procuraRegisto("nfamilia = 3");
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    frmFam().eliminaFamilia();
    frmInd().mostra("7");
    frmInd().eliminaIndividuo();
    const auto all = deletions();
    ASSERT_EQ(all.size(), 2);
    EXPECT_EQ(all[0].designacao(), "Indivíduo 7 – Ana");
    EXPECT_EQ(all[1].designacao(), "Família 3 – Rui e Ana");
    EXPECT_GE(all[1].quando, before);
    EXPECT_LE(all[0].quando, QDateTime::currentDateTime());
}

TEST_F(Trash, GivesARowThatLostItsPlaceAnotherOne)
{
    run("insert into individuo (nind, nome) values (7, 'Ana'), (8, 'Rui')");
    refreshCards();
    frmInd().mostra("7");
    frmInd().eliminaIndividuo();
    run("update individuo set rowid = 1 where nind = 8");
    EXPECT_EQ(lixo::repoe(cnBDP, deletions().first().id), "");
    EXPECT_EQ(jet::jsonRows(cnBDP, jet::NativeSql("select nome from individuo order by nind")).first()["nome"], "Ana");
}
