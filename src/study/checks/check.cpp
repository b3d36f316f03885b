#include "study/checks/check.h"

#include "study/checks/facts.h"

#include <QDir>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <tuple>

namespace study::checks {

namespace {

using parish::daysOfAYear;

// The rules of one kind that are asked.
template <class Look>
std::vector<const Rule*> askedRules(const Settings& settings)
{
    std::vector<const Rule*> asked;
    for (const Rule& rule : rules())
        if (std::holds_alternative<Look>(rule.look) && settings.isAsked(rule)) asked.push_back(&rule);
    return asked;
}

// By the order of the rules, then by whom they are about.
void sort(std::vector<Case>& cases)
{
    QHash<QString, qsizetype> places;
    for (const Rule& rule : rules())
        places.insert(rule.id, places.size());
    std::ranges::stable_sort(cases, [&](const Case& one, const Case& other) {
        if (one.rule != other.rule) return places.value(one.rule) < places.value(other.rule);
        return std::tie(one.people, one.families, one.text) < std::tie(other.people, other.families, other.text);
    });
}

// Two cases of one key would be seen as one: what is told twice goes, and what differs is told apart by its text. The
// text is made short, as a key is stored.
void tellApart(std::vector<Case>& cases)
{
    QHash<QString, QStringList> texts;
    std::erase_if(cases, [&](const Case& one) {
        QStringList& known = texts[one.key()];
        if (known.contains(one.text)) return true;
        known << one.text;
        return false;
    });
    for (Case& one : cases) {
        if (texts.value(one.key()).size() < 2) continue;
        const QString text = stateOf(one.text);
        one.about = one.about.isEmpty() ? text : one.about + ' ' + text;
    }
}

// What named() begins with where there is no name; a name stays as it is written.
QString asASentence(const QString& text)
{
    const bool isNoName = text.startsWith("o indivíduo nº ") || text.startsWith("a família nº ");
    return isNoName ? text.front().toUpper() + text.mid(1) : text;
}

} // namespace

QString inWords(Severity severity)
{
    switch (severity) {
    case Severity::Impossible:
        return "impossível";
    case Severity::Unlikely:
        return "aviso";
    case Severity::Information:
        break;
    }
    return "informação";
}

QString Case::key() const
{
    QString key = rule;
    for (const parish::PersonNumber number : people)
        key += " i" + shown(number);
    for (const parish::FamilyNumber number : families)
        key += " f" + shown(number);
    return about.isEmpty() ? key : key + ' ' + about;
}

const std::vector<Rule>& rules()
{
    static const std::vector<Rule> all = [] {
        std::vector<Rule> gathered;
        for (const auto group :
             {personRules, marriageRules, familyRules, childRules, siblingRules, birthRules, actRules, assistantRules,
              listRules, willRules, codeRules, lostRules, ownCodeRules, seriesRules})
            std::ranges::move(group(), std::back_inserter(gathered));
        return gathered;
    }();
    return all;
}

const Rule* ruleOf(const QString& id)
{
    const auto found = std::ranges::find_if(rules(), [&](const Rule& rule) { return id == rule.id; });
    return found == rules().end() ? nullptr : &*found;
}

bool Settings::isAsked(const Rule& rule) const
{
    return asked.value(rule.id, rule.standard);
}

double Settings::limit(const Rule& rule, const Limit& limit) const
{
    if (limits.isEmpty()) return limit.standard; // mostly; it is asked many times
    return limits.value(QString(rule.id) + '.' + limit.name, limit.standard);
}

Check::Check(const parish::Snapshot& parish, const Settings& settings, FilesIn filesIn, parish::Snapshot::GoesOn goesOn)
    : parish_(parish), settings_(settings), facts_(std::make_unique<Facts>(parish)), filesIn_(std::move(filesIn)),
      goesOn_(std::move(goesOn))
{
}

Check::~Check() = default;

double Check::limitOf(const Rule& rule, const char* name) const
{
    const auto found =
        std::ranges::find_if(rule.limits, [&](const Limit& one) { return std::strcmp(one.name, name) == 0; });
    return settings_.limit(rule, *found);
}

double Check::limit(const char* name) const
{
    return limitOf(*rule_, name);
}

double Check::limit(const char* rule, const char* name) const
{
    return limitOf(*ruleOf(rule), name);
}

double Check::tolerance(std::initializer_list<parish::Date> dates) const
{
    const auto isExact = [](const parish::Date& date) { return date.isExact(); };
    if (std::ranges::all_of(dates, isExact)) return 0;
    const auto isYear = [](const parish::Date& date) { return date.precision == parish::Precision::Year; };
    return std::ranges::all_of(dates, isYear) ? settings_.yearTolerance : settings_.tolerance;
}

Severity Check::gravity(int days, std::initializer_list<parish::Date> dates) const
{
    if (rule_->severity != Severity::Impossible) return rule_->severity;
    return mayBeOfTheDates(days, dates) ? Severity::Unlikely : Severity::Impossible;
}

bool Check::mayBeOfTheDates(int days, std::initializer_list<parish::Date> dates) const
{
    const double years = tolerance(dates);
    return years > 0 && std::abs(days) <= years * daysOfAYear;
}

// One record may be in many cases.
template <class Record>
const QString& Check::knownState(const Record& record)
{
    QString& state = states_[&record];
    if (state.isEmpty()) state = stateOf(record);
    return state;
}

void Check::report(const Found& found)
{
    report(found, rule_->severity);
}

void Check::report(const Found& found, Severity severity)
{
    Case one{.rule = rule_->id,
             .severity = severity,
             .text = asASentence(found.text),
             .acts = found.acts,
             .when = found.when.date(),
             .about = found.about};
    QStringList states;
    for (const parish::Person* person : found.people) {
        one.people.push_back(person->number);
        states << knownState(*person);
    }
    for (const parish::Family* family : found.families) {
        one.families.push_back(family->number);
        states << knownState(*family);
    }
    if (!found.about.isEmpty()) states << stateOf(found.text); // it may be about no record, or about more than it names
    one.state = states.join(' ');
    cases_.push_back(std::move(one));
}

template <class Subject>
void Check::ask(const Subject& subject, const std::vector<const Rule*>& rules)
{
    for (const Rule* rule : rules) {
        rule_ = rule;
        std::get<void (*)(const Subject&, Check&)>(rule->look)(subject, *this);
    }
}

void Check::askWhetherItGoesOn() const
{
    if (goesOn_ && !goesOn_(done_)) throw parish::Snapshot::Interrupted{};
}

void Check::step()
{
    static constexpr qint64 betweenQuestions = 1024;
    if (++steps_ % betweenQuestions == 0) askWhetherItGoesOn();
}

std::optional<QStringList> Check::filesIn(const QString& folder)
{
    askWhetherItGoesOn();
    return filesIn_(folder);
}

// The rules of the whole parish count as much as its records do together.
void Check::askAll()
{
    const auto ofTheParish = askedRules<OfTheParish>(settings_);
    const auto records = static_cast<double>(parish_.people().size() + parish_.families().size() + 1);
    const double ofARecord = 0.5 / records, ofARule = 0.5 / static_cast<double>(ofTheParish.size() + 1);
    for (const auto ofAPerson = askedRules<OfAPerson>(settings_); const parish::Person& person : parish_.people()) {
        step();
        ask(person, ofAPerson);
        done_ += ofARecord;
    }
    for (const auto ofAFamily = askedRules<OfAFamily>(settings_); const parish::Family& family : parish_.families()) {
        step();
        ask(family, ofAFamily);
        done_ += ofARecord;
    }
    for (const Rule* rule : ofTheParish) {
        askWhetherItGoesOn();
        ask(parish_, {rule});
        done_ += ofARule;
    }
}

std::vector<Case> Check::run(const parish::Snapshot& parish, const Settings& settings,
                             const parish::Snapshot::GoesOn& goesOn, FilesIn filesIn)
{
    Check check(parish, settings, std::move(filesIn), goesOn);
    check.askAll();
    tellApart(check.cases_);
    sort(check.cases_);
    return std::move(check.cases_);
}

std::optional<QStringList> filesOnDisk(const QString& folder)
{
    const QDir there(folder);
    if (!there.exists()) return {};
    return there.entryList(QDir::Files | QDir::Hidden | QDir::System);
}

QString named(const parish::Person& person)
{
    const QString number = parish::shown(person.number);
    return person.name.trimmed().isEmpty() ? "o indivíduo nº " + number : person.name + " (nº " + number + ')';
}

QString named(const parish::Family& family)
{
    QStringList couple;
    for (const parish::Person* member : {family.husband, family.wife})
        if (member && !member->name.trimmed().isEmpty()) couple << member->name;
    const QString number = "a família nº " + parish::shown(family.number);
    return couple.isEmpty() ? number : number + " de " + couple.join(" e ");
}

QString told(const parish::Date& date)
{
    return date.isKnown() ? shown(date) : "data desconhecida";
}

} // namespace study::checks
