// An act while it is planned: what the parts of the plan share. Of this room alone.
#pragma once

#include "study/acts/catalogue.h"
#include "study/acts/ledger.h"
#include "study/acts/plan.h"

#include <QDate>
#include <QHash>
#include <QMap>
#include <QSet>

#include <optional>

namespace study {

// A place of the BDP, or one that is planned.
struct PlacePair
{
    QString code;
    QChar level;
    QString name;

    bool isEmpty() const { return code.isEmpty(); }
};

// The name of a person in a sentence: "Ana Lopes", "pessoa sem nome".
QString shownName(const QString& name);
// As it is stored: as it is spelled today where nobody has settled that, and without noughts, which would end it for
// other programs.
QString storedName(const ActPerson& person);

struct Work
{
    Work(jet::Connection& connection, const Act& told, const Conclusions& concluded);

    jet::Connection& bdp;
    const Act& act;
    const Conclusions& conclusions;
    Ledger ledger;
    Catalogue catalogue;
    Plan plan;
    std::optional<QDate> day; // that stands for the date of the act
    bool exact = false;       // and is it
    QString source;           // of the dated rows

    // ---- people of the act. A person that is none, or has no row, has the number 0. ----
    int count() const { return int(act.people.size()); }
    qint64 number(int person) const { return person < 0 ? 0 : plan.people.at(person); }
    PlannedRow* row(int person) { return number(person) == 0 ? nullptr : ledger.person(number(person)); }
    Identity identity(int person) const;
    bool isNew(int person) const { return identity(person).kind == Identity::Kind::New; }
    bool isActAlone() const;     // all are kept in the act alone: nothing is written to the cards
    int owner(int person) const; // whose father, spouse … it is; -1: of the act, or wrongly told
    int parent(int person, Role role) const { return personWith(act, role, person); }
    QString nameIn(qint64 nind); // of a person of the BDP or of the plan
    QString label(qint64 nind);  // "nº 85 Domingos Luís"
    QString label(int person);   // the same, or the name in the act

    // The form of a word that agrees with the person.
    QString agreeing(int person, const char* his, const char* hers);

    // ---- what the act tells ----
    // The first attribute of that type; where it has a value it counts as taken, unless untake() follows.
    const Attribute* take(int person, const char* type);
    const Attribute* takeFact(const char* type);
    void untake(const Attribute* told) { taken_.remove(told); }
    bool isTaken(const Attribute* told) const { return taken_.contains(told); }
    void takeThis(const Attribute* told) { taken_ << told; }
    // The code that the first attribute of the type means; where it means none the attribute isn't taken.
    QVariant code(int person, const char* type, const QString& category);
    QVariant factCode(const char* type, const QString& category);

    // ---- the plan ----
    void say(const QString& sentence) { plan.sentences << sentence; }
    void leaveOut(const QString& what);
    // An objection stands unless the reason against it was given for what it says now.
    void object(const QString& rule, int person, const QString& text, bool hard = false);

    // Sets columns that tell nothing yet. Where one of them holds another value nothing is set, and leftOut tells
    // `what`; whether anything was.
    bool fill(PlannedRow& row, const RowChange::Columns& columns, const QString& what);
    // The same for what an act tells of whom it is about: another value is an objection, too.
    bool fillTold(PlannedRow& row, int person, const RowChange::Columns& columns, const QString& what);
    // As fill() for a text, which has to fit into its column.
    bool fillText(PlannedRow& row, const QString& column, const QString& text, const QString& what);

    QSet<const Relation*> takenRelations;
    QSet<int> heirs;        // of the people of the act
    bool placeUsed = false; // that of the ceremony

    // ---- what was planned already, so that nothing is made twice ----
    QHash<QPair<QString, QString>, QString> newPlaces; // parish and plain name → code
    QHash<QString, int> newProfessions;                // plain name → code, made or found
    int professionsMade = 0;
    QHash<QPair<qint64, QDate>, PlacePair> residences; // of a person on a day
    QSet<QPair<qint64, int>> professions;              // of a person
    QString nextPlace(const QString& parish);          // the code of the next new locality

private:
    QString markOf(const QString& text) const; // of what an objection says

    QSet<const Attribute*> taken_;
    QHash<QString, QString> lastPlace_; // parish → the last code given
};

// ---- the parts, each in its file ----

// plan_people.cpp: a row for each new person, what is told of the known ones.
void planPeople(Work& work);
// The type of a person by what is known of the dates: follows them unless somebody chose another.
struct KnownDates
{
    bool birth = false;
    bool death = false;

    bool operator==(const KnownDates&) const = default;
};
QString typeAfter(const QString& type, KnownDates before, KnownDates after);
void planBirth(Work& work, int child);
void planDeath(Work& work, int deceased);

// plan_families.cpp
struct Couple
{
    qint64 husband = 0; // one of them may be 0
    qint64 wife = 0;
};
qint64 coupleFamily(Work& work, const Couple& couple, const QString& situation); // found or new
qint64 planParents(Work& work, int person);                                      // the family of origin; 0 for none
void planFamilies(Work& work);      // of all but those whom the act is about
void settleFamilyTypes(Work& work); // last, when all dates are set
QString coupleNames(Work& work, qint64 family);

// plan_dated.cpp: places, residences, professions.
PlacePair placeTold(Work& work, const QString& text); // empty where nothing is concluded from the text
PlacePair ownParish(Work& work);
// The place told; the own parish where none is, or its church alone, as the card proposes it. Empty where another is
// told that the BDP doesn't have.
PlacePair placeOrParish(Work& work, const QString& text);
bool fillPlace(Work& work, PlannedRow& row, const QString& codeColumn, const QString& levelColumn,
               const PlacePair& place, const QString& what);
void planDatedRows(Work& work);

// plan_assistants.cpp
void planAssistants(Work& work, const QString& kind, qint64 entity);
struct PriestColumns
{
    const char* priest;
    const char* function;
};
void planPriests(Work& work, PlannedRow& row, const QList<PriestColumns>& columns);

// plan_filiation.cpp: what the words of the act make of a person's filiation, the same for the child and its family.
enum class Filiation
{
    Untold,
    Unread, // told in words that the codes don't have: nothing follows
    Legitimate,
    Illegitimate,
    Foundling
};
Filiation filiationOf(Work& work, int person);
QVariant filiationCode(Work& work, int child); // null: none follows
// Whether a mark ("pobre", "herdeiro") is told of the person, with any value but one that denies it; it's taken then.
bool isFlagged(Work& work, int person, const char* type);

// The age told of a person, or else the rough one; the attribute that tells it, where `from` is given.
std::optional<Age> ageTold(const Act& act, int person, const Attribute** from = nullptr);

// plan_baptism.cpp, plan_marriage.cpp, plan_burial.cpp
void fillNotes(Work& work, int person, PlannedRow& row, const QString& column);
void planBaptism(Work& work);
void planMarriage(Work& work);
void planBurial(Work& work);
void planSuffrages(Work& work, int deceased); // plan_suffrages.cpp
void planHeirs(Work& work, int deceased);

void tellWhatIsLeft(Work& work);   // leftOut.cpp
void tellOfTheColumns(Work& work); // plan_sentences.cpp: of Plan::rows

// objections*.cpp
void objectToTheAct(Work& work);    // before the plan: what makes it impossible
void objectToThePeople(Work& work); // behind it: what contradicts
void objectToTheFamilies(Work& work);
void objectToTheNamesakes(Work& work);

} // namespace study
