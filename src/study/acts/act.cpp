#include "study/acts/act.h"

#include "study/acts/conclusions.h"
#include "study/names/names.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>

namespace study {

static const QList<Role>& rolesOfSubjects()
{
    static const QList<Role> roles{Role::Child, Role::Groom, Role::Bride, Role::Deceased};
    return roles;
}

static Sex sexOfRole(Role role)
{
    switch (role) {
    case Role::Groom:
    case Role::Father:
    case Role::Godfather:
    case Role::Celebrant:
        return Sex::Male;
    case Role::Bride:
    case Role::Mother:
    case Role::Godmother:
        return Sex::Female;
    default:
        return Sex::Unknown;
    }
}

static Sex opposite(Sex sex)
{
    return sex == Sex::Male ? Sex::Female : sex == Sex::Female ? Sex::Male : Sex::Unknown;
}

static bool isSpouse(Role role)
{
    return role == Role::Spouse || role == Role::EarlierSpouse;
}

Sex sexOf(const Act& act, int person)
{
    const ActPerson& one = act.people.at(person);
    if (one.toldSex) return *one.toldSex;
    if (const Sex sex = sexOfRole(one.role); sex != Sex::Unknown) return sex;
    if (isSpouse(one.role) && one.of >= 0 && one.of < person) return opposite(sexOf(act, one.of));
    return Sex::Unknown;
}

bool isAssistant(Role role)
{
    return role == Role::Godfather || role == Role::Godmother || role == Role::Witness;
}

Act withConcludedSexes(const Act& act, const Conclusions& conclusions)
{
    Act concluded = act;
    for (int person = 0; person < act.people.size(); ++person) {
        const Sex sex = conclusions.people.value(person).sex;
        if (sex != Sex::Unknown && !act.people[person].toldSex && sexOf(act, person) == Sex::Unknown)
            concluded.people[person].toldSex = sex;
    }
    return concluded;
}

int personWith(const Act& act, Role role, int of)
{
    for (int person = of + 1; person < act.people.size(); ++person)
        if (act.people[person].role == role && act.people[person].of == of) return person;
    return -1;
}

QList<int> peopleWith(const Act& act, Role role, int of)
{
    QList<int> found;
    for (int person = of + 1; person < act.people.size(); ++person)
        if (act.people[person].role == role && act.people[person].of == of) found << person;
    return found;
}

QList<int> subjects(const Act& act)
{
    QList<int> found;
    for (int person = 0; person < act.people.size(); ++person)
        if (rolesOfSubjects().contains(act.people[person].role)) found << person;
    return found;
}

const Attribute* firstTold(const QList<Attribute>& attributes, const QString& type)
{
    for (const Attribute& attribute : attributes)
        if (attribute.type.compare(type, Qt::CaseInsensitive) == 0) return &attribute;
    return nullptr;
}

QString toldValue(const QList<Attribute>& attributes, const QString& type)
{
    const Attribute* attribute = firstTold(attributes, type);
    return attribute ? attribute->told.value : QString();
}

bool tellsOfDeath(const Attribute& told)
{
    const QString type = told.type.trimmed().toLower();
    return type == QLatin1String(attribute::dead) || type == "morta";
}

bool saysDeadBefore(const QString& value)
{
    static const QRegularExpression living(R"(^\s*[0\-]\s*$|\b(n|n[ãa]o|depois|viv[oa]|vivem?|falso|false)\b)",
                                           QRegularExpression::CaseInsensitiveOption |
                                               QRegularExpression::UseUnicodePropertiesOption);
    return !living.match(value).hasMatch();
}

bool deadBefore(const Act& act, int person)
{
    const ActPerson& one = act.people.at(person);
    const auto isTold = [](const Attribute& told) { return tellsOfDeath(told) && saysDeadBefore(told.told.value); };
    return one.role == Role::EarlierSpouse || std::ranges::any_of(one.attributes, isTold);
}

QString kindTitle(ActKind kind)
{
    switch (kind) {
    case ActKind::Baptism:
        return "Baptismo";
    case ActKind::Marriage:
        return "Casamento";
    case ActKind::Burial:
        return "Óbito";
    }
    return {};
}

static QString plainTitle(const Act& act, int person)
{
    const bool woman = sexOf(act, person) == Sex::Female;
    const auto bySex = [woman](const char* he, const char* she) { return QString(woman ? she : he); };
    switch (act.people.at(person).role) {
    case Role::Child:
        return bySex("baptizado", "baptizada");
    case Role::Groom:
        return "noivo";
    case Role::Bride:
        return "noiva";
    case Role::Deceased:
        return bySex("defunto", "defunta");
    case Role::Father:
        return "pai";
    case Role::Mother:
        return "mãe";
    case Role::Spouse:
        return bySex("marido", "mulher");
    case Role::EarlierSpouse:
        return bySex("marido anterior", "mulher anterior");
    case Role::Proxy:
        return bySex("procurador", "procuradora");
    case Role::Godfather:
        return "padrinho";
    case Role::Godmother:
        return "madrinha";
    case Role::Witness:
        return "testemunha";
    case Role::Celebrant:
        return "celebrante";
    case Role::Mentioned:
        return bySex("referido", "referida");
    }
    return {};
}

// A grandparent of whom the act is about: "avô paterno".
static QString grandparentTitle(const Act& act, int person)
{
    const ActPerson& one = act.people.at(person);
    const ActPerson& parent = act.people.at(one.of);
    if (one.role != Role::Father && one.role != Role::Mother) return {};
    if (parent.role != Role::Father && parent.role != Role::Mother) return {};
    if (parent.of < 0 || !QList{Role::Child, Role::Deceased}.contains(act.people.at(parent.of).role)) return {};
    const bool paternal = parent.role == Role::Father;
    return one.role == Role::Father ? (paternal ? "avô paterno" : "avô materno")
                                    : (paternal ? "avó paterna" : "avó materna");
}

QString roleTitle(const Act& act, int person)
{
    const ActPerson& one = act.people.at(person);
    const QString plain = plainTitle(act, person);
    if (one.of < 0 || one.of >= person) return plain;
    if (const QString grandparent = grandparentTitle(act, person); !grandparent.isEmpty()) return grandparent;
    const ActPerson& owner = act.people.at(one.of);
    const bool ofTheOnlySubject = owner.role == Role::Child || owner.role == Role::Deceased;
    if (ofTheOnlySubject && one.role != Role::Mentioned && one.role != Role::Proxy) return plain;
    const QString of = roleTitle(act, one.of);
    const bool woman = sexOf(act, one.of) == Sex::Female;
    return plain + (woman ? " da " : " do ") + of;
}

QString reference(const Act& act)
{
    QString books;
    switch (act.kind) {
    case ActKind::Baptism:
        books = "Baptismos";
        break;
    case ActKind::Marriage:
        books = "Casamentos";
        break;
    case ActKind::Burial:
        books = "Óbitos";
        break;
    }
    QStringList parts{act.book.isEmpty() ? books : books + ' ' + act.book};
    if (!act.folio.isEmpty()) parts << "fl. " + act.folio;
    if (!act.number.isEmpty()) parts << "n.º " + act.number;
    return parts.join(", ");
}

QString nameOf(const ActPerson& person)
{
    return person.standardName.isEmpty() ? person.name.value : person.standardName;
}

QString currentName(const ActPerson& person)
{
    return person.standardName.isEmpty() ? standardName(person.name.value) : person.standardName;
}

// Whole words: what else follows a number ("60 de idade", "20 mais ou menos") is no unit.
static int unitsOfAYear(const QString& word)
{
    static const QHash<QString, int> units{{"m", 12},       {"mes", 12},    {"mês", 12},    {"meses", 12},
                                           {"mez", 12},     {"mêz", 12},    {"mezes", 12},  {"semana", 52},
                                           {"semanas", 52}, {"d", 365},     {"dia", 365},   {"dias", 365},
                                           {"h", 8760},     {"hora", 8760}, {"horas", 8760}};
    return units.value(word.toLower(), 1);
}

std::optional<Age> readAge(const QString& text)
{
    static const QRegularExpression newborn(R"(rec[ée]m|nascid|nasceu)", QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression form(R"((\d{1,3})\s*(?:(?:para|a|até|ate|-|ou)\s*\d{1,3}\s*)?(\p{L}*))",
                                         QRegularExpression::CaseInsensitiveOption);
    const auto match = form.match(text);
    if (!match.hasMatch()) {
        if (newborn.match(text).hasMatch()) return Age{.years = 0, .underOneYear = true};
        return {};
    }
    const int number = match.captured(1).toInt();
    const int ofAYear = unitsOfAYear(match.captured(2));
    return Age{.years = number / ofAYear, .underOneYear = number < ofAYear};
}

} // namespace study
