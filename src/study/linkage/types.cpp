#include "study/linkage/types.h"

#include "common/tipoFam.h"
#include "study/acts/work.h"

namespace study::linkage {

namespace {

KnownDates datesOf(const QJsonObject& person)
{
    return {.birth = !person["datanasc"].isNull(), .death = !person["dataobito"].isNull()};
}

// Some other dates would have given another type.
bool isChosen(const QString& type, KnownDates dates)
{
    const KnownDates others{.birth = !dates.birth, .death = !dates.death};
    return !type.trimmed().isEmpty() && typeAfter(type, dates, others) == type;
}

} // namespace

QString familyType(const Recording& recording, qint64 family)
{
    DatasDaFamilia dates;
    int deaths = 0;
    for (const Row& member : recording.rows("familias", {{"nfamilia", family}}))
        for (const Row& person : recording.rows("individuo", {{"nind", member.values["nind"]}})) {
            const KnownDates known = datesOf(person.values);
            if (known.death) ++deaths;
            if (person.values["sexo"].toString() == "f") dates.nascimentoDaMae = known.birth;
        }
    dates.obitos = deaths == 2;
    for (const Row& row : recording.rows("familia", {{"nfamilia", family}}))
        dates.casamento = !row.values["datacasam"].isNull();
    dates.nascimentosDosFilhos = true;
    for (const Row& child : recording.rows("individuo", {{"famorig", family}}))
        if (child.values["datanasc"].isNull()) dates.nascimentosDosFilhos = false;
    return tipoDaFamilia(dates);
}

bool followsDates(const Recording& recording, qint64 family)
{
    for (const Row& row : recording.rows("familia", {{"nfamilia", family}})) {
        const QJsonValue type = row.values["tipocasal"];
        return !type.isNull() && type.toVariant().toString() == familyType(recording, family);
    }
    return false;
}

QString settleType(Recording& recording, qint64 family)
{
    for (const Row& row : recording.rows("familia", {{"nfamilia", family}})) {
        const QString before = row.values["tipocasal"].toVariant().toString(), type = familyType(recording, family);
        if (type == before) continue;
        recording.set("familia", row.place, {{"tipocasal", type.toDouble()}});
        return QString("O tipo da família nº %1 passa de %2 para %3.").arg(family).arg(before, type);
    }
    return {};
}

namespace {

constexpr ColumnGroup ofFamily{"tipocasal", "tipo de família", Shown::Code, "", "TipFa"};
constexpr ColumnGroup ofPerson{"tipo", "tipo", Shown::Code, "", "TipIn"};

struct Typed
{
    const QJsonObject& row;
    QString type;
    bool isChosen;
};

// Which of the two types stays.
Side sideOf(Joined& result, jet::Connection& bdp, const ColumnGroup& group, const Typed& kept, const Typed& other,
            const Sides& sides)
{
    if ((!kept.isChosen && !other.isChosen) || other.type.isEmpty()) return Side::Kept;
    if (kept.type.isEmpty()) return Side::Other;
    if (kept.type == other.type) return kept.isChosen ? Side::Kept : Side::Other;
    return ask(result, bdp, group, kept.row, other.row, kept.isChosen ? Side::Kept : Side::Other, sides);
}

} // namespace

void joinFamilyTypes(Joined& row, jet::Connection& bdp, const QJsonObject& kept, const QJsonObject& other,
                     const Sides& sides, QList<qint64>& following)
{
    const auto typed = [&](const QJsonObject& one) {
        return Typed{.row = one,
                     .type = one["tipocasal"].toVariant().toString().trimmed(),
                     .isChosen = !following.contains(one["nfamilia"].toInteger())};
    };
    const Typed first = typed(kept), second = typed(other);
    const bool isOther = sideOf(row, bdp, ofFamily, first, second, sides) == Side::Other;
    if (isOther) row.set.insert("tipocasal", other["tipocasal"]);
    for (const QJsonObject* one : {&kept, &other})
        following.removeAll((*one)["nfamilia"].toInteger());
    if (!(isOther ? second : first).isChosen) following << kept["nfamilia"].toInteger();
}

void joinPersonTypes(Joined& row, jet::Connection& bdp, const QJsonObject& kept, const QJsonObject& other,
                     const Sides& sides)
{
    const auto typed = [](const QJsonObject& one) {
        const QString type = one["tipo"].toString().trimmed();
        return Typed{.row = one, .type = type, .isChosen = isChosen(type, datesOf(one))};
    };
    QJsonObject now = kept;
    for (auto column = row.set.begin(); column != row.set.end(); ++column)
        now.insert(column.key(), column.value());
    const bool isOther = sideOf(row, bdp, ofPerson, typed(kept), typed(other), sides) == Side::Other;
    const QJsonObject& stays = isOther ? other : kept;
    const QString type = typeAfter(stays["tipo"].toString(), datesOf(stays), datesOf(now));
    if (type != kept["tipo"].toString()) row.set.insert("tipo", type);
}

} // namespace study::linkage
