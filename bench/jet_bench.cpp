// The engine on a BDP with a million people, each measure beside the bare engine doing the same work.
#include "beside.h"

#include "platform/jet/connection.h"
#include "platform/jet/recordset.h"

#include <QFile>
#include <QTemporaryDir>

#include <malloc.h>
#include <sqlite3.h>

#include <functional>
#include <map>
#include <memory>

namespace {

// A BDP with so many people, entered in an order that is not that of their numbers.
struct Parish
{
    explicit Parish(int people)
    {
        const QString path = folder.filePath(QStringLiteral("a.orv"));
        jet::createDatabase(path);
        bdp.open(path);
        QFile schema(QStringLiteral(ORV_DATA_DIR "/CriarTab.dat"));
        if (!schema.open(QIODevice::ReadOnly | QIODevice::Text)) std::abort();
        bdp.beginTrans();
        while (!schema.atEnd())
            bdp.execute(QString::fromLatin1(schema.readLine()).trimmed());
        jet::Connection::Insert insert(bdp, QStringLiteral("individuo"),
                                       {QStringLiteral("nind"), QStringLiteral("nome"), QStringLiteral("sexo"),
                                        QStringLiteral("datanasc"), QStringLiteral("localnasc"),
                                        QStringLiteral("tipolocalnasc"), QStringLiteral("obs")});
        const char* names[]{"José da Silva", "Maria da Conceição", "António Gonçalves Pereira", "Ana Luísa",
                            "Francisco de Sousa e Melo"};
        for (int i = 0; i < people; ++i) {
            const int number = int((qint64(i) * 7919) % people) + 1; // 7919 shares no factor with the counts used
            insert.run(QList<QByteArray>{QByteArray::number(number),
                                         QByteArray(names[i % 5]) + ' ' + QByteArray::number(i), i % 2 ? "m" : "f",
                                         "1750-03-12", "010101", "F", "Livro 3, folha 12 verso"});
        }
        bdp.commitTrans();
    }

    sqlite3_stmt* prepare(const char* sql)
    {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(bdp.handle(), sql, -1, &statement, nullptr);
        return statement;
    }

    static Parish& of(int people)
    {
        static std::map<int, std::unique_ptr<Parish>> made;
        auto& parish = made[people];
        if (!parish) parish = std::make_unique<Parish>(people);
        return *parish;
    }

    QTemporaryDir folder;
    jet::Connection bdp;
};

constexpr int many = 1'000'000;
constexpr int few = 1'000;
const auto list = QStringLiteral("select nind from individuo order by nind");

void OpenTheList(benchmark::State& state)
{
    Parish& parish = Parish::of(many);
    compare(
        state, [&] { jet::Recordset set(parish.bdp, list); },
        [&] {
            sqlite3_stmt* scan = parish.prepare("select nind from individuo order by nind");
            double sum = 0;
            while (sqlite3_step(scan) == SQLITE_ROW)
                sum += sqlite3_column_double(scan, 0);
            benchmark::DoNotOptimize(sum);
            sqlite3_finalize(scan);
        });
    const auto inUse = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; };
    const auto before = inUse();
    jet::Recordset set(parish.bdp, list);
    state.counters["bytes_per_row"] = double(inUse() - before) / set.recordCount();
}
BENCHMARK(OpenTheList)->UseManualTime()->Unit(benchmark::kMillisecond);

// Steps through the list and reads the whole row of each individual, as the card does.
struct Steps
{
    Parish& parish;
    jet::Recordset set{parish.bdp, list};

    explicit Steps(int people) : parish(Parish::of(people)) {}

    void showNext()
    {
        set.moveNext();
        if (set.eof()) set.moveFirst();
        const jet::Recordset row(parish.bdp, QStringLiteral("select * from individuo where nind = %1")
                                                 .arg(set[QStringLiteral("nind")].toDouble(), 0, 'f', 0));
        benchmark::DoNotOptimize(row[QStringLiteral("nome")]);
    }
};

// The ratio is that of a million people to a thousand.
void ShowTheNextIndividual(benchmark::State& state)
{
    Steps large(many);
    Steps small(few);
    compare(
        state,
        [&] {
            for (int i = 0; i < few; ++i)
                large.showNext();
        },
        [&] {
            for (int i = 0; i < few; ++i)
                small.showNext();
        });
}
BENCHMARK(ShowTheNextIndividual)->UseManualTime()->Unit(benchmark::kMillisecond);

