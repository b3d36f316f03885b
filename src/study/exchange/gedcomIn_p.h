// The ones who make rows of the records of a GEDCOM file. For this room alone.
#pragma once

#include "study/exchange/gedcomDate.h"
#include "study/exchange/gedcomIn.h"
#include "study/exchange/gedcomInPlaces.h"
#include "study/exchange/gedcomInReading.h"
#include "study/exchange/gedcomInWords.h"
#include "study/indicators/settings.h"
#include "study/names/names.h"

#include <map>

namespace study::exchange {

// What is known of a person by now, for the types of families.
struct DatesSeen
{
    bool birth = false, death = false, isWoman = false;
};

// What all records share: where rows, places and words go, and what is told of it.
struct GedcomTarget
{
    static GedcomPlaces::MakesNew newPlacesOf(const GedcomIndex& seen, const GedcomImportOptions& options)
    {
        using enum GedcomPlaces::MakesNew;
        if (!options.newPlaces) return Nothing;
        return seen.isOurs() ? Parishes : Localities;
    }
    GedcomTarget(jet::Connection& bdp, const GedcomIndex& seen, const GedcomImportOptions& options)
        : index(seen), rows(bdp), places(bdp, rows, newPlacesOf(seen, options)),
          words(bdp, rows, options.newProfessions)
    {
    }

    const GedcomIndex& index;
    GedcomRows rows;
    GedcomPlaces places;
    GedcomWords words;
    const NameTable& names = NameTable::shared(); // asked once: it looks for its file
    GedcomReport report = {};
    std::map<parish::PersonNumber, indicators::BaptismDays> baptisms = {};
    QSet<QString> notesRead = {}; // shared ones
    QHash<qint64, DatesSeen> people = {};
    struct Children
    {
        qint64 all = 0, dated = 0;
    };
    QHash<qint64, Children> children = {};  // of each family
    QHash<qint64, DatesSeen> families = {}; // whether the marriage is dated, as `birth`
};

// "46y", "46y 3m"; nothing where no whole years are told. `isWhole`: nothing else is.
struct AgeTold
{
    parish::Code years = {};
    bool isWhole = true;
};
AgeTold ageTold(const QString& value);

// What godparents, witnesses and priests stand at.
struct ActAt
{
    char kind = 'b'; // 'c' of a marriage, as assistente.tipoacto
    qint64 entity = 0;
    parish::Date date = {};
};

// A record, from its structures to its rows.
class RecordIn
{
protected:
    RecordIn(GedcomTarget& target, const GedcomNode& record)
        : target_(target), reading_(target.index, target.notesRead), record_(record)
    {
    }

    // Into the notes, and counted. `path` is without the tag of the record.
    void note(const QString& path, const QString& value);
    void problem(const GedcomNode& at, const QString& text);

    // Of an event: what the columns have no place for goes to the notes.
    parish::Date takeDate(const GedcomNode& event, const QString& path);
    // Of the DATE below it into the columns of an observation; whether it is a period that they hold.
    bool takeObservation(const GedcomNode& fact, RowValues& into);
    // `whole`: what a note tells of it, where 5.5.1 had no room.
    parish::Place takePlace(const GedcomNode& event, const QString& path, const QString& whole = {});
    QString takePlaceCode(const GedcomNode& place); // letter and code, as an export tells them; "" for none
    parish::Code takeAge(const GedcomNode& event, const QString& path);
    QString takePicture(const GedcomNode& event);
    QString takeSource(const GedcomNode& event); // in words; of a register of ours without a page: ""
    // The notes of an event, without what an export of 5.5.1 adds to them.
    struct EventNotes
    {
        QString text = {};
        QString whole = {}, place = {}, cause = {}, file = {};
    };
    EventNotes takeEventNotes(const GedcomNode& event);
    // A note's labels into columns; the rest.
    QString putLabels(const QString& text, const std::vector<LabelColumn>& labels, RowValues& into, const QString& path,
                      bool areContinued = false);

