// What the user chose last in a window, for the next time: of the user, and of no BDP.
#pragma once

#include <QString>
#include <QVariant>

namespace Desktop {

// By names such as "exportar/formato". What can't be kept is forgotten without a word.
QVariant lastChoice(const QString& name, const QVariant& otherwise = {});
void keepChoice(const QString& name, const QVariant& value);

// The user's documents, or their home where the desktop has no such folder.
QString documentsFolder();

// Where a file was last written or read; the user's documents before that, or where it has gone.
QString lastFolder();
void keepFolder(const QString& folder);

} // namespace Desktop
