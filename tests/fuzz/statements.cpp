#include "fuzz/engine.h"
#include "fuzz/targets.h"

#include "platform/jet/dialect.h"
#include "platform/jet/select.h"

namespace {

// A statement that was translated is one statement, or the engine refuses it.
void prepares(sqlite3* db, const QString& sql)
{
    const QByteArray utf8 = sql.toUtf8();
    const char* tail = nullptr;
    sqlite3_stmt* statement = nullptr;
    const int status = sqlite3_prepare_v2(db, utf8.constData(), int(utf8.size()), &statement, &tail);
    const bool whole = QString::fromUtf8(tail).trimmed().isEmpty();
    if (status == SQLITE_OK && statement && sqlite3_stmt_readonly(statement)) // runs until the engine has enough
        for (int rows = 0; rows < 100 && sqlite3_step(statement) == SQLITE_ROW; ++rows) {
        }
    sqlite3_finalize(statement);
    if (status == SQLITE_OK) Fuzz::require(statement && whole, "more than one statement, or none: " + sql);
}

// A text between quotes is that text, whatever stands in it.
void staysText(sqlite3* db, const QString& text)
{
    if (text.contains(QChar(u'\0')) || !text.isValidUtf16()) return;
    const QByteArray sql = jet::translate("select '" + QString(text).replace("'", "''") + "' as t", db).toUtf8();
    sqlite3_stmt* statement = nullptr;
    const int status = sqlite3_prepare_v2(db, sql.constData(), int(sql.size()), &statement, nullptr);
    QString read;
    if (status == SQLITE_OK && sqlite3_step(statement) == SQLITE_ROW)
        read = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)),
                                 sqlite3_column_bytes(statement, 0));
    sqlite3_finalize(statement);
    Fuzz::require(status == SQLITE_OK && read == text, "a text between quotes is read as another one: " + text);
}

} // namespace

void Fuzz::statements(const QByteArray& bytes)
{
    sqlite3* db = engine();
    const QString text = QString::fromUtf8(bytes);
    staysText(db, text);
    try {
        prepares(db, jet::translate(text, db));
    } catch (const jet::Error& error) {
        require(!error.description.isEmpty(), "an error without a description");
    }
    try {
        prepares(db, jet::analyseSelect(text, db).sql);
    } catch (const jet::Error&) {
    }
    try {
        const jet::Criterion criterion(text);
        for (const auto type : {jet::Type::Text, jet::Type::Number, jet::Type::Date, jet::Type::Bit})
            prepares(db, "select 1 from individuo where nome " + criterion.condition(type));
    } catch (const jet::Error&) {
    }
}
