#include "study/exchange/gedcomDate.h"

#include "study/exchange/gedcomDay.h"

#include <vector>

namespace study::exchange {

namespace {

enum class Said : quint8
{
    Nothing,
    About,  // ABT
    Worked, // CAL, EST, INT: the BDP doesn't know these from one another
    Before, // BEF
    After,  // AFT
    From,   // FROM, BET
    Until   // TO, AND
};

// The words of both versions, and those of habit.
struct Keyword
{
    const char* word;
    Said said;
};
constexpr Keyword keywords[] = {
    {"ABT", Said::About},  {"ABOUT", Said::About}, {"CIRCA", Said::About},   {"CA", Said::About},
    {"C", Said::About},    {"CERCA", Said::About}, {"CAL", Said::Worked},    {"EST", Said::Worked},
    {"INT", Said::Worked}, {"BEF", Said::Before},  {"BEFORE", Said::Before}, {"ANTES", Said::Before},
    {"AFT", Said::After},  {"AFTER", Said::After}, {"DEPOIS", Said::After},  {"APOS", Said::After},
    {"FROM", Said::From},  {"BET", Said::From},    {"BETWEEN", Said::From},  {"ENTRE", Said::From},
    {"DESDE", Said::From}, {"TO", Said::Until},    {"AND", Said::Until},     {"ATE", Said::Until},
    {"A", Said::Until},    {"E", Said::Until},     {"-", Said::Until},
};

Said saidBy(const QString& word)
{
    for (const Keyword& each : keywords)
        if (word == QLatin1String(each.word)) return each.said;
    return Said::Nothing;
}

// A day and the word before it.
struct Part
{
    Said said = Said::Nothing;
    QStringList words = {};
    bool isAbout = false; // "FROM ABT 1700"
};

std::vector<Part> partsOf(const QString& text)
{
    std::vector<Part> parts;
    for (const QString& word : gedcomDateWords(text)) {
        const Said said = saidBy(word);
        const bool isAbout = said == Said::About || said == Said::Worked;
        if (said != Said::Nothing && isAbout && !parts.empty() && parts.back().words.isEmpty())
            parts.back().isAbout = true;
        else if (said != Said::Nothing || parts.empty())
            parts.push_back({said});
        if (said == Said::Nothing) parts.back().words << word;
    }
    return parts;
}

// One day, or one and the end of a range.
bool isReadable(const std::vector<Part>& parts)
{
    for (const Part& part : parts)
        if (part.words.isEmpty()) return false;
    if (parts.size() == 1) return true;
    return parts.size() == 2 && (parts[0].said == Said::From || parts[0].said == Said::Nothing) &&
           parts[1].said == Said::Until;
}

// What stands in brackets at the end is a phrase: "INT 1702 (dia de Reis)".
struct Value
{
    QString whole = {}; // for the notes
    QString date = {};
    bool hasPhrase = false;
};

Value valueOf(const QString& text, const QString& phrase)
{
    Value value;
    value.whole = text.simplified();
    value.date = value.whole;
    if (const qsizetype open = value.date.indexOf(u'(');
        open >= 0 && value.date.endsWith(u')') && value.date.sliced(open) != "(?)")
    {
        value.hasPhrase = true;
        if (open == 0) value.whole = value.whole.sliced(1).chopped(1).simplified();
        value.date = value.date.left(open).trimmed();
    }
    const QString further = phrase.simplified();
    if (further.isEmpty()) return value;
    value.hasPhrase = true;
    value.whole = value.whole.isEmpty() ? further : value.whole + " (" + further + ')';
    return value;
}

QString problemOf(const Value& value, const QString& why)
{
    return why.isEmpty() ? QString() : QString("A data \"%1\" %2: ficou nas notas.").arg(value.whole.left(60), why);
}

constexpr auto unreadable = "não se consegue ler";

} // namespace

GedcomDateRead readGedcomDate(const QString& text, const QString& phrase)
{
    const Value value = valueOf(text, phrase);
    GedcomDateRead read;
    const std::vector<Part> parts = partsOf(value.date);
    if (parts.empty() || !isReadable(parts)) {
        read.rest = value.whole;
        if (!parts.empty()) read.problem = problemOf(value, unreadable);
        return read;
    }
    const Part& part = parts.front();
    const GedcomDay day = gedcomDay(part.words);
    const bool isExact = day.isDay && day.isSure && part.said == Said::Nothing && parts.size() == 1;
    read.date = parish::dateOf(day.day, isExact);
    // "ABT 1702" and "ABT 14 FEB 1702" are what the BDP says; of another day that is about a 1 January it keeps the
    // year.
    const bool isYearAlone = !day.isDay && part.words.size() == 1 && part.words.first().size() <= 4;
    const bool saysAbout = part.said == Said::About && parts.size() == 1 && !part.isAbout &&
                           (isYearAlone || (day.saysAll && read.date.precision != parish::Precision::Year));
    const bool saysAll = !value.hasPhrase && day.problem.isEmpty() && ((isExact && day.saysAll) || saysAbout);
    if (!saysAll) read.rest = value.whole;
    read.problem = problemOf(value, day.problem);
    return read;
}

GedcomPeriodRead readGedcomPeriod(const QString& text, const QString& phrase)
{
    const Value value = valueOf(text, phrase);
    GedcomPeriodRead read;
    const std::vector<Part> parts = partsOf(value.date);
    bool saysAll = !value.hasPhrase && isReadable(parts);
    if (!parts.empty() && !isReadable(parts)) read.problem = problemOf(value, unreadable);
    for (const Part& part : isReadable(parts) ? parts : std::vector<Part>()) {
        const GedcomDay day = gedcomDay(part.words);
        const bool isEnd = part.said == Said::Until || part.said == Said::Before;
        const bool isBegin = part.said == Said::From || part.said == Said::After || parts.size() == 2;
        if (!isEnd) read.from = day.day;
        if (isEnd || !isBegin) read.until = day.day;
        const bool isPlain = part.said == Said::From || part.said == Said::Until || part.said == Said::Nothing;
        saysAll = saysAll && isPlain && !part.isAbout && day.isDay && day.saysAll && day.isSure;
        if (read.problem.isEmpty()) read.problem = problemOf(value, day.problem);
    }
    if (!saysAll) read.rest = value.whole;
    return read;
}

} // namespace study::exchange
