#include "study/people/kin.h"

#include "platform/jet/follower.h"
#include "platform/jet/rows.h"
#include "study/people/index_p.h"

#include <array>
#include <unordered_map>
#include <utility>

namespace study {

namespace {

// What has been read out of one row of a table: the row may be another one tomorrow, or none.
struct Owners
{
    qint64 person = 0;
    qint64 family = 0;
};

enum Table
{
    individuo,
    familia,
    familias,
    residencia,
    profissoes,
    assistente
};
constexpr int numTables = 6;
constexpr size_t mostKept = 60000; // people and families

} // namespace

struct Kin::Private
{
    Private(jet::Connection& connection, NameIndex& itsIndex)
        : bdp(connection), index(itsIndex),
          follower(connection, {"individuo", "familia", "familias", "residencia", "profissoes", "assistente"})
    {
    }

    jet::Connection& bdp;
    NameIndex& index;
    jet::Follower follower;
    std::unordered_map<qint64, Person> people;   // by nind
    std::unordered_map<qint64, qint64> numberOf; // by rowid
    std::unordered_map<qint64, Family> families;
    std::unordered_map<qint64, std::vector<Child>> children;    // by nfamilia
    std::unordered_map<qint64, std::vector<qint64>> familiesOf; // by nind
    std::unordered_map<qint64, std::vector<Residence>> residences;
    std::unordered_map<qint64, std::vector<int>> professions;
    std::unordered_map<qint64, std::vector<Assistance>> assistances;
    std::array<std::unordered_map<qint64, Owners>, numTables> readFrom; // by rowid

