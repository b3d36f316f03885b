#include "linkage/classes.h"

#include "study/linkage/blocks.h"

#include <QStringList>

#include <algorithm>

namespace bench {

namespace {

using study::linkage::Block;
using study::linkage::Faces;
using study::linkage::Link;
using study::parish::Person;
using study::parish::Snapshot;
using Pairs = std::set<std::pair<qint64, qint64>>;

QString sortOf(const Person& person)
{
    QStringList told;
    if (person.birth.isKnown()) told << (person.birth.isExact() ? "birth" : "about birth");
    if (person.origin) told << "origin";
    if (!person.unions.empty()) told << "union";
    if (person.death.isKnown()) told << "death";
    if (!person.assisted.empty()) told << "assists";
    return told.join(", ");
}

bool isOfOne(const Tallied& people, qint64 one, qint64 other)
{
    const auto a = people.truth.find(one), b = people.truth.find(other);
    return a != people.truth.end() && b != people.truth.end() && a->second == b->second;
}

// The right pairs that stand together in a block.
Pairs togetherInBlocks(const Tallied& people, const Snapshot& parish, const study::linkage::Question& question)
{
    const Faces faces(parish, question.named, question.spouses);
    Pairs all;
    const auto add = [&](const Person* a, const Person* b) {
        if (a && b && a != b && isOfOne(people, value(a->number), value(b->number)))
            all.insert(std::minmax(value(a->number), value(b->number)));
    };
    const auto forEachPair = [](const std::vector<Block>& blocks, const auto& found) {
        for (const Block& block : blocks)
            for (std::size_t i = 0; i < block.members.size(); ++i)
                for (std::size_t j = i + 1; j < std::min(block.members.size(), i + 1 + block.reach); ++j)
                    found(block.members[i], block.members[j]);
    };
    forEachPair(blocksOfPeople(faces), [&](std::uint32_t one, std::uint32_t other) {
        add(faces.people()[one].person, faces.people()[other].person);
    });
    forEachPair(blocksOfCouples(faces), [&](std::uint32_t one, std::uint32_t other) {
        add(faces.couples()[one].family->husband, faces.couples()[other].family->husband);
        add(faces.couples()[one].family->wife, faces.couples()[other].family->wife);
    });
    return all;
}

struct Best
{
    double right = -1, wrong = -1;
    bool suggested = false;
};

std::map<qint64, Best> bestOf(const Tallied& people, const study::linkage::Model& model)
{
    std::map<qint64, Best> all;
    const auto add = [&](qint64 one, qint64 other, const Link& link) {
        const bool isRight = isOfOne(people, one, other);
        for (const qint64 number : {one, other}) {
            Best& best = all[number];
            double& bits = isRight ? best.right : best.wrong;
            bits = std::max(bits, link.bits);
            best.suggested = best.suggested || (isRight && link.isSuggested(model));
        }
    };
    for (const Link* link : people.links)
        add(link->one.number, link->other.number, *link);
    for (std::size_t i = 0; i < people.implied.size(); ++i)
        add(people.implied[i].first, people.implied[i].second, *people.implying[i]);
    return all;
}

} // namespace

Reached& Reached::operator+=(const Reached& other)
{
    records += other.records;
    together += other.together;
    listed += other.listed;
    best += other.best;
    suggested += other.suggested;
    return *this;
}

std::map<QString, Reached> reachedBySort(const Tallied& people, const Snapshot& parish,
                                         const study::linkage::Model& model, const study::linkage::Question& question)
{
    std::map<int, int> records;
    for (const auto& [number, truth] : people.truth)
        ++records[truth];
    std::set<qint64> together;
    for (const auto& [one, other] : togetherInBlocks(people, parish, question)) {
        together.insert(one);
        together.insert(other);
    }
    std::map<QString, Reached> all;
    const std::map<qint64, Best> found = bestOf(people, model);
    for (const auto& [number, truth] : people.truth) {
        if (records[truth] < 2) continue;
        const auto best = found.find(number);
        const Best of = best != found.end() ? best->second : Best();
        all[sortOf(*parish.person(study::parish::PersonNumber(number)))] +=
            Reached{.records = 1,
                    .together = together.contains(number) ? 1 : 0,
                    .listed = of.right >= 0 ? 1 : 0,
                    .best = of.right >= 0 && of.right >= of.wrong ? 1 : 0,
                    .suggested = of.suggested ? 1 : 0};
    }
    return all;
}

} // namespace bench
