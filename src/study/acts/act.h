// An act as the register tells it: what stands there, and nothing of what was concluded from it (conclusions.h).
#pragma once

#include "study/acts/date.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace study {

enum class ActKind
{
    Baptism,
    Marriage,
    Burial
};

// A text as a transcription gives it.
struct Told
{
    QString value = {};   // "" for none
    QString source = {};  // the spelling of the register, where the transcription tells it apart
    QString comment = {}; // the transcriber's
    bool doubtful = false;

    bool operator==(const Told&) const = default;
    bool isEmpty() const { return *this == Told{}; }
};

enum class Sex
{
    Unknown,
    Male,
    Female
};

// What a person is to the act, or to the person of the act that ActPerson::of tells.
enum class Role
{
    // whom the act is about
    Child,
    Groom,
    Bride,
    Deceased,
    // of another person of the act
    Father,
    Mother,
    Spouse,        // of the deceased, of a godparent, of any parent
    EarlierSpouse, // of a groom or a bride; ActPerson::ordinal tells which one
    Proxy,         // who stands in for a godparent, a groom or a bride
                   // of the act
    Godfather,
    Godmother,
    Witness,
    Celebrant,
    Mentioned // of the act, or of a person
};

// Types of the attributes that the system knows by name, in small letters without accents. Any other type is kept, too.
namespace attribute {
// of a person
inline constexpr auto residence = "residencia";
inline constexpr auto birthplace = "naturalidade";
inline constexpr auto profession = "profissao";
inline constexpr auto civilState = "ec";
inline constexpr auto title = "titulo";
inline constexpr auto nickname = "alcunha";
inline constexpr auto office = "cargo"; // of a priest: his function
inline constexpr auto age = "idade";    // with its unit: "30", "4 meses", "recem nascido"
inline constexpr auto roughAge = "idade_aprox";
inline constexpr auto dead = "morto"; // "antes": dead before the act
inline constexpr auto otherName = "nome";
inline constexpr auto illegitimate = "ilegitimo";
inline constexpr auto foundling = "enjeitado";
inline constexpr auto filiation = "filiacao";
inline constexpr auto parishClass = "classe";
inline constexpr auto minor = "menor";
inline constexpr auto poor = "pobre";
// of an act
inline constexpr auto offices = "oficios"; // "3 de 9 lições"
inline constexpr auto masses = "missas";   // "20"
inline constexpr auto alms = "esmolas";
inline constexpr auto will = "testamento"; // "s", "n", or its text; not told where there is none
inline constexpr auto sacraments = "sacr"; // "todos", "não", which, or why not
inline constexpr auto cause = "causa";
inline constexpr auto shroud = "mortalha";
inline constexpr auto church = "igreja";
inline constexpr auto grave = "locs";
inline constexpr auto deathPlace = "locf";
} // namespace attribute

// One thing told of a person or of an act. The same type may come several times, also with other values.
struct Attribute
{
    QString type; // one of those above, or any other
    Told told = {};
    QString date = {}; // as transcribed, where it has one of its own

    bool operator==(const Attribute&) const = default;
};

// What one person of the act is to another: "irmão" of the mother.
struct Relation
{
    QString type;   // "parentesco", "sociabilidade"
    Told told = {}; // "irmao"
    int person = -1;
    int other = -1;         // -1: somebody who isn't in this act
    QString otherName = {}; // as the transcription has them; they need not lead to anybody
    QString otherId = {};

    bool operator==(const Relation&) const = default;
};

struct ActPerson
{
    Role role = Role::Mentioned;
    int of = -1;     // the person whose father, spouse … this is: its index in the act; -1: it belongs to the act
    int ordinal = 0; // of several earlier spouses, from 1; 0: not told
    Told name = {};  // as written; without a value where the register leaves it open
    QString standardName = {}; // as the name is spelled today; "" where nobody has settled it
    std::optional<Sex> toldSex = {};
    QList<Attribute> attributes = {};
    QString notes = {};
    QString id = {};         // of the transcription
    QStringList sameAs = {}; // ids of records that the transcriber takes for the same person

    bool operator==(const ActPerson&) const = default;
};

struct Act
{
    ActKind kind = ActKind::Baptism;
    PartialDate date = {};
    QString book = {};
    QString folio = {};
    QString number = {};
    Told place = {};              // of the ceremony
    QList<ActPerson> people = {}; // in the order of the register; who hangs on somebody stands behind them
    QList<Attribute> facts = {};
    QList<Relation> relations = {};
    QString notes = {};
    QString id = {}; // of the transcription

    bool operator==(const Act&) const = default;
};

// What follows from the act alone. `person` is an index of Act::people.

// Told, or following from the role; Unknown for a child, a deceased, a witness of whom nothing is told.
Sex sexOf(const Act& act, int person);

// Whether somebody with that role assists: godparents and witnesses.
bool isAssistant(Role role);

// The index of the first one with that role and that owner; -1 for none. Who stands before the owner isn't theirs.
int personWith(const Act& act, Role role, int of = -1);
QList<int> peopleWith(const Act& act, Role role, int of = -1);

// Whom the act is about: the child, the deceased, groom and bride, in the order of the act.
QList<int> subjects(const Act& act);

// The first attribute of that type; null for none.
const Attribute* firstTold(const QList<Attribute>& attributes, const QString& type);
QString toldValue(const QList<Attribute>& attributes, const QString& type); // "" for none

// Whether an attribute of this type tells whether somebody was dead ("morto", "morta"), and whether its value says that
// they were before the act: "não", "depois", "ainda vivo" don't.
bool tellsOfDeath(const Attribute& told);
bool saysDeadBefore(const QString& value);

// Told to be dead before the act, or the earlier spouse of a widowed person.
bool deadBefore(const Act& act, int person);

// "Baptismo", "Casamento", "Óbito"; "pai", "avó paterna", "pai da madrinha", "procurador do padrinho", as a sheet of
// the act says it.
QString kindTitle(ActKind kind);
QString roleTitle(const Act& act, int person);

// "Baptismos 3, fl. 12v, n.º 7"; what isn't told is left out.
QString reference(const Act& act);

// The name to be shown and stored: the standard name, or the one written where there is none; "" for neither.
QString nameOf(const ActPerson& person);

// The standard name, or the one that the name as written has by the table of names.
QString currentName(const ActPerson& person);

// An age in completed years ("18 meses" is 1 year); none where the text holds no age: "maior", "?".
struct Age
{
    int years = 0;
    bool underOneYear = false; // "4 meses", "recém-nascido"

    bool operator==(const Age&) const = default;
};
std::optional<Age> readAge(const QString& text);

} // namespace study
