// Episodes of marital fertility: a wife by her age, the children of the couple so far, and what became of the last one.
#include "study/exchange/episodes_p.h"
#include "study/indicators/confinements.h"
#include "study/indicators/deaths.h"
#include "study/indicators/marriedLife.h"
#include "study/indicators/natality.h"

#include <algorithm>

namespace study::exchange {

using indicators::Birth;
using indicators::DatedStretch;
using indicators::MarriedLife;
using indicators::Placed;
using indicators::Series;
using indicators::Settings;
using parish::Date;
using parish::Person;

namespace {

// What is born on one day, or is of one confinement; whether it counts or not, the next interval begins with it.
struct Confined
{
    Date day = {}; // of its first child
    std::vector<const Person*> children = {};
    int counted = 0; // births within

    bool isExact() const
    {
        return std::ranges::all_of(children, [](const Person* child) { return child->birth.isExact(); });
    }
};

bool belongs(const Birth& birth, const Confined& last)
{
    if (birth.day == last.day) return true;
    return birth.child->birth.isExact() && last.isExact() &&
           parish::daysBetween(last.day, birth.day) <= indicators::daysOfTwins;
}

std::vector<Confined> confinedOf(const MarriedLife& life)
{
    std::vector<Confined> all;
    for (const Birth& birth : life.births) {
        if (!birth.day.isKnown()) continue;
        if (all.empty() || !belongs(birth, all.back())) all.push_back({birth.day});
        all.back().children.push_back(birth.child);
        if (birth.placed == Placed::Within) ++all.back().counted;
    }
    return all;
}

// Days of one age and one calendar period, [from, until); on one day for a life without length.
struct Piece
{
    Date from = {}, until = {};
    int age = 0;
};

Date newYear(int year)
{
    return parish::dateOf(QDate(year, 1, 1), true);
}

std::vector<Piece> piecesOf(const MarriedLife& life, const Settings& settings)
{
    std::vector<Piece> pieces;
    const auto add = [&](const Piece& piece) {
        const bool goesOn = !pieces.empty() && pieces.back().until == piece.from && pieces.back().age == piece.age &&
                            periodOf(pieces.back().from.year(), settings) == periodOf(piece.from.year(), settings);
        if (goesOn)
            pieces.back().until = piece.until;
        else
            pieces.push_back(piece);
    };
    for (const DatedStretch& part : indicators::datedStretchesOf(life, settings)) {
        Piece piece{part.from, part.until, part.stretch.age};
        for (int year = part.from.year() + 1; year <= part.until.year(); ++year) {
            const Date begins = newYear(year);
            if (periodOf(year, settings) == periodOf(year - 1, settings) || begins.day >= part.until.day) continue;
            add({piece.from, begins, piece.age});
            piece.from = begins;
        }
        add(piece);
    }
    return pieces;
}

// What is known of the children that were born last.
struct Fate
{
    Date died = {};    // the last one of them
    Date unknown = {}; // from then on a death wouldn't be known, or its day isn't
};

bool diedUndated(const Person& child)
{
    return !child.death.isKnown() && (child.ageAtDeath || child.stateAtDeath || child.minor == true);
}

Fate fateOf(const Confined& last, const MarriedLife& life, const Settings& settings)
{
    Fate fate;
    bool haveAllDied = true;
    for (const Person* child : last.children) {
        if (diedUndated(*child)) fate.unknown = last.day;
        if (!child->death.isKnown())
            haveAllDied = false;
        else if (!fate.died.isKnown() || fate.died.day < indicators::natality::settled(child->death).day)
            fate.died = indicators::natality::settled(child->death);
    }
    if (!haveAllDied) fate.died = {};
    for (int year = last.day.year(); year <= life.until.year() && !fate.unknown.isKnown(); ++year) {
        const bool isInnocent = year - last.day.year() <= indicators::endOfInnocence;
        if (!settings.covers(isInnocent ? Series::ChildBurials : Series::Burials, year))
            fate.unknown = newYear(year).day < last.day.day ? last.day : newYear(year);
    }
    return fate;
}

class Wife
{
public:
    Wife(const MarriedLife& life, const EpisodeSource& source, EpisodeFile& file)
        : life_(life), settings_(source.study.settings), file_(file), confined_(confinedOf(life))
    {
    }

    void write()
    {
        const std::vector<Piece> pieces = piecesOf(life_, settings_);
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            const bool goesOn = i + 1 < pieces.size() && pieces[i + 1].from == pieces[i].until;
            passUntil(pieces[i].from);
            write(pieces[i], goesOn);
        }
        passUntil({});
    }

private:
    // The time at risk of one piece: what happens on its last day is of the next one, where that follows at once.
    void write(const Piece& piece, bool goesOn)
    {
        Moment at{piece.from};
        for (; next_ < confined_.size(); ++next_) {
            const Confined& next = confined_[next_];
            const bool isIn =
                next.day.day < piece.until.day || (next.day == piece.until && !goesOn && next.counted > 0);
            if (!isIn) break;
            writeSpells(at, next.day, piece, next.counted > 0 ? &next : nullptr);
            at = {next.day, next.counted > 0 && halfDaysBetween(at, {next.day}) <= 0};
            take(next);
        }
        writeSpells(at, piece.until, piece, nullptr);
    }

