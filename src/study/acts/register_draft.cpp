// The act in work.
#include "platform/jet/jsonrow.h"
#include "platform/jet/transaction.h"
#include "study/acts/register.h"
#include "study/acts/register_tables.h"

#include <QJsonDocument>

namespace study {

namespace {

QString textOf(const QJsonObject& json)
{
    return QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
}

QJsonObject jsonOf(const QJsonValue& text)
{
    return QJsonDocument::fromJson(text.toString().toUtf8()).object();
}

} // namespace

void saveDraft(jet::Connection& bdp, const Act& act, const Conclusions& conclusions)
{
    jet::Transaction transaction(bdp);
    tables::make(bdp, {tables::ofDraft()});
    bdp.execute(jet::NativeSql("delete from estudo_rascunho"));
    bdp.execute(jet::NativeSql(
        "insert into estudo_rascunho (id, quando, acto, conclusoes) values (1, ?, ?, ?)",
        {QDateTime::currentDateTime().toString(tables::timeFormat), textOf(toJson(act)), textOf(toJson(conclusions))}));
    transaction.commit();
}

std::optional<ActDraft> savedDraft(jet::Connection& bdp)
{
    if (!tables::exist(bdp, {tables::ofDraft()})) return {};
    const QList<QJsonObject> rows =
        jet::jsonRows(bdp, jet::NativeSql("select quando, acto, conclusoes from estudo_rascunho"));
    if (rows.isEmpty()) return {};
    const QJsonObject act = jsonOf(rows.first()["acto"]);
    if (act.isEmpty()) return {};
    ActDraft draft{.saved = QDateTime::fromString(rows.first()["quando"].toString(), tables::timeFormat),
                   .act = actFromJson(act),
                   .conclusions = conclusionsFromJson(jsonOf(rows.first()["conclusoes"]))};
    draft.conclusions.people.resize(draft.act.people.size());
    return draft;
}

void dropDraft(jet::Connection& bdp)
{
    if (tables::exist(bdp, {tables::ofDraft()})) bdp.execute(jet::NativeSql("delete from estudo_rascunho"));
}

} // namespace study
