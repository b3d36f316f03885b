// The list of the acts, and what is missing in it.
#include "platform/jet/jsonrow.h"
#include "study/acts/register.h"
#include "study/acts/register_tables.h"

#include <QHash>

#include <algorithm>
#include <compare>

namespace study {

namespace {

// A text as a row of numbers and words, so that "Livro 2" stands before "Livro 10".
int naturally(const QString& one, const QString& other)
{
    qsizetype i = 0, k = 0;
    const auto digitsAt = [](const QString& text, qsizetype from) {
        qsizetype end = from;
        while (end < text.size() && text[end].isDigit())
            ++end;
        return QStringView(text).mid(from, end - from);
    };
    const auto withoutZeros = [](QStringView digits) {
        while (digits.size() > 1 && digits.front().digitValue() == 0)
            digits = digits.mid(1);
        return digits;
    };
    while (i < one.size() && k < other.size()) {
        const QStringView digits = digitsAt(one, i), others = digitsAt(other, k);
        int order = 0;
        if (digits.isEmpty() || others.isEmpty()) {
            order = QString::compare(one[i++], other[k++], Qt::CaseInsensitive);
        } else {
            i += digits.size();
            k += others.size();
            const QStringView number = withoutZeros(digits), otherNumber = withoutZeros(others);
            order = number.size() != otherNumber.size() ? (number.size() < otherNumber.size() ? -1 : 1)
                                                        : number.compare(otherNumber);
        }
        if (order != 0) return order;
    }
    if (i < one.size() || k < other.size()) return i < one.size() ? 1 : -1;
    return one.compare(other);
}

struct Listed
{
    ActLine line;
    std::optional<int> number; // "7" and "7A" count as 7; none for a text
};

std::optional<int> countedNumber(const QString& text)
{
    static constexpr int mostDigits = 9;
    const QString trimmed = text.trimmed();
    int digits = 0;
    while (digits < trimmed.size() && trimmed[digits].isDigit())
        ++digits;
    if (digits == 0 || digits > mostDigits) return {};
    int number = 0;
    for (int i = 0; i < digits; ++i)
        number = number * 10 + trimmed[i].digitValue();
    return number;
}

bool sameBook(const ActLine& one, const ActLine& other)
{
    return one.kind == other.kind && naturally(one.book, other.book) == 0;
}

bool before(const Listed& one, const Listed& other)
{
    if (one.line.kind != other.line.kind) return one.line.kind < other.line.kind;
    if (const int book = naturally(one.line.book, other.line.book); book != 0) return book < 0;
    if (one.number.has_value() != other.number.has_value()) return one.number.has_value();
    if (const int number = naturally(one.line.number, other.line.number); number != 0) return number < 0;
    const auto day = [](const PartialDate& date) { return std::tuple(date.year, date.month, date.day); };
    return std::tuple(day(one.line.date), one.line.id) < std::tuple(day(other.line.date), other.line.id);
}

QHash<qint64, QStringList> subjectsByAct(jet::Connection& bdp)
{
    QHash<qint64, QStringList> names;
    const jet::NativeSql select(
        "select acto, nome, nome_actual from estudo_pessoa where papel in (?, ?, ?, ?) order by "
        "acto, ordem",
        {tables::word(Role::Child), tables::word(Role::Groom), tables::word(Role::Bride),
         tables::word(Role::Deceased)});
    for (const QJsonObject& row : jet::jsonRows(bdp, select)) {
        const QString name =
            currentName({.name = {.value = row["nome"].toString()}, .standardName = row["nome_actual"].toString()});
        if (!name.isEmpty()) names[row["acto"].toInteger()] << name;
    }
    return names;
}

QList<Listed> sorted(jet::Connection& bdp)
{
    QList<Listed> all;
    const QHash<qint64, QStringList> names = subjectsByAct(bdp);
    for (const QJsonObject& row : jet::jsonRows(bdp, jet::NativeSql("select id, tipo, livro, folio, numero, ano, mes, "
                                                                    "dia, cerca, data_texto from estudo_acto")))
    {
        ActLine line{.id = row["id"].toInteger(),
                     .kind = tables::kindOf(row["tipo"].toString()),
                     .book = row["livro"].toString(),
                     .folio = row["folio"].toString(),
                     .number = row["numero"].toString(),
                     .date = {.year = row["ano"].toInt(),
                              .month = row["mes"].toInt(),
                              .day = row["dia"].toInt(),
                              .about = row["cerca"].toInt() != 0,
                              .text = row["data_texto"].toString()}};
        line.subjects = names.value(line.id).join(" e ");
        const std::optional<int> number = countedNumber(line.number);
        all << Listed{std::move(line), number};
    }
    std::ranges::sort(all, before);
    return all;
}

} // namespace

QList<ActLine> listActs(jet::Connection& bdp)
{
    QList<ActLine> lines;
    if (!hasActs(bdp)) return lines;
    const QList<Listed> acts = sorted(bdp);
    lines.reserve(acts.size());
    const Listed* last = nullptr;
    for (const Listed& act : acts) {
        if (last && last->number && act.number && sameBook(last->line, act.line) && *act.number > *last->number + 1)
            lines << ActLine{.kind = act.line.kind,
                             .book = act.line.book,
                             .number = QString::number(*last->number + 1),
                             .missing = *act.number - *last->number - 1};
        lines << act.line;
        last = &act;
    }
    return lines;
}

QHash<qint64, QStringList> namesByAct(jet::Connection& bdp)
{
    QHash<qint64, QStringList> names;
    if (!hasActs(bdp)) return names;
    const jet::NativeSql select("select acto, nome, nome_actual from estudo_pessoa order by acto, ordem");
    for (const QJsonObject& row : jet::jsonRows(bdp, select))
        for (const QJsonValue& name : {row["nome"], row["nome_actual"]})
            if (!name.toString().isEmpty()) names[row["acto"].toInteger()] << name.toString();
    return names;
}

} // namespace study
