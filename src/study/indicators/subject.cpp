#include "study/indicators/subject.h"

#include <algorithm>
#include <future>
#include <unordered_set>

namespace study::indicators {

namespace {

class Adding final : public Taker
{
public:
    void count(const Key& key, const Who&, qint64 amount) override { tally.add(key, amount); }

    Tally tally = {};
};

// Hears who stands behind some keys. One with Tally::any stands for every value of that dimension.
class Listening final : public Taker
{
public:
    Listening(const std::vector<Key>& cells, const parish::Snapshot::GoesOn& goesOn) : goesOn_(goesOn)
    {
        for (const Key& cell : cells) {
            if (std::ranges::find(cell.at, Tally::any) == cell.at.end())
                single_.insert(cell);
            else
                wide_.push_back(cell);
        }
    }

    void count(const Key& key, const Who& who, qint64 amount) override
    {
        static constexpr unsigned betweenQuestions = 4096;
        if (++counts_ % betweenQuestions == 0) ask();
        if (amount != 0 && isAsked(key)) heard.push_back(who);
    }
    void ask() const
    {
        if (goesOn_ && !goesOn_(0)) throw parish::Snapshot::Interrupted{};
    }

    std::vector<Who> heard = {};

private:
    static bool isWithin(const Key& key, const Key& wide)
    {
        if (key.count != wide.count) return false;
        for (std::size_t i = 0; i < key.at.size(); ++i)
            if (wide.at[i] != Tally::any && wide.at[i] != key.at[i]) return false;
        return true;
    }
    bool isAsked(const Key& key) const
    {
        return single_.contains(key) ||
               std::ranges::any_of(wide_, [&](const Key& wide) { return isWithin(key, wide); });
    }

    const parish::Snapshot::GoesOn& goesOn_;
    unsigned counts_ = 0;
    std::unordered_set<Key, statistics::KeyHash> single_ = {};
    std::vector<Key> wide_ = {};
};

std::pair<qint64, qint64> numbersOf(const Who& who)
{
    return {who.person ? value(who.person->number) : 0, who.family ? value(who.family->number) : 0};
}

// The part of the whole that comes in its turn, of so many.
Share shareOf(const parish::Snapshot& parish, std::size_t turn, std::size_t all)
{
    const std::size_t people = parish.people().size();
    const std::size_t families = parish.families().size();
    return {people * turn / all, people * (turn + 1) / all, families * turn / all, families * (turn + 1) / all};
}

} // namespace

const observation::Union& Study::unionOf(const parish::Family& family) const
{
    return unions[static_cast<std::size_t>(&family - parish.families().data())];
}

const observation::Presence& Study::presenceOf(const parish::Person& person) const
{
    return presences[static_cast<std::size_t>(&person - parish.people().data())];
}

Study studyOf(const parish::Snapshot& parish, const Settings& settings, const parish::Snapshot::GoesOn& goesOn)
{
    auto unions = observation::unionsOf(parish, settings.unions);
    auto presences = observation::presencesOf(parish, unions, goesOn);
    return {parish, settings, std::move(unions), std::move(presences)};
}

Tally tallyOf(const Subject& subject, const Study& study, int threads)
{
    const auto shares = static_cast<std::size_t>(std::max(1, threads));
    const auto counted = [&](std::size_t turn) {
        Adding adding;
        subject.fill(study, shareOf(study.parish, turn, shares), adding);
        return std::move(adding.tally);
    };
    std::vector<std::future<Tally>> others;
    for (std::size_t turn = 1; turn < shares; ++turn)
        others.push_back(std::async(std::launch::async, counted, turn));
    Tally tally = counted(0);
    for (std::future<Tally>& other : others)
        tally += other.get();
    return tally;
}

std::vector<Who> behind(const Subject& subject, const Study& study, const std::vector<Key>& cells,
                        const parish::Snapshot::GoesOn& goesOn)
{
    // A subject may look at many records before it tells the first count.
    static constexpr std::size_t mostPieces = 20, recordsOfAPiece = 5000;
    const std::size_t records = study.parish.people().size() + study.parish.families().size();
    const std::size_t pieces = std::clamp<std::size_t>(records / recordsOfAPiece, 1, mostPieces);
    Listening listening(cells, goesOn);
    for (std::size_t turn = 0; turn < pieces; ++turn) {
        listening.ask();
        subject.fill(study, shareOf(study.parish, turn, pieces), listening);
    }
    std::vector<Who> all = std::move(listening.heard);
    std::ranges::sort(all, {}, numbersOf);
    const auto isSame = [](const Who& one, const Who& other) { return numbersOf(one) == numbersOf(other); };
    all.erase(std::unique(all.begin(), all.end(), isSame), all.end());
    return all;
}

} // namespace study::indicators
