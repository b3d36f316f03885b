#include "store/session.h"

#include <QCoreApplication>

// Those of CriarTab.dat and what the study of a parish adds.
static jet::OwnTables tabelasDaBDP()
{
    return {
        {"pais",       "zonapais",   "distrito",         "concelho",   "paroquia",        "lugar",        "sitio",
         "infopar",    "categoria",  "infocomplementar", "profissao",  "individuo",       "familia",      "familias",
         "assistente", "residencia", "profissoes",       "assinatura", "legadosprofanos", "rituaismorte", "passaporte"},
        "estudo_"};
}

jet::Connection cnBDP(tabelasDaBDP());
QString StrLigacao;
QString CodParoquia;
QString CodPais;
QString OperacaoBDP;

namespace {
bool ending = false;
std::function<void(bool)> enableMenus;
} // namespace

QString connectionString(const QString& path)
{
    return "Provider=Microsoft.Jet.OLEDB.4.0; Persist Security Info=False; Data Source= " + path;
}

void setSessionMenus(bool enabled)
{
    if (enableMenus) enableMenus(enabled);
}

void onSessionMenus(std::function<void(bool enabled)> enable)
{
    enableMenus = std::move(enable);
}

QString requiredText(const QVariant& value)
{
    if (value.isNull()) throw jet::Error{jet::number::invalidNull, "Utilização inválida de um valor nulo."};
    return value.toString();
}

void endProgram(int status)
{
    ending = true;
    cnBDP.close();
    QCoreApplication::exit(status);
}

bool programEnding()
{
    return ending;
}
