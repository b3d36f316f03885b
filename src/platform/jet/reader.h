// What a reader of rows may know of a connection. For this room alone.
#pragma once

#include "platform/jet/connection.h"
#include "platform/jet/database.h"

#include <memory>

namespace jet {

class JsonReader
{
public:
    static Database& database(const Connection& connection) { return *connection.database_; }
    static std::shared_ptr<Database> shared(const Connection& connection) { return connection.database_; }
};

} // namespace jet