void ShowTheNextIndividualBesideTheBareEngine(benchmark::State& state)
{
    Steps steps(many);
    int number = 0;
    compare(
        state,
        [&] {
            for (int i = 0; i < few; ++i)
                steps.showNext();
        },
        [&] {
            for (int i = 0; i < few; ++i) {
                const QByteArray sql =
                    "select * from individuo where nind = " + QByteArray::number(++number % many + 1);
                sqlite3_stmt* row = steps.parish.prepare(sql);
                if (sqlite3_step(row) == SQLITE_ROW)
                    for (int column = 0; column < sqlite3_column_count(row); ++column)
                        benchmark::DoNotOptimize(sqlite3_column_text(row, column));
                sqlite3_finalize(row);
            }
        });
}
BENCHMARK(ShowTheNextIndividualBesideTheBareEngine)->UseManualTime()->Unit(benchmark::kMillisecond);

// The bare engine's work is a bare scan of the list up to the number.
void FindANumber(benchmark::State& state)
{
    Parish& parish = Parish::of(many);
    jet::Recordset set(parish.bdp, list);
    compare(
        state,
        [&] {
            set.moveFirst();
            set.find(QStringLiteral("nind = 900000"));
            benchmark::DoNotOptimize(set.absolutePosition());
        },
        [&] {
            sqlite3_stmt* scan = parish.prepare("select nind from individuo order by nind");
            while (sqlite3_step(scan) == SQLITE_ROW && sqlite3_column_double(scan, 0) != 900000) {
            }
            sqlite3_finalize(scan);
        });
}
BENCHMARK(FindANumber)->UseManualTime()->Unit(benchmark::kMillisecond);

// The same search on a bare connection has the engine's own operator like.
void SearchNames(benchmark::State& state)
{
    Parish& parish = Parish::of(many);
    sqlite3* bare = nullptr;
    sqlite3_open(parish.bdp.dataSource().toUtf8(), &bare);
    const auto count = [](sqlite3* database) {
        sqlite3_stmt* search = nullptr;
        sqlite3_prepare_v2(database, "select count(*) from individuo where nome like '%sousa%99'", -1, &search,
                           nullptr);
        sqlite3_step(search);
        benchmark::DoNotOptimize(sqlite3_column_int(search, 0));
        sqlite3_finalize(search);
    };
    compare(
        state, [&] { count(parish.bdp.handle()); }, [&] { count(bare); });
    sqlite3_close(bare);
}
BENCHMARK(SearchNames)->UseManualTime()->Unit(benchmark::kMillisecond);

void InsertRows(benchmark::State& state)
{
    Parish& parish = Parish::of(few);
    const auto inTransaction = [&](const std::function<void()>& rows) {
        parish.bdp.beginTrans();
        rows();
        parish.bdp.rollbackTrans();
    };
    constexpr int count = 20'000;
    compare(
        state,
        [&] {
            inTransaction([&] {
                jet::Connection::Insert insert(
                    parish.bdp, QStringLiteral("lugar"),
                    {QStringLiteral("codlugar"), QStringLiteral("nomelugar"), QStringLiteral("codparoquia")});
                for (int i = 0; i < count; ++i)
                    insert.run(QList<QByteArray>{QByteArray::number(i), "Fonte da Moura", "010101"});
            });
        },
        [&] {
            inTransaction([&] {
                sqlite3_stmt* insert =
                    parish.prepare("insert into lugar (codlugar, nomelugar, codparoquia) values (?, ?, ?)");
                for (int i = 0; i < count; ++i) {
                    const QByteArray code = QByteArray::number(i);
                    sqlite3_bind_text(insert, 1, code, int(code.size()), SQLITE_STATIC);
                    sqlite3_bind_text(insert, 2, "Fonte da Moura", -1, SQLITE_STATIC);
                    sqlite3_bind_text(insert, 3, "010101", -1, SQLITE_STATIC);
                    sqlite3_step(insert);
                    sqlite3_reset(insert);
                }
                sqlite3_finalize(insert);
            });
        });
}
BENCHMARK(InsertRows)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
