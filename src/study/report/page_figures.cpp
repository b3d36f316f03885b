// Tables and charts of the page.
#include "study/report/drawing.h"
#include "study/report/page_p.h"

#include <QSize>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace study::report {

namespace {

constexpr QSize drawingSize(680, 410);
constexpr std::size_t manyColumns = 9, tooManyColumns = 14; // of a table on A4

const QString none = QStringLiteral("<p class=\"vazio\">sem dados</p>");

bool hasInterval(const Cell& cell)
{
    return cell.standing != Standing::Suppressed && cell.interval && std::isfinite(cell.interval->low) &&
           std::isfinite(cell.interval->high);
}

QString limitsOf(const Cell& cell, const Column& column)
{
    if (!hasInterval(cell)) return {};
    const auto limit = [&](double value) { return shown(Cell{.value = value, .decimals = cell.decimals}, column); };
    const QString told = '[' + limit(cell.interval->low) + "; " + limit(cell.interval->high) + ']';
    return tag("small", told);
}

QString cellMarkup(const Cell& cell, const Column& column)
{
    QString inner = escaped(shown(cell, column));
    QStringList classes;
    if (!column.isText) classes << "n";
    if (cell.standing == Standing::Grey) {
        classes << "c";
        inner += "†";
    }
    if (cell.standing == Standing::Suppressed) classes << "s";
    inner += limitsOf(cell, column);
    return classes.isEmpty() ? tag("td", inner) : tag("td", {{"class", classes.join(' ')}}, inner);
}

QString rowMarkup(const std::vector<Cell>& row, const std::vector<Column>& columns)
{
    QString cells;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Cell& cell = i < row.size() ? row[i] : Cell();
        cells +=
            i == 0 ? tag("th", {{"scope", "row"}}, escaped(shown(cell, columns[i]))) : cellMarkup(cell, columns[i]);
    }
    return tag("tr", cells) + '\n';
}

QString headMarkup(const std::vector<Column>& columns)
{
    QString cells;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Column& column = columns[i];
        const QString unit = column.unit.isEmpty() ? QString() : ' ' + tag("small", escaped('(' + column.unit + ')'));
        const QString side = column.isText || i == 0 ? "" : "n";
        cells += side.isEmpty() ? tag("th", {{"scope", "col"}}, escaped(column.title) + unit)
                                : tag("th", {{"scope", "col"}, {"class", side}}, escaped(column.title) + unit);
    }
    return tag("thead", tag("tr", cells)) + '\n';
}

// What the marks mean that stand in this table.
QString legendOf(const Table& table)
{
    bool grey = false, suppressed = false, empty = false, interval = false;
    for (const auto& row : table.rows)
        for (std::size_t i = 1; i < row.size(); ++i) {
            grey = grey || row[i].standing == Standing::Grey;
            suppressed = suppressed || row[i].standing == Standing::Suppressed;
            interval = interval || hasInterval(row[i]);
            empty = empty || (i < table.columns.size() && shown(row[i], table.columns[i]) == "–");
        }
    QStringList told;
    if (interval) told << "[ ; ] intervalo de confiança de 95 %";
    if (grey) told << "† a ler com reserva: poucos casos";
    if (suppressed) told << "* não mostrado: casos a menos";
    if (empty) told << "– sem valor";
    return told.isEmpty() ? QString() : tag("p", {{"class", "legenda"}}, told.join(". ") + '.') + '\n';
}

QString notesOf(const QStringList& notes)
{
    QString items;
    for (const QString& note : notes)
        items += tag("li", escaped(note));
    return items.isEmpty() ? QString() : tag("ul", {{"class", "notas"}}, items) + '\n';
}

QString captionOf(const QString& label, const QString& title)
{
    return escaped(title.isEmpty() ? label : label + ". " + title);
}

// What may be broader than a telephone moves by itself; it is reached without a mouse, and tells what it is.
QString rolling(const QString& label, const QString& title, const QString& inner)
{
    return tag("div",
               {{"class", "rola"},
                {"tabindex", "0"},
                {"role", "region"},
                {"aria-label", title.isEmpty() ? label : label + ". " + title}},
               inner);
}

} // namespace

QString tag(const char* name, std::initializer_list<Attribute> attributes, const QString& inner)
{
    QString all = QLatin1Char('<') + QLatin1String(name);
    for (const Attribute& attribute : attributes)
        all += QLatin1Char(' ') + QLatin1String(attribute.first) + QLatin1String("=\"") + escaped(attribute.second) +
               QLatin1Char('"');
    return all + QLatin1Char('>') + inner + QLatin1String("</") + QLatin1String(name) + QLatin1Char('>');
}

QString tag(const char* name, const QString& inner)
{
    return tag(name, {}, inner);
}

QString tableMarkup(const Table& table, const QString& label, const QString& anchor)
{
    const QString caption = captionOf(label, table.title);
    if (table.isEmpty())
        return tag("figure", {{"class", "quadro"}, {"id", anchor}},
                   tag("figcaption", caption) + none + notesOf(table.notes)) +
               '\n';
    QString rows;
    for (const auto& row : table.rows)
        rows += rowMarkup(row, table.columns);
    const std::size_t columns = table.columns.size();
    const QString breadth = columns > tooManyColumns ? "larga larguissima" : columns > manyColumns ? "larga" : "normal";
    const QString inner = tag("caption", tag("span", caption)) + headMarkup(table.columns) + tag("tbody", rows);
    const QString rolled = rolling(label, table.title, tag("table", {{"class", breadth}}, inner));
    return tag("figure", {{"class", "quadro"}, {"id", anchor}},
               rolled + '\n' + legendOf(table) + notesOf(table.notes)) +
           '\n';
}

QString chartMarkup(const Chart& chart, const QString& label, const QString& anchor)
{
    QString inner = none;
    if (!chart.isEmpty()) {
        Chart named = chart;
        named.id = anchor; // its ids are unique in the page
        inner = rolling(label, chart.title, QString::fromUtf8(svgOf(named, drawingSize, {.titled = false})));
    }
    return tag("figure", {{"class", "grafico"}, {"id", anchor}},
               tag("figcaption", captionOf(label, chart.title)) + inner) +
           '\n';
}

} // namespace study::report
