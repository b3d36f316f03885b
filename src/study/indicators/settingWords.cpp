#include "study/indicators/settingWords.h"

#include "study/indicators/causes.h"
#include "study/indicators/reading.h"

#include <algorithm>

namespace study::indicators::words {

namespace {

// In the order of their enumerations.
constexpr std::array<const char*, 4> series{"baptismos", "casamentos", "óbitos", "óbitos de menores"};
constexpr std::array<const char*, 3> births{"todos", "legítimos", "ilegítimos"};
constexpr std::array<const char*, 3> genders{"ambos", "homens", "mulheres"};
constexpr std::array<const char*, 5> legitimacies{"legítima", "legitimada", "ilegítima", "exposto", "desconhecida"};

template <class Enum, std::size_t n>
QString wordOf(Enum value, const std::array<const char*, n>& words)
{
    return words[static_cast<std::size_t>(value)];
}

} // namespace

QString ofYesNo(bool value)
{
    return value ? "sim" : "não";
}

QString ofYears(int years)
{
    return QString("%1 anos").arg(years);
}

QString ofSpan(const YearSpan& span)
{
    if (span.first == 0 && span.last == 0) return "todos os anos";
    if (span.last == 0) return QString("desde %1").arg(span.first);
    if (span.first == 0) return QString("até %1").arg(span.last);
    if (span.first == span.last) return QString::number(span.first);
    return QString("%1–%2").arg(span.first).arg(span.last);
}

QString ofWhich(Which which)
{
    return wordOf(which, births);
}

QString ofGender(parish::Gender gender)
{
    return wordOf(gender, genders);
}

QString ofBooks(const std::array<YearSpan, 4>& books)
{
    QStringList limited;
    for (std::size_t i = 0; i < books.size(); ++i)
        if (books[i] != YearSpan()) limited << QString(series[i]) + ' ' + ofSpan(books[i]);
    return limited.isEmpty() ? QString("todos os anos") : limited.join("; ");
}

QString ofGaps(const std::array<std::vector<YearSpan>, 4>& gaps)
{
    QStringList all;
    for (std::size_t i = 0; i < gaps.size(); ++i) {
        QStringList spans;
        for (const YearSpan& gap : gaps[i])
            if (gap != YearSpan()) spans << ofSpan(gap); // one without limits stands for none
        if (!spans.isEmpty()) all << QString(series[i]) + ' ' + spans.join(", ");
    }
    return all.isEmpty() ? QString("nenhuma") : all.join("; ");
}

QString ofCodes(const QStringList& codes)
{
    return codes.isEmpty() ? QString("nenhuma") : codes.join(", ");
}

QString ofFiliations(const QHash<int, Legitimacy>& filiations)
{
    if (filiations.isEmpty()) return "como é regra";
    QList<int> codes = filiations.keys();
    std::sort(codes.begin(), codes.end());
    QStringList all;
    for (const int code : codes)
        all << QString("%1: %2").arg(QString::number(code), wordOf(filiations.value(code), legitimacies));
    return all.join("; ");
}

QString ofShare(double share)
{
    return decimalComma(100 * share, 1).remove(QString(",0")) + " %";
}

QString ofCauses(const QMap<QString, QString>& causes)
{
    if (causes.isEmpty()) return "como é regra";
    QStringList all;
    for (auto it = causes.cbegin(); it != causes.cend(); ++it)
        all << QString("%1: %2").arg(it.key(), nameOfCause(std::max(0, causeById(it.value()))));
    return all.join("; ");
}

QString ofNotes(const QString& words)
{
    return words.trimmed().isEmpty() ? QString("não se lêem") : words.simplified();
}

QString ofBaptisms(std::size_t children)
{
    if (children == 0) return "a da BDP, se a tem"; // counts don't take it along
    return children == 1 ? QString("1 criança") : QString("%1 crianças").arg(children);
}

QString ofBase(int firstYear)
{
    return firstYear == 0 ? QString("os primeiros dez anos seguidos")
                          : QString("%1–%2").arg(firstYear).arg(firstYear + 9);
}

} // namespace study::indicators::words
