#include "study/packageRules.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>

namespace package {

namespace {

bool matches(const QString& text, const char* pattern)
{
    return QRegularExpression(QString("^(?:%1)$").arg(pattern)).match(text).hasMatch();
}

QStringList namesIn(const QJsonValue& value)
{
    if (value.isString()) return {value.toString()};
    QStringList names;
    for (const QJsonValue one : value.toArray())
        names << one.toString();
    return names;
}

// Which constraints a type may have, beside required, unique and enum.
bool canHave(const QString& type, const QString& constraint)
{
    static const QStringList all{"required", "unique", "enum"}, lengths{"minLength", "maxLength"},
        bounds{"minimum", "maximum"};
    if (all.contains(constraint)) return true;
    if (constraint == "pattern") return type == "string";
    if (lengths.contains(constraint)) return QStringList{"string", "array", "object"}.contains(type);
    return bounds.contains(constraint) &&
           QStringList{"integer", "number", "date", "time", "datetime", "year", "yearmonth"}.contains(type);
}

bool canHaveFormat(const QString& type, const QString& format)
{
    if (format == "default") return true;
    if (type == "string") return QStringList{"email", "uri", "binary", "uuid"}.contains(format);
    if (type == "date" || type == "time" || type == "datetime") return format == "any" || format.contains(u'%');
    return type == "geopoint" ? format == "array" || format == "object" : type == "geojson" && format == "topojson";
}

class Rules
{
public:
    QStringList of(const QByteArray& description)
    {
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(description, &error);
        if (error.error != QJsonParseError::NoError || !document.isObject()) return {"is no object of JSON"};
        const QJsonObject package = document.object();
        checkPackage(package);
        const QJsonArray resources = package["resources"].toArray();
        for (qsizetype i = 0; i < resources.size(); ++i)
            checkResource(QString("resources[%1]").arg(i), resources[i].toObject());
        for (qsizetype i = 0; i < resources.size(); ++i)
            checkForeignKeys(QString("resources[%1].schema").arg(i), resources[i].toObject());
        return faults_;
    }

private:
    void expect(bool holds, const QString& what)
    {
        if (!holds) faults_ << what;
    }
    void expectText(const QJsonObject& of, const QString& where, const QStringList& keys)
    {
        for (const QString& key : keys)
            expect(!of.contains(key) || of[key].isString(), where + '.' + key + ": is no text");
    }
    void expectName(const QJsonObject& of, const QString& where)
    {
        expect(matches(of["name"].toString(), "[-a-z0-9._/]+"), where + ".name: " + of["name"].toString());
    }

    void checkPackage(const QJsonObject& package)
    {
        expect(package["profile"] == "tabular-data-package", "profile");
        expectName(package, "package");
        expectText(package, "package", {"title", "description", "id", "homepage", "version", "image", "created"});
        expect(!package.contains("created") ||
                   matches(package["created"].toString(),
                           "\\d{4}-\\d{2}-\\d{2}T\\d{2}:\\d{2}:\\d{2}(?:\\.\\d+)?(?:Z|[+-]\\d{2}:\\d{2})"),
               "created: is no time of RFC 3339");
        expect(package["resources"].isArray() && !package["resources"].toArray().isEmpty(), "resources: there is none");
        checkSources("sources", package);
        if (package.contains("licenses")) {
            expect(!package["licenses"].toArray().isEmpty(), "licenses: there is none");
            for (const QJsonValue one : package["licenses"].toArray())
                expect(one["name"].isString() || one["path"].isString(), "licenses: neither name nor path");
        }
    }

    void checkSources(const QString& where, const QJsonObject& of)
    {
        expect(!of.contains("sources") || of["sources"].isArray(), where + ": is no list");
        for (const QJsonValue one : of["sources"].toArray()) {
            expect(!one["title"].toString().isEmpty(), where + ": without a title");
            expect(!one.toObject().contains("path") || isPath(one["path"].toString()), where + ": the path");
        }
    }

