#include "study/acts/register_json.h"

#include <QDate>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace study {

static constexpr auto dateKey = "data";

static QJsonValue jsonOf(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QDate:
        if (!value.toDate().isValid()) return QJsonValue::Null;
        return QJsonObject{{QLatin1String(dateKey), value.toDate().toString(Qt::ISODate)}};
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::QChar:
    case QMetaType::QString:
        return value.toString();
    default:
        return QJsonValue::Null;
    }
}

static QVariant variantOf(const QJsonValue& value)
{
    if (value.isObject()) return QDate::fromString(value[QLatin1String(dateKey)].toString(), Qt::ISODate);
    if (value.isNull()) return {};
    return value.toVariant();
}

QString textOf(const RowChange::Columns& columns)
{
    QJsonArray all;
    for (const auto& [name, value] : columns)
        all << QJsonArray{name, jsonOf(value)};
    return QString::fromUtf8(QJsonDocument(all).toJson(QJsonDocument::Compact));
}

RowChange::Columns columnsOf(const QString& text)
{
    RowChange::Columns columns;
    const QJsonArray all = QJsonDocument::fromJson(text.toUtf8()).array();
    columns.reserve(all.size());
    for (const QJsonValue column : all)
        if (const QJsonArray pair = column.toArray(); pair.size() == 2)
            columns.push_back({pair[0].toString(), variantOf(pair[1])});
    return columns;
}

} // namespace study
