#include "study/exchange_tables.h"
#include "study/packageRules.h"

#include "platform/desktop/desktop.h"
#include "platform/jet/nativesql.h"
#include "store/modBD.h"

#include <QCryptographicHash>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSet>

#include <sqlite3.h>

#include <utility>

using namespace study::exchange;

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

ExchangedTables::ExchangedTables()
{
    Desktop::setProgramFolder(ORV_DATA_DIR);
    EscreveBDP(folder.filePath("a.orv"));
    bdp.open(folder.filePath("a.orv"));
    sqlite3_exec(bdp.handle(), "pragma synchronous = off", nullptr, nullptr, nullptr);
    QDir().mkdir(tables());
}

ExchangedTables::~ExchangedTables()
{
    Desktop::setProgramFolder({});
}

void ExchangedTables::run(const char* statement, const QVariantList& values)
{
    bdp.execute(jet::NativeSql(statement, values));
}

void ExchangedTables::runRaw(const char* statements) const
{
    sqlite3* database = nullptr;
    sqlite3_open(folder.filePath("a.orv").toUtf8().constData(), &database);
    char* message = nullptr;
    EXPECT_EQ(sqlite3_exec(database, statements, nullptr, nullptr, &message), SQLITE_OK) << message;
    sqlite3_free(message);
    sqlite3_close(database);
}

TablesWritten ExchangedTables::write(const Options& options)
{
    return exportTables(bdp, tables(), options);
}

TablesRead ExchangedTables::read(bool rehearse)
{
    QFile::remove(made());
    return importTables(tables(), made(), rehearse);
}

void ExchangedTables::expectTheSameBdp(const Options& options)
{
    write(options);
    const TablesRead back = read();
    for (const TableProblem& error : back.errors)
        ADD_FAILURE() << qPrintable(error.file) << ':' << error.line << ": " << qPrintable(error.text);
    const QStringList before = exchanged::everything(folder.filePath("a.orv")), after = exchanged::everything(made());
    for (qsizetype i = 0; i < std::max(before.size(), after.size()); ++i) {
        ASSERT_EQ(before.value(i).left(2000), after.value(i).left(2000));
        ASSERT_EQ(before.value(i), after.value(i));
    }
}

QByteArray ExchangedTables::file(const QString& name) const
{
    return contentOf(QDir(tables()).filePath(name));
}

void ExchangedTables::put(const QString& name, const QByteArray& bytes) const
{
    QFile out(QDir(tables()).filePath(name));
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(bytes);
}

QJsonObject ExchangedTables::package() const
{
    return QJsonDocument::fromJson(file("datapackage.json")).object();
}

QJsonObject ExchangedTables::resource(const QString& name) const
{
    for (const QJsonValue one : package()["resources"].toArray())
        if (one["name"] == name) return one.toObject();
    return {};
}

namespace exchanged {

QStringList everything(const QString& bdp)
{
    QStringList all;
    sqlite3* database = nullptr;
    sqlite3_open_v2(bdp.toUtf8().constData(), &database, SQLITE_OPEN_READONLY, nullptr);
    const auto rows = [&](const QString& select) {
        QStringList told;
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database, select.toUtf8().constData(), -1, &statement, nullptr);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            QString row;
            for (int i = 0; i < sqlite3_column_count(statement); ++i) {
                const int type = sqlite3_column_type(statement, i);
                const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, i));
                const QByteArray value(bytes, sqlite3_column_bytes(statement, i));
                const bool plain = type != SQLITE_BLOB && value.isValidUtf8() && !value.contains('\0');
                row += QString("|%1:%2").arg(type).arg(QString::fromUtf8(plain ? value : value.toHex()));
            }
            told << row;
        }
        sqlite3_finalize(statement);
        return told;
    };
    const QString ours = "where name not like 'estudo\\_nome%' escape '\\' and name not like 'sqlite%'";
    all << rows("select type, name, sql from sqlite_master " + ours + " order by type, name");
    for (const QString& table : rows("select name from sqlite_master " + ours + " and type = 'table' order by name"))
        for (const QString& row : rows("select rowid, * from " + table.mid(3) + " order by rowid"))
            all << table + row;
    sqlite3_close(database);
    return all;
}

QString letters()
{
    static const QString all = [] {
        QString made = "€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ";
        for (char16_t c = 0x20; c <= 0xFF; ++c)
            if (c < 0x7F || c >= 0xA0) made += QChar(c);
        return made + QString::fromUtf8("ĀęŁşαЖאعक中あ한ṽḿ😀𝛼e\xCC\x81\xEF\xBB\xBF\xE2\x80\xA8\xEF\xBF\xBE");
    }();
    return all;
}

