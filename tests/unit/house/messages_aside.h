// What the program tells and the chapter of messages passes over.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace house {

const QStringList& toldAside(); // as messagesOf() gives them

// A message that no source spells in one piece, and a piece by which its source is known to tell it still.
struct Joined
{
    QString text;
    QString file;
    QString piece;
};

const QList<Joined>& joinedAtRunTime();

// Whether the sentences of the file reach the user as messages; elsewhere those that a box or an error takes do.
bool isOfMessages(const QString& file);

} // namespace house
