#include "step.h"

#include "failure.h"

#include <QHash>
#include <QRegularExpression>

namespace {

struct Word
{
    QString text;
    bool isText = false;
};

// The words of a line. Throws Failure where it isn't well-formed.
QList<Word> split(const QString& line)
{
    static const QHash<QChar, QChar> escapes{{'"', '"'}, {'\\', '\\'}, {'r', '\r'}, {'n', '\n'}, {'|', '|'}};
    QList<Word> words;
    for (qsizetype i = 0; i < line.size();) {
        if (line[i].isSpace()) {
            ++i;
            continue;
        }
        Word word;
        word.isText = line[i] == '"';
        if (!word.isText) {
            while (i < line.size() && !line[i].isSpace() && line[i] != '"')
                word.text += line[i++];
        } else {
            for (++i; i < line.size() && line[i] != '"'; ++i) {
                if (line[i] != '\\') {
                    word.text += line[i];
                    continue;
                }
                if (++i >= line.size() || !escapes.contains(line[i])) fail("unknown escape in a text");
                word.text += escapes[line[i]];
            }
            if (i++ >= line.size()) fail("a text without its closing quote");
        }
        if (i < line.size() && !line[i].isSpace()) fail("a blank is missing beside a text");
        words.append(word);
    }
    return words;
}

bool isOfKind(const Word& word, const QString& kind)
{
    static const QHash<QString, QRegularExpression> kinds{
        {"NUMBER", QRegularExpression(R"(^-?\d{1,9}$)")},
        {"CONTROL", QRegularExpression(R"(^\w+\.\w+(\(\d+\))?$)")},
        {"NAME", QRegularExpression(R"(^\w+$)")},
        {"MENU", QRegularExpression(R"(^(frmORV\.)?\w+$)")},
        {"CELL", QRegularExpression(R"(^\*$)")},
        {"KEY", QRegularExpression(R"(^\S+$)")},
        {"STATE", QRegularExpression("^(enabled|disabled|visible|hidden|locked|open|checked|unchecked|focused)$")},
        {"FORMSTATE", QRegularExpression("^(loaded|unloaded|shown|hidden|enabled|disabled|active)$")},
        {"ICON", QRegularExpression("^(none|information|question|critical)$")},
    };
    if (word.isText) return kind == "TEXT" || kind == "CELL" || kind == "KEY";
    const auto found = kinds.constFind(kind);
    return found != kinds.cend() && found->match(word.text).hasMatch();
}

// A form of the language, taken to pieces.
struct Form
{
    explicit Form(const QString& text) : parts(text.split(' '))
    {
        if (parts.last() == "...") parts.removeLast();
        several = parts.last().endsWith('+');
        if (several) parts.last().chop(1);
    }

    bool fits(const Word& word, qsizetype place) const
    {
        if (place >= parts.size() && !several) return false;
        const QString& part = parts[qMin(place, parts.size() - 1)];
        return part[0].isLower() ? !word.isText && word.text == part : isOfKind(word, part);
    }

    // How many words from the first on fit.
    qsizetype fitting(const QList<Word>& words) const
    {
        qsizetype count = 0;
        while (count < words.size() && fits(words[count], count))
            ++count;
        return count;
    }

    QList<Operand> operands(const QList<Word>& words) const
    {
        QList<Operand> operands;
        for (qsizetype i = 0; i < words.size(); ++i)
            if (!parts[qMin(i, parts.size() - 1)][0].isLower()) operands.append({words[i].text, words[i].isText});
        return operands;
    }

    QStringList parts;
    bool several = false;
};

} // namespace

Step parseStep(const QString& line, const QList<FormOfStep>& forms)
{
    const QList<Word> words = split(line);
    QStringList nearest;
    qsizetype most = 0;
    for (int i = 0; i < forms.size(); ++i) {
        const Form form(forms[i].text);
        const qsizetype fitting = form.fitting(words);
        if (fitting == words.size() && fitting >= form.parts.size()) return {0, i, form.operands(words), {}, {}};
        if (fitting > most) nearest.clear();
        most = qMax(most, fitting);
        if (fitting == most && most > 0) nearest.append(forms[i].text);
    }
    if (nearest.isEmpty()) fail("unknown step " + quoted(words.first().text));
    fail("this step can't be read; its form is: " + nearest.join(" | "));
}

bool opensWith(const QString& line, const QString& word)
{
    return line == word || line.startsWith(word + ' ') || line.startsWith(word + '"');
}

QString onlyText(const QString& line, const QString& reason)
{
    const QList<Word> words = split(line);
    if (words.size() != 2 || !words[1].isText) fail(reason);
    return words[1].text;
}

QString quoted(const QString& text)
{
    QString out = text;
    out.replace('\\', "\\\\").replace('"', "\\\"").replace('\r', "\\r").replace('\n', "\\n");
    return '"' + out + '"';
}
