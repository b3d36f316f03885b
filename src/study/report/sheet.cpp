#include "study/report/sheet.h"

#include "study/report/csv.h"

#include <QSet>

#include <algorithm>
#include <cmath>

namespace study::report {

namespace {

using Kind = SheetColumn::Kind;

bool hasLimits(const Cell& cell)
{
    return cell.standing != Standing::Suppressed && cell.interval && std::isfinite(cell.interval->low) &&
           std::isfinite(cell.interval->high);
}

QString limitOf(const Cell& cell, const Column& column, double statistics::Interval::*side)
{
    if (!hasLimits(cell)) return {};
    return plain({.value = (*cell.interval).*side, .decimals = cell.decimals}, column);
}

QString standingOf(const Cell& cell)
{
    switch (cell.standing) {
    case Standing::Grey:
        return "poucos casos";
    case Standing::Suppressed:
        return "suprimido";
    case Standing::Sound:
        break;
    }
    return {};
}

enum class Part : quint8
{
    Value,
    Low,
    High,
    Note
};

// A column of the sheet: a part of one of the table.
struct Origin
{
    std::size_t column;
    Part part;
};

std::vector<Origin> originsOf(const Table& table)
{
    std::vector<Origin> origins;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const auto any = [&](bool (*has)(const Cell&)) {
            return std::any_of(table.rows.begin(), table.rows.end(),
                               [&](const auto& row) { return i < row.size() && has(row[i]); });
        };
        origins.push_back({i, Part::Value});
        if (any(hasLimits)) {
            origins.push_back({i, Part::Low});
            origins.push_back({i, Part::High});
        }
        if (any([](const Cell& cell) { return cell.standing != Standing::Sound; })) origins.push_back({i, Part::Note});
    }
    return origins;
}

QString textOf(const Cell& cell, const Column& column, Part part)
{
    switch (part) {
    case Part::Value:
        break;
    case Part::Low:
        return limitOf(cell, column, &statistics::Interval::low);
    case Part::High:
        return limitOf(cell, column, &statistics::Interval::high);
    case Part::Note:
        return standingOf(cell);
    }
    return plain(cell, column);
}

bool isNumber(const Cell& cell, Part part)
{
    return part == Part::Low || part == Part::High ||
           (part == Part::Value && std::holds_alternative<double>(cell.value));
}

const Cell& cellAt(const std::vector<Cell>& row, std::size_t column)
{
    static const Cell none;
    return column < row.size() ? row[column] : none;
}

SheetColumn columnOf(const Column& column, Part part)
{
    SheetColumn made{.name = {}, .title = column.title, .unit = column.unit, .described = {}, .kind = Kind::Whole};
    const QString limit = "Limite %1 do intervalo de confiança de 95 %.";
    if (part == Part::Value && column.isText) made.kind = Kind::Text;
    if (part == Part::Low) {
        made.title += ", mín. 95 %";
        made.described = limit.arg("inferior");
    } else if (part == Part::High) {
        made.title += ", máx. 95 %";
        made.described = limit.arg("superior");
    } else if (part == Part::Note) {
        made = {.name = {},
                .title = column.title + ", nota",
                .unit = {},
                .described = "Poucos casos: a ler com reserva. Suprimido: casos a menos para ser mostrado.",
                .kind = Kind::Text};
    }
    return made;
}

QString suffixOf(Part part)
{
    static const QString suffixes[]{"", "_min", "_max", "_nota"};
    return suffixes[static_cast<std::size_t>(part)];
}

// What all texts of a column are, after one more.
Kind kindOf(const QString& given, bool numeric, Kind before)
{
    if (given.isEmpty() || before == Kind::Text) return before;
    if (!numeric) return Kind::Text;
    return given.contains('.') ? Kind::Number : before;
}

QString unused(const QString& wanted, QSet<QString>& taken)
{
    QString name = wanted;
    for (int next = 2; taken.contains(name); ++next)
        name = wanted + '_' + QString::number(next);
    taken.insert(name);
    return name;
}

// In one cell, and nothing that a program of tables would reckon.
QString pastedText(QString given)
{
    for (QChar& c : given)
        if (c < ' ') c = ' ';
    static const QString beginnings = QStringLiteral("=+-@");
    return !given.isEmpty() && beginnings.contains(given[0]) ? '\'' + given : given;
}

} // namespace

QString identifier(const QString& given)
{
    // What tells two columns apart that have the same letters.
    static const std::vector<std::pair<QString, QString>> words{
        {"‰", " por mil "}, {"%", " pct "}, {"+", " mais "}, {"<", " menos de "}, {">", " mais de "}};
    QString told = given;
    for (const auto& word : words)
        told.replace(word.first, word.second);
    QString name;
    const QString folded = told.normalized(QString::NormalizationForm_KD).toLower();
    for (const QChar c : folded) {
        if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'))
            name += c;
        else if (!c.isMark() && !name.isEmpty() && !name.endsWith('_'))
            name += '_';
    }
    if (name.endsWith('_')) name.chop(1);
    return !name.isEmpty() && name[0].isDigit() ? "c_" + name : name;
}

Sheet sheetOf(const Table& table)
{
    const std::vector<Origin> origins = originsOf(table);
    Sheet sheet;
    QSet<QString> taken;
    for (const Origin& origin : origins) {
        SheetColumn column = columnOf(table.columns[origin.column], origin.part);
        const QString name = identifier(table.columns[origin.column].title);
        column.name = unused(
            (name.isEmpty() ? QString("coluna_%1").arg(origin.column + 1) : name) + suffixOf(origin.part), taken);
        sheet.columns.push_back(column);
    }
    for (const auto& row : table.rows) {
        QStringList texts;
        for (std::size_t i = 0; i < origins.size(); ++i) {
            const auto [column, part] = origins[i];
            const Cell& cell = cellAt(row, column);
            texts << textOf(cell, table.columns[column], part);
            sheet.columns[i].kind = kindOf(texts.constLast(), isNumber(cell, part), sheet.columns[i].kind);
        }
        sheet.rows.push_back(texts);
    }
    return sheet;
}

QByteArray csvOf(const Sheet& sheet)
{
    CsvRows csv;
    for (const SheetColumn& column : sheet.columns)
        csv.add(column.name);
    csv.endRow();
    for (const QStringList& row : sheet.rows) {
        for (const QString& given : row)
            csv.add(given);
        csv.endRow();
    }
    return csv.take();
}

QString tabSeparated(const Table& table)
{
    const std::vector<Origin> origins = originsOf(table);
    QStringList cells;
    for (const Origin& origin : origins) {
        const SheetColumn column = columnOf(table.columns[origin.column], origin.part);
        cells << pastedText(column.unit.isEmpty() ? column.title : column.title + " (" + column.unit + ')');
    }
    QString all = cells.join('\t') + '\n';
    for (const auto& row : table.rows) {
        cells.clear();
        for (const auto& [column, part] : origins) {
            const Cell& cell = cellAt(row, column);
            QString given = textOf(cell, table.columns[column], part);
            cells << (isNumber(cell, part) ? given.replace('.', ',') : pastedText(given));
        }
        all += cells.join('\t') + '\n';
    }
    return all;
}

} // namespace study::report
