#include "study/transcripts/importMeanings.h"

#include "platform/jet/jsonrow.h"
#include "study/acts/catalogue.h"
#include "study/names/names.h"

#include <QJsonObject>

#include <algorithm>

namespace study {

namespace {

constexpr qsizetype longestNewName = 50;

bool saysNothing(const QString& key)
{
    static const QStringList words{"damesma", "dito", "dita", "deste", "desta", "mesmo", "mesma"};
    return key.isEmpty() || words.contains(key);
}

bool isOne(const QString& type, const char* known)
{
    return type.compare(QLatin1String(known), Qt::CaseInsensitive) == 0;
}

} // namespace

Meanings::Meanings(jet::Connection& bdp, const ImportOptions& options) : bdp_(bdp), options_(options)
{
    const QList<QJsonObject> own = jet::jsonRows(bdp, jet::NativeSql("select cod from infopar limit 1"));
    if (!own.isEmpty()) ownParish_ = own.first()["cod"].toString();
}

void Meanings::conclude(const Act& act, Conclusions& conclusions, ImportReport& report)
{
    for (const ActPerson& person : act.people)
        for (const Attribute& told : person.attributes) {
            if (isOne(told.type, attribute::residence) || isOne(told.type, attribute::birthplace))
                concludePlace(told.told, conclusions, report);
            if (isOne(told.type, attribute::profession)) concludeProfession(told.told, conclusions, report);
        }
    for (const Attribute& fact : act.facts)
        if (isOne(fact.type, attribute::deathPlace)) concludePlace(fact.told, conclusions, report);
}

void Meanings::concludePlace(const Told& told, Conclusions& conclusions, ImportReport& report)
{
    if (told.value.trimmed().isEmpty()) return;
    auto known = places_.constFind(told.value);
    if (known == places_.constEnd()) known = places_.insert(told.value, placeOf(told));
    if (!known->choice || (known->isNew && told.doubtful)) {
        ++report.unplaced[told.value];
        return;
    }
    conclusions.places.insert(told.value, *known->choice);
}

void Meanings::concludeProfession(const Told& told, Conclusions& conclusions, ImportReport& report)
{
    if (told.value.trimmed().isEmpty()) return;
    auto known = professions_.constFind(told.value);
    if (known == professions_.constEnd()) known = professions_.insert(told.value, professionOf(told));
    if (known->has_value() && !(**known == 0 && told.doubtful))
        conclusions.professions.insert(told.value, **known);
    else
        ++report.unknownProfessions[told.value];
}

// Places of the same name: the only one, or the only one of the own parish.
std::optional<PlaceChoice> Meanings::knownPlace(const QString& name)
{
    QList<PlaceChoice> same;
    for (const PlaceFound& found : placesNamed(bdp_, name))
        if (found.same) same << found.place;
    if (same.size() == 1) return same.first();
    same.removeIf(
        [this](const PlaceChoice& place) { return ownParish_.isEmpty() || !place.code.startsWith(ownParish_); });
    if (same.size() == 1) return same.first();
    return {};
}

Meanings::Place Meanings::placeOf(const Told& told)
{
    const PlaceTold words = placeToldBy(told.value);
    if (saysNothing(placeKey(words.place)) && !words.isParishTold()) return {};
    if (const std::optional<PlaceChoice> known = knownPlace(told.value)) return {known, false};
    if (!options_.newPlaces || words.place.size() > longestNewName || words.place.contains(',')) return {};
    const NewPlacesIn parish = newPlacesFor(bdp_, told.value, ownParish_);
    const bool isOwn = !ownParish_.isEmpty() && parish.code == ownParish_;
    if (!isOwn || !placesNamed(bdp_, told.value, 1).isEmpty() || !placesNamed(bdp_, words.place, 1).isEmpty())
        return {};
    QString name = words.place;
    name[0] = name[0].toUpper();
    return {PlaceChoice{.code = {}, .level = 'L', .name = name, .parish = ownParish_}, true};
}

std::optional<int> Meanings::professionOf(const Told& told)
{
    const QString name = told.value.simplified();
    if (const std::optional<int> known = professionNamed(bdp_, name)) return known;
    const QString key = plainWords(name);
    QList<int> same;
    for (const auto& [code, profession] : professionsNamed(bdp_, name))
        if (plainWords(profession) == key) same << code;
    if (same.size() == 1) return same.first();
    return options_.newProfessions && same.isEmpty() && name.size() <= longestNewName ? std::optional(0) : std::nullopt;
}

// What was new has a code now: it is looked up when it is met again.
void Meanings::stored(const Conclusions& conclusions)
{
    for (auto place = conclusions.places.constBegin(); place != conclusions.places.constEnd(); ++place)
        if (place->code.isEmpty()) places_.removeIf([](const auto& one) { return one->isNew; });
    for (auto code = conclusions.professions.constBegin(); code != conclusions.professions.constEnd(); ++code)
        if (*code == 0) professions_.remove(code.key());
}

} // namespace study
