// Folding: what counts of a word when names and places are compared.
#include "study/names/fold.h"
#include "study/names/names.h"

#include <QHash>
#include <QRegularExpression>

#include <utility>
#include <vector>

namespace study {

namespace {

struct Rule
{
    QRegularExpression old;
    QString today;
};

// The old spellings, in the order in which they are undone. They run on small letters that still have their accents;
// whoever alters the order runs the tests of all forms of the table. Digraphs (nh, lh, ch) must be whole when single
// letters are altered, and the last letter is a letter like the others.
const std::vector<Rule>& rulesBeforeAccentsGo()
{
    static const std::vector<Rule> rules = [] {
        static constexpr std::pair<const char*, const char*> table[]{
            {"ñ", "nh"},
            {"^h", ""},
            {"ph", "f"},
            {"th", "t"},
            {"ch(?=[rlnt])", "c"}, // Christovão; before a vowel it is the table that knows
            {"(?<![cln])h", ""},
            {"[yýÿ]", "i"},
            {"(?:ã[eií]|a[eií]n|ãen|a[eé])s$|ãe$", "ais"},     // Magalhães, Magalhaens, Guimarains, Paes
            {"(?:õ[eií]|o[eií]n|ó[ei]|o[eéií])s$|õe$", "ois"}, // Simões, Simoens, Symois, Froes
            {"(?:ão|aõ|õo|am|ã|an)$", "am"},                   // João, Joaõ, Joam, Johan
        };
        std::vector<Rule> made;
        for (const auto& [old, today] : table)
            made.push_back({QRegularExpression(QString::fromUtf8(old)), QString::fromUtf8(today)});
        return made;
    }();
    return rules;
}

const std::vector<Rule>& rulesWithoutAccents()
{
    static const std::vector<Rule> rules = [] {
        static constexpr std::pair<const char*, const char*> table[]{
            {"uu", "v"},                        // Siluua
            {"(?<=[aeio])u(?=[aeio])", "v"},    // Oliueira, Esteuão
            {"(?<=[aeio][lr])u(?=[aeo])", "v"}, // Silua, Carualho, but Luís, Manuel
            {"(?<=i)u(?=r)", "v"},              // Liuramento
            {"^v(?=[bcdfglmnpqrst])", "u"},     // Vrsula
            {"^i(?=[aeou])", "j"},              // Ioam
            {"^j(?=[bcdfglmnpqrstz])", "i"},    // Jzabel, Jnácio
            {"([bcdfglmnprstz])\\1+", "\\1"},   // Anna, Mello; also rr and ss
            {"e[ij]?a$", "eia"},                // Correa, Correya
            {"ae$", "ai"},
            {"eo$", "eu"}, // Abreo
            {"ao$", "au"}, // Nicolao
            {"z$", "s"},   // Luiz
            {"ç", "s"},
            {"c(?=[ei])", "s"},
            {"(?<=[aeiou])s(?=[aeiou])", "z"}, // Sousa, and Cecília beside Cezília
            {"g(?=[ei])", "j"},
            {"x", "ch"},
            {"qu(?=[ei])|q|c(?!h)", "k"},
            {"n(?=[bp])", "m"},
        };
        std::vector<Rule> made;
        for (const auto& [old, today] : table)
            made.push_back({QRegularExpression(QString::fromUtf8(old)), QString::fromUtf8(today)});
        return made;
    }();
    return rules;
}

void apply(const std::vector<Rule>& rules, QString& word)
{
    for (const Rule& rule : rules)
        word.replace(rule.old, rule.today);
}

constexpr char16_t cWithCedilla = u'ç';

// Without accents; ç stays, as it is another sound.
QString withoutAccents(const QString& word)
{
    QString plain;
    plain.reserve(word.size());
    for (const QChar letter : word) {
        if (letter == cWithCedilla)
            plain += letter;
        else
            plain += fold::bare(letter);
    }
    return plain;
}

} // namespace

QString fold::small(const QString& text)
{
    QString folded;
    for (const QChar letter : text.normalized(QString::NormalizationForm_C).toLower()) {
        if (letter == u'º' || letter == u'°')
            folded += u'o';
        else if (letter == u'ª')
            folded += u'a';
        else if (letter.isLetterOrNumber() || letter == u' ')
            folded += letter;
    }
    return folded;
}

QChar fold::bare(QChar letter)
{
    const QString parts = letter.decomposition();
    return letter.unicode() < 0x80 || parts.isEmpty() || parts[0].isSpace() ? letter : parts[0];
}

QString fold::plain(const QString& text)
{
    QString folded = small(text);
    for (QChar& letter : folded)
        letter = bare(letter);
    return folded;
}

static QString keyByRule(const QString& word)
{
    QString key = fold::small(word).remove(u' ');
    // What one rule leaves may be another's old spelling: Nascimento, Nassimento. Each makes a word shorter or simpler.
    static constexpr int rounds = 8;
    for (int round = 0; round < rounds; ++round) {
        const QString before = key;
        apply(rulesBeforeAccentsGo(), key);
        key = withoutAccents(key);
        apply(rulesWithoutAccents(), key);
        if (key == before) break;
    }
    return key;
}

QString nameKey(const QString& word)
{
    // The same few words come again and again, and each rule is a search.
    static constexpr qsizetype mostKept = 20000;
    static constexpr qsizetype longestKept = 40;
    thread_local QHash<QString, QString> kept;
    if (word.size() > longestKept) return keyByRule(word);
    if (const auto known = kept.constFind(word); known != kept.cend()) return *known;
    if (kept.size() >= mostKept) kept.clear();
    return *kept.insert(word, keyByRule(word));
}

QString placeKey(const QString& name)
{
    return fold::plain(name).remove(u' ');
}

} // namespace study
