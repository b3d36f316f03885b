// How a message on the screen finds its entry in the manual.
#pragma once

#include <QList>
#include <QString>

namespace help {

// An entry of the manual that explains a message. In the title "…" stands for what changes, and for nothing, too:
// "Já existe o código …".
struct MessageEntry
{
    QString id;
    QString title;
};

// The id of the entry whose title says what a box shows; empty where none does. Letters and digits are compared:
// capitals, accents, signs and line breaks make no difference. A title has to be the whole text or whole lines of it,
// since a box may put its own line before the message, as that of an error does. Where more than one is, the one with
// the most letters of its own counts, and of those that are alike the first.
QString messageEntry(const QString& shown, const QList<MessageEntry>& entries);

} // namespace help
