#include "study/people.h"

#include <sqlite3.h>

void People::elsewhere(const char* statements) const
{
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path().toUtf8(), &other), SQLITE_OK);
    char* message = nullptr;
    EXPECT_EQ(sqlite3_exec(other, statements, nullptr, nullptr, &message), SQLITE_OK) << message;
    sqlite3_free(message);
    sqlite3_close(other);
}

void People::pragma(const char* statement) const
{
    EXPECT_EQ(sqlite3_exec(bdp.handle(), statement, nullptr, nullptr, nullptr), SQLITE_OK) << statement;
}
