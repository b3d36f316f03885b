// The operator like. A search through a million names calls it once a name, so texts that are all ASCII or Portuguese
// letters are folded to one byte a letter and searched there; only other texts are decoded whole.
#include "platform/jet/functions.h"

#include <QList>
#include <QString>

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace jet {

namespace {

// A pattern cut at its %. Each piece is a run of folded letters and of _, which stands for any one letter.
template <typename Letter>
struct Pieces
{
    static constexpr Letter any =
        Letter(-1); // in no folded text: not a byte of Latin-1 letters, not a letter of Unicode

    std::vector<std::basic_string<Letter>> pieces{{}};

    static bool fits(const Letter* text, const std::basic_string<Letter>& piece)
    {
        for (size_t i = 0; i < piece.size(); ++i)
            if (piece[i] != text[i] && piece[i] != any) return false;
        return true;
    }

    // The first place from `begin` on where the piece fits; `end` where there is none.
    static const Letter* find(const Letter* begin, const Letter* end, const std::basic_string<Letter>& piece)
    {
        const auto last = end - begin - std::ptrdiff_t(piece.size());
        if (piece.empty()) return begin;
        for (std::ptrdiff_t i = 0; i <= last; ++i)
            if ((begin[i] == piece[0] || piece[0] == any) && fits(begin + i, piece)) return begin + i;
        return end;
    }

    // The first piece stands at the start of the text, the last one at its end, the others between, in their order.
    bool match(std::basic_string_view<Letter> text) const
    {
        const Letter* begin = text.data();
        const Letter* end = begin + text.size();
        const auto& first = pieces.front();
        const auto& last = pieces.back();
        if (text.size() < first.size() || !fits(begin, first)) return false;
        if (pieces.size() == 1) return text.size() == first.size();
        begin += first.size();
        if (size_t(end - begin) < last.size() || !fits(end - last.size(), last)) return false;
        end -= last.size();
        for (size_t i = 1; i + 1 < pieces.size(); ++i) {
            begin = find(begin, end, pieces[i]);
            if (begin == end && !pieces[i].empty()) return false;
            begin += pieces[i].size();
        }
        return true;
    }
};

char32_t folded(char32_t letter)
{
    return QChar::toCaseFolded(letter);
}

std::u32string foldedText(const char* text, int bytes)
{
    std::u32string result;
    for (const uint letter : QString::fromUtf8(text, bytes).toUcs4())
        result += folded(letter);
    return result;
}

// Bytes of UTF-8 to letters of Latin-1, folded: continuation bytes stand for the letters behind the lead byte C3, which
// is dropped. 0xff (ÿ folds to itself but is left to the slow way, as 0xff means "any") and `other` end the quick way.
struct QuickFold
{
    static constexpr std::uint16_t drop = 0x100;
    static constexpr std::uint16_t other = 0x200;
    std::array<std::uint16_t, 256> of{};

    QuickFold()
    {
        for (int byte = 0; byte < 256; ++byte) {
            if (byte < 0x80)
                of[byte] = std::uint16_t(folded(char32_t(byte)));
            else if (byte < 0xbf)
                of[byte] = std::uint16_t(folded(char32_t(byte + 0x40)));
            else
                of[byte] = byte == 0xc3 ? drop : other;
        }
    }
};
const QuickFold quickFold;

// Writes the folded letters of `text` to `letters`, which holds `bytes` of them, and returns how many; -1 where the
// quick way doesn't do.
int foldQuickly(const unsigned char* text, int bytes, unsigned char* letters)
{
    int length = 0;
    std::uint16_t seen = 0;
    for (int i = 0; i < bytes; ++i) {
        const std::uint16_t fold = quickFold.of[text[i]];
        seen |= fold;
        letters[length] = static_cast<unsigned char>(fold);
        length += fold == QuickFold::drop ? 0 : 1;
    }
    return (seen & QuickFold::other) != 0 ? -1 : length;
}

class Pattern
{
public:
    Pattern(const char* text, int bytes)
    {
        for (const char32_t letter : foldedText(text, bytes)) {
            if (letter == U'%') {
                letters_.pieces.emplace_back();
                bytes_.pieces.emplace_back();
                continue;
            }
            letters_.pieces.back() += letter == U'_' ? Pieces<char32_t>::any : letter;
            bytes_.pieces.back() += letter == U'_' ? Pieces<unsigned char>::any : static_cast<unsigned char>(letter);
            latin_ = latin_ && letter < 0xff;
        }
    }

    bool match(const unsigned char* text, int bytes) const
    {
        std::array<unsigned char, 512> local;
        std::basic_string<unsigned char> large;
        unsigned char* letters = local.data();
        if (size_t(bytes) > local.size()) {
            large.resize(size_t(bytes));
            letters = large.data();
        }
        const int length = foldQuickly(text, bytes, letters);
        if (length >= 0) return latin_ && bytes_.match({letters, size_t(length)});
        return letters_.match(foldedText(reinterpret_cast<const char*>(text), bytes));
    }

private:
    bool latin_ = true; // no letter that a text of the quick way cannot hold
    Pieces<char32_t> letters_;
    Pieces<unsigned char> bytes_;
};

const char* utf8(sqlite3_value* value)
{
    return reinterpret_cast<const char*>(sqlite3_value_text(value));
}

} // namespace

// The engine calls like(pattern, text) for "text like pattern".
void likeFunction(sqlite3_context* context, int, sqlite3_value** values)
{
    auto* pattern = static_cast<Pattern*>(sqlite3_get_auxdata(context, 0));
    const auto* text = sqlite3_value_text(values[1]);
    if (!text || (!pattern && sqlite3_value_type(values[0]) == SQLITE_NULL)) return;
    if (pattern) return sqlite3_result_int(context, pattern->match(text, sqlite3_value_bytes(values[1])));
    const char* source = utf8(values[0]);
    auto* made = new Pattern(source, sqlite3_value_bytes(values[0]));
    sqlite3_result_int(context, made->match(text, sqlite3_value_bytes(values[1])));
    // Last, as the engine may drop it at once.
    sqlite3_set_auxdata(context, 0, made, [](void* kept) { delete static_cast<Pattern*>(kept); });
}

} // namespace jet
