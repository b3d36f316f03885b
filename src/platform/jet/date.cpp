#include "platform/jet/date.h"
#include "platform/jet/dialect.h"

#include <QRegularExpression>

namespace jet {

namespace {

constexpr int firstYear = 100;

std::optional<QDate> date(int year, int month, int day)
{
    const QDate result(year, month, day);
    if (!result.isValid() || year < firstYear) return {};
    return result;
}

bool isDigits(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// a/b/yyyy, each with all its digits.
bool hasTypedForm(const QString& text)
{
    const QStringView view(text);
    return text.size() == 10 && text[2] == u'/' && text[5] == u'/' && isDigits(view.left(2)) &&
           isDigits(view.mid(3, 2)) && isDigits(view.mid(6));
}

std::optional<QDate> typedDate(const QString& text, bool monthFirst)
{
    if (!hasTypedForm(text)) return {};
    const int first = text.left(2).toInt();
    const int second = text.mid(3, 2).toInt();
    const int year = text.mid(6).toInt();
    return monthFirst ? date(year, first, second) : date(year, second, first);
}

} // namespace

std::optional<QDate> readDate(const QString& text)
{
    static const QRegularExpression separated(QStringLiteral("^([0-9]{1,2})/([0-9]{1,2})/([0-9]{4})\\z"));
    static const QRegularExpression together(QStringLiteral("^([0-9]{2})([0-9]{2})([0-9]{4})\\z"));
    auto match = separated.match(text);
    if (!match.hasMatch()) match = together.match(text);
    if (!match.hasMatch()) return {};
    return date(match.captured(3).toInt(), match.captured(2).toInt(), match.captured(1).toInt());
}

std::optional<QDate> readDateEitherWay(const QString& text)
{
    const auto dayFirst = typedDate(text, false);
    return dayFirst ? dayFirst : typedDate(text, true);
}

std::optional<QDate> readDateLiteral(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^\\s*([0-9]{1,2})/([0-9]{1,2})/([0-9]{4})\\s*$"));
    const auto match = form.match(text);
    if (!match.hasMatch()) return readStoredDate(text.trimmed());
    const int first = match.captured(1).toInt();
    const int second = match.captured(2).toInt();
    const int year = match.captured(3).toInt();
    const auto monthFirst = date(year, first, second);
    return monthFirst ? monthFirst : date(year, second, first);
}

std::optional<QDate> readStoredDate(const QString& text)
{
    const QStringView view(text);
    if (text.size() != 10 || text[4] != u'-' || text[7] != u'-' || !isDigits(view.left(4)) ||
        !isDigits(view.mid(5, 2)) || !isDigits(view.mid(8)))
        return {};
    return date(text.left(4).toInt(), text.mid(5, 2).toInt(), text.mid(8).toInt());
}

QString storedDate(const QDate& date)
{
    return QStringLiteral("%1-%2-%3")
        .arg(date.year(), 4, 10, QLatin1Char('0'))
        .arg(date.month(), 2, 10, QLatin1Char('0'))
        .arg(date.day(), 2, 10, QLatin1Char('0'));
}

std::optional<QString> comparedDate(const QString& text)
{
    auto date = readStoredDate(text);
    if (!date) date = readDateEitherWay(text);
    if (!date) return {};
    return storedDate(*date);
}

} // namespace jet
