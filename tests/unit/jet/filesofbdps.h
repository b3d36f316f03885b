// A BDP of its own for each test, and files beside it.
#pragma once

#include "jet/testbdp.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

namespace jet::test {

// Another program in the middle of its work on a file.
class OtherProgram
{
public:
    explicit OtherProgram(const QString& file)
    {
        EXPECT_EQ(sqlite3_open(file.toUtf8(), &database_), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database_, "begin exclusive", nullptr, nullptr, nullptr), SQLITE_OK);
    }
    ~OtherProgram() { sqlite3_close(database_); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

private:
    sqlite3* database_ = nullptr;
};

inline void fillWithOneTable(const QString& file)
{
    Connection bdp;
    bdp.open(file);
    bdp.execute(QStringLiteral("create table nova (a long)"));
}

class FilesOfBdps : public TestBdp
{
protected:
    FilesOfBdps() { run("create table t (a long, b varchar(10))"); }

    Error refusalOf(const QString& file)
    {
        Connection other;
        const Error error = errorOf([&] { other.open(file); });
        EXPECT_EQ(other.state() == Connection::Closed, error.number != 0);
        EXPECT_TRUE(error.number == 0 || error.description.contains(file)) << error.description.toStdString();
        return error;
    }
    QString makeFile(const char* name, const QByteArray& content)
    {
        QFile file(path(QString::fromUtf8(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }
    QByteArray contentOf(const QString& file)
    {
        QFile source(file);
        EXPECT_TRUE(source.open(QIODevice::ReadOnly));
        return source.readAll();
    }
};

} // namespace jet::test
