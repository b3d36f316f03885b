#include "platform/jet/rest.h"

#include "platform/jet/database.h"
#include "platform/jet/error.h"

#include <utility>

namespace jet {

namespace {

constexpr std::chrono::milliseconds betweenPieces{20}; // for what the user does

} // namespace

Rest::Rest(Database& database, int count, Reader reader)
    : database_(database), count_(count), reader_(std::move(reader))
{
    database_.rests.insert(this);
    QObject::connect(&idle_, &Alarm::rings, &idle_, [this] { readAhead(); });
    idle_.set(betweenPieces);
}

Rest::~Rest()
{
    database_.rests.erase(this);
}

void Rest::readAll()
{
    const auto all = reader_.all; // it ends this
    all();
}

// Set before the piece, which may be the last one and end this.
void Rest::readAhead()
{
    idle_.set(betweenPieces);
    if (database_.watch.asking()) return;
    const auto next = reader_.next;
    try {
        next();
    } catch (const Error&) { // who needs the rows will be told
        idle_.off();
    }
}

} // namespace jet
