#include "study/report/files.h"

#include "platform/jet/draft.h"
#include "study/report/sheet.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <nlohmann/json.hpp>

#include <memory>
#include <optional>
#include <system_error>

namespace study::report {

namespace {

using Json = nlohmann::ordered_json;

const QString packageName = QStringLiteral("datapackage.json");
const QString ownName = QStringLiteral("orv-estudo"); // how the name of each package of ours begins
const char* const profile = "tabular-data-package";
constexpr qsizetype longestName = 100;
constexpr qint64 largestPackage = 64 << 20; // bytes of a description that is read back

std::string utf8(const QString& given)
{
    return given.toStdString();
}

void put(Json& json, const char* key, const QString& given)
{
    if (!given.isEmpty()) json[key] = utf8(given);
}

QString hashOf(const QByteArray& bytes)
{
    return "sha256:" + QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

QString slug(const QString& given)
{
    return identifier(given).replace('_', '-');
}

QString moment(const QDateTime& when)
{
    return when.isValid() ? when.toUTC().toString(Qt::ISODate) : QString();
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

Json resourceOf(const Section& section, const Table& table, const Sheet& sheet, const QString& name,
                const ReportFile& file)
{
    Json resource{{"profile", "tabular-data-resource"}};
    put(resource, "name", name);
    put(resource, "path", file.name);
    put(resource, "title", table.title);
    put(resource, "description", descriptionOf(section, table));
    resource["format"] = "csv";
    resource["mediatype"] = "text/csv";
    resource["encoding"] = "utf-8";
    resource["bytes"] = qint64(file.bytes.size());
    put(resource, "hash", hashOf(file.bytes));
    resource["dialect"] = {
        {"delimiter", ","}, {"lineTerminator", "\n"}, {"quoteChar", "\""}, {"doubleQuote", true}, {"header", true}};
    resource["schema"] = schemaOf(sheet);
    return resource;
}

Json sourceOf(const parish::Source& source)
{
    Json json;
    put(json, "title", "BDP " + QFileInfo(source.path).fileName() + ", SHA-256 " + source.sha256);
    put(json, "file", source.path); // a "path" would have to lie in the package
    put(json, "hash", "sha256:" + source.sha256);
    json["bytes"] = source.bytes;
    put(json, "read", moment(source.readAt));
    return json;
}

Json packageOf(const Report& report, const Json& resources)
{
    Json package{{"profile", profile}};
    const QString of = slug(report.parishCode.isEmpty() ? report.parish : report.parishCode);
    put(package, "name", of.isEmpty() ? ownName : ownName + '-' + of);
    put(package, "title", report.parish.isEmpty() ? report.title : report.title + " – " + report.parish);
    put(package, "created", moment(report.made));
    put(package, "generator", report.program);
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

QString textAt(const Json& json, const char* key)
{
    const auto found = json.is_object() ? json.find(key) : json.end();
    return found != json.end() && found->is_string() ? QString::fromStdString(found->get<std::string>()) : QString();
}

std::optional<QByteArray> bytesOf(const QString& path, qint64 most)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > most) return {};
    return file.readAll();
}

// The files of a package of ours that the folder holds, with the hash that each was written with. The description
// stands for itself.
QHash<QString, QString> packagedIn(const QDir& folder)
{
    const auto bytes = bytesOf(folder.filePath(packageName), largestPackage);
    const Json package = bytes ? Json::parse(bytes->begin(), bytes->end(), nullptr, false) : Json();
    if (textAt(package, "profile") != profile || !textAt(package, "name").startsWith(ownName)) return {};
    QHash<QString, QString> packaged{{packageName, hashOf(*bytes)}};
    const auto resources = package.find("resources");
    if (resources == package.end() || !resources->is_array()) return packaged;
    for (const Json& resource : *resources)
        packaged.insert(textAt(resource, "path"), textAt(resource, "hash"));
    return packaged;
}

// Nothing, where the file may be written over or isn't there; otherwise why not.
QString objectionTo(const QDir& folder, const QString& name, const QHash<QString, QString>& packaged)
{
    const QFileInfo there(folder.filePath(name));
    if (!there.exists() && !there.isSymLink()) return {};
    if (!there.isFile()) return "há outra coisa com esse nome";
    if (!packaged.contains(name)) return "não foi escrito por um estudo";
    QFile file(there.filePath());
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file)) return "não se deixa ler";
    const bool same = packaged[name] == "sha256:" + QString::fromLatin1(hash.result().toHex());
    return same ? QString() : QString("foi alterado depois de escrito");
}

void checkRoom(const std::vector<ReportFile>& files, const QDir& folder)
{
    if (!folder.exists())
        throw jet::Error(jet::number::pathNotFound, "A pasta não existe: " + QDir::toNativeSeparators(folder.path()));
    const QHash<QString, QString> packaged = packagedIn(folder);
    for (const ReportFile& file : files)
        if (const QString objection = objectionTo(folder, file.name, packaged); !objection.isEmpty())
            throw jet::Error(jet::number::fileExists,
                             QString("O ficheiro %1 já existe e %2. Escolha outra pasta, ou tire-o de lá.")
                                 .arg(QDir::toNativeSeparators(folder.filePath(file.name)), objection));
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

void takeName(jet::Draft& draft, const QString& path)
{
    QFileInfo::exists(path) ? draft.replace() : draft.place();
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
                files.push_back({name + ".csv", csvOf(sheet)});
                resources.push_back(resourceOf(section, *table, sheet, name, files.back()));
            }
    const std::string package = packageOf(report, resources).dump(2);
    files.push_back({packageName, QByteArray::fromStdString(package) + '\n'});
    return files;
}

void writeFiles(const std::vector<ReportFile>& files, const QString& folder)
{
    const QDir dir(folder);
    checkRoom(files, dir);
    std::vector<std::unique_ptr<jet::Draft>> drafts;
    drafts.reserve(files.size());
    for (const ReportFile& file : files)
        drafts.push_back(drafted(dir.filePath(file.name), file.bytes));
    for (std::size_t i = 0; i < files.size(); ++i)
        takeName(*drafts[i], dir.filePath(files[i].name));
}

void writeWhole(const QString& path, const QByteArray& bytes)
{
    takeName(*drafted(path, bytes), path);
}

} // namespace study::report
