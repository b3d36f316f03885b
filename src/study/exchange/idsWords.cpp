// Relations, levels, and the words of coded values.
#include "study/exchange/idsTables.h"

#include "study/parish/codes.h"

#include <algorithm>
#include <array>

namespace study::exchange {

namespace {

using observation::Proof;

using namespace idsDateType;

constexpr std::array<TieWords, 7> ties = {{
    {Tie::Spouses, "Husband", "Wife", "Spouse", "Husband", "Wife", "Spouse", event, "familias",
     "One of the couple of a family, by sex; whether it married is told by Family_situation"},
    {Tie::ParentAndChild, "Father", "Mother", "Parent", "Child", "Child", "Child", always,
     "individuo.famorig, familias", "A child and the couple of its family of origin"},
    {Tie::GodparentAndChild, "Godfather", "Godmother", "Godparent", "Godchild", "Godchild", "Godchild", event,
     "assistente", "Godparents at a baptism"},
    {Tie::BaptismWitness, "Baptism_witness", "Baptism_witness", "Baptism_witness", "Baptised_child", "Baptised_child",
     "Baptised_child", event, "assistente", "Witnesses at a baptism"},
    {Tie::MarriageWitness, "Marriage_witness", "Marriage_witness", "Marriage_witness", "Married_person",
     "Married_person", "Married_person", event, "assistente", "Witnesses and sponsors at a marriage, of each spouse"},
    {Tie::Heir, "Heir", "Heir", "Heir", "Testator", "Testator", "Testator", event, "legadosprofanos",
     "Who inherits; the date is that of the testator's death"},
    {Tie::Executor, "Executor", "Executor", "Executor", "Testator", "Testator", "Testator", event,
     "individuo.testamenteiro", "Who executes the will; the date is that of the testator's death"},
}};

constexpr std::array<LevelWords, 7> levels = {{{'P', "Country", "Table of places: pais"},
                                               {'Z', "Zone", "Table of places: zonapais"},
                                               {'D', "District", "Table of places: distrito"},
                                               {'C', "Municipality", "Table of places: concelho"},
                                               {'F', "Parish", "Table of places: paroquia"},
                                               {'L', "Locality", "Table of places: lugar"},
                                               {'S', "Site", "Table of places: sitio"}}};
constexpr LevelWords unknownLevel = {'?', "Place", "A place that stands in no table"};

constexpr auto byBirth = "Birth", byMarriage = "Marriage", byFirst = "First_act", byDeath = "Death",
               byLast = "Last_act", byPassport = "Emigration", byResearcher = "Researcher";
constexpr std::array<ProofWords, 14> proofs = {{{Proof::None, byFirst, byLast},
                                                {Proof::Birth, byBirth, byLast},
                                                {Proof::Marriage, byMarriage, byLast},
                                                {Proof::ChildBorn, byFirst, byLast},
                                                {Proof::ChildBuried, byFirst, byLast},
                                                {Proof::Residence, byFirst, byLast},
                                                {Proof::Profession, byFirst, byLast},
                                                {Proof::Signature, byFirst, byLast},
                                                {Proof::Assistance, byFirst, byLast},
                                                {Proof::Passport, byFirst, byPassport},
                                                {Proof::Death, byFirst, byDeath},
                                                {Proof::Parents, byFirst, byLast},
                                                {Proof::Spouse, byFirst, byLast},
                                                {Proof::Sibling, byFirst, byLast}}};
constexpr ProofWords typed = {Proof::Researcher, byResearcher, byResearcher};

struct Explained
{
    const char *value, *explanation;
};
constexpr std::array<Explained, 4> starts = {{{byBirth, "Birth in the parish"},
                                              {byMarriage, "Marriage in the parish, where the couple then lived"},
                                              {byFirst, "First act as a resident"},
                                              {byResearcher, "Limit that the researcher has set"}}};
constexpr std::array<Explained, 5> ends = {
    {{byDeath, "Death in the parish"},
     {byLast, "Last day of which presence is proved; of a child, that of its parents, until its 15th birthday"},
     {byPassport, "Passport, and no later act"},
     {byResearcher, "Limit that the researcher has set"},
     {endByLimit, "Later acts tell of people who may be alive"}}};

const char* explanationIn(std::span<const Explained> all, const QByteArray& value)
{
    const auto found = std::ranges::find_if(all, [&](const Explained& one) { return value == one.value; });
    return found == all.end() ? "" : found->explanation;
}

struct CivilWord
{
    int code;
    const char* word;
};
constexpr std::array<CivilWord, 8> civilWords = {{{parish::civil::single, "Single"},
                                                  {parish::civil::married, "Married"},
                                                  {parish::civil::widowed, "Widowed"},
                                                  {parish::civil::separated, "Separated"},
                                                  {parish::civil::divorced, "Divorced"},
                                                  {parish::civil::cleric, "Cleric"},
                                                  {parish::civil::inUnion, "In_union"},
                                                  {parish::civil::unknown, "Unknown"}}};

struct LegitimacyWord
{
    indicators::Legitimacy legitimacy;
    const char* word;
};
constexpr std::array<LegitimacyWord, 4> legitimacyWords = {{{indicators::Legitimacy::Legitimate, "Legitimate"},
                                                            {indicators::Legitimacy::Legitimised, "Legitimate"},
                                                            {indicators::Legitimacy::Illegitimate, "Illegitimate"},
                                                            {indicators::Legitimacy::Foundling, "Foundling"}}};

struct SuffrageEvents
{
    const char* kind;
    Told told;
    const char* category;
};
constexpr std::array<SuffrageEvents, 3> suffrageEvents = {
    {{"missa", Told::Mass, "TipMi"}, {"oficio", Told::Office, "TipOf"}, {"esmola", Told::Alms, "TipEs"}}};

} // namespace

const TieWords& wordsOf(Tie tie)
{
    return ties.at(static_cast<std::size_t>(tie));
}

std::span<const TieWords> allTies()
{
    return ties;
}

namespace contextRole {
const ContextRole husband = {"Husband", event, "familias", "The man of the couple of a family"};
const ContextRole wife = {"Wife", event, "familias", "The woman of the couple of a family"};
const ContextRole spouse = {"Spouse", event, "familias", "One of the couple of a family, of unknown sex"};
const ContextRole child = {"Child", always, "individuo.famorig", "A child of the couple of a family"};
const ContextRole resident = {"Resident", declared, "residencia",
                              "Who lives at a place; of a family, both of the couple"};
} // namespace contextRole

std::span<const ContextRole* const> allContextRoles()
{
    static const std::array<const ContextRole*, 5> all{&contextRole::husband, &contextRole::wife, &contextRole::spouse,
                                                       &contextRole::child, &contextRole::resident};
    return all;
}

const LevelWords& levelOf(QChar letter)
{
    const auto found = std::ranges::find_if(levels, [&](const LevelWords& one) { return letter == one.letter; });
    return found == levels.end() ? unknownLevel : *found;
}

QString relationOf(const LevelWords& place, const LevelWords& within)
{
    return QString("%1 and %2").arg(place.level, within.level);
}

const ProofWords& wordsOf(Proof proof)
{
    const auto found = std::ranges::find(proofs, proof, &ProofWords::proof);
    return found == proofs.end() ? typed : *found;
}

const char* explanationOfStart(const QByteArray& value)
{
    return explanationIn(starts, value);
}

const char* explanationOfEnd(const QByteArray& value)
{
    return explanationIn(ends, value);
}

const char* wordOfSex(const QString& letter)
{
    if (letter.compare("m", Qt::CaseInsensitive) == 0) return "Male";
    return letter.compare("f", Qt::CaseInsensitive) == 0 ? "Female" : "Unknown";
}

const char* wordOf(indicators::Legitimacy legitimacy)
{
    const auto* const found = std::ranges::find(legitimacyWords, legitimacy, &LegitimacyWord::legitimacy);
    return found == legitimacyWords.end() ? nullptr : found->word;
}

const char* wordOfCivilState(int code)
{
    const auto* const found = std::ranges::find(civilWords, code, &CivilWord::code);
    return found == civilWords.end() ? nullptr : found->word;
}

Told toldOfSuffrage(const QString& kind)
{
    const QString told = kind.trimmed().toLower();
    const auto* const found = std::ranges::find_if(
        suffrageEvents, [&](const SuffrageEvents& one) { return told == QLatin1String(one.kind); });
    return found == suffrageEvents.end() ? Told::OtherSuffrage : found->told;
}

const char* categoryOfSuffrage(Told kind)
{
    const auto* const found = std::ranges::find(suffrageEvents, kind, &SuffrageEvents::told);
    return found == suffrageEvents.end() ? "" : found->category;
}

std::vector<Convention> conventions(bool reversedRelations, bool upperCase, bool childrenAtHome)
{
    static constexpr auto general = "", definition = "Definition";
    return {
        {general, "Id_D", definition,
         "The database: ORV, the code of the parish, and the day of the state of the data where it is told"},
        {general, "Id_I", definition, "A person: individuo.nind"},
        {general, "Id_C", definition,
         "A context. Places are counted from 1 on; a family has its number (familia.nfamilia) in the last six digits, "
         "or "
         "all of it above a multiple of 1000000"},
        {general, "Source", definition, "The register and the page of the act, or what the card names as the source"},
        {general, "Type", definition,
         upperCase ? "Types are written in upper case: BIRTH_DATE" : "Types are written in mixed case: Birth_date"},
        {general, "Type_T", definition, "The table in which the type, or the relation, stands; none where it is all"},
        {general, "Extract", definition, "Not used"},
        {general, "Date_type", definition, "What the date is of"},
        {general, "Date_type", event, "The day of the event itself"},
        {general, "Date_type", declared, "The day of the act that tells it"},
        {general, "Date_type", assigned, "Computed from other rows"},
        {general, "Estimation", definition, "How sure the date is"},
        {general, "Estimation", "Exact", "The day is sure"},
        {general, "Estimation", "Estimated",
         "The date is about right: Year is the year as it is written, Start_ and End_ are its first and its last day, "
         "Day and Month are empty"},
        {general, "Hour", definition, "Not used, and neither is Minute"},
        {general, "Missing", definition, "Why there is no date"},
        {general, "Missing", "Time_invariant", "It holds at all times; Date_type and Estimation are empty"},
        {general, "Missing", "Unavailable", "The date isn't known"},
        {"INDIV_INDIV", "Relation", definition,
         reversedRelations ? "Id_I_2 is the Relation of Id_I_1; each pair is written in both directions"
                           : "Id_I_1 is the Relation of Id_I_2; each pair is written in both directions"},
        {"INDIV_CONTEXT", "Relation", definition,
         childrenAtHome
             ? "Id_I is the Relation in, or of, Id_C. The residence of a family is one of its couple, and of "
               "its children at home: alive, younger than 15 and not married on that day"
             : "Id_I is the Relation in, or of, Id_C. The residence of a family is one of its couple"},
        {"CONTEXT_CONTEXT", "Relation", definition,
         "The levels of Id_C_1 and Id_C_2, of which the first lies in the second"},
    };
}

} // namespace study::exchange
