#include "study/report/csv.h"

#include <algorithm>

namespace study::report {

void CsvRows::separate()
{
    if (isFirst_)
        rowAt_ = bytes_.size();
    else
        bytes_ += form_.separator;
    isFirst_ = false;
}

void CsvRows::add(QByteArrayView cell)
{
    const auto isSpecial = [this](char c) { return c == form_.separator || c == '"' || c == '\n' || c == '\r'; };
    const bool atEnds = !cell.isEmpty() && (cell.front() == ' ' || cell.back() == ' ');
    if (atEnds || std::any_of(cell.begin(), cell.end(), isSpecial)) return addQuoted(cell);
    separate();
    bytes_.append(cell);
}

void CsvRows::addQuoted(QByteArrayView cell)
{
    separate();
    bytes_ += '"';
    for (const char c : cell) {
        if (c == '"') bytes_ += c;
        bytes_ += c;
    }
    bytes_ += '"';
}

void CsvRows::addWritten(QByteArrayView cells)
{
    separate();
    bytes_.append(cells);
}

void CsvRows::endRow()
{
    if (isFirst_ || bytes_.size() == rowAt_) bytes_ += "\"\"";
    bytes_ += form_.lineEnd;
    isFirst_ = true;
}

} // namespace study::report
