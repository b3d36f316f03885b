// One check of a whole parish: all rules over one snapshot.
#pragma once

#include "study/checks/rule.h"

#include <QHash>
#include <QStringList>

#include <functional>
#include <initializer_list>
#include <optional>
#include <vector>

namespace study::checks {

struct Facts;

// What the user has set otherwise than the rules have it.
struct Settings
{
    QHash<QString, double> limits = {}; // "P-02.idade"
    QHash<QString, bool> asked = {};    // id of a rule: whether it is asked
    double tolerance = 1;               // years that an approximate date may be off
    double yearTolerance = 10;          // where both dates tell no more than the year

    bool operator==(const Settings&) const = default;
    bool isAsked(const Rule& rule) const;
    double limit(const Rule& rule, const Limit& limit) const;
};

// The names of the files in a folder; nothing where there is no such folder. It is asked once a folder.
using FilesIn = std::function<std::optional<QStringList>(const QString& folder)>;
std::optional<QStringList> filesOnDisk(const QString& folder);

// What a rule works with while it is asked.
class Check
{
public:
    Check(const parish::Snapshot& parish, const Settings& settings, FilesIn filesIn,
          parish::Snapshot::GoesOn goesOn = {});
    ~Check();
    Check(const Check&) = delete;
    Check& operator=(const Check&) = delete;

    const parish::Snapshot& parish() const { return parish_; }
    const Facts& facts() const { return *facts_; } // what several rules count in the whole parish, once

    // Of the rule that is asked. Precondition: it has a limit of that name.
    double limit(const char* name) const;
    // Of another rule, for what that one tells already. Precondition: there is such a rule, with such a limit.
    double limit(const char* rule, const char* name) const;

    // By how many years these dates may be off: 0 where all are exact.
    double tolerance(std::initializer_list<parish::Date> dates) const;

    // How grave it is that the rule is broken by so many days: what is impossible by exact dates is unlikely where a
    // date is approximate and the breach within its tolerance.
    Severity gravity(int days, std::initializer_list<parish::Date> dates) const;

    // Whether a breach by so many days may come of the dates alone: one is approximate, and it is within its tolerance.
    bool mayBeOfTheDates(int days, std::initializer_list<parish::Date> dates) const;

    // Asks whether the check goes on before, as a folder may be slow.
    std::optional<QStringList> filesIn(const QString& folder);

    // One more record has been looked at: now and then whoever waits is asked whether the check goes on. Throws
    // Snapshot::Interrupted. For the long loops of the rules of a whole parish.
    void step();

    struct Found
    {
        QString text;
        std::vector<const parish::Person*> people = {};
        std::vector<const parish::Family*> families = {};
        std::vector<qint64> acts = {};
        parish::Date when = {};
        QString about = {}; // as Case has it
    };
    void report(const Found& found);                    // as grave as the rule
    void report(const Found& found, Severity severity); // or graver, or less

    // Runs all rules that are asked; `goesOn` as Snapshot::GoesOn. Throws Snapshot::Interrupted.
    static std::vector<Case> run(const parish::Snapshot& parish, const Settings& settings = {},
                                 const parish::Snapshot::GoesOn& goesOn = {}, FilesIn filesIn = filesOnDisk);

private:
    double limitOf(const Rule& rule, const char* name) const;
    void askWhetherItGoesOn() const;
    void askAll();
    template <class Subject>
    void ask(const Subject& subject, const std::vector<const Rule*>& rules);
    template <class Record>
    const QString& knownState(const Record& record);

    const parish::Snapshot& parish_;
    const Settings& settings_;
    std::unique_ptr<const Facts> facts_;
    FilesIn filesIn_;
    parish::Snapshot::GoesOn goesOn_;
    qint64 steps_ = 0;
    double done_ = 0; // the share of the check
    const Rule* rule_ = nullptr;
    std::vector<Case> cases_;
    QHash<const void*, QString> states_;
};

// "Manuel de Abreu (nº 29)"; "o indivíduo nº 29" where there is no name.
QString named(const parish::Person& person);
// "a família nº 12 de Manuel de Abreu e Joana Lopes".
QString named(const parish::Family& family);
// "14/02/1702"; "data desconhecida" for none.
QString told(const parish::Date& date);

// What stands in a record and beside it, as one short text: another one when anything of it is changed.
QString stateOf(const parish::Person& person);
QString stateOf(const parish::Family& family);
QString stateOf(const QString& text);

} // namespace study::checks
