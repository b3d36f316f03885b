// What an act tells of somebody's filiation.
#include "study/acts/work.h"

#include <algorithm>

namespace study {

namespace {

constexpr const char* typesOfFiliation[] = {attribute::filiation, attribute::illegitimate, attribute::foundling};

// Of a mark; "sem pais", "sem confissão" tell more of it.
bool isOff(const QString& text)
{
    return isDenied(text) && !plainWords(text).startsWith("sem ");
}

// Words that say it, and leave the code to which parents are told.
bool saysIllegitimate(const QString& text)
{
    static const QStringList words{"ilegitimo", "ilegitima", "illegitimo", "illegitima", "bastardo", "bastarda"};
    const QStringList told = plainWords(text).split(' ');
    return !told.contains("nao") && std::ranges::any_of(told, [](const QString& one) { return words.contains(one); });
}

Filiation kindOf(Work& work, const char* type, const QString& text)
{
    const bool inWords = QLatin1String(type) == QLatin1String(attribute::filiation);
    if (inWords ? text.trimmed().isEmpty() : isOff(text)) return Filiation::Untold;
    if (work.catalogue.codeFor("Filia", text)) {
        const QString words = plainWords(meaningOf("Filia", text).value_or(text));
        if (words.startsWith("legitim")) return Filiation::Legitimate;
        return words.startsWith("expost") ? Filiation::Foundling : Filiation::Illegitimate;
    }
    if (inWords) return saysIllegitimate(text) ? Filiation::Illegitimate : Filiation::Unread;
    const bool foundling = QLatin1String(type) == QLatin1String(attribute::foundling);
    return foundling ? Filiation::Foundling : Filiation::Illegitimate;
}

QString ofUnmarried(bool father, bool mother)
{
    if (father && mother) return "Natural (pais solteiros)";
    return father   ? "Ilegítima, de mãe incógnita"
           : mother ? "Ilegítima, de pai incógnito"
                    : "Ilegítima, de pais incógnitos";
}

// "Ilegítima, de pai incógnito" where it tells no father at all; where it tells one who stays in the act alone, nothing
// follows.
std::optional<QString> byTheParents(Work& work, int child)
{
    const bool father = work.parent(child, Role::Father) >= 0, mother = work.parent(child, Role::Mother) >= 0;
    switch (filiationOf(work, child)) {
    case Filiation::Foundling:
        return "Exposto";
    case Filiation::Illegitimate:
        return ofUnmarried(father, mother);
    case Filiation::Untold:
        if (father && mother) return "Legítima";
        return father || mother ? std::optional(ofUnmarried(father, mother)) : std::nullopt;
    case Filiation::Legitimate:
    case Filiation::Unread:
        return {};
    }
    return {};
}

} // namespace

bool isFlagged(Work& work, int person, const char* type)
{
    const Attribute* told = firstTold(work.act.people[person].attributes, type);
    if (!told || isOff(told->told.value)) return false;
    work.takeThis(told);
    return true;
}

Filiation filiationOf(Work& work, int person)
{
    Filiation found = Filiation::Untold;
    for (const char* type : typesOfFiliation) {
        const Attribute* told = firstTold(work.act.people[person].attributes, type);
        const Filiation kind = told ? kindOf(work, type, told->told.value) : Filiation::Untold;
        if (kind != Filiation::Untold && kind != Filiation::Unread) return kind;
        if (kind == Filiation::Unread) found = kind;
    }
    return found;
}

QVariant filiationCode(Work& work, int child)
{
    for (const char* type : typesOfFiliation)
        if (const QVariant code = work.code(child, type, "Filia"); !code.isNull()) return code;
    const auto meant = byTheParents(work, child);
    const auto code = meant ? work.catalogue.codeOf("Filia", *meant) : std::nullopt;
    if (!code) return {};
    for (const char* type : typesOfFiliation)
        if (const Attribute* told = firstTold(work.act.people[child].attributes, type))
            if (const Filiation kind = kindOf(work, type, told->told.value);
                kind == Filiation::Illegitimate || kind == Filiation::Foundling)
                work.takeThis(told);
    return double(*code);
}

} // namespace study
