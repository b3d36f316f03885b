#include "study/report/dataPackage.h"

#include "study/report/sheet.h"

#include <QFileInfo>

namespace study::report {

namespace {

QString moment(const QDateTime& when)
{
    return when.isValid() ? when.toUTC().toString(Qt::ISODate) : QString();
}

} // namespace

std::string utf8(const QString& given)
{
    return given.toStdString();
}

void put(PackageJson& json, const char* key, const QString& given)
{
    if (!given.isEmpty()) json[key] = utf8(given);
}

QString textAt(const PackageJson& json, const char* key)
{
    const auto found = json.is_object() ? json.find(key) : json.end();
    return found != json.end() && found->is_string() ? QString::fromStdString(found->get<std::string>()) : QString();
}

bool isUnfinished(const PackageJson& package)
{
    return package.is_object() && package.contains(unfinishedMark);
}

PackageJson packageOf(const QString& of, const QString& title, const QString& generator, const QDateTime& made)
{
    PackageJson package{{"profile", packageProfile}};
    const QString slug = identifier(of).replace('_', '-');
    put(package, "name", slug.isEmpty() ? ownPackage : ownPackage + '-' + slug);
    put(package, "title", title);
    put(package, "created", moment(made));
    put(package, "generator", generator);
    return package;
}

PackageJson sourceOf(const parish::Source& source)
{
    PackageJson json;
    put(json, "title", "BDP " + QFileInfo(source.path).fileName() + ", SHA-256 " + source.sha256);
    put(json, "file", source.path); // a "path" would have to lie in the package
    put(json, "hash", "sha256:" + source.sha256);
    json["bytes"] = source.bytes;
    put(json, "read", moment(source.readAt));
    return json;
}

PackageJson resourceOf(const PackagedFile& file, const PackageJson& schema)
{
    PackageJson resource{{"profile", "tabular-data-resource"}};
    put(resource, "name", file.name);
    put(resource, "path", file.path);
    put(resource, "title", file.title);
    put(resource, "description", file.description);
    put(resource, "description_en", file.english);
    resource["format"] = "csv";
    resource["mediatype"] = "text/csv";
    resource["encoding"] = "utf-8";
    resource["bytes"] = file.bytes;
    put(resource, "hash", file.hash);
    resource["dialect"] = {{"delimiter", std::string(1, file.form.separator)},
                           {"lineTerminator", file.form.lineEnd.toStdString()},
                           {"quoteChar", "\""},
                           {"doubleQuote", true},
                           {"header", true}};
    resource["schema"] = schema;
    return resource;
}

PackageJson besideOf(const PackagedFile& file)
{
    PackageJson json;
    put(json, "path", file.path);
    put(json, "title", file.title);
    put(json, "description", file.description);
    json["bytes"] = file.bytes;
    put(json, "hash", file.hash);
    return json;
}

QByteArray bytesOf(const PackageJson& package)
{
    return QByteArray::fromStdString(package.dump(2)) + '\n';
}

} // namespace study::report
