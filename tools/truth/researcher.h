// Somebody who enters the acts of a parish, in a hurry: who is there already is found the more surely the clearer the
// act tells who it is; otherwise made anew. So people and couples are doubled and links are missing; a few are wrong.
#pragma once

#include "bdp.h"

#include <map>
#include <set>
#include <tuple>

namespace truth {

class Researcher
{
public:
    Researcher(const World& world, const Rates& rates, std::uint32_t seed) : world_(world), rates_(rates), random_(seed)
    {
    }

    Bdp enter(const std::vector<Act>& acts);

private:
    void enter(const Act& act);
    void baptism(const Act& act);
    void marriage(const Act& act);
    void burial(const Act& act);
    Number buriedOf(const Act& act); // on whose card the burial came
    Number childOf(const Act& act);
    void godparents(const Act& act, Number child);
    void witnesses(const Act& act, Number family);
    Number priest(const Act& act); // 0: not told

    // researcher_links.cpp: whoever the act means, or 0 where they weren't found.
    Number found(const Mention& mention, double chance);
    Number foundCouple(const Parents& parents, double chance);
    Number namesake(const Mention& mention);
    double clarity(const Mention& mention, const Card& card) const;
    double rarity(const Name& name) const;
    Number childToBury(const Act& act, Number family);

    // researcher_cards.cpp: what is made anew, and what is added.
    Number newCard(const Mention& mention);
    Number newFamily(CoupleId which, Number husband, Number wife);
    Number familyFor(const Parents& parents, double chance);  // found, else made of people found or anew
    void tellOrigin(Number person, const Parents& parents);   // on a card without one
    Number spouseCard(const Mention& mention, double chance); // found or made
    void rename(Number person, const Mention& mention);       // a fuller name is taken over
    void see(Number person, const Mention& mention);
    void seeFamily(Number family, int locality);
    void reside(Number person, Number family, int locality); // one row a day
    void tellTrade(Number person, const Mention& mention);
    void bury(Number person, const Act& act);

    Card& card(Number number) { return bdp_.person(number); }
    static QString nameKey(const Name& name);
    bool isAlive(const Card& card) const;

    const World& world_;
    const Rates& rates_;
    demo::Random random_;
    Bdp bdp_;
    QDate day_;            // of the act in hand
    double attention_ = 1; // of the day's work
    Number lastPriest_ = 0;
    std::map<PersonId, std::vector<Number>> cardsOf_;
    std::map<CoupleId, std::vector<Number>> familiesOf_;
    std::map<QString, std::vector<Number>> byName_; // first name and last surname
    std::set<std::tuple<Number, Number, QDate>> resided_;
};

} // namespace truth
