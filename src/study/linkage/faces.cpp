#include "study/linkage/faces.h"

#include "study/names/names.h"
#include "study/names/weights.h"

#include <QStringList>

#include <algorithm>
#include <cstdlib>

namespace study::linkage {

namespace {

constexpr double rarest = 0.001; // a word that hardly anybody has may as well be a slip of the pen: 10 bits, no more

double shareOf(const QHash<WordCode, int>& counts, const CodedWord& word, int of)
{
    int most = 0;
    for (const WordCode code : word.classes)
        most = std::max(most, counts.value(code));
    return std::clamp(double(most + 1) / double(of + 2), rarest, 1.0);
}

// From the marriage or the first birth to the last one; to 0 where none is known.
Days timeOf(const parish::Family& family)
{
    Days time{.from = endless, .to = 0};
    const auto at = [&time](const parish::Date& date) {
        if (!date.isKnown()) return;
        time.from = std::min(time.from, date.day);
        time.to = std::max(time.to, date.day);
    };
    at(family.marriage);
    for (const parish::Person* child : family.children)
        at(child->birth);
    return time;
}

} // namespace

Faces::Faces(const parish::Snapshot& parish, std::span<const NamedParents> parents,
             std::span<const NamedSpouse> spouses)
    : parish_(parish)
{
    people_.resize(parish.people().size());
    for (size_t i = 0; i < people_.size(); ++i) {
        people_[i].person = &parish.people()[i];
        people_[i].name = keep(parish.people()[i].name);
    }
    for (const NamedParents& named : parents)
        for (const QString& parent : {named.father, named.mother})
            keep(parent);
    for (const NamedSpouse& named : spouses)
        keep(named.name);
    countNames();
    likenWords();
    for (Name& one : names_)
        weigh(one);
    const std::vector<Offices> offices = officesOf(parish);
    for (size_t i = 0; i < people_.size(); ++i)
        fill(people_[i], offices[i]);
    addNamed(parents, spouses);
    countPlaces();
    tellActs();
    tellDead();
    couples_.resize(parish.families().size());
    for (size_t i = 0; i < couples_.size(); ++i) {
        couples_[i].family = &parish.families()[i];
        fillCouple(couples_[i]);
    }
}

const Face* Faces::of(const parish::Person* person) const
{
    return person ? &people_[size_t(person - parish_.people().data())] : nullptr;
}

const Name* Faces::name(const QString& written) const
{
    return nameOf_.value(written);
}

Name Faces::read(const QString& written) const
{
    Name made{.written = written};
    const CodedName coded = codedName(written);
    made.words.reserve(coded.size());
    for (const CodedWord& word : coded)
        made.words.push_back({.is = word});
    made.devotionalAlone = std::all_of(made.words.begin() + (made.words.empty() ? 0 : 1), made.words.end(),
                                       [](const Word& word) { return word.is.devotional; });
    const NameParts parts = partsOf(written);
    made.bynames = bynameKeys(parts);
    made.titles = titleKeys(parts.titles.join(u' '));
    weigh(made);
    return made;
}

const Name* Faces::keep(const QString& written)
{
    const Name*& known = nameOf_[written];
    if (!known) known = &names_.emplace_back(read(written));
    return known;
}

void Faces::countNames()
{
    const auto count = [](const CodedWord& word, int sex, std::array<QHash<WordCode, int>, 3>& counts) {
        for (const WordCode code : word.classes) {
            ++counts[0][code];
            if (sex > 0) ++counts[size_t(sex)][code];
        }
    };
    for (const Face& face : people_) {
        if (face.name->isEmpty()) continue;
        const int sex = face.sexIndex();
        const auto tell = [sex](std::array<int, 3>& counts) {
            ++counts[0];
            if (sex > 0) ++counts[size_t(sex)];
        };
        tell(counted_);
        if (face.name->words.size() > 1) tell(withOthers_);
        for (size_t i = 0; i < face.name->words.size(); ++i)
            count(face.name->words[i].is, sex, i == 0 ? first_ : other_);
    }
}

void Faces::weigh(Name& name) const
{
    for (Word& word : name.words)
        for (size_t sex = 0; sex < 3; ++sex) {
            word.asFirst[sex] = shareOf(first_[sex], word.is, counted_[sex]);
            word.asOther[sex] = shareOf(other_[sex], word.is, withOthers_[sex]);
        }
}

// A slip of the pen ("Franisco") shares no class with what was meant: it is found by its letters.
void Faces::likenWords()
{
    QHash<QString, std::vector<WordCode>> known, unknown; // by the key
    for (const Name& one : names_)
        for (const Word& word : one.words)
            (word.is.known ? known : unknown).insert(word.is.key, word.is.classes);
    QHash<QString, std::vector<WordCode>> all = unknown;
    for (auto word = known.cbegin(); word != known.cend(); ++word)
        all[word.key()].insert(all[word.key()].end(), word->begin(), word->end());
    QHash<QChar, QStringList> byLetter;
    for (auto word = all.cbegin(); word != all.cend(); ++word)
        byLetter[word.key().front()] << word.key();
    for (QStringList& words : byLetter)
        words.sort();
    for (auto word = unknown.begin(); word != unknown.end(); ++word)
        for (const QString& other : byLetter.value(word.key().front()))
            if (likeness(word.key(), other) >= spelling::likeEnough)
                for (const WordCode code : all[other])
                    if (std::ranges::count(*word, code) == 0) word->push_back(code);
    for (Name& one : names_)
        for (Word& word : one.words)
            word.keys = word.is.known ? word.is.classes : unknown.value(word.is.key);
}

void Faces::fill(Face& face, const Offices& offices)
{
    const parish::Person& person = *face.person;
    const auto nameOf = [this](const parish::Person* who) {
        const Face* other = of(who);
        return other && !other->name->isEmpty() ? other->name : nullptr;
    };
    face.father = nameOf(person.father());
    face.mother = nameOf(person.mother());
    for (const parish::Membership* union_ : person.unions) {
        if (!union_->family) continue;
        const parish::Person* spouse = parish::spouseOf(person, *union_->family);
        face.ties.push_back({union_->family, spouse, nameOf(spouse), timeOf(*union_->family)});
    }
    fillBynames(face);
    fillTimes(face, offices);
    fillPlaces(face);
}

void Faces::fillBynames(Face& face)
{
    face.titles = titleKeys(face.person->title) + face.name->titles;
    for (const QString& key : bynameKeys(face.person->nickname) + face.name->bynames)
        (isTag(key) ? face.tags : face.bynames) << key;
}

QString Faces::thing(int number) const
{
    return number >= 0 && size_t(number) < placeName_.size() ? placeName_[size_t(number)] : QString();
}

void Faces::addThing(const QString& key, const QString& name, std::vector<Whereabouts>& to)
{
    const auto known = placeOf_.constFind(key);
    const int number = known != placeOf_.cend() ? *known : int(placeOf_.size());
    if (known == placeOf_.cend()) {
        placeOf_.insert(key, number);
        placeName_.push_back(name);
    }
    if (std::ranges::none_of(to, [&](const Whereabouts& one) { return one.place == number; }))
        to.push_back({.place = number});
}

void Faces::addPlace(const parish::Place& place, Face& face)
{
    static constexpr int parishDigits = 6;
    if (!place.isKnown()) return;
    const QChar level = place.level;
    if (level == u'L' || level == u'S') addThing(level + place.code, parish_.catalogue().name(place), face.places);
    if (level == u'L' || level == u'S' || level == u'F')
        addThing(u'F' + place.code.left(parishDigits),
                 parish_.catalogue().name({.code = place.code.left(parishDigits), .level = u'F'}), face.parishes);
}

void Faces::fillPlaces(Face& face)
{
    const parish::Person& person = *face.person;
    for (const parish::Residence& residence : person.residences)
        addPlace(residence.place, face);
    for (const Tie& tie : face.ties)
        for (const parish::Residence& residence : tie.family->residences)
            addPlace(residence.place, face);
    if (face.ties.empty() && person.origin)
        for (const parish::Residence& residence : person.origin->residences)
            addPlace(residence.place, face);
    addPlace(person.birthPlace, face);
    for (const parish::Profession& profession : person.professions)
        if (profession.code)
            addThing(QString("p%1").arg(*profession.code), parish_.catalogue().professions.value(*profession.code),
                     face.professions);
}

void Faces::countPlaces()
{
    placeShare_.assign(size_t(placeOf_.size()), 0);
    const double each = 1.0 / double(std::max<size_t>(1, people_.size()));
    for (const Face& face : people_) {
        for (const Whereabouts& one : face.places)
            placeShare_[size_t(one.place)] += each;
        for (const Whereabouts& one : face.parishes)
            placeShare_[size_t(one.place)] += each;
        for (const Whereabouts& one : face.professions)
            placeShare_[size_t(one.place)] += each;
    }
    const auto tell = [this](std::vector<Whereabouts>& all) {
        for (Whereabouts& one : all)
            one.share = std::clamp(placeShare_[size_t(one.place)], rarest, 1.0);
    };
    for (Face& face : people_) {
        tell(face.places);
        tell(face.parishes);
        tell(face.professions);
    }
}

void Faces::fillCouple(CoupleFace& couple)
{
    const parish::Family& family = *couple.family;
    couple.husband = of(family.husband);
    couple.wife = of(family.wife);
    for (const parish::Person* child : family.children) {
        if (child->birth.isExact()) couple.births.push_back(child->birth.day);
        for (const parish::Assistance& godparent : child->godparents)
            if (godparent.assistant.isGiven()) couple.godparents.push_back(value(godparent.assistant.number));
    }
    if (const Days time = timeOf(family); time.to > 0) couple.time = time;
    std::ranges::sort(couple.births);
    std::ranges::sort(couple.godparents);
    Face whereabouts;
    for (const parish::Residence& residence : family.residences)
        addPlace(residence.place, whereabouts);
    for (std::vector<Whereabouts>* all : {&whereabouts.places, &whereabouts.parishes})
        for (Whereabouts& one : *all)
            one.share = size_t(one.place) < placeShare_.size() ? std::clamp(placeShare_[size_t(one.place)], rarest, 1.0)
                                                               : rarest;
    couple.places = std::move(whereabouts.places);
    couple.parishes = std::move(whereabouts.parishes);
}

} // namespace study::linkage
