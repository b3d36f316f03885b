#include "study/command/exchange.h"

#include "platform/jet/rows.h"
#include "study/command/bdp.h"
#include "study/command/command.h"
#include "study/command/readParish.h"
#include "study/exchange/gedcomIn.h"
#include "study/exchange/tables.h"
#include "study/indicators/baptismDays.h"
#include "study/indicators/settingsJson.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <memory>

namespace study {

namespace {

using exchange::TableProblem;

// The mark of the file is taken while the look holds its state. The file is closed behind the connection: closing it
// gives up the locks of the process.
exchange::TablesWritten written(const Order& order, const std::function<bool()>& goesOn)
{
    QFile file(QFileInfo(order.bdp).absoluteFilePath());
    const bool isOpen = file.open(QIODevice::ReadOnly);
    jet::Connection bdp;
    openBdpToRead(bdp, order.bdp);
    const jet::OneLook look(bdp);
    {
        jet::Rows first(bdp, jet::NativeSql("select count(*) from infopar")); // takes the lock
        first.next();
    }
    exchange::TablesOptions options{.program = programName(), .goesOn = [&](double) { return goesOn(); }};
    if (order.spreadsheet) options.dialect = exchange::Dialect::Spreadsheet;
    if (order.emptyOrphans) options.orphans = exchange::Orphans::Emptied;
    if (isOpen) options.source = parish::sourceOf(file);
    // The same BDP gives the same files, wherever it lies and whenever it is read.
    options.source.path = QFileInfo(order.bdp).fileName();
    options.source.readAt = {};
    makeFolder(order.output);
    return exportTables(bdp, order.output, options);
}

void tell(const std::vector<exchange::TableCount>& tables, QTextStream& out)
{
    for (const exchange::TableCount& table : tables)
        out << QString("%1: %2\n").arg(table.name).arg(table.rows);
}

void tell(const std::vector<TableProblem>& problems, const QString& folder, const QString& kind, QTextStream& err)
{
    for (const TableProblem& one : problems)
        err << QDir(folder).filePath(one.file) << ':' << one.line << ": " << kind << one.text << '\n';
}

// By what the notes of the cards and the list of the study tell, where the BDP has words for it.
std::function<std::optional<exchange::KnownDays>(parish::PersonNumber, const parish::Date&, const QString&)>
daysOf(const jet::Connection& bdp)
{
    const auto settings = std::make_shared<const indicators::Settings>(indicators::keptSettings(bdp));
    const auto reader = std::make_shared<const indicators::BaptismReader>(*settings);
    return [settings, reader](parish::PersonNumber number, const parish::Date& card,
                              const QString& notes) -> std::optional<exchange::KnownDays> {
        parish::Person child;
        child.number = number;
        child.birth = card;
        const indicators::BaptismTold told = reader->read(child, notes);
        if (!told.isTold()) return {};
        return exchange::KnownDays{told.days.birth, told.days.baptism};
    };
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

int runExportGedcom(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    return ended(
        [&] {
            jet::Connection bdp;
            openBdpToRead(bdp, order.bdp);
            exchange::GedcomOptions options{.version = order.version, .limitYears = order.limitYears};
            options.today = QDate::currentDate();
            options.programVersion = programName().section(' ', -1);
            options.days = daysOf(bdp);
            const exchange::GedcomCounts counts =
                exportGedcom(bdp, order.output, options, [&](double) { return goesOn(); });
            out << QString("Pessoas: %1; famílias: %2.\n").arg(counts.people).arg(counts.families);
            if (counts.withheldPeople > 0)
                out << QString("Podem estar vivas e não foram: %1 pessoas.\n").arg(counts.withheldPeople);
            if (counts.lostLinks > 0)
                out << QString("Ligações a quem não está na BDP, que não foram: %1.\n").arg(counts.lostLinks);
            if (counts.shortened > 0)
                out << QString("Textos longos de mais, que estão por inteiro nas notas: %1.\n").arg(counts.shortened);
            return done;
        },
        err);
}

namespace {

int takeBack(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    jet::Connection bdp;
    openBdp(bdp, order.bdp, jet::Connection::Sharing::Alone);
    const auto last = exchange::lastImport(bdp);
    const QStringList why = order.rehearse || !last ? exchange::whyImportStays(bdp)
                                                    : exchange::takeBackImport(bdp, [&](double) { return goesOn(); });
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

int runImportGedcom(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    return ended(
        [&] {
            if (order.takeBack) return takeBack(order, out, err, goesOn);
            jet::Connection bdp;
            openBdp(bdp, order.bdp, jet::Connection::Sharing::Alone);
            const exchange::GedcomImportOptions options{.newPlaces = !order.noPlaces,
                                                        .newProfessions = !order.noProfessions};
            const QString file = order.files.first();
            const auto ask = [&](double) { return goesOn(); };
            const exchange::GedcomReport report = order.rehearse ? exchange::rehearseGedcom(bdp, file, options, ask)
                                                                 : exchange::importGedcom(bdp, file, options, ask);
            for (const exchange::GedcomProblem& one : report.problems)
                err << file << ':' << one.line << ": aviso: " << one.text << '\n';
            if (!report.copy.isEmpty()) out << "Cópia da BDP: " << report.copy << '\n';
            for (const QString& line : report.lines())
                out << line << '\n';
            if (order.rehearse) out << "Ensaio: nada foi escrito.\n";
            return done;
        },
        err);
}

int runExportTables(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    return ended(
        [&] {
            const exchange::TablesWritten all = written(order, goesOn);
            tell(all.tables, out);
            if (all.apart > 0) out << QString("Células em problemas.csv: %1.\n").arg(all.apart);
            if (all.emptied > 0)
                out << QString("Números que não levam a nenhum registo e ficaram vazios: %1.\n").arg(all.emptied);
            for (const QString& other : all.leftOut)
                err << "Ficou de fora, por ser de outro programa: " << other << '\n';
            return done;
        },
        err);
}

int runImportTables(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    return ended(
        [&] {
            const QString folder = order.files.first();
            const exchange::TablesRead all =
                exchange::importTables(folder, order.bdp, order.rehearse, [&](double) { return goesOn(); });
            tell(all.warnings, folder, "aviso: ", err);
            tell(all.errors, folder, {}, err);
            if (!all.errors.empty()) {
                err << "Nada foi escrito.\n";
                return refused;
            }
            tell(all.tables, out);
            if (all.referenceData) out << "Locais, códigos e profissões: os do programa.\n";
            if (order.rehearse) out << "Ensaio: nada foi escrito.\n";
            return done;
        },
        err);
}

} // namespace study