QString anyText(std::mt19937& random)
{
    static const QStringList beginnings{"", "", "=", "+", "-", "@", "'", "'=", "\t", "\r", "\"", "\"\"", " ", ";", ","};
    static const QStringList middles{"",     "",    "\"", "\"\"", "\n",    "\r\n",     "\r", ",",
                                     ";",    "\t",  "'",  "\\",   "null",  "''",       "{}", " ",
                                     "0012", "1e3", "#",  "\n\n", "\",\"", "a,b\"c\nd"};
    const auto any = [&](qsizetype count) { return std::uniform_int_distribution<qsizetype>(0, count - 1)(random); };
    QString text = beginnings[any(beginnings.size())];
    for (qsizetype parts = any(4); parts > 0; --parts) {
        // Whole characters: half a surrogate is none.
        const QList<uint> characters = letters().toUcs4();
        for (qsizetype left = any(5); left > 0; --left) {
            const uint character = characters[any(characters.size())];
            text += QString::fromUcs4(reinterpret_cast<const char32_t*>(&character), 1);
        }
        text += middles[any(middles.size())];
    }
    return text;
}

QList<QStringList> cells(const QByteArray& csv, char separator)
{
    QList<QStringList> rows;
    QStringList row;
    QByteArray cell;
    bool quoted = false, wasQuoted = false;
    for (qsizetype i = 0; i < csv.size(); ++i) {
        const char c = csv[i];
        if (quoted && c == '"' && i + 1 < csv.size() && csv[i + 1] == '"') {
            cell += c;
            ++i;
        } else if (c == '"') {
            quoted = !quoted;
            wasQuoted = true;
        } else if (!quoted && (c == separator || c == '\n')) {
            if (c == '\n' && cell.endsWith('\r')) cell.chop(1);
            row << (cell.isEmpty() && wasQuoted ? QString("\"\"") : QString::fromUtf8(cell));
            cell.clear();
            wasQuoted = false;
            if (c == '\n') rows << std::exchange(row, {});
        } else {
            cell += c;
        }
    }
    EXPECT_TRUE(row.isEmpty() && cell.isEmpty() && !quoted) << "it ends with a whole row";
    return rows;
}

namespace {

// What a reader of the format takes for nothing.
bool isMissing(const QString& cell)
{
    return cell.isEmpty() || cell == "\"\"";
}

bool isDate(const QString& cell, const QString& format)
{
    static const QRegularExpression iso("^\\d{4}-\\d{2}-\\d{2}$"), ours("^\\d{2}/\\d{2}/\\d{4}$");
    if (format == "default") return iso.match(cell).hasMatch() && QDate::fromString(cell, Qt::ISODate).isValid();
    return format == "%d/%m/%Y" && ours.match(cell).hasMatch() && QDate::fromString(cell, "dd/MM/yyyy").isValid();
}

bool fits(QString cell, const QJsonObject& field)
{
    static const QRegularExpression whole("^-?\\d+$"), number("^-?\\d+(\\.\\d+)?(e[+-]?\\d+)?$");
    const QString type = field["type"].toString();
    if (type == "string") return true;
    if (type == "integer") return whole.match(cell).hasMatch();
    if (field.contains("decimalChar")) {
        if (cell.contains(u'.')) return false;
        cell.replace(field["decimalChar"].toString(), ".");
    }
    if (type == "number") return number.match(cell).hasMatch();
    if (type == "boolean")
        return field["trueValues"].toArray().contains(cell) || field["falseValues"].toArray().contains(cell);
    return type == "date" && isDate(cell, field["format"].toString("default"));
}

QStringList namesIn(const QJsonValue& value)
{
    if (value.isString()) return {value.toString()};
    QStringList names;
    for (const QJsonValue one : value.toArray())
        names << one.toString();
    return names;
}

class Check
{
public:
    Check(const QString& folder, bool ours) : folder_(folder), ours_(ours) {}

    QStringList run()
    {
        const QJsonObject package = QJsonDocument::fromJson(contentOf(path("datapackage.json"))).object();
        expect(package["profile"] == "tabular-data-package", "the profile");
        expectName(package["name"].toString());
        for (const QJsonValue resource : package["resources"].toArray())
            checkFile(resource.toObject());
        for (const QJsonValue resource : package["resources"].toArray())
            checkForeignKeys(resource.toObject());
        return faults_;
    }

private:
    QString path(const QString& name) const { return QDir(folder_).filePath(name); }
    void expect(bool holds, const QString& what)
    {
        if (!holds && faults_.size() < 20) faults_ << what;
    }
    void expectName(const QString& name)
    {
        static const QRegularExpression allowed("^[-a-z0-9._/]+$");
        expect(allowed.match(name).hasMatch(), "the name " + name);
    }

