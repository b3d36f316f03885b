#include "study/transcripts/importKnown.h"

#include "platform/jet/jsonrow.h"
#include "study/acts/register_tables.h"

#include <QJsonObject>

namespace study {

namespace {

QString key(const QString& sort, ActKind kind, const QStringList& rest)
{
    return QString("%1\n%2\n%3").arg(sort).arg(static_cast<int>(kind)).arg(rest.join('\n'));
}

QString byId(ActKind kind, const QString& book, const QString& id)
{
    return key("id", kind, {book, id});
}

// Numbers begin again with each book, and in many with each year.
QString byNumber(const ActLine& line)
{
    return key("n", line.kind, {line.book, line.number, QString::number(line.date.year)});
}

QString byContent(const ActLine& line)
{
    return key("c", line.kind, {line.book, line.folio, shown(line.date), line.subjects});
}

QString byNumberAndContent(const ActLine& line)
{
    return byContent(line) + '\n' + line.number;
}

} // namespace

KnownActs::KnownActs(jet::Connection& bdp)
{
    if (!hasActs(bdp)) return;
    for (const ActLine& line : listActs(bdp)) {
        if (line.id == 0) continue;
        keys_ << byContent(line);
        if (!line.number.isEmpty()) keys_ << byNumber(line) << byNumberAndContent(line);
    }
    const jet::NativeSql withId("select tipo, livro, id_transcricao from estudo_acto where id_transcricao <> ''");
    for (const QJsonObject& row : jet::jsonRows(bdp, withId))
        keys_ << byId(tables::kindOf(row["tipo"].toString()), row["livro"].toString(),
                      row["id_transcricao"].toString());
}

bool KnownActs::has(const Act& act) const
{
    if (!act.id.isEmpty() && keys_.contains(byId(act.kind, act.book, act.id))) return true;
    const ActLine line = lineOf(act);
    if (!act.number.isEmpty()) return keys_.contains(act.book.isEmpty() ? byNumberAndContent(line) : byNumber(line));
    return act.id.isEmpty() && keys_.contains(byContent(line));
}

ActLine KnownActs::lineOf(const Act& act)
{
    QStringList names;
    for (const int person : subjects(act))
        if (const QString name = currentName(act.people[person]); !name.isEmpty()) names << name;
    return {.kind = act.kind,
            .book = act.book,
            .folio = act.folio,
            .number = act.number,
            .date = act.date,
            .subjects = names.join(" e ")};
}

} // namespace study