    void clear();
    void drop(const Owners& owners);
    void rowTouched(Table table, qint64 row);
    Owners ownersToday(Table table, qint64 row);
    const Person& keep(PersonRow row);
    void readMembers(Family& family);
};

Kin::Kin(jet::Connection& bdp, NameIndex& index) : d_(std::make_unique<Private>(bdp, index)) {}

Kin::~Kin() = default;

void Kin::Private::clear()
{
    people.clear();
    numberOf.clear();
    families.clear();
    children.clear();
    familiesOf.clear();
    residences.clear();
    professions.clear();
    assistances.clear();
    for (auto& table : readFrom)
        table.clear();
}

void Kin::Private::drop(const Owners& owners)
{
    people.erase(owners.person);
    familiesOf.erase(owners.person);
    residences.erase(owners.person);
    professions.erase(owners.person);
    assistances.erase(owners.person);
    families.erase(owners.family);
    children.erase(owners.family);
}

Owners Kin::Private::ownersToday(Table table, qint64 row)
{
    const auto question = [table, row] {
        switch (table) {
        case individuo:
            return jet::NativeSql("select nind, famorig from individuo where rowid = ?", {row});
        case familia:
            return jet::NativeSql("select 0, nfamilia from familia where rowid = ?", {row});
        case familias:
            return jet::NativeSql("select nind, nfamilia from familias where rowid = ?", {row});
        case residencia:
            return jet::NativeSql("select numero, 0 from residencia where rowid = ?", {row});
        case profissoes:
            return jet::NativeSql("select nind, 0 from profissoes where rowid = ?", {row});
        case assistente:
            break;
        }
        return jet::NativeSql("select nind, 0 from assistente where rowid = ?", {row});
    };
    jet::Rows found(bdp, question());
    if (!found.next()) return {};
    return {found.number(0), found.number(1)};
}

void Kin::Private::rowTouched(Table table, qint64 row)
{
    auto& read = readFrom[size_t(table)];
    if (read.contains(row)) drop(read.at(row));
    read.erase(row);
    const Owners today = ownersToday(table, row);
    drop(today);
    if (table != individuo) return;
    numberOf.erase(row);
    for (jet::Rows own(bdp, jet::NativeSql("select nfamilia from familias where nind = ?", {today.person}));
         own.next();)
        families.erase(own.number(0)); // who of them is the husband
}

void Kin::update()
{
    const auto touched = d_->follower.touched();
    if (!touched || d_->people.size() + d_->families.size() > mostKept) return d_->clear();
    try {
        for (int table = 0; table < numTables; ++table)
            for (const qint64 row : (*touched)[size_t(table)])
                d_->rowTouched(Table(table), row);
    } catch (...) {
        d_->clear();
        throw;
    }
}

const Person& Kin::Private::keep(PersonRow row)
{
    numberOf[row.row] = row.nind;
    readFrom[individuo][row.row] = {row.nind, row.family};
    Person person{.is = std::move(row), .name = {}};
    person.name = codedName(person.is.name);
    const qint64 nind = person.is.nind;
    return people.insert_or_assign(nind, std::move(person)).first->second;
}

const std::vector<qint64>& Kin::familiesOf(const Person& person)
{
    const qint64 nind = person.is.nind;
    if (d_->familiesOf.contains(nind)) return d_->familiesOf.at(nind);
    std::vector<qint64> all;
    for (jet::Rows found(d_->bdp, jet::NativeSql("select rowid, nfamilia from familias where nind = ?", {nind}));
         found.next();)
    {
        all.push_back(found.number(1));
        d_->readFrom[familias][found.number(0)] = {nind, found.number(1)};
    }
    return d_->familiesOf.insert_or_assign(nind, std::move(all)).first->second;
}

const Person* Kin::personAt(qint64 row)
{
    if (d_->numberOf.contains(row) && d_->people.contains(d_->numberOf.at(row)))
        return &d_->people.at(d_->numberOf.at(row));
    auto found = d_->index.person(row);
    return found ? &d_->keep(std::move(*found)) : nullptr;
}

static std::optional<PersonRow> rowWith(jet::Connection& bdp, qint64 nind)
{
    jet::Rows found(bdp, jet::NativeSql("select rowid, nind, nome, sexo, datanasc, dataobito, famorig from individuo "
                                        "where nind = ?",
                                        {nind}));
    if (!found.next()) return {};
    return personIn(found);
}

const Person* Kin::person(qint64 nind)
{
    if (d_->people.contains(nind)) return &d_->people.at(nind);
    auto found = rowWith(d_->bdp, nind);
    return found ? &d_->keep(std::move(*found)) : nullptr;
}

// Read each time: few are asked about.
AboutDates Kin::aboutDatesOf(const Person& person)
{
    jet::Rows exact(d_->bdp,
                    jet::NativeSql("select DnascFixa, dobitofixa from individuo where rowid = ?", {person.is.row}));
    if (!exact.next()) return {};
    return {.birth = exact.number(0) == 0, .death = exact.number(1) == 0};
}

// A man and a woman; where a sex isn't known, or is the same, the one entered first stands in front.
void Kin::Private::readMembers(Family& family)
{
    jet::Rows members(bdp,
                      jet::NativeSql("select m.rowid, m.nind, i.sexo from familias m left join individuo i on i.nind = "
                                     "m.nind where m.nfamilia = ? order by m.rowid",
                                     {family.number}));
    std::vector<qint64> others;
    while (members.next()) {
        const qint64 nind = members.number(1);
        const QString sex = members.text(2).toLower();
        readFrom[familias][members.number(0)] = {nind, family.number};
        qint64* const place = sex == "f" ? &family.wife : sex == "m" ? &family.husband : nullptr;
        if (place && *place == 0)
            *place = nind;
        else
            others.push_back(nind);
    }
    for (const qint64 nind : others) {
        qint64* const place = family.husband == 0 ? &family.husband : &family.wife;
        if (*place == 0) *place = nind;
    }
}

const Family* Kin::family(qint64 number)
{
    if (number == 0) return nullptr;
    if (d_->families.contains(number)) return &d_->families.at(number);
    Family family{.number = number};
    jet::Rows found(d_->bdp, jet::NativeSql("select rowid, datacasam from familia where nfamilia = ?", {number}));
    if (!found.next()) return nullptr;
    family.marriage = found.date(1);
    d_->readFrom[familia][found.number(0)] = {0, number};
    d_->readMembers(family);
    return &d_->families.insert_or_assign(number, family).first->second;
}

const std::vector<Child>& Kin::childrenOf(const Family& family)
{
    if (d_->children.contains(family.number)) return d_->children.at(family.number);
    std::vector<Child> all;
    for (jet::Rows found(d_->bdp,
                         jet::NativeSql("select rowid, nind, datanasc from individuo where famorig = ? order by "
                                        "datanasc is null, datanasc, nind",
                                        {family.number}));
         found.next();)
    {
        all.push_back({found.number(1), found.date(2)});
        d_->readFrom[individuo][found.number(0)] = {found.number(1), family.number};
    }
    return d_->children.insert_or_assign(family.number, std::move(all)).first->second;
}

const std::vector<Residence>& Kin::residencesOf(const Person& person)
{
    const qint64 nind = person.is.nind;
    if (d_->residences.contains(nind)) return d_->residences.at(nind);
    std::vector<Residence> all;
    for (jet::Rows found(d_->bdp,
                         jet::NativeSql("select rowid, dataref, localresid, tipolocal from residencia where numero = "
                                        "? and tiporesid = 'i' order by dataref desc",
                                        {nind}));
         found.next();)
    {
        all.push_back({found.date(1), found.text(2), found.text(3).toUpper()});
        d_->readFrom[residencia][found.number(0)] = {nind, 0};
    }
    return d_->residences.insert_or_assign(nind, std::move(all)).first->second;
}

const std::vector<int>& Kin::professionsOf(const Person& person)
{
    const qint64 nind = person.is.nind;
    if (d_->professions.contains(nind)) return d_->professions.at(nind);
    std::vector<int> all;
    for (jet::Rows found(d_->bdp, jet::NativeSql("select rowid, codprof from profissoes where nind = ?", {nind}));
         found.next();)
    {
        all.push_back(int(found.number(1)));
        d_->readFrom[profissoes][found.number(0)] = {nind, 0};
    }
    return d_->professions.insert_or_assign(nind, std::move(all)).first->second;
}

const std::vector<Assistance>& Kin::assistancesOf(const Person& person)
{
    const qint64 nind = person.is.nind;
    if (d_->assistances.contains(nind)) return d_->assistances.at(nind);
    std::vector<Assistance> all;
    for (jet::Rows found(
             d_->bdp, jet::NativeSql("select rowid, dataref, tipoassistente from assistente where nind = ?", {nind}));
         found.next();)
    {
        if (const QDate date = found.date(1); date.isValid()) all.push_back({date, found.text(2).trimmed() == "p"});
        d_->readFrom[assistente][found.number(0)] = {nind, 0};
    }
    return d_->assistances.insert_or_assign(nind, std::move(all)).first->second;
}

qint64 otherSpouse(const Family& family, qint64 nind)
{
    return family.husband == nind ? family.wife : family.wife == nind ? family.husband : 0;
}

} // namespace study
