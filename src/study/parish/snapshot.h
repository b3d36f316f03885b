// A BDP as it stood at one moment, read once into arrays that point at each other.
//
// Who computes over a whole parish (checks, candidates, indicators, exports) asks this and no table: nothing is read
// twice, no lock is held meanwhile, and the figures of one run are of one state.
#pragma once

#include "study/parish/date.h"
#include "study/parish/numbers.h"

#include <QChar>
#include <QDate>
#include <QHash>
#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace jet {
class Connection;
}

namespace study::parish {

struct Person;
struct Family;

// What the cards leave empty, is empty here: a column with null gives nothing, a number and a code of 0 are told.
using Code = std::optional<int>;
using Flag = std::optional<bool>;

enum class Gender : quint8
{
    Undetermined, // 'd', or nothing
    Male,
    Female
};

// A place of the tables of places: its code, and the letter of its table, P Z D C F L S.
struct Place
{
    QString code = {};
    QChar level = {}; // null where there is none

    bool operator==(const Place&) const = default;
    bool isKnown() const { return !code.isEmpty(); }
};

// A column that names a person; `person` is null where nobody has the number.
struct PersonLink
{
    PersonNumber number = {};
    const Person* person = nullptr;

    bool isGiven() const { return value(number) != 0; }
};

struct Priest
{
    PersonLink who = {};
    Code function = {};
};

// One of a couple: a row of `familias`.
struct Membership
{
    FamilyNumber familyNumber = {};
    Family* family = nullptr; // null: there is no such family
    PersonLink member = {};
    Code age = {}; // at the marriage, as told
    Code state = {};
    Code order = {}; // which marriage of the person it is
};

enum class ActKind : quint8
{
    Baptism,
    Marriage
};

// A godparent or a witness: a row of `assistente`.
struct Assistance
{
    ActKind kind = ActKind::Baptism;
    qint64 entity = 0;              // the number of the baptised, or of the family
    const Person* child = nullptr;  // of a baptism
    const Family* family = nullptr; // of a marriage
    Date date = {};                 // exact where there is one
    PersonLink assistant = {};
    bool godparent = false; // 'p'; otherwise a witness
    Code state = {};
    Flag fatherDead = {}, motherDead = {};
    Code kinToChild = {}, kinToGroom = {}, kinToBride = {};
    bool hasNotes = false;
};

struct Residence
{
    PersonNumber person = {}; // of a person, or
    FamilyNumber family = {}; // of a family; the other is 0
    Date date = {};
    Place place = {};
};

struct Profession
{
    PersonNumber person = {};
    Date date = {};
    Code code = {};
};

struct Signature
{
    PersonNumber person = {};
    Date date = {};
    Code age = {};
    Code level = {};
    QString file = {}; // the picture of the signature
};

struct Bequest
{
    PersonNumber testator = {};
    PersonLink heir = {};
    Code kinship = {};
    bool hasLand = false, hasMovables = false; // what is left, as far as it is told
};

enum class SuffrageKind : quint8
{
    Mass,
    Office,
    Alms,
    Other
};

struct Suffrage
{
    PersonNumber deceased = {};
    SuffrageKind kind = SuffrageKind::Other;
    Code type = {};
    std::optional<double> quantity = {}, unitValue = {}, total = {};
    QString currency = {};    // Re, Es, Eu
    QString destination = {}; // for whom, or to whom
};

struct Passport
{
    PersonNumber person = {};
    Date date = {};
    Place destination = {};
    bool hasNotes = false;
};

// Somebody in an act of the register who was taken for a number that nobody has: a row of `estudo_pessoa`.
struct LostMention
{
    qint64 act = 0;
    int order = 0; // in the act
    QString name = {};
    PersonNumber number = {};
};

// A family of an act that has a number that no family has: a row of `estudo_familia`.
struct LostFamily
{
    qint64 act = 0;
    int order = 0; // in the act
    FamilyNumber number = {};
};

struct Person
{
    PersonNumber number = {};
    QString name = {}, title = {}, nickname = {};
    QString type = {}; // a code of TipIn
    Gender gender = Gender::Undetermined;

    Date birth = {}; // or baptism: one column has both
    Place birthPlace = {};
    Date death = {}; // or burial
    Place deathPlace = {};
    QDate observedFrom = {}, observedUntil = {}; // as the card has them

    FamilyNumber originNumber = {};
    const Family* origin = nullptr; // null: none, or there is no such family
    Code filiation = {};
    Code fatherAge = {}, motherAge = {}; // at the birth, as told
    Code fatherState = {}, motherState = {};

    Code ageAtDeath = {}; // completed years, as told
    Code stateAtDeath = {};
    QString cause = {}; // of the death, as the act has it
    Code sacraments = {}, parishClass = {};
    Flag minor = {}, will = {}, writtenWill = {};
    PersonLink executor = {};
    Code height = {}; // cm

    Priest baptismPriests[2] = {};
    Priest burialPriest = {};
    QString baptismFile = {}, burialFile = {}; // pictures of the acts