    void checkFile(const QJsonObject& resource)
    {
        const QString name = resource["name"].toString();
        expect(!ours_ || (resource["description"].isString() && resource["description_en"].isString()),
               name + ": a description");
        const QByteArray bytes = contentOf(path(resource["path"].toString()));
        expectName(name);
        expect(!rows_.contains(name), name + " is there twice");
        expect(resource["profile"] == "tabular-data-resource", name + ": the profile");
        expect(!resource["path"].toString().contains('/'), name + ": the path");
        expect(resource["bytes"].toInteger() == bytes.size(), name + ": the bytes");
        expect(resource["hash"] ==
                   "sha256:" + QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex()),
               name + ": the hash");
        expect(resource["encoding"] == "utf-8" && bytes.isValidUtf8(), name + ": the encoding");
        const QJsonObject dialect = resource["dialect"].toObject();
        static const QByteArray mark = "\xEF\xBB\xBF";
        const QByteArray text = bytes.startsWith(mark) ? bytes.mid(mark.size()) : bytes;
        QList<QStringList> rows = cells(text, dialect["delimiter"].toString(",").at(0).toLatin1());
        const bool isCrLf = dialect["lineTerminator"] == "\r\n";
        expect(isCrLf == text.endsWith("\r\n"), name + ": the ends of the lines");
        const QStringList header = rows.takeFirst();
        const QJsonArray fields = resource["schema"]["fields"].toArray();
        QStringList names;
        for (const QJsonValue field : fields) {
            names << field["name"].toString();
            expect(!ours_ || (field["description"].isString() && field["description_en"].isString()),
                   name + ": a description");
        }
        expect(names == header, name + ": the headings");
        for (int i = 0; i < int(fields.size()); ++i)
            checkColumn(name, fields[i].toObject(), rows, i);
        rows_[name] = rows;
        headers_[name] = header;
        checkKey(name, namesIn(resource["schema"]["primaryKey"]));
    }

    void checkColumn(const QString& name, const QJsonObject& field, const QList<QStringList>& rows, int at)
    {
        const QString of = name + '.' + field["name"].toString();
        const QJsonObject constraints = field["constraints"].toObject();
        QSet<QString> seen;
        for (const QStringList& row : rows) {
            const QString cell = row.value(at);
            expect(row.size() > at, of + ": a short row");
            if (isMissing(cell)) {
                expect(!constraints["required"].toBool(), of + ": an empty cell");
                continue;
            }
            expect(fits(cell, field), of + ": " + cell);
            expect(!constraints.contains("enum") || constraints["enum"].toArray().contains(cell),
                   of + ": the word " + cell);
            expect(!constraints["unique"].toBool() || !seen.contains(cell), of + ": twice " + cell);
            seen.insert(cell);
        }
    }

    QStringList tuple(const QString& name, const QStringList& row, const QStringList& columns) const
    {
        QStringList all;
        for (const QString& column : columns)
            all << row.value(headers_[name].indexOf(column));
        return all;
    }

    void checkKey(const QString& name, const QStringList& key)
    {
        expect(!ours_ || !key.isEmpty(), name + ": no key");
        if (key.isEmpty()) return;
        QSet<QStringList> seen;
        for (const QStringList& row : std::as_const(rows_[name])) {
            const QStringList value = tuple(name, row, key);
            for (const QString& cell : value)
                expect(!isMissing(cell), name + ": half a key");
            expect(!seen.contains(value), name + ": twice the key " + value.join(','));
            seen.insert(value);
        }
    }

    void checkForeignKeys(const QJsonObject& resource)
    {
        const QString name = resource["name"].toString();
        for (const QJsonValue key : resource["schema"]["foreignKeys"].toArray()) {
            const QString told = key["reference"]["resource"].toString(), other = told.isEmpty() ? name : told;
            QSet<QStringList> known;
            for (const QStringList& row : std::as_const(rows_[other]))
                known.insert(tuple(other, row, namesIn(key["reference"]["fields"])));
            for (const QStringList& row : std::as_const(rows_[name])) {
                const QStringList value = tuple(name, row, namesIn(key["fields"]));
                expect(isMissing(value.first()) || known.contains(value),
                       name + ": " + key["fields"].toString() + " leads nowhere: " + value.join(','));
            }
        }
    }

    QString folder_;
    bool ours_; // all tables of a BDP: with keys, in two languages
    QStringList faults_;
    QMap<QString, QList<QStringList>> rows_;
    QMap<QString, QStringList> headers_;
};

} // namespace

QStringList faultsOf(const QString& folder)
{
    return package::faultsOf(contentOf(QDir(folder).filePath("datapackage.json"))) + Check(folder, true).run();
}

QStringList faultsOfAny(const QString& folder)
{
    return package::faultsOf(contentOf(QDir(folder).filePath("datapackage.json"))) + Check(folder, false).run();
}

} // namespace exchanged
