#include "platform/jet/schemaCheck.h"

#include "platform/jet/errors.h"
#include "platform/jet/schemaWords.h"

#include <QRegularExpression>

#include <sqlite3.h>

#include <algorithm>
#include <initializer_list>
#include <memory>

namespace jet {

namespace {

constexpr qsizetype namedAtMost = 8;
constexpr qsizetype lettersOfAName = 80;

struct Finalize
{
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using OwnedStatement = std::unique_ptr<sqlite3_stmt, Finalize>;

// The rows of one statement over the bare handle.
class Rows
{
public:
    Rows(sqlite3* database, const QString& path, const char* sql) : database_(database), path_(path)
    {
        sqlite3_stmt* prepared = nullptr;
        const int code = sqlite3_prepare_v2(database, sql, -1, &prepared, nullptr);
        statement_.reset(prepared);
        if (code != SQLITE_OK) throw engineError(database, code, path);
    }

    void bind(const QString& text)
    {
        const QByteArray utf8 = text.toUtf8();
        sqlite3_bind_text(statement_.get(), 1, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
    }
    bool next()
    {
        const int code = sqlite3_step(statement_.get());
        if (code != SQLITE_ROW && code != SQLITE_DONE) throw engineError(database_, code, path_);
        return code == SQLITE_ROW;
    }
    int number(int column) const { return sqlite3_column_int(statement_.get(), column); }
    QString text(int column) const
    {
        const auto* utf8 = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
        return QString::fromUtf8(utf8, sqlite3_column_bytes(statement_.get(), column));
    }

private:
    sqlite3* database_;
    const QString& path_;
    OwnedStatement statement_;
};

bool isAmong(const QString& word, std::initializer_list<const char*> words)
{
    return std::any_of(words.begin(), words.end(), [&](const char* each) { return word == QLatin1String(each); });
}

// Between quotes in a box, whatever it is.
QString shown(QString name)
{
    for (QChar& letter : name)
        if (!letter.isPrint()) letter = u' ';
    if (name.size() > lettersOfAName) name = name.left(lettersOfAName) + QStringLiteral("...");
    return u'"' + name + u'"';
}

// Cheap ones that give the same for the same row: what stands in a schema runs in the middle of a statement, and no key
// can end it. trim() looks for each letter of one text in another one.
bool isFunctionOfASchema(const QString& name)
{
    return isAmong(name, {"length", "date", "typeof", "abs", "coalesce", "ifnull", "nullif", "iif", "lower", "upper",
                          "substr", "substring", "round", "min", "max", "time", "datetime", "julianday"});
}

// Words of the engine's language that a parenthesis may follow.
bool opensGroup(const QString& word)
{
    return isAmong(word,
                   {"check", "default", "and",  "or",    "not", "in",     "between", "is",     "then",     "when",
                    "else",  "case",    "cast", "where", "key", "unique", "collate", "escape", "distinct", "from"});
}

class SchemaCheck
{
public:
    SchemaCheck(sqlite3* database, const QString& path, const OwnTables& own)
        : database_(database), path_(path), own_(own)
    {
    }

    void run()
    {
        QStringList tables;
        Rows rows(database_, path_, "select name, tbl_name, sql from sqlite_master");
        while (rows.next()) {
            const SchemaItem item(rows.text(2));
            check(rows.text(0), rows.text(1), item);
            if (item.kind == SchemaItem::Table && own_.contains(rows.text(0))) tables << rows.text(0);
        }
        for (const QString& table : tables)
            checkColumns(table);
        refuse();
    }

private:
    // The engine itself sees to it that a row is of the kind and the name that it tells.
    void check(const QString& name, const QString& table, const SchemaItem& item)
    {
        switch (item.kind) {
        case SchemaItem::Trigger:
            if (own_.contains(table) || touches(item))
                add(QStringLiteral("o gatilho (trigger) %1 da tabela %2").arg(shown(name), shown(table)));
            break;
        case SchemaItem::View:
            if (own_.contains(name) || touches(item)) add(QStringLiteral("a vista (view) %1").arg(shown(name)));
            break;
        case SchemaItem::VirtualTable:
            if (own_.contains(name) || own_.contains(name + u'_') || touches(item))
                add(QStringLiteral("a tabela virtual %1").arg(shown(name)));
            break;
        case SchemaItem::Table:
        case SchemaItem::Index:
            if (own_.contains(name) || own_.contains(table) || touches(item)) checkExpressions(table, item);
            if (item.kind == SchemaItem::Table && own_.contains(name)) checkRows(name, item);
            break;
        case SchemaItem::Other: // the index of a key has no text
            if (!item.words.empty()) add(QStringLiteral("no esquema, %1").arg(shown(name)));
            break;
        }
    }

