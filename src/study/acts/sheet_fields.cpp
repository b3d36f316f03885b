// The texts of the fields, out of an act and into it.
#include "study/acts/sheet.h"

#include "study/acts/catalogue.h"
#include "study/names/names.h"

#include <QHash>
#include <QMap>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace study {

namespace {

constexpr auto kinship = "parentesco";

// The type of the attribute that a field holds; null for a field that is none.
const char* attributeOf(Field field)
{
    static const QHash<Field, const char*> types{{Field::Residence, attribute::residence},
                                                 {Field::CivilState, attribute::civilState},
                                                 {Field::Age, attribute::age},
                                                 {Field::Birthplace, attribute::birthplace},
                                                 {Field::Profession, attribute::profession},
                                                 {Field::Title, attribute::title},
                                                 {Field::Nickname, attribute::nickname},
                                                 {Field::Filiation, attribute::filiation},
                                                 {Field::Office, attribute::office},
                                                 {Field::Dead, attribute::dead},
                                                 {Field::Sacraments, attribute::sacraments},
                                                 {Field::Will, attribute::will},
                                                 {Field::Offices, attribute::offices},
                                                 {Field::Masses, attribute::masses},
                                                 {Field::Alms, attribute::alms},
                                                 {Field::Cause, attribute::cause},
                                                 {Field::Shroud, attribute::shroud},
                                                 {Field::Church, attribute::church},
                                                 {Field::Grave, attribute::grave},
                                                 {Field::DeathPlace, attribute::deathPlace}};
    return types.value(field, nullptr);
}

bool isDoubtful(const QString& text)
{
    return text.contains('?') || text.contains("[...]") || text.contains(u'…');
}

void setTold(Told& told, const QString& text)
{
    if (told.value == text) return;
    told = text.isEmpty() ? Told{} : Told{.value = text, .source = told.source, .comment = told.comment};
    told.doubtful = isDoubtful(text);
}

// The first of its type is the one that the field holds; the others stay.
void setAttribute(QList<Attribute>& attributes, const QString& type, const QString& text)
{
    const auto isOfType = [&](const Attribute& one) { return one.type.compare(type, Qt::CaseInsensitive) == 0; };
    const auto found = std::ranges::find_if(attributes, isOfType);
    if (text.isEmpty()) {
        if (found != attributes.end()) attributes.erase(found);
    } else if (found != attributes.end()) {
        setTold(found->told, text);
    } else {
        attributes << Attribute{.type = type, .told = {.value = text, .doubtful = isDoubtful(text)}};
    }
}

// A name as it is spelled today, and what else was written with it: "Padre Manoel Roiz, vigário".
struct Name
{
    QString standard;
    QMap<QString, QString> told = {}; // by the type of the attribute
};

// The field whose words a text behind a name is; "" for none.
QString fieldOf(const Act& act, int person, const QString& text)
{
    const QList<Field> fields = fieldsOf(act, person);
    static constexpr std::pair<Field, const char*> vocabularies[]{
        {Field::Filiation, "Filia"}, {Field::Office, "FunPa"}, {Field::CivilState, "EstCi"}};
    for (const auto& [field, category] : vocabularies)
        if (fields.contains(field) && meaningOf(category, text)) return attributeOf(field);
    return {};
}

Name taken(const Act& act, int person, const QString& written)
{
    const NameParts parts = partsOf(written);
    QStringList words;
    words.reserve(parts.words.size());
    for (const NameParts::Word& word : parts.words)
        words << word.written;
    Name name{.standard = standardName(words.join(' '))};
    if (!parts.titles.isEmpty()) name.told[attribute::title] = parts.titles.join(' ');
    if (!parts.quoted.isEmpty()) name.told[attribute::nickname] = parts.quoted.join(", ");
    for (const QString& aside : parts.asides)
        if (const QString type = fieldOf(act, person, aside); !type.isEmpty() && !name.told.contains(type))
            name.told[type] = aside;
    return name;
}

// What was written with the name is proposed in its field, as long as nothing else stands there.
void setName(Sheet& sheet, int person, const QString& text)
{
    ActPerson& one = sheet.act.people[person];
    if (one.name.value == text) return;
    const Name before = taken(sheet.act, person, one.name.value), now = taken(sheet.act, person, text);
    const bool own = !one.standardName.isEmpty() && one.standardName != before.standard;
    setTold(one.name, text);
    if (!own || text.isEmpty()) one.standardName = now.standard;
    for (const Field field : {Field::Title, Field::Nickname, Field::Filiation, Field::Office, Field::CivilState}) {
        const QString type = attributeOf(field);
        if (toldValue(one.attributes, type) == before.told.value(type))
            setAttribute(one.attributes, type, now.told.value(type));
    }
    sheet.conclusions.people[person] = {};
}

// A field that was filled by the name: the user should see it.
void markWhatTheNameTells(const Act& act, int person, QStringList& found)
{
    static const QHash<QString, QString> titles{{attribute::nickname, "alcunha"},
                                                {attribute::filiation, "filiação"},
                                                {attribute::office, "cargo"},
                                                {attribute::civilState, "estado civil"}};
    const Name name = taken(act, person, act.people[person].name.value);
    for (const auto& [type, value] : name.told.asKeyValueRange())
        if (titles.contains(type) && toldValue(act.people[person].attributes, type) == value)
            found << QString("Lido do nome: %1, %2 «%3».").arg(roleTitle(act, person), titles[type], value);
}

// What the act tells, or else what is known of the person.
QString sexText(const Sheet& sheet, int person)
{
    const std::optional<Sex>& told = sheet.act.people.at(person).toldSex;
    const Sex sex = told.value_or(sheet.conclusions.people.value(person).sex);
    return sex == Sex::Male ? QString("m") : sex == Sex::Female ? QString("f") : told ? QString("?") : QString();
}

std::optional<Sex> readSex(const QString& text)
{
    const QChar first = text.trimmed().toLower().left(1).isEmpty() ? QChar() : text.trimmed().toLower().front();
    if (first == 'm' || first == 'h') return Sex::Male;
    if (first == 'f') return Sex::Female;
    if (first == '?' || first == 'd') return Sex::Unknown;
    return {};
}

QString kinshipText(const Act& act, int person)
{
    QStringList texts;
    for (const Relation& relation : act.relations) {
        if (relation.person != person || relation.type != kinship) continue;
        const bool inTheAct = relation.other >= 0;
        const QString name = inTheAct ? roleTitle(act, relation.other) : relation.otherName;
        const bool woman = inTheAct && sexOf(act, relation.other) == Sex::Female;
        const char* of = !inTheAct ? " de " : woman ? " da " : " do "; // a name alone goes without an article
        texts << (name.isEmpty() ? relation.told.value : relation.told.value + of + name);
    }
    return texts.join("; ");
}

// What can be read stands for all that was told of the person before.
void setKinship(Act& act, int person, const QString& text)
{
    if (kinshipText(act, person) == text) return;
    act.relations.removeIf([&](const Relation& one) { return one.person == person && one.type == kinship; });
    const QStringList each = text.split(';', Qt::SkipEmptyParts);
    for (const QString& one : each)
        if (const auto relation = readKinship(act, person, one)) act.relations << *relation;
}

void setPersonText(Sheet& sheet, const Spot& spot, const QString& text)
{
    ActPerson& person = sheet.act.people[spot.person];
    switch (spot.field) {
    case Field::Name:
        return setName(sheet, spot.person, text);
    case Field::StandardName:
        person.standardName = text;
        return;
    case Field::Sex:
        person.toldSex = readSex(text);
        return;
    case Field::Kinship:
        return setKinship(sheet.act, spot.person, text);
    case Field::Notes:
        person.notes = text;
        return;
    default:
        if (const char* type = attributeOf(spot.field)) setAttribute(person.attributes, type, text);
    }
}

QString personText(const Sheet& sheet, const Spot& spot)
{
    const ActPerson& person = sheet.act.people.at(spot.person);
    switch (spot.field) {
    case Field::Name:
        return person.name.value;
    case Field::StandardName:
        return person.standardName;
    case Field::Sex:
        return sexText(sheet, spot.person);
    case Field::Kinship:
        return kinshipText(sheet.act, spot.person);
    case Field::Notes:
        return person.notes;
    default:
        const char* type = attributeOf(spot.field);
        return type ? toldValue(person.attributes, type) : QString();
    }
}

} // namespace