    // What was born outside of the time at risk; what counts of it has an episode that adds no time.
    void passUntil(const Date& day)
    {
        for (; next_ < confined_.size() && (!day.isKnown() || confined_[next_].day.day < day.day); ++next_) {
            const Confined& next = confined_[next_];
            if (next.counted > 0) {
                const int age = parish::completedYears(life_.wifeBirth, next.day);
                writeRow({{next.day}, {next.day, true}, true}, {next.day, next.day, indicators::natality::groupOf(age)},
                         &next, 0);
            }
            take(next);
        }
    }

    void take(const Confined& next)
    {
        if (next.day.day >= life_.marriage.day)
            interval_ = parish::daysBetween(begins_.isKnown() ? begins_ : life_.marriage, next.day);
        begins_ = next.day.day >= life_.marriage.day ? next.day : Date();
        parity_ += static_cast<int>(next.children.size());
        last_ = &next;
        fate_ = fateOf(next, life_, settings_);
    }

    void writeSpells(const Moment& from, const Date& until, const Piece& piece, const Confined* event)
    {
        std::vector<Date> cuts;
        for (const Date& cut : {fate_.died, fate_.unknown})
            if (cut.isKnown()) cuts.push_back(cut);
        if (!event && halfDaysBetween(from, {until}) <= 0) return;
        for (const Spell& spell : spellsOf(from, until, event != nullptr, cuts))
            writeRow(spell, piece, spell.event ? event : nullptr, spell.halfDays());
    }

    const char* fateAt(const Moment& at) const
    {
        if (!last_) return "none";
        const auto isBehind = [&at](const Date& day) { return day.isKnown() && halfDaysBetween({day}, at) >= 0; };
        if (isBehind(fate_.died) && !(fate_.unknown.isKnown() && fate_.unknown.day < fate_.died.day)) return "dead";
        return isBehind(fate_.unknown) ? "unknown" : "alive";
    }

    bool isAbout(const Confined* event) const
    {
        const observation::Union& of = *life_.of;
        const bool isEnded = !of.isClosed() || of.end.isExact();
        return !of.marriage.isExact() || !of.wifeBirth.isExact() || !isEnded || (event && !event->isExact()) ||
               (last_ && !last_->isExact());
    }

    void writeRow(const Spell& spell, const Piece& piece, const Confined* event, qint64 halfDays)
    {
        const parish::Family& family = *life_.of->family;
        const Date origin = begins_.isKnown() ? begins_ : life_.marriage;
        const Date since = origin.day > spell.from.day.day ? spell.from.day : origin; // twins around the marriage
        file_.person(family.wife);
        file_.family(&family);
        file_.days(++number_, spell);
        file_.raw(ageAt(life_.wifeBirth, spell.from));
        file_.raw(ageAt(life_.wifeBirth, spell.until));
        file_.raw(ageAt(since, spell.from));
        file_.raw(ageAt(since, spell.until));
        file_.flag(event != nullptr);
        file_.number(event ? event->counted : 0);
        file_.flag(event && event->day.day > life_.until.day);
        file_.raw(daysOf(halfDays));
        file_.number(piece.age);
        file_.number(parity_);
        file_.raw(fateAt(spell.from));
        file_.number(interval_);
        writeMarriage(spell, family);
        file_.flag(isAbout(event));
        file_.endRow();
    }

    void writeMarriage(const Spell& spell, const parish::Family& family)
    {
        file_.dateAndYear(life_.marriage);
        file_.raw(ageAt(life_.wifeBirth, {life_.marriage}));
        file_.number(periodOf(life_.marriage.year(), settings_));
        file_.number(periodOf(spell.from.day.year(), settings_));
        file_.flag(indicators::natality::isFirstMarriage(family.wife, family));
        file_.text(observation::className(*life_.of));
        file_.raw(word::of(life_.of->wifeBirthBy));
    }

    const MarriedLife& life_;
    const Settings& settings_;
    EpisodeFile& file_;
    std::vector<Confined> confined_;
    std::size_t next_ = 0;           // of them
    const Confined* last_ = nullptr; // none before the first one
    Fate fate_ = {};
    Date begins_ = {};                    // the interval: with a birth in the marriage
    std::optional<qint64> interval_ = {}; // days of the one before
    int parity_ = 0, number_ = 0;
};

} // namespace

void writeFertility(const observation::Union& of, const EpisodeSource& source, EpisodeFile& file)
{
    if (source.withheld.hidesAny(*of.family)) return;
    const MarriedLife life = indicators::marriedLifeOf(of, source.study);
    if (!life.isCounted()) return file.leaveOut(indicators::lacksTold[static_cast<std::size_t>(life.lack) - 1]);
    Wife(life, source, file).write();
}

} // namespace study::exchange
