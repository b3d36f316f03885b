#include "study/windows/studySettingsText.h"

#include <QRegularExpression>
#include <QStringList>

namespace study {

using indicators::Legitimacy;
using indicators::YearSpan;

namespace {

constexpr double perCent = 100, mostMissing = 0.2;
constexpr int digitsOfAShare = 6;

} // namespace

std::optional<int> yearFrom(const QString& text)
{
    static const QRegularExpression year("^[0-9]{1,4}$");
    const QString typed = text.trimmed();
    if (typed.isEmpty()) return 0;
    if (!year.match(typed).hasMatch() || typed.toInt() == 0) return {};
    return typed.toInt();
}

QString shownYear(int year)
{
    return year == 0 ? QString() : QString::number(year);
}

std::optional<YearSpan> spanFrom(const QString& first, const QString& last)
{
    const auto from = yearFrom(first), until = yearFrom(last);
    if (!from || !until || (*until != 0 && *until < *from)) return {};
    return YearSpan{*from, *until};
}

std::optional<std::vector<YearSpan>> gapsFrom(const QString& text)
{
    std::vector<YearSpan> gaps;
    for (const QString& piece : text.split(';', Qt::SkipEmptyParts)) {
        if (piece.trimmed().isEmpty()) continue;
        const QStringList limits = QString(piece).replace(QChar(0x2013), '-').split('-');
        if (limits.size() > 2) return {};
        const auto gap = spanFrom(limits.first(), limits.last());
        if (!gap || *gap == YearSpan()) return {};
        gaps.push_back(*gap);
    }
    return gaps;
}

QString shownGaps(const std::vector<YearSpan>& gaps)
{
    QStringList pieces;
    for (const YearSpan& gap : gaps)
        pieces << (gap.first == gap.last ? shownYear(gap.first) : shownYear(gap.first) + '-' + shownYear(gap.last));
    return pieces.join("; ");
}

std::optional<double> shareFrom(const QString& text)
{
    static const QRegularExpression number("^[0-9]{1,3}([.,][0-9]{1,6})?$");
    const QString typed = text.trimmed();
    if (typed.isEmpty()) return 0.0;
    if (!number.match(typed).hasMatch()) return {};
    const double share = QString(typed).replace(',', '.').toDouble() / perCent;
    return share > mostMissing ? std::optional<double>() : share;
}

QString shownShare(double share)
{
    return QString::number(share * perCent, 'g', digitsOfAShare).replace('.', ',');
}

QString inWords(Legitimacy legitimacy)
{
    switch (legitimacy) {
    case Legitimacy::Legitimate:
        return "legítima";
    case Legitimacy::Legitimised:
        return "legitimada";
    case Legitimacy::Illegitimate:
        return "ilegítima";
    case Legitimacy::Foundling:
        return "exposto";
    case Legitimacy::Unknown:
        break;
    }
    return "desconhecida";
}

} // namespace study
