#include "study/transcripts/importSources.h"

#include "platform/jet/jsonrow.h"
#include "platform/jet/transaction.h"
#include "platform/time/clock.h"
#include "study/transcripts/ownTables.h"

#include <QDateTime>
#include <QJsonObject>

#include <algorithm>

namespace study {

namespace {

// Null texts of a column are empty ones.
QString text(const QString& told)
{
    return told.isNull() ? QString("") : told;
}

QStringList toldOf(const Source& source)
{
    QStringList told{source.date, source.kind, source.archive, source.notes};
    told.removeAll(QString());
    return told;
}

bool isThere(jet::Connection& bdp, const Source& source)
{
    const jet::NativeSql same(
        "select id from estudo_fonte where livro = ? and data = ? and tipo = ? and localizacao = "
        "? and observacoes = ?",
        {text(source.id), text(source.date), text(source.kind), text(source.archive), text(source.notes)});
    return !jet::jsonRows(bdp, same).isEmpty();
}

void add(jet::Connection& bdp, const Source& source)
{
    bdp.execute(jet::NativeSql("insert into estudo_fonte (quando, livro, data, tipo, localizacao, observacoes) values "
                               "(?, ?, ?, ?, ?, ?)",
                               {Clock::moment().toString(tables::timeFormat), text(source.id), text(source.date),
                                text(source.kind), text(source.archive), text(source.notes)}));
}

} // namespace

const tables::Table& sourceTable()
{
    static const tables::Table table{
        "estudo_fonte",
        {"id", "quando", "livro", "data", "tipo", "localizacao", "observacoes"},
        {"create table estudo_fonte (id integer primary key, quando varchar not null, livro varchar not null, data "
         "varchar not null, tipo varchar not null, localizacao varchar not null, observacoes text not null)",
         "create index estudo_fonte_livro on estudo_fonte (livro)"}};
    return table;
}

QStringList keepSources(jet::Connection& bdp, const QList<Source>& sources)
{
    const auto tellsMore = [](const Source& source) { return !toldOf(source).isEmpty(); };
    if (std::none_of(sources.begin(), sources.end(), tellsMore)) return {};
    QStringList kept;
    jet::Transaction transaction(bdp);
    tables::make(bdp, {sourceTable()});
    for (const Source& source : sources) {
        if (!tellsMore(source) || isThere(bdp, source)) continue;
        add(bdp, source);
        const QString book = source.id.isEmpty() ? QString("Sem livro") : "Livro " + source.id;
        kept << book + ": " + toldOf(source).join("; ");
    }
    transaction.commit();
    return kept;
}

QList<Source> keptSources(jet::Connection& bdp)
{
    if (!tables::exist(bdp, {sourceTable()})) return {};
    QList<Source> kept;
    const jet::NativeSql all("select livro, data, tipo, localizacao, observacoes from estudo_fonte order by id");
    for (const QJsonObject& row : jet::jsonRows(bdp, all))
        kept.push_back({.id = row["livro"].toString(),
                        .date = row["data"].toString(),
                        .kind = row["tipo"].toString(),
                        .archive = row["localizacao"].toString(),
                        .notes = row["observacoes"].toString()});
    return kept;
}

} // namespace study
