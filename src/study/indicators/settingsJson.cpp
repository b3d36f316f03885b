#include "study/indicators/settingsJson.h"

#include "platform/jet/rows.h"
#include "platform/jet/transaction.h"
#include "study/indicators/ownTables.h"
#include "study/indicators/settingEntries.h"

#include <QHash>

namespace study::indicators {

namespace {

using nlohmann::json;

// Whether the BDP has the table of the settings. Throws where something else stands under its name.
bool hasTable(const jet::Connection& bdp)
{
    QString type;
    {
        jet::Rows entry(bdp, jet::NativeSql("select type from sqlite_master where lower(name) = 'estudo_ajuste' and "
                                            "type <> 'index'"));
        if (!entry.next()) return false;
        type = entry.text(0);
    }
    jet::Rows columns(bdp, jet::NativeSql("select count(*) from pragma_table_info('estudo_ajuste') where lower(name) "
                                          "in ('chave', 'valor')"));
    columns.next();
    if (type == "table" && columns.number(0) == 2) return true;
    throw jet::Error{jet::number::invalidStatement,
                     "A tabela \"estudo_ajuste\" desta BDP não é a dos ajustes do estudo: foi feita por outro "
                     "programa. Nada foi alterado."};
}

json parsed(const QByteArray& text)
{
    return json::parse(text.begin(), text.end(), nullptr, false);
}

} // namespace

QByteArray jsonOf(const Settings& settings)
{
    return QByteArray::fromStdString(toldOf(settings).dump());
}

Settings settingsFrom(const QByteArray& text)
{
    return settingsTold(parsed(text));
}

Settings keptSettings(const jet::Connection& bdp)
{
    Settings settings;
    if (!hasTable(bdp)) return settings;
    QHash<QString, QString> kept;
    jet::Rows rows(bdp, jet::NativeSql("select chave, valor from estudo_ajuste where typeof(valor) = 'text'"));
    while (rows.next())
        kept.insert(rows.text(0), rows.text(1));
    for (const Entry& entry : settingEntries())
        if (const auto value = kept.constFind(entry.key); value != kept.cend())
            entry.take(settings, parsed(value->toUtf8()));
    return settings;
}

void keepSettings(jet::Connection& bdp, const Settings& settings)
{
    const Settings standard;
    if (settings == standard && !hasTable(bdp)) return;
    jet::Transaction transaction(bdp);
    if (!hasTable(bdp)) bdp.execute(jet::NativeSql(settingsTable));
    const Settings before = keptSettings(bdp);
    for (const Entry& entry : settingEntries()) {
        const json value = entry.told(settings);
        if (value == entry.told(before)) continue; // also where what stands there can't be read
        bdp.execute(jet::NativeSql("delete from estudo_ajuste where chave = ?", {QString(entry.key)}));
        if (value != entry.told(standard))
            bdp.execute(jet::NativeSql("insert into estudo_ajuste (chave, valor) values (?, ?)",
                                       {QString(entry.key), QString::fromStdString(value.dump())}));
    }
    transaction.commit();
}

} // namespace study::indicators
