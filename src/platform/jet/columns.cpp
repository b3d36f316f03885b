#include "platform/jet/columns.h"

#include "platform/jet/errors.h"

#include <sqlite3.h>

namespace jet {

Type typeOf(const QString& declared)
{
    if (declared.isEmpty()) return Type::Unknown;
    const auto has = [&](const char* word) { return declared.contains(QLatin1String(word), Qt::CaseInsensitive); };
    if (has("char") || has("text") || has("clob") || has("memo")) return Type::Text;
    if (has("date")) return Type::Date;
    return has("bit") ? Type::Bit : Type::Number;
}

QString declaredType(sqlite3* database, const QString& table, const QString& column)
{
    const char* type = nullptr;
    if (!database || sqlite3_table_column_metadata(database, nullptr, table.toUtf8(), column.toUtf8(), &type, nullptr,
                                                   nullptr, nullptr, nullptr) != SQLITE_OK)
        return {};
    return QString::fromUtf8(type);
}

bool tableExists(sqlite3* database, const QString& table)
{
    return database && sqlite3_table_column_metadata(database, nullptr, table.toUtf8(), nullptr, nullptr, nullptr,
                                                     nullptr, nullptr, nullptr) == SQLITE_OK;
}

QString quoted(const QString& name)
{
    QString text = name;
    return u'"' + text.replace(u'"', QLatin1String("\"\"")) + u'"';
}

// The checks stand on the engine's own functions alone, so that any tool can write the file, and are named after their
// column, so that a refusal can name it.
QString columnDeclaration(const QString& table, const QString& column, const QString& type, const QString& width,
                          Place place)
{
    const QString name = quoted(column);
    const auto checked = [&](const QString& declared, const QString& condition) {
        return QStringLiteral("%1 constraint %2 check (%3)")
            .arg(declared, quoted(table + u'.' + column), QString(condition).replace(u'@', name));
    };
    const QString word = type.toLower();
    if (word == u"memo" || word == u"text" || word == u"varchar" || word == u"char") {
        if (width.isEmpty()) // the engine would take "memo" for a number
            return (word == u"memo" ? QStringLiteral("text") : word) + QStringLiteral(" collate nocase");
        return checked(QStringLiteral("%1(%2) collate nocase").arg(word, width),
                       QStringLiteral("length(@) <= %1").arg(width));
    }
    if (word == u"date") // with the sign, it is compared as the text that it is
        return checked(word, QStringLiteral("@ is date(@) and +@ >= '0100'"));
    if (word == u"bit")
        return checked(place == Place::OldTable ? QStringLiteral("bit default 0") : word,
                       QStringLiteral("@ in (0, 1)"));
    if (word == u"long") // a text stands behind every number, and so beyond the range
        return checked(word, QStringLiteral("@ between %1 and %2").arg(smallestLong).arg(largestLong));
    // "numeric" keeps whole numbers whole, where the engine's "double" would show 5 as 5.0 in other tools.
    if (word == u"double")
        return checked(QStringLiteral("numeric"), QStringLiteral("@ is null or typeof(@) in ('integer', 'real')"));
    throw invalidStatement(QStringLiteral("O tipo \"%1\" da coluna \"%2\" não existe.").arg(type, column));
}

} // namespace jet
