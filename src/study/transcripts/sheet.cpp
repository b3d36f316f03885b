#include "study/transcripts/table.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace study {

namespace {

struct Row
{
    QStringList cells;
    int line = 0;
};

// Cells between one separator, over lines where they are quoted.
class Rows
{
public:
    Rows(const QString& text, QChar separator, int line) : text_(text), separator_(separator), line_(line) {}

    bool atEnd() const { return at_ >= text_.size(); }
    int unclosedAt() const { return unclosedAt_; } // the line of a quote that never closes; 0 for none

    Row next()
    {
        Row row{.cells = {}, .line = line_};
        row.cells << cell();
        while (at_ < text_.size() && text_[at_] == separator_) {
            ++at_;
            row.cells << cell();
        }
        if (at_ < text_.size()) { // the end of the line
            ++at_;
            ++line_;
        }
        return row;
    }

private:
    bool endsCell() const { return at_ >= text_.size() || text_[at_] == separator_ || text_[at_] == '\n'; }

    QString cell()
    {
        QString text;
        if (at_ < text_.size() && text_[at_] == '"') text = quoted();
        const qsizetype begin = at_;
        while (!endsCell())
            ++at_;
        return text + text_.mid(begin, at_ - begin);
    }

    QString quoted()
    {
        QString text;
        const int opened = line_;
        for (++at_; at_ < text_.size(); ++at_) {
            if (text_[at_] == '\n') ++line_;
            if (text_[at_] != '"') {
                text += text_[at_];
            } else if (at_ + 1 < text_.size() && text_[at_ + 1] == '"') {
                text += text_[at_++];
            } else {
                ++at_;
                return text;
            }
        }
        if (unclosedAt_ == 0) unclosedAt_ = opened;
        return text;
    }

    const QString& text_;
    QChar separator_;
    qsizetype at_ = 0;
    int line_;
    int unclosedAt_ = 0;
};

bool isBlank(const QStringList& cells)
{
    return std::all_of(cells.begin(), cells.end(), [](const QString& cell) { return cell.trimmed().isEmpty(); });
}

qsizetype filled(const QStringList& cells)
{
    return std::count_if(cells.begin(), cells.end(), [](const QString& cell) { return !cell.trimmed().isEmpty(); });
}

// How well a separator parts the first lines: in how many the cells are as many as in the first, and how many they are.
std::pair<double, qsizetype> fitness(const QString& beginning, QChar separator)
{
    static constexpr int looked = 20;
    Rows rows(beginning, separator, 1);
    qsizetype columns = 0;
    int all = 0;
    int alike = 0;
    while (!rows.atEnd() && all < looked) {
        const Row row = rows.next();
        if (isBlank(row.cells)) continue;
        if (columns == 0 && filled(row.cells) < 2) { // a title above the headers, which no separator explains
            ++all;
            continue;
        }
        ++all;
        if (columns == 0) columns = row.cells.size();
        if (row.cells.size() == columns) ++alike;
    }
    if (columns < 2) return {0, columns};
    return {double(alike) / all, columns};
}

QChar separatorOf(const QString& text)
{
    static constexpr qsizetype enough = 65536;
    const QString beginning = text.left(enough);
    QChar best = ';';
    auto bestFitness = fitness(beginning, best);
    for (const QChar candidate : {QChar(','), QChar('\t')}) {
        const auto itsFitness = fitness(beginning, candidate);
        if (itsFitness <= bestFitness) continue;
        bestFitness = itsFitness;
        best = candidate;
    }
    return best;
}

// Some programs write the separator in a line of its own.
QChar takeToldSeparator(QString& text)
{
    static const QRegularExpression told("^sep=(.)\\n", QRegularExpression::CaseInsensitiveOption);
    const auto match = told.match(text);
    if (!match.hasMatch()) return {};
    text.remove(0, match.capturedLength());
    return match.captured(1).front();
}

class SheetReader
{
public:
    explicit SheetReader(CellTable& sheet) : sheet_(sheet) {}

    void take(const Row& row)
    {
        if (isBlank(row.cells)) return;
        if (sheet_.headers.isEmpty() && filled(row.cells) == 1) return waiting_.push_back(row);
        if (sheet_.headers.isEmpty()) return takeHeaders(row);
        takeCells(row);
    }

    // A table of one column has nothing but lines of one cell.
    void end()
    {
        if (!sheet_.headers.isEmpty() || waiting_.isEmpty()) return;
        const QList<Row> rows = std::exchange(waiting_, {});
        takeHeaders(rows.first());
        for (const Row& row : rows.mid(1))
            takeCells(row);
    }

private:
    void takeCells(const Row& row)
    {
        QStringList cells = row.cells;
        const qsizetype columns = sheet_.headers.size();
        if (!isBlank(cells.mid(columns)))
            sheet_.problems << Problem{
                row.line,
                QString("A linha tem %1 células com texto a mais do que o cabeçalho.").arg(cells.size() - columns),
                Problem::Severity::Error};
        cells.resize(columns);
        sheet_.rows << cells;
        sheet_.lines << row.line;
    }

    // Lines of one cell above them are titles.
    void takeHeaders(const Row& row)
    {
        for (const Row& title : waiting_)
            sheet_.problems << Problem{title.line, QString("A linha fica de fora: está acima dos cabeçalhos (\"%1\").")
                                                       .arg(title.cells.join(QString()).simplified().left(60))};
        sheet_.headers.reserve(row.cells.size());
        for (const QString& header : row.cells)
            sheet_.headers << header.trimmed();
    }

    CellTable& sheet_;
    QList<Row> waiting_; // with one cell, and no headers yet
};

} // namespace

CellTable readSheet(const QByteArray& bytes)
{
    Text text = textOf(bytes);
    CellTable sheet;
    sheet.encoding = text.encoding;
    sheet.problems = text.problems;
    for (const Problem& problem : std::as_const(sheet.problems))
        if (problem.severity == Problem::Severity::Error) return sheet;
    const QChar told = takeToldSeparator(text.text);
    sheet.separator = told.isNull() ? separatorOf(text.text) : told;
    Rows rows(text.text, sheet.separator, told.isNull() ? 1 : 2);
    SheetReader reader(sheet);
    while (!rows.atEnd())
        reader.take(rows.next());
    reader.end();
    if (rows.unclosedAt() > 0)
        sheet.problems << Problem{rows.unclosedAt(), "As aspas que aqui abrem não fecham.", Problem::Severity::Error};
    if (sheet.rows.isEmpty())
        sheet.problems << Problem{0, "A tabela não tem nenhuma linha além do cabeçalho.", Problem::Severity::Error};
    return sheet;
}

} // namespace study
