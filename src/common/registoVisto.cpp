#include "common/registoVisto.h"

#include "platform/forms/msgbox.h"

#include <algorithm>

namespace {

QHash<QString, QVariant> colunasDe(const jet::Recordset& linha)
{
    QHash<QString, QVariant> colunas;
    if (linha.absolutePosition() == 0) return colunas;
    for (int i = 0; i < linha.fieldCount(); ++i)
        colunas.insert(linha.fieldName(i).toLower(), linha[i]);
    return colunas;
}

} // namespace

void RegistoVisto::ve(const jet::Recordset& linha)
{
    colunas_ = colunasDe(linha);
}

bool RegistoVisto::podeGravar(jet::Recordset& linha, const QStringList& colunas) const
{
    QHash<QString, QVariant> agora;
    try {
        if (const int posicao = linha.absolutePosition()) linha.setAbsolutePosition(posicao); // so it is read again
        agora = colunasDe(linha);
    } catch (const jet::Error& erro) {
        if (erro.number != jet::number::noCurrentRow) throw;
    }
    if (agora.isEmpty() || colunas_.isEmpty()) return true;
    const QStringList asQueContam = colunas.isEmpty() ? colunas_.keys() : colunas;
    const bool intacta = std::ranges::all_of(asQueContam, [&](const QString& coluna) {
        return agora.value(coluna.toLower()) == colunas_.value(coluna.toLower());
    });
    return intacta || gravaPorCima();
}

bool gravaPorCima()
{
    return ask("O registo foi alterado noutro lado desde que foi mostrado. Deseja gravar por cima?");
}
