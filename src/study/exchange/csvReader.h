// The rows of a CSV file, by RFC 4180, one after the other: nothing but the row at hand is held.
//
// Tables of acts have a reader of their own (study/transcripts/table.h), which takes a whole text in any encoding,
// looks for its headers below titles, and forgives what quotes leave open. Here a file may have millions of rows, is in
// UTF-8, an empty cell isn't an empty text, and what is wrong belongs to its row.
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <vector>

namespace study::exchange {

struct CsvCell
{
    QByteArray text = {}; // as it stands in the file, line ends included
    bool isQuoted = false;

    bool isNothing() const { return text.isEmpty() && !isQuoted; }
    bool operator==(const CsvCell&) const = default;
};

class CsvReader
{
public:
    // The separator (, ; or a tab) is the one that the first line has most of. A mark of UTF-8 is passed over.
    // Precondition: the device is open, stands at its beginning, and outlives the reader.
    explicit CsvReader(QIODevice& device);

    // False behind the last row. Lines with nothing are passed over.
    bool next();

    const std::vector<CsvCell>& cells() const { return cells_; } // those of the row
    int line() const { return rowLine_; }                        // on which it begins, from 1
    QString damage() const
    {
        return damage_;
    } // what is wrong with the quotes of the row, in Portuguese; "" for nothing
    char separator() const { return separator_; }
    qint64 read() const { return read_; } // bytes

private:
    bool readRow();
    void readCell();
    void readQuoted(CsvCell& cell);
    int peek(); // -1 at the end
    int take();
    bool endsCell();
    void takeLineEnd();

    QIODevice& device_;
    QByteArray buffer_ = {};
    qsizetype at_ = 0;
    qint64 read_ = 0;
    char separator_ = ',';
    std::vector<CsvCell> cells_ = {};
    int line_ = 1, rowLine_ = 0;
    QString damage_ = {};
};

} // namespace study::exchange