QString text(const Sheet& sheet, const Spot& spot)
{
    const Act& act = sheet.act;
    if (spot.person >= 0) return spot.person < act.people.size() ? personText(sheet, spot) : QString();
    switch (spot.field) {
    case Field::Date:
        return shown(act.date);
    case Field::Book:
        return act.book;
    case Field::Folio:
        return act.folio;
    case Field::Number:
        return act.number;
    case Field::Place:
        return act.place.value;
    case Field::ActNotes:
        return act.notes;
    default:
        const char* type = attributeOf(spot.field);
        return type ? toldValue(act.facts, type) : QString();
    }
}

void setText(Sheet& sheet, const Spot& spot, const QString& typed)
{
    const QString value = typed.trimmed();
    if (spot.person >= 0) {
        if (spot.person < sheet.act.people.size()) setPersonText(sheet, spot, value);
        return;
    }
    Act& act = sheet.act;
    switch (spot.field) {
    case Field::Date:
        act.date = readPartialDate(value);
        return;
    case Field::Book:
        act.book = value;
        return;
    case Field::Folio:
        act.folio = value;
        return;
    case Field::Number:
        act.number = value;
        return;
    case Field::Place:
        return setTold(act.place, value);
    case Field::ActNotes:
        act.notes = value;
        return;
    default:
        if (const char* type = attributeOf(spot.field)) setAttribute(act.facts, type, value);
    }
}

