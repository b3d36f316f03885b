#include "study/people/keys.h"

#include <QByteArray>
#include <QHash>

#include <algorithm>

namespace study {

namespace {

constexpr quint64 mask = (quint64(1) << bitsOfAWordCode) - 1;

// The function of Fowler, Noll and Vo (1a, of 64 bits), folded.
constexpr quint64 basis = 14695981039346656037U;
constexpr quint64 prime = 1099511628211U;

quint64 mixed(quint64 hash, quint64 bytes, int count)
{
    for (int i = 0; i < count; ++i)
        hash = (hash ^ ((bytes >> (8 * i)) & 0xFFU)) * prime;
    return hash;
}

WordCode folded(quint64 hash)
{
    return WordCode((hash ^ (hash >> bitsOfAWordCode) ^ (hash >> (2 * bitsOfAWordCode))) & mask);
}

constexpr size_t mostWords = 8;    // of a name, that are indexed
constexpr size_t mostReadings = 4; // of a word

CodedWord codedWord(const NameParts::Word& word)
{
    CodedWord coded{.exact = codeOf(word.key),
                    .classes = {},
                    .key = word.key,
                    .written = word.written,
                    .devotional = true,
                    .known = word.known};
    const bool oneReading = word.fitting == 1;
    if (oneReading) coded.exact = codeOf(nameKey(word.readings.first().standard));
    for (const Reading& reading : word.readings.mid(0, word.fitting)) {
        const WordCode code = codeOf(nameKey(reading.klass));
        if (coded.classes.size() < mostReadings && !std::ranges::count(coded.classes, code))
            coded.classes.push_back(code);
        coded.devotional = coded.devotional && reading.devotional;
    }
    return coded;
}

} // namespace

WordCode codeOf(const QString& key)
{
    quint64 hash = basis;
    for (const QChar letter : key)
        hash = mixed(hash, letter.unicode(), 2);
    return folded(hash);
}

WordCode codeOf(WordCode one, WordCode other)
{
    const auto [less, more] = std::minmax(one, other);
    return folded(mixed(mixed(mixed(basis, 2, 1), less, 4), more, 4));
}

WordCode codeOfAlone(WordCode word)
{
    return folded(mixed(mixed(basis, 1, 1), word, 4));
}

static CodedName readName(const QString& name, const NameTable& table)
{
    CodedName coded;
    const NameParts parts = partsOf(name, table);
    if (parts.unknown) return coded;
    for (const NameParts::Word& word : parts.words)
        if (!word.particle && !word.key.isEmpty() && coded.size() < mostWords) coded.push_back(codedWord(word));
    return coded;
}

CodedName codedName(const QString& name)
{
    // The people of an act are asked about again and again, and so are those who have the same name.
    static constexpr qsizetype mostKept = 20000;
    static constexpr qsizetype longestKept = 100;
    thread_local QHash<QString, CodedName> kept;
    thread_local QByteArray version;
    const NameTable& table = NameTable::shared();
    if (name.size() > longestKept) return readName(name, table);
    if (kept.size() >= mostKept || version != table.version()) kept.clear();
    version = table.version();
    if (const auto known = kept.constFind(name); known != kept.cend()) return *known;
    return *kept.insert(name, readName(name, table));
}

bool shareClass(const CodedWord& a, const CodedWord& b)
{
    return std::ranges::any_of(a.classes, [&](WordCode code) { return std::ranges::count(b.classes, code) > 0; });
}

bool isSameName(const CodedName& a, const CodedName& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), shareClass);
}

std::vector<WordCode> indexCodes(const CodedName& name)
{
    std::vector<WordCode> codes;
    for (size_t i = 0; i < name.size(); ++i)
        for (const WordCode word : name[i].classes) {
            codes.push_back(word);
            for (const WordCode first : name.front().classes)
                if (i > 0) codes.push_back(codeOf(first, word));
            if (name.size() == 1) codes.push_back(codeOfAlone(word));
        }
    std::ranges::sort(codes);
    codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
    return codes;
}

} // namespace study
