// One file of a table, row by row as values. For this room alone.
#pragma once

#include "study/exchange/csvReader.h"
#include "study/exchange/tableFiles.h"
#include "study/exchange/tables_p.h"

#include <QFile>
#include <QHash>

#include <optional>

namespace study::exchange {

// Where what is wrong with a file is told; it throws where there is too much of it.
using Complaint = std::function<void(const TableProblem& problem)>;

class TableReader
{
public:
    // `filled` are the columns that may not be null: a text without any letter is an empty one there.
    // Reads the header; where that can't be taken, it complains, and there is no row. Throws jet::Error where the file
    // can't be read.
    TableReader(const TableFile& file, const QStringList& filled, Complaint complain);

    bool next(); // a row that can't be taken is complained of, and passed over

    // Of the row, in the order of the file: columns() are those of the table, "rowid" among them.
    const QStringList& columns() const { return names_; }
    const QVariantList& values() const { return values_; }
    qint64 place() const { return place_; } // 0 where the file doesn't tell it
    int line() const { return reader_.line(); }
    qint64 bytesRead() const { return reader_.read(); }
    // Whether a text was taken in code page 1252: in a file without any letter of UTF-8 beyond ASCII, as older programs
    // and spreadsheets write it.
    bool isOf1252() const { return isOf1252_.value_or(false); }

    void complain(const QString& text) const { complain_({file_.name, line(), text}); }

private:
    struct Taken
    {
        std::size_t cell = 0;                // of the file
        const TableColumn* column = nullptr; // null: the place
        bool isFilled = false;
    };
    void readHeader(const QStringList& filled);
    bool takeHeader(const QString& name, std::size_t at, const QStringList& filled);
    bool takeRow();
    bool takeCell(const Taken& taken, const CsvCell& cell);
    bool hasSurplus() const;
    std::optional<QVariant> textOf1252(const QByteArray& cell);

    TableFile file_;
    Complaint complain_;
    QFile device_;
    CsvReader reader_;
    std::size_t headers_ = 0;
    std::vector<Taken> taken_ = {};
    QStringList names_ = {};
    QVariantList values_ = {};
    qint64 place_ = 0;
    std::optional<bool> isOf1252_ = {}; // asked of the whole file at the first text that isn't in UTF-8
};

// The cells of problemas.csv by table, place and column.
struct ApartCell
{
    QByteArray value = {};
    bool isJson = false;
    int line = 0;
};
using ApartRow = QHash<QString, ApartCell>;
using ApartCells = QHash<QString, QHash<qint64, ApartRow>>;
ApartCells apartCells(const TableFile& file, const Complaint& complain);

} // namespace study::exchange
