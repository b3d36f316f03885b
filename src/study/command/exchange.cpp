#include "study/command/exchange.h"

#include "platform/jet/rows.h"
#include "study/command/bdp.h"
#include "study/command/command.h"
#include "study/command/readParish.h"
#include "study/exchange/episodes.h"
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

// A BDP that stays in one state as long as this lives, and the mark of its file in that state. The file is closed
// behind the connection: closing it gives up the locks of the process.
class OneState
{
public:
    explicit OneState(const QString& path) : file_(QFileInfo(path).absoluteFilePath())
    {
        const bool isOpen = file_.open(QIODevice::ReadOnly);
        openBdpToRead(bdp_, path);
        look_ = std::make_unique<const jet::OneLook>(bdp_);
        {
            jet::Rows first(bdp_, jet::NativeSql("select count(*) from infopar")); // takes the lock
            first.next();
        }
        if (isOpen) source_ = parish::sourceOf(file_);
        // The same BDP gives the same files, wherever it lies and whenever it is read.
        source_.path = QFileInfo(path).fileName();
        source_.readAt = {};
    }

    const jet::Connection& bdp() const { return bdp_; }
    const parish::Source& source() const { return source_; }

private:
    QFile file_;
    jet::Connection bdp_;
    std::unique_ptr<const jet::OneLook> look_;
    parish::Source source_ = {};
};

exchange::TablesWritten written(const Order& order, const std::function<bool()>& goesOn)
{
    const OneState state(order.bdp);
    exchange::TablesOptions options{.program = programName(), .goesOn = [&](double) { return goesOn(); }};
    if (order.spreadsheet) options.dialect = exchange::Dialect::Spreadsheet;
    if (order.emptyOrphans) options.orphans = exchange::Orphans::Emptied;
    options.source = state.source();
    makeFolder(order.output);
    return exportTables(state.bdp(), order.output, options);
}

exchange::EpisodesWritten episodesWritten(const Order& order, const std::function<bool()>& goesOn)
{
    const OneState state(order.bdp);
    makeFolder(order.output);
    return exchange::exportEpisodes(state.bdp(), order.output,
                                    {.limitYears = order.limitYears,
                                     .today = QDate::currentDate(),
                                     .program = programName(),
                                     .source = state.source(),
                                     .goesOn = [&](double) { return goesOn(); }});
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

int runExportEpisodes(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    return ended(
        [&] {
            const exchange::EpisodesWritten all = episodesWritten(order, goesOn);
            tell(all.files, out);
            if (all.withheldPeople > 0)
                out << QString("Podem estar vivas e não foram: %1 pessoas.\n").arg(all.withheldPeople);
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
