#include "study/command/exchange.h"

#include "study/command/bdp.h"
#include "study/command/command.h"
#include "study/exchange/ways.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

namespace study {

namespace {

// The mark of the file is taken while the way holds its state. The file is closed behind the connection: closing it
// gives up the locks of the process.
exchange::Exchanged written(const exchange::WayOut& way, const Order& order, const std::function<bool()>& goesOn)
{
    QFile file(QFileInfo(order.bdp).absoluteFilePath());
    const bool isOpen = file.open(QIODevice::ReadOnly);
    jet::Connection bdp;
    openBdpToRead(bdp, order.bdp);
    return writeOut(way, bdp,
                    {.bdp = order.bdp,
                     .target = order.output,
                     .options = order.out,
                     .today = QDate::currentDate(),
                     .source = [&] { return isOpen ? parish::sourceOf(file) : parish::Source(); }},
                    [&](double) { return goesOn(); });
}

// Each with the place of its file, and its line: 0 for the whole of it.
void tell(const std::vector<exchange::Remark>& remarks, const QString& folder, const QString& kind, QTextStream& err)
{
    for (const exchange::Remark& one : remarks) {
        if (!one.file.isEmpty()) err << QDir(folder).filePath(one.file) << ':' << one.line << ": " << kind;
        err << one.text << '\n';
    }
}

int ended(const std::function<int()>& work, QTextStream& err)
{
    try {
        return work();
    } catch (const exchange::Interrupted&) {
        err << "Interrompido. Nada foi escrito.\n";
    } catch (const std::exception& error) {
        err << QString::fromUtf8(error.what()) << '\n';
    }
    return refused;
}

} // namespace

int runExport(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    return ended(
        [&] {
            const exchange::Exchanged told = written(*exchange::wayOut(order.way), order, goesOn);
            for (const QString& line : told.lines)
                out << line << '\n';
            tell(told.warnings, order.output, "aviso: ", err);
            return done;
        },
        err);
}

int runImport(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    return ended(
        [&] {
            const QString source = order.files.first();
            const exchange::Exchanged told =
                readIn(*exchange::wayIn(order.way), nullptr, {source, order.bdp, order.rehearse},
                       [&](double) { return goesOn(); });
            tell(told.warnings, source, "aviso: ", err);
            tell(told.errors, source, {}, err);
            if (!told.errors.empty()) {
                err << "Nada foi escrito.\n";
                return refused;
            }
            for (const QString& line : told.lines)
                out << line << '\n';
            if (order.rehearse) out << "Ensaio: nada foi escrito.\n";
            return done;
        },
        err);
}

} // namespace study
