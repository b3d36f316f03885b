// Families: people who descend from themselves.
#include "study/checks/check.h"
#include "study/checks/parts.h"
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <algorithm>

namespace study::checks {

using parish::Membership;
using parish::Person;

namespace {

// Follows the lines up from everybody, each person once. A line that comes back to one of its own people closes a
// cycle, which is told, and that way isn't gone again. All cycles together are followed over a few times as many people
// as there are: in a knot of cycles the others are told when those are mended.
class Lines
{
public:
    explicit Lines(Check& check)
        : check_(check), states_(check.parish().people().size()), places_(check.parish().people().size()),
          left_(timesAll * check.parish().people().size())
    {
    }

    void follow()
    {
        for (const Person& person : check_.parish().people())
            if (states_[placeOf(person)] == State::New) climb(person);
    }

private:
    enum class State : quint8
    {
        New,
        OnTheLine,
        Done
    };
    static constexpr size_t timesAll = 4;

    struct Step
    {
        const Person* person;
        size_t nextParent = 0;
    };

    size_t placeOf(const Person& person) const { return size_t(&person - check_.parish().people().data()); }

    void enter(const Person& person)
    {
        check_.step();
        states_[placeOf(person)] = State::OnTheLine;
        places_[placeOf(person)] = line_.size();
        line_.push_back({&person});
    }

    void climb(const Person& start)
    {
        enter(start);
        while (!line_.empty()) {
            Step& step = line_.back();
            const auto parents = step.person->origin ? step.person->origin->members : std::span<const Membership>();
            if (step.nextParent == parents.size()) {
                states_[placeOf(*step.person)] = State::Done;
                line_.pop_back();
                continue;
            }
            const Person* const parent = parents[step.nextParent++].member.person;
            if (!parent || parent == step.person) continue; // spouse and child of one family: another rule
            if (states_[placeOf(*parent)] == State::New)
                enter(*parent);
            else if (states_[placeOf(*parent)] == State::OnTheLine)
                tell(*parent);
        }
    }

    void tell(const Person& again)
    {
        static constexpr size_t mostShown = 50;
        const size_t from = places_[placeOf(again)], length = line_.size() - from;
        if (length > left_) return;
        left_ -= length;
        std::vector<const Person*> people;
        people.reserve(length);
        for (size_t at = from; at < line_.size(); ++at)
            people.push_back(line_[at].person);
        std::rotate(people.begin(), std::ranges::min_element(people, {}, &Person::number), people.end());
        const Person& first = *people.front();
        const QString text = QString("%1 é %2: descende de si %3.")
                                 .arg(named(first), waysUp(people), wordFor(first, "próprio", "própria"));
        if (people.size() > mostShown) people.resize(mostShown);
        check_.report({.text = text, .people = people});
    }

    // "filha de Rui (nº 2), filho de Ana (nº 1)".
    static QString waysUp(const std::vector<const Person*>& people)
    {
        static constexpr size_t mostNamed = 12;
        QStringList steps;
        for (size_t at = 0; at < people.size(); ++at) {
            if (at == mostNamed && people.size() > mostNamed + 1) steps << "e assim por diante";
            if (at >= mostNamed && at + 1 < people.size()) continue;
            const Person &child = *people[at], &parent = *people[(at + 1) % people.size()];
            steps << wordFor(child, "filho ", "filha ") + of(parent);
        }
        return steps.join(", ");
    }

    Check& check_;
    std::vector<State> states_;
    std::vector<size_t> places_; // on the line, of those who stand there
    std::vector<Step> line_;
    size_t left_; // people over whom cycles are still followed
};

void haveCycles(const parish::Snapshot&, Check& check)
{
    Lines(check).follow();
}

} // namespace

std::vector<Rule> familyCycleRules()
{
    return {
        {"F-05",
         Severity::Impossible,
         "Antepassado de si próprio",
         haveCycles,
         {},
         "Um filho e um avô com o mesmo nome."},
    };
}

} // namespace study::checks
