// How the BDP and the Intermediate Data Structure say the same: each mapping one table. docs/bdp.md tells it to
// readers.
#pragma once

#include "study/indicators/settings.h"
#include "study/observation/presence.h"

#include <QByteArray>
#include <QString>

#include <span>
#include <vector>

namespace study::exchange {

enum class IdsTable : quint8
{
    Individual,
    IndivIndiv,
    IndivContext,
    Context,
    ContextContext,
    Metadata
};
struct IdsTableWords
{
    IdsTable table;
    const char* name;                 // "INDIV_INDIV"; the file is of that name
    std::vector<const char*> columns; // those before the date
    bool isDated;                     // and idsDateColumns behind them
    const char *portuguese, *english;
};
const IdsTableWords& wordsOf(IdsTable table);
std::span<const char* const> idsDateColumns();
bool isIdsNumber(const QByteArray& column); // a whole number; otherwise a text

// What is told of a person or of a context.
enum class Told : quint8
{
    NameOriginal,
    FirstName,
    LastNamePrefix,
    LastName,
    Title,
    Nickname,
    Sex,
    BirthDate,
    Birth,
    BirthLocation,
    Legitimacy,
    LegitimacyOriginal,
    Marriage,
    MarriageLocation,
    Union,
    UnionLocation,
    AgeAtMarriage,
    CivilStatus,
    MarriageOrder,
    Occupation,
    SignatureLevel,
    SignsAs,
    Passport,
    Destination,
    FatherDeceased,
    MotherDeceased,
    KinToChild,
    KinToGroom,
    KinToBride,
    KinToTestator,
    DeathDate,
    Death,
    DeathLocation,
    Cause,
    AgeAtDeath,
    Sacraments,
    ParishClass,
    Height,
    Stature,
    Looks,
    Mass,
    Office,
    Alms,
    OtherSuffrage,
    ObservationStart,
    ObservationEnd,
    // Of a context.
    PlaceLevel,
    UnionLevel,
    PlaceName,
    Situation,
    FamilyType,
    StoredFamilyType
};
// Of what the date of a row is: the event itself, the act that tells it, a reckoning; or the row holds at all times.
namespace idsDateType {
inline constexpr auto event = "Event", declared = "Declared", assigned = "Assigned";
inline constexpr const char* always = nullptr;
} // namespace idsDateType

struct ToldWords
{
    Told told;
    IdsTable table;
    const char* type;
    const char* dateType;    // of idsDateType
    bool isCoded;            // each of its values stands in METADATA
    const char* source;      // of the BDP
    const char* explanation; // of METADATA
};
const ToldWords& wordsOf(Told told);
std::span<const ToldWords> allTold();

// What two people are to each other; the first one's word by its sex, and then the second one's.
enum class Tie : quint8
{
    Spouses,
    ParentAndChild,
    GodparentAndChild,
    BaptismWitness,
    MarriageWitness,
    Heir,
    Executor
};
struct TieWords
{
    Tie tie;
    const char *male, *female, *unknown;                // of the first
    const char *otherMale, *otherFemale, *otherUnknown; // of the second
    const char* dateType;                               // of idsDateType
    const char *source, *explanation;
};
const TieWords& wordsOf(Tie tie);
std::span<const TieWords> allTies();

// What a person is in a context.
struct ContextRole
{
    const char* relation;
    const char* dateType;
    const char *source, *explanation;
};
namespace contextRole {
extern const ContextRole husband, wife, spouse, child, resident;
}
std::span<const ContextRole* const> allContextRoles();

// The levels of contexts.
struct LevelWords
{
    char letter; // of the table of places
    const char* level;
    const char* explanation;
};
const LevelWords& levelOf(QChar letter); // that of "Place" for none of the letters
inline constexpr auto unionLevel = "Union";
inline constexpr auto unionExplanation =
    "A couple, or a mother or a father alone, and their children: familia.nfamilia";
QString relationOf(const LevelWords& place, const LevelWords& within); // "Parish and Municipality"

// By which act observation begins and ends.
struct ProofWords
{
    observation::Proof proof;
    const char *start, *end;
};
const ProofWords& wordsOf(observation::Proof proof);
inline constexpr auto endByLimit = "Limit"; // where the acts behind it are of people who may be alive
const char* explanationOfStart(const QByteArray& value);
const char* explanationOfEnd(const QByteArray& value);

const char* wordOfSex(const QString& letter);          // Male, Female, Unknown
const char* wordOf(indicators::Legitimacy legitimacy); // null where it is unknown
const char* wordOfCivilState(int code);                // null for a code of the researcher's own
Told toldOfSuffrage(const QString& kind);              // a word of rituaismorte.tipolegpio
const char* categoryOfSuffrage(Told kind);             // of its types; "" for none

// What METADATA tells beside types and values.
struct Convention
{
    const char* table; // "" for all
    const char *type, *value, *explanation;
};
std::vector<Convention> conventions(bool reversedRelations, bool upperCase, bool childrenAtHome);

} // namespace study::exchange
