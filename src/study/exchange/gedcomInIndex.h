// What a GEDCOM file has, before anything is made of it: who is there, who belongs to whom, and the texts that others
// point to.
#pragma once

#include "study/exchange/gedcomRecord.h"
#include "study/exchange/progress.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <vector>

class QIODevice;

namespace study::exchange {

inline constexpr auto personRefn = "ORV nind", familyRefn = "ORV nfamilia"; // types of the numbers that an export keeps

inline constexpr double shareOfTheIndex = 0.3; // of the time of an import

// A person of the file.
struct GedcomPersonSeen
{
    qint64 number = 0;    // in the BDP; given by GedcomIndex::number()
    qint64 ownNumber = 0; // that an export has kept; 0: none
    int line = 0;         // of the record
    int origin = -1;      // the family of origin, as an index into `families`; nobody is above themselves by it
    std::vector<int> spouseOf = {};
};

struct GedcomFamilySeen
{
    qint64 number = 0, ownNumber = 0;
    std::vector<int> members = {}; // the couple: at most two, as indexes into `people`
    // Witnesses and priests of the marriage that 5.5.1 tells of one of the couple.
    std::vector<GedcomNode> associations = {};
};

// From where numbers are given.
struct GedcomNumbers
{
    bool keepOwn = false;
    qint64 nextPerson = 1, nextFamily = 1;
};

class GedcomIndex
{
public:
    // Reads the file from its beginning to its end. Throws as GedcomReader does, and Interrupted.
    GedcomIndex(QIODevice& file, const GoesOn& goesOn);

    // Gives each record its number. Of two records with one own number, and where one isn't positive, none is kept;
    // whether they are.
    bool number(const GedcomNumbers& from);

    bool isOurs() const { return head.source == QLatin1String("ORV"); }
    const GedcomPersonSeen* personNamed(const QString& xref) const; // null where there is none
    const GedcomFamilySeen* familyNamed(const QString& xref) const;
    // Of the record at that line. Throws jet::Error where there was none: the file is another one by now.
    const GedcomPersonSeen& personAtLine(int line) const;
    const GedcomFamilySeen& familyAtLine(int line) const;
    qint64 originOf(const GedcomPersonSeen& person) const; // its number; 0: none
    bool isMember(const GedcomFamilySeen& family, const GedcomPersonSeen& person) const;

    GedcomHead head = {};
    std::vector<GedcomPersonSeen> people = {};
    std::vector<GedcomFamilySeen> families = {};
    QHash<QString, QString> notes = {};   // of shared notes
    QHash<QString, QString> sources = {}; // "Registos de baptismos, Paróquia de …"
    QHash<QString, QString> objects = {}; // the file
    QSet<int> ofMarriages = {};           // lines of the associations that stand in `families`
    std::vector<GedcomProblem> problems = {};

private:
    struct Links; // as they are told, by their names
    void see(GedcomNode& record, Links& links);
    void seePerson(GedcomNode& record, Links& links);
    void seeFamily(const GedcomNode& record, Links& links);
    void join(Links& links);
    void openRings();
    void joinMarriages(Links& links);

    QHash<QString, int> personNames_ = {}, familyNames_ = {};
    QHash<int, int> peopleByLine_ = {}, familiesByLine_ = {};
};

} // namespace study::exchange
