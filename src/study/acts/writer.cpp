#include "study/acts/writer.h"

#include "platform/jet/transaction.h"
#include "study/acts/cardRows.h"
#include "study/acts/register.h"

namespace study {

namespace {

std::string firstOf(const QList<Objection>& why)
{
    return why.isEmpty() ? std::string() : why.first().text.toStdString();
}

void write(jet::Connection& bdp, const RowChange& change)
{
    const bool isNew = change.before.isEmpty();
    const int rows = bdp.execute(isNew ? cards::insertion(change) : cards::alteration(change));
    if (rows != 1)
        throw jet::Error{jet::number::noCurrentRow,
                         "Uma linha da tabela \"" + change.table + "\" já não existe. O acto não foi guardado."};
}

} // namespace

Refused::Refused(QList<Objection> why) : std::runtime_error(firstOf(why)), objections(std::move(why)) {}

Stored storeAct(jet::Connection& bdp, const Act& act, const Conclusions& conclusions)
{
    jet::Transaction transaction(bdp);
    Stored stored{.plan = planned(bdp, act, conclusions)};
    if (!stored.plan.objections.isEmpty()) throw Refused(stored.plan.objections);
    for (const RowChange& change : stored.plan.rows)
        write(bdp, change);
    stored.act = addAct(bdp, act, conclusions, stored.plan);
    transaction.commit();
    return stored;
}

} // namespace study
