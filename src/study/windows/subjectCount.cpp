#include "study/windows/subjectCount.h"

#include <algorithm>

namespace study {

namespace {

using indicators::Tally;

constexpr std::size_t mostPieces = 20, recordsOfAPiece = 5000; // so many at the most, and so few at least

class Asking final : public indicators::Taker
{
public:
    explicit Asking(const std::function<bool(double)>& goesOn) : goesOn_(goesOn) {}

    void count(const indicators::Key& key, const indicators::Who&, qint64 amount) override
    {
        tally.add(key, amount);
        if (++counts_ % countsBetweenQuestions == 0) ask();
    }
    void ask() const
    {
        if (!goesOn_(done)) throw parish::Snapshot::Interrupted{};
    }

    Tally tally = {};
    double done = 0;

private:
    const std::function<bool(double)>& goesOn_;
    unsigned counts_ = 0;
};

} // namespace

std::vector<indicators::Share> piecesOf(const parish::Snapshot& parish)
{
    const std::size_t people = parish.people().size(), families = parish.families().size();
    const std::size_t all = std::clamp<std::size_t>((people + families) / recordsOfAPiece, 1, mostPieces);
    std::vector<indicators::Share> shares;
    for (std::size_t turn = 0; turn < all; ++turn)
        shares.push_back(
            {people * turn / all, people * (turn + 1) / all, families * turn / all, families * (turn + 1) / all});
    return shares;
}

Tally countedInPieces(const indicators::Subject& subject, const indicators::Study& study,
                      const std::function<bool(double done)>& goesOn)
{
    const std::vector<indicators::Share> shares = piecesOf(study.parish);
    Asking asking(goesOn);
    for (std::size_t turn = 0; turn < shares.size(); ++turn) {
        asking.done = static_cast<double>(turn) / static_cast<double>(shares.size());
        asking.ask();
        subject.fill(study, shares[turn], asking);
    }
    return std::move(asking.tally);
}

} // namespace study
