// Files of episodes as a test reads them.
#pragma once

#include "study/exchange_tables.h"

#include "study/exchange/episodes.h"
#include "study/parish/date.h"

#include <QDir>
#include <QFile>

#include <map>

namespace episodes {

inline QByteArray bytes(const QString& folder, const QString& name)
{
    QFile file(QDir(folder).filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// One file by its headings.
class File
{
public:
    File(const QString& folder, const QString& name) : rows_(exchanged::cells(bytes(folder, name + ".csv")))
    {
        if (rows_.isEmpty()) return;
        header_ = rows_.takeFirst();
        for (const QStringList& row : rows_)
            EXPECT_EQ(row.size(), header_.size()) << qPrintable(name);
    }
    qsizetype size() const { return rows_.size(); }
    const QStringList& header() const { return header_; }
    QString text(qsizetype row, const char* column) const
    {
        const qsizetype at = header_.indexOf(QLatin1String(column));
        EXPECT_GE(at, 0) << column;
        return rows_.value(row).value(at);
    }
    double number(qsizetype row, const char* column) const { return text(row, column).toDouble(); }
    qint64 halfDays(qsizetype row) const { return std::lround(2 * number(row, "days")); }
    bool flag(qsizetype row, const char* column) const { return text(row, column) == "1"; }
    study::parish::Date date(qsizetype row, const char* column) const
    {
        return study::parish::dateOf(QDate::fromString(text(row, column), Qt::ISODate), true);
    }
    // The cells of these columns, joined by a bar.
    QStringList told(const std::vector<const char*>& columns) const
    {
        QStringList all;
        for (qsizetype row = 0; row < size(); ++row) {
            QStringList cells;
            for (const char* const column : columns)
                cells << text(row, column);
            all << cells.join('|');
        }
        return all;
    }

private:
    QList<QStringList> rows_;
    QStringList header_ = {};
};

} // namespace episodes
