#include "views/rtfReader.h"

#include "platform/desktop/codepage.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <utility>

namespace {

// Groups that begin with one of these words hold no text of the pages.
const QSet<QByteArray> destinations{
    "colortbl",     "filetbl", "fonttbl", "footer",  "footerf",    "footerl", "footerr",
    "footnote",     "header",  "headerf", "headerl", "headerr",    "info",    "listtext",
    "nonesttables", "pict",    "pntext",  "rxe",     "stylesheet", "tc",      "xe"};

const QHash<QByteArray, char16_t> characters{
    {"par", u'\n'},   {"line", u'\n'},     {"sect", u'\n'},     {"page", u'\n'},  {"row", u'\n'},   {"nestrow", u'\n'},
    {"cell", u'\t'},  {"nestcell", u'\t'}, {"tab", u'\t'},      {"emdash", u'—'}, {"endash", u'–'}, {"lquote", u'‘'},
    {"rquote", u'’'}, {"ldblquote", u'“'}, {"rdblquote", u'”'}, {"bullet", u'•'},
};

bool isLetter(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

char16_t decoded(char byte)
{
    return fromCodePage(QByteArray(1, byte)).value_or(QChar(QChar::ReplacementCharacter)).at(0).unicode();
}

class Reader
{
public:
    explicit Reader(const QByteArray& bytes) : bytes_(bytes) {}

    RtfText read()
    {
        while (at_ < bytes_.size() && !ended_)
            readToken();
        result_.spans.append({at_, at_, afterWord_});
        return std::move(result_);
    }

private:
    struct Group
    {
        bool shown = true;
        int fallbacks = 1; // how many characters follow a Unicode one for readers that know none
    };

    void readToken()
    {
        begin_ = at_;
        wasAfterWord_ = std::exchange(afterWord_, false);
        switch (const char byte = bytes_[at_++]) {
        case '{':
            groups_.append(Group(group()));
            toSkip_ = 0;
            break;
        case '}':
            if (groups_.size() <= 2) return end();
            groups_.removeLast();
            toSkip_ = 0;
            break;
        case '\\':
            readControl();
            break;
        case '\r':
        case '\n':
            break;
        default:
            add(decoded(byte));
        }
    }

    void end()
    {
        at_ = begin_;
        afterWord_ = wasAfterWord_;
        ended_ = true;
    }

    void readControl()
    {
        if (isLetter(peek())) return readWord();
        switch (const char symbol = take()) {
        case '\'':
            return readHex();
        case '*':
            group().shown = false;
            return;
        case '~':
            return add(u'\u00A0');
        case '_':
            return add(u'\u2011');
        case '\r':
        case '\n':
            return add(u'\n');
        case '\\':
        case '{':
        case '}':
            return add(symbol);
        default: // an optional hyphen and the like
            return;
        }
    }

    void readHex()
    {
        const QByteArray digits = bytes_.mid(at_, 2);
        at_ += digits.size();
        add(decoded(char(digits.toInt(nullptr, 16))));
    }

    void readWord()
    {
        QByteArray word, number;
        while (isLetter(peek()))
            word += take();
        if (peek() == '-') number += take();
        while (isDigit(peek()))
            number += take();
        afterWord_ = peek() != ' ';
        if (!afterWord_) take();

        const int parameter = number.toInt();
        if (word == "u") return addUnicode(char16_t(parameter));
        if (word == "uc")
            group().fallbacks = parameter;
        else if (word == "bin")
            at_ += std::clamp<qsizetype>(parameter, 0, bytes_.size() - at_);
        else if (destinations.contains(word))
            group().shown = false;
        else if (const auto found = characters.constFind(word); found != characters.constEnd())
            add(*found);
    }

    void addUnicode(char16_t code)
    {
        toSkip_ = 0;
        add(code);
        toSkip_ = group().fallbacks;
    }

    void add(char16_t code)
    {
        if (toSkip_ > 0) {
            --toSkip_;
            if (group().shown) result_.spans.last().end = at_;
        } else if (group().shown) {
            result_.text += QChar(code);
            result_.spans.append({begin_, at_, wasAfterWord_});
        }
    }

    Group& group() { return groups_.last(); }
    char peek() const { return at_ < bytes_.size() ? bytes_[at_] : '\0'; }
    char take() { return at_ < bytes_.size() ? bytes_[at_++] : '\0'; }

    const QByteArray& bytes_;
    qsizetype at_ = 0;
    qsizetype begin_ = 0; // of the token that is read
    bool afterWord_ = false;
    bool wasAfterWord_ = false;
    bool ended_ = false;
    int toSkip_ = 0;
    QList<Group> groups_{Group{}}; // the outside of the document, and the groups that are open
    RtfText result_;
};

} // namespace

RtfText readRtf(const QByteArray& bytes)
{
    return Reader(bytes).read();
}