    // In the order of the dates of the marriages, the undated ones first, by their numbers.
    std::vector<const Membership*> unions = {};
    std::vector<const Assistance*> assisted = {}; // acts at which this person assisted, by date
    std::span<const Assistance> godparents = {};  // of this person's baptism
    std::span<const Residence> residences = {};
    std::span<const Profession> professions = {};
    std::span<const Signature> signatures = {};
    std::span<const Bequest> bequests = {}; // made by this person
    std::span<const Suffrage> suffrages = {};
    std::span<const Passport> passports = {};

    const Person* father() const;
    const Person* mother() const;
};

struct Family
{
    FamilyNumber number = {};
    QString situation = {}; // a code of SitFa
    Code type = {};         // of TipFa
    Date marriage = {};
    Place place = {};
    QDate observedFrom = {}, observedUntil = {};
    Priest priests[2] = {};
    QString file = {}; // the picture of the act
    bool hasNotes = false;
    bool kinDispensed = false; // the notes tell of a dispensation of kinship, or of affinity

    // By sex: who is 'm' is the husband, anybody else the wife. Where both are on one side, the first one stands there.
    const Person* husband = nullptr;
    const Person* wife = nullptr;
    std::span<const Membership> members = {}; // all rows of `familias`, by the number of the person
    std::vector<const Person*> children = {}; // by birth, those without one last, by their numbers
    std::span<const Assistance> witnesses = {};
    std::span<const Residence> residences = {};
};

inline const Person* Person::father() const
{
    return origin ? origin->husband : nullptr;
}

inline const Person* Person::mother() const
{
    return origin ? origin->wife : nullptr;
}

// The other one of the couple; null where nobody else is known.
const Person* spouseOf(const Person& person, const Family& family);

// Where the parish is made known to itself.
struct Home
{
    QString code = {}; // of its place, letter F
    QString name = {};
};

// The parish itself, or a locality or site of it. False where one of them isn't known.
bool isIn(const Place& place, const Home& home);

inline constexpr int digitsOfLocality = 8; // of its code, with which those of its sites begin

// The locality of a site; any other place as it is.
Place localityOf(const Place& place);

// Whether both are of one locality. Nothing where a place isn't so near known: a parish tells only of others that it
// isn't theirs.
std::optional<bool> inOneLocality(const Place& one, const Place& other);

// What the tables of codes and places tell.
struct Catalogue
{
    QHash<QString, QHash<QString, QString>> codes = {}; // category, code: description
    QHash<int, QString> professions = {};
    QHash<int, QString> hisco = {};      // profession: its code of five digits, where its notes tell one
    QHash<QString, QString> places = {}; // letter and code ("F030899"): name

    QString description(const QString& category, const QString& code) const; // "" for an unknown one
    QString description(const QString& category, Code code) const;
    bool has(const QString& category, Code code) const;
    bool has(const Place& place) const;
    QString name(const Place& place) const; // "" for an unknown one
};

class Snapshot
{
public:
    // Asked now and then while the BDP is read, with the share that is done, from 0 to 1; false ends it.
    using GoesOn = std::function<bool(double done)>;

    // Reads all in one look: what is pending in this connection is seen, too. Throws jet::Error; Interrupted where
    // goesOn answered false.
    struct Interrupted
    {
    };
    static Snapshot read(const jet::Connection& bdp, const GoesOn& goesOn = {});

    Snapshot(Snapshot&&) noexcept;
    Snapshot& operator=(Snapshot&&) noexcept;
    ~Snapshot();

    // In the order of their numbers.
    std::span<const Person> people() const;
    std::span<const Family> families() const;
    // Rows of all owners, those of owners that don't exist too; by owner, then by date.
    std::span<const Membership> memberships() const;
    std::span<const Assistance> assistances() const;
    std::span<const Residence> residences() const;
    std::span<const Profession> professions() const;
    std::span<const Signature> signatures() const;
    std::span<const Bequest> bequests() const;
    std::span<const Suffrage> suffrages() const;
    std::span<const Passport> passports() const;
    std::span<const LostMention> lostMentions() const; // by act; none where the BDP has no acts of its own
    std::span<const LostFamily> lostFamilies() const;  // the same
    std::span<const PersonNumber> namedInActs() const; // who somebody of an act is, once each
    const Catalogue& catalogue() const;
    const Home& home() const;

    const Person* person(PersonNumber number) const; // null: nobody
    QString notesOf(PersonNumber number) const;      // of the card; "" where there are none
    // As what somebody signed, as the card has it: "Testemunha"; "" where it isn't told. Precondition: of signatures().
    const QString& roleIn(const Signature& signature) const;
    const Family* family(FamilyNumber number) const;

private:
    struct Rows;
    friend class Reader;
    explicit Snapshot(std::unique_ptr<Rows> rows);
    std::unique_ptr<Rows> rows_; // stays where it is: all points into it
};

} // namespace study::parish
