// What a later act found as it tells it, so that it wrote nothing: it hangs on the row of the act before.
#include "study/acts/hangers.h"

#include "platform/jet/recordset.h"
#include "study/acts/register.h"
#include "study/acts/register_tables.h"

#include <QHash>

#include <algorithm>

namespace study {

namespace {

// The first act behind `act` that a select of the number, the act and whatever else finds; 0 for none.
qint64 firstLater(jet::Connection& bdp, const char* select, const QVariantList& values)
{
    const jet::Recordset row(bdp, jet::NativeSql(select, values));
    return row.eof() ? 0 : qint64(row[0].toDouble());
}

constexpr auto livesThere =
    "select p.acto from estudo_pessoa p, estudo_atributo t where p.nind = ? and p.acto > ? and t.acto = p.acto and "
    "t.pessoa = p.ordem and lower(t.tipo) = 'residencia' and t.local = ? and lower(t.nivel) = lower(?) limit 1";
constexpr auto practises =
    "select p.acto from estudo_pessoa p, estudo_atributo t where p.nind = ? and p.acto > ? and t.acto = p.acto and "
    "t.pessoa = p.ordem and lower(t.tipo) = 'profissao' and t.codprof = ? limit 1";
constexpr auto tells =
    "select p.acto from estudo_pessoa p, estudo_atributo t where p.nind = ? and p.acto > ? and t.acto = p.acto and "
    "t.pessoa = p.ordem and lower(t.tipo) = ? limit 1";
constexpr auto hasParents =
    "select p.acto from estudo_pessoa p, estudo_pessoa q where p.nind = ? and p.acto > ? and q.acto = p.acto and "
    "q.de = p.ordem and q.papel in (?, ?) limit 1";
constexpr auto isItsSubject =
    "select acto from estudo_pessoa where nind = ? and acto > ? and papel in (?, ?, ?, ?) limit 1";
constexpr auto figuresInAct = "select acto from estudo_pessoa where nind = ? and acto > ? limit 1";
constexpr auto serves = "select acto from estudo_familia where nfamilia = ? and acto > ? limit 1";

// A column of a person who was there before.
qint64 reliesOn(jet::Connection& bdp, const QString& column, const QVariant& nind, qint64 act)
{
    static const QHash<QString, QString> types{{"alcunha", attribute::nickname},
                                               {"titulo", attribute::title},
                                               {"localnasc", attribute::birthplace},
                                               {"tipolocaln", attribute::birthplace}};
    if (column == "sexo") return firstLater(bdp, figuresInAct, {nind, act});
    if (column == "famorig")
        return firstLater(bdp, hasParents, {nind, act, tables::word(Role::Father), tables::word(Role::Mother)});
    if (const QString type = types.value(column); !type.isEmpty())
        if (const qint64 later = firstLater(bdp, tells, {nind, act, type})) return later;
    return firstLater(bdp, isItsSubject,
                      {nind, act, tables::word(Role::Child), tables::word(Role::Groom), tables::word(Role::Bride),
                       tables::word(Role::Deceased)});
}

qint64 reliesOn(jet::Connection& bdp, const RowChange& change, qint64 act)
{
    const QVariant owner = change.key.first().second;
    if (change.table == "residencia" && valueIn(change, "tiporesid") == "i")
        return firstLater(bdp, livesThere, {owner, act, valueIn(change, "localresid"), valueIn(change, "tipolocal")});
    if (change.table == "profissoes") return firstLater(bdp, practises, {owner, act, valueIn(change, "codprof")});
    if (change.table == "familias") return firstLater(bdp, serves, {owner, act});
    if (change.before.isEmpty()) return 0;
    for (const auto& [name, value] : change.values) {
        const QString column = name.toLower();
        if (change.table == "familia" && column == "sfamilia") return firstLater(bdp, serves, {owner, act});
        if (change.table != "individuo") continue;
        if (const qint64 later = reliesOn(bdp, column, owner, act)) return later;
    }
    return 0;
}

// The highest number that the act gave: whoever has a higher one came later. 0: it gave none.
qint64 lastMade(const QList<RowChange>& written)
{
    qint64 last = 0;
    for (const RowChange& change : written)
        if (change.table == "individuo" && change.before.isEmpty())
            last = std::max(last, qint64(change.key.first().second.toDouble()));
    return last;
}

// A child that a card has given since to a family into which the act brought one of the couple.
QString laterChild(jet::Connection& bdp, const RowChange& change, qint64 last)
{
    if (change.table != "familias" || !change.before.isEmpty() || last == 0) return {};
    const QVariant family = valueIn(change.key, "nfamilia");
    const jet::Recordset child(
        bdp, jet::NativeSql("select min(nind) from individuo where famorig = ? and nind > ?", {family, last}));
    if (child.eof() || child[0].isNull()) return {};
    return QString(
               "A família nº %1, em que este acto fez entrar o indivíduo nº %2, tem desde então outro filho: nº %3.")
        .arg(QString::number(family.toLongLong()), QString::number(valueIn(change.key, "nind").toLongLong()),
             QString::number(child[0].toLongLong()));
}

} // namespace

QString laterReliance(jet::Connection& bdp, qint64 act, const QList<RowChange>& written)
{
    for (const RowChange& change : written)
        if (const qint64 later = reliesOn(bdp, change, act); later != 0) {
            const auto record = readAct(bdp, later);
            const QString which = record ? reference(record->act) : QString();
            const bool family = change.table.startsWith("familia");
            return QString("O que este acto escreveu %1 nº %2 serve também a outro acto, posterior: %3.")
                .arg(family ? "da família" : "do indivíduo", QString::number(change.key.first().second.toLongLong()),
                     which);
        }
    const qint64 last = lastMade(written);
    for (const RowChange& change : written)
        if (const QString why = laterChild(bdp, change, last); !why.isEmpty()) return why;
    return {};
}

} // namespace study
