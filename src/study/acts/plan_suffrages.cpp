// What a burial tells of masses, offices, alms and heirs.
#include "study/acts/work.h"

#include <QRegularExpression>

namespace study {

namespace {

struct Suffrage
{
    const char* fact;
    const char* column; // tipolegpio
    const char* category;
    const char* title;
};
constexpr Suffrage suffrages[] = {{attribute::masses, "missa", "TipMi", "Missas"},
                                  {attribute::offices, "oficio", "TipOf", "Ofícios"},
                                  {attribute::alms, "esmola", "TipEs", "Esmolas"}};
constexpr auto currency = "Es"; // as a fresh window of the suffrages has it

// "20 rezadas". A part ("1/2"), an ordinal ("3.º"), a day of the week of masses and an amount of money are none.
QVariant quantityOf(const QString& text)
{
    static const QRegularExpression number(R"(^\s*(\d{1,6})(?![\d\p{L}])(?!\s*[.,/$:]\s*\d)(?!\s*\.?\s*[ºª°$]))"
                                           R"((?!\s*(?:mil\b|r[ée]is|rs\b|tost|vint[ée]|cruzado|escudo|dia\b)))",
                                           QRegularExpression::CaseInsensitiveOption |
                                               QRegularExpression::UseUnicodePropertiesOption);
    const auto match = number.match(text);
    return match.hasMatch() ? QVariant(match.captured(1).toDouble()) : QVariant();
}

// Of an act that stands on the cards already: the same kind and number of them, or the same words.
bool isThere(Work& work, qint64 nind, const Suffrage& suffrage, const QString& text)
{
    const QVariant quantity = quantityOf(text);
    const QVariant found = work.ledger.value(
        jet::NativeSql("select idlegpio from rituaismorte where nind = ? and tipolegpio = ? and (obs = ? or "
                       "(quantidade is not null and quantidade = ?)) limit 1",
                       {nind, suffrage.column, text, quantity}));
    return !found.isNull();
}

bool isHeirThere(Work& work, qint64 nind, qint64 heir)
{
    return !work.ledger
                .value(jet::NativeSql("select idlegprof from legadosprofanos where nind = ? and nindherd = ? limit 1",
                                      {nind, heir}))
                .isNull();
}

// Of the deceased; what the heir is to anybody else is told of them. `kin`: the relation between the two.
bool isHeir(Work& work, int person, int deceased, const Relation*& kin)
{
    if (work.act.people[person].role != Role::Mentioned || work.number(person) == 0) return false;
    bool heir = isFlagged(work, person, "herdeiro") || isFlagged(work, person, "herdeira");
    for (const Relation& one : work.act.relations) {
        if (one.person != person || one.other != deceased) continue;
        const QString words = plainWords(one.told.value);
        if (words == "herdeiro" || words == "herdeira") {
            heir = true;
            work.takenRelations << &one;
        } else if (one.type.compare("parentesco", Qt::CaseInsensitive) == 0) {
            kin = &one;
        }
    }
    return heir;
}

} // namespace

// The whole text stays beside what could be read in it.
void planSuffrages(Work& work, int deceased)
{
    const qint64 nind = work.number(deceased);
    double number =
        work.ledger.value(jet::NativeSql("select max(idlegpio) from rituaismorte where nind = ?", {nind})).toDouble() +
        1;
    for (const Attribute& fact : work.act.facts)
        for (const Suffrage& suffrage : suffrages) {
            const auto& [type, column, category, title] = suffrage;
            const QString text = fact.told.value.trimmed();
            if (fact.type.compare(QLatin1String(type), Qt::CaseInsensitive) != 0 || text.isEmpty() || isDenied(text))
                continue;
            work.takeThis(&fact);
            if (isThere(work, nind, suffrage, text)) {
                work.say(QString("%1 «%2»: já está na ficha.").arg(title, text));
                continue;
            }
            PlannedRow& row = work.ledger.add("rituaismorte", {{"nind", double(nind)}, {"idlegpio", number++}});
            row.set("tipolegpio", column);
            const auto meant = meaningOf(category, text);
            if (const auto code = meant ? work.catalogue.codeOf(category, *meant) : std::nullopt)
                row.set("tipo", double(*code));
            row.set("quantidade", quantityOf(text));
            row.set("tipoMoeda", currency);
            work.fillText(row, "obs", text, title);
            work.say(QString("%1: %2.").arg(title, text));
        }
}

void planHeirs(Work& work, int deceased)
{
    const qint64 nind = work.number(deceased);
    double number =
        work.ledger.value(jet::NativeSql("select max(idlegprof) from legadosprofanos where nind = ?", {nind}))
            .toDouble() +
        1;
    for (int person = 0; person < work.count(); ++person) {
        const Relation* kin = nullptr;
        if (!isHeir(work, person, deceased, kin)) continue;
        if (isHeirThere(work, nind, work.number(person))) {
            work.say(QString("%1 já está na ficha como %2.")
                         .arg(work.label(person), work.agreeing(person, "herdeiro", "herdeira")));
            continue;
        }
        PlannedRow& row = work.ledger.add("legadosprofanos", {{"nind", double(nind)}, {"idlegprof", number++}});
        row.set("nindherd", double(work.number(person)));
        const auto meant = kin ? kinshipTold(kin->told.value, sexOf(work.act, person)) : std::nullopt;
        if (const auto code = meant ? work.catalogue.codeOf("Paren", *meant) : std::nullopt) {
            row.set("parentesco", double(*code));
            work.takenRelations << kin;
        }
        work.heirs << person;
        work.fillText(row, "obs", work.act.people[person].notes, "notas de " + work.label(person));
        work.say(QString("%1: %2.").arg(work.agreeing(person, "Herdeiro", "Herdeira"), work.label(person)));
    }
}

} // namespace study
