// What an act tells and no column takes.
#include "study/acts/work.h"
#include "study/names/names.h"

#include <algorithm>

namespace study {

namespace {

QString typeTitle(const QString& type)
{
    static const QHash<QString, QString> titles{
        {"residencia", "residência"}, {"profissao", "profissão"},     {"ec", "estado civil"},
        {"titulo", "título"},         {"idade_aprox", "idade"},       {"morto", "já falecido"},
        {"morta", "já falecida"},     {"nome", "outro nome"},         {"ilegitimo", "ilegítimo"},
        {"filiacao", "filiação"},     {"classe", "classe paroquial"}, {"oficios", "ofícios"},
        {"sacr", "sacramentos"},      {"locs", "lugar da sepultura"}, {"locf", "lugar do óbito"},
    };
    return titles.value(type.toLower(), type);
}

QString shownValue(const Told& told)
{
    const QString value = told.value.simplified();
    return value.size() <= 80 ? value : value.left(79) + u'…';
}

// The dead parents of an assistant have their columns.
bool isToldElsewhere(const Work& work, int person, const Attribute& told)
{
    if (!tellsOfDeath(told)) return false;
    const ActPerson& one = work.act.people[person];
    const bool parent = one.role == Role::Father || one.role == Role::Mother;
    return work.act.kind != ActKind::Burial && parent && work.owner(person) >= 0 &&
           isAssistant(work.act.people[work.owner(person)].role);
}

bool hasNotesOfItsOwn(const Work& work, int person)
{
    const Role role = work.act.people[person].role;
    if (role == Role::Child || role == Role::Deceased || work.heirs.contains(person)) return true;
    return isAssistant(role) && work.act.kind != ActKind::Burial && work.number(person) != 0;
}

// "o Velho", "filho de Pedro": written with the name, and neither in the name of the card nor in a field.
void tellOfTheName(Work& work, int person)
{
    const ActPerson& one = work.act.people[person];
    if (work.number(person) == 0) return;
    const NameParts parts = partsOf(one.name.value);
    for (const QString& aside : parts.asides + parts.quoted) {
        const auto holds = [&](const Attribute& told) { return told.told.value.contains(aside); };
        const bool isShown = std::ranges::none_of(aside, [](QChar letter) { return letter.isLetter(); }) ||
                             storedName(one).contains(aside) || std::ranges::any_of(one.attributes, holds);
        if (!isShown) work.leaveOut(QString("%1: junto do nome «%2».").arg(work.label(person), aside.left(80)));
    }
}

void tellOfPerson(Work& work, int person)
{
    const ActPerson& one = work.act.people[person];
    tellOfTheName(work, person);
    for (const Attribute& told : one.attributes) {
        if (work.isTaken(&told) || isToldElsewhere(work, person, told)) continue;
        const QString value = shownValue(told.told);
        work.leaveOut(
            QString("%1: %2%3.")
                .arg(work.label(person), typeTitle(told.type), value.isEmpty() ? QString() : " «" + value + "»"));
    }
    if (!one.notes.trimmed().isEmpty() && !hasNotesOfItsOwn(work, person))
        work.leaveOut(QString("%1: notas.").arg(work.label(person)));
    if (one.role == Role::Witness && work.act.kind == ActKind::Burial && work.number(person) != 0)
        work.leaveOut(QString("Testemunha %1: a ficha de um óbito não as tem.").arg(work.label(person)));
}

} // namespace

void tellWhatIsLeft(Work& work)
{
    for (int person = 0; person < work.count(); ++person)
        tellOfPerson(work, person);
    for (const Attribute& told : work.act.facts)
        if (!work.isTaken(&told)) {
            const QString value = shownValue(told.told);
            if (!value.isEmpty()) work.leaveOut(QString("Acto: %1 «%2».").arg(typeTitle(told.type), value));
        }
    for (const Relation& relation : work.act.relations)
        if (!work.takenRelations.contains(&relation) && relation.person >= 0 && relation.person < work.count())
            work.leaveOut(QString("%1: relação «%2».").arg(work.label(relation.person), shownValue(relation.told)));
    if (!work.placeUsed && !work.act.place.value.trimmed().isEmpty())
        work.leaveOut(QString("Lugar da cerimónia: %1.").arg(shownValue(work.act.place)));
}

} // namespace study
