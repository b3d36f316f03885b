#include "study/acts/date.h"

#include "study/names/fold.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>

namespace study {

bool PartialDate::isComplete() const
{
    return !about && QDate::isValid(year, month, day);
}

// A month or a day that isn't told fits any; the 29th of February fits a year that isn't told.
bool PartialDate::isPossible() const
{
    if (year < 0 || year > 9999 || month < 0 || month > 12 || day < 0) return false;
    if (day == 0) return true;
    if (month == 0) return day <= 31;
    const int leapYear = 2000;
    return QDate::isValid(year == 0 ? leapYear : year, month, day);
}

std::optional<QDate> PartialDate::standing() const
{
    constexpr int firstYear = 100; // of a date column
    if (year < firstYear || !isPossible()) return {};
    if (month == 0) return QDate(year, 1, 1); // a day without its month tells nothing
    return QDate(year, month, day == 0 ? 1 : day);
}

PartialDate partialDate(const QDate& day)
{
    if (!day.isValid()) return {};
    return {.year = day.year(), .month = day.month(), .day = day.day()};
}

static QString twoDigits(int number)
{
    return number == 0 ? QString("?") : QString::number(number).rightJustified(2, '0');
}

QString shown(const PartialDate& date)
{
    QStringList numbers;
    if (date.day != 0) numbers << twoDigits(date.day);
    if (date.day != 0 || date.month != 0) numbers << twoDigits(date.month);
    if (!numbers.isEmpty() || date.year != 0) numbers << (date.year == 0 ? QString("?") : QString::number(date.year));
    QString text = numbers.join('/');
    if (date.about) text.prepend(text.isEmpty() ? "cerca de ?" : "cerca de ");
    if (date.text.isEmpty()) return text;
    return text.isEmpty() ? date.text : text + " (" + date.text + ')';
}

static int numberIn(const QString& digits)
{
    return digits.contains('?') ? 0 : digits.toInt();
}

// The number of a month by its name, as it is written today or was then; 0 for any other word.
static int monthNamed(const QString& word)
{
    static const QHash<QString, int> names{
        {"janeiro", 1},   {"jan", 1},   {"fevereiro", 2}, {"fev", 2},       {"marco", 3}, {"mar", 3},
        {"abril", 4},     {"abr", 4},   {"maio", 5},      {"mayo", 5},      {"mai", 5},   {"junho", 6},
        {"jun", 6},       {"julho", 7}, {"jul", 7},       {"agosto", 8},    {"ago", 8},   {"setembro", 9},
        {"septembro", 9}, {"set", 9},   {"7bro", 9},      {"outubro", 10},  {"out", 10},  {"8bro", 10},
        {"novembro", 11}, {"nov", 11},  {"9bro", 11},     {"dezembro", 12}, {"dez", 12},  {"10bro", 12}};
    return names.value(fold::plain(word));
}

// "2 de Março de 1801", "aos 2 dias do mês de Março de 1801", "em Março": the month by its name.
static std::optional<PartialDate> readWithMonthName(const QString& typed)
{
    static const QRegularExpression form(R"(^\s*(?:(?:aos?|em|no)\s+)?)"
                                         R"((?:(\d{1,2}|\?)\s*º?[\s\-/.]+(?:dias?\s+)?(?:de\s+)?)?)"
                                         R"((?:(?:do\s+)?m[eê]s\s+de\s+)?)"
                                         R"((\d{0,2}\p{L}+)(?:[\s,\-/.]+(?:de\s+)?(\d{3,4}|\?))?\.?\s*$)",
                                         QRegularExpression::CaseInsensitiveOption |
                                             QRegularExpression::UseUnicodePropertiesOption);
    const auto match = form.match(typed);
    const int month = match.hasMatch() ? monthNamed(match.captured(2)) : 0;
    if (month == 0) return {};
    return PartialDate{.year = numberIn(match.captured(3)), .month = month, .day = numberIn(match.captured(1))};
}

PartialDate readPartialDate(const QString& typed)
{
    static const QRegularExpression form(R"(^\s*(c\.|ca\.?|cerca\s+de|por\s+volta\s+de|~)?\s*)"
                                         R"((?:(?:(\d{1,2}|\?)\s*[/.\-]\s*)?(\d{1,2}|\?)\s*[/.\-]\s*)?(\d{1,4}|\?)\s*)"
                                         R"((?:\((.*)\))?\s*$)",
                                         QRegularExpression::CaseInsensitiveOption |
                                             QRegularExpression::DotMatchesEverythingOption);
    if (typed.trimmed().isEmpty()) return {};
    const auto match = form.match(typed);
    if (!match.hasMatch()) return readWithMonthName(typed).value_or(PartialDate{.text = typed.trimmed()});
    const PartialDate date{.year = numberIn(match.captured(4)),
                           .month = numberIn(match.captured(3)),
                           .day = numberIn(match.captured(2)),
                           .about = !match.captured(1).isEmpty(),
                           .text = match.captured(5)};
    const bool onlyText = date == PartialDate{.text = date.text};
    return onlyText && !date.text.isEmpty() ? PartialDate{.text = typed.trimmed()} : date;
}

} // namespace study
