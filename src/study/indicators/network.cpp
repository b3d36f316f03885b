#include "study/indicators/network.h"

#include "study/indicators/godparents.h"
#include "study/indicators/marriages.h"

#include <algorithm>
#include <map>

namespace study::indicators {

namespace {

using parish::Assistance;
using parish::Family;
using parish::Person;
using parish::PersonNumber;

// Which people hang together, whoever stands by whom.
class Components
{
public:
    explicit Components(std::size_t size) : next_(size)
    {
        for (std::size_t i = 0; i < size; ++i)
            next_[i] = i;
    }
    std::size_t root(std::size_t of)
    {
        while (next_[of] != of)
            of = next_[of] = next_[next_[of]];
        return of;
    }
    // The lower one stands for both.
    void join(std::size_t one, std::size_t other)
    {
        const std::size_t first = root(one), second = root(other);
        next_[std::max(first, second)] = std::min(first, second);
    }

private:
    std::vector<std::size_t> next_;
};

class Weaver
{
public:
    explicit Weaver(const Study& study) : study_(study) {}

    void takeBaptism(const Person& child)
    {
        if (!isCountedBaptism(child, study_)) return;
        for (const Assistance& act : child.godparents) {
            if (!act.godparent || !isPerson(act, known_)) continue;
            add(act, child, Tie::Godparent, child.birth, act.kinToChild);
            for (const Person* parent : {child.father(), child.mother()})
                if (parent) add(act, *parent, Tie::Compadre, child.birth, {});
        }
    }
    void takeMarriage(const Family& family)
    {
        if (marriageIs(family, study_) != MarriageIs::Counted) return;
        for (const Assistance& act : family.witnesses) {
            if (act.godparent || !isPerson(act, known_)) continue;
            if (family.husband) add(act, *family.husband, Tie::Witness, family.marriage, act.kinToGroom);
            if (family.wife) add(act, *family.wife, Tie::Witness, family.marriage, act.kinToBride);
        }
    }
    Network woven()
    {
        std::map<PersonNumber, std::size_t> placeOf;
        for (const auto& [number, person] : people_) {
            placeOf.emplace(number, network_.people.size());
            network_.people.push_back({number, person->name, person->gender});
        }
        Components components(network_.people.size());
        for (const NetworkEdge& edge : network_.edges) {
            const std::size_t from = placeOf.at(edge.from), to = placeOf.at(edge.to);
            ++network_.people[from].stoodBy;
            ++network_.people[to].wasStoodBy;
            components.join(from, to);
        }
        tellComponents(components);
        return std::move(network_);
    }

private:
    void add(const Assistance& act, const Person& to, Tie tie, const parish::Date& date, parish::Code kinship)
    {
        const Person& from = *act.assistant.person;
        if (&from == &to) return;
        const parish::Catalogue& catalogue = study_.parish.catalogue();
        const parish::Residence* home = homeOf(from, date.middle());
        network_.edges.push_back({from.number, to.number, tie, date, catalogue.description("Paren", kinship),
                                  catalogue.description("EstCi", act.state),
                                  home ? catalogue.name(home->place) : QString()});
        people_.emplace(from.number, &from);
        people_.emplace(to.number, &to);
    }
    void tellComponents(Components& components)
    {
        std::map<std::size_t, qint64> sizes;
        for (std::size_t i = 0; i < network_.people.size(); ++i)
            ++sizes[components.root(i)];
        std::vector<std::pair<qint64, std::size_t>> order;
        order.reserve(sizes.size());
        for (const auto& [root, size] : sizes)
            order.emplace_back(-size, root);
        std::sort(order.begin(), order.end());
        std::map<std::size_t, int> numbers;
        for (const auto& each : order)
            numbers.emplace(each.second, static_cast<int>(numbers.size()) + 1);
        for (std::size_t i = 0; i < network_.people.size(); ++i)
            network_.people[i].component = numbers.at(components.root(i));
        network_.components = static_cast<int>(numbers.size());
    }

    const Study& study_;
    GivenNames known_ = {};
    std::map<PersonNumber, const Person*> people_ = {};
    Network network_ = {};
};

} // namespace

Network networkOf(const Study& study, const std::function<bool()>& goesOn)
{
    static constexpr std::size_t betweenQuestions = 4096;
    std::size_t taken = 0;
    const auto ask = [&] {
        if (taken++ % betweenQuestions == 0 && goesOn && !goesOn()) throw parish::Snapshot::Interrupted{};
    };
    Weaver weaver(study);
    for (const Person& child : study.parish.people()) {
        ask();
        weaver.takeBaptism(child);
    }
    for (const Family& family : study.parish.families()) {
        ask();
        weaver.takeMarriage(family);
    }
    return weaver.woven();
}

} // namespace study::indicators
