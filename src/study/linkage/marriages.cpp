#include "study/linkage/marriages.h"

#include "study/linkage/merge_p.h"

#include <algorithm>

namespace study::linkage {

QString originOfPerson(qint64 nind)
{
    return QString("Do nº %1, junto").arg(nind);
}

Marriages::Marriages(Moving& moving, qint64 kept, qint64 other) : moving_(moving), kept_(kept)
{
    for (const qint64 nind : {kept, other})
        for (const Row& row : moving.recording.rows("familias", {{"nind", nind}}))
            spouses_.insert(row.place, {nind, row.values["numcasam"].toInteger()});
}

QList<Marriages::Marriage> Marriages::all() const
{
    QList<Marriage> found;
    for (const Row& row : moving_.recording.rows("familias", {{"nind", kept_}})) {
        const auto family = firstRow(moving_.recording, "familia", {{"nfamilia", row.values["nfamilia"]}});
        found << Marriage{.date = family ? family->values["datacasam"].toString() : QString(),
                          .row = row,
                          .number = row.values["numcasam"].toInteger()};
    }
    return found;
}

// Whether the two have one number now that they hadn't as marriages of one person.
bool Marriages::isNewClash(const Marriage& one, const Marriage& other) const
{
    const Spouse first = spouses_[one.row.place], second = spouses_[other.row.place];
    const bool isOld = first.nind == second.nind && first.number == second.number;
    return one.number > 0 && one.number == other.number && !isOld;
}

// An act that tells a second marriage is believed: the first may have been elsewhere.
QStringList Marriages::ordered()
{
    QList<Marriage> marriages = all();
    bool clashes = false;
    for (qsizetype i = 0; i < marriages.size(); ++i)
        for (qsizetype j = i + 1; j < marriages.size(); ++j)
            clashes |= isNewClash(marriages[i], marriages[j]);
    if (!clashes) return {};
    std::ranges::sort(marriages, {}, &Marriage::date);
    if (std::ranges::adjacent_find(marriages, {}, &Marriage::date) != marriages.end() ||
        marriages.first().date.isEmpty())
        return {"Dois casamentos ficam com o mesmo número de ordem: as datas não dizem qual é o primeiro."};
    qint64 last = 0;
    for (const Marriage& one : std::as_const(marriages)) {
        last = std::max(last + 1, one.number);
        if (one.number > 0 && one.number != last) renumber(one, last);
    }
    return {"Os casamentos são numerados de novo, pelas datas."};
}

void Marriages::renumber(const Marriage& marriage, qint64 number)
{
    Recording& recording = moving_.recording;
    recording.set("familias", marriage.row.place, {{"numcasam", number}});
    const auto family = firstRow(recording, "familia", {{"nfamilia", marriage.row.values["nfamilia"]}});
    if (!family) return;
    const QString lost = QString("número de casamento %1").arg(marriage.number);
    const QString of = originOfPerson(spouses_[marriage.row.place].nind);
    const QString notes = withNote(family->values["obs"].toString(), origin(of, {lost}));
    if (const QString why = whyNoNotes(family->values, {}, notes); !why.isEmpty()) moving_.refusals << why;
    recording.set("familia", family->place, {{"obs", notes}});
}

} // namespace study::linkage
