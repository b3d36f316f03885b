#include "study/command/studySettings.h"

#include "study/command/bdp.h"
#include "study/command/command.h"
#include "study/command/readParish.h"
#include "study/indicators/baptismDays.h"
#include "study/indicators/settingsJson.h"
#include "study/transcripts/table.h"

#include <QTextStream>

#include <algorithm>
#include <array>
#include <map>

namespace study {

namespace {

using indicators::BaptismTold;
using Baptisms = std::map<parish::PersonNumber, indicators::BaptismDays>;

// In the order of the columns of a list.
constexpr std::array<const char*, 3> headers = {"nind", "data_nascimento", "data_baptismo"};

template <class Work>
int guarded(QTextStream& err, const Work& work)
{
    try {
        work();
        return counted;
    } catch (const parish::Snapshot::Interrupted&) {
        err << "Interrompido. Nada foi escrito.\n";
    } catch (const std::exception& error) {
        err << QString::fromUtf8(error.what()) << '\n';
    }
    return notCounted;
}

QDate dayIn(const QString& text)
{
    for (const char* form : {"yyyy-MM-dd", "d/M/yyyy", "d-M-yyyy", "d.M.yyyy"})
        if (const QDate day = QDate::fromString(text.trimmed(), QString(form)); day.isValid()) return day;
    return {};
}

std::array<qsizetype, 3> columnsOf(const CellTable& sheet, const QString& path)
{
    std::array<qsizetype, 3> columns = {};
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto isIt = [i](const QString& header) {
            return header.trimmed().compare(QString(headers[i]), Qt::CaseInsensitive) == 0;
        };
        columns[i] = std::find_if(sheet.headers.begin(), sheet.headers.end(), isIt) - sheet.headers.begin();
        if (columns[i] == sheet.headers.size())
            throw jet::Error(jet::number::typeMismatch,
                             QString("%1:1: falta a coluna \"%2\".").arg(path, QString(headers[i])));
    }
    return columns;
}

// Throws where a line can't be taken, with its number: a list is taken whole or not at all.
Baptisms listIn(const QString& path, const parish::Snapshot& parish)
{
    const CellTable sheet = readSheet(bytesOf(path));
    const auto refuse = [&path](int line, const QString& why) {
        throw jet::Error(jet::number::typeMismatch, QString("%1:%2: %3").arg(path).arg(line).arg(why));
    };
    for (const Problem& problem : sheet.problems)
        if (problem.severity == Problem::Severity::Error) refuse(problem.line, problem.text);
    const auto columns = columnsOf(sheet, path);
    Baptisms baptisms;
    for (qsizetype i = 0; i < sheet.rows.size(); ++i) {
        const QStringList& row = sheet.rows[i];
        const int line = sheet.lines[i];
        bool isNumber = false;
        const auto child = parish::PersonNumber(row[columns[0]].trimmed().toLongLong(&isNumber));
        if (!isNumber || !parish.person(child))
            refuse(line, QString("\"%1\" não é o número de ninguém da BDP.").arg(row[columns[0]]));
        const indicators::BaptismDays days{dayIn(row[columns[1]]), dayIn(row[columns[2]])};
        if (!days.birth.isValid() || !days.baptism.isValid())
            refuse(line, "As datas escrevem-se como 1750-03-01 ou 1/3/1750.");
        if (!baptisms.emplace(child, days).second)
            refuse(line, QString("A criança %1 está na lista duas vezes.").arg(parish::shown(child)));
    }
    return baptisms;
}

QString told(const parish::Person& child, const BaptismTold& read, const QString& notes)
{
    const QString head = QString("%1 %2: ").arg(parish::shown(child.number), child.name);
    const QString quoted = QString(" Notas: \"%1\"").arg(notes.simplified());
    if (read.by == BaptismTold::By::Unread) return head + "as palavras estão lá, mas nenhum dia depois delas." + quoted;
    if (read.by == BaptismTold::By::Approximate) return head + "a data da ficha é aproximada." + quoted;
    const QString days =
        QString("nascimento %1, baptismo %2, %3 dias.")
            .arg(read.days.birth.toString("dd/MM/yyyy"), read.days.baptism.toString("dd/MM/yyyy"))
            .arg(parish::daysBetween(parish::dateOf(read.days.birth, true), parish::dateOf(read.days.baptism, true)));
    return head + days + (read.by == BaptismTold::By::List ? QString(" Lista.") : quoted);
}

void tellAll(const parish::Snapshot& parish, const indicators::Settings& settings, QTextStream& out)
{
    const indicators::BaptismReader reader(settings);
    std::map<BaptismTold::By, int> numbers;
    for (const parish::Person& child : parish.people()) {
        const QString notes = parish.notesOf(child.number);
        const BaptismTold read = reader.read(child, notes);
        ++numbers[read.by];
        if (read.by != BaptismTold::By::Nothing) out << told(child, read, notes) << '\n';
    }
    out << QString("Da lista: %1; das notas: %2; notas sem um dia que se leia: %3; com data da ficha aproximada: %4.\n")
               .arg(numbers[BaptismTold::By::List])
               .arg(numbers[BaptismTold::By::Notes])
               .arg(numbers[BaptismTold::By::Unread])
               .arg(numbers[BaptismTold::By::Approximate]);
}

} // namespace

int runSettings(const Order& order, QTextStream& out, QTextStream& err)
{
    return guarded(err, [&] {
        jet::Connection bdp;
        if (order.settings.isEmpty()) {
            openBdpToRead(bdp, order.bdp);
            out << QString::fromUtf8(jsonOf(indicators::keptSettings(bdp))) << '\n';
            return;
        }
        const indicators::Settings settings = indicators::settingsFrom(bytesOf(order.settings));
        openBdp(bdp, order.bdp, jet::Connection::Sharing::Alone);
        keepSettings(bdp, settings);
        out << "As definições foram guardadas na BDP.\n";
    });
}

int runBaptisms(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    return guarded(err, [&] {
        ReadParish read = readParish(order.bdp, [&](double) { return goesOn(); });
        indicators::Settings& settings = read.settings;
        if (order.birthWords) settings.birthWords = *order.birthWords;
        if (order.baptismWords) settings.baptismWords = *order.baptismWords;
        if (!order.list.isEmpty()) settings.baptisms = listIn(order.list, read.parish);
        tellAll(read.parish, settings, out);
        if (!order.keep) {
            out << "Nada foi guardado.\n";
            return;
        }
        if (!goesOn()) throw parish::Snapshot::Interrupted{};
        jet::Connection bdp;
        openBdp(bdp, order.bdp, jet::Connection::Sharing::Alone);
        indicators::Settings kept = indicators::keptSettings(bdp); // as they stand by now
        kept.birthWords = settings.birthWords;
        kept.baptismWords = settings.baptismWords;
        kept.baptisms = settings.baptisms;
        keepSettings(bdp, kept);
        out << "Guardado nas definições da BDP.\n";
    });
}

} // namespace study
