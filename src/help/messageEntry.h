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

inline constexpr int fewestLetters = 8; // a title with fewer of its own would say too many messages

// The id of the entry whose title says what a box shows; empty where none does. Letters and digits are compared:
// capitals, accents, signs and line breaks make no difference. A title has to be one or more whole sentences or lines
// of the text, the first of which may begin behind a colon: a box may put its own words before the message, as that of
// an error does. Where more than one is, those count first that don't lead to something else by a "…" at their end,
// then that with the most letters of its own, and of those that are alike the first. Read are the first 60 parts of a
// text.
QString messageEntry(const QString& shown, const QList<MessageEntry>& entries);

} // namespace help
