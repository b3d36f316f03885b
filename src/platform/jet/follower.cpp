#include "platform/jet/follower.h"

#include "platform/jet/reader.h"

#include "platform/jet/error.h"

#include <sqlite3.h>

#include <array>
#include <utility>

namespace jet {

struct Follower::Private
{
    Database& database;
    QStringList tables;
    std::vector<Changes::Moment> asOf = {}; // of each table
    int opened = -1;                        // which opening of the file asOf belongs to
    qint64 version = 0;
};

Follower::Follower(const Connection& connection, QStringList tables)
    : d_(new Private{JsonReader::database(connection), std::move(tables)})
{
}

Follower::~Follower() = default;

void Follower::forget()
{
    d_->opened = -1;
}

std::optional<std::vector<Follower::Rowids>> Follower::touched()
{
    d_->database.requireOpen();
    Changes& changes = d_->database.changes;
    const qint64 version = d_->database.version();
    std::optional<std::vector<Rowids>> all;
    if (d_->opened == d_->database.opened && version == d_->version) {
        all.emplace();
        for (size_t i = 0; all && i < d_->asOf.size(); ++i) {
            auto rows = changes.since(d_->asOf[i], d_->tables[qsizetype(i)]);
            rows ? all->push_back(std::move(*rows)) : all.reset();
        }
    }
    if (!all) {
        d_->asOf.clear();
        for (const QString& table : d_->tables)
            d_->asOf.push_back(changes.now(table));
    }
    d_->opened = d_->database.opened;
    d_->version = version;
    return all;
}

// The engine's file format: the file change counter, four bytes, the greatest first, at offset 24 of the header.
qint64 changesOfFile(const Connection& connection)
{
    static constexpr sqlite3_int64 place = 24;
    std::array<unsigned char, 4> bytes{};
    sqlite3_file* file = nullptr;
    sqlite3* const database = JsonReader::database(connection).handle;
    if (!database || sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK || !file ||
        !file->pMethods || file->pMethods->xRead(file, bytes.data(), int(bytes.size()), place) != SQLITE_OK)
        return -1;
    qint64 count = 0;
    for (const unsigned char byte : bytes)
        count = count << 8 | byte;
    return count;
}

} // namespace jet
