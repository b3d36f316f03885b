// The description of files in a tabular data package (datapackage.json).
#pragma once

#include "study/parish/source.h"
#include "study/report/csv.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <nlohmann/json.hpp>

namespace study::report {

using PackageJson = nlohmann::ordered_json; // in the order in which it is filled

inline constexpr auto packageProfile = "tabular-data-package";
inline constexpr auto besideResources = "files"; // its list of files that aren't tables: path, title, bytes, hash
inline const QString packageFile = QStringLiteral("datapackage.json");
inline const QString ownPackage = QStringLiteral("orv-estudo"); // how the name of each package of ours begins

std::string utf8(const QString& given);
// Nothing is put for an empty text.
void put(PackageJson& json, const char* key, const QString& given);
QString textAt(const PackageJson& json, const char* key); // "" where there is none

// A description that stands while the files of a package take their names (packageFiles.h).
inline constexpr auto unfinishedMark = "unfinished";
bool isUnfinished(const PackageJson& package);

// What a package tells of itself; `of` is the parish or its code. Without `made` it doesn't tell when.
PackageJson packageOf(const QString& of, const QString& title, const QString& generator, const QDateTime& made);

// The state of a BDP that it was made from. Without `readAt` it isn't told when.
PackageJson sourceOf(const parish::Source& source);

struct PackagedFile
{
    QString name = {}; // a to z, 0 to 9, "-", "." and "_"
    QString path = {}; // in the folder of the package
    QString title = {};
    QString description = {};
    QString english = {}; // the description once more
    qint64 bytes = 0;
    QString hash = {}; // "sha256:…"
    CsvForm form = {};
};
PackageJson resourceOf(const PackagedFile& file, const PackageJson& schema);
PackageJson besideOf(const PackagedFile& file); // that isn't a table

QByteArray bytesOf(const PackageJson& package);

} // namespace study::report
