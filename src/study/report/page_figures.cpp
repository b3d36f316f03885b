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
constexpr std::size_t shortTable = 15; // rows of a table that isn't broken between two pages, at the most

const QString noData = QStringLiteral("<p class=\"vazio\">sem dados</p>");

bool hasInterval(const Cell& cell)
{
    return cell.standing != Standing::Suppressed && cell.interval && std::isfinite(cell.interval->low) &&
           std::isfinite(cell.interval->high);
}

QString limitsText(const Cell& cell, const Column& column)
{
    if (!hasInterval(cell)) return {};
    const auto limit = [&](double value) { return shown(Cell{.value = value, .decimals = cell.decimals}, column); };
    return '[' + limit(cell.interval->low) + "; " + limit(cell.interval->high) + ']';
}

QString limitsOf(const Cell& cell, const Column& column)
{
    const QString told = limitsText(cell, column);
    return told.isEmpty() ? QString() : tag("small", told);
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

// How a table is set on A4: in letters so small, and so close, that no word is cut. In points; as the style has them.
struct Fit
{
    const char* name;
    double size, padding; // padding: of both sides of a cell
    bool limitsInOneLine;
};
constexpr double pageBreadth = 504, letter = 0.64, bold = 0.7, smaller = 0.82; // letters: in parts of their size
constexpr Fit normal{"normal", 8.5, 14.4, true}, larga{"larga", 7.5, 7.2, false},
    larguissima{"larga larguissima", 5.5, 3.6, false};
constexpr auto imensa = "larga larguissima imensa"; // with its heading on end

double longestWord(const QString& given)
{
    qsizetype longest = 0;
    const auto words = QStringView(given).split(' ');
    for (const QStringView word : words)
        longest = std::max(longest, word.size());
    return double(longest);
}

// The least breadth of a column, in parts of the size of its letters; limits may stand in one line or in two.
double breadthOf(const Table& table, std::size_t column, bool inOneLine)
{
    const Column& of = table.columns[column];
    double least = std::max(bold * longestWord(of.title), letter * smaller * (longestWord(of.unit) + 2));
    for (const auto& row : table.rows) {
        if (column >= row.size()) continue;
        const QString told = shown(row[column], of);
        const double letters = of.isText || column == 0 ? longestWord(told) : double(told.size());
        const QString both = limitsText(row[column], of);
        const double limits = inOneLine ? double(both.size()) : longestWord(both);
        least = std::max({least, letter * letters, letter * smaller * limits});
    }
    return least;
}

const char* fitOf(const Table& table)
{
    for (const Fit& fit : {normal, larga, larguissima}) {
        double breadth = double(table.columns.size()) * fit.padding;
        for (std::size_t column = 0; column < table.columns.size(); ++column)
            breadth += fit.size * breadthOf(table, column, fit.limitsInOneLine);
        if (breadth <= pageBreadth) return fit.name;
    }
    return imensa;
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
                   tag("figcaption", caption) + noData + notesOf(table.notes)) +
               '\n';
    QString rows;
    for (const auto& row : table.rows)
        rows += rowMarkup(row, table.columns);
    const QString inner = tag("caption", tag("span", caption)) + headMarkup(table.columns) + tag("tbody", rows);
    const QString rolled = rolling(label, table.title, tag("table", {{"class", fitOf(table)}}, inner));
    const bool isShort = table.rows.size() <= shortTable;
    return tag("figure", {{"class", isShort ? "quadro curto" : "quadro"}, {"id", anchor}},
               rolled + '\n' + legendOf(table) + notesOf(table.notes)) +
           '\n';
}

QString chartMarkup(const Chart& chart, const QString& label, const QString& anchor)
{
    QString inner = noData;
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
