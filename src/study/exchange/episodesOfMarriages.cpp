// Episodes of the single until they marry, and of the widowed until they marry again.
#include "study/exchange/episodes_p.h"
#include "study/indicators/marriages.h"
#include "study/indicators/natality.h"
#include "study/indicators/scope.h"
#include "study/indicators/widowhood.h"
#include "study/parish/codes.h"

#include <algorithm>

namespace study::exchange {

using indicators::Series;
using indicators::Settings;
using indicators::Study;
using parish::Date;
using parish::Family;
using parish::Membership;
using parish::Person;

namespace {

constexpr int ageOfMarriage = 12, endOfSingleLife = 50;

// The first union with a marriage; the undated ones stand first.
struct FirstMarriage
{
    const Family* family = nullptr;
    bool isSure = true; // dated, and told as no later one
};

FirstMarriage firstMarriageOf(const Person& person)
{
    for (const Membership* row : person.unions) {
        if (!row->family || !indicators::isMarriage(*row->family)) continue;
        const bool isFirst = indicators::rankOf({&person, row}, *row->family) == indicators::Rank::First;
        return {row->family, isFirst && row->family->marriage.isKnown()};
    }
    return {};
}

// By the act of the death, without any marriage that is told.
bool diedMarried(const Person& person)
{
    using namespace parish::civil;
    const int state = person.stateAtDeath.value_or(0);
    return state == married || state == widowed || state == separated || state == divorced;
}

struct SingleLife
{
    const char* why = nullptr; // not told; null for who is at risk
    bool isAsked = true;
    Date from = {}, until = {};
    const Family* marriage = nullptr; // that ends it
    const char* exit = "unseen";
};

void end(SingleLife& life, const Date& at, const char* exit)
{
    if (at.middle() > life.until.middle()) return;
    life.until = at;
    life.exit = exit;
    life.marriage = nullptr;
}

const char* whyNot(const Person& person, const Study& study)
{
    if (person.gender == parish::Gender::Undetermined) return "sexo indeterminado";
    if (!person.birth.isKnown()) return "sem nascimento";
    if (!study.presenceOf(person).isObserved()) return "nunca em observação";
    const FirstMarriage first = firstMarriageOf(person);
    if (!first.isSure) return "primeiro casamento sem data, ou de quem já tinha casado";
    return !first.family && diedMarried(person) ? "casou, e não se sabe quando" : nullptr;
}

SingleLife singleLifeOf(const Person& person, const Study& study)
{
    SingleLife life;
    life.isAsked = indicators::isWanted(person.gender, study.settings);
    life.why = whyNot(person, study);
    if (!life.isAsked || life.why) return life;
    const observation::Presence& presence = study.presenceOf(person);
    const Date twelfth = indicators::natality::anniversary(person.birth, ageOfMarriage);
    const Date& begins = presence.from.day;
    life.from = begins.middle() > twelfth.middle() ? begins : twelfth;
    life.until = presence.until.day;
    if (person.death.isKnown()) end(life, person.death, "death");
    end(life, indicators::natality::anniversary(person.birth, endOfSingleLife), "age");
    if (const Family* family = firstMarriageOf(person).family) {
        // Who is seen from the marriage on is seen because of it.
        if (family->marriage.middle() <= begins.middle() || family->marriage.middle() < twelfth.middle())
            life.why = "casamento antes da observação, ou antes dos 12 anos";
        end(life, family->marriage, "marriage");
        if (life.exit == QLatin1String("marriage")) life.marriage = family;
    }
    if (life.until.middle() < life.from.middle()) life.isAsked = false; // a child, or who came with fifty
    return life;
}

bool isRead(int year, const Settings& settings)
{
    return settings.period.holds(year) && settings.covers(Series::Marriages, year);
}

// The part of it in years that the books of marriages cover.
std::vector<Spell> readPartsOf(const SingleLife& life, const Settings& settings)
{
    std::vector<Spell> parts;
    const QDate from = life.from.middle(), until = life.until.middle();
    for (int year = from.year(); year <= until.year(); ++year) {
        if (!isRead(year, settings)) continue;
        const Date begins = parish::dateOf(std::max(from, QDate(year, 1, 1)), true);
        const Date ends = parish::dateOf(std::min(until, QDate(year + 1, 1, 1)), true);
        const bool isEvent = life.marriage && ends.date() == until && until.year() == year;
        if (parts.empty() || !(parts.back().until.day == begins)) parts.push_back({{begins}, {}, false});
        parts.back().until.day = ends;
        parts.back().event = isEvent;
    }
    return parts;
}

} // namespace

void writeSingleLife(const Person& person, const EpisodeSource& source, EpisodeFile& file)
{
    const Study& study = source.study;
    const SingleLife life = singleLifeOf(person, study);
    if (!life.isAsked) return;
    if (life.why) return file.leaveOut(life.why);
    int number = 0;
    for (const Spell& part : readPartsOf(life, study.settings)) {
        for (const Spell& spell : spellsOf(part.from, part.until.day, part.event, deathsOfParents(person))) {
            file.person(&person);
            file.family(person.origin);
            file.raw(word::of(person.gender));
            file.dateAndYear(person.birth);
            file.number(indicators::periodOf(person.birth.middle().year(), study.settings));
            file.days(++number, spell);
            file.risk(person.birth, spell);
            file.flag(isDead(person.mother(), spell.from.day));
            file.flag(isDead(person.father(), spell.from.day));
            file.family(spell.event ? life.marriage : nullptr);
            file.raw(life.exit);
            file.flag(!person.birth.isExact() || (life.marriage && !life.marriage->marriage.isExact()));
            file.endRow();
        }
    }
    if (number == 0) file.leaveOut("nenhum ano coberto pelos livros de casamentos");
}

void writeWidowhood(const observation::Union& of, const EpisodeSource& source, EpisodeFile& file)
{
    if (source.withheld.hidesAny(*of.family)) return;
    const indicators::Widowhood life = indicators::widowhoodOf(of, source.study);
    if (life.why == indicators::NoWidowhood::NotAsked) return;
    if (!life.isCounted()) return file.leaveOut(indicators::told(life.why));
    const std::vector<Spell> spells = spellsOf({life.from}, life.until, life.marries);
    if (spells.empty()) return file.leaveOut("visto só no dia em que ficou viúvo");
    const Person& person = *life.survivor;
    const bool dies = !life.marries && person.death.isKnown() && person.death.middle() == life.until.middle();
    file.person(&person);
    file.family(of.family);
    file.raw(word::of(person.gender));
    file.dateAndYear(life.end);
    file.number(indicators::periodOf(life.end.year(), source.study.settings));
    file.age(person.birth, life.end);
    file.age(of.marriage, life.end);
    file.number(indicators::dependentsOf(*of.family, life.end));
    file.days(1, spells.front());
    file.risk(life.end, spells.front());
    file.family(life.next);
    file.raw(life.marries ? "marriage" : dies ? "death" : "unseen");
    file.flag(!life.end.isExact() || (life.marries && !life.until.isExact()));
    file.endRow();
}

} // namespace study::exchange
