// A connection to a file with every guard of the engine off: who makes a hostile file has one, and the verdict reads
// through one what the program has left.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

struct sqlite3;

// What a table held: its columns, and the fingerprint of each row, sorted. Tables that can't be read aren't in it.
struct TableDump
{
    QStringList columns;
    QList<QByteArray> rows;
};
using Dump = QMap<QString, TableDump>;

class Raw
{
public:
    enum class Way
    {
        Write,     // makes the file where it is missing
        Untouched, // reads what stands in the file itself: no lock, no journal
    };

    explicit Raw(const QString& path, Way way = Way::Write);
    ~Raw();
    Raw(const Raw&) = delete;
    Raw& operator=(const Raw&) = delete;

    // False where a statement fails; those before it have been done.
    bool run(const QString& sql);
    // The first column of the rows; what came before an error.
    QStringList texts(const QString& sql);
    QString text(const QString& sql) { return texts(sql).value(0); }

    // All tables, in the columns of `like` where that is given.
    Dump dump(const Dump& like = {});

private:
    bool read(const QString& table, TableDump& dump);

    sqlite3* handle_ = nullptr;
};

// A name as a statement has it.
QString asName(QString name);
// A text as a statement has it.
QString asText(QString text);
