#include "platform/jet/functions.h"

#include "platform/jet/alphabet.h"
#include "platform/jet/date.h"
#include "platform/jet/dialect.h"
#include "platform/jet/errors.h"
#include "platform/jet/keylist.h"

#include <QLocale>

#include <sqlite3.h>

#include <cfenv>
#include <cmath>
#include <limits>
#include <optional>
#include <string_view>

namespace jet {

namespace {

QString textOf(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return QString::fromUtf8(text, sqlite3_value_bytes(value));
}

void giveText(sqlite3_context* context, const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    sqlite3_result_text(context, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

void fail(sqlite3_context* context, long number, const QString& description)
{
    sqlite3_result_error(context, markedMessage(number, description).toUtf8(), -1);
}

// A date written after a pattern of dd, mm and yyyy. A value that is no date stays as it is.
void format(sqlite3_context* context, int, sqlite3_value** values)
{
    QString text = textOf(values[0]);
    if (const auto date = readStoredDate(text)) {
        const QString stored = text;
        text = textOf(values[1]).toLower();
        text.replace(QLatin1String("yyyy"), stored.left(4));
        text.replace(QLatin1String("mm"), stored.mid(5, 2));
        text.replace(QLatin1String("dd"), stored.mid(8));
    }
    giveText(context, text);
}

void comparedDateFunction(sqlite3_context* context, int, sqlite3_value** values)
{
    if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
    const QString text = textOf(values[0]);
    if (const auto date = comparedDate(text))
        giveText(context, *date);
    else
        fail(context, number::typeMismatch, QStringLiteral("O texto '%1' não é uma data.").arg(text));
}

// A whole number of 16 bits, halves to the even one.
void cint(sqlite3_context* context, int, sqlite3_value** values)
{
    if (sqlite3_value_type(values[0]) == SQLITE_NULL)
        return fail(context, number::invalidNull, QStringLiteral("cint() não aceita um valor nulo."));
    const QString text = textOf(values[0]).trimmed();
    bool ok = false;
    const double value = QLocale::c().toDouble(text, &ok);
    if (!ok || !std::isfinite(value))
        return fail(context, number::typeMismatch, QStringLiteral("cint(): '%1' não é um número.").arg(text));
    const double whole = std::nearbyint(value);
    if (whole < std::numeric_limits<qint16>::min() || whole > std::numeric_limits<qint16>::max())
        return fail(context, number::overflow, QStringLiteral("cint(): %1 é um número demasiado grande.").arg(text));
    sqlite3_result_int(context, int(whole));
}

// first(): the value of the first row of its group, null included.
void firstStep(sqlite3_context* context, int, sqlite3_value** values)
{
    auto** kept = static_cast<sqlite3_value**>(sqlite3_aggregate_context(context, sizeof(sqlite3_value*)));
    if (kept && !*kept) *kept = sqlite3_value_dup(values[0]);
}

void firstFinal(sqlite3_context* context)
{
    auto** kept = static_cast<sqlite3_value**>(sqlite3_aggregate_context(context, 0));
    if (!kept || !*kept) return;
    sqlite3_result_value(context, *kept);
    sqlite3_value_free(*kept);
}

void collectStep(sqlite3_context* context, int, sqlite3_value** values)
{
    KeyList* list = *static_cast<KeyList**>(sqlite3_user_data(context));
    if (!list) return;
    const int type = sqlite3_value_type(values[1]);
    std::optional<double> number;
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) number = sqlite3_value_double(values[1]);
    list->append(sqlite3_value_int64(values[0]), number);
}

void collectFinal(sqlite3_context* context)
{
    sqlite3_result_null(context);
}

QString collated(int bytes, const void* text)
{
    return QString::fromUtf8(static_cast<const char*>(text), bytes);
}

int collateCaseBlind(void*, int aBytes, const void* a, int bBytes, const void* b)
{
    return QString::compare(collated(aBytes, a), collated(bBytes, b), Qt::CaseInsensitive);
}

int collateAlphabetically(void*, int aBytes, const void* a, int bBytes, const void* b)
{
    return compareAlphabetically(std::string_view(static_cast<const char*>(a), size_t(aBytes)),
                                 std::string_view(static_cast<const char*>(b), size_t(bBytes)));
}

} // namespace

void installFunctions(sqlite3* database)
{
    // Harmless in a schema, too: a table of another program may be checked with like, whose place ours takes.
    constexpr int pure = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    const auto add = [&](const char* name, int arguments, void (*function)(sqlite3_context*, int, sqlite3_value**)) {
        sqlite3_create_function(database, name, arguments, pure, nullptr, function, nullptr, nullptr);
    };
    add("format", 2, format);
    add("cint", 1, cint);
    add("like", 2, likeFunction);
    add(functions::comparedDate, 1, comparedDateFunction);
    sqlite3_create_function(database, "first", 1, pure, nullptr, nullptr, firstStep, firstFinal);
    sqlite3_create_collation(database, functions::caseBlind, SQLITE_UTF8, nullptr, collateCaseBlind);
    sqlite3_create_collation(database, functions::alphabetical, SQLITE_UTF8, nullptr, collateAlphabetically);
}

void installCollector(sqlite3* database, KeyList** list)
{
    sqlite3_create_function(database, functions::collect, 2, SQLITE_UTF8 | SQLITE_DIRECTONLY, list, nullptr,
                            collectStep, collectFinal);
}

} // namespace jet
