// The copies of a BDP: how long the first write of a day waits for its own, and a backup beside a bare one.
#include "beside.h"
#include "people.h"

#include "store/copiaDiaria.h"
#include "store/session.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <chrono>

namespace {

// Each turn is the first write of another day. Its time is that of the clock, as who types waits for the disk, too.
void TheFirstWriteOfADay(benchmark::State& state)
{
    const People people(int(state.range(0)));
    const QString folder = QFileInfo(cnBDP.dataSource()).path();
    static QDate day(2026, 11, 22);
    setDiaDaCopia([] { return day; });
    vigiaCopiaDiaria();
    for ([[maybe_unused]] auto turn : state) {
        day = day.addDays(1);
        const auto start = std::chrono::steady_clock::now();
        cnBDP.execute("update infopar set pais = pais");
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        esperaCopiaDiaria();
        QDir(folder + "/copias").removeRecursively();
    }
    cnBDP.setObserver({});
    setDiaDaCopia({});
}

void copyBare(sqlite3* from, const QString& path)
{
    QFile::remove(path);
    sqlite3* copy = nullptr;
    sqlite3_open(path.toUtf8(), &copy);
    sqlite3_backup* backup = sqlite3_backup_init(copy, "main", from, "main");
    sqlite3_backup_step(backup, -1);
    sqlite3_backup_finish(backup);
    sqlite3_close(copy);
}

void ABackup(benchmark::State& state)
{
    const People people(int(state.range(0)));
    const QString path = QFileInfo(cnBDP.dataSource()).path() + "/copia.orv";
    compare(
        state, [&] { cnBDP.copyTo(path); }, [&] { copyBare(people.bare(), path); });
    QFile::remove(path);
}

BENCHMARK(TheFirstWriteOfADay)
    ->Arg(1000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Iterations(1)
    ->Repetitions(15)
    ->ReportAggregatesOnly()
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ABackup)->Arg(1000)->Arg(100'000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
