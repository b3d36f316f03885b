#include "study/exchange/gedcomInIndex.h"

#include "platform/jet/error.h"
#include "study/exchange/gedcomInTables.h"

#include <QUrl>

#include <algorithm>

namespace study::exchange {

namespace {

constexpr int recordsSeenBetweenQuestions = 1024;
constexpr std::size_t mostMembers = 2;

qint64 ownNumberOf(const GedcomNode& record, const char* type)
{
    for (const GedcomNode& one : record.children)
        if (one.tag == "REFN" && one.text("TYPE") == QLatin1String(type)) return one.value.toLongLong();
    return 0;
}

// What a source is called: title, author, what was published; and the repository stays with its record.
QString titleOf(const GedcomNode& source)
{
    QStringList parts;
    for (const char* const tag : {"TITL", "AUTH", "PUBL", "ABBR"})
        if (const QString told = source.text(tag).simplified();
            !told.isEmpty() && (parts.isEmpty() || qstrcmp(tag, "ABBR") != 0))
            parts << told;
    return parts.join(", ");
}

QString fileOf(const GedcomNode& object)
{
    const GedcomNode* const file = object.child("FILE");
    return file ? QUrl::fromPercentEncoding(file->value.toUtf8()) : QString();
}

// What 5.5.1 tells of one of a couple.
bool mayBeOfAMarriage(const GedcomNode& association)
{
    const auto role = roleTold(association.text("ROLE") + association.text("RELA"), {});
    if (!role || (role->role != Role::Witness && role->role != Role::Clergy && !role->isGodparent)) return false;
    const ActTold act = phraseOfAct(association.text("NOTE").section('\n', 0, 0)).act;
    return act == ActTold::Marriage || (act == ActTold::None && role->role == Role::Witness);
}

std::size_t indexAt(const QHash<int, int>& byLine, int line)
{
    const auto found = byLine.constFind(line);
    if (found == byLine.constEnd())
        throw jet::Error(jet::number::invalidCall, "o ficheiro foi alterado enquanto era lido.");
    return static_cast<std::size_t>(*found);
}

bool isBirthFamily(const GedcomNode& link)
{
    const QString kind = link.text("PEDI");
    return kind.isEmpty() || kind.compare("birth", Qt::CaseInsensitive) == 0;
}

} // namespace

struct GedcomIndex::Links
{
    struct Association
    {
        int bearer = -1;
        GedcomNode node = {};
    };
    std::vector<QString> origins = {};               // of each person: the family that it tells itself
    std::vector<std::vector<QString>> ofPeople = {}; // of each person: FAMS
    std::vector<std::vector<QString>> couples = {};  // of each family: HUSB, WIFE
    QHash<QString, int> childOf = {};                // by the name of the child: the first family with it
    std::vector<Association> associations = {};      // of people, with a marriage perhaps
};

GedcomIndex::GedcomIndex(QIODevice& file, const GoesOn& goesOn)
{
    GedcomReader reader(file);
    head = reader.head();
    Links links;
    GedcomNode record;
    for (qint64 count = 1; reader.next(record); ++count) {
        see(record, links);
        if (goesOn && count % recordsSeenBetweenQuestions == 0 && !goesOn(reader.done() * shareOfTheIndex))
            throw Interrupted{};
    }
    problems.insert(problems.begin(), reader.problems().begin(), reader.problems().end());
    join(links);
    if (!isOurs()) openRings(); // a BDP goes into another one as it is
    joinMarriages(links);
}

void GedcomIndex::see(GedcomNode& record, Links& links)
{
    if (record.tag == "INDI")
        seePerson(record, links);
    else if (record.tag == "FAM")
        seeFamily(record, links);
    else if (record.tag == "NOTE" || record.tag == "SNOTE")
        notes.insert(record.xref, record.value);
    else if (record.tag == "SOUR")
        sources.insert(record.xref, titleOf(record));
    else if (record.tag == "OBJE")
        objects.insert(record.xref, fileOf(record));
}

void GedcomIndex::seePerson(GedcomNode& record, Links& links)
{
    const int index = static_cast<int>(people.size());
    peopleByLine_.insert(record.line, index);
    if (!record.xref.isEmpty() && personNames_.contains(record.xref))
        problems.push_back({record.line, QString("O registo @%1@ está duas vezes no ficheiro; as ligações vão para o "
                                                 "primeiro.")
                                             .arg(record.xref)});
    else
        personNames_.insert(record.xref, index);
    people.push_back({.ownNumber = ownNumberOf(record, personRefn), .line = record.line});
    QString origin;
    bool isByBirth = false;
    std::vector<QString> ofCouples;
    for (GedcomNode& one : record.children) {
        if (one.tag == "FAMC" && one.isPointer && !one.isVoid() &&
            (origin.isEmpty() || (!isByBirth && isBirthFamily(one)))) {
            origin = one.value;
            isByBirth = isBirthFamily(one);
        }
        if (one.tag == "FAMS" && one.isPointer && !one.isVoid()) ofCouples.push_back(one.value);
        if (one.tag == "ASSO" && mayBeOfAMarriage(one)) links.associations.push_back({index, one});
    }
    links.origins.push_back(origin);
    links.ofPeople.push_back(std::move(ofCouples));
}

void GedcomIndex::seeFamily(const GedcomNode& record, Links& links)
{
    const int index = static_cast<int>(families.size());
    familiesByLine_.insert(record.line, index);
    if (!record.xref.isEmpty() && familyNames_.contains(record.xref))
        problems.push_back({record.line, QString("O registo @%1@ está duas vezes no ficheiro; as ligações vão para o "
                                                 "primeiro.")
                                             .arg(record.xref)});
    else
        familyNames_.insert(record.xref, index);
    families.push_back({.ownNumber = ownNumberOf(record, familyRefn)});
    std::vector<QString> couple;
    for (const GedcomNode& one : record.children) {
        if (!one.isPointer || one.isVoid()) continue;
        if (one.tag == "HUSB" || one.tag == "WIFE") couple.push_back(one.value);
        if (one.tag == "CHIL" && !links.childOf.contains(one.value)) links.childOf.insert(one.value, index);
    }
    links.couples.push_back(std::move(couple));
}

// From either end; what both ends tell counts once.
void GedcomIndex::join(Links& links)
{
    const auto addMember = [this](int family, int person) {
        std::vector<int>& members = families[static_cast<std::size_t>(family)].members;
        if (members.size() >= mostMembers || std::ranges::find(members, person) != members.end()) return;
        members.push_back(person);
        people[static_cast<std::size_t>(person)].spouseOf.push_back(family);
    };
    for (std::size_t family = 0; family < families.size(); ++family)
        for (const QString& name : links.couples[family])
            if (const int person = personNames_.value(name, -1); person >= 0)
                addMember(static_cast<int>(family), person);
    for (std::size_t person = 0; person < people.size(); ++person) {
        for (const QString& name : links.ofPeople[person])
            if (const int family = familyNames_.value(name, -1); family >= 0)
                addMember(family, static_cast<int>(person));
        people[person].origin = familyNames_.value(links.origins[person], -1);
    }
    for (auto child = links.childOf.cbegin(); child != links.childOf.cend(); ++child)
        if (const int person = personNames_.value(child.key(), -1);
            person >= 0 && people[static_cast<std::size_t>(person)].origin < 0)
            people[static_cast<std::size_t>(person)].origin = child.value();
}

// Nobody descends from somebody who descends from them: the family of origin that closes such a ring is none.
void GedcomIndex::openRings()
{
    enum class State : quint8
    {
        New,
        Above, // on the way up from whom is looked at
        Done
    };
    struct Step
    {
        int person = -1;
        std::size_t parent = 0; // the next one to be looked at
    };
    std::vector<State> states(people.size(), State::New);
    std::vector<Step> way;
    for (int first = 0; first < static_cast<int>(people.size()); ++first) {
        if (states[static_cast<std::size_t>(first)] != State::New) continue;
        way.push_back({first});
        states[static_cast<std::size_t>(first)] = State::Above;
        while (!way.empty()) {
            const auto at = static_cast<std::size_t>(way.back().person);
            const int origin = people[at].origin;
            const std::vector<int> none;
            const std::vector<int>& parents = origin < 0 ? none : families[static_cast<std::size_t>(origin)].members;
            if (way.back().parent >= parents.size()) {
                states[at] = State::Done;
                way.pop_back();
                continue;
            }
            const int parent = parents[way.back().parent++];
            State& state = states[static_cast<std::size_t>(parent)];
            if (state == State::Above) {
                problems.push_back({people[at].line, "A pessoa seria antepassada de si própria: a ligação à família "
                                                     "de origem foi para as notas."});
                people[at].origin = -1;
            } else if (state == State::New) {
                state = State::Above;
                way.push_back({parent});
            }
        }
    }
}

// 5.5.1 has no place for them in a family. Which marriage is meant stands in the note of an export; a witness of
// anybody else is of the one marriage of the person.
void GedcomIndex::joinMarriages(Links& links)
{
    QHash<qint64, int> byNumber;
    for (std::size_t i = 0; i < families.size(); ++i)
        if (families[i].ownNumber > 0) byNumber.insert(families[i].ownNumber, static_cast<int>(i));
    for (Links::Association& one : links.associations) {
        const PhraseOfAct act = phraseOfAct(one.node.text("NOTE").section('\n', 0, 0));
        const std::vector<int>& spouseOf = people[static_cast<std::size_t>(one.bearer)].spouseOf;
        int family = -1;
        if (act.act == ActTold::Marriage)
            family = byNumber.value(act.family, -1);
        else if (spouseOf.size() == 1)
            family = spouseOf.front();
        if (family < 0) continue;
        ofMarriages.insert(one.node.line);
        families[static_cast<std::size_t>(family)].associations.push_back(std::move(one.node));
    }
}

bool GedcomIndex::number(const GedcomNumbers& from)
{
    static constexpr qint64 largest = Q_INT64_C(1) << 52; // that a column of numbers keeps whole
    const auto areKept = [&](const auto& records) {
        QSet<qint64> seen;
        for (const auto& one : records) {
            if (one.ownNumber <= 0 || one.ownNumber > largest || seen.contains(one.ownNumber)) return false;
            seen.insert(one.ownNumber);
        }
        return true;
    };
    const bool keep = from.keepOwn && isOurs() && areKept(people) && areKept(families);
    qint64 person = from.nextPerson, family = from.nextFamily;
    for (GedcomPersonSeen& one : people)
        one.number = keep ? one.ownNumber : person++;
    for (GedcomFamilySeen& one : families)
        one.number = keep ? one.ownNumber : family++;
    return keep;
}

const GedcomPersonSeen& GedcomIndex::personAtLine(int line) const
{
    return people[indexAt(peopleByLine_, line)];
}

const GedcomFamilySeen& GedcomIndex::familyAtLine(int line) const
{
    return families[indexAt(familiesByLine_, line)];
}

const GedcomPersonSeen* GedcomIndex::personNamed(const QString& xref) const
{
    const int index = xref.isEmpty() ? -1 : personNames_.value(xref, -1);
    return index < 0 ? nullptr : &people[static_cast<std::size_t>(index)];
}

const GedcomFamilySeen* GedcomIndex::familyNamed(const QString& xref) const
{
    const int index = xref.isEmpty() ? -1 : familyNames_.value(xref, -1);
    return index < 0 ? nullptr : &families[static_cast<std::size_t>(index)];
}

qint64 GedcomIndex::originOf(const GedcomPersonSeen& person) const
{
    return person.origin < 0 ? 0 : families[static_cast<std::size_t>(person.origin)].number;
}

bool GedcomIndex::isMember(const GedcomFamilySeen& family, const GedcomPersonSeen& person) const
{
    return std::ranges::any_of(family.members,
                               [&](int one) { return &people[static_cast<std::size_t>(one)] == &person; });
}

} // namespace study::exchange
