#include "study/linkage/scores.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <exception>
#include <map>
#include <mutex>
#include <thread>
#include <tuple>
#include <utility>

namespace study::linkage {

namespace {
constexpr double prior = 10;     // bits at which two records are as likely one as two,
constexpr double alongFrom = 12; // and from which they are taken for one
constexpr double alike = 4;      // from which two aren't set against each other

bool byIndexes(const Score& a, const Score& b)
{
    return std::tie(a.one, a.other) < std::tie(b.one, b.other);
}

void sortOut(std::vector<Score>& scores)
{
    std::ranges::sort(scores, byIndexes);
    const auto same = [](const Score& a, const Score& b) { return a.one == b.one && a.other == b.other; };
    scores.erase(std::unique(scores.begin(), scores.end(), same), scores.end());
}

// What the threads share.
struct Work
{
    std::atomic<size_t> next = 0; // block that nobody has taken yet
    std::atomic<bool> stopped = false;
    std::atomic<int> running = 0;
    std::mutex failing;
    std::exception_ptr failure = {}; // the first one of any thread
};

} // namespace

template <class Record>
std::vector<Score> Scorer::run(const std::vector<Block>& blocks, const std::vector<Record>& records,
                               const std::vector<bool>& touched, const parish::Snapshot::GoesOn& goesOn) const
{
    Work work;
    const auto threads = size_t(std::max(1, threads_));
    std::vector<std::vector<Score>> found(threads);
    const auto compareBlock = [&](const Block& block, Comparison& comparison, std::vector<Score>& to) {
        for (size_t i = 0; i < block.members.size(); ++i)
            for (size_t j = i + 1; j < std::min(block.members.size(), i + 1 + block.reach); ++j) {
                const auto [one, other] = std::minmax(block.members[i], block.members[j]);
                if (!touched.empty() && !touched[one] && !touched[other]) continue;
                comparison.clear();
                comparer_.compare(records[one], records[other], comparison);
                if (!comparison.vetoed && comparison.bits >= least_) to.push_back({one, other, comparison.bits});
            }
    };
    const auto goThrough = [&](std::vector<Score>& to) {
        static constexpr size_t tidyAt = 1'000'000; // the same pair comes by several keys
        Comparison comparison;
        size_t tidied = 0;
        for (size_t block = work.next++; block < blocks.size() && !work.stopped; block = work.next++) {
            compareBlock(blocks[block], comparison, to);
            if (to.size() < tidied + tidyAt) continue;
            sortOut(to);
            tidied = to.size();
        }
        sortOut(to);
    };
    const auto goThroughOrFail = [&](std::vector<Score>& to) {
        try {
            goThrough(to);
        } catch (...) { // too little memory: whoever asks is told
            const std::scoped_lock lock(work.failing);
            if (!work.failure) work.failure = std::current_exception();
            work.stopped = true;
        }
        --work.running;
    };
    work.running = int(threads);
    {
        std::vector<std::jthread> helpers;
        helpers.reserve(threads);
        for (std::vector<Score>& to : found)
            helpers.emplace_back([&goThroughOrFail, &to] { goThroughOrFail(to); });
        while (work.running > 0) {
            const double done = double(std::min(work.next.load(), blocks.size())) / double(blocks.size() + 1);
            if (goesOn && !work.stopped && !goesOn(done)) work.stopped = true;
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    }
    if (work.failure) std::rethrow_exception(work.failure);
    if (work.stopped) throw parish::Snapshot::Interrupted{};
    std::vector<Score> all = std::move(found.front());
    for (size_t i = 1; i < found.size(); ++i)
        all.insert(all.end(), found[i].begin(), found[i].end());
    sortOut(all);
    return all;
}

std::vector<Score> Scorer::people(const std::vector<bool>& touched, const parish::Snapshot::GoesOn& goesOn) const
{
    return run(blocksOfPeople(faces_), faces_.people(), touched, goesOn);
}

std::vector<Score> Scorer::couples(const std::vector<bool>& touched, const parish::Snapshot::GoesOn& goesOn) const
{
    return run(blocksOfCouples(faces_), faces_.couples(), touched, goesOn);
}

// Of each record the numbers of its scores, the strongest first.
static std::vector<std::vector<uint32_t>> scoresOf(const std::vector<Score>& scores, size_t records)
{
    std::vector<std::vector<uint32_t>> of(records);
    for (size_t i = 0; i < scores.size(); ++i) {
        of[scores[i].one].push_back(uint32_t(i));
        of[scores[i].other].push_back(uint32_t(i));
    }
    for (std::vector<uint32_t>& mine : of)
        std::ranges::stable_sort(mine, [&](uint32_t a, uint32_t b) { return scores[a].bits > scores[b].bits; });
    return of;
}

Rivals::Rivals(const std::vector<Score>& scores, size_t records, Compare compare)
    : scores_(scores), compare_(std::move(compare)), of_(scoresOf(scores, records))
{
}

std::optional<double> Rivals::bitsOf(uint32_t one, uint32_t other) const
{
    const auto [less, more] = std::minmax(one, other);
    const auto known = std::ranges::lower_bound(scores_, Score{.one = less, .other = more}, byIndexes);
    if (known != scores_.end() && known->one == less && known->other == more) return known->bits;
    return compare_(less, more);
}

// Whether the partner of a pair of these bits is the third one, too.
bool Rivals::goesAlong(uint32_t third, uint32_t partner, double bits) const
{
    const std::optional<double> both = bitsOf(third, partner);
    return both && (*both >= alike || *both + bits >= alongFrom);
}

// What the third has above the prior with somebody else than these two.
double Rivals::elsewhere(uint32_t third, uint32_t mine, uint32_t partner) const
{
    for (const uint32_t number : of_[third]) {
        const Score& score = scores_[number];
        if (score.bits <= prior) break;
        const uint32_t place = score.one == third ? score.other : score.one;
        if (place != mine && place != partner && !goesAlong(place, mine, score.bits)) return score.bits - prior;
    }
    return 0;
}

void Rivals::look(const Score& score, bool ofOne, std::optional<Rival>& best) const
{
    const uint32_t mine = ofOne ? score.one : score.other, partner = ofOne ? score.other : score.one;
    for (const uint32_t number : of_[mine]) {
        const Score& rival = scores_[number];
        if (best && rival.bits <= best->bits) return;
        const uint32_t third = rival.one == mine ? rival.other : rival.one;
        if (third == partner || goesAlong(third, partner, score.bits)) continue;
        const double bits = rival.bits - elsewhere(third, mine, partner);
        if (!best || bits > best->bits) best = Rival{.record = third, .ofOne = ofOne, .bits = bits};
    }
}

std::optional<Rivals::Rival> Rivals::of(const Score& score) const
{
    std::optional<Rival> best;
    look(score, true, best);
    look(score, false, best);
    return best;
}

double Rivals::taken(const Score& score, uint32_t record) const
{
    static constexpr size_t places = 32;
    const uint32_t other = score.one == record ? score.other : score.one;
    const std::vector<uint32_t>& numbers = of_[other];
    double most = score.bits;
    for (size_t i = 0; i < std::min(places, numbers.size()); ++i) {
        const Score& place = scores_[numbers[i]];
        if (place.bits <= most) break;
        const uint32_t third = place.one == other ? place.other : place.one;
        if (!goesAlong(third, record, score.bits)) most = std::max(most, place.bits - elsewhere(third, other, record));
    }
    return most - score.bits;
}

// The strongest come first: once so many stand better than the bits of the next one, that one can't, as nothing adds to
// them.
void Rivals::markBestOf(uint32_t record, size_t most, const KindOf& kindOf, std::vector<bool>& marked) const
{
    using Standing = std::pair<double, uint32_t>; // with the number of the score
    std::map<int, std::vector<Standing>> best;    // of each kind, the best first
    for (const uint32_t number : of_[record]) {
        const Score& score = scores_[number];
        std::vector<Standing>& ofKind = best[kindOf(score)];
        if (ofKind.size() >= most && (most == 0 || score.bits <= ofKind.back().first)) continue;
        const double standing = score.bits - taken(score, record);
        const auto behind = std::ranges::find_if(ofKind, [&](const Standing& one) { return one.first < standing; });
        ofKind.emplace(behind, standing, number);
        if (ofKind.size() > most) ofKind.pop_back();
    }
    for (const auto& ofKind : best)
        for (const Standing& standing : ofKind.second)
            marked[standing.second] = true;
}

std::vector<Score> Rivals::bestOfEach(int each, const KindOf& kindOf, const std::function<void()>& ask) const
{
    std::vector<bool> marked(scores_.size());
    for (uint32_t record = 0; record < of_.size(); ++record) {
        ask();
        markBestOf(record, size_t(std::max(0, each)), kindOf, marked);
    }
    std::vector<Score> best;
    for (size_t i = 0; i < scores_.size(); ++i)
        if (marked[i]) best.push_back(scores_[i]);
    return best;
}

} // namespace study::linkage
