// orv-bench-import: imports acts of an invented parish with the shell command, as somebody would, and tells how long it
// takes, how much memory it has at its peak, and how both grow with the number of acts. Fails where a goal is missed.
#include "kit/figures.h"
#include "parish/acts.h"
#include "platform/desktop/desktop.h"
#include "platform/jet/connection.h"
#include "store/modBD.h"
#include "study/transcripts/kleio.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cmath>
#include <cstdio>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int mostActs = 10'000;
constexpr double goalSeconds = 60; // for so many acts
constexpr double goalMegabytes = 300;
constexpr double goalExponent = 1.15;
constexpr int kilobytesOfMegabyte = 1024;
constexpr int failedToStart = 127;

struct Spent
{
    double seconds = 0;
    double processor = 0; // seconds of it, which others who work on the machine don't change much
    double megabytes = 0; // of resident memory, at the peak
};

// A process of its own makes the file, so that the peak that is read here is that of the import alone.
void writeActs(const QString& path, int acts)
{
    const pid_t child = fork();
    if (child == 0) {
        QFile file(path);
        const QByteArray kleio = study::toKleio(bench::parishActs(acts));
        _exit(file.open(QIODevice::WriteOnly) && file.write(kleio) == kleio.size() && file.flush() ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (status != 0) qFatal("%s can't be written", qPrintable(path));
}

void makeBdp(const QString& path)
{
    jet::createDatabase(path);
    jet::Connection bdp;
    bdp.open(path);
    CriaTabelas(bdp, ORV_DATA_DIR "/CriarTab.dat");
    CarregaDadosIniciais(bdp);
    bdp.execute("insert into infopar (cod, nome, Pais) values ('030804', 'Azurém', 'PT')");
}

Spent import(const QByteArray& program, const QByteArray& file, const QByteArray& bdp)
{
    QElapsedTimer clock;
    clock.start();
    const pid_t child = fork();
    if (child == 0) {
        if (!std::freopen("/dev/null", "w", stdout)) _exit(failedToStart); // the report isn't what is looked at
        execl(program.constData(), program.constData(), "importar", "kleio", file.constData(), "--bdp", bdp.constData(),
              "--ligar-casais", "--lugares-novos", "--profissoes-novas", "--padres-novos", nullptr);
        _exit(failedToStart);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    if (status != 0) qFatal("the import failed");
    const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return {.seconds = double(clock.elapsed()) / 1000,
            .processor = seconds(usage.ru_utime) + seconds(usage.ru_stime),
            .megabytes = double(usage.ru_maxrss) / kilobytesOfMegabyte};
}

bool isWithinGoals(const std::vector<std::pair<double, double>>& times, const Spent& largest)
{
    const double growth = bench::exponent(times);
    std::printf("exponent of the time: %.2f\n", growth);
    return largest.seconds <= goalSeconds && largest.megabytes <= goalMegabytes && growth <= goalExponent;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    Desktop::setProgramFolder(ORV_DATA_DIR);
    const QByteArray program = QFile::encodeName(ORV_ESTUDO);
    const QTemporaryDir folder;
    std::vector<std::pair<double, double>> times;
    Spent spent;
    std::printf(
        "| Acts | Seconds | Of processor | ms an act | Peak memory, MB | BDP, MB |\n|---|---|---|---|---|---|\n");
    std::fflush(stdout); // before a process is made of this one
    for (const int acts : {mostActs / 10, mostActs / 3, mostActs}) {
        const QString file = folder.filePath(QString("%1.cli").arg(acts)),
                      bdp = folder.filePath(QString("%1.orv").arg(acts));
        writeActs(file, acts);
        makeBdp(bdp);
        spent = import(program, QFile::encodeName(file), QFile::encodeName(bdp));
        times.emplace_back(acts, spent.processor);
        const double megabytes = double(QFileInfo(bdp).size()) / kilobytesOfMegabyte / kilobytesOfMegabyte;
        std::printf("| %d | %.2f | %.2f | %.2f | %.0f | %.1f |\n", acts, spent.seconds, spent.processor,
                    1000 * spent.seconds / acts, spent.megabytes, megabytes);
        std::fflush(stdout);
    }
    return isWithinGoals(times, spent) ? EXIT_SUCCESS : EXIT_FAILURE;
}
