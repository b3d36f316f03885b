#include "common/datas.h"

#include "common/linhaDeEstado.h"
#include "common/modGeral.h"
#include "platform/forms/controls.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "platform/jet/date.h"
#include "platform/jet/dialect.h"

#include <cmath>

namespace {

// The first date known decides, in this order; the others aren't looked at.
// Kept: birth and death test one side of the span of a life, bounds included; the observation tests both, bounds
// excluded.
bool podeEstarPresente(const jet::Recordset& individuo, const QDate& acto)
{
    const int antes = acto.year() - 100;
    const int depois = acto.year() + 90;
    const auto data = [&](const char* campo) { return individuo[campo].toDate(); };

    if (const QDate nasc = data("datanasc"); nasc.isValid()) return nasc <= acto && nasc.year() >= antes;
    if (const QDate inicio = data("inicioobs"); inicio.isValid())
        return antes < inicio.year() && inicio.year() < depois;
    if (const QDate obito = data("dataobito"); obito.isValid()) return obito >= acto && obito.year() <= depois;
    if (const QDate fim = data("fimobs"); fim.isValid()) return antes < fim.year() && fim.year() < depois;
    return true;
}

} // namespace

bool eData(const QString& texto)
{
    return jet::readDate(texto).has_value();
}

QDate dataDoTexto(const QString& texto)
{
    if (const auto data = jet::readDate(texto)) return *data;
    throw jet::Error{jet::number::typeMismatch, QString("\"%1\" não é uma data (dd/mm/aaaa).").arg(texto)};
}

QString textoDaData(const QVariant& data)
{
    return data.toDate().toString("dd/MM/yyyy");
}

bool semData(const QString& texto)
{
    return texto.isEmpty() || texto == QLatin1String(emptyMaskedDate);
}

QString literalDaData(const QString& texto)
{
    return dataDoTexto(texto).toString("'#'MM/dd/yyyy'#'");
}

QString diaDoLiteral(const QString& texto)
{
    static const char* const meses[] = {"Janeiro", "Fevereiro", "Março",    "Abril",   "Maio",     "Junho",
                                        "Julho",   "Agosto",    "Setembro", "Outubro", "Novembro", "Dezembro"};
    const auto dia = jet::readDateLiteral(texto);
    if (!dia) return {};
    return QString("%1 de %2 de %3").arg(dia->day()).arg(meses[dia->month() - 1]).arg(dia->year());
}

bool VerificaData(MaskedEdit& campo)
{
    contaAnoImprovavel(&campo);
    if (semData(campo.text()) || eData(campo.text())) return true;
    showMessage(dataInvalida);
    campo.clearMasked();
    Focus::setTo(&campo);
    return false;
}

int CalculaIdade(const QDate& primeira, const QDate& segunda)
{
    return static_cast<int>(std::nearbyint(static_cast<double>(primeira.daysTo(segunda)) / 365.0));
}

bool DentroObservacao(Nind nind, const QString& dataActo)
{
    bool dentro = true;
    evenIfItFails([&] {
        const jet::Recordset individuo(
            cnBDP, jet::NativeSql("select datanasc, dataobito, inicioobs, fimobs from individuo where nind = ? limit 1",
                                  {nind.paraColuna()}));
        if (!individuo.eof()) dentro = podeEstarPresente(individuo, dataDoTexto(dataActo));
    });
    return dentro;
}
