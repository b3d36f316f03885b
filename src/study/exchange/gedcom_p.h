// The one who writes a GEDCOM file. For this room alone.
#pragma once

#include "study/exchange/gedcomLines.h"
#include "study/exchange/gedcomTables.h"
#include "study/exchange/gedcomValues.h"
#include "study/exchange/ownedRows.h"

#include <QCache>
#include <QSet>

#include <memory>
#include <vector>

namespace study::exchange {

// A number of a card that stands for a person, and whether the BDP has it.
struct Link
{
    qint64 number = 0;
    bool isThere = false;
};

// The number in the column, and whether the one behind it is not null.
Link linkAt(const jet::Rows& row, int column);

struct Association
{
    Link who = {};
    Role role = Role::Witness;
    QString phrase = {}; // "Madrinha"
    QStringList notes = {};
};

struct Citation
{
    Register which = Register::Baptisms;
    QString page = {}; // "Livro 3, fl. 12v, n.º 4"
};

struct Picture
{
    QString path = {};
    QByteArray xref = {};
};

// An event, or an attribute, of a person or of a family.
struct Event
{
    QByteArray tag = {};
    QString text = {}; // of an attribute
    QString type = {};
    QByteArray date = {};
    parish::Place place = {};
    QString cause = {};
    QByteArray age = {}, husbandAge = {}, wifeAge = {};
    QString act = {}; // "do baptismo", for what tells of it elsewhere
    std::vector<Association> associations = {};
    QStringList notes = {};
    std::optional<Citation> citation = {};
    QString source = {}; // in words
    Picture picture = {};
};

// The columns of a person's card.
struct PersonCard
{
    qint64 number = 0;
    QString name = {}, title = {}, nickname = {}, sex = {};
    parish::Date birth = {}, death = {};
    parish::Place birthPlace = {}, deathPlace = {};
    QDate observedFrom = {}, observedUntil = {};
    qint64 origin = 0;
    bool hasOrigin = false; // the family is there
    parish::Code filiation = {}, fatherAge = {}, motherAge = {}, fatherState = {}, motherState = {};
    parish::Code ageAtDeath = {}, stateAtDeath = {}, sacraments = {}, parishClass = {}, height = {};
    bool minor = false, will = false, writtenWill = false;
    QString cause = {}, shroud = {}, church = {}, burial = {}, stature = {}, looks = {}, notes = {};
    QString baptismFile = {}, burialFile = {};
    Link executor = {};
    Link baptismPriests[2] = {}, burialPriest = {};
    parish::Code baptismFunctions[2] = {}, burialFunction = {};
};

class GedcomWriter
{
public:
    GedcomWriter(const jet::Connection& bdp, QIODevice& target, const GedcomOptions& options, const GoesOn& goesOn);

    GedcomCounts write();

private:
    void readCatalogue();
    void writeHead();
    void writeRegisters();
    void writePeople();
    void writeFamilies();
    void next();

    // A person.
    struct OfPeople;
    void writePerson(const PersonCard& card, OfPeople& rows);
    GedcomName nameOf(const QString& name);
    void writeName(const PersonCard& card);
    void writeBirth(const PersonCard& card, OfPeople& rows);
    void writeDeath(const PersonCard& card, OfPeople& rows, const QStringList& suffrages);
    void writeTold(const PersonCard& card);
    void writeDated(const PersonCard& card, OfPeople& rows);
    Event willOf(const PersonCard& card, OfPeople& rows) const;
    void writeFamilyLinks(const PersonCard& card, OfPeople& rows);
    std::vector<Association> baptismAssociations(const PersonCard& card, OfPeople& rows);
    QStringList suffragesOf(const PersonCard& card, OfPeople& rows) const;
    void keepMarriageAssociations(const PersonCard& card, OfPeople& rows);
    void writeKeptAssociations(); // those of the events, with the person

    // A family.
    struct OfFamilies;
    struct FamilyCard;
    struct Couple;
    Couple coupleOf(const FamilyCard& card, OfFamilies& rows);
    std::vector<qint64> childrenOf(const FamilyCard& card, OfFamilies& rows) const;
    void writeFamily(const FamilyCard& card, OfFamilies& rows);
    void writeMarriage(const FamilyCard& card, const Couple& couple, OfFamilies& rows);
    std::vector<Association> marriageAssociations(const FamilyCard& card, OfFamilies& rows) const;
    void writeResidences(qint64 family, OfFamilies& rows);

    // Both.
    // What a code means, the code in brackets where the BDP doesn't say; "" for none, which some cards keep as 0.
    QString meaningOf(const QString& category, const QString& code) const;
    QString meaningOf(const QString& category, parish::Code code) const;
    Association assistantAt(const jet::Rows& row, bool atBaptism) const; // from its column 1 on
    Association priest(const Link& who, parish::Code function) const;
    Event residenceAt(const jet::Rows& row) const; // the same
    void write(const Event& event);
    QByteArray tagOf(const Event& event) const;
    void writeFact(const char* type, const QString& text, const QByteArray& date = {});
    void writeFamilyFact(const char* type, const QString& text, const QByteArray& date = {});
    QString writePlace(const parish::Place& place); // what a note has to tell of it
    void writePlaceNotes();
    void writeAssociation(int level, const Association& association);
    void writeSource(const Event& event);
    void writePicture(int level, const Picture& picture);
    void writePictureRecords();
    void writeNumbers(const char* kind, qint64 number);
    void writeNotes(int level, const QStringList& notes);
    bool canBeLinked(const Link& link); // otherwise nobody is named, and a link that leads nowhere is counted
    QString noteOfPicture(const Picture& picture) const; // where 5.5.1 has no place for it
    std::optional<Citation> citationOf(Register which, const parish::Date& date, const parish::Place& place,
                                       const QString& page) const;

    const jet::Connection& bdp_;
    const GedcomOptions& options_;
    const GoesOn& goesOn_;
    GedcomLines lines_;
    PlaceNames places_;
    const NameTable& names_ = NameTable::shared(); // asked once: it looks for its file
    QString folder_;                               // of the BDP
    static constexpr int mostNames = 10'000;       // a few megabytes
    QCache<QString, GedcomName> namesOfLate_{mostNames};
    parish::Home home_ = {};
    parish::Catalogue catalogue_ = {};
    QSet<qint64> withheld_ = {}, withheldFamilies_ = {}; // who may be alive, and the couples with one of them
    GedcomCounts counts_ = {};
    std::vector<std::pair<Association, QString>> kept_ = {}; // of the person at hand, with the act
    std::vector<Picture> pictures_ = {};                     // of the record at hand
    QHash<QString, qsizetype> placeNotes_ = {};              // in 5.5.1, by letter and code: the number of its note
    qint64 all_ = 1, done_ = 0;
};

// Not 0, which a card keeps where a field was left blank.
inline bool isTold(parish::Code value)
{
    return value && *value > 0;
}

// "Texto: valor"; nothing where there is no value.
void addTold(QStringList& all, const QString& what, const QString& value);
QByteArray personXref(qint64 number); // "I12", "I_5" of -5
QByteArray familyXref(qint64 number); // "F3"

// The page of the acts of estudo_acto, as a select of number, book, leaf, number of the act; of nobody where the BDP
// has no such tables.
QString actsOfPeople(const jet::Connection& bdp, Register which);
QString actsOfFamilies(const jet::Connection& bdp);
QString pageAt(const jet::Rows& row); // from its column 1 on

} // namespace study::exchange
