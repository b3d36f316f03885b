// What counts of the people and couples of a parish when they are compared: names as codes with their shares, spans of
// births and lives. Made once for a snapshot, read by all threads.
#pragma once

#include "study/linkage/candidates.h"
#include "study/parish/snapshot.h"
#include "study/people/keys.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>
#include <deque>
#include <span>
#include <vector>

namespace study::linkage {

struct Word
{
    CodedWord is = {};
    std::vector<WordCode> keys = {}; // its classes, and those of the words that it is like
    // The share of the people of that sex (undetermined: of all) who have it as first name; and as another one, of
    // those of whom others are told.
    std::array<double, 3> asFirst = {1, 1, 1}, asOther = {1, 1, 1};
};

struct Name
{
    QString written = {};
    std::vector<Word> words = {};          // none: no name
    bool devotionalAlone = false;          // behind the first one
    QStringList bynames = {}, titles = {}; // that it has beside its words

    bool isEmpty() const { return words.empty(); }
};

// Days as Julian day numbers; from 0 where nothing is known, and likewise to `endless`.
inline constexpr int endless = 1 << 30;
struct Days
{
    int from = 0, to = endless;
};

Days spanOf(const parish::Date& date); // wider where it is about a day. Precondition: it is known

// When somebody stands on the cards of others.
struct Offices
{
    std::vector<const parish::Date*> priestAt = {}, executorBefore = {}, heirBefore = {};
};
std::vector<Offices> officesOf(const parish::Snapshot& parish); // by index

struct Tie // a union of a person
{
    const parish::Family* family = nullptr; // null: a spouse whom an act or a note names
    const parish::Person* spouse = nullptr;
    const Name* name = nullptr; // of the spouse; null: unknown
    Days time = {0, 0};         // as of CoupleFace; to 0: nothing known
};

// A place or a profession by its number in Faces, and the share of the people who have it.
struct Whereabouts
{
    int place = 0;
    double share = 1;
};

struct Face
{
    const parish::Person* person = nullptr;
    const Name* name = nullptr;
    const Name *father = nullptr, *mother = nullptr;
    std::vector<Tie> ties = {};

    Days born = {};                  // beyond these it is somebody else
    double birthYear = 0;            // told, or guessed by what they did; 0: nothing known
    bool birthTold = false;          // by a date or a stated age
    double guessed = 1;              // how far a guess is to be trusted, from 0 to 1
    double ageSlack = 0;             // years that a stated age may be off; 0 of a date
    Days died = {};                  // both are meaningless unless the person has a death
    int deadBy = endless;            // day on which an act tells that they had died
    int lastAlive = 0;               // day until which they lived at the least, by what only the living do
    std::vector<int> births = {};    // of the children, exact days, ascending
    std::vector<uint32_t> acts = {}; // at which they stood, ascending; who stood at one beside them is somebody else

    std::vector<Whereabouts> places = {}; // localities and sites
    std::vector<Whereabouts> parishes = {};
    std::vector<Whereabouts> professions = {};
    QStringList bynames = {}, tags = {}, titles = {}; // as names.h compares them, of the card and of the name

    int sexIndex() const { return int(person->gender); }
};

struct CoupleFace
{
    const parish::Family* family = nullptr;
    const Face *husband = nullptr, *wife = nullptr; // null: not known
    Days time = {}; // from the marriage or the first birth to the last one; from 0: nothing known
    std::vector<int> births = {};
    std::vector<qint64> godparents = {}; // numbers, ascending
    std::vector<Whereabouts> places = {}, parishes = {};
};

class Faces
{
public:
    // Parents and spouses whom acts and notes name stand for those that somebody lacks.
    explicit Faces(const parish::Snapshot& parish, std::span<const NamedParents> parents = {},
                   std::span<const NamedSpouse> spouses = {});
    Faces(const Faces&) = delete;
    Faces& operator=(const Faces&) = delete;

    const std::vector<Face>& people() const { return people_; }
    const std::vector<CoupleFace>& couples() const { return couples_; }
    const Face* of(const parish::Person* person) const; // null for null
    const Name* name(const QString& written) const;     // null: none of the parish
    QString thing(int number) const;                    // what the cards call the place, or the profession
    Name read(const QString& written) const;            // with its shares, whoever bears it

private:
    const Name* keep(const QString& written);
    void countNames();
    void weigh(Name& name) const;
    void addNamed(std::span<const NamedParents> parents, std::span<const NamedSpouse> spouses);
    Face* faceOf(parish::PersonNumber number); // null: nobody
    void likenWords();
    void fill(Face& face, const Offices& offices);
    static void fillBynames(Face& face);
    void fillTimes(Face& face, const Offices& offices);
    void fillPlaces(Face& face);
    void tellActs();
    void tellDead();
    void fillCouple(CoupleFace& couple);
    void addThing(const QString& key, const QString& name, std::vector<Whereabouts>& to);
    void addPlace(const parish::Place& place, Face& face);
    void countPlaces();

    const parish::Snapshot& parish_;
    std::deque<Name> names_;
    QHash<QString, const Name*> nameOf_;
    std::vector<Face> people_;
    std::vector<CoupleFace> couples_;
    QHash<QString, int> placeOf_;
    std::vector<QString> placeName_;
    std::vector<double> placeShare_;
    std::array<QHash<WordCode, int>, 3> first_, other_; // how many people have it, by sex; [0]: all
    std::array<int, 3> counted_ = {}, withOthers_ = {}; // people with a name, and with more than the first
};

} // namespace study::linkage
