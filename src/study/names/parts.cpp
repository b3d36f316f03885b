// A name taken apart, and put together as it is spelled today.
#include "study/names/fold.h"
#include "study/names/lexicon.h"
#include "study/names/names.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <utility>
#include <vector>

namespace study {

using namespace lexicon;

namespace {

// A name, and what stands apart from it.
struct Whole
{
    QString name;
    QStringList behind; // a comma, or in brackets
    QStringList quoted;
};

// Closes what the letter opens; null for any other letter.
QChar closing(QChar letter)
{
    static const QHash<QChar, QChar> pairs{{u'(', u')'}, {u'"', u'"'}, {u'«', u'»'}, {u'“', u'”'}};
    return pairs.value(letter);
}

void addTold(QStringList& all, const QString& text)
{
    if (const QString told = text.simplified(); !told.isEmpty()) all << told;
}

// Square brackets are the transcriber's: what they hold is a part of the name, or a gap in it.
Whole wholeOf(const QString& text)
{
    static const QRegularExpression commas("[,;]");
    Whole whole;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar letter = text[at];
        if (letter == u',' || letter == u';') {
            for (const QString& each : text.mid(at + 1).split(commas))
                addTold(whole.behind, each);
            break;
        }
        const QChar end = closing(letter);
        const qsizetype there = end.isNull() ? -1 : text.indexOf(end, at + 1);
        if (there < 0) {
            whole.name += letter;
            continue;
        }
        addTold(letter == u'(' ? whole.behind : whole.quoted, text.mid(at + 1, there - at - 1));
        whole.name += u' ';
        at = there;
    }
    const bool isName = std::ranges::any_of(whole.name, [](QChar letter) { return letter.isLetter(); });
    return isName ? whole : Whole{.name = text, .behind = {}, .quoted = {}};
}

// Blanks part words, and so does the apostrophe of d'Almeida.
QStringList tokensOf(const QString& name)
{
    QString spaced;
    for (const QChar letter : name) {
        if (letter == u'\'' || letter == u'’')
            spaced += spaced.endsWith(u'd', Qt::CaseInsensitive) ? QStringLiteral("' ") : QString(letter);
        else
            spaced += letter.isPrint() || letter.isSurrogate() ? letter : QChar(u' ');
    }
    return spaced.simplified().split(u' ', Qt::SkipEmptyParts);
}

bool isParticle(const QString& token)
{
    return particles().contains(token.toLower());
}

bool isElided(const QString& token)
{
    return token.endsWith(u'\'') || token.endsWith(u'’'); // d'
}

QString titleOf(const QString& token, const QString& plain)
{
    if (token == QLatin1String("d") || token == QLatin1String("p") || isElided(token)) return {};
    return titles().value(plain);
}

bool isArticle(const QString& token)
{
    return token == QLatin1String("o") || token == QLatin1String("a") || token == QLatin1String("O") ||
           token == QLatin1String("A");
}

// How many tokens from there on are no part of the name: "o Velho", "exposta", "da Roda", "maior" at its end.
int asideAt(const QStringList& tokens, const QStringList& plains, int at)
{
    const auto plain = [&](int which) { return plains.value(which); };
    const int rest = int(tokens.size()) - at;
    if (states().contains(plain(at))) return 1;
    if (plain(at) == "da" && plain(at + 1) == "roda") return 2;
    if (at == 0) return 0;
    const bool smallArticle = isArticle(tokens[at]) && tokens[at].isLower();
    if (isArticle(tokens[at]) && rest > 1 && (smallArticle || tags().contains(plain(at + 1)))) return rest;
    return rest == 1 && (plain(at) == "maior" || plain(at) == "menor") ? 1 : 0;
}

bool fits(const Reading& reading, bool first)
{
    if (reading.kind == NameKind::Any) return true;
    return (reading.kind == NameKind::Given) == first;
}

QString capital(const QString& word)
{
    const bool shouted = word == word.toUpper();
    QString shown = shouted ? word.toLower() : word;
    if (!shown.isEmpty()) shown[0] = shown[0].toUpper();
    return shown;
}

NameParts::Word wordOf(const QString& token, bool first, const NameTable& table)
{
    NameParts::Word word{.written = token, .key = nameKey(token), .readings = table.readings(token)};
    if (word.readings.isEmpty()) {
        const QString itself = capital(token);
        word.readings << Reading{itself, itself, NameKind::Any, false};
        return word;
    }
    word.known = true;
    std::stable_partition(word.readings.begin(), word.readings.end(),
                          [first](const Reading& reading) { return fits(reading, first); });
    const auto fitting =
        std::ranges::count_if(word.readings, [first](const Reading& each) { return fits(each, first); });
    word.fitting = fitting > 0 ? int(fitting) : int(word.readings.size());
    return word;
}

// A name as it stands: each token with what it is.
struct Piece
{
    enum Kind
    {
        Title,
        Particle,
        Name,
        Aside
    };
    Kind kind;
    QString written;
    NameParts::Word word = {};
};

QString bareOf(const QString& token)
{
    static const QRegularExpression gap(R"(\[(\.\.\.|…)\])");
    QString bare = token;
    if (token.contains(gap)) return bare; // N[...]
    while (!bare.isEmpty() && QStringLiteral(",;:?!()[]{}\"«»").contains(bare.back()))
        bare.chop(1);
    while (!bare.isEmpty() && QStringLiteral("()[]{}\"«»").contains(bare.front()))
        bare.remove(0, 1);
    return bare;
}

// Two words that the table has as one: "La Cerda".
bool areOneWord(const QStringList& tokens, int at, const NameTable& table)
{
    if (at + 1 >= tokens.size()) return false;
    const QList<Reading> together = table.readings(tokens[at] + ' ' + tokens[at + 1]);
    return together.size() == 1 && !together[0].standard.contains(u' ');
}

class Parser
{
public:
    Parser(const QString& name, const NameTable& table) : tokens_(tokensOf(name)), table_(table)
    {
        for (const QString& token : std::as_const(tokens_))
            plains_ << fold::plain(token);
    }

