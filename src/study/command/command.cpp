#include "study/command/command.h"

#include "study/acts/register.h"
#include "study/command/bdp.h"
#include "study/command/check.h"
#include "study/command/exchange.h"
#include "study/command/figures.h"
#include "study/command/network.h"
#include "study/command/smam.h"
#include "study/command/studySettings.h"
#include "study/command/usage.h"
#include "study/transcripts/importSources.h"
#include "study/transcripts/kleio.h"
#include "study/transcripts/table.h"

#include <QJsonDocument>
#include <QSaveFile>
#include <QTextStream>

#include <algorithm>
#include <optional>

namespace study {

namespace {

struct File
{
    QString path;
    Transcript transcript;
    QStringList headers; // of a table
    Assignment assignment;
};

class Run
{
public:
    Run(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
        : order_(order), out_(out), err_(err), goesOn_(goesOn)
    {
    }

    int exportActs()
    {
        checkExportTarget(order_.files.first(), order_.bdp);
        jet::Connection bdp;
        openBdp(bdp, order_.bdp, jet::Connection::Sharing::Alone);
        QList<Act> acts;
        for (const ActLine& line : listActs(bdp)) {
            if (line.id == 0) continue;
            if (!goesOn_()) return interrupted();
            if (const auto record = readAct(bdp, line.id)) acts << record->act;
        }
        QSaveFile file(order_.files.first());
        if (!file.open(QIODevice::WriteOnly) || file.write(toKleio(acts, keptSources(bdp))) < 0 || !file.commit())
            throw jet::Error(
                jet::number::permissionDenied,
                QString("O ficheiro \"%1\" não pode ser escrito: a pasta não existe, não é sua ou está cheia.")
                    .arg(file.fileName()));
        out_ << QString("Actos exportados: %1.\n").arg(acts.size());
        return done;
    }

    int importFiles()
    {
        jet::Connection bdp;
        openBdp(bdp, order_.bdp, jet::Connection::Sharing::Alone);
        QList<File> files;
        bool areWhole = true;
        for (const QString& path : order_.files) {
            files << read(bdp, path);
            areWhole = tellProblems(files.last()) && areWhole;
        }
        if (!areWhole) {
            err_ << "Nada foi escrito.\n";
            return refused;
        }
        return order_.rehearse ? rehearse(bdp, files) : store(bdp, files);
    }

private:
    File read(jet::Connection& bdp, const QString& path) const
    {
        const QByteArray bytes = bytesOf(path);
        if (order_.work == Order::Work::ImportKleio) return {path, readKleio(bytes), {}, {}};
        const CellTable sheet = readSheet(bytes);
        File file{path, {}, sheet.headers, {}};
        file.transcript.problems = sheet.problems;
        if (file.transcript.isDamaged()) return file;
        file.assignment = assignmentOf(bdp, sheet.headers);
        if (const QString why = whyNotAssigned(sheet.headers, file.assignment); !why.isEmpty())
            file.transcript.problems << Problem{0, why, Problem::Severity::Error};
        else
            file.transcript = actsOf(sheet, file.assignment);
        return file;
    }

    Assignment assignmentOf(jet::Connection& bdp, const QStringList& headers) const
    {
        if (order_.columns.isEmpty()) {
            const std::optional<Assignment> kept = keptAssignment(bdp, headers);
            return kept ? *kept : proposed(headers);
        }
        const QJsonDocument json = QJsonDocument::fromJson(bytesOf(order_.columns));
        if (!json.isObject())
            throw jet::Error(jet::number::typeMismatch,
                             QString("O ficheiro \"%1\" não é de colunas, em JSON.").arg(order_.columns));
        return assignmentFromJson(json.object(), headers);
    }

    // False where the file is damaged.
    bool tellProblems(const File& file)
    {
        for (const Problem& problem : file.transcript.problems)
            err_ << file.path << ':' << problem.line << ": "
                 << (problem.severity == Problem::Severity::Error ? "" : "aviso: ") << problem.text << '\n';
        return !file.transcript.isDamaged();
    }

    ImportProgress progress() const
    {
        return [this](int, int) { return goesOn_(); };
    }

    int rehearse(const jet::Connection& bdp, const QList<File>& files)
    {
        Rehearsal rehearsal(bdp);
        for (const File& file : files) {
            const ImportReport report = rehearsal.play(file.transcript, order_.options, progress());
            if (report.cancelled) return interrupted();
            tell(file, report);
        }
        out_ << "Ensaio: nada foi escrito.\n";
        return end_;
    }

    int store(jet::Connection& bdp, const QList<File>& files)
    {
        const QString copy = copyBeforeImport(bdp);
        out_ << "Cópia da BDP: " << copy << '\n';
        for (const File& file : files) {
            const ImportReport report = importActs(bdp, file.transcript, order_.options, progress());
            if (report.cancelled) return interrupted();
            tell(file, report);
            if (!file.headers.isEmpty()) keepAssignment(bdp, file.headers, file.assignment);
        }
        return end_;
    }

    void tell(const File& file, const ImportReport& report)
    {
        out_ << file.path << '\n';
        for (const QString& line : report.lines())
            out_ << "  " << line << '\n';
        for (const LeftAct& one : report.alone)
            tellAct(file, one, "sem fichas: ");
        for (const LeftAct& one : report.left)
            tellAct(file, one, {});
        const bool wasThere =
            std::any_of(report.left.begin(), report.left.end(), [](const LeftAct& one) { return one.there; });
        if (report.storedActs() == 0 && !wasThere) end_ = nothingStored;
    }

    void tellAct(const File& file, const LeftAct& one, const QString& how)
    {
        err_ << file.path << ':' << one.line << ": " << how << one.act << ": " << one.reasons.join(' ') << '\n';
    }

    int interrupted()
    {
        err_ << "Interrompido. Do ficheiro em curso nada foi escrito.\n";
        return refused;
    }

    const Order& order_;
    int end_ = done;
    QTextStream& out_;
    QTextStream& err_;
    const std::function<bool()>& goesOn_;
};

bool isOfFigures(Order::Work work)
{
    using enum Order::Work;
    return work == Count || work == Join || work == Report || work == Tables;
}

} // namespace

int runCommand(const QStringList& arguments, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    Order order;
    if (const QString why = readArguments(arguments, order); !why.isEmpty()) {
        err << why << "\n\n" << helpText();
        return wrongUsage;
    }
    if (order.work == Order::Work::Help) {
        out << helpText();
        return done;
    }
    if (order.work == Order::Work::Check) return runCheck(order, out, err, goesOn);
    if (order.work == Order::Work::Smam) return runSmam(order, out, err, goesOn);
    if (isOfFigures(order.work)) return runFigures(order, out, err, goesOn);
    if (order.work == Order::Work::Network) return runNetwork(order, out, err, goesOn);
    if (order.work == Order::Work::ImportGedcom) return runImportGedcom(order, out, err, goesOn);
    if (order.work == Order::Work::Settings) return runSettings(order, out, err);
    if (order.work == Order::Work::Export) return runExport(order, out, err, goesOn);
    if (order.work == Order::Work::Import) return runImport(order, out, err, goesOn);
    if (order.work == Order::Work::Baptisms) return runBaptisms(order, out, err, goesOn);
    try {
        Run run(order, out, err, goesOn);
        return order.work == Order::Work::ExportKleio ? run.exportActs() : run.importFiles();
    } catch (const std::exception& error) {
        err << QString::fromUtf8(error.what()) << '\n';
        return refused;
    }
}

bool needsWindows(const QStringList& arguments)
{
    Order order;
    return readArguments(arguments, order).isEmpty() && order.work == Order::Work::Report;
}

} // namespace study
