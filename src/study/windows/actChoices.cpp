#include "study/windows/actChoices.h"

#include "study/names/names.h"

#include <algorithm>

namespace study {

namespace {

// "n. 1702, † 12/03/1760".
QString datesOf(const Candidate& person)
{
    QStringList parts;
    if (!person.birth.isEmpty()) parts << "n. " + shown(person.birth);
    if (!person.death.isEmpty()) parts << "† " + shown(person.death);
    return parts.join(", ");
}

QString parentsOf(const Candidate& person)
{
    QStringList parents;
    for (const QString& parent : {person.father, person.mother})
        if (!parent.isEmpty()) parents << parent;
    if (parents.isEmpty()) return {};
    const QString child = person.sex == Sex::Female ? "filha" : person.sex == Sex::Male ? "filho" : "filho(a)";
    return child + " de " + parents.join(" e ");
}

// Two or three lines: who it is, what tells them apart, what speaks for them.
QString shownPerson(const Candidate& person)
{
    const QString dates = datesOf(person);
    QString lines = "nº " + QString::number(person.nind) + "  " + person.name;
    if (!dates.isEmpty()) lines += " (" + dates + ')';
    QStringList known;
    if (!person.residence.isEmpty()) known << person.residence;
    if (const QString parents = parentsOf(person); !parents.isEmpty()) known << parents;
    if (!person.spouse.isEmpty()) known << (person.sex == Sex::Female ? "casada com " : "casado com ") + person.spouse;
    if (!person.lastAct.isEmpty()) known << person.lastAct;
    if (!known.isEmpty()) lines += "\n     " + known.join("; ");
    QStringList evidence = person.reasons;
    for (const QString& against : person.against)
        evidence << "mas " + against;
    if (!evidence.isEmpty()) lines += "\n     → " + evidence.join("; ");
    return lines;
}

QString shownCouple(const CoupleCandidate& couple, bool ofTheChild)
{
    QString lines = "Casal " + QString::number(couple.nfamilia) + "  " + couple.names;
    QStringList known;
    if (!couple.marriage.isEmpty()) known << "casados em " + shown(couple.marriage);
    if (couple.children > 0) {
        known << (couple.children == 1 ? QString("1 filho") : QString::number(couple.children) + " filhos");
        if (!couple.lastChild.isEmpty()) known << "o último em " + shown(couple.lastChild);
    }
    if (ofTheChild && !couple.open) known << "as datas não o permitem";
    if (!known.isEmpty()) lines += "\n     " + known.join("; ");
    if (!couple.reasons.isEmpty()) lines += "\n     → " + couple.reasons.join("; ");
    return lines;
}

bool isParent(Role role)
{
    return role == Role::Father || role == Role::Mother;
}

void takeCouple(Sheet& sheet, int person, const Choice& couple)
{
    const int of = sheet.act.people.at(person).of;
    const auto settle = [&](Role role, qint64 nind) {
        const int parent = personWith(sheet.act, role, of);
        if (parent < 0 || nind == 0) return;
        sheet.conclusions.people[parent] = {.kind = Identity::Kind::Known, .nind = nind, .reason = couple.reason};
    };
    settle(Role::Father, couple.nind);
    settle(Role::Mother, couple.wife);
}

// A part of a name becomes the name; another spelling stays as the register has it.
void takePlace(Sheet& sheet, const Spot& spot, const Choice& choice)
{
    const QString typed = text(sheet, spot);
    const QString name = choice.word;
    const bool part =
        !choice.place.code.isEmpty() && placeKey(name) != placeKey(typed) && placeKey(name).startsWith(placeKey(typed));
    if (part) setText(sheet, spot, name);
    sheet.conclusions.places.insert(part ? name : typed, choice.place);
}

} // namespace

int newEntry(const Choices& choices)
{
    const auto isNew = [](const Choice& choice) {
        return choice.kind == Choice::Kind::NewPerson ||
               (choice.kind == Choice::Kind::Place && choice.place.code.isEmpty()) ||
               (choice.kind == Choice::Kind::Profession && choice.profession == 0);
    };
    const auto found = std::ranges::find_if(choices.entries, isNew);
    return found == choices.entries.end() ? -1 : int(found - choices.entries.begin());
}

int keptEntry(const Choices& choices)
{
    const auto isKept = [](const Choice& choice) {
        return choice.kind == Choice::Kind::KeptPerson || choice.kind == Choice::Kind::Unplaced;
    };
    const auto found = std::ranges::find_if(choices.entries, isKept);
    return found == choices.entries.end() ? -1 : int(found - choices.entries.begin());
}

QString keyOf(const Choices& choices, int entry)
{
    constexpr int lastDigit = 9;
    const int number = entry + choices.firstNumber;
    if (number <= lastDigit) return QString::number(number);
    if (entry == newEntry(choices)) return "0";
    return entry == keptEntry(choices) ? QString("-") : QString();
}

void expectPerson(Choices& choices, qint64 nind)
{
    const auto isThem = [nind](const Choice& choice) {
        return choice.kind == Choice::Kind::Person && choice.nind == nind;
    };
    const auto found = std::ranges::find_if(choices.entries, isThem);
    if (nind != 0 && found != choices.entries.end()) choices.usual = int(found - choices.entries.begin());
}

Choices choicesOfPerson(const Act& act, int person, const QList<Candidate>& people,
                        const QList<CoupleCandidate>& couples)
{
    const ActPerson& one = act.people.at(person);
    const QString name = nameOf(one);
    if (name.isEmpty()) return {};
    Choices choices{.firstNumber = 0};
    choices.entries.reserve(people.size() + couples.size() + 2);
    choices.entries << Choice{.kind = Choice::Kind::NewPerson,
                              .shown = (sexOf(act, person) == Sex::Female ? "Nova: " : "Novo: ") + name};
    const bool ofTheChild = one.of >= 0 && act.people.at(one.of).role == Role::Child;
    const auto addCouples = [&](bool likely) {
        if (!isParent(one.role)) return;
        for (const CoupleCandidate& couple : couples)
            if ((couple.open || !ofTheChild) == likely)
                choices.entries << Choice{.kind = Choice::Kind::Couple,
                                          .shown = shownCouple(couple, ofTheChild),
                                          .nind = couple.husband,
                                          .wife = couple.wife,
                                          .reason = couple.reasons.join("; ")};
    };
    addCouples(true);
    for (const Candidate& candidate : people)
        choices.entries << Choice{.kind = Choice::Kind::Person,
                                  .shown = shownPerson(candidate),
                                  .nind = candidate.nind,
                                  .sex = candidate.sex,
                                  .reason = candidate.reasons.join("; ")};
    addCouples(false);
    choices.entries << Choice{.kind = Choice::Kind::KeptPerson, .shown = "Não é pessoa da BDP: fica só no acto"};
    const bool kept = usualIdentity(act, person).kind == Identity::Kind::Kept;
    choices.usual = kept ? int(choices.entries.size()) - 1 : 0;
    return choices;
}

// A residence that was searched for in vain is new, where there is a parish to make it in.
static int usualPlace(Field field, const QList<PlaceFound>& places, const NewPlacesIn& parish, bool isParishTold,
                      int entries)
{
    QList<int> same, own;
    for (int i = 0; i < places.size(); ++i) {
        if (!places[i].same) continue;
        same << i;
        if (!parish.code.isEmpty() && places[i].place.code.startsWith(parish.code)) own << i;
    }
    if (own.size() == 1) return own.first();
    if (same.size() == 1 && isParishTold) return same.first();
    if (field == Field::Residence) return places.isEmpty() ? 0 : -1;
    if (same.size() == 1) return same.first();
    return same.isEmpty() && field != Field::Birthplace ? entries - 1 : -1;
}

Choices choicesOfPlace(Field field, const QString& text, const QList<PlaceFound>& places, const NewPlacesIn& parish)
{
    if (text.isEmpty()) return {};
    const PlaceTold told = placeToldBy(text);
    Choices choices;
    choices.entries.reserve(places.size() + 2);
    for (const PlaceFound& place : places)
        choices.entries << Choice{.kind = Choice::Kind::Place,
                                  .shown = place.shown,
                                  .place = place.place,
                                  .word = place.shown.section(" (", 0, 0)};
    if (!parish.code.isEmpty())
        choices.entries << Choice{.kind = Choice::Kind::Place,
                                  .shown = "Novo lugar em " + parish.name + ": " + told.place,
                                  .place = {.code = {}, .level = 'L', .name = told.place, .parish = parish.code}};
    choices.entries << Choice{.kind = Choice::Kind::Unplaced, .shown = "Fica só no acto"};
    choices.usual = usualPlace(field, places, parish, told.isParishTold(), int(choices.entries.size()));
    return choices;
}

Choices choicesOfProfession(const QString& text, const QList<QPair<int, QString>>& professions)
{
    if (text.isEmpty()) return {};
    Choices choices;
    for (const auto& [code, name] : professions)
        choices.entries << Choice{.kind = Choice::Kind::Profession, .shown = name, .profession = code, .word = name};
    if (professions.isEmpty() || plainWords(professions.first().second) == plainWords(text)) choices.usual = 0;
    choices.entries << Choice{.kind = Choice::Kind::Profession, .shown = "Nova profissão: " + text};
    choices.entries << Choice{.kind = Choice::Kind::Unplaced, .shown = "Fica só no acto"};
    return choices;
}

Choices choicesOfWord(const QString& text, const QStringList& words)
{
    Choices choices;
    const QString typed = plainWords(text);
    for (const QString& word : words)
        if (plainWords(word).startsWith(typed))
            choices.entries << Choice{.kind = Choice::Kind::Word, .shown = word, .word = word};
    if (!typed.isEmpty() && !choices.entries.isEmpty()) choices.usual = 0;
    return choices;
}

QStringList wordsFor(Sex sex, const QStringList& descriptions)
{
    QStringList words;
    words.reserve(descriptions.size());
    for (const QString& description : descriptions) {
        QString word = description.toLower();
        const bool one = !word.contains(' ') && word.endsWith('o');
        if (one && sex == Sex::Female) word = word.chopped(1) + 'a';
        words << word;
    }
    return words;
}

void take(Sheet& sheet, const Spot& spot, const Choice& choice)
{
    using Kind = Identity::Kind;
    const auto identify = [&](const Identity& identity) { sheet.conclusions.people[spot.person] = identity; };
    switch (choice.kind) {
    case Choice::Kind::NewPerson:
        return identify({.kind = Kind::New});
    case Choice::Kind::Person:
        // Whoever hangs on them has a role by the sex: "marido", "mulher".
        return identify({.kind = Kind::Known, .nind = choice.nind, .reason = choice.reason, .sex = choice.sex});
    case Choice::Kind::Couple:
        return takeCouple(sheet, spot.person, choice);
    case Choice::Kind::KeptPerson:
        return identify({.kind = Kind::Kept});
    case Choice::Kind::Place:
        return takePlace(sheet, spot, choice);
    case Choice::Kind::Unplaced:
        sheet.conclusions.places.remove(text(sheet, spot));
        if (spot.field == Field::Profession) sheet.conclusions.professions.remove(text(sheet, spot));
        return;
    case Choice::Kind::Profession:
        sheet.conclusions.professions.insert(text(sheet, spot), choice.profession);
        return;
    case Choice::Kind::Word:
        return setText(sheet, spot, choice.word);
    }
}

int chosenIn(const Choices& choices, const Sheet& sheet, const Spot& spot)
{
    const QString typed = text(sheet, spot);
    const Identity identity = sheet.conclusions.people.value(spot.person);
    const auto isChosen = [&](const Choice& choice) {
        switch (choice.kind) {
        case Choice::Kind::NewPerson:
            return identity.kind == Identity::Kind::New;
        case Choice::Kind::Person:
            return identity.kind == Identity::Kind::Known && identity.nind == choice.nind;
        case Choice::Kind::KeptPerson:
            return identity.kind == Identity::Kind::Kept;
        case Choice::Kind::Place:
            return sheet.conclusions.places.contains(typed) && sheet.conclusions.places[typed] == choice.place;
        case Choice::Kind::Profession:
            return sheet.conclusions.professions.value(typed, -1) == choice.profession;
        default:
            return false;
        }
    };
    const auto found = std::ranges::find_if(choices.entries, isChosen);
    return found == choices.entries.end() ? -1 : int(found - choices.entries.begin());
}

} // namespace study