    void putDate(RowValues& into, const char* column, const char* flag, const parish::Date& date);
    void putPlace(RowValues& into, const char* column, const char* level, const parish::Place& place);
    // What a column has no room for is in the notes as a whole.
    void putText(RowValues& into, const char* column, const QString& text, const QString& path);
    bool putCode(RowValues& into, const QString& column, const char* category, const QString& description);

    qint64 personOf(const GedcomNode& association); // 0: nobody, which is told
    struct AssociationTold
    {
        const GedcomNode* above = nullptr; // the event; null: of 5.5.1, told elsewhere
        qint64 who = 0;
        RoleTold role = {Role::Witness};
        ActTold act = ActTold::None; // where it is told
        QString phrase = {};
        QString notes = {};
    };
    // Nothing where the role, or the person, isn't known: it is left for the notes.
    std::optional<AssociationTold> takeAssociation(const GedcomNode& node, const GedcomNode* above);
    void addAssistant(const ActAt& act, const AssociationTold& association, const QString& path);
    // Into the first of these columns that is free: whether one was.
    struct PriestColumns
    {
        const char* priest;
        const char* function;
    };
    bool putPriest(RowValues& into, const std::vector<PriestColumns>& columns, const AssociationTold& association,
                   const QString& path);
    void addResidences(const char* kind, qint64 number);

    // The associations of an event: each is given to `take`, which says whether it has a place.
    void takeAssociationsOf(const GedcomNode& event, const std::function<bool(RoleTold, ActTold)>& fits,
                            const std::function<void(const AssociationTold&)>& take);

    void tellLeft(const GedcomNode& below, const QString& above); // into the notes; `above`: its path
    void finish(RowValues& into, const QString& own);             // all notes into "obs"; `own`: of the record itself

    GedcomTarget& target_;
    Reading reading_;
    const GedcomNode& record_;
    QSet<qint64> own_ = {};                             // whose act it is: they don't stand beside it
    QStringList notes_ = {};                            // beside those of the record itself
    QHash<QString, const GedcomNode*> assistants_ = {}; // who is written, and where that was told
};

class PersonIn : public RecordIn
{
public:
    PersonIn(GedcomTarget& target, const GedcomNode& record);

    void write();

private:
    void takeName();
    void takeTitles();
    void takeSex();
    void takeBirth();
    struct Beginning;
    void readBeginning(Beginning& one, const char* tag);
    void takeBirthDate(const Beginning& ceremony, const Beginning& birth);
    void standAtBaptism(const AssociationTold& association);
    void takeDeath();
    void takeBurial();
    void takeFacts();
    void takeFact(const GedcomNode& fact);
    void takeSignature(const GedcomNode& fact);
    void takeLooks();
    void takeProfessions();
    void takePassports();
    void takeWill();
    QString takeSuffrages(const QString& notes, const QString& path); // what else they tell
    bool takeSuffrage(const QString& line, const QString& path);
    void takeLinks();
    void takeAssociations();
    void addBequest(const AssociationTold& heir);
    void settle(); // what follows from the dates

    const GedcomPersonSeen& seen_;
    RowValues card_;
    parish::Date birth_ = {}, death_ = {};
    int professions_ = 0, signatures_ = 0, bequests_ = 0, suffrages_ = 0;
};

class FamilyIn : public RecordIn
{
public:
    FamilyIn(GedcomTarget& target, const GedcomNode& record);

    void write();

private:
    void takeMembers();
    void takeChildren();
    void takeMarriage();
    void takeMarriageOf(const GedcomNode& event);
    void takeSpouses(const GedcomNode& event);
    void takeFacts();

    const GedcomFamilySeen& seen_;
    RowValues card_;
    std::vector<RowValues> members_ = {};
    int husband_ = -1, wife_ = -1; // in members_
    parish::Date marriage_ = {};
};

} // namespace study::exchange
