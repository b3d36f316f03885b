// What a burial writes.
#include "study/acts/work.h"

#include <algorithm>
#include <initializer_list>

namespace study {

namespace {

constexpr int ageOfReason = 7;

void fillAge(Work& work, int deceased, PlannedRow& row)
{
    const Attribute* from = nullptr;
    const auto age = ageTold(work.act, deceased, &from);
    if (age) {
        work.takeThis(from);
        work.fill(row, {{"idadeobito", double(age->years)}}, "idade ao óbito");
    }
    const bool told = isFlagged(work, deceased, attribute::minor);
    if (told || (age && age->years < ageOfReason)) work.fill(row, {{"menor", true}}, "menor");
}

// The first three classes are those of minors.
bool isOfMinors(Work& work, const QVariant& code)
{
    return std::ranges::any_of(std::initializer_list<const char*>{"Inocente (menor de sete anos)",
                                                                  "Menor, sem confissão", "Menor de confissão"},
                               [&](const char* description) {
                                   const auto known = work.catalogue.codeOf("ClaPa", description);
                                   return known && sameValue(code, *known);
                               });
}

void fillClass(Work& work, int deceased, PlannedRow& row)
{
    QVariant code = work.code(deceased, attribute::parishClass, "ClaPa");
    if (code.isNull() && isFlagged(work, deceased, attribute::poor))
        if (const auto poor = work.catalogue.codeOf("ClaPa", "Pobre")) code = double(*poor);
    work.fill(row, {{"classparoquial", code}}, "classe paroquial");
    if (isOfMinors(work, code)) work.fill(row, {{"menor", true}}, "menor");
}

// Whether a text that begins otherwise denies something all the same: what, isn't certain.
bool deniesSomething(const QString& text)
{
    const QStringList words = plainWords(text).split(' ');
    return words.contains("nao") || words.contains("nem") || words.contains("sem");
}

// That there was none has no column.
void fillWill(Work& work, PlannedRow& row)
{
    const Attribute* will = work.takeFact(attribute::will);
    if (!will || will->told.value.trimmed().isEmpty()) return;
    const QString text = will->told.value.trimmed();
    if (isDenied(text) || plainWords(text).contains("intestad"))
        return work.leaveOut("Sem testamento: a ficha não o diz, e fica só no acto.");
    if (deniesSomething(text)) return work.untake(will);
    work.fill(row, {{"testam", true}}, "testamento");
    if (plainWords(text) != "s" && plainWords(text) != "sim") work.leaveOut("Testamento: «" + text.left(60) + "».");
}

void fillCeremony(Work& work, PlannedRow& row)
{
    const struct
    {
        const char* type;
        const char* column;
        const char* what;
    } told[] = {{attribute::cause, "causa", "causa da morte"},
                {attribute::shroud, "mortalha", "mortalha"},
                {attribute::church, "igreja", "igreja"},
                {attribute::grave, "enterro", "lugar da sepultura"}};
    for (const auto& [type, column, what] : told)
        if (const Attribute* fact = work.takeFact(type)) work.fillText(row, column, fact->told.value, what);
}

QString deathSentence(Work& work, int deceased)
{
    QString sentence = QString("Óbito de %1 (nº %2%3)")
                           .arg(work.nameIn(work.number(deceased)), QString::number(work.number(deceased)),
                                work.isNew(deceased) ? ", nova ficha" : "");
    if (work.day) sentence += " em " + shown(work.act.date);
    return sentence + '.';
}

} // namespace

void planBurial(Work& work)
{
    const int deceased = personWith(work.act, Role::Deceased);
    PlannedRow* row = deceased < 0 ? nullptr : work.row(deceased);
    if (!row) return planFamilies(work);
    planDeath(work, deceased);
    fillAge(work, deceased, *row);
    work.fill(*row, {{"estadoobito", work.code(deceased, attribute::civilState, "EstCi")}}, "estado civil ao óbito");
    fillClass(work, deceased, *row);
    work.fill(*row, {{"sacramentos", work.factCode(attribute::sacraments, "Sacra")}}, "sacramentos");
    fillWill(work, *row);
    fillCeremony(work, *row);
    fillNotes(work, deceased, *row, "obs");
    planPriests(work, *row, {{"primpadreobito", "funcprimpobito"}});
    work.plan.family = planParents(work, deceased);
    planFamilies(work);
    planSuffrages(work, deceased);
    planHeirs(work, deceased);
    work.plan.sentences.prepend(deathSentence(work, deceased));
}

} // namespace study
