// A BDP of its own for each test.
#pragma once

#include "platform/jet/connection.h"
#include "platform/jet/recordset.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace jet::test {

class TestBdp : public testing::Test
{
protected:
    TestBdp();

    QString path(const QString& name = QStringLiteral("a.orv")) const { return folder_.filePath(name); }
    QString folder() const { return folder_.path(); }

    // With values, a statement is one of the engine's own SQL.
    int run(const char* statement, const QVariantList& values = {});
    Recordset select(const char* statement, const QVariantList& values = {});

    // What a tool other than this program does to the file, however it is guarded here.
    static void outside(const QString& file, const char* sql);
    void outside(const char* sql) { outside(path(), sql); }

    // The rows from the current one on: fields with "|" between them, rows with blanks; nulls are "-".
    static std::string rows(Recordset& set);
    std::string rows(const char* statement, const QVariantList& values = {});

private:
    QTemporaryDir folder_;

protected:
    Connection bdp;
};

// A TestBdp with the tables of a new BDP and a small parish in them.
class ParishBdp : public TestBdp
{
protected:
    ParishBdp();

    struct Query
    {
        const char* statement;
        const char* rows;
        QVariantList values = {};
    };
    // Each statement gives its rows.
    void expectRows(std::initializer_list<Query> queries);

    struct Change
    {
        const char* statement;
        int rows;          // how many it alters
        const char* check; // a query, and
        const char* then;  // what it gives afterwards
        QVariantList values = {};
    };
    // Each statement alters its rows; it is rolled back before the next one.
    void expectChanges(std::initializer_list<Change> changes);

    // Each statement is refused with the number.
    void expectErrors(long number, std::initializer_list<const char*> statements);
};

// The error that the call throws; number 0 where it throws none.
template <typename Call>
Error errorOf(Call call)
{
    try {
        call();
    } catch (const Error& error) {
        return error;
    }
    return {};
}
template <typename Call>
long numberOf(Call call)
{
    return errorOf(call).number;
}

} // namespace jet::test
