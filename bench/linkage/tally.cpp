#include "linkage/tally.h"

#include <QList>

#include <algorithm>
#include <numeric>

namespace bench {

namespace {

using study::linkage::Link;
using study::linkage::LinkKind;
using study::parish::Family;
using study::parish::FamilyNumber;
using study::parish::Person;
using study::parish::Snapshot;

// Records that were joined.
class Joined
{
public:
    // Whether they weren't yet.
    bool join(qint64 one, qint64 other)
    {
        const qint64 a = root(one), b = root(other);
        if (a == b) return false;
        up_[a] = b;
        return true;
    }

private:
    qint64 root(qint64 record)
    {
        auto at = up_.find(record);
        while (at != up_.end()) {
            record = at->second;
            at = up_.find(record);
        }
        return record;
    }

    std::map<qint64, qint64> up_;
};

int tooMany(const std::map<qint64, int>& truth)
{
    std::set<int> different;
    for (const auto& [number, true_] : truth)
        different.insert(true_);
    return static_cast<int>(truth.size() - different.size());
}

bool joinsPeople(LinkKind kind)
{
    return kind == LinkKind::SamePerson || kind == LinkKind::MissingBirth || kind == LinkKind::MissingOrigin;
}

void addImplied(Tallied& tallied, const Link& link, const Snapshot& parish)
{
    const Family* one = parish.family(FamilyNumber(link.one.number));
    const Family* other = parish.family(FamilyNumber(link.other.number));
    if (!one || !other) return;
    for (const auto spouse : {&Family::husband, &Family::wife}) {
        const Person *a = one->*spouse, *b = other->*spouse;
        if (!a || !b || a == b || !tallied.truth.contains(value(a->number)) ||
            !tallied.truth.contains(value(b->number)))
            continue;
        tallied.implied.emplace_back(value(a->number), value(b->number));
        tallied.implying.push_back(&link);
    }
}

bool isOfOne(const std::map<qint64, int>& truth, qint64 one, qint64 other)
{
    const auto a = truth.find(one), b = truth.find(other);
    return a != truth.end() && b != truth.end() && a->second == b->second;
}

} // namespace

Key Key::read(const QByteArray& csv)
{
    Key key;
    const QList<QByteArray> lines = csv.split('\n');
    for (const QByteArray& line : lines) {
        const QList<QByteArray> fields = line.split(';');
        if (fields.size() < 6) continue;
        const qint64 number = fields[1].toLongLong();
        if (fields[0] == "pessoa") {
            key.person[number] = fields[2].toInt();
            key.origin[number] = fields[5].toInt();
        } else if (fields[0] == "familia")
            key.couple[number] = fields[2].toInt();
        else if (fields[0] == "errada")
            key.wronglyLinked.insert(number);
    }
    return key;
}

bool Key::isTrue(const Link& link) const
{
    if (link.kind == LinkKind::SameFamily) return isOfOne(couple, link.one.number, link.other.number);
    if (joinsPeople(link.kind)) return isOfOne(person, link.one.number, link.other.number);
    if (link.kind == LinkKind::Doubtful)
        return wronglyLinked.contains(link.one.isPerson() ? link.one.number : link.other.number);
    const bool personFirst = link.one.isPerson();
    const auto parents = origin.find(personFirst ? link.one.number : link.other.number);
    const auto known = couple.find(personFirst ? link.other.number : link.one.number);
    return parents != origin.end() && known != couple.end() && parents->second != 0 && parents->second == known->second;
}

Tallied families(const Key& key, const std::vector<Link>& links)
{
    Tallied tallied{.truth = key.couple, .links = {}, .implied = {}, .implying = {}};
    for (const Link& link : links)
        if (link.kind == LinkKind::SameFamily) tallied.links.push_back(&link);
    return tallied;
}

std::set<qint64> withMoreThanAName(const Snapshot& parish)
{
    std::set<qint64> all;
    for (const Person& person : parish.people())
        if (person.origin || person.birth.isKnown() || person.death.isKnown() || !person.unions.empty())
            all.insert(value(person.number));
    return all;
}

std::set<qint64> withMoreThanANameAndADay(const Snapshot& parish, const study::linkage::Question& question)
{
    std::set<qint64> all;
    for (const Person& person : parish.people())
        if (person.origin || person.birth.isKnown() || person.ageAtDeath || !person.unions.empty())
            all.insert(value(person.number));
    for (const auto& named : question.named)
        all.insert(value(named.child));
    for (const auto& named : question.spouses)
        all.insert(value(named.person));
    return all;
}

Tallied people(const Key& key, const std::vector<Link>& links, const Snapshot& parish,
               const std::optional<std::set<qint64>>& some)
{
    Tallied tallied;
    for (const Person& person : parish.people()) {
        const auto known = key.person.find(value(person.number));
        if (known != key.person.end() && (!some || some->contains(known->first))) tallied.truth.insert(*known);
    }
    for (const Link& link : links) {
        if (joinsPeople(link.kind) && tallied.truth.contains(link.one.number) &&
            tallied.truth.contains(link.other.number))
            tallied.links.push_back(&link);
        if (link.kind == LinkKind::SameFamily) addImplied(tallied, link, parish);
    }
    return tallied;
}

Score scored(const Tallied& tallied, const IsProposed& isProposed)
{
    Score score{.wanted = tooMany(tallied.truth)};
    Joined joined;
    std::set<std::pair<qint64, qint64>> seen;
    const auto count = [&](qint64 one, qint64 other) {
        if (!seen.insert(std::minmax(one, other)).second) return;
        ++score.proposed;
        if (!isOfOne(tallied.truth, one, other)) return;
        ++score.right;
        if (joined.join(one, other)) ++score.gained;
    };
    for (const Link* link : tallied.links)
        if (isProposed(*link)) count(link->one.number, link->other.number);
    for (std::size_t i = 0; i < tallied.implied.size(); ++i)
        if (isProposed(*tallied.implying[i])) count(tallied.implied[i].first, tallied.implied[i].second);
    return score;
}

double recallAmong(const Tallied& tallied, int best)
{
    std::map<int, int> records; // of each truth
    for (const auto& [number, true_] : tallied.truth)
        ++records[true_];
    std::map<qint64, std::map<qint64, double>> found; // a pair may come of itself, and with its couples
    const auto addFor = [&](qint64 number, qint64 candidate, double standing) {
        const auto known = found[number].try_emplace(candidate, standing).first;
        known->second = std::max(known->second, standing);
    };
    const auto add = [&](qint64 one, qint64 other, const Link& link) {
        addFor(one, other, link.standingFor(link.one));
        addFor(other, one, link.standingFor(link.other));
    };
    for (const Link* link : tallied.links)
        add(link->one.number, link->other.number, *link);
    for (std::size_t i = 0; i < tallied.implied.size(); ++i)
        add(tallied.implied[i].first, tallied.implied[i].second, *tallied.implying[i]);
    int doubled = 0, hit = 0;
    for (const auto& [number, true_] : tallied.truth) {
        if (records[true_] < 2) continue;
        ++doubled;
        std::vector<std::pair<double, bool>> candidates;
        for (const auto& [other, standing] : found[number])
            candidates.emplace_back(-standing, isOfOne(tallied.truth, number, other));
        std::ranges::sort(candidates);
        const std::size_t some = std::min(candidates.size(), static_cast<std::size_t>(best));
        hit += std::any_of(candidates.begin(), candidates.begin() + static_cast<std::ptrdiff_t>(some),
                           [](const auto& one) { return one.second; });
    }
    return doubled > 0 ? double(hit) / doubled : 1;
}

} // namespace bench