// The people of the act by their titles, and by those of a subject without its sex: "irmão da criança".
static int personCalled(const Act& act, const QString& title, int except)
{
    static const QStringList forSubject{"criança", "baptizado", "baptizada", "defunto", "defunta"};
    const QList<int> about = subjects(act);
    if (forSubject.contains(title, Qt::CaseInsensitive)) return about.value(0, -1);
    for (int other = 0; other < act.people.size(); ++other)
        if (other != except && roleTitle(act, other).compare(title, Qt::CaseInsensitive) == 0) return other;
    return -1;
}

std::optional<Relation> readKinship(const Act& act, int person, const QString& typed)
{
    static const QRegularExpression form(R"(^(.*?)\s+d[aoe]s?\s+(.+)$)",
                                         QRegularExpression::DotMatchesEverythingOption);
    const QString value = typed.trimmed();
    if (value.isEmpty()) return {};
    Relation relation{.type = kinship, .told = {.value = value, .doubtful = isDoubtful(value)}, .person = person};
    const auto match = form.match(value);
    if (!match.hasMatch()) {
        const int about = subjects(act).value(0, -1);
        relation.other = about == person ? -1 : about;
        return relation;
    }
    relation.told.value = match.captured(1);
    relation.other = personCalled(act, match.captured(2), person);
    if (relation.other < 0) relation.otherName = match.captured(2);
    return relation;
}

bool asksForSex(const Sheet& sheet, int person)
{
    if (sheet.conclusions.people.value(person).kind == Identity::Kind::Known) return false;
    Act untold = sheet.act;
    untold.people[person].toldSex.reset();
    return sexOf(untold, person) == Sex::Unknown;
}

QStringList marks(const Act& act)
{
    QStringList found;
    if (!act.date.isPossible())
        found << "A data \"" + shown(act.date) + "\" não é possível.";
    else if (!act.date.isEmpty() && !act.date.isComplete())
        found << "A data está incompleta: " + shown(act.date) + '.';
    for (int person = 0; person < act.people.size(); ++person) {
        const ActPerson& one = act.people[person];
        const QString title = roleTitle(act, person);
        if (one.name.doubtful) found << "Leitura duvidosa: " + title + " \"" + one.name.value + "\".";
        markWhatTheNameTells(act, person, found);
        for (const Attribute& told : one.attributes)
            if (told.told.doubtful) found << "Leitura duvidosa: " + title + ", \"" + told.told.value + "\".";
    }
    return found;
}

} // namespace study
