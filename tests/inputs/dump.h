// Every row of a BDP, read through a connection of the harness's own.
#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

struct sqlite3;

struct Value
{
    bool null = true;
    QString text; // as the engine gives it; a whole number has no decimal point

    bool operator==(const Value&) const = default;
    QString told() const;
};

struct Row
{
    QMap<QString, Value> columns; // by their names in small letters
    bool operator==(const Row&) const = default;
};

struct Change
{
    QString table;
    qint64 rowid;
    const Row* before; // null: the row is new
    const Row* after;  // null: the row has gone

    QString told() const;
};

// What the program keeps for itself (tables "estudo_...") isn't in it.
struct Dump
{
    QString schema;
    QMap<QString, QMap<qint64, Row>> tables;
};

// Precondition: both outlive the changes.
QList<Change> changes(const Dump& before, const Dump& after);

class Store
{
public:
    explicit Store(const QString& path); // throws Failure
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    Dump dump() const; // throws Failure

private:
    sqlite3* db_ = nullptr;
};
