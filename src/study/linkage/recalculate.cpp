#include "study/linkage/recalculate.h"

#include "platform/jet/rows.h"
#include "platform/jet/transaction.h"
#include "study/linkage/decisions.h"

#include <QHash>
#include <QStringList>

#include <algorithm>

namespace study::linkage {

namespace {

struct Stored
{
    qint64 place = 0;
    QString type = {};
};
using StoredTypes = QHash<qint64, Stored>; // by the number of the record

StoredTypes read(const jet::Connection& bdp, const jet::NativeSql& select)
{
    StoredTypes types;
    for (jet::Rows rows(bdp, select); rows.next();)
        types.insert(rows.number(1), {rows.number(0), rows.text(2).trimmed()});
    return types;
}

QString counted(int count, const char* one, const char* more)
{
    return QString::number(count) + ' ' + (count == 1 ? one : more);
}

QString titleOfRecalculation(const TypesWritten& written)
{
    QStringList parts;
    if (written.people > 0) parts << counted(written.people, "indivíduo", "indivíduos");
    if (written.families > 0) parts << counted(written.families, "família", "famílias");
    return "Tipos recalculados: " + parts.join(" e ");
}

} // namespace

TypesWritten writeTypes(jet::Connection& bdp, const QList<NewType>& types)
{
    TypesWritten written;
    jet::Transaction transaction(bdp);
    const StoredTypes people = read(bdp, jet::NativeSql("select rowid, nind, tipo from individuo"));
    const StoredTypes families = read(bdp, jet::NativeSql("select rowid, nfamilia, tipocasal from familia"));
    Recording recording(bdp);
    for (const NewType& type : types) {
        const StoredTypes& stored = type.isFamily ? families : people;
        const auto row = stored.constFind(type.number);
        if (row == stored.cend() || row->type != type.before.trimmed()) {
            written.left << type;
        } else if (type.isFamily) {
            recording.set("familia", row->place, {{"tipocasal", type.after.toInt()}});
            ++written.families;
        } else {
            recording.set("individuo", row->place, {{"tipo", type.after}});
            ++written.people;
        }
    }
    if (written.people + written.families == 0) return written;
    written.decision =
        recording.keep({.kind = DecisionKind::TypesRecalculated, .title = titleOfRecalculation(written)});
    transaction.commit();
    return written;
}

qint64 lastTypesWritten(jet::Connection& bdp)
{
    const QList<Decision> all = decisions(bdp);
    const auto last = std::ranges::find_if(
        all, [](const Decision& one) { return one.stands() && one.what.kind == DecisionKind::TypesRecalculated; });
    return last == all.end() ? 0 : last->id;
}

} // namespace study::linkage
