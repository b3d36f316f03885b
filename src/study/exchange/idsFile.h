// One table of the structure as a file, row by row. For this room alone.
#pragma once

#include "study/exchange/idsTables.h"
#include "study/parish/date.h"
#include "study/report/dataPackage.h"
#include "study/report/packageFiles.h"

namespace study::exchange {

class IdsFile
{
public:
    // Begins the file. `database` is the Id_D of each row. All throw jet::Error.
    IdsFile(report::PackageFiles& files, IdsTable table, const QByteArray& database);

    void begin(); // a row: its number and the database
    void add(qint64 number) { csv_.addNumber(number); }
    void add(const QString& text) { csv_.add(text); }
    void add(QByteArrayView text) { csv_.add(text); }
    void add(const char* text) { csv_.add(QByteArrayView(text)); }
    void addNothing() { csv_.add(QByteArrayView()); }
    void end(); // of a table without dates
    // dateType null: it holds at all times. Otherwise an unknown date is one that is missing.
    void end(const char* dateType, const parish::Date& date);

    qint64 rows() const { return rows_; }
    report::PackageJson finish(); // the file as a resource of its package

private:
    report::PackageFiles& files_;
    const IdsTableWords& words_;
    QByteArray database_;
    report::CsvRows csv_ = report::CsvRows();
    qint64 rows_ = 0;
};

} // namespace study::exchange
