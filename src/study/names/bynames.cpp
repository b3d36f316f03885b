// Titles, and what tells namesakes apart.
#include "study/names/fold.h"
#include "study/names/lexicon.h"
#include "study/names/names.h"

#include <QHash>
#include <QRegularExpression>

namespace study {

namespace {

constexpr int longestByname = 3; // words: what is longer tells something

// "Velho", "velha" and "maior" are one, and so are "novo", "moço" and "menor".
QString ofOneTag(const QString& word)
{
    static const QHash<QString, QString> same{{"velha", "velho"}, {"maior", "velho"}, {"nova", "novo"},
                                              {"moco", "novo"},   {"moca", "novo"},   {"menor", "novo"}};
    return same.value(word, word);
}

void add(QStringList& all, const QString& key)
{
    if (!key.isEmpty() && !all.contains(key)) all << key;
}

QStringList wordsOf(const QString& text)
{
    return fold::plain(text).split(u' ', Qt::SkipEmptyParts);
}

bool beginsWithArticle(const QStringList& words)
{
    return words.size() > 1 && (words[0] == QLatin1String("o") || words[0] == QLatin1String("a"));
}

QString keyOf(QStringList words)
{
    if (beginsWithArticle(words)) words.removeFirst();
    if (words.size() > longestByname) return {};
    return ofOneTag(words.join(u' '));
}

} // namespace

QStringList titleKeys(const QString& text)
{
    static const QRegularExpression blanks("\\s+");
    QStringList keys;
    for (const QString& word : text.split(blanks, Qt::SkipEmptyParts)) {
        if (lexicon::particles().contains(word)) continue;
        const QString plain = fold::plain(word);
        const QString key = fold::plain(lexicon::titles().value(plain, plain));
        add(keys, key == QLatin1String("dom") || key == QLatin1String("dona") ? QStringLiteral("d") : key);
    }
    return keys;
}

QStringList bynameKeys(const QString& nickname)
{
    static const QRegularExpression between("[,;/]|\\bou\\b");
    QStringList keys;
    for (const QString& one : nickname.split(between))
        add(keys, keyOf(wordsOf(one)));
    return keys;
}

QStringList bynameKeys(const NameParts& name)
{
    QStringList keys;
    for (const QString& aside : name.asides) {
        const QStringList words = wordsOf(aside);
        if (beginsWithArticle(words) || (words.size() == 1 && isTag(words[0]))) add(keys, keyOf(words));
    }
    for (const QString& quoted : name.quoted)
        add(keys, keyOf(wordsOf(quoted)));
    return keys;
}

bool isTag(const QString& key)
{
    return lexicon::tags().contains(key);
}

} // namespace study
