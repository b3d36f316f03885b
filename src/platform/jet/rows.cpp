#include "platform/jet/rows.h"

#include "platform/jet/reader.h"
#include "platform/jet/statement.h"

#include <sqlite3.h>

namespace jet {

struct Rows::Private
{
    Statement statement;
    bool over = false;
};

Rows::Rows(const Connection& connection, const NativeSql& select)
    : d_(new Private{Statement(JsonReader::database(connection), select.sql)})
{
    d_->statement.bindAll(select.values);
}

Rows::~Rows()
{
    if (d_->statement) d_->statement.reset();
}

bool Rows::next()
{
    if (!d_->over) d_->over = !d_->statement.step();
    return !d_->over;
}

Rows::Kind Rows::kind(int column) const
{
    switch (sqlite3_column_type(d_->statement.handle(), column)) {
    case SQLITE_INTEGER:
        return Kind::Whole;
    case SQLITE_FLOAT:
        return Kind::Real;
    case SQLITE_TEXT:
        return Kind::Text;
    case SQLITE_BLOB:
        return Kind::Blob;
    default:
        return Kind::Null;
    }
}

QByteArrayView Rows::bytes(int column) const
{
    const auto* first = static_cast<const char*>(sqlite3_column_blob(d_->statement.handle(), column));
    return {first, sqlite3_column_bytes(d_->statement.handle(), column)};
}

bool Rows::isNull(int column) const
{
    return sqlite3_column_type(d_->statement.handle(), column) == SQLITE_NULL;
}

qint64 Rows::number(int column) const
{
    return sqlite3_column_int64(d_->statement.handle(), column);
}

double Rows::real(int column) const
{
    return sqlite3_column_double(d_->statement.handle(), column);
}

QString Rows::text(int column) const
{
    const auto* letters = reinterpret_cast<const char*>(sqlite3_column_text(d_->statement.handle(), column));
    return QString::fromUtf8(letters, sqlite3_column_bytes(d_->statement.handle(), column));
}

QDate Rows::date(int column) const
{
    const auto* letters = reinterpret_cast<const char*>(sqlite3_column_text(d_->statement.handle(), column));
    static constexpr int length = 10; // 1702-02-14
    if (!letters || sqlite3_column_bytes(d_->statement.handle(), column) != length) return {};
    const auto figures = [letters](int from, int count) {
        int value = 0;
        for (int i = from; i < from + count; ++i) {
            if (letters[i] < '0' || letters[i] > '9') return 0;
            value = value * 10 + (letters[i] - '0');
        }
        return value;
    };
    return {figures(0, 4), figures(5, 2), figures(8, 2)};
}

struct Repeated::Private
{
    Database& database;
    Statement statement;
};

Repeated::Repeated(Connection& connection, const NativeSql& statement)
{
    Database& database = JsonReader::database(connection);
    database.requireOpen();
    database.dropAbandoned();
    d_.reset(new Private{database, Statement(database, statement.sql)});
}

Repeated::~Repeated() = default;

void Repeated::run(const QVariantList& values)
{
    d_->database.dropAbandoned();
    d_->statement.bindAll(values);
    while (d_->statement.step()) {
    }
    d_->statement.reset();
}

struct OneLook::Private
{
    OneState state;
};

OneLook::OneLook(const Connection& connection) : d_(new Private{OneState(JsonReader::database(connection))}) {}

OneLook::~OneLook() = default;

WideView::WideView(const Connection& connection) : connection_(connection)
{
    Rows(connection, NativeSql(QStringLiteral("pragma cache_size = -32768"))).next();
}

WideView::~WideView()
{
    try {
        Rows(connection_, NativeSql(QStringLiteral("pragma cache_size = -2000"))).next();
    } catch (const Error&) { // the next one sets it again
    }
}

} // namespace jet