    // Within the folder of the package, below it, not hidden in any way.
    static bool isPath(const QString& path)
    {
        return !path.isEmpty() && !path.startsWith(u'/') && !path.startsWith(u'~') && !path.contains(u'\\') &&
               !path.contains(u':') && !path.split(u'/').contains("..");
    }

    void checkResource(const QString& where, const QJsonObject& resource)
    {
        expect(resource["profile"] == "tabular-data-resource", where + ".profile");
        expectName(resource, where);
        expect(!names_.contains(resource["name"].toString()), where + ".name: is there twice");
        expect(!paths_.contains(resource["path"].toString()), where + ".path: is there twice");
        names_.insert(resource["name"].toString());
        paths_.insert(resource["path"].toString());
        expect(resource["path"].isString() && isPath(resource["path"].toString()), where + ".path");
        expect(!resource.contains("data"), where + ".data: beside a path");
        expectText(resource, where, {"title", "description", "format", "mediatype", "encoding", "hash"});
        expect(!resource.contains("mediatype") || matches(resource["mediatype"].toString(), "[^/]+/[^/]+"),
               where + ".mediatype");
        expect(!resource.contains("bytes") || (resource["bytes"].isDouble() && resource["bytes"].toInteger(-1) >= 0),
               where + ".bytes");
        expect(!resource.contains("hash") || matches(resource["hash"].toString(), "[^:]+:[a-fA-F0-9]+|[a-fA-F0-9]{32}"),
               where + ".hash");
        checkSources(where + ".sources", resource);
        checkDialect(where + ".dialect", resource["dialect"].toObject());
        expect(resource["schema"].isObject(), where + ".schema: there is none");
        checkSchema(where + ".schema", resource["schema"].toObject());
        columns_[resource["name"].toString()] = columnsOf(resource["schema"].toObject());
    }

    void checkDialect(const QString& where, const QJsonObject& dialect)
    {
        static const QStringList texts{"delimiter",  "lineTerminator", "quoteChar",
                                       "escapeChar", "nullSequence",   "commentChar"};
        static const QStringList flags{"doubleQuote", "skipInitialSpace", "header", "caseSensitiveHeader"};
        for (const QString& key : dialect.keys())
            expect(texts.contains(key)   ? dialect[key].isString()
                   : flags.contains(key) ? dialect[key].isBool()
                                         : key == "csvddfVersion",
                   where + '.' + key);
        for (const char* const one : {"delimiter", "quoteChar", "escapeChar"})
            expect(!dialect.contains(one) || dialect[one].toString().size() == 1, where + '.' + one + ": is no letter");
        expect(!(dialect.contains("quoteChar") && dialect.contains("escapeChar")),
               where + ": letters are told apart in two ways");
    }

    static QStringList columnsOf(const QJsonObject& schema)
    {
        QStringList names;
        for (const QJsonValue field : schema["fields"].toArray())
            names << field["name"].toString();
        return names;
    }

    void checkSchema(const QString& where, const QJsonObject& schema)
    {
        const QJsonArray fields = schema["fields"].toArray();
        expect(!fields.isEmpty(), where + ".fields: there is none");
        const QStringList names = columnsOf(schema);
        expect(QSet<QString>(names.begin(), names.end()).size() == names.size(), where + ".fields: one is there twice");
        for (qsizetype i = 0; i < fields.size(); ++i)
            checkField(QString("%1.fields[%2]").arg(where).arg(i), fields[i].toObject());
        for (const QJsonValue one : schema["missingValues"].toArray())
            expect(one.isString(), where + ".missingValues: is no text");
        expect(!schema.contains("missingValues") || schema["missingValues"].isArray(), where + ".missingValues");
        if (!schema.contains("primaryKey")) return;
        const QStringList key = namesIn(schema["primaryKey"]);
        expect(!key.isEmpty(), where + ".primaryKey: there is none");
        for (const QString& name : key)
            expect(names.contains(name), where + ".primaryKey: is no field: " + name);
    }

