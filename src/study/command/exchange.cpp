#include "study/command/exchange.h"

#include "study/command/bdp.h"
#include "study/command/command.h"
#include "study/exchange/gedcomIn.h"
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

// Each with the place of its file, in the folder or the file itself, and its line: 0 for the whole of it.
void tell(const std::vector<exchange::Remark>& remarks, const QString& place, const QString& kind, QTextStream& err)
{
    for (const exchange::Remark& one : remarks) {
        const QString file = QFileInfo(place).isDir() ? QDir(place).filePath(one.file) : place;
        if (!one.file.isEmpty()) err << file << ':' << one.line << ": " << kind;
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

namespace {

int tellImported(const exchange::Exchanged& told, const Order& order, QTextStream& out, QTextStream& err)
{
    const QString source = order.files.first();
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
}

exchange::InOrder orderOf(const Order& order)
{
    return {.source = order.files.first(), .bdp = order.bdp, .options = order.in, .rehearse = order.rehearse};
}

int takeBack(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    jet::Connection bdp;
    openBdp(bdp, order.bdp, jet::Connection::Sharing::Alone);
    const auto last = exchange::lastImport(bdp);
    QStringList why = exchange::whyImportStays(bdp);
    if (why.isEmpty() && !order.rehearse) {
        const QString copy = copyBeforeTakingBack(bdp);
        out << "Cópia da BDP: " << copy << '\n';
        why = exchange::takeBackImport(bdp, [&](double) { return goesOn(); });
    }
    for (const QString& reason : why)
        err << reason << '\n';
    if (!why.isEmpty()) {
        err << "Nada foi desfeito.\n";
        return refused;
    }
    out << QString("Importação de %1 em %2: %3 pessoas, %4 famílias.\n")
               .arg(last->file, last->when.toString("dd/MM/yyyy HH:mm"))
               .arg(last->people)
               .arg(last->families);
    out << (order.rehearse ? "Ensaio: pode ser desfeita.\n" : "Foi desfeita.\n");
    return done;
}

} // namespace

int runImport(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    return ended(
        [&] {
            return tellImported(
                readIn(*exchange::wayIn(order.way), nullptr, orderOf(order), [&](double) { return goesOn(); }), order,
                out, err);
        },
        err);
}

int runImportGedcom(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    return ended(
        [&] {
            if (order.takeBack) return takeBack(order, out, err, goesOn);
            jet::Connection bdp;
            openBdp(bdp, order.bdp, jet::Connection::Sharing::Alone);
            return tellImported(
                readIn(*exchange::wayIn(order.way), &bdp, orderOf(order), [&](double) { return goesOn(); }), order, out,
                err);
        },
        err);
}

} // namespace study
