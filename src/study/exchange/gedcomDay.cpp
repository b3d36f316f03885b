#include "study/exchange/gedcomDay.h"

#include <QCalendar>
#include <QRegularExpression>

#include <array>
#include <tuple>

namespace study::exchange {

namespace {

// Months by their names in English and in Portuguese: three letters are enough.
struct MonthWords
{
    const char* english;
    const char* portuguese;
};
constexpr std::array<MonthWords, 12> monthWords = {{{"JANUARY", "JANEIRO"},
                                                    {"FEBRUARY", "FEVEREIRO"},
                                                    {"MARCH", "MARCO"},
                                                    {"APRIL", "ABRIL"},
                                                    {"MAY", "MAIO"},
                                                    {"JUNE", "JUNHO"},
                                                    {"JULY", "JULHO"},
                                                    {"AUGUST", "AGOSTO"},
                                                    {"SEPTEMBER", "SETEMBRO"},
                                                    {"OCTOBER", "OUTUBRO"},
                                                    {"NOVEMBER", "NOVEMBRO"},
                                                    {"DECEMBER", "DEZEMBRO"}}};

// A calendar by its names: the first one is that of 7.0.
struct Calendar
{
    const char* name;
    const char* inEscape; // "@#DFRENCH R@"
    const char* why;      // it isn't converted; null where it is
};
constexpr Calendar calendars[] = {
    {"GREGORIAN", "GREGORIAN", nullptr},
    {"JULIAN", "JULIAN", nullptr},
    {"FRENCH_R", "FRENCH R", "é do calendário republicano francês, que não é convertido"},
    {"HEBREW", "HEBREW", "é do calendário hebraico, que não é convertido"},
    {"ROMAN", "ROMAN", "é do calendário romano, que não é convertido"},
    {"UNKNOWN", "UNKNOWN", "é de um calendário que não se conhece"},
};

constexpr int shortestMonth = 3, firstYear = 100, lastYear = 9999;
const QDate lastJulianDay(1582, 10, 4); // in Portugal, as it was written

// 0: no month.
int monthOf(const QString& word)
{
    if (word == "SEPT") return 9;
    if (word.size() < shortestMonth) return 0;
    for (std::size_t i = 0; i < monthWords.size(); ++i)
        if (QLatin1String(monthWords[i].english).startsWith(word) ||
            QLatin1String(monthWords[i].portuguese).startsWith(word))
            return static_cast<int>(i) + 1;
    return 0;
}

const Calendar* calendarOf(const QString& word)
{
    for (const Calendar& each : calendars)
        if (word == QLatin1String(each.name)) return &each;
    return nullptr;
}

bool isBeforeChrist(const QString& word)
{
    return word == "BC" || word == "BCE" || word == "AC";
}

bool isNumber(const QString& word)
{
    return !word.isEmpty() && std::all_of(word.begin(), word.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// What stands for a day that isn't known.
bool isBlankDay(const QString& word)
{
    return !word.isEmpty() &&
           std::all_of(word.begin(), word.end(), [](QChar c) { return c == u'?' || c == u'_' || c == u'0'; });
}

// The numbers of a date, as far as they are told.
struct Numbers
{
    int day = 0, month = 0, year = 0;
    int dual = 0; // the year behind the stroke
    bool isDayBlank = false;
    bool isOrderSure = true; // "02/03/1702" can be two days
};

// 1731/32, 1731/2, 1699/00, 1731/1732: the second year in full.
int dualYear(int year, const QString& second)
{
    int power = 1;
    for (qsizetype i = 0; i < second.size(); ++i)
        power *= 10;
    const int next = year + 1;
    return second.toInt() == next % power ? next : year - year % power + second.toInt();
}

bool takeYear(const QString& word, Numbers& numbers)
{
    static constexpr int longestYear = 4;
    const qsizetype stroke = word.indexOf(u'/');
    const QString first = stroke < 0 ? word : word.left(stroke), second = stroke < 0 ? QString() : word.mid(stroke + 1);
    if (!isNumber(first) || first.size() > longestYear + 1) return false;
    if (stroke >= 0 && (!isNumber(second) || second.size() > longestYear)) return false;
    numbers.year = first.toInt();
    if (stroke >= 0) numbers.dual = dualYear(numbers.year, second);
    return true;
}

// "14/02/1702" and "1702-02-14".
bool takeFigures(const QString& word, Numbers& numbers)
{
    static const QRegularExpression written(R"(^(\d{1,2})[./-](\d{1,2})[./-](\d{3,4})$)"),
        iso(R"(^(\d{4})-(\d{2})-(\d{2})$)");
    if (const auto match = iso.match(word); match.hasMatch()) {
        numbers = {match.captured(3).toInt(), match.captured(2).toInt(), match.captured(1).toInt()};
        return true;
    }
    const auto match = written.match(word);
    if (!match.hasMatch()) return false;
    numbers = {match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt()};
    if (numbers.month > 12) std::swap(numbers.day, numbers.month);
    numbers.isOrderSure = numbers.day > 12 || numbers.day == numbers.month;
    return true;
}

// [day] [month] year, and month day year.
bool takeWords(QStringList words, Numbers& numbers)
{
    if (words.size() == 1 && takeFigures(words.first(), numbers)) return true;
    if (words.size() == 3 && monthOf(words[0]) > 0) words.swapItemsAt(0, 1);
    if (words.size() == 3) {
        numbers.isDayBlank = isBlankDay(words.first());
        if (!numbers.isDayBlank && (!isNumber(words.first()) || words.first().size() > 2)) return false;
        numbers.day = words.takeFirst().toInt();
    }
    if (words.size() == 2) {
        numbers.month = monthOf(words.takeFirst());
        if (numbers.month == 0) return false;
    }
    return words.size() == 1 && takeYear(words.first(), numbers);
}

// Until 24 March the year had begun for one of its two counts alone.
int yearMeant(const Numbers& numbers)
{
    const bool canBeBoth = numbers.month > 0 && numbers.month <= 3 && numbers.dual == numbers.year + 1;
    return canBeBoth ? numbers.dual : numbers.year;
}

GedcomDay refused(const QString& problem)
{
    GedcomDay none;
    none.saysAll = none.isSure = false;
    none.problem = problem;
    return none;
}

// Of a day that its month hasn't the last one of the month.
GedcomDay nearestDay(int year, const Numbers& numbers)
{
    GedcomDay read = refused("tem um dia que o mês não tem");
    const QDate first(year, numbers.month, 1);
    if (!first.isValid()) return refused("tem um mês que não existe");
    read.day = QDate(year, numbers.month, first.daysInMonth());
    read.isDay = true;
    return read;
}

GedcomDay dayOf(int year, const Numbers& numbers, bool isJulian)
{
    GedcomDay read;
    read.isDay = true;
    if (!isJulian || std::tuple(year, numbers.month, numbers.day) <=
                         std::tuple(lastJulianDay.year(), lastJulianDay.month(), lastJulianDay.day()))
    {
        read.day = QDate(year, numbers.month, numbers.day);
        return read.day.isValid() ? read : nearestDay(year, numbers);
    }
    static const QCalendar julian(QCalendar::System::Julian);
    read.day = QDate(year, numbers.month, numbers.day, julian);
    read.saysAll = false;
    if (read.day.isValid() && read.day.year() <= lastYear) return read;
    return nearestDay(year, numbers);
}

GedcomDay found(const Numbers& numbers, bool isJulian)
{
    const int year = yearMeant(numbers);
    if (year < firstYear) return refused("tem um ano de menos de três algarismos");
    if (year > lastYear) return refused("tem um ano com algarismos a mais");
    GedcomDay read;
    if (numbers.day > 0)
        read = dayOf(year, numbers, isJulian);
    else {
        read.day = QDate(year, qMax(1, numbers.month), 1);
        read.saysAll = false;
    }
    if (numbers.dual != 0) {
        read.saysAll = false;
        read.isSure = read.isSure && numbers.dual == numbers.year + 1 && year == numbers.dual;
    }
    if (!numbers.isOrderSure) read.saysAll = read.isSure = false;
    return read;
}

// As a strict writer has it.
bool isPlain(QChar letter)
{
    return letter == u' ' || (letter >= u'A' && letter <= u'Z') || (letter >= u'0' && letter <= u'9');
}

bool isJoining(const QString& word)
{
    return word == "DE" || word == "DO" || word == "DIA" || word == "AD" || word == "CE" || word == "DC";
}

// Escapes of calendars as words, "1700-1710" as a range, "14-FEB-1702" and "c.1702" in pieces.
QString spelledOut(const QString& text)
{
    static const QRegularExpression escape(R"(@#D?([^@]*)@)"), span(R"(\b(\d{3,4})\s*-\s*(\d{3,4})\b(?!-))"),
        ordinal(R"((\d)\.?[º°ª])"), behindFigure(R"((\d)[-/.](\p{L}))"), beforeFigure(R"((\p{L})[-/.](\d))");
    QString plain;
    qsizetype at = 0;
    for (auto all = escape.globalMatch(text); all.hasNext();) {
        const auto match = all.next();
        QString name = match.captured(1).trimmed().toUpper();
        for (const Calendar& each : calendars)
            if (name == QLatin1String(each.inEscape)) name = each.name;
        plain += text.sliced(at, match.capturedStart() - at) + ' ' + (calendarOf(name) ? name : "UNKNOWN") + ' ';
        at = match.capturedEnd();
    }
    plain += text.sliced(at);
    plain.replace(ordinal, "\\1")
        .replace(span, "\\1 TO \\2")
        .replace(behindFigure, "\\1 \\2")
        .replace(beforeFigure, "\\1 \\2");
    return plain;
}

// In capitals, without accents and dots; "1st" as "1".
QString folded(const QString& word)
{
    static const QRegularExpression ordinal(R"(^(\d{1,2})(TH|ST|ND|RD)$)");
    const QString capitals = word.toUpper();
    if (const auto number = ordinal.match(capitals); number.hasMatch()) return number.captured(1);
    QString letters;
    for (const QChar letter : capitals.normalized(QString::NormalizationForm_KD))
        if (!letter.isMark()) letters += letter;
    while (letters.endsWith(u'.'))
        letters.chop(1);
    QString undotted = letters;
    undotted.remove(u'.');
    return isBeforeChrist(undotted) || isJoining(undotted) ? undotted : letters;
}

} // namespace

QStringList gedcomDateWords(const QString& text)
{
    QStringList words;
    if (std::all_of(text.begin(), text.end(), isPlain)) {
        words = text.split(u' ', Qt::SkipEmptyParts);
    } else {
        static const QRegularExpression blanks(R"([\s,]+)");
        for (const QString& word : spelledOut(text).split(blanks, Qt::SkipEmptyParts))
            words << folded(word);
    }
    words.removeIf([](const QString& word) { return word.isEmpty() || isJoining(word); });
    return words;
}

GedcomDay gedcomDay(const QStringList& words)
{
    QStringList rest = words;
    const Calendar* calendar = rest.isEmpty() ? nullptr : calendarOf(rest.first());
    if (calendar) rest.removeFirst();
    if (calendar && calendar->why) return refused(calendar->why);
    if (!rest.isEmpty() && isBeforeChrist(rest.last())) return refused("é de antes de Cristo");
    bool isDoubted = false;
    if (!rest.isEmpty() && rest.last().size() > 1 && rest.last().endsWith(u'?')) {
        isDoubted = true;
        rest.last().chop(1);
    } else if (rest.size() > 1 && (rest.last() == "?" || rest.last() == "(?)")) {
        isDoubted = true;
        rest.removeLast();
    }
    Numbers numbers;
    if (!takeWords(rest, numbers)) return refused("não se consegue ler");
    GedcomDay read = found(numbers, calendar && QLatin1String(calendar->name) == QLatin1String("JULIAN"));
    if (isDoubted || numbers.isDayBlank) read.saysAll = false;
    if (isDoubted) read.isSure = false;
    return read;
}

} // namespace study::exchange
