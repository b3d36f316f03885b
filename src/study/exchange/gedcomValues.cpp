#include "study/exchange/gedcomValues.h"

#include "platform/jet/rows.h"
#include "study/exchange/gedcomTables.h"

#include <QDir>
#include <QFileInfo>
#include <QUuid>

namespace study::exchange {

namespace {

constexpr std::array<const char*, 12> months = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                                "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

QByteArray dayOf(QDate day)
{
    return QByteArray::number(day.day()) + ' ' + months[static_cast<std::size_t>(day.month() - 1)] + ' ' +
           QByteArray::number(day.year());
}

// Which item of a place a table stands for; a zone of a country stands beside the districts.
int itemOf(QChar level)
{
    static const QString letters = "SLFCDP";
    return level == u'Z' ? static_cast<int>(letters.indexOf(u'D')) : static_cast<int>(letters.indexOf(level));
}

QString item(QString name)
{
    return name.replace(u',', u';').simplified();
}

} // namespace

QByteArray gedcomDate(const parish::Date& date)
{
    if (!date.isKnown()) return {};
    if (date.precision == parish::Precision::Year) return "ABT " + QByteArray::number(date.year());
    return (date.isExact() ? "" : "ABT ") + dayOf(date.date());
}

QByteArray gedcomPeriod(QDate from, QDate until)
{
    QByteArray period;
    if (from.isValid()) period = "FROM " + dayOf(from);
    if (until.isValid()) period += (period.isEmpty() ? "TO " : " TO ") + dayOf(until);
    return period;
}

QByteArray gedcomAge(parish::Code years)
{
    return years && *years >= 0 ? QByteArray::number(*years) + 'y' : QByteArray();
}

QByteArray uidOf(const parish::Home& home, const char* kind, qint64 number)
{
    static const QUuid ours("{6f1c4f52-8d0e-4b7b-9a35-1c3b0b6d2e47}");
    const QString parish = home.code.isEmpty() ? home.name : home.code;
    const QString name = parish + '|' + kind + '|' + QString::number(number);
    return QUuid::createUuidV5(ours, name).toString(QUuid::WithoutBraces).toLatin1();
}

QString relativePath(const QString& path, const QString& bdpFolder)
{
    static constexpr auto drive = 2; // "C:"
    QString slashed = path.trimmed();
    slashed.replace(u'\\', u'/');
    const bool isAbsolute = slashed.startsWith(u'/') || (slashed.size() >= drive && slashed[1] == u':');
    QString folder = bdpFolder;
    folder.replace(u'\\', u'/');
    if (!folder.isEmpty() && !folder.endsWith(u'/')) folder += u'/';
    if (isAbsolute && !folder.isEmpty() && slashed.startsWith(folder)) return slashed.mid(folder.size());
    const bool leavesFolder = QDir::cleanPath(slashed).startsWith("..");
    return isAbsolute || leavesFolder ? slashed.section(u'/', -1) : QDir::cleanPath(slashed);
}

PlaceNames::PlaceNames(const jet::Connection& bdp)
{
    jet::Rows row(bdp, jet::NativeSql(placesSelect));
    while (row.next())
        places_.insert(row.text(0), {item(row.text(1)), row.text(2)});
}

QString PlaceNames::hierarchy(const parish::Place& place) const
{
    QStringList items;
    for (int i = 0; i < placeLevels; ++i)
        items << QString();
    QString key = place.level + place.code;
    if (!places_.contains(key)) {
        const int at = itemOf(place.level);
        items[qMax(0, at)] = '(' + item(place.code) + ')';
        return items.join(", ");
    }
    for (int i = 0; i < placeLevels; ++i) {
        const auto found = places_.constFind(key);
        if (found == places_.constEnd()) break;
        items[itemOf(key.at(0))] = found->name;
        key = found->within;
        if (key.isEmpty()) break;
    }
    return items.join(", ");
}

} // namespace study::exchange
