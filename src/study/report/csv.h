// Rows of a CSV file, by RFC 4180, in UTF-8.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace study::report {

struct CsvForm
{
    char separator = ',';
    QByteArray lineEnd = "\n";

    bool operator==(const CsvForm&) const = default;
};

class CsvRows
{
public:
    explicit CsvRows(CsvForm form = {}) : form_(std::move(form)) {}

    // Between quotes where the text needs them: for a separator, a quote, a line end, blanks at its ends.
    void add(QByteArrayView cell);
    void add(const QByteArray& cell) { add(QByteArrayView(cell)); }
    void add(const QString& cell);
    void addNumber(qint64 cell);
    // Between quotes, also where the text is empty: who reads it so can tell it from a cell with nothing.
    void addQuoted(QByteArrayView cell);
    // Cells that stand as they are written, with their separators between them. Precondition: none of them needs
    // quotes.
    void addWritten(QByteArrayView cells);
    // An empty cell alone in its row is put between quotes: it would be an empty line, which readers leave out.
    void endRow();

    const QByteArray& bytes() const { return bytes_; }
    QByteArray take(); // Precondition: behind an end of a row

private:
    void separate();
    char* more(qsizetype size); // so many bytes behind the others, to be written at once
    void shorten(const char* end) { bytes_.resize(end - bytes_.constData()); }

    CsvForm form_;
    QByteArray bytes_ = {};
    qsizetype rowAt_ = 0;
    bool isFirst_ = true;
};

} // namespace study::report
