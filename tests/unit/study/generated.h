// Parishes made by a chance that can be repeated, as a study counts them.
#pragma once

#include "data/datafolder.h"
#include "study/indicators/subject.h"
#include "study/parish/snapshot.h"
#include "truth/truth.h"

#include <algorithm>

namespace generated {

// The records of both, those of the other one behind, with numbers of their own.
inline truth::Bdp together(truth::Bdp one, truth::Bdp other)
{
    const auto people = static_cast<int>(one.people.size()) - 1, families = static_cast<int>(one.families.size()) - 1;
    const auto person = [people](truth::Number& number) { number += number == 0 ? 0 : people; };
    const auto family = [families](truth::Number& number) { number += number == 0 ? 0 : families; };
    for (truth::Card& card : other.people) {
        person(card.number), person(card.baptisedBy), person(card.buriedBy);
        family(card.origin);
        std::for_each(card.unions.begin(), card.unions.end(), family);
        if (card.number != 0) one.people.push_back(card);
    }
    for (truth::FamilyCard& card : other.families) {
        family(card.number);
        person(card.husband), person(card.wife), person(card.priest);
        std::for_each(card.baptized.begin(), card.baptized.end(), person);
        if (card.number != 0) one.families.push_back(card);
    }
    for (truth::AssistantCard& card : other.assistants) {
        card.atBaptism ? person(card.entity) : family(card.entity);
        person(card.person);
        one.assistants.push_back(card);
    }
    for (truth::ResidenceCard& card : other.residences) {
        person(card.person), family(card.family);
        one.residences.push_back(card);
    }
    for (truth::TradeCard& card : other.trades) {
        person(card.person);
        one.trades.push_back(card);
    }
    return one;
}

inline study::parish::Snapshot snapshotOf(const truth::Bdp& bdp, const truth::World& world)
{
    datafolder::MadeBdp made;
    truth::write(bdp, world, made.connection);
    return study::parish::Snapshot::read(made.connection);
}

// Of the people and families from the first to the last of the share.
inline study::statistics::Tally tallyOfShare(const study::indicators::Subject& subject,
                                             const study::indicators::Study& study,
                                             const study::indicators::Share& share)
{
    class Adding final : public study::indicators::Taker
    {
    public:
        void count(const study::statistics::Key& key, const study::indicators::Who&, qint64 amount) override
        {
            tally.add(key, amount);
        }
        study::statistics::Tally tally = {};
    } adding;
    subject.fill(study, share, adding);
    return adding.tally;
}

} // namespace generated
