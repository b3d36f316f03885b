#include "house/tutorial.h"

#include <QList>
#include <QMap>
#include <QRegularExpression>

#include <algorithm>

namespace house {

namespace {

// What a step of the text tells, and what a step of the scenario does.
struct Told
{
    QString title;
    QString words = {}; // the text without its boxes
};

struct Played
{
    QString title;
    QStringList texts = {};    // all that stands in quotes
    QStringList done = {};     // typed, chosen or pressed
    QStringList captions = {}; // of what was clicked, as it was last seen to be called
    QStringList pictures = {};
};

QStringList matches(const QString& pattern, const QString& text)
{
    static const auto options = QRegularExpression::DotMatchesEverythingOption;
    QStringList found;
    for (auto it = QRegularExpression(pattern, options).globalMatch(text); it.hasNext();)
        found << it.next().captured(1).simplified();
    return found;
}

QString asOnScreen(const QString& text)
{
    return QString(text).remove('&').replace("\\n", " ").simplified();
}

QList<Told> told(const QString& pages)
{
    static const QRegularExpression heading(R"(^##? (.*?)\s*(\{.*\})?$)");
    static const QRegularExpression markup("^</?(?!kbd)");
    static const QString code = "Passo ";
    QList<Told> steps;
    bool inStep = false, inBox = false;
    for (const QString& line : pages.split('\n')) {
        if (const auto match = heading.match(line); match.hasMatch()) {
            inStep = match.captured(1).startsWith(code);
            if (inStep) steps << Told{match.captured(1)};
        }
        if (line.startsWith("!!!"))
            inBox = true;
        else if (!line.isEmpty() && !line.startsWith("    "))
            inBox = false;
        if (inStep && !inBox && !markup.match(line).hasMatch()) steps.last().words += line + '\n';
    }
    return steps;
}

class ScenarioReader
{
public:
    QList<Played> run(const QString& scenario)
    {
        static const QString mark = "# Passo ";
        for (const QString& line : scenario.split('\n')) {
            if (line.startsWith(mark)) steps_ << Played{line.mid(2)};
            if (!line.startsWith('#') && !steps_.isEmpty()) read(line);
        }
        return steps_;
    }

private:
    void read(const QString& line)
    {
        static const QRegularExpression typing(
            R"re(^(?:type|enter|paste|choose) \S+ "(.*)"$|^pick "(.*)"$|^key (.*)$)re");
        static const QRegularExpression caption(R"re(^expect (?:frmORV\.)?(\S+) "(.*)"$)re");
        static const QRegularExpression click(R"(^(?:click|menu) (\S+)$)");
        Played& step = steps_.last();
        const bool wasInTree = inTree_;
        inTree_ = wasInTree ? line != "end" : line.endsWith(" nodes");
        if (wasInTree) step.texts << line.simplified();
        if (wasInTree || line.startsWith("expect sql ")) return;
        if (line.startsWith("shot ")) {
            step.pictures += matches(R"re("(.*)")re", line);
            return;
        }
        for (const QString& text : matches(R"re("((?:[^"\\]|\\.)*)")re", line))
            step.texts << asOnScreen(text);
        if (const auto match = typing.match(line); match.hasMatch())
            step.done << QString(match.captured(1) + match.captured(2) + match.captured(3)).remove("{dir}/");
        if (const auto match = caption.match(line); match.hasMatch())
            captions_[match.captured(1)] = asOnScreen(match.captured(2));
        if (const auto match = click.match(line); match.hasMatch() && captions_.contains(match.captured(1)))
            step.captions << captions_.value(match.captured(1));
    }

    QList<Played> steps_;
    QMap<QString, QString> captions_;
    bool inTree_ = false;
};

// A part of a longer text counts where it is long enough to be no chance.
bool stands(const QString& quoted, const QStringList& texts)
{
    constexpr int telling = 8;
    return texts.contains(quoted) ||
           (quoted.size() >= telling &&
            std::any_of(texts.begin(), texts.end(), [&](const QString& text) { return text.contains(quoted); }));
}

// <kbd>Alt</kbd>+<kbd>1</kbd> as `Alt+1`.
QString withKeysAsCode(QString words)
{
    return words.replace("</kbd>+<kbd>", "+")
        .replace("<kbd>↓", "<kbd>Down")
        .replace(QRegularExpression("</?kbd>"), "`");
}

QStringList without(const QStringList& all, const QStringList& some, const QString& what)
{
    QStringList missing;
    for (const QString& one : all)
        if (!some.contains(one)) missing << QString("%1: \"%2\"").arg(what, one);
    missing.removeDuplicates();
    return missing;
}

QStringList differencesIn(const Told& told, const Played& played)
{
    static const QRegularExpression picture(R"(!\[[^\]]*\]\([^)]*\))");
    static const QRegularExpression code("`[^`]*`");
    const QStringList pictures = matches(R"(!\[[^\]]*\]\(imagens/([^)]*)\))", told.words);
    const QString words = withKeysAsCode(QString(told.words).remove(picture));
    const QStringList typed = matches("`([^`]*)`", words);
    const QStringList quoted = matches(R"re("([^"]*)")re", QString(words).remove(code));
    QStringList all = without(typed, played.done, "told to type, but not typed") +
                      without(played.done, typed, "typed, but not told") +
                      without(played.captions, quoted, "clicked, but not told") +
                      without(pictures, played.pictures, "a picture that isn't taken") +
                      without(played.pictures, pictures, "a picture that isn't shown");
    for (const QString& text : quoted)
        if (!stands(text, played.texts)) all << QString("told, but not seen: \"%1\"").arg(text);
    for (QString& difference : all)
        difference.prepend(told.title + ": ");
    return all;
}

} // namespace

QStringList differences(const QString& pages, const QString& scenario)
{
    const QList<Told> text = told(pages);
    const QList<Played> played = ScenarioReader().run(scenario);
    QStringList all;
    for (qsizetype i = 0; i < std::max(text.size(), played.size()); ++i) {
        const Told step = text.value(i);
        const Played doneThen = played.value(i);
        const QString here = step.title, there = doneThen.title;
        if (here != there || !here.startsWith(QString("Passo %1. ").arg(i + 1)))
            return all << QString("step %1: the text has \"%2\", the scenario \"%3\"").arg(i + 1).arg(here, there);
        all += differencesIn(step, doneThen);
    }
    return all;
}

} // namespace house
