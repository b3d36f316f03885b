#include "study/checks/seen.h"

#include "platform/jet/rows.h"
#include "platform/jet/transaction.h"
#include "platform/time/clock.h"
#include "study/checks/ownTables.h"

#include <QDateTime>

namespace study::checks {

namespace {

// Null texts of a column are empty ones.
QString text(const QString& told)
{
    return told.isNull() ? QString("") : told;
}

} // namespace

const OwnTable& seenTable()
{
    static const OwnTable table{"estudo_visto",
                                {"chave", "regra", "estado", "texto", "razao", "quando"},
                                "create table estudo_visto (chave varchar primary key not null, regra varchar not "
                                "null, estado varchar not null, texto text not null, razao text not null, quando "
                                "varchar not null)"};
    return table;
}

std::vector<Seen> seenCases(const jet::Connection& bdp)
{
    std::vector<Seen> seen;
    if (!exists(bdp, seenTable())) return seen;
    jet::Rows rows(bdp, jet::NativeSql("select chave, regra, estado, texto, razao, quando from estudo_visto order by "
                                       "quando desc, chave"));
    while (rows.next())
        seen.push_back({.key = rows.text(0),
                        .rule = rows.text(1),
                        .state = rows.text(2),
                        .text = rows.text(3),
                        .reason = rows.text(4),
                        .when = rows.text(5)});
    return seen;
}

void putAside(jet::Connection& bdp, const std::vector<Case>& cases, const QString& reason)
{
    const QString now = Clock::moment().toString("yyyy-MM-dd HH:mm:ss");
    jet::Transaction transaction(bdp);
    make(bdp, seenTable());
    for (const Case& one : cases) {
        bdp.execute(jet::NativeSql("delete from estudo_visto where chave = ?", {one.key()}));
        bdp.execute(jet::NativeSql("insert into estudo_visto (chave, regra, estado, texto, razao, quando) values (?, "
                                   "?, ?, ?, ?, ?)",
                                   {one.key(), one.rule, text(one.state), text(one.text), text(reason), now}));
    }
    transaction.commit();
}

void takeBack(jet::Connection& bdp, const QStringList& keys)
{
    if (!exists(bdp, seenTable())) return;
    jet::Transaction transaction(bdp);
    for (const QString& key : keys)
        bdp.execute(jet::NativeSql("delete from estudo_visto where chave = ?", {key}));
    transaction.commit();
}

Aside::Aside(const std::vector<Seen>& seen)
{
    for (const Seen& one : seen)
        states_.insert(one.key, one.state);
}

bool Aside::operator()(const Case& one) const
{
    const auto known = states_.constFind(one.key());
    return known != states_.cend() && *known == one.state;
}

} // namespace study::checks
