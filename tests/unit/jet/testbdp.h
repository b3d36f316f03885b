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
    TestBdp()
    {
        createDatabase(path());
        bdp.open(path());
    }

    QString path(const QString& name = QStringLiteral("a.orv")) const { return folder_.filePath(name); }

    void run(const char* statement) { bdp.execute(QString::fromUtf8(statement)); }

    Recordset select(const char* statement) { return Recordset(bdp, QString::fromUtf8(statement)); }

    // The rows as text: fields with "|" between them, rows with blanks; nulls are "-".
    QString rows(Recordset& set) const;
    QString rows(const char* statement)
    {
        Recordset set = select(statement);
        return rows(set);
    }

private:
    QTemporaryDir folder_;

protected:
    Connection bdp;
};

// A value as rows() writes it.
QString written(const QVariant& value);

// The number of the error that the call throws; 0 where it throws none.
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

// So that a failing EXPECT_EQ shows texts.
void PrintTo(const QString& text, std::ostream* out);