    // A name may stand between any quotes, even those of a text, and the text of a virtual table's argument is read by
    // its module.
    bool touches(const SchemaItem& item) const
    {
        static const QRegularExpression between(QStringLiteral("\\W+"));
        return std::any_of(item.words.begin(), item.words.end(), [&](const SchemaWord& word) {
            if (word.kind == SchemaWord::Symbol) return false;
            if (own_.contains(word.text)) return true;
            if (word.kind != SchemaWord::Quoted) return false;
            const QStringList parts = word.text.split(between);
            return std::any_of(parts.begin(), parts.end(), [&](const QString& part) { return own_.contains(part); });
        });
    }

    void checkExpressions(const QString& table, const SchemaItem& item)
    {
        const auto& words = item.words;
        int end =
            item.kind == SchemaItem::Index ? int(words.size()) : 0; // an index is one expression from its table on
        for (int i = 0; i + 1 < int(words.size()); ++i) {
            const bool group = words[i + 1].text == u"(";
            if (group && words[i].kind == SchemaWord::Name && isAmong(words[i].text, {"check", "default"}))
                end = std::max(end, closing(words, i + 1));
            if (i >= end || words[i].kind == SchemaWord::Symbol) continue;
            const bool tableOfIndex = item.kind == SchemaItem::Index && i > 0 && words[i - 1].text == u"on";
            const bool called = group && !tableOfIndex && !opensGroup(words[i].text) &&
                                !(i > 0 && words[i - 1].text == u"as") && !isFunctionOfASchema(words[i].text);
            const bool matching = words[i].kind == SchemaWord::Name &&
                                  isAmong(words[i].text, {"like", "glob", "regexp", "match", "raise"});
            if (called || matching)
                add(QStringLiteral("a expressão com %1 na tabela %2").arg(shown(words[i].text), shown(table)));
        }
    }

    // A statement that breaks a rule is refused, and nothing else: no row goes for another one, and none is left out.
    void checkRows(const QString& table, const SchemaItem& item)
    {
        const auto stand = [&](size_t at, const char* first, const char* second) {
            return at + 1 < item.words.size() && item.words[at].kind == SchemaWord::Name &&
                   item.words[at + 1].kind == SchemaWord::Name && item.words[at].text == QLatin1String(first) &&
                   item.words[at + 1].text == QLatin1String(second);
        };
        for (size_t i = 0; i < item.words.size(); ++i) {
            if (stand(i, "on", "conflict") && !stand(i + 1, "conflict", "abort"))
                add(QStringLiteral("a regra \"on conflict\" da tabela %1").arg(shown(table)));
            if (stand(i, "without", "rowid")) add(QStringLiteral("a tabela sem rowid %1").arg(shown(table)));
        }
    }

    static int closing(const std::vector<SchemaWord>& words, int open)
    {
        int depth = 0;
        for (int i = open; i < int(words.size()); ++i) {
            if (words[i].kind != SchemaWord::Symbol) continue;
            depth += words[i].text == u"(" ? 1 : words[i].text == u")" ? -1 : 0;
            if (depth == 0) return i;
        }
        return int(words.size());
    }

    void checkColumns(const QString& table)
    {
        Rows columns(database_, path_, "select name, hidden from pragma_table_xinfo(?)");
        columns.bind(table);
        while (columns.next()) {
            const QString name = columns.text(0);
            if (columns.number(1) != 0)
                add(QStringLiteral("a coluna calculada %1 da tabela %2").arg(shown(name), shown(table)));
            else if (isAmong(name.toLower(), {"rowid", "oid", "_rowid_"}))
                add(QStringLiteral("a coluna %1 da tabela %2").arg(shown(name), shown(table)));
        }
    }

    void add(const QString& problem)
    {
        if (!problems_.contains(problem)) problems_ << problem;
    }

    void refuse() const
    {
        if (problems_.isEmpty()) return;
        QString list = problems_.mid(0, namedAtMost).join(QStringLiteral("; "));
        if (problems_.size() > namedAtMost) list += QStringLiteral("; e mais %1").arg(problems_.size() - namedAtMost);
        throw Error{number::engineFailure,
                    QStringLiteral("O ficheiro \"%1\" não foi aberto, porque tem o que uma BDP não pode ter: %2.")
                        .arg(path_, list)};
    }

    sqlite3* database_;
    const QString& path_;
    const OwnTables& own_;
    QStringList problems_;
};

} // namespace

bool OwnTables::contains(const QString& table) const
{
    if (names.isEmpty() && prefix.isEmpty()) return true;
    return (!prefix.isEmpty() && table.startsWith(prefix, Qt::CaseInsensitive)) ||
           names.contains(table, Qt::CaseInsensitive);
}

void requireHarmlessSchema(sqlite3* database, const QString& path, const OwnTables& own)
{
    SchemaCheck(database, path, own).run();
}

} // namespace jet
