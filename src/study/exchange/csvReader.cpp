#include "study/exchange/csvReader.h"

#include "study/exchange/portions.h"

namespace study::exchange {

namespace {

constexpr auto byteOrderMark = "\xEF\xBB\xBF";

char separatorOf(QIODevice& device)
{
    QByteArray line = device.peek(bytesAtOnce);
    for (qsizetype i = 0; i < line.size(); ++i)
        if (line[i] == '\n' || line[i] == '\r') line.truncate(i);
    char best = ',';
    for (const char candidate : {';', '\t'})
        if (line.count(candidate) > line.count(best)) best = candidate;
    return best;
}

} // namespace

CsvReader::CsvReader(QIODevice& device) : device_(device)
{
    if (device_.peek(qstrlen(byteOrderMark)) == byteOrderMark) read_ += device_.skip(qstrlen(byteOrderMark));
    separator_ = separatorOf(device_);
}

bool CsvReader::next()
{
    while (readRow())
        if (cells_.size() > 1 || !cells_.front().isNothing()) return true;
    return false;
}

bool CsvReader::readRow()
{
    cells_.clear();
    damage_.clear();
    if (peek() < 0) return false;
    rowLine_ = line_;
    readCell();
    while (peek() == separator_) {
        take();
        readCell();
    }
    takeLineEnd();
    return true;
}

void CsvReader::readCell()
{
    CsvCell& cell = cells_.emplace_back();
    if (peek() == '"') {
        readQuoted(cell);
        if (!endsCell() && damage_.isEmpty()) damage_ = "Há texto depois de aspas que fecham.";
    }
    while (!endsCell())
        cell.text += static_cast<char>(take());
}

void CsvReader::readQuoted(CsvCell& cell)
{
    cell.isQuoted = true;
    for (take(); peek() >= 0;) {
        const char c = static_cast<char>(take());
        if (c == '\n' || (c == '\r' && peek() != '\n')) ++line_;
        if (c == '"') {
            if (peek() != '"') return;
            take();
        }
        cell.text += c;
    }
    damage_ = "As aspas que aqui abrem não fecham.";
}

int CsvReader::peek()
{
    if (at_ == buffer_.size()) {
        buffer_ = device_.read(bytesAtOnce);
        at_ = 0;
        read_ += buffer_.size();
    }
    return at_ < buffer_.size() ? static_cast<unsigned char>(buffer_[at_]) : -1;
}

int CsvReader::take()
{
    const int c = peek();
    if (c >= 0) ++at_;
    return c;
}

bool CsvReader::endsCell()
{
    const int c = peek();
    return c < 0 || c == separator_ || c == '\n' || c == '\r';
}

void CsvReader::takeLineEnd()
{
    if (peek() < 0) return;
    const int c = take();
    if (c == '\r' && peek() == '\n') take();
    ++line_;
}

} // namespace study::exchange
