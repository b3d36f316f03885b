#include "study/indicators/givenName.h"

#include "study/names/names.h"

namespace study::indicators {

GivenName givenNameOf(const QString& name)
{
    const NameParts parts = partsOf(name);
    GivenName given;
    given.isSaint = isSaint(name);
    if (parts.unknown || parts.words.isEmpty()) return given;
    const NameParts::Word& word = parts.words.first();
    given.first = word.readings.isEmpty() ? word.key : word.readings.first().standard;
    for (qsizetype i = 1; i < parts.words.size(); ++i) {
        const NameParts::Word& next = parts.words[i];
        if (next.readings.isEmpty()) continue;
        const bool isGiven = i == 1 && next.known && next.readings.first().kind == NameKind::Given;
        given.isDouble = given.isDouble || isGiven;
        given.isDevotional = given.isDevotional || next.readings.first().devotional;
    }
    return given;
}

const GivenName& GivenNames::of(const parish::Person& person)
{
    const auto found = known_.find(person.name);
    return found != known_.end() ? found->second : known_.emplace(person.name, givenNameOf(person.name)).first->second;
}

} // namespace study::indicators