    std::vector<Piece> pieces()
    {
        for (int at = 0; at < tokens_.size(); at += taken_)
            take(at);
        return std::move(pieces_);
    }

private:
    void take(int at)
    {
        taken_ = 1;
        const QString& token = tokens_[at];
        const QString& plain = plains_[at];
        if (const int aside = asideAt(tokens_, plains_, at); aside > 0) {
            taken_ = aside;
            pieces_.push_back({Piece::Aside, QStringList(tokens_.mid(at, aside)).join(' ')});
        } else if (plain.isEmpty()) // "?", "…", a lone hyphen
            pieces_.push_back({Piece::Aside, token});
        else if (!named_ && at + 1 < tokens_.size() && !titleOf(token, plain).isEmpty())
            pieces_.push_back({Piece::Title, titleOf(token, plain)});
        else if ((named_ || isElided(token)) && at + 1 < tokens_.size() && isParticle(token))
            pieces_.push_back(
                {Piece::Particle, token, {.written = token, .key = {}, .readings = {}, .particle = true}});
        else
            name(at);
    }

    void name(int at)
    {
        QString token = bareOf(tokens_[at]);
        if (areOneWord(tokens_, at, table_)) {
            taken_ = 2;
            token += ' ' + bareOf(tokens_[at + 1]);
        }
        pieces_.push_back({Piece::Name, token, wordOf(token, !named_, table_)});
        named_ = true;
    }

    QStringList tokens_;
    QStringList plains_; // each token as names are compared
    const NameTable& table_;
    std::vector<Piece> pieces_;
    int taken_ = 1;
    bool named_ = false;
};

bool isNoName(const QString& name)
{
    static const QSet<QString> articles{"um", "hum", "uma", "huma"}; // "hum pobre que não disse o nome"
    const QString plain = fold::plain(name).simplified();
    return noNames().contains(plain) || articles.contains(plain.section(u' ', 0, 0));
}

QString begun(const QString& name)
{
    static constexpr qsizetype longest = 1000; // of a name; what comes behind it is no name
    return name.left(longest);
}

QString shownWord(const NameParts::Word& word)
{
    return word.fitting == 1 ? word.readings.first().standard : capital(word.written);
}

} // namespace

NameParts partsOf(const QString& name, const NameTable& table)
{
    const Whole whole = wholeOf(begun(name));
    NameParts parts;
    if (isNoName(whole.name)) {
        parts.unknown = true;
        return parts;
    }
    for (Piece& piece : Parser(whole.name, table).pieces()) {
        if (piece.kind == Piece::Title)
            parts.titles << piece.written;
        else if (piece.kind == Piece::Aside)
            parts.asides << piece.written;
        else
            parts.words << std::move(piece.word);
    }
    for (const QString& behind : whole.behind)
        if (const QString title = titleOf(behind, fold::plain(behind));
            !title.isEmpty() && !parts.titles.contains(title))
            parts.titles << title;
        else if (title.isEmpty())
            parts.asides << behind;
    parts.quoted = whole.quoted;
    parts.unknown = std::ranges::all_of(parts.words, [](const NameParts::Word& word) { return word.particle; });
    return parts;
}

QString standardName(const QString& written, const NameTable& table)
{
    const Whole whole = wholeOf(begun(written));
    if (isNoName(whole.name) || written.size() > 1000) return written.trimmed();
    QStringList words;
    for (const Piece& piece : Parser(whole.name, table).pieces()) {
        if (piece.kind == Piece::Particle)
            words << piece.written.toLower();
        else
            words << (piece.kind == Piece::Name ? shownWord(piece.word) : piece.written);
    }
    return words.join(' ').replace("d' ", "d'");
}

bool isSaint(const QString& name)
{
    static const QRegularExpression form("^([oa] )?(glorios[oa] )?(senhora? )?"
                                         "(((nossa|n|na) ?(senhora|snra|sra|s)|virgem)( |$)|"
                                         "(sao|sam|s|santo|sancto|sto|santa|sancta|sta) [a-z])|"
                                         "^(a )?senhora d[aeo]s? ");
    return fold::plain(wholeOf(begun(name)).name).simplified().contains(form);
}

} // namespace study
