#include "platform/jet/jsonrow.h"
#include "platform/jet/transaction.h"
#include "platform/time/clock.h"
#include "study/transcripts/kleioText.h"
#include "study/transcripts/ownTables.h"
#include "study/transcripts/table.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace study {

namespace {

// Each header by a name that no other has: "Padrinho", "Padrinho (2)".
QStringList namesOf(const QStringList& headers)
{
    QStringList names;
    names.reserve(headers.size());
    for (const QString& header : headers) {
        QString name = header;
        for (int number = 2; names.contains(name); ++number)
            name = QString("%1 (%2)").arg(header).arg(number);
        names << name;
    }
    return names;
}

QString keyOf(const QStringList& headers)
{
    QStringList names = namesOf(headers);
    names.sort();
    return QJsonDocument(QJsonArray::fromStringList(names)).toJson(QJsonDocument::Compact);
}

QString wordOf(const std::optional<ActKind>& kind)
{
    return kind ? tables::word(*kind) : QString();
}

std::optional<ActKind> kindWith(const QString& word)
{
    for (const ActKind kind : {ActKind::Baptism, ActKind::Marriage, ActKind::Burial})
        if (kleio::folded(word) == tables::word(kind)) return kind;
    if (word.isEmpty()) return {};
    throw jet::Error(jet::number::typeMismatch, QString("\"%1\" não é uma espécie de acto.").arg(word));
}

} // namespace

const tables::Table& assignmentTable()
{
    static const tables::Table table{"estudo_colunas",
                                     {"cabecalhos", "quando", "atribuicao"},
                                     {"create table estudo_colunas (cabecalhos text not null primary key, quando "
                                      "varchar not null, atribuicao text not null)"}};
    return table;
}

QJsonObject toJson(const QStringList& headers, const Assignment& assignment)
{
    QJsonObject columns;
    const QStringList names = namesOf(headers);
    for (qsizetype column = 0; column < names.size(); ++column)
        columns[names[column]] = assignment.columns.value(column);
    return {{"especie", wordOf(assignment.kind)}, {"livro", assignment.book}, {"colunas", columns}};
}

Assignment assignmentFromJson(const QJsonObject& json, const QStringList& headers)
{
    const QJsonObject columns = json["colunas"].toObject();
    Assignment assignment{
        .kind = kindWith(json["especie"].toString()), .book = json["livro"].toString(), .columns = {}};
    for (const QString& name : namesOf(headers))
        assignment.columns << columns[name].toString();
    for (const QString& column : columns.keys()) {
        const QString field = columns[column].toString();
        const auto isIt = [&](const TableField& one) { return one.id == field; };
        if (!field.isEmpty() && std::none_of(tableFields().begin(), tableFields().end(), isIt))
            throw jet::Error(jet::number::typeMismatch,
                             QString("A coluna \"%1\" é do campo \"%2\", que não há.").arg(column, field));
    }
    return assignment;
}

void keepAssignment(jet::Connection& bdp, const QStringList& headers, const Assignment& assignment)
{
    jet::Transaction transaction(bdp);
    tables::make(bdp, {assignmentTable()});
    const QString text = QJsonDocument(toJson(headers, assignment)).toJson(QJsonDocument::Compact);
    bdp.execute(jet::NativeSql("delete from estudo_colunas where cabecalhos = ?", {keyOf(headers)}));
    bdp.execute(jet::NativeSql("insert into estudo_colunas (cabecalhos, quando, atribuicao) values (?, ?, ?)",
                               {keyOf(headers), Clock::moment().toString(tables::timeFormat), text}));
    transaction.commit();
}

std::optional<Assignment> keptAssignment(jet::Connection& bdp, const QStringList& headers)
{
    if (!tables::exist(bdp, {assignmentTable()})) return {};
    const QList<QJsonObject> rows = jet::jsonRows(
        bdp, jet::NativeSql("select atribuicao from estudo_colunas where cabecalhos = ?", {keyOf(headers)}));
    if (rows.isEmpty()) return {};
    return assignmentFromJson(QJsonDocument::fromJson(rows.first()["atribuicao"].toString().toUtf8()).object(),
                              headers);
}

} // namespace study
