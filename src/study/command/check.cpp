#include "study/command/check.h"

#include "study/checks/check.h"
#include "study/checks/listing.h"
#include "study/checks/seen.h"
#include "study/checks/settings.h"
#include "study/command/bdp.h"
#include "study/command/command.h"

#include <QTextStream>

#include <vector>

namespace study {

namespace {

std::vector<checks::Case> casesOf(const Order& order, const std::function<bool()>& goesOn)
{
    const auto ask = [&](double) { return goesOn(); };
    jet::Connection bdp;
    openBdpToRead(bdp, order.bdp);
    const checks::Settings settings = checks::keptSettings(bdp);
    const checks::Aside isAside(order.withSeen ? std::vector<checks::Seen>() : checks::seenCases(bdp));
    const parish::Snapshot parish = parish::Snapshot::read(bdp, ask);
    bdp.close(); // nobody who writes waits for the rules
    if (!goesOn()) throw parish::Snapshot::Interrupted{};
    std::vector<checks::Case> cases = gravest(checks::Check::run(parish, settings, ask), order.least);
    std::erase_if(cases, isAside);
    return cases;
}

void tell(const std::vector<checks::Case>& cases, Order::Format format, QTextStream& out)
{
    switch (format) {
    case Order::Format::Csv:
        out << QString::fromUtf8(toCsv(cases)).prepend(QChar(QChar::ByteOrderMark));
        return;
    case Order::Format::Json:
        out << QString::fromUtf8(toJson(cases));
        return;
    case Order::Format::Text:
        break;
    }
    for (const checks::Case& one : cases)
        out << one.rule << ' ' << inWords(one.severity) << ": " << one.text << '\n';
    out << "Total: " << countText(cases) << ".\n";
}

} // namespace

int runCheck(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    try {
        const std::vector<checks::Case> cases = casesOf(order, goesOn);
        tell(cases, order.format, out);
        out.flush();
        if (out.status() == QTextStream::Ok) return cases.empty() ? nothingFound : somethingFound;
        err << "Não foi possível escrever o que se encontrou.\n";
    } catch (const parish::Snapshot::Interrupted&) {
        err << "Interrompido.\n";
    } catch (const std::exception& error) {
        err << QString::fromUtf8(error.what()) << '\n';
    }
    return notChecked;
}

} // namespace study
