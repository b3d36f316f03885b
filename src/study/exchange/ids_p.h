// The one who writes the tables of the structure. For this room alone.
#pragma once

#include "study/exchange/gedcom_p.h"
#include "study/exchange/ids.h"
#include "study/exchange/idsFile.h"
#include "study/exchange/idsPlaces.h"

#include <QCache>
#include <QHash>
#include <QMap>

#include <map>
#include <set>
#include <vector>

namespace study::exchange {

// A person at one end of a relation.
struct IdsEnd
{
    qint64 number = 0;
    char sex = 0; // 'm', 'f', 0 for neither
};

// What hangs on a row of INDIVIDUAL beside its value.
struct IdsBeside
{
    qint64 context = 0; // 0: none
    QString source = {};
};

// A word of a coded value, and what METADATA tells of it.
struct IdsCoded
{
    QString value = {};
    QString explanation = {};
};

class IdsWriter
{
public:
    IdsWriter(const jet::Connection& bdp, const QString& folder, const IdsOptions& options, const GoesOn& goesOn);

    IdsCounts write();

private:
    // What the study tells, which asks for the whole parish.
    struct Observed
    {
        parish::Date from = {}, until = {};
        observation::Proof fromBy = observation::Proof::None, untilBy = observation::Proof::None;
        indicators::Legitimacy legitimacy = indicators::Legitimacy::Unknown;
    };
    void readParish();
    void observe(const parish::Snapshot& parish);
    Observed limited(Observed one) const;
    // What the other tables ask of people, of whom they name a million to and fro.
    struct Known
    {
        double number = 0;
        parish::Date birth = {};
        char sex = 0; // as IdsEnd has it
    };
    void keep(const jet::Rows& person);
    const Known* personAt(const jet::Rows& row, int column) const; // null where the BDP hasn't got them
    Link linkTo(const jet::Rows& row, int column) const;           // the same, as a link
    void findWithheld();
    void begin(IdsTable table);
    void finish();
    void ask(double share) const;
    void next(); // a record

    // INDIVIDUAL
    struct OfPeople;
    void writePeople();
    void writePerson(const PersonCard& card, const Observed& observed, OfPeople& rows);
    GedcomName nameOf(const QString& name);
    void writeName(const PersonCard& card);
    void writeBirth(const PersonCard& card, const Observed& observed, OfPeople& rows);
    void writeUnions(const PersonCard& card, OfPeople& rows);
    void writeUnion(const jet::Rows& row);
    void writeDated(const PersonCard& card, OfPeople& rows);
    void writeAssistance(const jet::Rows& row);
    void writeDeath(const PersonCard& card, OfPeople& rows);
    void writeSuffrage(const PersonCard& card, const jet::Rows& row);
    void writeLooks(const PersonCard& card);
    void writeObservation(const Observed& observed);
    void tell(Told what, const QString& value, const parish::Date& date = {}, const IdsBeside& beside = {});
    void tellText(Told what, const QString& value, const parish::Date& date = {}, const IdsBeside& beside = {});
    void tellNumber(Told what, parish::Code number, const parish::Date& date);
    void tellCoded(Told what, const IdsCoded& coded, const parish::Date& date = {}, const IdsBeside& beside = {});
    void tellCode(Told what, const QString& category, parish::Code code, const parish::Date& date = {});
    void tellCivilState(parish::Code code, const parish::Date& date);
    void tellPlace(Told what, const parish::Place& place, const parish::Date& date, const QString& source = {});
    void note(const ToldWords& words, const IdsCoded& coded);

    // Families, as three of the tables go by them.
    struct FamilyAt
    {
        qint64 number = 0;
        std::size_t place = 0; // among all
        QString situation = {};
        parish::Code storedType = {};
        parish::Date marriage = {}; // unknown of a family that is withheld
        parish::Place at = {};
        bool isWithheld = false;
    };
    struct Child
    {
        qint64 number = 0;
        parish::Date birth = {}, death = {}, married = {};
    };
    struct OfFamilies;
    template <class Work>
    void forEachFamily(const Work& work, bool withMarriages = false); // of the children
    std::vector<IdsEnd> coupleOf(const FamilyAt& family, OfFamilies& rows);
    std::vector<Child> childrenOf(const FamilyAt& family, OfFamilies& rows);
    QString sourceOf(const FamilyAt& family, const QString& page) const;

    // INDIV_INDIV
    void writeRelations();
    void writeKinOf(const FamilyAt& family, OfFamilies& rows);
    void writeGodparents();
    void writeMarriageWitnesses();
    void writeHeirs();
    void writeExecutors();
    bool canBeTied(const Link& one, const Link& other);
    void tie(Tie what, const IdsEnd& one, const IdsEnd& other, const parish::Date& date = {},
             const QString& source = {});

    // INDIV_CONTEXT, CONTEXT, CONTEXT_CONTEXT
    void writeRolesInContexts();
    void writeRolesIn(const FamilyAt& family, OfFamilies& rows);
    void writeResidences();
    void writeRole(const ContextRole& role, qint64 person, qint64 context, const parish::Date& date = {},
                   const QString& source = {});
    void writeContexts();
    void writeUnionContext(const FamilyAt& family, OfFamilies& rows);
    void tellContext(Told what, qint64 context, const IdsCoded& coded, const parish::Date& date = {},
                     const QString& source = {});
    void writePlaceContexts();
    void writePlacesInPlaces();

    // METADATA
    void writeMetadata();
    void writeMeaning(const char* table, QByteArrayView type, const QString& value, const char* source,
                      const QString& explanation);
    report::PackageJson package() const;

    QByteArrayView typeOf(const ToldWords& words) const; // in the case that the user wants
    bool isShown(qint64 person) const { return !withheld_.contains(person); }
    qint64 contextOfFamily(qint64 number) const;
    IdsCoded codedBy(const QString& category, parish::Code code);
    static parish::Date actDate(QDate told, const parish::Date& card);
    QString sourceOf(Register which, const parish::Date& date, const parish::Place& place, const QString& page) const;

    const jet::Connection& bdp_;
    const IdsOptions& options_;
    const GoesOn& goesOn_;
    report::PackageFiles files_;
    QByteArray database_ = {};
    parish::Home home_ = {};
    parish::Catalogue catalogue_ = {};
    IdsPlaces places_;
    std::vector<Observed> observed_ = {};      // in the order of the people
    std::vector<Known> known_ = {};            // the same, once they are written
    std::vector<quint8> types_ = {};           // of families, in their order
    QSet<qint64> withheld_ = {}, closed_ = {}; // people, and families that have one of them for a couple
    std::unique_ptr<IdsFile> file_ = {};
    static constexpr int mostNames = 10'000; // a few megabytes
    report::PackageJson resources_ = report::PackageJson::array();
    IdsCounts counts_ = {};
    qint64 person_ = 0; // whose rows are written
    // Of coded types, by table and type: each value with its meanings.
    using Meanings = QMap<QString, QStringList>;
    std::map<std::pair<IdsTable, QByteArray>, Meanings> values_ = {};
    std::vector<Meanings*> meanings_ = {};                // of them, in the order of what is told
    std::vector<QByteArray> typesTold_ = {};              // the same
    QHash<std::pair<QString, int>, IdsCoded> coded_ = {}; // by category and code
    const NameTable& names_ = NameTable::shared();        // asked once: it looks for its file
    QCache<QString, GedcomName> namesOfLate_{mostNames};
    std::set<QString> placeRelations_ = {};
    qint64 all_ = 1, done_ = 0;
};

} // namespace study::exchange
