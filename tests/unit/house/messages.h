// A reader of the sources that gathers what the program tells its user, and of the chapter that explains it.
#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

namespace house {

struct Message
{
    QString file;
    int line;
    QString text; // on one line, with "…" for each piece that is put in at run time
};

// Functions whose texts are told, and what they put before one that begins with a small letter.
using Takers = QMap<QString, QString>;

enum class Read
{
    Sentences, // the arguments of takers, and what reads as a sentence wherever it stands: so none is lost by way of a
               // constant or a function
    Taken      // the arguments of takers alone
};

// The messages that one file of source spells. Pieces joined by "+" and places ("%1") are "…"; of a choice ("a ? b :
// c") each branch is one. An argument of one word in small letters is a key, and no message.
QList<Message> messagesOf(const QString& file, const QString& source, const Takers& takers,
                          Read what = Read::Sentences);

// The words of a message without what the eye passes over: capitals, signs, and a "…" at either end.
QString wordsOf(const QString& message);

// An entry of the chapter: "### "Text" {#msg-slug .mensagem}", and what is written below it.
struct Entry
{
    QString id;
    QString text;
    QString explanation;
};

QList<Entry> entriesOf(const QString& chapter);

// What speaks against the chapter: messages that it lacks, as "file:line: text", entries that no source tells any
// more, and texts of `aside` that no source tells or the chapter explains after all.
QStringList disagreements(const QList<Message>& messages, const QList<Entry>& entries, const QStringList& aside);

} // namespace house
