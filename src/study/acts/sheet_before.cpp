// What the act before lets expect of the next one.
#include "study/acts/sheet.h"

#include <QRegularExpression>

namespace study {

QString nextNumber(const QString& number)
{
    static const QRegularExpression beginning(R"(^\s*(\d{1,9}))");
    const auto match = beginning.match(number);
    if (!match.hasMatch()) return {};
    const QString digits = match.captured(1);
    return QString::number(digits.toLongLong() + 1).rightJustified(digits.size(), '0');
}

PartialDate readDateAfter(const QString& typed, const PartialDate& before)
{
    static const QRegularExpression day(R"(^\s*(\d{1,2})\s*$)");
    static const QRegularExpression dayAndMonth(R"(^\s*(\d{1,2}|\?)\s*[/.\-]\s*(\d{1,2})\s*$)");
    constexpr int months = 12;
    if (const auto match = day.match(typed); match.hasMatch())
        return {.year = before.year, .month = before.month, .day = match.captured(1).toInt()};
    const auto match = dayAndMonth.match(typed);
    if (!match.hasMatch() || match.captured(2).toInt() > months) return readPartialDate(typed);
    return {.year = before.year, .month = match.captured(2).toInt(), .day = match.captured(1).toInt()};
}

// As he stood in the act before, with what was concluded of him.
static void proposeCelebrant(Sheet& sheet, const ActRecord& before)
{
    const int last = celebrantOf(before.act);
    if (last < 0) return;
    ActPerson proposed = before.act.people[last];
    proposed.id.clear();
    proposed.sameAs.clear();
    const int now = celebrantOf(sheet.act);
    sheet.act.people[now] = proposed;
    Identity identity = before.conclusions.people.value(last);
    if (const qint64 nind = before.people.value(last); nind != 0)
        identity = {.kind = Identity::Kind::Known, .nind = nind, .reason = "o celebrante do acto anterior"};
    sheet.conclusions.people[now] = identity;
}

Sheet newSheet(ActKind kind, const std::optional<ActRecord>& before)
{
    Sheet sheet = sheetOf(Act{.kind = kind}, {});
    if (!before) return sheet;
    const Act& last = before->act;
    if (last.kind == kind) {
        sheet.act.book = last.book;
        sheet.act.folio = last.folio;
        sheet.act.number = nextNumber(last.number);
    }
    sheet.act.place = {.value = last.place.value};
    const auto place = before->conclusions.places.constFind(last.place.value);
    if (place != before->conclusions.places.cend() && !place->code.isEmpty())
        sheet.conclusions.places.insert(last.place.value, *place);
    proposeCelebrant(sheet, *before);
    return sheet;
}

} // namespace study
