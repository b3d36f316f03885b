// How alike two words and two names are.
#include "study/names/names.h"
#include "study/names/weights.h"

#include <algorithm>
#include <vector>

namespace study {

namespace {

// Of two words: equal, of one class in any of their readings, or likened; 0 to 1.
double wordLikeness(const NameParts::Word& a, const NameParts::Word& b)
{
    if (a.key == b.key) return 1;
    double best = 0;
    for (const Reading& ours : a.readings)
        for (const Reading& theirs : b.readings) {
            const double weight = a.readings.size() > 1 || b.readings.size() > 1 ? spelling::ofSeveralReadings : 1;
            if (ours.standard == theirs.standard)
                best = std::max(best, weight);
            else if (ours.klass == theirs.klass)
                best = std::max(best, weight * spelling::ofOneClass);
        }
    // Two names of the table that aren't one are two names: Maria, Mariana.
    if (best == 0 && !(a.known && b.known) && likeness(a.key, b.key) >= spelling::likeEnough) best = spelling::likened;
    return best;
}

std::vector<const NameParts::Word*> namesOf(const NameParts& parts)
{
    std::vector<const NameParts::Word*> names;
    for (const NameParts::Word& word : parts.words)
        if (!word.particle) names.push_back(&word);
    return names;
}

using Words = std::vector<const NameParts::Word*>;

// The words behind the first ones, as sets: how well those of the shorter one are found in the longer one.
double restLikeness(Words shorter, Words longer)
{
    if (shorter.size() > longer.size()) std::swap(shorter, longer);
    double sum = 0;
    for (const NameParts::Word* word : shorter) {
        double best = 0;
        for (const NameParts::Word* other : longer)
            best = std::max(best, wordLikeness(*word, *other));
        sum += best;
    }
    return sum / double(shorter.size());
}

} // namespace

double likeness(const QString& a, const QString& b)
{
    if (a == b) return 1;
    if (a.isEmpty() || b.isEmpty()) return 0;
    const auto window = std::max<qsizetype>(std::max(a.size(), b.size()) / 2 - 1, 0);
    std::vector<bool> taken(size_t(b.size()));
    QString ours, theirs;
    for (qsizetype i = 0; i < a.size(); ++i)
        for (qsizetype j = std::max<qsizetype>(0, i - window); j < std::min(b.size(), i + window + 1); ++j)
            if (!taken[size_t(j)] && a[i] == b[j]) {
                taken[size_t(j)] = true;
                ours += a[i];
                break;
            }
    for (qsizetype j = 0; j < b.size(); ++j)
        if (taken[size_t(j)]) theirs += b[j];
    if (ours.isEmpty()) return 0;
    int moved = 0;
    for (qsizetype i = 0; i < ours.size(); ++i)
        moved += ours[i] == theirs[i] ? 0 : 1;
    const auto common = double(ours.size());
    const double jaro = (common / double(a.size()) + common / double(b.size()) + (common - moved / 2.0) / common) / 3;
    static constexpr qsizetype longestPrefix = 4;
    static constexpr double scale = 0.1;
    qsizetype prefix = 0;
    while (prefix < std::min({longestPrefix, a.size(), b.size()}) && a[prefix] == b[prefix])
        ++prefix;
    return jaro + double(prefix) * scale * (1 - jaro);
}

double nameLikeness(const NameParts& a, const NameParts& b)
{
    Words ours = namesOf(a), theirs = namesOf(b);
    if (ours.empty() || theirs.empty()) return 0;
    const double first = wordLikeness(*ours.front(), *theirs.front());
    ours.erase(ours.begin());
    theirs.erase(theirs.begin());
    if (ours.empty() || theirs.empty()) return first;
    // A wrong first name is another person; of the rest each may use what he likes.
    static constexpr double weightOfTheRest = 0.4;
    return first * (1 - weightOfTheRest + weightOfTheRest * restLikeness(ours, theirs));
}

} // namespace study
