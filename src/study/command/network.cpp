#include "study/command/network.h"

#include "platform/jet/error.h"
#include "study/command/command.h"
#include "study/command/readParish.h"
#include "study/indicators/network.h"
#include "study/indicators/studyReport.h"
#include "study/report/files.h"
#include "study/report/origin.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

namespace study {

namespace {

constexpr auto graphName = "rede.graphml";
constexpr qint64 placeOfMark = 256; // bytes in which a file of ours tells of itself

// The graph takes the place of an earlier one alone.
void checkGraph(const QString& path)
{
    const QFileInfo there(path);
    if (!there.exists() && !there.isSymLink()) return;
    QFile file(path);
    const bool isOurs =
        there.isFile() && file.open(QIODevice::ReadOnly) && file.peek(placeOfMark).contains(indicators::graphMlComment);
    if (!isOurs)
        throw jet::Error(
            jet::number::fileExists,
            QString("O ficheiro \"%1\" já existe e não é uma rede escrita por um estudo; não se escreve por "
                    "cima.")
                .arg(path));
}

report::Report reportOf(const ReadParish& read, const indicators::Network& network)
{
    const parish::Home& home = read.parish.home();
    report::Report report{.title = "Rede de padrinhos e testemunhas",
                          .parish = home.name,
                          .parishCode = home.code,
                          .program = report::programName(),
                          .made = QDateTime::currentDateTime(),
                          .sources = {read.source}};
    report.settings = inWords(indicators::Tallies{.parishes = {{.source = read.source, .settings = read.settings}}});
    report.chapters = {{.title = "Sociedade", .sections = {sectionOf(network)}}};
    return report;
}

void run(const Order& order, QTextStream& out, const std::function<bool()>& goesOn)
{
    const QString graph = QDir(order.output).filePath(graphName);
    checkGraph(graph);
    const ReadParish read = readParish(order.bdp, [&](double) { return goesOn(); });
    const indicators::Network network = networkOf(studyOf(read.parish, read.settings), goesOn);
    const report::Report report = reportOf(read, network);
    if (!goesOn()) throw parish::Snapshot::Interrupted{};
    makeFolder(order.output);
    report::writeFiles(report::filesOf(report), order.output);
    report::writeWhole(graph, graphMlOf(network));
    out << QString("Pessoas: %1; laços: %2; componentes: %3.\n")
               .arg(network.people.size())
               .arg(network.edges.size())
               .arg(network.components);
}

} // namespace

int runNetwork(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    try {
        run(order, out, goesOn);
        return counted;
    } catch (const parish::Snapshot::Interrupted&) {
        err << "Interrompido. Nada foi escrito.\n";
    } catch (const std::exception& error) {
        err << QString::fromUtf8(error.what()) << '\n';
    }
    return notCounted;
}

} // namespace study
