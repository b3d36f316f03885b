#include "study/command/figures.h"

#include "platform/jet/error.h"
#include "study/command/command.h"
#include "study/command/readParish.h"
#include "study/indicators/studyReport.h"
#include "study/report/files.h"
#include "study/report/origin.h"
#include "study/report/page.h"
#include "study/transcripts/importSources.h"

#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <optional>
#include <thread>

namespace study {

namespace {

using indicators::Tallies;
using parish::Snapshot;

constexpr auto pageBegin = "<!DOCTYPE html>";

Tallies talliesOfBdp(const QString& path, const Snapshot::GoesOn& goesOn)
{
    const ReadParish read = readParish(path, goesOn);
    return talliesOf(studyOf(read.parish, read.settings, goesOn), read.source,
                     static_cast<int>(std::thread::hardware_concurrency()), goesOn);
}

template <class Work>
auto named(const QString& path, const Work& work)
{
    try {
        return work();
    } catch (const jet::Error& error) {
        throw jet::Error(error.number, path + ": " + error.description);
    }
}

bool isOfTallies(const QString& path)
{
    return QFileInfo(path).suffix().compare("json", Qt::CaseInsensitive) == 0;
}

Tallies talliesIn(const QString& path, bool isJson, const Snapshot::GoesOn& goesOn)
{
    if (!isJson) return talliesOfBdp(path, goesOn);
    const QByteArray bytes = bytesOf(path);
    return named(path, [&] { return indicators::talliesFrom(bytes); });
}

// Of all files together.
Tallies talliesOfAll(const Order& order, const Snapshot::GoesOn& goesOn)
{
    std::optional<Tallies> sum;
    for (const QString& path : order.files) {
        if (!goesOn(0)) throw Snapshot::Interrupted{};
        Tallies next = talliesIn(path, order.work == Order::Work::Join || isOfTallies(path), goesOn);
        sum = sum ? named(path, [&] { return joined(*sum, next); }) : std::move(next);
    }
    return *sum;
}

// A report takes the place of an earlier page alone, and never of what it is made of.
void checkPageTarget(const Order& order)
{
    const QFileInfo there(order.output);
    if (!there.exists()) return;
    QFile file(order.output);
    const bool isPage =
        there.isFile() && file.open(QIODevice::ReadOnly) && (file.size() == 0 || file.peek(64).startsWith(pageBegin));
    if (!isPage)
        throw jet::Error(
            jet::number::permissionDenied,
            QString("O ficheiro \"%1\" já existe e não é uma página HTML; não se escreve por cima.").arg(order.output));
}

void writePage(const Order& order, const report::Report& report)
{
    report::writeWhole(order.output, report::pageOf(report));
}

void writeTables(const Order& order, const report::Report& report)
{
    makeFolder(order.output);
    report::writeFiles(report::filesOf(report), order.output);
}

// Throws where not all of it was taken: a disk may be full.
void tell(const Tallies& tallies, QTextStream& out)
{
    out << QString::fromUtf8(jsonOf(tallies)) << '\n';
    out.flush();
    if (out.status() != QTextStream::Ok)
        throw jet::Error(jet::number::diskFull, "As contagens não puderam ser escritas por inteiro.");
}

void run(const Order& order, QTextStream& out, const Snapshot::GoesOn& goesOn)
{
    using enum Order::Work;
    if (order.work == Report) checkPageTarget(order);
    const Tallies tallies = talliesOfAll(order, goesOn);
    if (order.work == Count || order.work == Join) return tell(tallies, out);
    const report::Report report =
        reportOf(tallies, {.program = report::programName(), .made = QDateTime::currentDateTime()},
                 indicators::subjects(), goesOn);
    if (!goesOn(1)) throw Snapshot::Interrupted{};
    order.work == Report ? writePage(order, report) : writeTables(order, report);
}

} // namespace

int runFigures(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    try {
        run(order, out, [&](double) { return goesOn(); });
        return counted;
    } catch (const Snapshot::Interrupted&) {
        err << "Interrompido. Nada foi escrito.\n";
    } catch (const std::exception& error) {
        err << QString::fromUtf8(error.what()) << '\n';
    }
    return notCounted;
}

} // namespace study
