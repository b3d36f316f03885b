#include "kit/table.h"

#include <QStringList>

#include <functional>

namespace bench {

namespace {

// As many digits as say something.
QString figure(double value)
{
    if (value >= 99.5) return QString::number(value, 'f', 0);
    if (value >= 9.95) return QString::number(value, 'f', 1);
    if (value >= 0.0995) return QString::number(value, 'f', 2);
    return QString::number(value, 'f', 4);
}

QString ofAll(const Results& results, const std::function<double(const AtSize&)>& value)
{
    QStringList figures;
    for (const auto& [people, at] : results)
        figures << figure(value(at));
    return figures.join(QStringLiteral(" / "));
}

QString line(const QStringList& cells)
{
    return "| " + cells.join(QStringLiteral(" | ")) + " |\n";
}

} // namespace

QString heading()
{
    const QStringList titles{"Event",       "Program, ms",  "Bare, ms", "×",    "× without painting",
                             "× processor", "Own time, ms", "Exponent", "Goal", "Verdict"};
    return line(titles) + "|" + QString("---|").repeated(titles.size()) + "\n";
}

QString row(const QString& event, const Goal& goal, const Results& results)
{
    const QStringList why = missed(goal, results);
    return line({event, ofAll(results, [](const AtSize& at) { return at.ours.painted.wall; }),
                 ofAll(results, [](const AtSize& at) { return at.bare.painted.wall; }),
                 ofAll(results, ratioWithPainting), ofAll(results, ratioWithoutPainting),
                 ofAll(results, ratioOfProcessor), ofAll(results, ownTime),
                 results.size() > 1 ? QString::number(exponentOf(results), 'f', 2) : QStringLiteral("–"), inWords(goal),
                 why.isEmpty() ? QStringLiteral("ok") : "missed: " + why.join(QStringLiteral("; "))});
}

QString details(const QString& event, const Results& results)
{
    QString text;
    const auto side = [](const Side& of) {
        return QStringLiteral("%1 statements, %2 rows read, %3 written, %4 thousand pixels, %5 ms without painting")
            .arg(of.traffic.statements)
            .arg(of.traffic.rows)
            .arg(of.traffic.changes)
            .arg(of.traffic.painted, 0, 'f', 0)
            .arg(figure(of.event.wall));
    };
    for (const auto& [people, at] : results)
        text += QStringLiteral("%1, %2 people: %3; bare %4; %5 kB kept a turn, last turns %6 × the first\n")
                    .arg(event)
                    .arg(people)
                    .arg(side(at.ours), side(at.bare), figure(at.keptKb), figure(at.drift));
    return text;
}

} // namespace bench
