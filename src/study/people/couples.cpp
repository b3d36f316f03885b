#include "study/people/couples.h"

#include <algorithm>
#include <functional>

namespace study {

NamesAgree agreementOf(const CodedName& told, const CodedName& known)
{
    if (told.empty() || known.empty()) return NamesAgree::Partly;
    if (!shareClass(told.front(), known.front())) return NamesAgree::No;
    const CodedName& shorter = told.size() <= known.size() ? told : known;
    const CodedName& longer = told.size() <= known.size() ? known : told;
    size_t agreeing = 0, devout = 0;
    for (size_t i = 1; i < shorter.size(); ++i) {
        const bool agrees = std::any_of(longer.begin() + 1, longer.end(),
                                        [&](const CodedWord& word) { return shareClass(shorter[i], word); });
        agreeing += agrees ? 1 : 0;
        devout += agrees && shorter[i].devotional ? 1 : 0;
    }
    if (shorter.size() == 1) return NamesAgree::Alone;
    if (agreeing == 0) return NamesAgree::No;
    if (agreeing + 1 < shorter.size()) return NamesAgree::Partly;
    return devout == agreeing ? NamesAgree::Devout : NamesAgree::Yes;
}

// Of somebody known, the row alone.
Gathered CoupleSearch::rowsFor(const Sought& sought, qint64 known)
{
    if (known <= 0) return Gatherer(index_).gather(sought);
    const Person* person = kin_.person(known);
    return {.rows = person ? std::vector<qint64>{person->is.row} : std::vector<qint64>{}, .all = true};
}

// Who has been decided on is that one, whatever the name; of whom no name is told, it may be anybody.
bool CoupleSearch::agrees(const Sought& sought, qint64 known, qint64 nind, double& bits)
{
    if (known > 0) return nind == known;
    const Person* person = nind == 0 ? nullptr : kin_.person(nind);
    if (!person || sought.name.empty() || person->name.empty()) return true;
    bits += judge_.nameBits(sought.name, person->name, sought.sex);
    return judge_.firstNamesAgree(sought.name, person->name);
}

void CoupleSearch::look(const Person& one, bool isHusband, const Sought& husband, const Sought& wife)
{
    for (const qint64 number : kin_.familiesOf(one)) {
        const Family* family = kin_.family(number);
        if (!family || (isHusband ? family->husband : family->wife) != one.is.nind) continue;
        if (!seen_.insert(number).second) continue;
        CoupleFound couple{.family = number, .husband = family->husband, .wife = family->wife};
        if (agrees(husband, husbandIs_, couple.husband, couple.bits) && agrees(wife, wifeIs_, couple.wife, couple.bits))
            found_.push_back(couple);
    }
}

std::vector<CoupleFound> CoupleSearch::couplesOf(const Sought& husband, qint64 husbandIs, const Sought& wife,
                                                 qint64 wifeIs)
{
    found_.clear();
    seen_.clear();
    husbandIs_ = husbandIs;
    wifeIs_ = wifeIs;
    all_ = true;
    const bool manTold = husbandIs > 0 || !husband.name.empty(), womanTold = wifeIs > 0 || !wife.name.empty();
    if (!manTold && !womanTold) return {};
    const Gathered men = manTold && (husbandIs > 0 || wifeIs == 0) ? rowsFor(husband, husbandIs) : Gathered{};
    const Gathered women = womanTold && husbandIs == 0 ? rowsFor(wife, wifeIs) : Gathered{};
    const bool fewerMen = men.all == women.all ? men.rows.size() <= women.rows.size() : men.all;
    const bool byMen = husbandIs > 0 || (wifeIs == 0 && manTold && (!womanTold || fewerMen));
    all_ = byMen ? men.all : women.all;
    for (const qint64 row : byMen ? men.rows : women.rows)
        if (const Person* person = kin_.personAt(row)) look(*person, byMen, husband, wife);
    std::ranges::stable_sort(found_, std::greater(), &CoupleFound::bits);
    return std::move(found_);
}

} // namespace study
