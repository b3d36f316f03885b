// Taking an act back.
#include "study/acts/writer.h"

#include "platform/jet/recordset.h"
#include "platform/jet/transaction.h"
#include "study/acts/cardRows.h"
#include "study/acts/hangers.h"
#include "study/acts/ledger.h"
#include "study/acts/register.h"

#include <algorithm>

namespace study {

namespace {

QString numberOf(const QVariant& value)
{
    return QString::number(value.toDouble(), 'f', 0);
}

struct Title
{
    QString text; // "A ficha do indivíduo nº 5"
    bool masculine = false;

    QString wasAltered() const { return text + (masculine ? " foi alterado depois." : " foi alterada depois."); }
};

Title titleOf(const RowChange& change)
{
    const QString number = numberOf(change.key.first().second);
    if (change.table == "individuo") return {"A ficha do indivíduo nº " + number};
    if (change.table == "familia" || change.table == "familias") return {"A ficha da família nº " + number};
    if (change.table == "residencia") return {"Uma residência do indivíduo nº " + number};
    if (change.table == "assistente") return {"Um assistente do acto", true};
    if (change.table == "lugar") return {"O lugar " + change.key.first().second.toString(), true};
    if (change.table == "profissao") return {"A profissão " + change.key.first().second.toString()};
    return {"Um dado do indivíduo nº " + number, true};
}

// Of a new row each column that isn't set is null still; of an altered one those that weren't set are no matter.
bool isAsWritten(const jet::Recordset& row, const RowChange& change)
{
    if (!change.before.isEmpty())
        return std::ranges::all_of(change.values,
                                   [&](const auto& set) { return sameValue(row[set.first], set.second); });
    for (int column = 1; column < row.fieldCount(); ++column) {
        const QString name = row.fieldName(column);
        if (!sameValue(row[column], valueIn(change, name))) return false;
    }
    return true;
}

// Where the rows of an act stand, each told once.
struct Found
{
    OwnRows rows = {};
    QList<qint64> places = {}; // of each change
    QString trouble = {};      // "" or why not
};

Found findRows(jet::Connection& bdp, const QList<RowChange>& written)
{
    Found found;
    for (const RowChange& change : written) {
        if (!cards::isKnown(change)) return {.trouble = "O que ficou guardado deste acto não se consegue ler."};
        bool stands = false;
        qint64 place = 0;
        for (jet::Recordset row(bdp, cards::rowsOf(change)); !row.eof() && place == 0; row.moveNext()) {
            stands = true;
            const auto rowid = qint64(row[0].toDouble());
            if (!found.rows.contains({change.table, rowid}) && isAsWritten(row, change)) place = rowid;
        }
        if (place == 0) {
            const Title title = titleOf(change);
            return {.trouble = stands ? title.wasAltered() : title.text + " já não existe."};
        }
        found.rows.insert({change.table, place}, &change);
        found.places << place;
    }
    return found;
}

QString whyNot(jet::Connection& bdp, const ActRecord& record, const Found& found)
{
    if (!found.trouble.isEmpty()) return found.trouble;
    const QString later = laterUse(bdp, record.id, record.written, found.rows);
    return later.isEmpty() ? laterReliance(bdp, record.id, record.written) : later;
}

// From the last row to the first. A place or a profession that others use by now stays.
void takeBack(jet::Connection& bdp, const RowChange& change, qint64 place)
{
    if (change.before.isEmpty()) {
        if (!isUsed(bdp, change)) bdp.execute(cards::deletion(change, place));
        return;
    }
    RowChange back = change;
    back.values = change.before;
    bdp.execute(cards::alteration(back));
}

constexpr auto gone = "Este acto já não está na BDP.";

} // namespace

QString whyNotUndone(jet::Connection& bdp, qint64 act)
{
    const auto record = readAct(bdp, act);
    return record ? whyNot(bdp, *record, findRows(bdp, record->written)) : QString(gone);
}

QString undoAct(jet::Connection& bdp, qint64 act)
{
    jet::Transaction transaction(bdp);
    const auto record = readAct(bdp, act);
    if (!record) return gone;
    const Found found = findRows(bdp, record->written);
    if (const QString why = whyNot(bdp, *record, found); !why.isEmpty()) return why;
    for (qsizetype i = record->written.size() - 1; i >= 0; --i)
        takeBack(bdp, record->written[i], found.places[i]);
    removeAct(bdp, act);
    transaction.commit();
    return {};
}

} // namespace study
