#include "study/windows/transcription.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace study {

namespace {

constexpr qsizetype linesShown = 200;

QString counted(qsizetype number, const char* one, const char* several)
{
    return QString::number(number) + ' ' + QString::fromUtf8(number == 1 ? one : several);
}

qsizetype refusedOf(const ImportReport& report)
{
    return std::ranges::count_if(report.left, [](const LeftAct& act) { return !act.there; });
}

bool isDamaged(const FileOutcome& outcome)
{
    return std::ranges::any_of(outcome.problems,
                               [](const Problem& each) { return each.severity == Problem::Severity::Error; });
}

QStringList actLines(const QString& title, const QList<LeftAct>& acts)
{
    QStringList lines;
    lines.reserve(std::min(acts.size(), linesShown) + 2);
    for (const LeftAct& act : acts.first(std::min(acts.size(), linesShown)))
        lines << QString("linha %1, %2: %3").arg(QString::number(act.line), act.act, act.reasons.join(' '));
    if (acts.size() > linesShown) lines << "e mais " + QString::number(acts.size() - linesShown);
    if (!lines.isEmpty()) lines.prepend(title);
    return lines;
}

QStringList leftLines(const ImportReport& report)
{
    QList<LeftAct> refused = report.left;
    refused.removeIf([](const LeftAct& act) { return act.there; });
    return actLines("Gravados sem fichas:", report.alone) + actLines("Por gravar:", refused);
}

QStringList linesOf(const FileOutcome& outcome)
{
    QStringList lines{QDir::toNativeSeparators(outcome.path)};
    if (!outcome.failure.isEmpty())
        lines << "Nada foi escrito deste ficheiro. " + outcome.failure;
    else if (isDamaged(outcome))
        lines << "O ficheiro tem erros: nada dele é escrito.";
    else if (outcome.report && outcome.report->cancelled)
        lines << "Cancelado: nada foi escrito deste ficheiro.";
    else if (outcome.report)
        lines << outcome.report->lines() << leftLines(*outcome.report);
    const QStringList problems = problemLines(outcome.problems, linesShown);
    if (!problems.isEmpty()) lines << "A ver no ficheiro:" << problems;
    return lines;
}

} // namespace

bool isTable(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == "csv" || suffix == "tsv";
}

QString previewOf(const CellTable& sheet, qsizetype column)
{
    constexpr qsizetype wanted = 3, rowsAsked = 200;
    QStringList values;
    for (qsizetype row = 0; row < std::min(sheet.rows.size(), rowsAsked) && values.size() < wanted; ++row) {
        const QString value = sheet.rows[row].value(column).simplified();
        if (!value.isEmpty() && !values.contains(value)) values << value;
    }
    return values.join(", ");
}

QString titleOfField(const QString& id)
{
    const auto found = std::ranges::find(tableFields(), id, &TableField::id);
    return id.isEmpty() || found == tableFields().end() ? QString() : found->title;
}

QStringList problemLines(const QList<Problem>& problems, qsizetype most)
{
    QList<Problem> sorted = problems;
    std::ranges::stable_sort(sorted, {}, [](const Problem& each) { return each.severity != Problem::Severity::Error; });
    QStringList lines;
    lines.reserve(std::min(sorted.size(), most) + 1);
    for (const Problem& each : sorted.first(std::min(sorted.size(), most)))
        lines << (each.line > 0 ? QString("linha %1: %2").arg(QString::number(each.line), each.text) : each.text);
    if (sorted.size() > most) lines << "e mais " + QString::number(sorted.size() - most);
    return lines;
}

QString summaryOf(const QList<FileOutcome>& outcomes, Occasion occasion)
{
    qsizetype stored = 0, alone = 0, refused = 0, there = 0, useless = 0;
    for (const FileOutcome& outcome : outcomes) {
        const bool done = outcome.report && !outcome.report->cancelled && outcome.failure.isEmpty();
        if (!done) {
            ++useless;
            continue;
        }
        stored += outcome.report->storedActs();
        alone += outcome.report->alone.size();
        const qsizetype refusedHere = refusedOf(*outcome.report);
        refused += refusedHere;
        there += outcome.report->left.size() - refusedHere;
    }
    const bool rehearsal = occasion == Occasion::Rehearsal;
    QString text = rehearsal ? "Ensaio: " + counted(stored, "acto seria gravado", "actos seriam gravados")
                             : counted(stored, "acto gravado", "actos gravados");
    if (alone > 0) text += " (" + QString::number(alone) + " sem fichas)";
    if (refused > 0) text += ", " + QString::number(refused) + " não";
    if (there > 0) text += "; " + counted(there, "já lá estava", "já lá estavam");
    if (useless > 0) text += "; " + counted(useless, "ficheiro posto de lado", "ficheiros postos de lado");
    return text + '.';
}

QString reportOn(const QList<FileOutcome>& outcomes, Occasion occasion, const QString& copy)
{
    QStringList lines{summaryOf(outcomes, occasion)};
    if (occasion == Occasion::Rehearsal) lines << "A BDP não foi alterada.";
    if (!copy.isEmpty()) lines << "A BDP tal como estava antes: " + QDir::toNativeSeparators(copy);
    for (const FileOutcome& outcome : outcomes)
        lines << QString() << linesOf(outcome);
    return lines.join("\r\n");
}

} // namespace study
