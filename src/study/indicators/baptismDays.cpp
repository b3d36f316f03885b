#include "study/indicators/baptismDays.h"

#include "study/names/fold.h"

#include <algorithm>
#include <array>

namespace study::indicators {

namespace {

// Of the beginning of a month's name, or of the old way to write it: "7bro".
struct Month
{
    const char* begins;
    int number;
};
constexpr std::array<Month, 22> namesOfMonths = {
    {{"jan", 1},  {"fev", 2},  {"feb", 2},   {"mar", 3},   {"abr", 4},    {"mai", 5},  {"may", 5},  {"jun", 6},
     {"jul", 7},  {"ago", 8},  {"set", 9},   {"sep", 9},   {"out", 10},   {"oct", 10}, {"nov", 11}, {"dez", 12},
     {"dec", 12}, {"7bro", 9}, {"8bro", 10}, {"9bro", 11}, {"10bro", 12}, {"xbro", 12}}};

// 0 for what is no month.
int monthNamed(const QString& told)
{
    bool isNumber = false;
    if (const int number = told.toInt(&isNumber); isNumber) return number;
    const QString word = fold::plain(told).trimmed();
    const auto found = std::find_if(namesOfMonths.begin(), namesOfMonths.end(), [&word](const Month& month) {
        return word.startsWith(QLatin1String(month.begins));
    });
    return found == namesOfMonths.end() ? 0 : found->number;
}

QRegularExpression insensitive(const QString& pattern)
{
    return QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption |
                                           QRegularExpression::UseUnicodePropertiesOption);
}

// "(nasceu\s+a|n\.)", at the beginning of a word; nothing where no words are given.
QString anyOf(const QString& words)
{
    QStringList all;
    for (const QString& each : words.split(u';')) {
        QStringList parts;
        for (const QString& part : each.simplified().split(u' ', Qt::SkipEmptyParts))
            parts << QRegularExpression::escape(part);
        if (!parts.isEmpty()) all << parts.join("\\s+");
    }
    return all.isEmpty() ? QString() : "(?<![\\p{L}\\p{N}])(?:" + all.join('|') + ")";
}

} // namespace

DaysInNotes::DaysInNotes(const QString& words)
{
    const QString any = anyOf(words);
    if (any.isEmpty()) return;
    words_ = insensitive(any);
    pattern_ =
        insensitive(any + "\\s*:?\\s*(\\d{1,2})\\s*(?:[/.-]|\\sde\\s|\\s)\\s*(\\d{1,2}(?:bro)?|\\p{L}{3,10})\\b\\.?"
                          "(?:\\s*(?:[/.-]|\\bde\\s|\\s)\\s*(\\d{4})(?!\\d))?");
}

bool DaysInNotes::isIn(const QString& notes) const
{
    return words_ && words_->match(notes).hasMatch();
}

std::optional<QDate> DaysInNotes::found(const QString& notes, QDate day, int step) const
{
    if (isEmpty() || !day.isValid()) return {};
    const QRegularExpressionMatch told = pattern_->match(notes);
    if (!told.hasMatch()) return {};
    const int month = monthNamed(told.captured(2)), of = told.captured(1).toInt();
    const bool hasYear = !told.captured(3).isEmpty();
    QDate date(hasYear ? told.captured(3).toInt() : day.year(), month, of);
    const bool isBeyond = step < 0 ? date > day : date < day;
    if (!hasYear && (!date.isValid() || isBeyond)) date = QDate(day.year() + step, month, of);
    return date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QDate> DaysInNotes::lastUntil(const QString& notes, QDate day) const
{
    return found(notes, day, -1);
}

std::optional<QDate> DaysInNotes::firstFrom(const QString& notes, QDate day) const
{
    return found(notes, day, 1);
}

BaptismReader::BaptismReader(const Settings& settings)
    : list_(settings.baptisms), births_(settings.birthWords), baptisms_(settings.baptismWords)
{
}

BaptismTold BaptismReader::read(const parish::Person& child, const QString& notes) const
{
    const auto listed = list_.find(child.number);
    if (listed != list_.end()) return {BaptismTold::By::List, listed->second};
    return notes.isEmpty() ? BaptismTold() : readNotes(child, notes);
}

BaptismTold BaptismReader::readNotes(const parish::Person& child, const QString& notes) const
{
    using By = BaptismTold::By;
    if (!births_.isIn(notes) && !baptisms_.isIn(notes)) return {};
    if (!child.birth.isExact()) return {By::Approximate};
    const QDate card = child.birth.date();
    const auto birth = births_.lastUntil(notes, card);
    const auto baptism = baptisms_.firstFrom(notes, birth.value_or(card));
    if (!birth && !baptism) return {By::Unread};
    return {By::Notes, {birth.value_or(card), baptism.value_or(card)}};
}

} // namespace study::indicators
