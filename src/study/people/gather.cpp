#include "study/people/gather.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace study {

namespace {

// How many are looked at, so that the most frequent names cost no more than a moment.
constexpr int mostOfAPair = 2000;     // "Manuel Rodrigues"
constexpr int mostOfAWord = 400;      // "Maria"
constexpr int mostOfThoseAlone = 200; // who have no other name than "Manuel"
constexpr size_t mostInAll = 1200;
constexpr int mostCompletions = 40;
constexpr int mostLikenesses = 6;

} // namespace

void Gatherer::complete(Sought& sought)
{
    if (sought.name.empty()) return;
    CodedWord& last = sought.name.back();
    if (index_.hasWord(last.key) || index_.hasWord(last.written)) return;
    std::vector<WordCode> more = index_.wordsFrom(last.written, mostCompletions);
    if (more.empty()) more = index_.wordsLike(last.written, mostLikenesses);
    for (const WordCode code : more)
        if (!std::ranges::count(last.classes, code)) last.classes.push_back(code);
    last.inPart = !more.empty();
}

// The middle of the years first: an act has more people of middle age than old ones.
void Gatherer::takeNearest(WordCode code, const Sought& sought, int limit, std::vector<qint64>& rows)
{
    static constexpr int decade = 10;
    const BirthYears years = sought.aboutBirthYears();
    if (!sought.date.isValid()) return;
    const int middle = years.to - (years.to - years.from) / 3;
    const auto wanted = size_t(limit);
    for (int away = 0; away <= years.to - years.from && rows.size() < wanted; away += decade)
        for (const int year : {middle - away, middle + away}) {
            if (year < years.from || year > years.to || (away == 0 && year != middle)) continue;
            index_.born(code, {year, year}, limit / 4, rows);
            if (away == 0) break;
        }
}

void Gatherer::take(WordCode code, const Sought& sought, int limit, double bits)
{
    std::vector<qint64> rows;
    const bool born = index_.born(code, sought.aboutBirthYears(), limit, rows);
    if (!born && sought.date.isValid()) {
        rows.clear();
        takeNearest(code, sought, limit, rows);
    }
    const bool others = index_.withoutBirth(code, limit, rows);
    all_ = all_ && born && others;
    for (const qint64 row : rows)
        found_.emplace_back(row, bits);
}

void Gatherer::takePairs(const Sought& sought)
{
    const CodedWord& first = sought.name.front();
    for (size_t i = 1; i < sought.name.size(); ++i)
        for (const WordCode other : sought.name[i].classes) {
            const double bits = std::log2(double(index_.people() + 1) / double(index_.countOf(other) + 1));
            for (const WordCode given : first.classes)
                take(codeOf(given, other), sought, mostOfAPair / int(sought.name[i].classes.size()) + 1, bits);
        }
}

Gathered Gatherer::gather(const Sought& sought)
{
    found_.clear();
    all_ = true;
    if (sought.name.empty()) return {};
    const std::vector<WordCode>& given = sought.name.front().classes;
    takePairs(sought);
    const bool nobody = found_.empty();
    for (const WordCode code : given) {
        if (nobody)
            take(code, sought, mostOfAWord / int(given.size()) + 1, 0);
        else
            take(codeOfAlone(code), sought, mostOfThoseAlone, 0);
    }
    std::unordered_map<qint64, double> sums;
    for (const auto& [row, bits] : found_)
        sums[row] += bits;
    std::vector<std::pair<double, qint64>> order;
    order.reserve(sums.size());
    for (const auto& [row, bits] : sums)
        order.emplace_back(-bits, row);
    std::ranges::sort(order);
    Gathered gathered{.rows = {}, .all = all_ && order.size() <= mostInAll};
    for (const auto& [bits, row] : order)
        if (gathered.rows.size() < mostInAll) gathered.rows.push_back(row);
    return gathered;
}

} // namespace study
