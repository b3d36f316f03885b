// A sort of many names compares each of them a dozen times and more, so texts of ASCII and Portuguese letters are
// compared by a table of weights; only other texts are decoded and given to the collator. The table is read off the
// collator, so both ways agree.
#include "platform/jet/alphabet.h"

#include <QCollator>
#include <QLocale>

#include <algorithm>
#include <array>
#include <optional>

namespace jet {

namespace {

const QCollator& collator()
{
    static const QCollator made = [] {
        QCollator portuguese(QLocale(QLocale::Portuguese, QLocale::Portugal));
        portuguese.setCaseSensitivity(Qt::CaseInsensitive);
        return portuguese;
    }();
    return made;
}

class Weights
{
public:
    Weights()
    {
        QStringList letters;
        for (ushort c = 0x20; c < 0x7f; ++c)
            letters << QString(QChar(c));
        rank(letters, [&](const QString& letter, int rank) { of_[letter[0].unicode()].letter = rank; });

        QStringList accented;
        for (ushort c = 0xc0; c <= 0xff; ++c)
            if (QChar(c).decomposition().size() == 2) accented << QChar(c).decomposition();
        rank(accented, [&](const QString& parts, int rank) {
            const QString letter = parts.normalized(QString::NormalizationForm_C);
            of_[letter[0].unicode()] = {of_[parts[0].unicode()].letter, rank};
        });
    }

    // Null where a text holds what isn't in the table.
    std::optional<int> compare(std::string_view a, std::string_view b) const
    {
        int accents = 0; // what they say, should all letters be the same
        while (!a.empty() && !b.empty()) {
            const Weight left = take(a);
            const Weight right = take(b);
            if (left.letter == 0 || right.letter == 0) return {};
            if (left.letter != right.letter) return left.letter - right.letter;
            if (accents == 0) accents = left.accent - right.accent;
        }
        if (!a.empty()) return take(a).letter == 0 ? std::nullopt : std::optional(1);
        if (!b.empty()) return take(b).letter == 0 ? std::nullopt : std::optional(-1);
        return accents;
    }

private:
    struct Weight
    {
        int letter = 0; // 0: not in the table
        int accent = 0; // 0: none
    };

    // Gives each text its place in the alphabet, from 1 on; texts that count as the same have the same.
    template <class Give>
    static void rank(QStringList& texts, Give give)
    {
        std::stable_sort(texts.begin(), texts.end(),
                         [](const QString& a, const QString& b) { return collator().compare(a, b) < 0; });
        int rank = 0;
        for (qsizetype i = 0; i < texts.size(); ++i) {
            if (i == 0 || collator().compare(texts[i - 1], texts[i]) != 0) ++rank;
            give(texts[i], rank);
        }
    }

    // Takes the first letter off the text.
    Weight take(std::string_view& text) const
    {
        const auto first = static_cast<unsigned char>(text[0]);
        if (first < 0x80) {
            text.remove_prefix(1);
            return of_[first];
        }
        if (first != 0xc3 || text.size() < 2) return {};
        const auto second = static_cast<unsigned char>(text[1]);
        text.remove_prefix(2);
        return second >= 0x80 && second < 0xc0 ? of_[second + 0x40] : Weight();
    }

    std::array<Weight, 256> of_{}; // by the letter's number in Latin-1
};

} // namespace

int compareAlphabetically(const QString& a, const QString& b)
{
    return collator().compare(a, b);
}

int compareAlphabetically(std::string_view a, std::string_view b)
{
    static const Weights weights;
    if (const auto result = weights.compare(a, b)) return *result;
    const auto decoded = [](std::string_view text) { return QString::fromUtf8(text.data(), qsizetype(text.size())); };
    return collator().compare(decoded(a), decoded(b));
}

} // namespace jet
