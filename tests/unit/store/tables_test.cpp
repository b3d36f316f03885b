// The tables that a file may not lead astray are those of a BDP.
#include "store/parish.h"

#include <sqlite3.h>

namespace {

QString triggerOn(const QString& table)
{
    return QString("create trigger g after insert on \"%1\" begin select 1; end").arg(table);
}

} // namespace

TEST_F(Parish, IsRefusedWithATriggerOnAnyOfItsTables)
{
    cnBDP.execute("create table estudo_lixo (a long)");
    const QString file = folder.filePath("a.orv");
    const QStringList tables = cnBDP.tables();
    EXPECT_EQ(tables.size(), 22);
    for (const QString& table : tables) {
        cnBDP.close();
        sqlite3* other = nullptr;
        ASSERT_EQ(sqlite3_open(file.toUtf8(), &other), SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(other, triggerOn(table).toUtf8(), nullptr, nullptr, nullptr), SQLITE_OK);
        EXPECT_THROW(cnBDP.open(file), jet::Error) << table.toStdString();
        ASSERT_EQ(sqlite3_exec(other, "drop trigger g", nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(other);
    }
    cnBDP.open(file);
}
