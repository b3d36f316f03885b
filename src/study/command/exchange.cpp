#include "study/command/exchange.h"

#include "study/command/bdp.h"
#include "study/command/command.h"
#include "study/command/readParish.h"
#include "study/indicators/baptismDays.h"
#include "study/indicators/settingsJson.h"

#include <CLI/App.hpp>

#include <QTextStream>

#include <memory>

namespace study {

const char* const exchangeUsage =
    "  orv-estudo exportar gedcom PAROQUIA.orv ALVO.ged [--versao 5.5.1|7.0] [--limite ANOS]\n";

const char* const exchangeHelp =
    R"(Exportar gedcom escreve as pessoas e as famílias para os programas de genealogia. A BDP não é alterada; o
programa pode tê-la aberta.
  --versao             5.5.1, que quase todos lêem, se nada for dito; ou 7.0, que diz mais
  --limite             quem pode estar vivo não vai: nascido há menos de ANOS (110, se nada for dito) e sem
                       óbito; 0 leva todos
)";

namespace {

QString text(const std::string& told)
{
    return QString::fromStdString(told);
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

void run(const ExchangeOrder& order, QTextStream& out, const std::function<bool()>& goesOn)
{
    jet::Connection bdp;
    openBdpToRead(bdp, order.bdp);
    exchange::GedcomOptions options{.version = order.version, .limitYears = order.limitYears};
    options.today = QDate::currentDate();
    options.programVersion = programName().section(' ', -1);
    options.days = daysOf(bdp);
    const exchange::GedcomCounts counts = exportGedcom(bdp, order.target, options, [&](double) { return goesOn(); });
    out << QString("Pessoas: %1; famílias: %2.\n").arg(counts.people).arg(counts.families);
    if (counts.withheldPeople > 0)
        out << QString("Podem estar vivas e não foram: %1 pessoas.\n").arg(counts.withheldPeople);
    if (counts.lostLinks > 0)
        out << QString("Ligações a quem não está na BDP, que não foram: %1.\n").arg(counts.lostLinks);
    if (counts.shortened > 0)
        out << QString("Textos longos de mais, que estão por inteiro nas notas: %1.\n").arg(counts.shortened);
}

} // namespace

ExchangeArguments::ExchangeArguments(CLI::App& exported) : gedcom_(exported.add_subcommand("gedcom"))
{
    gedcom_->set_help_flag();
    gedcom_->add_option("bdp", bdp_)->required();
    gedcom_->add_option("alvo", target_)->required();
    gedcom_->add_option("--versao", version_);
    gedcom_->add_option("--limite", limit_);
}

bool ExchangeArguments::isAsked() const
{
    return gedcom_->parsed();
}

QString ExchangeArguments::take(ExchangeOrder& order) const
{
    static constexpr int mostYears = 1000;
    order.bdp = text(bdp_);
    order.target = text(target_);
    if (version_ == "7.0")
        order.version = exchange::GedcomVersion::V70;
    else if (!version_.empty() && version_ != "5.5.1")
        return "A versão é 5.5.1 ou 7.0, e não \"" + text(version_) + "\".";
    if (limit_.empty()) return {};
    bool isNumber = false;
    order.limitYears = text(limit_).toInt(&isNumber);
    if (isNumber && order.limitYears >= 0 && order.limitYears <= mostYears) return {};
    return "O limite é um número de anos, e não \"" + text(limit_) + "\".";
}

int runExchange(const ExchangeOrder& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn)
{
    try {
        run(order, out, goesOn);
        return done;
    } catch (const exchange::Interrupted&) {
        err << "Interrompido. Nada foi escrito.\n";
    } catch (const std::exception& error) {
        err << QString::fromUtf8(error.what()) << '\n';
    }
    return refused;
}

} // namespace study
