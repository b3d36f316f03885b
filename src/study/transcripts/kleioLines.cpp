#include "study/transcripts/kleioText.h"

#include <QRegularExpression>

namespace study::kleio {

namespace {

// Whether a text between three quotes is open behind the line.
bool staysOpen(const QString& line, bool open)
{
    static const QString quotes = "\"\"\"";
    for (qsizetype at = line.indexOf(quotes); at >= 0; at = line.indexOf(quotes, at + quotes.size()))
        open = !open;
    return open;
}

int width(const QString& blanks)
{
    static constexpr int tab = 8;
    int columns = 0;
    for (const QChar blank : blanks)
        columns = blank == '\t' ? (columns / tab + 1) * tab : columns + 1;
    return columns;
}

// The lines of a file become groups, not taken apart yet.
class Lines
{
public:
    explicit Lines(Groups& read) : read_(read) {}

    void add(const QString& line)
    {
        static const QRegularExpression head(R"(^(\s*)(\p{L}[\p{L}\p{N}_.\-]*)\$)");
        ++number_;
        const bool wasOpen = open_;
        open_ = staysOpen(line, open_);
        if (open_ && !wasOpen) openedAt_ = number_;
        if (wasOpen) {
            read_.groups.last().body += '\n' + line;
        } else if (const auto match = head.match(line); match.hasMatch()) {
            read_.groups << Group{folded(match.captured(2)), width(match.captured(1)), number_,
                                  line.mid(match.capturedEnd())};
        } else if (!line.trimmed().isEmpty()) {
            goOn(line.trimmed());
        }
    }

    void end()
    {
        if (!open_) return;
        read_.problems << Problem{openedAt_, "O texto entre três aspas que aqui começa não acaba.",
                                  Problem::Severity::Error};
    }

private:
    void goOn(const QString& text)
    {
        if (!read_.groups.isEmpty()) {
            read_.groups.last().body += ' ' + text;
            return;
        }
        read_.problems << Problem{number_, "Há texto antes do primeiro grupo: " + text.left(40),
                                  Problem::Severity::Error};
        open_ = false;
    }

    Groups& read_;
    int number_ = 0;
    bool open_ = false;
    int openedAt_ = 0;
};

} // namespace

Groups groupsOf(const QString& text)
{
    Groups read;
    Lines lines(read);
    for (const QString& line : text.split('\n'))
        lines.add(line);
    lines.end();
    for (Group& group : read.groups)
        group.elements = elementsOf(group.body, group.line, read.problems);
    return read;
}

} // namespace study::kleio
