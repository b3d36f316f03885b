#include "platform/jet/schemaWords.h"

#include <algorithm>

namespace jet {

namespace {

// Between two words. To the engine the mark of a byte order is a blank there, and no other character beyond ASCII is.
bool isBlank(QChar c)
{
    constexpr QChar byteOrderMark(0xfeff);
    return c == byteOrderMark || (c.unicode() <= 127 && c.isSpace());
}

bool belongsToWord(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c == u'$' || c.unicode() > 127;
}

class Reader
{
public:
    explicit Reader(const QString& sql) : s_(sql) {}

    std::vector<SchemaWord> run()
    {
        while (at_ < s_.size())
            readOne();
        return std::move(words_);
    }

private:
    bool startsWith(const char* text) const { return QStringView(s_).mid(at_).startsWith(QLatin1String(text)); }

    void readOne()
    {
        const QChar c = s_[at_];
        if (isBlank(c))
            ++at_;
        else if (startsWith("--"))
            skipTo(s_.indexOf(u'\n', at_), 1);
        else if (startsWith("/*"))
            skipTo(s_.indexOf(QLatin1String("*/"), at_ + 2), 2);
        else if (c == u'\'' || c == u'"' || c == u'`' || c == u'[')
            readQuoted(c == u'[' ? u']' : c);
        else if (belongsToWord(c))
            readWord();
        else
            add(SchemaWord::Symbol, s_[at_++]);
    }

    void skipTo(qsizetype end, qsizetype length) { at_ = end < 0 ? s_.size() : end + length; }

    void readWord()
    {
        const auto begin = at_;
        while (at_ < s_.size() && belongsToWord(s_[at_]))
            ++at_;
        add(SchemaWord::Name, s_.mid(begin, at_ - begin));
    }

    void readQuoted(QChar closing)
    {
        QString text;
        for (++at_; at_ < s_.size(); ++at_) {
            if (s_[at_] == closing && (closing == u']' || at_ + 1 >= s_.size() || s_[at_ + 1] != closing)) {
                ++at_;
                break;
            }
            if (s_[at_] == closing) ++at_;
            text += s_[at_];
        }
        add(SchemaWord::Quoted, text);
    }

    void add(SchemaWord::Kind kind, const QString& text) { words_.push_back({kind, text.toLower()}); }

    const QString& s_;
    qsizetype at_ = 0;
    std::vector<SchemaWord> words_;
};

} // namespace

std::vector<SchemaWord> schemaWords(const QString& sql)
{
    return Reader(sql).run();
}

SchemaItem::SchemaItem(const QString& sql) : words(schemaWords(sql))
{
    size_t at = 0;
    const auto takes = [&](const char* word) {
        const bool stands =
            at < words.size() && words[at].kind == SchemaWord::Name && words[at].text == QLatin1String(word);
        at += stands ? 1 : 0;
        return stands;
    };
    if (!takes("create")) return;
    if (takes("virtual")) {
        if (takes("table")) kind = VirtualTable;
    } else if (takes("table")) {
        kind = Table;
    } else if (takes("view")) {
        kind = View;
    } else if (takes("trigger")) {
        kind = Trigger;
    } else if (takes("unique"), takes("index")) {
        kind = Index;
    }
}

} // namespace jet
