#include "study/linkage/columns.h"

#include "common/datas.h"
#include "common/marca.h"
#include "common/niveis.h"
#include "common/numeros.h"
#include "platform/jet/recordset.h"
#include "platform/time/clock.h"

#include <QDate>

#include <algorithm>
#include <utility>

namespace study::linkage {

namespace {

bool isNothing(const QJsonValue& value)
{
    return value.isNull() || value.isUndefined() || (value.isString() && value.toString().trimmed().isEmpty());
}

// What belongs to it says nothing: no function, no level, not exact.
bool isSilent(const QJsonValue& value)
{
    return isNothing(value) || (value.isDouble() && value.toDouble() == 0);
}

// Whether the column says nothing.
bool isEmpty(const ColumnGroup& group, const QJsonObject& row)
{
    const QJsonValue value = row[QLatin1String(group.column)];
    if (isNothing(value)) return true;
    switch (group.shown) {
    case Shown::Sex:
        return value.toString().compare("d", Qt::CaseInsensitive) == 0;
    case Shown::Mark: // of a will, that it was spoken is told as well
        if (QLatin1String(group.column) == QLatin1String("escrit")) return isSilent(row["testam"]);
        [[fallthrough]];
    case Shown::Person:
        return value.isDouble() && value.toDouble() == 0;
    default:
        return false;
    }
}

bool isSame(const QJsonValue& one, const QJsonValue& other)
{
    if (one.isString() && other.isString()) return one.toString().trimmed() == other.toString().trimmed();
    return one == other;
}

// Letters of codes count whatever their case: the cards show them alike.
bool isSameLetter(const QJsonValue& one, const QJsonValue& other)
{
    return isSame(one, other) || (one.isString() && one.toString().compare(other.toString(), Qt::CaseInsensitive) == 0);
}

bool isSameValue(const ColumnGroup& group, const QJsonValue& one, const QJsonValue& other)
{
    if (group.shown == Shown::Sex) return isSameLetter(one, other);
    if (group.shown == Shown::Name) return semMarca(one.toString()) == semMarca(other.toString());
    return isSame(one, other);
}

// How much a date tells: one to the day more than one about it.
bool isExact(const ColumnGroup& group, const QJsonObject& row)
{
    return group.shown == Shown::Date && !isSilent(row[QLatin1String(group.with)]);
}

// A priest has his function beside him, which is also told of one whose number nobody knows.
bool isPriest(const ColumnGroup& group)
{
    return *group.category && *group.with;
}

Side proposedFor(const ColumnGroup& group, const QJsonObject& kept, const QJsonObject& other)
{
    const QString column = group.column;
    const QString one = kept[column].toString(), two = other[column].toString();
    if (column == "inicioobs") return two < one ? Side::Other : Side::Kept; // the longer observation
    if (column == "fimobs") return two > one ? Side::Other : Side::Kept;
    if (isPriest(group) && isEmpty(group, kept) && !isEmpty(group, other)) return Side::Other;
    return isExact(group, other) && !isExact(group, kept) ? Side::Other : Side::Kept;
}

QString description(jet::Connection& bdp, const char* category, const QJsonValue& code)
{
    const QString text = code.toVariant().toString();
    const jet::Recordset row(bdp,
                             jet::NativeSql("select descricao from infocomplementar where categoria = ? and codigo = ?",
                                            {QString(category), text}));
    return row.eof() ? text : semMarca(row[0].toString());
}

QString placeName(jet::Connection& bdp, const QString& code, const QString& letter)
{
    const DadosDoNivel* level = nivelDaLetra(letter.toUpper());
    if (!level) return code;
    const jet::Recordset row(bdp, level->nomeDe(code));
    return row.eof() ? code : semMarca(row[0].toString()) + " (" + code + ")";
}

} // namespace

QString shown(jet::Connection& bdp, const ColumnGroup& group, const QJsonObject& row)
{
    const QJsonValue value = row[QLatin1String(group.column)], with = row[QLatin1String(group.with)];
    switch (group.shown) {
    case Shown::Sex:
        return value.toString().compare("m", Qt::CaseInsensitive) == 0 ? "masculino" : "feminino";
    case Shown::Mark:
        return isSilent(value) ? "não" : "sim";
    case Shown::Code:
        return description(bdp, group.category, value);
    case Shown::Place:
        return placeName(bdp, value.toString(), *group.category ? QString(group.category) : with.toString());
    case Shown::Name:
        return semMarca(value.toString().trimmed());
    case Shown::Date: {
        const QDate date = QDate::fromString(value.toString(), Qt::ISODate);
        const QString day = date.isValid() ? textoDaData(date) : value.toString();
        return *group.with && isSilent(with) ? "cerca de " + day : day;
    }
    case Shown::Number:
    case Shown::Person: {
        const QString number = isPriest(group) && isEmpty(group, row) ? "sem número" : textoDoNumero(value.toVariant());
        return isNothing(with) ? number : number + " (" + description(bdp, group.category, with) + ")";
    }
    case Shown::Text:
        break;
    }
    return value.isString() ? value.toString().trimmed() : textoDoNumero(value.toVariant());
}

namespace {

// Takes what the other one has for a column of which the kept one says nothing.
void fill(Joined& result, const QJsonObject& kept, const QJsonObject& other, const char* column)
{
    const QString name = column;
    if (name.isEmpty()) return;
    if ((isSilent(kept[name]) && !isSilent(other[name])) || (kept[name].isNull() && !other[name].isNull()))
        result.set.insert(name, other[name]);
}

void take(Joined& result, const QJsonObject& other, const ColumnGroup& group)
{
    for (const char* column : {group.column, group.with})
        if (*column) result.set.insert(column, other[QLatin1String(column)]);
}

// What no other column contradicts.
void complete(Joined& result, const QJsonObject& kept, const QJsonObject& other, const ColumnGroup& group)
{
    const bool isTaken = isEmpty(group, kept) && !isEmpty(group, other);
    if (isTaken && !isPriest(group)) return take(result, other, group);
    if (isTaken)
        result.set.insert(group.column, other[QLatin1String(group.column)]);
    else if (isEmpty(group, kept) == isEmpty(group, other))
        fill(result, kept, other, group.column);
    else if (!isPriest(group))
        return;
    fill(result, kept, other, group.with);
}

// Whether both say it, and not the same.
bool differ(const ColumnGroup& group, const QJsonObject& kept, const QJsonObject& other)
{
    const QJsonValue one = kept[QLatin1String(group.with)], two = other[QLatin1String(group.with)];
    const bool isBesideOther = !isSilent(one) && !isSilent(two) && !isSameLetter(one, two);
    if (isEmpty(group, kept) || isEmpty(group, other)) return isPriest(group) && isBesideOther;
    if (!isSameValue(group, kept[QLatin1String(group.column)], other[QLatin1String(group.column)])) return true;
    const bool isDated = group.shown == Shown::Date && *group.with; // the same day, but one of them only about it
    return isBesideOther || (isDated && isExact(group, kept) != isExact(group, other));
}

} // namespace

Side ask(Joined& result, jet::Connection& bdp, const ColumnGroup& group, const QJsonObject& kept,
         const QJsonObject& other, Side proposed, const Sides& sides)
{
    const Difference one{.column = group.column,
                         .title = QString::fromUtf8(group.title),
                         .kept = shown(bdp, group, kept),
                         .other = shown(bdp, group, other),
                         .proposed = proposed};
    const auto chosen = std::ranges::find_if(sides, [&](const auto& choice) { return choice.first == one.column; });
    const Side side = chosen == sides.end() ? proposed : chosen->second;
    if (side == Side::Other)
        result.keptLost << one.title + " " + one.kept;
    else
        result.otherLost << one.title + " " + one.other;
    const QJsonObject& gone = side == Side::Other ? kept : other;
    if (gone[QLatin1String(group.column)].isObject()) result.unreadable << one.title;
    result.differences << one;
    return side;
}

namespace {

QJsonObject overlaid(QJsonObject row, const QJsonObject& columns)
{
    for (auto column = columns.begin(); column != columns.end(); ++column)
        row.insert(column.key(), column.value());
    return row;
}

// What this program knows nothing of.
void joinUnknown(Joined& result, ColumnGroups groups, const QJsonObject& kept, const QJsonObject& other)
{
    for (auto column = other.begin(); column != other.end(); ++column) {
        const QString name = column.key();
        const bool isKnown = uncompared().contains(name) || std::ranges::any_of(groups, [&](const ColumnGroup& group) {
                                 return name == QLatin1String(group.column) || name == QLatin1String(group.with);
                             });
        if (isKnown || isNothing(column.value()) || isSame(kept[name], column.value())) continue;
        if (isNothing(kept[name]))
            result.set.insert(name, column.value());
        else if (column.value().isObject())
            result.unreadable << name;
        else
            result.otherLost << name + " " + column.value().toVariant().toString();
    }
}

} // namespace

Joined joined(jet::Connection& bdp, ColumnGroups groups, const QJsonObject& kept, const QJsonObject& other,
              const Sides& sides)
{
    Joined result;
    for (const ColumnGroup& group : groups) {
        if (!differ(group, kept, other)) {
            const qsizetype before = result.set.size();
            complete(result, kept, other, group);
            if (const QJsonObject now = overlaid(kept, result.set); result.set.size() > before && !isEmpty(group, now))
                result.filled << QString::fromUtf8(group.title) + " " + shown(bdp, group, now);
        } else if (ask(result, bdp, group, kept, other, proposedFor(group, kept, other), sides) == Side::Other) {
            take(result, other, group);
        }
    }
    return result;
}

Joined joined(jet::Connection& bdp, const QString& table, const QJsonObject& kept, const QJsonObject& other,
              const Sides& sides)
{
    const ColumnGroups groups = groupsOf(table);
    Joined result = joined(bdp, groups, kept, other, sides);
    joinUnknown(result, groups, kept, other);
    return result;
}

Sides sidesBelow(const Sides& sides, const QString& prefix)
{
    Sides own;
    for (const auto& [column, side] : sides)
        if (column.startsWith(prefix)) own << std::pair(column.mid(prefix.size()), side);
    return own;
}

QList<Difference> prefixed(QList<Difference> differences, const QString& prefix)
{
    for (Difference& one : differences)
        one.column.prepend(prefix);
    return differences;
}

QStringList whyNotRead(const Joined& joined)
{
    QStringList reasons;
    for (const QString& title : joined.unreadable)
        reasons << QString("Um dos dois valores de «%1» não se consegue ler, e perdia-se.").arg(title);
    return reasons;
}

QString origin(const QString& of, const QStringList& lost)
{
    if (lost.isEmpty()) return {};
    return of + " em " + textoDaData(Clock::moment().date()) + ": " + lost.join("; ");
}

QString withNote(const QString& notes, const QString& note)
{
    if (note.trimmed().isEmpty() || notes.trimmed() == note.trimmed()) return notes;
    return notes.trimmed().isEmpty() ? note : notes + "\r\n" + note;
}

} // namespace study::linkage
