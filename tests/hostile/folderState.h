// All that stands in a folder, to compare it with later: kinds, targets of links, bytes.
#pragma once

#include <QMap>
#include <QString>

using FolderState = QMap<QString, QByteArray>;

FolderState folderState(const QString& folder);

// What differs, in words; empty where nothing does. Names in `apart` don't count.
QString difference(const FolderState& before, const FolderState& after, const QStringList& apart = {});
