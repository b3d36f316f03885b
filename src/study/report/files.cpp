#include "study/report/files.h"

#include "platform/jet/draft.h"
#include "study/report/dataPackage.h"
#include "study/report/packageFiles.h"
#include "study/report/sheet.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <memory>
#include <system_error>

namespace study::report {

namespace {

using Json = PackageJson;

constexpr qsizetype longestName = 100;

QString slug(const QString& given)
{
    return identifier(given).replace('_', '-');
}

const char* typeOf(SheetColumn::Kind kind)
{
    switch (kind) {
    case SheetColumn::Kind::Whole:
        return "integer";
    case SheetColumn::Kind::Number:
        return "number";
    case SheetColumn::Kind::Text:
        break;
    }
    return "string";
}

Json schemaOf(const Sheet& sheet)
{
    Json fields = Json::array();
    for (const SheetColumn& column : sheet.columns) {
        Json field;
        put(field, "name", column.name);
        field["type"] = typeOf(column.kind);
        put(field, "title", column.title);
        put(field, "unit", column.unit);
        put(field, "description", column.described);
        fields.push_back(field);
    }
    return {{"fields", fields}, {"missingValues", Json::array({""})}};
}

// What is told of a table: its subject, how it was made, its notes.
QString descriptionOf(const Section& section, const Table& table)
{
    QStringList told{section.title, section.method};
    told << table.notes;
    told.removeAll(QString());
    return told.join('\n');
}

Json described(const Report& report, const Json& resources)
{
    Json package = packageOf(report.parishCode.isEmpty() ? report.parish : report.parishCode,
                             report.parish.isEmpty() ? report.title : report.title + " – " + report.parish,
                             report.program, report.made);
    package["sources"] = Json::array();
    for (const parish::Source& source : report.sources)
        package["sources"].push_back(sourceOf(source));
    package["settings"] = Json::array();
    for (const Told& setting : report.settings)
        package["settings"].push_back({{"name", utf8(setting.name)}, {"value", utf8(setting.value)}});
    package["resources"] = resources;
    return package;
}

QString resourceName(const Section& section, const Table& table, QSet<QString>& taken)
{
    const QString subject = slug(section.id), own = slug(table.id);
    const QString wanted = QString("%1-%2").arg(subject.isEmpty() ? "estudo" : subject, own.isEmpty() ? "quadro" : own);
    QString name = wanted.left(longestName);
    for (int next = 2; taken.contains(name); ++next)
        name = wanted.left(longestName) + '-' + QString::number(next);
    taken.insert(name);
    return name;
}

// A draft that holds the bytes.
std::unique_ptr<jet::Draft> drafted(const QString& path, const QByteArray& bytes)
{
    auto draft = std::make_unique<jet::Draft>(path);
    QFile file(draft->path());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        throw jet::writeError(std::make_error_code(std::errc::no_space_on_device), path);
    return draft;
}

} // namespace

std::vector<ReportFile> filesOf(const Report& report)
{
    std::vector<ReportFile> files;
    Json resources = Json::array();
    QSet<QString> taken;
    for (const Chapter& chapter : report.chapters)
        for (const Section& section : chapter.sections)
            for (const Figure& figure : section.figures) {
                const auto* table = std::get_if<Table>(&figure);
                if (!table || table->columns.empty()) continue;
                const Sheet sheet = sheetOf(*table);
                const QString name = resourceName(section, *table, taken);
                const QByteArray csv = csvOf(sheet);
                files.push_back({name + ".csv", csv});
                resources.push_back(resourceOf({.name = name,
                                                .path = name + ".csv",
                                                .title = table->title,
                                                .description = descriptionOf(section, *table),
                                                .bytes = csv.size(),
                                                .hash = hashOf(csv)},
                                               schemaOf(sheet)));
            }
    files.push_back({packageFile, bytesOf(described(report, resources))});
    return files;
}

void writeFiles(const std::vector<ReportFile>& files, const QString& folder)
{
    PackageFiles package(folder);
    for (const ReportFile& file : files)
        package.add(file.name, file.bytes);
    package.place();
}

void writeWhole(const QString& path, const QByteArray& bytes)
{
    takeName(*drafted(path, bytes), path);
}

} // namespace study::report
