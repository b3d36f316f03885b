#include "study/transcripts/kleioHead.h"
#include "study/transcripts/kleioReader.h"
#include "study/transcripts/sexByName.h"

#include <limits>
#include <optional>

namespace study::kleio {

namespace {

void takeNames(ActPerson& person, const Element& element)
{
    for (const Value& value : element.values) {
        if (&value == &element.values.first() && person.name.isEmpty())
            person.name = value.told;
        else
            person.attributes << Attribute{attribute::otherName, value.told};
    }
}

// Returns whether the sex is still open: "" between quotes leaves it untold whatever the group's name tells.
bool takeSex(ActPerson& person, const Element& element)
{
    if (element.values.isEmpty()) return true;
    const Told told = element.first();
    const std::optional<Sex> sex = sexCalled(told.value);
    if (sex) person.toldSex = sex;
    const bool isPlain = told == Told{.value = told.value} && element.values.size() == 1;
    if (!isPlain || (!sex && !told.value.isEmpty())) addElement(person.notes, {"sexo", element.values});
    return false;
}

void takeText(QString& field, QString& notes, const Element& element)
{
    const Told told = element.first();
    if (field.isEmpty()) field = told.value;
    if (field != told.value || element.values.size() > 1 || told != Told{.value = told.value})
        addElement(notes, element);
}

bool isOfOwnPlace(const Element& element)
{
    return element.name == "papel" || element.name == "de" || element.name == "ordem";
}

} // namespace

void Reader::takePerson(const Group& group, Place place)
{
    const bool hasOwnPlace = takeOwnPlace(group, place);
    bool sexIsOpen = true;
    ActPerson person = personOf(group, hasOwnPlace, sexIsOpen);
    if (place.found) {
        person.role = place.role;
        person.of = place.of;
        person.ordinal = place.ordinal;
    } else {
        warn(group.line, QString("Falta a pessoa a quem pertence o grupo \"%1$\".").arg(group.name));
        addNote(person.notes, group.name + '$');
    }
    checkPerson(person, group.line);
    lastPerson_ = addPerson(group, person);
    if (sexIsOpen && place.sex != Sex::Unknown && sexOf(current(), lastPerson_) != place.sex)
        current().people[lastPerson_].toldSex = place.sex;
}

ActPerson Reader::personOf(const Group& group, bool hasOwnPlace, bool& sexIsOpen)
{
    ActPerson person;
    int place = 0;
    for (const Element& element : group.elements) {
        const int at = element.name.isEmpty() ? place++ : -1;
        if (at == 0 || element.name == "nome")
            takeNames(person, element);
        else if (at == 1 || element.name == "sexo")
            sexIsOpen = takeSex(person, element) && sexIsOpen;
        else if (!hasOwnPlace || !isOfOwnPlace(element))
            takePersonElement(person, element, group.line);
    }
    return person;
}

// A place that the group tells by itself, where no group's name could.
bool Reader::takeOwnPlace(const Group& group, Place& place) const
{
    const Element* role = group.named("papel");
    const std::optional<Role> told = role ? roleWith(folded(role->joined())) : std::nullopt;
    if (!told) return false;
    const Element* of = group.named("de");
    const Element* ordinal = group.named("ordem");
    const int owner = of ? of->joined().toInt() - 1 : -1;
    const bool found = owner >= -1 && owner < read_.acts.last().act.people.size();
    place = {.role = *told, .of = owner, .ordinal = ordinal ? ordinal->joined().toInt() : 0, .found = found};
    return true;
}

int Reader::addPerson(const Group& group, const ActPerson& person)
{
    const Standing stands{canonical(group.name), group.indent};
    if (const int told = person.role == Role::Celebrant ? celebrantOfHead(person) : -1; told >= 0) {
        warn(group.line, "O celebrante aparece duas vezes no mesmo acto.");
        current().people[told] = person;
        standing_[told] = stands;
        return told;
    }
    current().people << person;
    standing_ << stands;
    return static_cast<int>(current().people.size()) - 1;
}

// The one of the head whom a group tells again; -1 for none.
int Reader::celebrantOfHead(const ActPerson& person) const
{
    for (int told = 0; told < headCelebrants_; ++told) {
        const Told& name = read_.acts.last().act.people[told].name;
        const bool isOfHead = standing_[told].indent == std::numeric_limits<int>::max();
        if (isOfHead && name == Told{.value = name.value} && folded(name.value) == folded(person.name.value))
            return told;
    }
    return -1;
}

void Reader::takePersonElement(ActPerson& person, const Element& element, int line)
{
    if (element.name == "id") return takeText(person.id, person.notes, element);
    if (element.name == "nome_padrao") return takeText(person.standardName, person.notes, element);
    if (element.name != "mesmo_que" && element.name != "xmesmo_que") return addElement(person.notes, element);
    for (const Value& value : element.values) {
        person.sameAs << value.told.value;
        if (element.name == "mesmo_que")
            later_ << LaterCheck{line, value.told.value,
                                 QString("O id \"%1\" de \"mesmo_que\" não existe no ficheiro.").arg(value.told.value)};
    }
}

void Reader::checkPerson(const ActPerson& person, int line)
{
    if (person.name.value.isEmpty()) warn(line, "Há uma pessoa sem nome.");
    if (person.id.isEmpty()) return;
    if (ids_.contains(person.id)) warn(line, QString("O id \"%1\" aparece duas vezes.").arg(person.id));
    ids_ << person.id;
}

} // namespace study::kleio
