// What the program tells and the chapter of messages passes over.
#pragma once

#include <QString>
#include <QStringList>

namespace house {

const QStringList& toldAside(); // as messagesOf() gives them

// Whether the texts of the file reach the user as messages.
bool isOfMessages(const QString& file);

} // namespace house
