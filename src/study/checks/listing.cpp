#include "study/checks/listing.h"

#include "study/checks/rule.h"
#include "study/names/fold.h"

#include <QStringList>

#include <algorithm>
#include <iterator>
#include <map>

namespace study::checks {

namespace {

QString searchable(const Case& one)
{
    const Rule* rule = ruleOf(one.rule);
    return fold::plain(one.rule + ' ' + (rule ? QString(rule->title) : QString()) + ' ' + one.text);
}

QString counted(qsizetype count, const char* one, const char* more)
{
    return QString::number(count) + ' ' + (count == 1 ? one : more);
}

} // namespace

CaseChoice::CaseChoice(const CaseFilter& filter)
    : severity_(filter.severity), words_(fold::plain(filter.text).split(' ', Qt::SkipEmptyParts))
{
}

bool CaseChoice::operator()(const Case& one) const
{
    if (severity_ && one.severity != *severity_) return false;
    if (words_.isEmpty()) return true;
    const QString all = searchable(one);
    return std::ranges::all_of(words_, [&](const QString& word) { return all.contains(word); });
}

std::vector<Case> gravest(const std::vector<Case>& cases, Severity least)
{
    std::vector<Case> chosen;
    std::ranges::copy_if(cases, std::back_inserter(chosen), [&](const Case& one) { return one.severity <= least; });
    return chosen;
}

std::vector<RuleCount> countsByRule(const std::vector<Case>& cases)
{
    std::map<QString, RuleCount> counts;
    for (const Case& one : cases) {
        RuleCount& count = counts.try_emplace(one.rule, RuleCount{one.rule, one.severity, 0}).first->second;
        count.severity = std::min(count.severity, one.severity);
        ++count.cases;
    }
    std::vector<RuleCount> ordered;
    for (const Rule& rule : rules())
        if (const auto count = counts.find(rule.id); count != counts.end()) ordered.push_back(count->second);
    return ordered;
}

std::vector<std::pair<int, int>> countsByDecade(const std::vector<Case>& cases)
{
    static constexpr int years = 10;
    std::map<int, int> counts;
    int undated = 0;
    for (const Case& one : cases)
        one.when.isValid() ? ++counts[one.when.year() / years * years] : ++undated;
    std::vector<std::pair<int, int>> ordered(counts.begin(), counts.end());
    if (undated > 0) ordered.emplace_back(0, undated);
    return ordered;
}

QString countText(const std::vector<Case>& cases)
{
    const auto count = [&](Severity severity) { return std::ranges::count(cases, severity, &Case::severity); };
    QStringList parts;
    if (const auto all = count(Severity::Impossible)) parts << counted(all, "impossível", "impossíveis");
    if (const auto all = count(Severity::Unlikely)) parts << counted(all, "aviso", "avisos");
    if (const auto all = count(Severity::Information)) parts << counted(all, "informação", "informações");
    return parts.isEmpty() ? QString("nada") : parts.join(", ");
}

} // namespace study::checks