    void checkField(const QString& where, const QJsonObject& field)
    {
        static const QStringList types{"string",    "number",   "integer",  "boolean",  "object",
                                       "array",     "date",     "time",     "datetime", "year",
                                       "yearmonth", "duration", "geopoint", "geojson",  "any"};
        const QString type = field["type"].toString("string");
        expect(!field["name"].toString().isEmpty(), where + ".name: there is none");
        expect(types.contains(type), where + ".type: " + type);
        expectText(field, where, {"title", "description", "rdfType", "format"});
        expect(canHaveFormat(type, field["format"].toString("default")), where + ".format");
        for (const char* const words : {"trueValues", "falseValues"})
            if (field.contains(words)) {
                expect(type == "boolean", where + '.' + words + ": of no boolean");
                expect(!field[words].toArray().isEmpty(), where + '.' + words + ": there is none");
                for (const QJsonValue one : field[words].toArray())
                    expect(one.isString(), where + '.' + words + ": is no text");
            }
        for (const char* const letter : {"decimalChar", "groupChar"})
            expect(!field.contains(letter) || (type == "number" && field[letter].isString()), where + '.' + letter);
        expect(!field.contains("bareNumber") || type == "number" || type == "integer", where + ".bareNumber");
        expect(!field.contains("constraints") || field["constraints"].isObject(), where + ".constraints");
        checkConstraints(where + ".constraints", field["constraints"].toObject(), type);
    }

    void checkConstraints(const QString& where, const QJsonObject& constraints, const QString& type)
    {
        for (const QString& key : constraints.keys())
            expect(canHave(type, key), where + '.' + key + ": not of " + type);
        for (const char* const flag : {"required", "unique"})
            expect(!constraints.contains(flag) || constraints[flag].isBool(), where + '.' + flag);
        if (!constraints.contains("enum")) return;
        const QJsonArray words = constraints["enum"].toArray();
        expect(!words.isEmpty(), where + ".enum: there is none");
        for (qsizetype i = 0; i < words.size(); ++i) {
            expect(type != "string" || words[i].isString(), where + ".enum: is no text");
            for (qsizetype j = 0; j < i; ++j)
                expect(words[i] != words[j], where + ".enum: one is there twice");
        }
    }

    void checkForeignKeys(const QString& where, const QJsonObject& resource)
    {
        const QJsonObject schema = resource["schema"].toObject();
        const QString own = resource["name"].toString();
        expect(!schema.contains("foreignKeys") || !schema["foreignKeys"].toArray().isEmpty(), where + ".foreignKeys");
        for (const QJsonValue key : schema["foreignKeys"].toArray()) {
            const QJsonObject reference = key["reference"].toObject();
            const QString other = reference["resource"].toString();
            expect(reference["resource"].isString(), where + ".foreignKeys: without a resource");
            expect(other != own, where + ".foreignKeys: the resource itself is \"\"");
            expect(other.isEmpty() || names_.contains(other), where + ".foreignKeys: no resource " + other);
            expect(key["fields"].isString() == reference["fields"].isString(), where + ".foreignKeys: one and several");
            const QStringList from = namesIn(key["fields"]), to = namesIn(reference["fields"]);
            expect(!from.isEmpty() && from.size() == to.size(), where + ".foreignKeys: of different lengths");
            for (const QString& name : from)
                expect(columns_[own].contains(name), where + ".foreignKeys: is no field: " + name);
            for (const QString& name : to)
                expect(columns_[other.isEmpty() ? own : other].contains(name),
                       where + ".foreignKeys: is no field of " + other + ": " + name);
        }
    }

    QStringList faults_ = {};
    QSet<QString> names_ = {}, paths_ = {};
    QHash<QString, QStringList> columns_ = {};
};

} // namespace

QStringList faultsOf(const QByteArray& description)
{
    return Rules().of(description);
}

} // namespace package
